// Lists of matrices: from the transforms of scatters to the places of a mesh in the world.
#pragma once

#include "engine/graph/array_access.h"
#include "engine/scene/vector_math.h"

#include <cstddef>
#include <vector>

namespace Velmar::Engine {

/// More places than this in one list are cut off.
inline constexpr std::size_t kLargestPlacementList = std::size_t{1} << 26;

struct Placements {
    SharedArray<Affine> world_from_model;
    std::size_t skipped = 0;  ///< places that are no place: not finite, out of range, or without volume
};

/// Every combination of one matrix from each list, the first list outermost; no list at all gives the identity. A
/// single list that is all good is handed on as it is.
Placements combinePlacements(const std::vector<SharedArray<Affine>>& lists);

}  // namespace Velmar::Engine
