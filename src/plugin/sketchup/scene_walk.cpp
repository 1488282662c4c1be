#include "plugin/sketchup/scene_walk.h"

#include <glog/logging.h>

#include <span>

#include "plugin/sketchup/mesh_material_map.h"

namespace Velmar {

namespace {

/// An instance's matrices in the definition that holds it.
std::span<const Float4x4> PlacementsOf(const Instance& instance) {
    if (instance.placements.empty()) return {&instance.transform, 1};
    return instance.placements;
}

}  // namespace

SceneWalk::~SceneWalk() {
    while (!path_.empty()) Leave();
}

void SceneWalk::Visit(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id) {
    const std::size_t depth = path_.size();
    Enter(instance, world_from_parent, inherited_material_id);
    while (path_.size() > depth) Step();
}

void SceneWalk::Enter(Instance& instance, const Float4x4& world_from_parent, int inherited_material_id) {
    // A hidden instance counts as reached.
    if (instance.Visit(evaluation_)) ++reached_;
    if (!instance.visible && instance.placements.empty()) return;
    Definition* const definition = FindDefinition(instance.definition_id);
    if (definition == nullptr) return;
    if (definition->on_path) {
        ReportCycle(instance);
        return;
    }

    // The nearer material wins.
    const int material_id = instance.material_id != kNoId ? instance.material_id : inherited_material_id;
    instance.UpdateTransform();
    const std::span<const Float4x4> placements = PlacementsOf(instance);
    if (definition->proxy == nullptr && !definition->child_ids.empty()) {
        path_.push_back({definition, placements.data(), placements.data() + placements.size(), material_id,
                         definition->child_ids.size(), world_from_parent, Float4x4()});
        definition->on_path = true;
        return;
    }
    MeshMaterialMap* const map = definition->PlacementMap(material_id, evaluation_);
    if (map == nullptr) return;
    for (const Float4x4& parent_from_definition : placements)
        map->AddMatrix(parent_from_definition * world_from_parent);
}

void SceneWalk::Step() {
    Level& level = path_.back();
    const std::vector<int>& children = level.definition->child_ids;
    if (level.next_child < children.size()) {
        Entity* const child = entities_.Find(children[level.next_child++]);
        if (child == nullptr || !child->IsInstance()) return;
        Enter(static_cast<Instance&>(*child), level.world, level.material_id);
    } else if (level.next_placement != level.end_of_placements) {
        level.world = *level.next_placement++ * level.world_from_parent;
        level.next_child = 0;
        MeshMaterialMap* const map = level.definition->PlacementMap(level.material_id, evaluation_);
        if (map != nullptr) map->AddMatrix(level.world);
    } else {
        Leave();
    }
}

void SceneWalk::Leave() {
    path_.back().definition->on_path = false;
    path_.pop_back();
}

Definition* SceneWalk::FindDefinition(int id) {
    if (last_definition_ == nullptr || last_definition_id_ != id) {
        Entity* const entity = entities_.Find(id);
        last_definition_ = entity != nullptr && entity->IsDefinition() ? static_cast<Definition*>(entity) : nullptr;
        last_definition_id_ = id;
    }
    return last_definition_;
}

void SceneWalk::ReportCycle(const Instance& instance) {
    if (cycle_reported_) return;
    cycle_reported_ = true;
    LOG(ERROR) << "Definition " << instance.definition_id << " contains itself through instance " << instance.id;
}

}  // namespace Velmar
