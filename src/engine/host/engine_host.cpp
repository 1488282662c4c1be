#include "engine/host/engine_host.h"

#include "engine/host/picture_file.h"
#include "engine/render/render_session.h"

namespace Velmar::Engine {

namespace {
Renderer& renderer() {
    return RenderSession::instance().renderer();
}
}  // namespace

RenderProgress EngineHost::progress() {
    const Progress progress = renderer().progress();
    RenderProgress result;
    result.width = progress.film.width;
    result.height = progress.film.height;
    result.samples = progress.samples;
    result.max_samples = progress.max_samples;
    result.seconds = progress.seconds;
    result.running = progress.working;
    return result;
}

WaitResult EngineHost::waitForSamples(int samples, double seconds) {
    switch (renderer().wait(samples, seconds)) {
        case WaitEnd::SamplesReached:
            return WaitResult::SamplesReached;
        case WaitEnd::TimeLimit:
            return WaitResult::TimeLimit;
        case WaitEnd::Interrupted:
            return WaitResult::Interrupted;
        case WaitEnd::NothingToRender:
            break;
    }
    return WaitResult::NothingToRender;
}

void EngineHost::interrupt() noexcept {
    renderer().interrupt();
}

bool EngineHost::savePicture(const std::string& path, std::string& error) {
    const auto picture = renderer().develop();
    if (picture) return writePicture(*picture, path, error);
    error = "there is no picture to save";
    return false;
}

RenderStatistics EngineHost::statistics() {
    const RenderSession& session = RenderSession::instance();
    const SceneContents contents = session.scene() != nullptr ? contentsOf(*session.scene()) : SceneContents{};
    const SceneWork work = session.work();
    RenderStatistics statistics;
    statistics.meshes = contents.meshes;
    statistics.triangles = contents.triangles;
    statistics.acceleration_structures = contents.acceleration_structures;
    statistics.instance_lists = contents.instance_lists;
    statistics.placements = contents.placements;
    statistics.meshes_built = work.meshes_built;
    statistics.meshes_kept = work.meshes_kept;
    statistics.acceleration_structures_built = work.acceleration_structures_built;
    statistics.instance_lists_built = work.instance_lists_built;
    statistics.instance_lists_kept = work.instance_lists_kept;
    statistics.top_levels_built = work.top_levels_built;
    statistics.cameras_built = work.cameras_built;
    statistics.film_restarts = renderer().filmRestarts();
    statistics.updates = session.updates();
    return statistics;
}

void EngineHost::resetStatistics() {
    RenderSession::instance().resetCounts();
}

void EngineHost::setMaxSamples(int samples) {
    renderer().setDefaultMaxSamples(samples);
}

// There is no window yet that could want a turn.
void EngineHost::pumpEvents() {}

}  // namespace Velmar::Engine
