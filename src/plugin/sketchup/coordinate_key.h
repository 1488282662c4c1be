// When two coordinates count as one: when they print alike with six decimals. Plain functions of numbers.
#pragma once

#include <bit>
#include <cstdint>

namespace Velmar {

/// A number that two coordinates share exactly when "%f" prints the same text for both. +0.000000 and -0.000000 are
/// apart, ties go to even, every nan of one sign is one.
///
/// No text is made for it. A float times 1e6 is exact in double precision (24 + 14 significant bits), so below 16 the
/// product rounded to an integer is what the text shows. From 16 up neighbouring floats lie more than a micro-unit
/// apart, so each prints a text of its own and its bits serve as they are; those bits are larger than any such integer.
inline std::uint32_t CoordinateKey(float coordinate) {
    constexpr std::uint32_t kSixteen = 0x41800000, kInfinity = 0x7f800000, kNan = 0x7fc00000;
    const auto bits = std::bit_cast<std::uint32_t>(coordinate);
    const std::uint32_t sign = bits & 0x80000000u;
    const std::uint32_t magnitude = bits & 0x7fffffffu;
    if (magnitude < kSixteen) {
        // At 2^52 doubles are whole numbers, so the addition rounds to one and leaves it in the low bits.
        const double rounded = static_cast<double>(std::bit_cast<float>(magnitude)) * 1e6 + 0x1p52;
        return sign | static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(rounded));
    }
    return magnitude > kInfinity ? sign | kNan : bits;
}

}  // namespace Velmar
