// Counts of the work that compiling a scene took, and of what a scene holds: the proof that an edit rebuilds only what
// it touches.
#pragma once

#include <cstdint>

namespace Velmar::Engine {

/// Work done.
struct SceneWork {
    std::uint64_t meshes_built = 0;
    std::uint64_t meshes_kept = 0;  ///< looked at in a compilation and found unchanged
    std::uint64_t acceleration_structures_built = 0;
    std::uint64_t instance_lists_built = 0;
    std::uint64_t instance_lists_kept = 0;
    std::uint64_t top_levels_built = 0;
    std::uint64_t cameras_built = 0;
};

/// What a scene holds.
struct SceneContents {
    std::uint64_t meshes = 0;                   ///< distinct meshes
    std::uint64_t triangles = 0;                ///< of all meshes, each mesh once
    std::uint64_t acceleration_structures = 0;  ///< of meshes
    std::uint64_t instance_lists = 0;           ///< lists of matrices that scatters brought
    std::uint64_t placements = 0;               ///< places at which a mesh stands
};

}  // namespace Velmar::Engine
