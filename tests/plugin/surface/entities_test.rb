# frozen_string_literal: true

require_relative "../../support/mirror_models"

# Identity: definitions, instances and the edit context, seen from Ruby.
class EntitiesTest < VelmarTest::MirrorTest
  def test_a_taken_id_is_refused_before_the_lists_are_looked_at
    definition = add_definition
    instance = add_instance(definition)
    [definition, instance, ROOT].each do |id|
      assert_equal false, ExtDefinition.add(id, [], [])
      assert_equal false, ExtDefinition.add(id, nil, "no list")
    end
    assert_equal true, ExtEntity.present?(instance)
  end

  def test_lists_must_be_arrays_of_whole_numbers
    id = fresh_id
    [[nil, []], [[], {}], [["1"], []], [[], [nil]], [[], [2**40]]].each do |first, second|
      assert_raises(TypeError, RangeError) { ExtDefinition.add(id, first, second) }
    end
    assert_equal false, ExtEntity.present?(id)
    assert_equal true, ExtDefinition.add(id, [1.9, -3], [2**31 - 1, -2**31])
    assert_raises(TypeError) { ExtDefinition.update(id, [], "list") }
    assert_raises(TypeError) { ExtDefinition.update(id, [nil], []) }
    assert_equal false, ExtDefinition.update(id, [5, 6], [7, 8]), "the counts have stayed"
  end

  def test_update_of_a_definition_reports_a_change_of_count
    id = add_definition([1, 2])
    assert_equal false, ExtDefinition.update(id, [], [3, 4])
    assert_equal true, ExtDefinition.update(id, [1], [3, 4])
    assert_equal true, ExtDefinition.update(id, [1], [])
    assert_equal false, ExtDefinition.update(fresh_id, [1], [2])
    assert_equal false, ExtDefinition.update(fresh_id, nil, nil)
    assert_equal false, ExtDefinition.update(add_instance(id), [1], [2])
  end

  def test_the_number_of_entities_is_kept_for_the_script_layer
    id = add_definition
    assert_equal 0, ExtDefinition.get_num_entities(id)
    assert_equal true, ExtDefinition.set_num_entities(id, -2**31)
    assert_equal(-2**31, ExtDefinition.get_num_entities(id))
    assert_equal false, ExtDefinition.set_num_entities(fresh_id, 1)
    assert_equal 0, ExtDefinition.get_num_entities(fresh_id)
    assert_raises(TypeError) { ExtDefinition.set_num_entities(fresh_id, nil) }
  end

  def test_edit_mode_of_a_definition
    id = add_definition
    [true, false, nil, 1].each { |flag| assert_equal true, ExtDefinition.set_edit_mode(id, flag) }
    assert_equal false, ExtDefinition.set_edit_mode(fresh_id, true)
  end

  def test_delete_and_present
    definition = add_definition
    instance = add_instance(definition)
    assert_equal true, ExtEntity.present?(instance)
    assert_equal true, ExtEntity.delete(instance)
    assert_equal false, ExtEntity.delete(instance)
    assert_equal false, ExtEntity.present?(instance)
    assert_equal true, ExtEntity.delete(definition)
    assert_equal false, ExtEntity.delete(fresh_id)
    assert_equal true, ExtDefinition.add(definition, [], [])
  end

  def test_the_root_may_be_deleted_and_comes_back_with_a_stream
    assert_equal true, ExtEntity.present?(ROOT)
    assert_equal true, ExtEntity.delete(ROOT)
    assert_equal false, ExtEntity.present?(ROOT)
    assert_equal true, VelmarExt.apply_geometry
    assert_equal true, ExtStream.set_geometry_stream(ROOT, "root")
    assert_equal true, ExtEntity.present?(ROOT)
    assert_equal false, ExtStream.evaluate_stream("")
  end

  def test_ids_may_replace_entities_of_another_kind
    id = add_meshed
    assert_equal true, ExtInstance.add(id, id, -1, IDENTITY, nil, false)
    assert_equal false, stream(id, 1)
    apply(id)
    assert_equal true, ExtEntity.present?(id)
    assert_equal true, ExtInstance.add(ROOT, ROOT, -1, IDENTITY, nil, false)
    apply(ROOT, id)
    assert_equal false, stream(ROOT, 1)
    assert_equal true, ExtEntity.delete(ROOT)
    assert_equal true, ExtStream.set_geometry_stream(ROOT, "root")
    assert_equal false, ExtStream.evaluate_stream("")
  end

  def test_update_of_an_instance_reports_a_change
    definition = add_definition
    id = add_instance(definition, shifted(1), material: 5)
    update = lambda do |material: 5, shift: 1, visible: true|
      ExtInstance.update(id, definition, material, shifted(shift), [shifted(9)], visible)
    end
    assert_equal false, update.call
    assert_equal true, update.call(shift: 2)
    assert_equal false, update.call(shift: 2)
    assert_equal true, update.call(shift: 2, material: 6)
    assert_equal true, update.call(shift: 2, material: 6, visible: 1), "any flag but true is false"
    assert_equal false, update.call(shift: 2, material: 6, visible: nil)
    assert_equal true, update.call(shift: 2, material: 6, visible: true)
    assert_equal false, ExtInstance.update(definition, definition, -1, IDENTITY, [], true)
  end

  def test_update_adds_an_unknown_instance_and_leaves_it_visible
    mesh = add_meshed
    id = fresh_id
    assert_equal true, ExtInstance.update(id, mesh, -1, IDENTITY, [shifted(1), shifted(2)], false)
    assert_equal [2], placement_counts(apply(id)).last(1)
    assert_equal true, ExtInstance.set_visibility(id, false)
  end

  def test_a_transform_must_be_an_array_of_16_numbers
    id = fresh_id
    [nil, 5, "text", {}, [], Array.new(15, 1.0), [nil] * 16, ["x"] * 16].each do |transform|
      assert_raises(TypeError, transform.inspect) { ExtInstance.add(id, 1, -1, transform, nil, true) }
      assert_raises(TypeError, transform.inspect) { ExtInstance.update(id, 1, -1, transform, nil, true) }
      assert_raises(TypeError, transform.inspect) { VelmarExt.set_edit_transform(transform) }
    end
    assert_equal false, ExtEntity.present?(id)
    assert_equal true, ExtInstance.add(id, 1, -1, IDENTITY + ["more"], nil, nil)
  end

  def test_placements_of_another_size_are_skipped
    mesh = add_meshed
    [nil, 5, [], [nil], [IDENTITY.take(15)], [IDENTITY + [1]], ["text"], {}].each do |placements|
      id = add_instance(mesh, placements: placements)
      assert_equal 1, placement_counts(apply(id)).last, placements.inspect
    end
    id = add_instance(mesh, placements: [IDENTITY, IDENTITY.take(15), shifted(1), 3])
    assert_equal 2, placement_counts(apply(id)).last
    assert_raises(TypeError) { add_instance(mesh, placements: [IDENTITY, ["x"] * 16]) }
  end

  def test_a_list_that_changes_while_it_is_read_is_read_safely
    transform = IDENTITY.dup
    transform[0] = Class.new(Numeric) do
      define_method(:to_f) do
        transform.clear
        1.0
      end
    end.new
    assert_raises(TypeError) { add_instance(1, transform) }
  end

  def test_visibility_reports_a_change
    id = add_instance(1)
    assert_equal false, ExtInstance.set_visibility(id, true)
    assert_equal true, ExtInstance.set_visibility(id, 1)
    assert_equal false, ExtInstance.set_visibility(id, false)
    assert_equal true, ExtInstance.set_visibility(id, true)
    assert_equal false, ExtInstance.set_visibility(fresh_id, false)
  end

  def test_edit_mode_of_an_instance
    definition = add_definition
    id = add_instance(definition)
    2.times { assert_equal true, ExtInstance.set_edit_mode(id, true) }
    assert_equal true, ExtInstance.set_edit_mode(id, false)
    assert_equal false, ExtInstance.set_edit_mode(definition, true)
    assert_equal false, ExtInstance.set_edit_mode(fresh_id, true)
    assert_equal true, VelmarExt.clear_edit_list
  end

  def test_an_instance_in_edit_mode_takes_the_edit_transform
    mesh = add_meshed
    id = add_instance(mesh, edit: true)
    update = -> { ExtInstance.update(id, mesh, -1, IDENTITY, nil, true) }
    assert_equal false, update.call
    assert_equal true, VelmarExt.set_edit_transform(shifted(10))
    assert_equal true, update.call
    assert_equal false, update.call
    apply(id)
    assert_equal true, update.call, "the evaluation has folded it in"
    VelmarExt.clear_edit_list
    apply(id)
    assert_equal false, update.call
  end

  def test_entities_come_and_go_under_stress
    GC.stress = true
    ids = Array.new(5) { add_instance(1, shifted(1), placements: [IDENTITY, shifted(2)]) }
    ids.each { |id| assert_equal true, ExtEntity.delete(id) }
  end
end
