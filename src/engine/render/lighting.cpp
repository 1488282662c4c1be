#include "engine/render/lighting.h"

namespace Velmar::Engine {

namespace {
// How far below the horizon the sky's colour fades into the ground's, as a sine.
constexpr float kHorizonBlur = 0.08f;
}  // namespace

LightDome::LightDome(const Lighting& lighting)
    : lighting_(lighting),
      has_sun_(largest(lighting.sun_irradiance) > 0.0f),
      sun_sine_(std::sin(lighting.sun_radius_degrees * (kPi / 180.0f))),
      sun_radiance_(lighting.sun_irradiance * (1.0f / (kPi * std::max(sun_sine_ * sun_sine_, 1e-12f)))),
      sun_frame_(normalised(lighting.sun_direction)) {}

Float3 LightDome::radiance(Float3 direction) const {
    if (direction.y >= 0.0f) {
        const float low = 1.0f - std::min(direction.y, 1.0f);
        return lerp(lighting_.zenith_radiance, lighting_.horizon_radiance, low * low * low);
    }
    const float depth = std::min(-direction.y / kHorizonBlur, 1.0f);
    return lerp(lighting_.horizon_radiance, lighting_.ground_radiance, depth * depth * (3.0f - 2.0f * depth));
}

Float3 LightDome::sunRadiance(Float3 direction) const {
    const Float3 off_axis = cross(direction, sun_frame_.normal);
    const bool inside = dot(direction, sun_frame_.normal) > 0.0f && length(off_axis) < sun_sine_;
    return has_sun_ && inside ? sun_radiance_ : Float3{};
}

}  // namespace Velmar::Engine
