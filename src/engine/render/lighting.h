// The light around the scene: a sky dome and a sun. Plain values, so that a test can say what shines.
#pragma once

#include "engine/render/sampling.h"

namespace Velmar::Engine {

struct Lighting {
    Float3 zenith_radiance{0.11f, 0.18f, 0.31f};
    Float3 horizon_radiance{0.46f, 0.51f, 0.56f};
    Float3 ground_radiance{0.23f, 0.23f, 0.235f};  ///< of the half of the dome below the horizon
    Float3 sun_direction{-0.56f, 0.60f, 0.57f};    ///< towards the sun, any length but 0
    Float3 sun_irradiance{2.90f, 2.52f, 2.02f};    ///< on a plane that faces the sun; 0 for no sun
    float sun_radius_degrees = 0.6f;               ///< half of the sun's angle; below 90
};

/// Radiance from a direction, and directions towards the sun. Immutable.
class LightDome {
public:
    explicit LightDome(const Lighting& lighting);

    /// Of the sky and the ground without the sun, from the unit vector `direction`.
    Float3 radiance(Float3 direction) const;
    /// Of the sun's disc: zero beside it.
    Float3 sunRadiance(Float3 direction) const;

    bool hasSun() const { return has_sun_; }
    Float3 sunIrradiance() const { return lighting_.sun_irradiance; }
    /// A direction to a point of the sun, evenly distributed over its disc.
    Float3 sampleSun(Float2 u) const { return sun_frame_.toWorld(sampleCone(u, sun_sine_)); }

private:
    Lighting lighting_;
    bool has_sun_;
    float sun_sine_;
    Float3 sun_radiance_;
    Frame sun_frame_;
};

}  // namespace Velmar::Engine
