// The commands on entities: what the script layer says about definitions, instances and their materials.
#include <algorithm>
#include <utility>

#include "plugin/materials/su_material.h"
#include "plugin/proxies/proxy.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/sketchup/su_tables.h"

namespace Velmar {

namespace {

SuTables& tables = SuTables::Shared();

/// Assigns and notes whether the value was another one.
template <typename T>
bool Assign(T& stored, const T& value) {
    if (stored == value) return false;
    stored = value;
    return true;
}

/// A definition whose own geometry is shown; null for an unknown or a proxied one.
std::shared_ptr<Definition> GetUnproxied(int definition_id) {
    std::shared_ptr<Definition> definition = SketchupManager::GetDefinition(definition_id);
    return definition != nullptr && definition->proxy == nullptr ? definition : nullptr;
}

}  // namespace

// --- Definitions. ---

bool SketchupManager::AddDefinition(int id, std::vector<int> other_ids, std::vector<int> child_ids) {
    if (IsEntityValid(id)) return false;
    const auto definition = std::make_shared<Definition>(id);
    definition->other_ids = std::move(other_ids);
    definition->child_ids = std::move(child_ids);
    SetDefinition(id, definition);
    SetEntity(id, definition);
    return true;
}

bool SketchupManager::UpdateDefinition(int id, std::vector<int> other_ids, std::vector<int> child_ids) {
    const std::shared_ptr<Definition> definition = GetDefinition(id);
    if (definition == nullptr) return false;
    const bool count_changed =
        definition->child_ids.size() != child_ids.size() || definition->other_ids.size() != other_ids.size();
    definition->other_ids = std::move(other_ids);
    definition->child_ids = std::move(child_ids);
    return count_changed;
}

bool SketchupManager::SetDefinitionEditMode(int id, bool edit_mode) {
    const std::shared_ptr<Definition> definition = GetUnproxied(id);
    if (definition == nullptr) return false;
    definition->edit_mode = edit_mode;
    return true;
}

// --- All entities. ---

bool SketchupManager::DeleteEntity(int id) {
    const std::shared_ptr<Entity> entity = GetEntity(id);
    if (entity == nullptr || (!entity->IsDefinition() && !entity->IsInstance())) return false;
    DiscardEntity(entity);
    EraseEntity(id);
    if (id != kRootDefinitionId && tables.root_def != nullptr) {
        std::vector<int>& children = tables.root_def->child_ids;
        const auto found = std::find(children.begin(), children.end(), id);
        if (found != children.end()) children.erase(found);
    }
    return true;
}

bool SketchupManager::DefineModelEntity(int id) {
    if (tables.root_def == nullptr) return false;
    tables.root_def->child_ids.push_back(id);
    return true;
}

bool SketchupManager::FlushModelEntities() {
    if (tables.root_def == nullptr) return false;
    tables.root_def->child_ids.clear();
    return true;
}

// --- Instances. ---

void SketchupManager::AddInstance(int id, const Placing& placing, std::vector<Float4x4> placements, bool edit_mode) {
    const auto instance = std::make_shared<Instance>(id);
    instance->definition_id = placing.definition_id;
    instance->material_id = placing.material_id;
    instance->transform = placing.transform;
    instance->SetPlacements(std::move(placements));
    if (edit_mode) {
        instance->SetEditTransform(tables.edit_transform);
        instance->edit_mode = true;
        AddEditInstance(instance);
    }
    SetEntity(id, instance);
}

bool SketchupManager::UpdateInstance(int id, const Placing& placing, std::vector<Float4x4> placements, bool visible) {
    if (!IsEntityValid(id)) {
        AddInstance(id, placing, std::move(placements), false);
        return true;
    }
    const std::shared_ptr<Instance> instance = GetInstance(id);
    if (instance == nullptr) return false;

    bool changed = Assign(instance->material_id, placing.material_id);
    changed |= Assign(instance->definition_id, placing.definition_id);
    changed |= Assign(instance->transform, placing.transform);
    if (instance->edit_mode && instance->GetEditTransform() != tables.edit_transform) {
        instance->SetEditTransform(tables.edit_transform);
        changed = true;
    }
    changed |= Assign(instance->visible, visible);
    return changed;
}

bool SketchupManager::SetInstanceEditMode(int id, bool edit_mode) {
    const std::shared_ptr<Instance> instance = GetInstance(id);
    if (instance == nullptr) return false;
    instance->edit_mode = edit_mode;
    if (edit_mode) AddEditInstance(instance);
    return true;
}

bool SketchupManager::SetInstanceVisibility(int id, bool visible) {
    const std::shared_ptr<Instance> instance = GetInstance(id);
    return instance != nullptr && Assign(instance->visible, visible);
}

void SketchupManager::AddEditInstance(const std::shared_ptr<Instance>& instance) {
    tables.edit_mode_instances.push_back(instance);
}

void SketchupManager::ClearEditList() {
    for (const auto& instance : tables.edit_mode_instances) instance->edit_mode = false;
    tables.edit_mode_instances.clear();
}

Float4x4 SketchupManager::GetEditTransform() {
    return tables.edit_transform;
}

void SketchupManager::SetEditTransform(const Float4x4& edit_transform) {
    tables.edit_transform = edit_transform;
}

// --- Geometry and materials of a definition. ---

bool SketchupManager::SetFaceMaterial(int definition_id, int face_id, int material_id, bool apply) {
    const std::shared_ptr<Definition> definition = GetUnproxied(definition_id);
    if (definition == nullptr || !definition->face_materials.Contains(face_id)) return false;
    definition->SetMaterial(material_id == kNoId ? nullptr : GetMaterial(material_id), face_id);
    if (apply) definition->UpdateMaterials();
    return true;
}

int SketchupManager::GetMaterialId(int definition_id, int key, bool is_face) {
    const std::shared_ptr<Definition> definition = GetUnproxied(definition_id);
    if (definition == nullptr) return kNoId;
    std::shared_ptr<SuMaterial> material;
    if (is_face) {
        material = definition->GetMaterial(key);
    } else if (const std::shared_ptr<Instance> instance = GetInstance(key)) {
        material = GetMaterial(instance->material_id);
    }
    return material != nullptr ? material->su_id : kNoId;
}

bool SketchupManager::UpdateAllMaterials(int definition_id) {
    const std::shared_ptr<Definition> definition = GetUnproxied(definition_id);
    if (definition == nullptr) return false;
    definition->materials_dirty = true;
    definition->UpdateMaterials();
    return true;
}

bool SketchupManager::SetProxy(int definition_id, const std::string& path) {
    const std::shared_ptr<Definition> definition = GetDefinition(definition_id);
    if (definition == nullptr || path.empty()) return false;
    if (definition->proxy != nullptr && definition->proxy->path == path) return false;
    definition->SetProxy(path.c_str());
    return true;
}

bool SketchupManager::ClearProxy(int definition_id) {
    const std::shared_ptr<Definition> definition = GetDefinition(definition_id);
    if (definition == nullptr) return false;
    definition->ClearProxy();
    return true;
}

bool SketchupManager::UpdateProxy(int definition_id) {
    const std::shared_ptr<Definition> definition = GetDefinition(definition_id);
    if (definition == nullptr) return false;
    definition->UpdateProxy();
    return true;
}

}  // namespace Velmar
