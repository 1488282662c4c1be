#include "plugin/sketchup/su_manager.h"

#include <glog/logging.h>

#include <algorithm>

#include "plugin/sketchup/su_manager_ext.h"
#include "plugin/sketchup/su_tables.h"
#include "plugin/utils/message.h"
#include "plugin/utils/scope_guard.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

SuTables& SuTables::Shared() {
    static SuTables& tables = *new SuTables();
    return tables;
}

namespace {

SuTables& tables = SuTables::Shared();

/// The value under an id, or an empty one.
template <typename Map>
typename Map::mapped_type Look(const Map& map, int id) {
    const auto found = map.find(id);
    return found != map.end() ? found->second : nullptr;
}

}  // namespace

bool SketchupManager::Init() {
    LOG(INFO) << "Creating SketchupManager...";
    tables.root_def = std::make_shared<Definition>(kRootDefinitionId);
    tables.active_entity_id = kRootDefinitionId;
    SetEntity(kRootDefinitionId, tables.root_def);
    open_stream_ = &tables.stream;
    SketchupManagerExt::Init();
    LOG(INFO) << "SketchupManager Created";
    return true;
}

void SketchupManager::Cleanup() {
    open_stream_ = nullptr;
    tables.edit_mode_instances.clear();
    tables.materials.clear();
    tables.definitions.clear();
    ++tables.definition_changes;
    tables.entities.Clear();
    tables.root_def.reset();
}

bool SketchupManager::IsOpen() {
    return open_stream_ != nullptr;
}

std::shared_ptr<Entity> SketchupManager::GetEntity(int id) {
    Entity* const entity = tables.entities.Find(id);
    return entity != nullptr ? entity->shared_from_this() : nullptr;
}

std::shared_ptr<Definition> SketchupManager::GetDefinition(int id) {
    Definition* const definition = tables.entities.FindDefinition(id);
    if (definition == nullptr) return nullptr;
    return std::static_pointer_cast<Definition>(definition->shared_from_this());
}

std::shared_ptr<Instance> SketchupManager::GetInstance(int id) {
    Instance* const instance = tables.entities.FindInstance(id);
    if (instance == nullptr) return nullptr;
    return std::static_pointer_cast<Instance>(instance->shared_from_this());
}

std::shared_ptr<SuMaterial> SketchupManager::GetMaterial(int id) {
    return Look(tables.materials, id);
}

std::shared_ptr<Definition> SketchupManager::GetRoot() {
    return tables.root_def;
}

bool SketchupManager::IsEntityValid(int id) {
    return tables.entities.Find(id) != nullptr;
}

bool SketchupManager::IsMaterialValid(int id) {
    return GetMaterial(id) != nullptr;
}

void SketchupManager::SetEntity(int id, const std::shared_ptr<Entity>& entity) {
    tables.entities.Set(id, entity);
}

void SketchupManager::SetDefinition(int id, const std::shared_ptr<Definition>& definition) {
    tables.definitions[id] = definition;
    ++tables.definition_changes;
}

void SketchupManager::SetMaterial(int id, const std::shared_ptr<SuMaterial>& material) {
    tables.materials[id] = material;
}

void SketchupManager::EraseEntity(int id) {
    tables.entities.Erase(id);
}

void SketchupManager::DiscardEntity(const std::shared_ptr<Entity>& entity) {
    if (entity == nullptr || !entity->IsInstance()) return;
    auto& list = tables.edit_mode_instances;
    const auto found = std::find(list.begin(), list.end(), entity);
    if (found != list.end()) list.erase(found);
}

// --- The geometry stream. ---

GeometryStream& SketchupManager::Geometry() {
    return tables.stream;
}

void SketchupManager::SetGeometryStream(int definition_id, const std::string& mesh_name) {
    tables.active_entity_id = definition_id;
    tables.stream.name = mesh_name;
    if (definition_id != kRootDefinitionId) return;

    if (tables.root_def == nullptr) {
        tables.root_def = std::make_shared<Definition>(kRootDefinitionId);
        tables.root_def->AddInstance(Float4x4(), kNoId);
    }
    if (!IsEntityValid(kRootDefinitionId)) SetEntity(kRootDefinitionId, tables.root_def);
}

bool SketchupManager::EvaluateStream(const std::string& settings) {
    const ScopeGuard clear_at_end([] { tables.stream.Clear(); });
    const std::shared_ptr<Definition> definition = GetDefinition(tables.active_entity_id);
    if (definition == nullptr || definition->proxy != nullptr) return false;

    definition->ClearGeometry();
    if (tables.stream.IsEmpty() || !definition->Evaluate()) return false;
    if (!settings.empty()) definition->SetGeometrySettings(Message::StringToJson(settings));
    definition->EvaluateFromStream();
    // The root has one placement, which no instance makes.
    if (definition == tables.root_def) definition->AddInstance(Float4x4(), kNoId);
    return true;
}

// --- Flushes. ---

void SketchupManager::FlushGeometryLocal() {
    tables.stream.Clear();
    for (const auto& instance : tables.edit_mode_instances) {
        instance->edit_mode = false;
        instance->SetEditTransform(Float4x4());
    }
    tables.face_camera_definitions.clear();
    tables.active_entity_id = kNoId;
    if (tables.root_def != nullptr) tables.root_def->ClearGeometry();
    FlushEntities();
    FlushMaterials();
    tables.edit_mode_instances.clear();
    tables.definitions.clear();
    ++tables.definition_changes;
    tables.edit_transform = Float4x4();
    VelmarManager::FlushGeometryGroup();
}

void SketchupManager::FlushEntities() {
    tables.entities.Clear();
}

void SketchupManager::FlushMaterials() {
    tables.materials.clear();
}

// --- Render materials. ---

void SketchupManager::DiscardVelmarMaterial(ApiNode* node) {
    for (const auto& [id, material] : tables.materials) {
        if (material != nullptr) material->DiscardVelmarNode(node);
    }
    std::erase_if(tables.materials,
                  [](const auto& entry) { return entry.second != nullptr && entry.second->node == nullptr; });
}

void SketchupManager::ReplaceVelmarMaterial(ApiNode* old_node, ApiNode* new_node) {
    for (const auto& [id, material] : tables.materials) {
        if (material != nullptr) material->ReplaceVelmarNode(old_node, new_node);
    }
}

}  // namespace Velmar
