// What a scene evaluation has to do with the children of a definition. It is the same at each placement of the
// definition, so it is written down once and then followed. Ruby thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "plugin/sketchup/float4x4.h"

namespace Velmar {

class Definition;
class Instance;

/// The plan for a run of children, in order. Pointers are valid during the walk that made it.
struct ChildPlan {
    /// As many children as are planned at a time: they and their plan stay in the processor's cache.
    static constexpr std::size_t kMostChildren = 2048;

    /// Either one child that holds others, or any number of children in a row that are alike but for their placement.
    struct Step {
        Definition* definition;  ///< what is placed
        Instance* branch;        ///< the child that holds others; null for a run of those that hold none
        int material_id;         ///< painted on the children, -1 for none
        std::size_t first;       ///< in `placements`
        std::size_t count;
    };

    std::uint64_t walk = 0;       ///< number of the walk that made it
    std::size_t first_child = 0;  ///< the first child that it is for
    std::size_t end_child = 0;    ///< one past the last
    std::vector<Step> steps;
    std::vector<const Float4x4*> placements;  ///< in the definition that holds the children
};

}  // namespace Velmar
