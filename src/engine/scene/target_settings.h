// Reads the settings of a render target that are no geometry: camera, film, samples. SDK thread only.
#pragma once

#include "engine/scene/render_scene.h"

namespace Velmar {
class ApiNode;
}

namespace Velmar::Engine {

/// The view of the camera node on the target; none without one. Values that are not finite give way to the defaults.
std::optional<CameraSettings> readCamera(const ApiNode& render_target);

/// The film's size: that of the film settings node, or the resolution of a target without one. Sizes beyond what a
/// machine bears are brought down, their shape kept.
FilmSize readFilmSize(const ApiNode& render_target);

/// Samples per pixel that the target's kernel asks for; none without a kernel.
std::optional<int> readMaxSamples(const ApiNode& render_target);

inline constexpr int kLargestFilmSide = 16384;
inline constexpr double kLargestFilmArea = 40e6;

}  // namespace Velmar::Engine
