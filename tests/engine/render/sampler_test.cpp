#include "engine/render/sampler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "engine/render/pixel_filter.h"
#include "engine/render/sampling.h"

namespace Velmar::Engine {
namespace {

constexpr std::uint32_t kPixel = 1234, kSeed = 7;

TEST(PathSampler, PutsOnePointIntoEachElementaryIntervalOfAPowerOfTwo) {
    constexpr int kBits = 6, kPoints = 1 << kBits;
    for (std::uint32_t pair : {0u, 1u, 17u})
        for (int bits_x = 0; bits_x <= kBits; ++bits_x) {
            std::set<std::pair<int, int>> boxes;
            for (std::uint32_t sample = 0; sample < kPoints; ++sample) {
                const Float2 u = PathSampler(kPixel, sample, kSeed).pair(pair);
                boxes.emplace(static_cast<int>(u.x * (1 << bits_x)), static_cast<int>(u.y * (1 << (kBits - bits_x))));
            }
            EXPECT_EQ(boxes.size(), kPoints) << "pair " << pair << ", " << bits_x << " bits across";
        }
}

TEST(PathSampler, IsAFunctionOfPixelSampleSeedAndPair) {
    const Float2 u = PathSampler(kPixel, 5, kSeed).pair(3);
    EXPECT_EQ(u, PathSampler(kPixel, 5, kSeed).pair(3));
    EXPECT_NE(u, PathSampler(kPixel + 1, 5, kSeed).pair(3));
    EXPECT_NE(u, PathSampler(kPixel, 6, kSeed).pair(3));
    EXPECT_NE(u, PathSampler(kPixel, 5, kSeed + 1).pair(3));
    EXPECT_NE(u, PathSampler(kPixel, 5, kSeed).pair(4));
}

TEST(PathSampler, StaysBelowOneAndLeavesPairsUncorrelated) {
    double product = 0.0;
    constexpr int kPoints = 4096;
    for (std::uint32_t sample = 0; sample < kPoints; ++sample) {
        const PathSampler sampler(kPixel, sample, kSeed);
        const Float2 a = sampler.pair(1), b = sampler.pair(2);
        for (float number : {a.x, a.y, b.x, b.y}) {
            ASSERT_GE(number, 0.0f);
            ASSERT_LT(number, 1.0f);
        }
        product += (a.x - 0.5) * (b.x - 0.5);
    }
    EXPECT_NEAR(product / kPoints, 0.0, 5e-3);  // 1/12 if they were equal
}

TEST(Sampling, CosineDirectionsHaveTheMeanHeightOfTheirDensity) {
    double height = 0.0;
    constexpr int kPoints = 1024;
    for (std::uint32_t sample = 0; sample < kPoints; ++sample) {
        const Float3 direction = sampleCosine(PathSampler(kPixel, sample, kSeed).pair(0));
        EXPECT_NEAR(length(direction), 1.0f, 1e-5f);
        height += direction.z;
    }
    EXPECT_NEAR(height / kPoints, 2.0 / 3.0, 1e-3);
}

TEST(Sampling, ConeDirectionsAreEvenOverTheCap) {
    const float half_angle = 0.5f;
    double cosine = 0.0;
    constexpr int kPoints = 1024;
    for (std::uint32_t sample = 0; sample < kPoints; ++sample) {
        const Float3 direction = sampleCone(PathSampler(kPixel, sample, kSeed).pair(0), std::sin(half_angle));
        EXPECT_NEAR(length(direction), 1.0f, 1e-5f);
        EXPECT_GE(direction.z, std::cos(half_angle) - 1e-5f);
        cosine += direction.z;
    }
    EXPECT_NEAR(cosine / kPoints, (1.0 + std::cos(half_angle)) / 2.0, 1e-4);
}

TEST(PixelFilter, SpreadsSamplesAsTheBlackmanHarrisWindowWeighs) {
    // The window's second moment, by summation.
    constexpr float kWidth = 3.0f;
    double weight = 0.0, moment = 0.0;
    for (int i = 0; i < 10000; ++i) {
        const double t = (i + 0.5) / 10000, angle = 2 * 3.14159265358979 * t;
        const double w =
            0.35875 - 0.48829 * std::cos(angle) + 0.14128 * std::cos(2 * angle) - 0.01168 * std::cos(3 * angle);
        weight += w;
        moment += w * std::pow(kWidth * (t - 0.5), 2);
    }

    const PixelFilter filter(kWidth);
    double mean = 0.0, squares = 0.0;
    constexpr int kPoints = 100000;
    for (int i = 0; i < kPoints; ++i) {
        const Float2 offset = filter.sample({(i + 0.5f) / kPoints, 0.5f});
        ASSERT_LE(std::fabs(offset.x), kWidth / 2);
        EXPECT_NEAR(offset.y, 0.0f, 1e-3f);
        mean += offset.x;
        squares += offset.x * offset.x;
    }
    EXPECT_NEAR(mean / kPoints, 0.0, 1e-3);
    EXPECT_NEAR(squares / kPoints, moment / weight, 2e-3);
}

TEST(PixelFilter, TakesTheEndsOfTheRange) {
    const PixelFilter filter(2.0f);
    EXPECT_NEAR(filter.sample({0.0f, 0.5f}).x, -1.0f, 1e-3f);
    const float last = std::nextafter(1.0f, 0.0f);
    EXPECT_LE(filter.sample({last, last}).x, 1.0f);
}

}  // namespace
}  // namespace Velmar::Engine
