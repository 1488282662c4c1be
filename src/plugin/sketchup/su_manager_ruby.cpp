// The mirror's commands of VelmarExt, and ExtUtils.
#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/geometry_stream_ext.h"
#include "plugin/sketchup/placement_ruby.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/sketchup/su_manager_ext.h"
#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

/// Runs an operation that has no answer of its own.
template <typename Operation>
VALUE Perform(Operation operation) {
    if (!SketchupManager::IsOpen()) return Ruby::to_value(false);
    operation();
    return Ruby::to_value(true);
}

VALUE ApplyGeometry(VALUE) {
    return Perform(&SketchupManager::ApplyGeometryLocal);
}

VALUE ApplyRootGeometry(VALUE) {
    return Perform(&SketchupManager::ApplyRootGeometryLocal);
}

VALUE ClearEditList(VALUE) {
    return Perform(&SketchupManager::ClearEditList);
}

VALUE DefineModelEntity(VALUE, VALUE id) {
    const int entity_id = Ruby::to_int(id);
    return Ruby::to_value(SketchupManager::DefineModelEntity(entity_id));
}

/// Has no effect: the mirror is flushed with the scene alone.
VALUE FlushGeometry(VALUE) {
    return Perform([] {});
}

VALUE FlushModelEntities(VALUE) {
    return Ruby::to_value(SketchupManager::FlushModelEntities());
}

VALUE SetEditTransform(VALUE, VALUE transform) {
    const Float4x4 edit_transform = Ruby::ToPlacement(transform);
    return Perform([&] { SketchupManager::SetEditTransform(edit_transform); });
}

VALUE GetDocumentsFolder(VALUE) {
    return Ruby::to_binary(Strings::GetMyDocumentsPath());
}

}  // namespace

void SketchupManagerExt::Init() {
    GeometryStreamExt::Init();

    const VALUE utils = Ruby::open_class("ExtUtils");
    Ruby::define<&GetDocumentsFolder>(utils, "get_documents_folder");

    const VALUE core = Ruby::open_class("VelmarExt");
    Ruby::define<&ApplyGeometry>(core, "apply_geometry");
    Ruby::define<&ApplyRootGeometry>(core, "apply_root_geometry");
    Ruby::define<&ClearEditList>(core, "clear_edit_list");
    Ruby::define<&DefineModelEntity>(core, "define_model_entity");
    Ruby::define<&FlushGeometry>(core, "flush_geometry");
    Ruby::define<&FlushModelEntities>(core, "flush_model_entities");
    Ruby::define<&SetEditTransform>(core, "set_edit_transform");
}

}  // namespace Velmar
