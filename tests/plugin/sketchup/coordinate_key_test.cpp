// The keys of the stream against the text that they stand for.
#include "plugin/sketchup/coordinate_key.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Velmar {
namespace {

/// The key of one coordinate, which must not depend on the place that it takes among the three.
std::uint32_t CoordinateKey(float coordinate) {
    const CoordinateKeys keys = KeysOf({coordinate, -3.0f, coordinate});
    const CoordinateKeys moved = KeysOf({1e30f, coordinate, -0.0f});
    EXPECT_EQ(keys.x, keys.z);
    EXPECT_EQ(keys.x, moved.y);
    return keys.x;
}

std::string TextOf(float coordinate) {
    char text[64];
    std::snprintf(text, sizeof text, "%f", static_cast<double>(coordinate));
    return text;
}

/// Reads the text of a finite coordinate below 16 as the key should be: sign, and micro-units.
std::uint32_t KeyOfText(const char* text) {
    const std::uint32_t sign = *text == '-' ? 0x80000000u : 0u;
    std::uint32_t micro = 0;
    for (; *text != '\0'; ++text) {
        if (*text >= '0' && *text <= '9') micro = 10 * micro + static_cast<std::uint32_t>(*text - '0');
    }
    return sign | micro;
}

/// Below 16 the key is the text read as a number, so that equal keys and equal texts are the same thing.
void ExpectKeyIsText(float coordinate) {
    ASSERT_LT(std::fabs(coordinate), 16.0f);
    char text[64];
    std::snprintf(text, sizeof text, "%f", static_cast<double>(coordinate));
    if (CoordinateKey(coordinate) != KeyOfText(text)) {
        ADD_FAILURE() << "bits " << std::hex << std::bit_cast<std::uint32_t>(coordinate) << " print as " << text;
    }
}

TEST(CoordinateKey, IsTheTextOfMillionsOfNumbersBelowSixteen) {
    std::mt19937 random(5);
    std::uniform_int_distribution<std::uint32_t> bits(0, 0x41800000u - 1);
    std::uniform_real_distribution<float> even(-16.0f, 16.0f);
    for (int i = 0; i < 1'500'000; ++i) {
        ExpectKeyIsText(std::bit_cast<float>(bits(random)));
        const float coordinate = even(random);
        if (std::fabs(coordinate) < 16.0f) ExpectKeyIsText(coordinate);
    }
}

TEST(CoordinateKey, IsTheTextAroundEveryRoundingBoundary) {
    // Floats next to each half of a micro-unit, where the text turns from one number to the next.
    std::mt19937 random(6);
    std::uniform_int_distribution<int> micro(0, 15'999'999);
    const auto check_around = [](double boundary) {
        float coordinate = static_cast<float>(boundary);
        for (int step = 0; step < 3; ++step) coordinate = std::nextafter(coordinate, 0.0f);
        for (int step = 0; step < 7; ++step) {
            if (coordinate < 16.0f) {
                ExpectKeyIsText(coordinate);
                ExpectKeyIsText(-coordinate);
            }
            coordinate = std::nextafter(coordinate, 100.0f);
        }
    };
    for (int i = 0; i < 100'000; ++i) check_around(i < 20'000 ? (i + 0.5) * 1e-6 : (micro(random) + 0.5) * 1e-6);
}

TEST(CoordinateKey, RoundsExactHalvesToEvenAsTheTextDoes) {
    // Odd multiples of 2^-7 have a micro-unit part of exactly one half.
    int ties = 0;
    for (int i = 1; i < 16 * 128; i += 2) {
        const float coordinate = static_cast<float>(i) / 128.0f;
        const double micro = static_cast<double>(coordinate) * 1e6;
        if (micro - std::floor(micro) == 0.5) ++ties;
        ExpectKeyIsText(coordinate);
        ExpectKeyIsText(-coordinate);
    }
    EXPECT_GT(ties, 1000);
}

TEST(CoordinateKey, KeepsTheZerosApart) {
    EXPECT_NE(CoordinateKey(0.0f), CoordinateKey(-0.0f));
    EXPECT_EQ(CoordinateKey(-0.0f), CoordinateKey(-4e-7f));
    EXPECT_EQ(CoordinateKey(0.0f), CoordinateKey(4e-7f));
    EXPECT_EQ(TextOf(-4e-7f), "-0.000000");
}

TEST(CoordinateKey, EqualsExactlyWhereTheTextDoesForAllKindsOfNumbers) {
    std::vector<float> numbers = {0.0f,
                                  -0.0f,
                                  16.0f,
                                  -16.0f,
                                  15.999999f,
                                  std::nextafter(16.0f, 0.0f),
                                  std::nextafter(16.0f, 17.0f),
                                  std::numeric_limits<float>::infinity(),
                                  -std::numeric_limits<float>::infinity(),
                                  std::numeric_limits<float>::max(),
                                  std::numeric_limits<float>::min(),
                                  std::numeric_limits<float>::denorm_min(),
                                  -std::numeric_limits<float>::denorm_min(),
                                  std::bit_cast<float>(0x7fc00000u),
                                  std::bit_cast<float>(0xffc00000u),
                                  std::bit_cast<float>(0x7f800001u),
                                  std::bit_cast<float>(0xff812345u),
                                  std::bit_cast<float>(0x7fffffffu)};
    std::mt19937 random(7);
    for (int i = 0; i < 1'000'000; ++i) numbers.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    for (std::uint32_t bits = 0x41800000u - 2000; bits < 0x41800000u + 2000; ++bits) {
        numbers.push_back(std::bit_cast<float>(bits));
    }
    std::unordered_map<std::string, std::uint32_t> key_of_text;
    std::unordered_map<std::uint32_t, std::string> text_of_key;
    for (const float number : numbers) {
        const std::string text = TextOf(number);
        const std::uint32_t key = CoordinateKey(number);
        ASSERT_EQ(key_of_text.try_emplace(text, key).first->second, key) << text;
        ASSERT_EQ(text_of_key.try_emplace(key, text).first->second, text) << text;
    }
    EXPECT_GT(key_of_text.size(), 400'000u);
}

TEST(CoordinateKey, NeighboursFromSixteenUpPrintApart) {
    // The bits serve as key there: it must be that no two floats share a text.
    std::mt19937 random(8);
    std::uniform_int_distribution<std::uint32_t> bits(0x41800000u, 0x7f7ffffeu);
    for (int i = 0; i < 300'000; ++i) {
        const std::uint32_t low = i < 100'000 ? 0x41800000u + static_cast<std::uint32_t>(i) : bits(random);
        ASSERT_NE(TextOf(std::bit_cast<float>(low)), TextOf(std::bit_cast<float>(low + 1)));
    }
}

}  // namespace
}  // namespace Velmar
