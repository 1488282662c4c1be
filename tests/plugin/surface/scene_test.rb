# frozen_string_literal: true

require_relative "../../support/mirror_models"

# Scene evaluation, seen from Ruby, with what it writes to the scene graph.
class SceneTest < VelmarTest::MirrorTest
  GROUP = /\Aset VELMAR_GEOMETRY_?GROUP:.* 113 (\d+) true\z/

  def pin_count(lines)
    lines.filter_map { |line| line[GROUP, 1]&.to_i }.last
  end

  # In a process of its own, so that no other test's definitions stand in the model.
  def lines_of(code)
    outcome = VelmarTest.run_process(<<~RUBY)
      load_plugin(18)
      IDENTITY = Array.new(16) { |i| i % 5 == 0 ? 1.0 : 0.0 }
      def mesh(id, name)
        ExtDefinition.add(id, [], [])
        ExtStream.set_geometry_stream(id, name)
        3.times { |i| ExtStream.add_vertex(i, i * i, 0); ExtStream.add_normal(0, 0, 1, 0); ExtStream.add_vertex_index(i + 1) }
        ExtStream.add_face(1, -1, 0, 1)
        ExtStream.evaluate_stream("")
      end
      #{code}
    RUBY
    assert outcome.status.success?, outcome.err
    outcome.operations
  end

  def test_an_apply_with_no_definitions_leaves_one_empty_pin
    lines = lines_of("VelmarExt.apply_geometry")
    assert_equal 1, pin_count(lines)
    assert_match(/\AconnectToIx VELMAR_GEOMETRY_?GROUP:.* 0 null true false\z/, lines.grep(/connectToIx/).last)
  end

  def test_ten_thousand_placements_of_one_component_are_one_list
    lines = lines_of(<<~RUBY)
      mesh(1, "chair")
      10_000.times do |i|
        ExtInstance.add(100 + i, 1, -1, IDENTITY.take(12) + [i, 0, 0, 1], nil, false)
        VelmarExt.define_model_entity(100 + i)
      end
      VelmarExt.apply_geometry
    RUBY
    assert_equal [10_000], placement_counts(lines)
    assert_equal 2, pin_count(lines)
    %w[SCATTER MESH].each { |type| assert_equal 1, lines.grep(/\Acreate VELMAR_#{type} /).size, type }
  end

  def test_the_apply_ends_with_an_update_and_a_running_render
    id = add_instance(add_meshed)
    lines = apply(id)
    assert_includes lines, "update"
    assert_equal false, VelmarExt.block_updates?
    assert_match(/\A(update|restartRendering)\z/, lines.last)
  end

  def test_the_roots_geometry_alone_restarts_nothing
    stream(ROOT, 1)
    apply
    lines = operations { assert_equal true, VelmarExt.apply_root_geometry }
    refute_includes lines, "update"
    assert_equal [1], placement_counts(lines)
    stream(ROOT, 0)
  end

  def test_flush_geometry_does_nothing
    id = add_instance(add_meshed)
    apply(id)
    assert_empty(operations { assert_equal true, VelmarExt.flush_geometry })
    assert_equal true, ExtEntity.present?(id)
  end

  def test_instances_that_nothing_places_disappear
    mesh = add_meshed
    listed = add_instance(mesh)
    outer = add_definition([listed])
    placed = add_instance(outer)
    hidden = add_instance(outer)
    lost = add_instance(mesh)
    ExtInstance.set_visibility(hidden, false)
    apply(placed, hidden)
    assert_equal [true, true, true, false], [placed, listed, hidden, lost].map { |id| ExtEntity.present?(id) }
    assert_equal true, ExtEntity.delete(placed)
    apply(hidden)
    assert_equal [false, true, true], [placed, listed, hidden].map { |id| ExtEntity.present?(id) }
    assert_equal true, ExtEntity.present?(outer)
  end

  def test_a_deleted_entity_leaves_the_model
    mesh = add_meshed(name: "gone")
    first = add_instance(mesh)
    second = add_instance(mesh)
    assert_equal 2, placement_counts(apply(first, second)).last
    assert_equal true, ExtEntity.delete(first)
    lines = operations { VelmarExt.apply_geometry }
    assert_equal 1, placement_counts(lines).last
  end

  def test_a_model_that_contains_itself_is_drawn_once_over
    inner = fresh_id
    outer = add_meshed
    ExtDefinition.update(outer, [], [inner])
    ExtInstance.add(inner, outer, -1, shifted(5), nil, false)
    assert_equal 1, placement_counts(apply(add_instance(outer))).last
    assert_equal true, ExtEntity.present?(inner)
  end

  def test_unknown_ids_are_skipped
    assert_equal true, VelmarExt.define_model_entity(-2**31)
    assert_equal true, VelmarExt.apply_geometry
    [fresh_id, ROOT, -1, 0].each { |id| VelmarExt.define_model_entity(id) }
    assert_equal true, VelmarExt.apply_geometry
    assert_equal true, VelmarExt.flush_model_entities
  end

  def test_commands_after_shutdown_answer_false_or_empty_and_live
    outcome = VelmarTest.run_process(<<~RUBY)
      load_plugin(18)
      ExtDefinition.add(1, [], [])
      VelmarExt.shutdown
      i = Array.new(16) { |k| k % 5 == 0 ? 1.0 : 0.0 }
      p VelmarExt.apply_geometry, VelmarExt.apply_root_geometry, VelmarExt.flush_geometry, VelmarExt.clear_edit_list,
        VelmarExt.define_model_entity(1), VelmarExt.flush_model_entities, VelmarExt.set_edit_transform(i),
        ExtStream.set_geometry_stream(-2, "x"), ExtStream.warmup_stream(1, 1), ExtStream.add_vertex(0, 0, 0),
        ExtStream.add_normal(0, 0, 1, 1), ExtStream.add_uvw(0, 0, 1), ExtStream.add_vertex_index(1),
        ExtStream.add_normal_index(1), ExtStream.add_uvw_index(1), ExtStream.add_face(1, 1, 0, 1),
        ExtStream.evaluate_stream("{}"), ExtDefinition.add(2, [], []), ExtDefinition.update(1, [], []),
        ExtDefinition.set_num_entities(1, 1), ExtDefinition.set_edit_mode(1, true),
        ExtDefinition.set_material(1, 1, 1, true), ExtDefinition.update_all_materials(1),
        ExtDefinition.set_proxy(1, "a.obj"), ExtDefinition.clear_proxy(1), ExtDefinition.update_proxy(1),
        ExtEntity.delete(1), ExtEntity.present?(1), ExtInstance.add(3, 1, -1, i, nil, true),
        ExtInstance.update(3, 1, -1, i, nil, true), ExtInstance.set_edit_mode(3, true),
        ExtInstance.set_visibility(3, false)
      p ExtDefinition.get_num_entities(1), ExtDefinition.get_material_id(1, 1, true)
    RUBY
    assert outcome.status.success?, outcome.err
    *answers, count, material = outcome.out.split
    assert_equal ["false"] * 32, answers
    assert_equal %w[0 -1], [count, material]
  end
end
