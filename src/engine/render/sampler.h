// Sample points: an Owen-scrambled Sobol sequence for each pixel, in pairs of dimensions that are scrambled and
// shuffled apart (Burley 2020, "Practical Hash-based Owen Scrambling"). A sample is a pure function of pixel, seed and
// sample index, so a picture does not depend on which thread renders what, and ranges of samples can be rendered apart.
#pragma once

#include "engine/scene/vector_math.h"

#include <cstdint>

namespace Velmar::Engine {

/// A hash whose every output bit depends on all input bits.
/// Wellons 2018, "Prospecting for Hash Functions", lowbias32.
inline std::uint32_t mixBits(std::uint32_t x) {
    x ^= x >> 16;
    x *= 0x7feb352du;
    x ^= x >> 15;
    x *= 0x846ca68bu;
    x ^= x >> 16;
    return x;
}

inline std::uint32_t reverseBits(std::uint32_t x) {
    x = __builtin_bswap32(x);
    x = (x & 0x0f0f0f0fu) << 4 | (x & 0xf0f0f0f0u) >> 4;
    x = (x & 0x33333333u) << 2 | (x & 0xccccccccu) >> 2;
    return (x & 0x55555555u) << 1 | (x & 0xaaaaaaaau) >> 1;
}

/// Owen scrambling of a number whose bits are reversed: each bit is flipped by a hash of the bits below it.
/// The hash of Burley 2020, after Laine and Karras 2011, with the constants of Vegdahl 2021.
inline std::uint32_t scrambleReversed(std::uint32_t x, std::uint32_t seed) {
    x ^= x * 0x3d20adeau;
    x += seed;
    x *= (seed >> 16) | 1u;
    x ^= x * 0x05526c56u;
    x ^= x * 0x53a22864u;
    return x;
}

/// The second dimension of the Sobol sequence for the index whose bits are `x`, bits reversed: its generator is the
/// Pascal matrix modulo 2, applied in five steps.
inline std::uint32_t secondSobolReversed(std::uint32_t x) {
    x ^= (x & 0xaaaaaaaau) >> 1;
    x ^= (x & 0xccccccccu) >> 2;
    x ^= (x & 0xf0f0f0f0u) >> 4;
    x ^= (x & 0xff00ff00u) >> 8;
    x ^= (x & 0xffff0000u) >> 16;
    return x;
}

/// [0, 1) from the upper 24 bits.
inline float unitFloat(std::uint32_t bits) {
    return static_cast<float>(bits >> 8) * 0x1p-24f;
}

/// The sample points of one path. Pairs are numbered by whoever draws them; equal numbers give equal points.
class PathSampler {
public:
    PathSampler(std::uint32_t pixel, std::uint32_t sample, std::uint32_t seed)
        : pixel_seed_(mixBits(pixel ^ mixBits(seed + 0x9e3779b9u))), reversed_sample_(reverseBits(sample)) {}

    /// Two numbers in [0, 1).
    Float2 pair(std::uint32_t number) const {
        const std::uint32_t seed = mixBits(pixel_seed_ + number * 0x9e3779b9u);
        // Shuffle the order of the points, then scramble each dimension by itself.
        const std::uint32_t index = reverseBits(scrambleReversed(reversed_sample_, seed));
        const std::uint32_t first = scrambleReversed(index, mixBits(seed ^ 0x68bc21ebu));
        const std::uint32_t second = scrambleReversed(secondSobolReversed(index), mixBits(seed ^ 0x02e5be93u));
        return {unitFloat(reverseBits(first)), unitFloat(reverseBits(second))};
    }

private:
    std::uint32_t pixel_seed_;
    std::uint32_t reversed_sample_;
};

}  // namespace Velmar::Engine
