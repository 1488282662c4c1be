// From the tables to the scene: placements, the wiring of the geometry group, and what is dropped afterwards.
#include <velmar/node.h>

#include "plugin/sketchup/mesh_material_map.h"
#include "plugin/sketchup/scene_walk.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/sketchup/su_tables.h"
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

/// Calls `visit` with each list of instances that the root or a definition places.
template <typename Visit>
void ForEachList(const Visit& visit) {
    if (tables.root_def != nullptr) visit(*tables.root_def);
    for (const auto& [id, definition] : tables.definitions) {
        if (definition != nullptr) visit(*definition);
    }
}

/// A number that goes up with each change of the table or of a list.
std::uint64_t ListState() {
    ForEachList([](Definition& definition) { definition.ChildInstances(tables.entities); });
    return tables.entities.Version() + tables.definition_changes + Definition::ChildChanges();
}

/// Marks all instances that are listed, and answers how many they are.
std::size_t MarkListed() {
    std::size_t count = 0;
    ++tables.collection;
    ForEachList([&count](Definition& definition) {
        for (Instance* const child : definition.ChildInstances(tables.entities)) {
            if (child->listed_in == tables.collection) continue;
            child->listed_in = tables.collection;
            ++count;
        }
    });
    return count;
}

/// Drops all instances without the latest mark, and empty entries.
void DropUnlisted() {
    const EntityTable::Map& entries = tables.entities.Entries();
    for (auto entry = entries.begin(); entry != entries.end();) {
        const std::shared_ptr<Entity>& entity = entry->second;
        if (entity != nullptr && (!entity->IsInstance() || entity->listed_in == tables.collection)) {
            ++entry;
            continue;
        }
        SketchupManager::DiscardEntity(entity);
        entry = tables.entities.Erase(entry);
    }
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
    if (tables.root_def == nullptr) return;
    SceneWalk walk(tables.entities, ++tables.walks);
    walk.VisitChildren(*tables.root_def);
}

void SketchupManager::EvaluateEntity(Entity& entity, const Float4x4& world_from_parent, int inherited_material_id) {
    if (!entity.IsInstance()) return;
    SceneWalk walk(tables.entities, ++tables.walks);
    walk.Visit(static_cast<Instance&>(entity), world_from_parent, inherited_material_id);
}

// A walk visits what the root lists, and where it enters a definition, what that lists, hidden instances included. A
// definition's instances stay whether it was entered or not, so the lists alone say what stays.
void SketchupManager::CollectGarbage() {
    if (tables.collected_state == ListState()) return;
    const std::size_t listed = MarkListed();
    if (tables.entities.EmptyCount() > 0 || tables.entities.InstanceCount() > listed) DropUnlisted();
    tables.collected_state = ListState();
}

}  // namespace Velmar
