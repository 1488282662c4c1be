// Distributions: from two numbers in [0, 1) to points and directions.
#pragma once

#include "engine/scene/vector_math.h"

namespace Velmar::Engine {

/// A point of the unit disc, evenly distributed and without tearing strata apart.
/// Shirley and Chiu 1997, "A Low Distortion Map Between Disk and Square".
inline Float2 sampleDisc(Float2 u) {
    const float a = 2.0f * u.x - 1.0f;
    const float b = 2.0f * u.y - 1.0f;
    if (a == 0.0f && b == 0.0f) return {0.0f, 0.0f};
    const bool wide = std::fabs(a) > std::fabs(b);
    const float radius = wide ? a : b;
    const float angle = wide ? (kPi / 4) * (b / a) : (kPi / 2) - (kPi / 4) * (a / b);
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// A direction about +z with a density of cosine / pi.
inline Float3 sampleCosine(Float2 u) {
    const Float2 disc = sampleDisc(u);
    return {disc.x, disc.y, std::sqrt(std::max(0.0f, 1.0f - disc.x * disc.x - disc.y * disc.y))};
}

/// A direction about +z inside the cone whose half angle has that sine, evenly over the solid angle.
inline Float3 sampleCone(Float2 u, float sine) {
    const float one_minus_cosine = sine * sine / (1.0f + std::sqrt(std::max(0.0f, 1.0f - sine * sine)));
    const Float2 disc = sampleDisc(u);
    // The disc's squared radius is even in [0, 1], and so is the cosine over a cap.
    const float height = one_minus_cosine * (disc.x * disc.x + disc.y * disc.y);
    const float scale = std::sqrt(one_minus_cosine * (2.0f - height));
    return {disc.x * scale, disc.y * scale, 1.0f - height};
}

}  // namespace Velmar::Engine
