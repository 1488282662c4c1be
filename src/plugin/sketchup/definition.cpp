#include "plugin/sketchup/definition.h"

#include "plugin/materials/su_material.h"
#include "plugin/nodes/node_utils.h"
#include "plugin/proxies/proxy.h"
#include "plugin/proxies/proxy_manager.h"
#include "plugin/sketchup/entity_table.h"
#include "plugin/sketchup/mesh_material_map.h"
#include "plugin/sketchup/su_manager.h"

namespace Velmar {

Definition::~Definition() {
    proxy.reset();
    ClearGeometry();
}

ApiNode* Definition::GetMesh() const {
    return proxy != nullptr && proxy->node != nullptr ? proxy->node : mesh;
}

void Definition::ClearGeometry() {
    NodeUtils::SafeDestroy(mesh);
    face_materials.Clear();
    face_ids.clear();
    faces.clear();
    material_slots.clear();
    mesh_maps.clear();
    placement_walk_ = 0;
}

void Definition::ClearMatrices() {
    for (const auto& [material_id, map] : mesh_maps) {
        if (map != nullptr) map->ClearMatrices();
    }
}

void Definition::AddInstance(const Float4x4& world_from_definition, int material_id) {
    MeshMaterialMap* map = FindOrMakeMap(material_id);
    if (map != nullptr) map->AddMatrix(world_from_definition);
}

MeshMaterialMap* Definition::FindPlacementMap(int material_id, std::uint64_t walk) {
    placement_map_ = FindOrMakeMap(material_id);
    placement_walk_ = walk;
    placement_material_id_ = material_id;
    return placement_map_;
}

const std::vector<Instance*>& Definition::ChildInstances(const EntityTable& entities) {
    if (found_version_ == entities.Version() && found_ids_ == child_ids) return child_instances_;
    found_version_ = 0;
    ++child_changes_;
    child_instances_.clear();
    for (const int child_id : child_ids) {
        if (Instance* const child = entities.FindInstance(child_id)) child_instances_.push_back(child);
    }
    found_ids_ = child_ids;
    found_version_ = entities.Version();
    return child_instances_;
}

MeshMaterialMap* Definition::FindOrMakeMap(int material_id) {
    if (mesh == nullptr && proxy == nullptr) return nullptr;
    std::shared_ptr<MeshMaterialMap>& map = mesh_maps[material_id];
    if (map == nullptr) map = std::make_shared<MeshMaterialMap>(*this);
    // The material may have another node by now.
    const std::shared_ptr<SuMaterial> material = SketchupManager::GetMaterial(material_id);
    map->SetMaterial(material != nullptr ? material->node : nullptr);
    return map.get();
}

void Definition::SetMaterial(const std::shared_ptr<SuMaterial>& material, int face_id) {
    if (material != GetMaterial(face_id)) materials_dirty = true;
    face_materials.Set(face_id, material);
}

std::shared_ptr<SuMaterial> Definition::GetMaterial(int face_id) const {
    const std::shared_ptr<SuMaterial>* const material = face_materials.Find(face_id);
    return material != nullptr ? *material : nullptr;
}

void Definition::RebuildMeshMaterialMaps() {
    for (const auto& [material_id, map] : mesh_maps) {
        if (map != nullptr) map->MapMaterial();
    }
}

void Definition::UpdateMaterials() {
    if (proxy != nullptr || mesh == nullptr) return;
    TryToRebuildFaceMaterials();
    RebuildMeshMaterialMaps();
}

void Definition::SetProxy(const char* path) {
    proxy = ProxyManager::CreateProxy(path);
    if (proxy != nullptr && proxy->node != nullptr) ClearGeometry();
}

void Definition::UpdateProxy() {
    if (proxy != nullptr && proxy->node != nullptr && !proxy->path.empty()) SetProxy(proxy->path.c_str());
}

void Definition::ClearProxy() {
    proxy.reset();
}

}  // namespace Velmar
