#include "plugin/materials/mat_manager_ext.h"
#include "plugin/ruby/handler.h"

namespace Velmar {

void MaterialManagerExt::Init() {
    const VALUE klass = Ruby::open_class("ExtMaterials");
    Ruby::define_not_implemented<0>(klass, "clean_scene_materials");
    Ruby::define_not_implemented<2>(klass, "create_new_material");
    Ruby::define_not_implemented<0>(klass, "get_active_material_id");
    Ruby::define_not_implemented<1>(klass, "get_material_name");
    Ruby::define_not_implemented<2>(klass, "get_material_preview");
    Ruby::define_not_implemented<1>(klass, "get_path_hash");
    Ruby::define_not_implemented<1>(klass, "get_texture_scale");
    Ruby::define_not_implemented<1>(klass, "serialize_material");
    Ruby::define_not_implemented<2>(klass, "set_scene_material");
    Ruby::define_not_implemented<1>(klass, "set_scene_materials");
}

}  // namespace Velmar
