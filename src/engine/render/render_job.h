// One picture in the making: a scene, the view of it, and the film. A change of the scene makes a new job; threads that
// still work for the old one do no harm.
#pragma once

#include "engine/render/camera.h"
#include "engine/render/film.h"
#include "engine/render/path_tracer.h"
#include "engine/render/pixel_filter.h"

#include <memory>

namespace Velmar::Engine {

/// What a picture depends on beside its scene.
struct RenderSettings {
    Lighting lighting;
    TransportSettings transport;
    float filter_width = 3.0f;  ///< pixels
    std::uint32_t seed = 1;
};

class RenderJob {
public:
    /// The film of `scene` is larger than 0 both ways.
    RenderJob(std::shared_ptr<const RenderScene> scene, const RenderSettings& settings, int max_samples);

    const RenderScene& scene() const { return *scene_; }
    Film& film() { return film_; }
    const Film& film() const { return film_; }

    /// Renders one task into `samples`. False when the film was cancelled on the way; then the samples are void.
    bool render(const Film::Task& task, Float3* samples) const;

private:
    static Camera makeCamera(const RenderScene& scene);

    std::shared_ptr<const RenderScene> scene_;
    Camera camera_;
    PixelFilter filter_;
    PathTracer tracer_;
    std::uint32_t seed_;
    Film film_;
};

}  // namespace Velmar::Engine
