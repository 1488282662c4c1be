#include "engine/graph/sun_position.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace Velmar::Engine {
namespace {

constexpr double degrees = 180.0 / std::numbers::pi;

double elevation(Vec3<float> direction) {
    return std::asin(direction.y) * degrees;
}

/// From north over east, 0 to 360.
double azimuth(Vec3<float> direction) {
    const double angle = std::atan2(direction.x, -direction.z) * degrees;
    return angle < 0 ? angle + 360 : angle;
}

// Places and times from the sun tables that almanacs print.
TEST(SunPosition, StandsOverTheEquatorAtNoonOnTheEquinox) {
    const Vec3<float> direction = sunDirection({0, 0, 3, 20, 12.12F, 0});
    EXPECT_NEAR(elevation(direction), 90.0, 0.7);
}

TEST(SunPosition, StandsOverTheTropicsAtTheSolstices) {
    EXPECT_NEAR(elevation(sunDirection({23.44F, 0, 6, 21, 12.03F, 0})), 90.0, 0.5);
    EXPECT_NEAR(elevation(sunDirection({-23.44F, 0, 12, 21, 11.97F, 0})), 90.0, 0.5);
}

// Boulder, Colorado on 17 October at 12:30:30 mountain standard time: zenith 50.11, azimuth 194.34 degrees (Reda and
// Andreas 2004, table A5.1 of "Solar position algorithm for solar radiation applications", without refraction and
// slope).
TEST(SunPosition, AgreesWithAPublishedExample) {
    const Vec3<float> direction = sunDirection({39.742476F, -105.1786F, 10, 17, 12.508333F, -7});
    EXPECT_NEAR(90.0 - elevation(direction), 50.11, 0.3);
    EXPECT_NEAR(azimuth(direction), 194.34, 0.5);
}

TEST(SunPosition, RisesInTheEastAndSetsInTheWest) {
    const Vec3<float> morning = sunDirection({50, 0, 6, 21, 7, 0});
    const Vec3<float> evening = sunDirection({50, 0, 6, 21, 17, 0});
    EXPECT_GT(morning.x, 0.5F);
    EXPECT_LT(evening.x, -0.5F);
    EXPECT_GT(sunDirection({50, 0, 6, 21, 12, 0}).z, 0.0F) << "in the south at noon in the north";
    EXPECT_LT(sunDirection({-50, 0, 12, 21, 12, 0}).z, 0.0F) << "in the north at noon in the south";
    EXPECT_LT(sunDirection({50, 0, 6, 21, 0, 0}).y, 0.0F) << "below the horizon at midnight";
}

TEST(SunPosition, FollowsLongitudeAndTimeZoneAlike) {
    const Vec3<float> here = sunDirection({45, 0, 5, 5, 10, 0});
    const Vec3<float> there = sunDirection({45, 30, 5, 5, 10, 2});
    EXPECT_NEAR(here.x, there.x, 1e-3);
    EXPECT_NEAR(here.y, there.y, 1e-3);
    EXPECT_NEAR(here.z, there.z, 1e-3);
}

TEST(SunPosition, IsAUnitVectorForAnyInput) {
    const float inputs[] = {-1e9F,
                            -90,
                            -1,
                            0,
                            0.5F,
                            12,
                            90,
                            1e9F,
                            std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN()};
    for (const float a : inputs) {
        for (const float b : inputs) {
            for (const int month : {-5, 0, 1, 12, 13, std::numeric_limits<int>::max()}) {
                const Vec3<float> direction = sunDirection({a, b, month, month, a, b});
                EXPECT_NEAR(std::hypot(direction.x, direction.y, direction.z), 1.0, 1e-4) << a << " " << b;
            }
        }
    }
}

TEST_F(GraphTest, TheDaylightEnvironmentHasASunFromTheStart) {
    ApiNode* environment = make(NODE_DAYLIGHT_ENVIRONMENT);
    ApiNode* sun = environment->inputNode(PIN_SUN_DIRECTION);
    ASSERT_NE(sun, nullptr);
    EXPECT_EQ(sun->type(), NODE_SUN_DIRECTION);
    EXPECT_TRUE(sun->pinOwned());
    sun->setPinValue(PIN_LATITUDE, 40.0F, true);
    sun->setPinValue(PIN_LONGITUDE, -105.0F, true);
    sun->setPinValue(PIN_MONTH, 11, true);
    sun->setPinValue(PIN_DAY, 8, true);
    sun->setPinValue(PIN_HOUR, 13.5F, true);
    sun->setPinValue(PIN_GMT_OFFSET, -7, true);
    const Vec3<float> expected = sunDirection({40.0F, -105.0F, 11, 8, 13.5F, -7});
    EXPECT_EQ(environment->getPinFloat3(PIN_SUN_DIRECTION), expected);
    EXPECT_EQ(sun->getFloat3Ix(0), expected);
}

TEST_F(GraphTest, ASunWithoutPinsFilledFollowsTheirDefaults) {
    ApiNode* sun = bare(NODE_SUN_DIRECTION);
    EXPECT_EQ(sun->getFloat3Ix(0), sunDirection({50.7667F, 4.4667F, 3, 1, 14.0F, 0}));
}

TEST_F(GraphTest, ADirectionMayTakeThePlaceOfTheSun) {
    ApiNode* environment = make(NODE_DAYLIGHT_ENVIRONMENT);
    environment->setPinValue(PIN_SUN_DIRECTION, Vec3<float>{0, 1, 0}, true);
    EXPECT_EQ(environment->getPinFloat3(PIN_SUN_DIRECTION), (Vec3<float>{0, 1, 0}));
    EXPECT_EQ(environment->inputNode(PIN_SUN_DIRECTION)->type(), NODE_FLOAT3);
}

}  // namespace
}  // namespace Velmar::Engine
