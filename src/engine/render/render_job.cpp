#include "engine/render/render_job.h"

#include "engine/render/surface.h"

namespace Velmar::Engine {

RenderJob::RenderJob(std::shared_ptr<const RenderScene> scene, const RenderSettings& settings, int max_samples)
    : scene_(std::move(scene)),
      camera_(makeCamera(*scene_)),
      filter_(settings.filter_width),
      tracer_(*scene_->geometry, settings.lighting, settings.transport),
      seed_(settings.seed),
      film_(scene_->film, max_samples) {}

Camera RenderJob::makeCamera(const RenderScene& scene) {
    const CameraSettings settings = scene.camera->value_or(frame(scene.geometry->bounds(), scene.film));
    Camera camera(settings, scene.film);
    if (!settings.autofocus || settings.aperture_radius <= 0.0f) return camera;

    // Focus on what the ray through the middle of picture and lens meets.
    const Float2 middle{static_cast<float>(scene.film.width) * 0.5f, static_cast<float>(scene.film.height) * 0.5f};
    const Ray ray = camera.ray(middle, {0.5f, 0.5f});
    if (const auto surface = intersect(*scene.geometry, ray))
        camera.setFocalDepth(surface->distance * dot(ray.direction, camera.forward()));
    return camera;
}

bool RenderJob::render(const Film::Task& task, Float3* samples) const {
    for (int y = task.y; y < task.y + task.height; ++y) {
        if (film_.cancelled()) return false;
        for (int x = task.x; x < task.x + task.width; ++x) {
            const auto pixel = static_cast<std::uint32_t>(y * film_.size().width + x);
            const PathSampler sampler(pixel, task.pass, seed_);
            const Float2 offset = filter_.sample(sampler.pair(PathTracer::kFilterPair));
            const Float2 point{static_cast<float>(x) + 0.5f + offset.x, static_cast<float>(y) + 0.5f + offset.y};
            const Ray ray = camera_.ray(point, sampler.pair(PathTracer::kLensPair));
            *samples++ = tracer_.radiance(ray, sampler);
        }
    }
    return true;
}

}  // namespace Velmar::Engine
