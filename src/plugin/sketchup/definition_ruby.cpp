// ExtDefinition.
#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/definition_ext.h"
#include "plugin/sketchup/su_manager.h"

namespace Velmar {

namespace {

VALUE Add(VALUE, VALUE id, VALUE other_ids, VALUE child_ids) {
    const int definition_id = Ruby::to_int(id);
    // A taken id is told before the lists are looked at.
    if (!SketchupManager::IsOpen() || SketchupManager::IsEntityValid(definition_id)) return Ruby::to_value(false);
    for (const VALUE list : {other_ids, child_ids}) Ruby::check_array(list);
    std::vector<int> others = Ruby::to_ints(other_ids);
    std::vector<int> children = Ruby::to_ints(child_ids);
    return Ruby::to_value(SketchupManager::AddDefinition(definition_id, std::move(others), std::move(children)));
}

VALUE Update(VALUE, VALUE id, VALUE other_ids, VALUE child_ids) {
    const int definition_id = Ruby::to_int(id);
    if (SketchupManager::GetDefinition(definition_id) == nullptr) return Ruby::to_value(false);
    for (const VALUE list : {other_ids, child_ids}) Ruby::check_array(list);
    std::vector<int> others = Ruby::to_ints(other_ids);
    std::vector<int> children = Ruby::to_ints(child_ids);
    return Ruby::to_value(SketchupManager::UpdateDefinition(definition_id, std::move(others), std::move(children)));
}

VALUE GetNumEntities(VALUE, VALUE id) {
    const std::shared_ptr<Definition> definition = SketchupManager::GetDefinition(Ruby::to_int(id));
    return Ruby::to_value(definition != nullptr ? definition->num_entities : 0);
}

VALUE SetNumEntities(VALUE, VALUE id, VALUE count) {
    const int definition_id = Ruby::to_int(id);
    const int num_entities = Ruby::to_int(count);
    const std::shared_ptr<Definition> definition = SketchupManager::GetDefinition(definition_id);
    if (definition == nullptr) return Ruby::to_value(false);
    definition->num_entities = num_entities;
    return Ruby::to_value(true);
}

VALUE SetEditMode(VALUE, VALUE id, VALUE flag) {
    const int definition_id = Ruby::to_int(id);
    return Ruby::to_value(SketchupManager::SetDefinitionEditMode(definition_id, Ruby::is_true(flag)));
}

VALUE GetMaterialId(VALUE, VALUE id, VALUE key, VALUE is_face) {
    const int definition_id = Ruby::to_int(id);
    const int face_or_entity_id = Ruby::to_int(key);
    return Ruby::to_value(SketchupManager::GetMaterialId(definition_id, face_or_entity_id, Ruby::is_true(is_face)));
}

VALUE SetMaterial(VALUE, VALUE id, VALUE face, VALUE material, VALUE apply) {
    const int definition_id = Ruby::to_int(id);
    const int face_id = Ruby::to_int(face);
    const int material_id = Ruby::to_int(material);
    return Ruby::to_value(SketchupManager::SetFaceMaterial(definition_id, face_id, material_id, Ruby::is_true(apply)));
}

VALUE UpdateAllMaterials(VALUE, VALUE id) {
    return Ruby::to_value(SketchupManager::UpdateAllMaterials(Ruby::to_int(id)));
}

VALUE SetProxy(VALUE, VALUE id, VALUE path) {
    const int definition_id = Ruby::to_int(id);
    const std::string file_path = Ruby::to_cstr(path);
    return Ruby::to_value(SketchupManager::SetProxy(definition_id, file_path));
}

VALUE ClearProxy(VALUE, VALUE id) {
    return Ruby::to_value(SketchupManager::ClearProxy(Ruby::to_int(id)));
}

VALUE UpdateProxy(VALUE, VALUE id) {
    return Ruby::to_value(SketchupManager::UpdateProxy(Ruby::to_int(id)));
}

}  // namespace

void DefinitionExt::Init() {
    const VALUE klass = Ruby::open_class("ExtDefinition");
    Ruby::define<&Add>(klass, "add");
    Ruby::define<&Update>(klass, "update");
    Ruby::define<&GetNumEntities>(klass, "get_num_entities");
    Ruby::define<&SetNumEntities>(klass, "set_num_entities");
    Ruby::define<&SetEditMode>(klass, "set_edit_mode");
    Ruby::define<&GetMaterialId>(klass, "get_material_id");
    Ruby::define<&SetMaterial>(klass, "set_material");
    Ruby::define<&UpdateAllMaterials>(klass, "update_all_materials");
    Ruby::define<&SetProxy>(klass, "set_proxy");
    Ruby::define<&ClearProxy>(klass, "clear_proxy");
    Ruby::define<&UpdateProxy>(klass, "update_proxy");
}

}  // namespace Velmar
