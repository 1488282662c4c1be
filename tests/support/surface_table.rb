# frozen_string_literal: true

# The whole Ruby surface of the plug-in: what exists, and what it refuses.
module SurfaceTable
  # Argument count of each method of each class.
  METHODS = {
    "VelmarExt" => {
      "debug" => 1, "log" => 2, "shutdown" => 0,
      "block_updates" => 1, "block_updates?" => 0, "browse_file" => 2, "build_scene" => 0, "check_window?" => 0,
      "export_scene" => 2, "get_layout_xml" => 0, "get_render_target_xml" => 1, "reset_scene" => 0,
      "set_camera_pos" => 3, "set_camera_view" => 2, "set_layout_xml" => 1, "set_render_target_xml" => 2,
      "set_scene_params" => 1, "set_view_extents" => 2, "show_window" => 1, "update_and_restart" => 0,
      "clear_proxies" => 0,
      "apply_geometry" => 0, "apply_root_geometry" => 0, "clear_edit_list" => 0, "define_model_entity" => 1,
      "flush_geometry" => 0, "flush_model_entities" => 0, "set_edit_transform" => 1
    },
    "ExtStream" => {
      "set_geometry_stream" => 2, "warmup_stream" => 2, "add_vertex" => 3, "add_normal" => 4, "add_uvw" => 3,
      "add_vertex_index" => 1, "add_normal_index" => 1, "add_uvw_index" => 1, "add_face" => 4, "evaluate_stream" => 1
    },
    "ExtUtils" => { "get_documents_folder" => 0 },
    "ExtDefinition" => {
      "add" => 3, "update" => 3, "get_num_entities" => 1, "set_num_entities" => 2, "set_edit_mode" => 2,
      "get_material_id" => 3, "set_material" => 4, "update_all_materials" => 1, "set_proxy" => 2, "clear_proxy" => 1,
      "update_proxy" => 1
    },
    "ExtEntity" => { "delete" => 1, "present?" => 1 },
    "ExtInstance" => { "add" => 6, "update" => 6, "set_edit_mode" => 2, "set_visibility" => 2 },
    "ExtMaterial" => {
      "get_default_material" => 0, "get_texture_method" => 0, "get_texture_folder" => 0, "present?" => 1,
      "set_default_material" => 1, "set_texture_method" => 1, "set_texture_folder" => 1, "update" => 1
    },
    "ExtMaterials" => {
      "clean_scene_materials" => 0, "create_new_material" => 2, "get_active_material_id" => 0, "get_material_name" => 1,
      "get_material_preview" => 2, "get_path_hash" => 1, "get_texture_scale" => 1, "serialize_material" => 1,
      "set_scene_material" => 2, "set_scene_materials" => 1
    }
  }.freeze

  # Methods that have no body yet.
  NOT_BUILT = {
    "VelmarExt" => %w[
      browse_file check_window? get_layout_xml get_render_target_xml reset_scene set_layout_xml set_render_target_xml
      show_window clear_proxies
    ],
    "ExtMaterial" => METHODS["ExtMaterial"].keys,
    "ExtMaterials" => METHODS["ExtMaterials"].keys
  }.freeze

  POINT = [0.0, 1.0, 2].freeze
  MATRIX = Array.new(16) { |i| i % 5 == 0 ? 1.0 : 0.0 }.freeze
  # 15 numbers and a text.
  BROKEN_MATRIX = (MATRIX.take(15) + ["x"]).freeze
  # An id that no test uses.
  FREE = 987_654

  # Calls that raise TypeError: class, method, arguments. Each has one argument of a wrong type.
  WRONG_TYPES = [
    ["VelmarExt", "debug", 1], ["VelmarExt", "debug", nil], ["VelmarExt", "debug", :text],
    ["VelmarExt", "log", 1, -1], ["VelmarExt", "log", "message", "level"], ["VelmarExt", "log", "message", nil],
    ["VelmarExt", "set_camera_pos", 1, POINT, POINT], ["VelmarExt", "set_camera_pos", POINT, nil, POINT],
    ["VelmarExt", "set_camera_pos", POINT, POINT, "up"], ["VelmarExt", "set_camera_pos", [1, 2, "z"], POINT, POINT],
    ["VelmarExt", "set_camera_pos", POINT, [1, 2], POINT], ["VelmarExt", "set_camera_pos", POINT, POINT, [nil, 0, 1]],
    ["VelmarExt", "set_camera_view", "35", false], ["VelmarExt", "set_camera_view", nil, true],
    ["VelmarExt", "set_scene_params", nil], ["VelmarExt", "set_scene_params", 5],
    ["VelmarExt", "set_scene_params", { "quality" => {} }],
    ["VelmarExt", "set_view_extents", "640", 480], ["VelmarExt", "set_view_extents", 640, nil],
    ["VelmarExt", "define_model_entity", "1"], ["VelmarExt", "set_edit_transform", 5],
    ["VelmarExt", "set_edit_transform", BROKEN_MATRIX], ["VelmarExt", "set_edit_transform", [1, 2]],
    ["ExtStream", "set_geometry_stream", "1", "name"], ["ExtStream", "set_geometry_stream", 1, 2],
    ["ExtStream", "warmup_stream", "1", 1], ["ExtStream", "warmup_stream", 1, nil],
    ["ExtStream", "add_vertex", "x", 0, 0], ["ExtStream", "add_vertex", 0, nil, 0], ["ExtStream", "add_vertex", 0, 0, []],
    ["ExtStream", "add_normal", "x", 0, 1, 1], ["ExtStream", "add_normal", 0, 0, true, 1],
    ["ExtStream", "add_normal", 0, 0, 1, "surface"],
    ["ExtStream", "add_uvw", "u", 0, 1], ["ExtStream", "add_uvw", 0, :v, 1], ["ExtStream", "add_uvw", 0, 0, nil],
    ["ExtStream", "add_vertex_index", "1"], ["ExtStream", "add_normal_index", nil],
    ["ExtStream", "add_uvw_index", []],
    ["ExtStream", "add_face", "1", 0, 0, 1], ["ExtStream", "add_face", 1, nil, 0, 1],
    ["ExtStream", "add_face", 1, 0, "0", 1], ["ExtStream", "add_face", 1, 0, 0, {}],
    ["ExtStream", "evaluate_stream", nil], ["ExtStream", "evaluate_stream", 5],
    ["ExtDefinition", "add", "1", [], []], ["ExtDefinition", "add", FREE, nil, []],
    ["ExtDefinition", "add", FREE, [], "children"], ["ExtDefinition", "add", FREE, ["x"], []],
    ["ExtDefinition", "add", FREE, [1, 2, 3], [1, nil]],
    ["ExtDefinition", "update", "1", [], []],
    ["ExtDefinition", "get_num_entities", "1"], ["ExtDefinition", "set_num_entities", nil, 1],
    ["ExtDefinition", "set_num_entities", 1, "count"], ["ExtDefinition", "set_edit_mode", "1", true],
    ["ExtDefinition", "get_material_id", "1", 1, true], ["ExtDefinition", "get_material_id", 1, nil, true],
    ["ExtDefinition", "set_material", "1", 1, 1, true], ["ExtDefinition", "set_material", 1, nil, 1, true],
    ["ExtDefinition", "set_material", 1, 1, "m", true], ["ExtDefinition", "update_all_materials", "1"],
    ["ExtDefinition", "set_proxy", "1", "path"], ["ExtDefinition", "set_proxy", 1, 2],
    ["ExtDefinition", "clear_proxy", nil], ["ExtDefinition", "update_proxy", "1"],
    ["ExtEntity", "delete", "1"], ["ExtEntity", "present?", nil],
    ["ExtInstance", "add", "1", 2, -1, MATRIX, [], true], ["ExtInstance", "add", FREE, "d", -1, MATRIX, [], true],
    ["ExtInstance", "add", FREE, 2, nil, MATRIX, [], true], ["ExtInstance", "add", FREE, 2, -1, nil, [], true],
    ["ExtInstance", "add", FREE, 2, -1, BROKEN_MATRIX, [], true],
    ["ExtInstance", "add", FREE, 2, -1, MATRIX, [MATRIX, BROKEN_MATRIX], true],
    ["ExtInstance", "update", "1", 2, -1, MATRIX, [], true], ["ExtInstance", "update", FREE, 2, -1, MATRIX.take(3), [], true],
    ["ExtInstance", "set_edit_mode", "1", true], ["ExtInstance", "set_visibility", nil, true]
  ].freeze

  # Calls that raise RangeError: numbers that 32 bits do not hold.
  WRONG_RANGES = [
    ["VelmarExt", "log", "message", 2**40], ["VelmarExt", "define_model_entity", 2**31],
    ["VelmarExt", "set_view_extents", 2**40, 1],
    ["ExtStream", "warmup_stream", 2**32, 1], ["ExtStream", "add_vertex_index", 2**32],
    ["ExtStream", "add_normal_index", -2**31 - 1], ["ExtStream", "add_uvw_index", 2**31],
    ["ExtStream", "add_normal", 0, 0, 1, 2**31], ["ExtStream", "add_face", 1, 1, 0, 2**70],
    ["ExtDefinition", "add", 2**31, [], []], ["ExtDefinition", "add", FREE, [2**40], []],
    ["ExtEntity", "delete", 2**31], ["ExtInstance", "set_visibility", -2**40, true]
  ].freeze

  module_function

  # Yields class name, method name and argument count.
  def each_method
    METHODS.each { |klass, methods| methods.each { |name, count| yield klass, name, count } }
  end

  def call(klass, name, *arguments)
    Object.const_get(klass).public_send(name, *arguments)
  end
end
