// The walk down the tree of placements: from an instance to its definition, to the instances inside that, and so on. It
// touches the mirror alone and calls no SDK; the tables stay as they are while it runs. Ruby thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/entity_table.h"
#include "plugin/sketchup/float4x4.h"
#include "plugin/sketchup/instance.h"

namespace Velmar {

/// One walk, of any number of instances. It keeps a path of its own instead of the call stack, so that a model may be
/// nested as deep as memory goes.
class SceneWalk {
public:
    /// `evaluation` is the number under which visits are counted.
    SceneWalk(const EntityTable& entities, std::uint64_t evaluation) : entities_(entities), evaluation_(evaluation) {}
    SceneWalk(const SceneWalk&) = delete;
    SceneWalk& operator=(const SceneWalk&) = delete;
    ~SceneWalk();

    /// Adds the placements of `instance` and of all that it holds to their definitions. The instance stands in
    /// `world_from_parent` and takes the inherited material unless it has one of its own.
    void Visit(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id);
    /// Distinct instances visited, those among them that are hidden too.
    std::size_t Reached() const { return reached_; }

private:
    /// A definition that the walk stands in: at one of its placements, and there at one of its children.
    struct Level {
        Definition* definition;
        const Float4x4* next_placement;
        const Float4x4* end_of_placements;
        int material_id;
        std::size_t next_child;
        Float4x4 world_from_parent;
        Float4x4 world;
    };

    void Enter(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id);
    void Step();
    Definition* FindDefinition(int id);
    void Leave();
    void ReportCycle(const Instance& instance);

    const EntityTable& entities_;
    const std::uint64_t evaluation_;
    std::vector<Level> path_;
    std::size_t reached_ = 0;
    bool cycle_reported_ = false;
    // Placements in a row are often of one definition.
    int last_definition_id_ = kNoId;
    Definition* last_definition_ = nullptr;
};

}  // namespace Velmar
