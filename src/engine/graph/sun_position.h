// Where the sun stands at a place and a time.
#pragma once

#include <velmar/values.h>

namespace Velmar::Engine {

struct PlaceAndTime {
    float latitude_degrees = 0.0F;   ///< north positive
    float longitude_degrees = 0.0F;  ///< east positive
    int month = 1;                   ///< 1 to 12; others count as the nearest
    int day = 1;                     ///< 1 to 31
    float hour = 12.0F;              ///< local clock time
    float gmt_offset_hours = 0.0F;   ///< of the clock, east positive
};

/// Unit vector towards the sun, X east, Y up, Z south, for a year that is no leap year. Good to a few minutes of arc;
/// refraction is left out. Straight up when the input is not finite.
Vec3<float> sunDirection(const PlaceAndTime& when);

}  // namespace Velmar::Engine
