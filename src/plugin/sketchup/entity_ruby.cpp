// ExtEntity.
#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/entity_ext.h"
#include "plugin/sketchup/su_manager.h"

namespace Velmar {

namespace {

VALUE Delete(VALUE, VALUE id) {
    return Ruby::to_value(SketchupManager::DeleteEntity(Ruby::to_int(id)));
}

VALUE IsPresent(VALUE, VALUE id) {
    return Ruby::to_value(SketchupManager::IsEntityValid(Ruby::to_int(id)));
}

}  // namespace

void EntityExt::Init() {
    const VALUE klass = Ruby::open_class("ExtEntity");
    Ruby::define<&Delete>(klass, "delete");
    Ruby::define<&IsPresent>(klass, "present?");
}

}  // namespace Velmar
