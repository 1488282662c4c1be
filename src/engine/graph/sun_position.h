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

/// Unit vector towards the sun, X east, Y up, Z south. Good to about a third of a degree, as no year is given and leap
/// days move the calendar that much; refraction is left out. Straight up when the input is not finite.
Vec3<float> sunDirection(const PlaceAndTime& when);

}  // namespace Velmar::Engine
