// The walk down the tree of placements: from an instance to its definition, to the instances inside that, and so on. It
// touches the mirror alone and calls no SDK; the tables stay as they are while it runs. Ruby thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "plugin/sketchup/child_plan.h"
#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/entity_table.h"
#include "plugin/sketchup/float4x4.h"
#include "plugin/sketchup/instance.h"

namespace Velmar {

/// One walk, of any number of instances. It keeps a path of its own instead of the call stack, so that a model may be
/// nested as deep as memory goes. A definition that stands on the path already is not entered again, as a model cannot
/// contain itself; the first time that happens is logged.
class SceneWalk {
public:
    /// `walk` is a number that no other walk has.
    SceneWalk(const EntityTable& entities, std::uint64_t walk) : entities_(entities), walk_(walk) {}
    SceneWalk(const SceneWalk&) = delete;
    SceneWalk& operator=(const SceneWalk&) = delete;
    ~SceneWalk();

    /// Adds the placements of all that the root holds to their definitions.
    void VisitChildren(Definition& root);
    /// Adds the placements of `instance` and of all that it holds. The instance stands in `world_from_parent` and takes
    /// the inherited material unless it has one of its own.
    void Visit(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id);

private:
    /// A definition that the walk stands in: at one of its placements, and there at one of its children.
    struct Level {
        Definition* definition;  ///< null for an instance that is visited by itself
        ChildPlan* plan;
        std::span<Instance* const> children;
        std::size_t next_child;  ///< the first one beyond the plan
        std::size_t next_step;   ///< of the plan
        const Float4x4* next_placement;
        const Float4x4* end_of_placements;
        int material_id;
        Float4x4 world_from_parent;
        Float4x4 world;
    };

    void FinishPath();
    void PlaceNext(Level& level);
    void PlanNext(Level& level);
    void PlanChild(ChildPlan& plan, Instance& child);
    void TakeSteps(Level& level);
    void Descend(const Level& parent, const ChildPlan::Step& step, int material_id);
    void Leave();
    Definition* FindDefinition(int id);
    void ReportCycle(const Definition& definition);

    const EntityTable& entities_;
    const std::uint64_t walk_;
    std::vector<Level> path_;
    ChildPlan own_plan_;  ///< for an instance that is visited by itself
    bool cycle_reported_ = false;
    // Placements in a row are often of one definition.
    int last_definition_id_ = kNoId;
    Definition* last_definition_ = nullptr;
};

}  // namespace Velmar
