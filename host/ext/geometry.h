// Arithmetic over long lists of points that a script would be slow at. It knows nothing of files, Ruby or the engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Velmar::Host {

/// Numbers for the points of one mesh such that points at one place share a number exactly when they share their
/// normal: 0 for the first normal at a place, 1 for the second, and so on. Hard edges survive the mirror's welding by
/// them. `points` (inches) and `normals` (unit) are flat lists of three numbers each, of one length.
std::vector<std::int32_t> surfaceNumbers(const std::vector<float>& points, const std::vector<float>& normals);

/// The points that lie farthest out in many directions: a few dozen that stand for the extent of all, flat x, y, z.
std::vector<double> outermostPoints(const std::vector<double>& points);

}  // namespace Velmar::Host
