// From the tables to the scene: placements, the wiring of the geometry group, and what is dropped afterwards.
#include <velmar/node.h>

#include "plugin/sketchup/mesh_material_map.h"
#include "plugin/sketchup/scene_walk.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/sketchup/su_tables.h"
#include "plugin/utils/scope_guard.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

/// Pin of the geometry group that holds the root's own geometry; those above it hold the scatters of the others.
constexpr unsigned kRootPin = 0;

SuTables& tables = SuTables::Shared();

void ConnectToGroup(unsigned pin, ApiNode* geometry) {
    ApiNode* const group = VelmarManager::GeometryGroup();
    if (group != nullptr) group->connectToIx(pin, geometry, true, false);
}

/// Puts the scatters of a definition on the pins of the group, in the order of the inherited materials.
void ConnectMaps(Definition& definition, unsigned& next_pin) {
    if (definition.GetMesh() == nullptr) return;
    for (const auto& [material_id, map] : definition.mesh_maps) {
        ApiNode* const geometry = map != nullptr ? map->GetGeometry() : nullptr;
        if (geometry != nullptr) ConnectToGroup(next_pin++, geometry);
    }
    definition.ClearMatrices();
}

/// The map of the root's own mesh, made when it is missing; null for a root without one.
std::shared_ptr<MeshMaterialMap> RootMap() {
    Definition* const root = tables.root_def.get();
    if (root == nullptr || root->GetMesh() == nullptr) return nullptr;
    if (root->mesh_maps[kNoId] == nullptr) root->AddInstance(Float4x4(), kNoId);
    return root->mesh_maps[kNoId];
}

/// Every instance was visited in the latest walk, and the table has not changed since: there is nothing to collect.
bool AllReached(std::size_t listed_but_not_reached) {
    const EntityTable& entities = tables.entities;
    return entities.Version() == tables.evaluated_version && entities.EmptyCount() == 0 &&
           entities.InstanceCount() == tables.reached_instances + listed_but_not_reached;
}

bool IsReached(const Entity& entity) {
    return !entity.IsInstance() || static_cast<const Instance&>(entity).VisitCount(tables.evaluation) > 0;
}

/// Marks all children of definitions, which stay whether they were reached or not. Answers how many of them were not.
std::size_t MarkListed() {
    std::size_t listed_but_not_reached = 0;
    ++tables.collection;
    for (const auto& [definition_id, definition] : tables.definitions) {
        if (definition == nullptr) continue;
        for (const int id : definition->child_ids) {
            Entity* const child = tables.entities.Find(id);
            if (child == nullptr || child->listed_in == tables.collection) continue;
            child->listed_in = tables.collection;
            if (!IsReached(*child)) ++listed_but_not_reached;
        }
    }
    return listed_but_not_reached;
}

}  // namespace

void SketchupManager::ApplyGeometryLocal() {
    VelmarManager::InitGeometryGroup();
    ClearDefinitionsMatrices();
    EvaluateEntities();

    // The group: its pins, the root's geometry, the scatters of all others, nothing on the pins that are left.
    const auto map_count = static_cast<unsigned>(GetNumDefinitionMaps());
    if (ApiNode* const group = VelmarManager::GeometryGroup()) {
        group->set(ATTR_PIN_COUNT, static_cast<int>(map_count + 1), true);
    }
    ApplyRootGeometryLocal();
    unsigned pin = kRootPin + 1;
    for (const auto& [id, definition] : tables.definitions) {
        if (definition != nullptr) ConnectMaps(*definition, pin);
    }
    while (pin <= map_count) ConnectToGroup(pin++, nullptr);

    VelmarManager::UpdateAndRestart();
    CollectGarbage();
}

void SketchupManager::ApplyRootGeometryLocal() {
    VelmarManager::InitGeometryGroup();
    const std::shared_ptr<MeshMaterialMap> map = RootMap();
    ConnectToGroup(kRootPin, map != nullptr ? map->GetGeometry() : nullptr);
}

void SketchupManager::ClearDefinitionsMatrices() {
    for (const auto& [id, definition] : tables.definitions) {
        if (definition != nullptr) definition->ClearMatrices();
    }
}

std::size_t SketchupManager::GetNumDefinitionMaps() {
    std::size_t count = 0;
    for (const auto& [id, definition] : tables.definitions) {
        if (definition != nullptr && definition->GetMesh() != nullptr) count += definition->mesh_maps.size();
    }
    return count;
}

void SketchupManager::EvaluateEntities() {
    ++tables.evaluation;
    tables.evaluated_version = tables.entities.Version();
    tables.reached_instances = 0;
    Definition* const root = tables.root_def.get();
    if (root == nullptr) return;

    const ScopedValue inside_root(root->on_path, true);
    SceneWalk walk(tables.entities, tables.evaluation);
    for (const int id : root->child_ids) {
        Entity* const child = tables.entities.Find(id);
        if (child == nullptr || !child->IsInstance()) continue;
        auto& instance = static_cast<Instance&>(*child);
        walk.Visit(instance, Float4x4(), instance.material_id);
    }
    tables.reached_instances = walk.Reached();
}

void SketchupManager::EvaluateEntity(Entity& entity, const Float4x4& world_from_parent, int inherited_material_id) {
    if (!entity.IsInstance()) return;
    SceneWalk walk(tables.entities, tables.evaluation);
    walk.Visit(static_cast<Instance&>(entity), world_from_parent, inherited_material_id);
    tables.reached_instances += walk.Reached();
}

void SketchupManager::CollectGarbage() {
    if (AllReached(0)) return;
    const std::size_t listed_but_not_reached = MarkListed();
    if (AllReached(listed_but_not_reached)) return;
    const EntityTable::Map& entries = tables.entities.Entries();
    for (auto entry = entries.begin(); entry != entries.end();) {
        const std::shared_ptr<Entity>& entity = entry->second;
        if (entity != nullptr && (IsReached(*entity) || entity->listed_in == tables.collection)) {
            ++entry;
            continue;
        }
        DiscardEntity(entity);
        entry = tables.entities.Erase(entry);
    }
}

}  // namespace Velmar
