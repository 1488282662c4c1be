#include "engine/render/display.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Velmar::Engine {
namespace {

TEST(Display, RoundsToTheNearestStepOfSrgb) {
    for (int step = 0; step < 256; ++step) {
        // The linear value of each step comes back as that step, and so does what lies close to it.
        const double encoded = step / 255.0;
        const double linear = encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
        EXPECT_EQ(encodeSrgb(static_cast<float>(linear)), step);
    }
    EXPECT_EQ(encodeSrgb(0.2140f), 127);
    EXPECT_EQ(encodeSrgb(0.2150f), 128);
}

TEST(Display, KeepsToTheRange) {
    EXPECT_EQ(encodeSrgb(-1.0f), 0);
    EXPECT_EQ(encodeSrgb(7.0f), 255);
    EXPECT_EQ(encodeSrgb(std::numeric_limits<float>::infinity()), 255);
    EXPECT_EQ(encodeSrgb(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(Display, WritesChannelsInOrder) {
    const LinearPicture picture{1, 2, {{1.0f, 0.0f, 0.0f}, {0.0f, 0.5f, 1.0f}}};
    EXPECT_EQ(encodeSrgb(picture), (std::vector<std::uint8_t>{255, 0, 0, 0, 188, 255}));
}

}  // namespace
}  // namespace Velmar::Engine
