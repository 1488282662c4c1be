# frozen_string_literal: true

require_relative "../../support/mirror_models"

# Materials and proxies of a definition, seen from Ruby.
class DefinitionTest < VelmarTest::MirrorTest
  def test_a_face_is_painted_when_it_is_known
    id = add_meshed(2)
    assert_equal true, ExtDefinition.set_material(id, 1, -1, true)
    assert_equal true, ExtDefinition.set_material(id, 2, 123_456, nil)
    assert_equal false, ExtDefinition.set_material(id, 3, -1, true)
    assert_equal false, ExtDefinition.set_material(fresh_id, 1, -1, true)
    assert_equal false, ExtDefinition.set_material(add_definition, 1, -1, true)
  end

  def test_a_repaint_never_sends_the_geometry_again
    id = add_meshed(2)
    lines = operations { assert_equal true, ExtDefinition.update_all_materials(id) }
    assert_equal({ 114 => 2, 63 => 1 }, mesh_counts(lines))
    assert_equal "evaluate VELMAR_MESH:mesh", lines.last
    assert_empty(operations { assert_equal true, ExtDefinition.update_all_materials(add_definition) })
    assert_equal false, ExtDefinition.update_all_materials(fresh_id)
  end

  def test_material_ids_of_faces_and_instances_without_material
    id = add_meshed
    instance = add_instance(id, material: 777)
    assert_equal(-1, ExtDefinition.get_material_id(id, 1, true))
    assert_equal(-1, ExtDefinition.get_material_id(id, instance, false))
    assert_equal(-1, ExtDefinition.get_material_id(id, id, nil))
    assert_equal(-1, ExtDefinition.get_material_id(fresh_id, 1, true))
  end

  def test_proxies_refuse_what_needs_no_file
    id = add_meshed
    assert_equal false, ExtDefinition.set_proxy(fresh_id, "chair.obj")
    assert_equal false, ExtDefinition.set_proxy(id, "")
    assert_raises(ArgumentError) { ExtDefinition.set_proxy(id, "a\0b") }
    assert_equal true, ExtDefinition.clear_proxy(id)
    assert_equal false, ExtDefinition.clear_proxy(fresh_id)
    assert_equal true, ExtDefinition.update_proxy(id)
    assert_equal false, ExtDefinition.update_proxy(fresh_id)
  end

  def test_a_proxy_that_cannot_be_loaded_yet_changes_nothing
    id = add_meshed
    assert_raises(NotImplementedError) { ExtDefinition.set_proxy(id, "chair.obj") }
    assert_equal true, ExtDefinition.update_all_materials(id), "it has no proxy"
    assert_equal [1], placement_counts(apply(add_instance(id)))
  end
end
