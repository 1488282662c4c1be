// The Ruby commands of render control: each converts its arguments, calls one operation and answers. The host's view
// crosses here from inches and Z up to metres and Y up.
#include "plugin/materials/su_material_ext.h"
#include "plugin/nodes/sdk_state.h"
#include "plugin/nodes/units.h"
#include "plugin/ruby/answers.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/sketchup/definition_ext.h"
#include "plugin/sketchup/entity_ext.h"
#include "plugin/sketchup/instance_ext.h"
#include "plugin/utils/not_implemented.h"
#include "plugin/velmar/vel_manager.h"
#include "plugin/velmar/vel_manager_ext.h"

namespace Velmar {

namespace {

using StateType = VelmarManager::StateType;

/// Runs a command's operation and answers true, whatever came of it. Once the SDK has stopped there is nothing left to
/// run it on, and the answer is false.
template <typename Operation>
VALUE Perform(Operation operation) {
    if (!SdkRuns()) return Ruby::to_value(false);
    operation();
    return Ruby::to_value(true);
}

Vec3<float> ToPoint(VALUE array) {
    const auto [x, y, z] = Ruby::to_doubles<3>(array);
    return PointFromHost(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
}

Vec3<float> ToDirection(VALUE array) {
    const auto [x, y, z] = Ruby::to_doubles<3>(array);
    return DirectionFromHost(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
}

VALUE BlockUpdates(VALUE, VALUE flag) {
    const StateType state = Ruby::is_true(flag) ? StateType::Paused : StateType::Running;
    return Perform([&] { VelmarManager::SetRenderState(state); });
}

VALUE BlockUpdatesQuery(VALUE) {
    return Ruby::to_value(SdkRuns() && VelmarManager::GetRenderState() != StateType::Running);
}

VALUE BuildScene(VALUE) {
    return Perform([] {});
}

VALUE ExportScene(VALUE, VALUE, VALUE) {
    return Perform([] {});
}

VALUE SetCameraPos(VALUE, VALUE pos, VALUE target, VALUE up) {
    for (const VALUE array : {pos, target, up}) Ruby::check_array(array);
    const Vec3<float> position = ToPoint(pos);
    const Vec3<float> target_position = ToPoint(target);
    const Vec3<float> up_direction = ToDirection(up);
    return Perform([&] { VelmarManager::SetCameraPos(position, target_position, up_direction); });
}

VALUE SetCameraView(VALUE, VALUE value, VALUE orthographic) {
    const float degrees_or_inches = Ruby::to_float(value);
    const bool parallel = Ruby::is_true(orthographic);
    const float view = parallel ? degrees_or_inches / kInchesPerMetre : degrees_or_inches;
    return Perform([&] { VelmarManager::SetCameraView(view, parallel); });
}

VALUE SetSceneParams(VALUE, VALUE text) {
    Ruby::check_string(text);
    const std::string json = Ruby::to_cstr(text);
    return Perform([&] { VelmarManager::SetSceneSettings(json.c_str()); });
}

VALUE SetViewExtents(VALUE, VALUE width, VALUE height) {
    const int width_pixels = Ruby::to_int(width);
    const int height_pixels = Ruby::to_int(height);
    return Perform([&] { VelmarManager::SetViewExtents(width_pixels, height_pixels); });
}

VALUE UpdateAndRestart(VALUE) {
    return Perform([] { VelmarManager::UpdateAndRestart(); });
}

// Commands that have no body yet.

VALUE BrowseFile(VALUE, VALUE, VALUE) {
    throw NotImplemented("VelmarExt.browse_file");
}
VALUE CheckWindow(VALUE) {
    throw NotImplemented("VelmarExt.check_window?");
}
VALUE GetLayoutXml(VALUE) {
    throw NotImplemented("VelmarExt.get_layout_xml");
}
VALUE GetRenderTargetXml(VALUE, VALUE) {
    throw NotImplemented("VelmarExt.get_render_target_xml");
}
VALUE ResetScene(VALUE) {
    throw NotImplemented("VelmarExt.reset_scene");
}
VALUE SetLayoutXml(VALUE, VALUE) {
    throw NotImplemented("VelmarExt.set_layout_xml");
}
VALUE SetRenderTargetXml(VALUE, VALUE, VALUE) {
    throw NotImplemented("VelmarExt.set_render_target_xml");
}
VALUE ShowWindow(VALUE, VALUE) {
    throw NotImplemented("VelmarExt.show_window");
}
VALUE ClearProxies(VALUE) {
    throw NotImplemented("VelmarExt.clear_proxies");
}

void DefineRenderCommands() {
    const VALUE klass = Ruby::open_class("VelmarExt");
    Ruby::define<&BlockUpdates>(klass, "block_updates");
    Ruby::define<&BlockUpdatesQuery>(klass, "block_updates?");
    Ruby::define<&BrowseFile>(klass, "browse_file");
    Ruby::define<&BuildScene>(klass, "build_scene");
    Ruby::define<&CheckWindow>(klass, "check_window?");
    Ruby::define<&ExportScene>(klass, "export_scene");
    Ruby::define<&GetLayoutXml>(klass, "get_layout_xml");
    Ruby::define<&GetRenderTargetXml>(klass, "get_render_target_xml");
    Ruby::define<&ResetScene>(klass, "reset_scene");
    Ruby::define<&SetCameraPos>(klass, "set_camera_pos");
    Ruby::define<&SetCameraView>(klass, "set_camera_view");
    Ruby::define<&SetLayoutXml>(klass, "set_layout_xml");
    Ruby::define<&SetRenderTargetXml>(klass, "set_render_target_xml");
    Ruby::define<&SetSceneParams>(klass, "set_scene_params");
    Ruby::define<&SetViewExtents>(klass, "set_view_extents");
    Ruby::define<&ShowWindow>(klass, "show_window");
    Ruby::define<&UpdateAndRestart>(klass, "update_and_restart");
    Ruby::define<&ClearProxies>(klass, "clear_proxies");
}

}  // namespace

void VelmarManagerExt::Init() {
    DefineRenderCommands();
    DefinitionExt::Init();
    EntityExt::Init();
    InstanceExt::Init();
    SuMaterialExt::Init();
}

}  // namespace Velmar
