#include "plugin/sketchup/scene_walk.h"

#include <glog/logging.h>

#include <algorithm>

#include "plugin/sketchup/mesh_material_map.h"

namespace Velmar {

namespace {

/// How many children ahead the plan asks for the memory of the next ones.
constexpr std::size_t kAhead = 12;

void Prefetch(const Instance* instance) {
    const char* const memory = reinterpret_cast<const char*>(instance);
    for (std::size_t line = 0; line < sizeof(Instance); line += 64) __builtin_prefetch(memory + line);
}

}  // namespace

SceneWalk::~SceneWalk() {
    while (!path_.empty()) Leave();
}

void SceneWalk::VisitChildren(Definition& root) {
    path_.push_back({.definition = &root,
                     .plan = &root.child_plan,
                     .children = root.ChildInstances(entities_),
                     .next_child = 0,
                     .next_step = 0,
                     .next_placement = nullptr,
                     .end_of_placements = nullptr,
                     .material_id = kNoId,
                     .world_from_parent = {},
                     .world = {}});
    root.on_path = true;
    PlanNext(path_.back());
    FinishPath();
}

void SceneWalk::Visit(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id) {
    Instance* const only_child = &instance;
    path_.push_back({.definition = nullptr,
                     .plan = &own_plan_,
                     .children = {&only_child, 1},
                     .next_child = 0,
                     .next_step = 0,
                     .next_placement = nullptr,
                     .end_of_placements = nullptr,
                     .material_id = inherited_material_id,
                     .world_from_parent = {},
                     .world = world_from_parent});
    own_plan_.walk = 0;
    PlanNext(path_.back());
    FinishPath();
}

void SceneWalk::FinishPath() {
    while (!path_.empty()) {
        Level& level = path_.back();
        if (level.next_step != level.plan->steps.size()) {
            TakeSteps(level);
        } else if (level.next_child != level.children.size()) {
            PlanNext(level);
        } else if (level.next_placement != level.end_of_placements) {
            PlaceNext(level);
        } else {
            Leave();
        }
    }
}

/// Goes on to the next placement of the definition at the end of the path, and to its first children there.
void SceneWalk::PlaceNext(Level& level) {
    level.world = *level.next_placement++ * level.world_from_parent;
    MeshMaterialMap* const map = level.definition->PlacementMap(level.material_id, walk_);
    if (map != nullptr) map->AddMatrix(level.world);
    level.next_child = 0;
    PlanNext(level);
}

/// Makes the plan for the next children, unless it stands from an earlier placement.
void SceneWalk::PlanNext(Level& level) {
    ChildPlan& plan = *level.plan;
    const std::size_t first = level.next_child;
    const std::size_t end = std::min(first + ChildPlan::kMostChildren, level.children.size());
    level.next_child = end;
    level.next_step = 0;
    if (plan.walk == walk_ && plan.first_child == first && plan.end_child == end) return;

    plan.walk = 0;
    plan.steps.clear();
    plan.placements.clear();
    for (std::size_t i = first; i < end; ++i) {
        if (i + kAhead < end) Prefetch(level.children[i + kAhead]);
        PlanChild(plan, *level.children[i]);
    }
    plan.first_child = first;
    plan.end_child = end;
    plan.walk = walk_;
}

void SceneWalk::PlanChild(ChildPlan& plan, Instance& child) {
    if (!child.visible && !child.HasPlacements()) return;
    Definition* const definition = FindDefinition(child.definition_id);
    if (definition == nullptr) return;

    child.UpdateTransform();
    const std::span<const Float4x4> placements = child.Matrices();
    const bool is_branch = definition->proxy == nullptr && !definition->child_ids.empty();
    ChildPlan::Step* const last = plan.steps.empty() ? nullptr : &plan.steps.back();
    if (!is_branch && last != nullptr && last->branch == nullptr && last->definition == definition &&
        last->material_id == child.material_id) {
        last->count += placements.size();
    } else {
        plan.steps.push_back({.definition = definition,
                              .branch = is_branch ? &child : nullptr,
                              .material_id = child.material_id,
                              .first = plan.placements.size(),
                              .count = placements.size()});
    }
    if (is_branch) return;
    for (const Float4x4& placement : placements) plan.placements.push_back(&placement);
}

/// Follows the plan of the level at the end of the path, up to a child that holds others.
void SceneWalk::TakeSteps(Level& level) {
    while (level.next_step != level.plan->steps.size()) {
        const ChildPlan::Step& step = level.plan->steps[level.next_step++];
        if (step.definition->on_path) {
            ReportCycle(*step.definition);
            continue;
        }
        // The nearer material wins.
        const int material_id = step.material_id != kNoId ? step.material_id : level.material_id;
        if (step.branch != nullptr) {
            Descend(level, step, material_id);
            return;
        }
        MeshMaterialMap* const map = step.definition->PlacementMap(material_id, walk_);
        if (map != nullptr) map->AddMatrices({&level.plan->placements[step.first], step.count}, level.world);
    }
}

/// Puts the definition of a child that holds others at the end of the path.
void SceneWalk::Descend(const Level& parent, const ChildPlan::Step& step, int material_id) {
    const std::span<const Float4x4> placements = step.branch->Matrices();
    Definition& definition = *step.definition;
    const std::vector<Instance*>& children = definition.ChildInstances(entities_);
    path_.push_back({.definition = &definition,
                     .plan = &definition.child_plan,
                     .children = children,
                     .next_child = children.size(),
                     .next_step = definition.child_plan.steps.size(),
                     .next_placement = placements.data(),
                     .end_of_placements = placements.data() + placements.size(),
                     .material_id = material_id,
                     .world_from_parent = parent.world,
                     .world = {}});
    definition.on_path = true;
}

void SceneWalk::Leave() {
    Definition* const definition = path_.back().definition;
    if (definition != nullptr) definition->on_path = false;
    path_.pop_back();
}

Definition* SceneWalk::FindDefinition(int id) {
    if (last_definition_ == nullptr || last_definition_id_ != id) {
        last_definition_ = entities_.FindDefinition(id);
        last_definition_id_ = id;
    }
    return last_definition_;
}

void SceneWalk::ReportCycle(const Definition& definition) {
    if (cycle_reported_) return;
    cycle_reported_ = true;
    LOG(ERROR) << "Definition " << definition.id << " contains itself";
}

}  // namespace Velmar
