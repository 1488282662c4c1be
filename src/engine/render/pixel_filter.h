// The reconstruction filter of the film, sampled by importance: a sample counts fully for the one pixel that drew it,
// and lies about the pixel's middle as the filter weighs. Ernst, Stamminger and Greiner 2006, "Filter Importance
// Sampling".
#pragma once

#include "engine/scene/vector_math.h"

#include <vector>

namespace Velmar::Engine {

/// The separable Blackman-Harris window of four terms (Harris 1978) with a width of `width` pixels.
class PixelFilter {
public:
    explicit PixelFilter(float width = 3.0f);
    /// Offset from the pixel's middle, in pixels, for two numbers in [0, 1).
    Float2 sample(Float2 u) const { return {offset(u.x), offset(u.y)}; }

private:
    float offset(float u) const;
    std::vector<float> inverse_;  // of the filter's integral, at equal steps
};

}  // namespace Velmar::Engine
