#include "plugin/materials/su_material_ext.h"
#include "plugin/ruby/handler.h"

namespace Velmar {

void SuMaterialExt::Init() {
    const VALUE klass = Ruby::open_class("ExtMaterial");
    Ruby::define_not_implemented<0>(klass, "get_default_material");
    Ruby::define_not_implemented<0>(klass, "get_texture_method");
    Ruby::define_not_implemented<0>(klass, "get_texture_folder");
    Ruby::define_not_implemented<1>(klass, "present?");
    Ruby::define_not_implemented<1>(klass, "set_default_material");
    Ruby::define_not_implemented<1>(klass, "set_texture_method");
    Ruby::define_not_implemented<1>(klass, "set_texture_folder");
    Ruby::define_not_implemented<1>(klass, "update");
}

}  // namespace Velmar
