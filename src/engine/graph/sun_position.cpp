#include "engine/graph/sun_position.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Velmar::Engine {
namespace {

constexpr double radians_per_degree = std::numbers::pi / 180.0;

int dayOfYear(int month, int day) {
    static constexpr int days_before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    return days_before[std::clamp(month, 1, 12) - 1] + std::clamp(day, 1, 31);
}

// The two series are those of J. W. Spencer, "Fourier series representation of the position of the sun", Search 2(5),
// 1971, in the angle that the year has turned.
double declination(double year_angle) {
    return 0.006918 - 0.399912 * std::cos(year_angle) + 0.070257 * std::sin(year_angle) -
           0.006758 * std::cos(2 * year_angle) + 0.000907 * std::sin(2 * year_angle) -
           0.002697 * std::cos(3 * year_angle) + 0.00148 * std::sin(3 * year_angle);
}

double equationOfTimeHours(double year_angle) {
    const double radians = 0.0000075 + 0.001868 * std::cos(year_angle) - 0.032077 * std::sin(year_angle) -
                           0.014615 * std::cos(2 * year_angle) - 0.040849 * std::sin(2 * year_angle);
    return radians * 12.0 / std::numbers::pi;
}

}  // namespace

Vec3<float> sunDirection(const PlaceAndTime& when) {
    // Turn clock time into the angle that the sun has passed the south.
    const double utc_hours = static_cast<double>(when.hour) - when.gmt_offset_hours;
    const double days = dayOfYear(when.month, when.day) - 1 + (utc_hours - 12.0) / 24.0;
    const double year_angle = 2.0 * std::numbers::pi * days / 365.0;
    const double solar_hours = utc_hours + when.longitude_degrees / 15.0 + equationOfTimeHours(year_angle);
    const double hour_angle = (solar_hours - 12.0) * 15.0 * radians_per_degree;

    // Turn declination and hour angle into east, up and south at that latitude.
    const double latitude = when.latitude_degrees * radians_per_degree;
    const double tilt = declination(year_angle);
    const double east = -std::cos(tilt) * std::sin(hour_angle);
    const double up = std::sin(latitude) * std::sin(tilt) + std::cos(latitude) * std::cos(tilt) * std::cos(hour_angle);
    const double south =
        std::sin(latitude) * std::cos(tilt) * std::cos(hour_angle) - std::cos(latitude) * std::sin(tilt);
    if (!std::isfinite(east) || !std::isfinite(up) || !std::isfinite(south)) return {0.0F, 1.0F, 0.0F};
    return {static_cast<float>(east), static_cast<float>(up), static_cast<float>(south)};
}

}  // namespace Velmar::Engine
