#include "engine/render/path_tracer.h"

#include "engine/render/surface.h"

namespace Velmar::Engine {

namespace {
// From this bounce on a path goes on by chance, in the measure of what it carries. Chance any earlier saves less time
// than its noise costs.
constexpr int kFirstRouletteBounce = 5;
// Pairs drawn at each bounce: sun, direction, survival.
constexpr std::uint32_t kPairsPerBounce = 3;
}  // namespace

PathTracer::PathTracer(const RenderGeometry& geometry, const Lighting& lighting, const TransportSettings& settings)
    : geometry_(geometry), dome_(lighting), settings_(settings) {}

Float3 PathTracer::radiance(Ray ray, const PathSampler& sampler) const {
    Float3 gathered{};
    Float3 throughput{1.0f, 1.0f, 1.0f};
    for (int bounce = 0;; ++bounce) {
        const auto surface = intersect(geometry_, ray);
        if (!surface) {
            gathered += throughput * dome_.radiance(ray.direction);
            if (bounce == 0) gathered += dome_.sunRadiance(ray.direction);
            return gathered;
        }
        if (bounce >= settings_.max_bounces) return gathered;

        // Light that falls in from the sun.
        const std::uint32_t pair = kFirstPair + static_cast<std::uint32_t>(bounce) * kPairsPerBounce;
        throughput *= settings_.albedo;
        if (dome_.hasSun()) gathered += throughput * sunlight(*surface, sampler.pair(pair));

        // Paths that carry little end by chance; those that go on carry more for it.
        if (bounce >= kFirstRouletteBounce) {
            const float survival = std::min(1.0f, largest(throughput));
            if (!(sampler.pair(pair + 2).x < survival)) return gathered;
            throughput *= 1.0f / survival;
        }

        // Go on with the density of diffuse reflection, which leaves the albedo as the path's weight.
        const Frame frame(surface->shading_normal);
        ray = {surface->departure, frame.toWorld(sampleCosine(sampler.pair(pair + 1)))};
    }
}

// The sun's light that a white surface reflects.
Float3 PathTracer::sunlight(const SurfacePoint& surface, Float2 u) const {
    const Float3 direction = dome_.sampleSun(u);
    const float cosine = dot(surface.shading_normal, direction);
    if (cosine <= 0.0f) return {};
    if (isOccluded(geometry_, {surface.departure, direction})) return {};
    return dome_.sunIrradiance() * (cosine / kPi);
}

}  // namespace Velmar::Engine
