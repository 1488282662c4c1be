// When two coordinates count as one: when they print alike with six decimals. Plain functions of numbers.
#pragma once

#include <velmar/values.h>

#include <cstdint>

namespace Velmar {

/// Three numbers, one for each coordinate of a point.
struct CoordinateKeys {
    std::uint32_t x, y, z;
    friend bool operator==(const CoordinateKeys&, const CoordinateKeys&) = default;
};

/// For each coordinate a number that two coordinates share exactly when "%f" prints the same text for both. +0.000000
/// and -0.000000 are apart, ties go to even, every nan of one sign is one.
///
/// No text is made for it. A float times 1e6 is exact in double precision (24 + 14 significant bits), so below 16 the
/// product rounded to an integer is what the text shows. From 16 up neighbouring floats lie more than a micro-unit
/// apart, so each prints a text of its own and its bits serve as they are; those bits are larger than any such integer.
inline CoordinateKeys KeysOf(const Vec3<float>& point) {
    using Floats = float __attribute__((vector_size(16)));
    using Bits = std::int32_t __attribute__((vector_size(16)));
    using Doubles = double __attribute__((vector_size(16)));
    constexpr std::int32_t kSign = INT32_MIN, kSixteen = 0x41800000, kInfinity = 0x7f800000, kNan = 0x7fc00000;

    const Bits bits = reinterpret_cast<Bits>(Floats{point.x, point.y, point.z, 0.0f});
    const Bits magnitude = bits & ~kSign;
    const Floats size = reinterpret_cast<Floats>(magnitude);
    // At 2^52 doubles are whole numbers, so the addition rounds to one and leaves it in the low bits.
    const Doubles xy = Doubles{size[0], size[1]} * 1e6 + 0x1p52;
    const Doubles z = Doubles{size[2], size[3]} * 1e6 + 0x1p52;
    const Bits rounded = __builtin_shufflevector(reinterpret_cast<Bits>(xy), reinterpret_cast<Bits>(z), 0, 2, 4, 6);
    const Bits small = magnitude<kSixteen, nan = magnitude> kInfinity;
    const Bits large = (nan & kNan) | (~nan & magnitude);
    const Bits keys = (bits & kSign) | (small & rounded) | (~small & large);
    return {static_cast<std::uint32_t>(keys[0]), static_cast<std::uint32_t>(keys[1]),
            static_cast<std::uint32_t>(keys[2])};
}

}  // namespace Velmar
