// Light transport: the radiance that arrives along a ray. Surfaces are even, diffuse clay.
#pragma once

#include "engine/render/lighting.h"
#include "engine/render/ray.h"
#include "engine/render/sampler.h"
#include "engine/scene/render_scene.h"

namespace Velmar::Engine {

struct TransportSettings {
    Float3 albedo{0.7f, 0.69f, 0.67f};
    int max_bounces = 8;  ///< reflections on a path, at least 0
};

/// Follows paths from the camera: the sun is sampled at each surface, the sky is met by rays that leave the scene.
/// Immutable; any thread may use it.
class PathTracer {
public:
    PathTracer(const RenderGeometry& geometry, const Lighting& lighting, const TransportSettings& settings);

    /// Linear RGB radiance along `ray`. Draws the pairs of `sampler` from kFirstPair up.
    Float3 radiance(Ray ray, const PathSampler& sampler) const;

    /// Numbers of the pairs that are drawn before a path begins.
    enum Pair : std::uint32_t { kFilterPair = 0, kLensPair = 1, kFirstPair = 2 };

private:
    Float3 sunlight(const struct SurfacePoint& surface, Float2 u) const;

    const RenderGeometry& geometry_;
    LightDome dome_;
    TransportSettings settings_;
};

}  // namespace Velmar::Engine
