// ExtInstance.
#include "plugin/sketchup/instance.h"

#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/instance_ext.h"
#include "plugin/sketchup/placement_ruby.h"
#include "plugin/sketchup/su_manager.h"

namespace Velmar {

namespace {

SketchupManager::Placing ToPlacing(VALUE definition_id, VALUE material_id, VALUE transform) {
    return {Ruby::to_int(definition_id), Ruby::to_int(material_id), Ruby::ToPlacement(transform)};
}

VALUE Add(VALUE, VALUE id, VALUE definition_id, VALUE material_id, VALUE transform, VALUE placements, VALUE edit) {
    const int instance_id = Ruby::to_int(id);
    const SketchupManager::Placing placing = ToPlacing(definition_id, material_id, transform);
    std::vector<Float4x4> matrices = Ruby::ToPlacements(placements);
    if (!SketchupManager::IsOpen()) return Ruby::to_value(false);
    SketchupManager::AddInstance(instance_id, placing, std::move(matrices), Ruby::is_true(edit));
    return Ruby::to_value(true);
}

VALUE Update(VALUE, VALUE id, VALUE definition_id, VALUE material_id, VALUE transform, VALUE placements,
             VALUE visible) {
    const int instance_id = Ruby::to_int(id);
    const SketchupManager::Placing placing = ToPlacing(definition_id, material_id, transform);
    if (!SketchupManager::IsOpen()) return Ruby::to_value(false);
    // Placements are read for a new instance alone.
    std::vector<Float4x4> matrices;
    if (!SketchupManager::IsEntityValid(instance_id)) matrices = Ruby::ToPlacements(placements);
    return Ruby::to_value(
        SketchupManager::UpdateInstance(instance_id, placing, std::move(matrices), Ruby::is_true(visible)));
}

VALUE SetEditMode(VALUE, VALUE id, VALUE flag) {
    const int instance_id = Ruby::to_int(id);
    return Ruby::to_value(SketchupManager::SetInstanceEditMode(instance_id, Ruby::is_true(flag)));
}

VALUE SetVisibility(VALUE, VALUE id, VALUE flag) {
    const int instance_id = Ruby::to_int(id);
    return Ruby::to_value(SketchupManager::SetInstanceVisibility(instance_id, Ruby::is_true(flag)));
}

}  // namespace

void InstanceExt::Init() {
    const VALUE klass = Ruby::open_class("ExtInstance");
    Ruby::define<&Add>(klass, "add");
    Ruby::define<&Update>(klass, "update");
    Ruby::define<&SetEditMode>(klass, "set_edit_mode");
    Ruby::define<&SetVisibility>(klass, "set_visibility");
}

}  // namespace Velmar
