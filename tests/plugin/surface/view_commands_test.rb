# frozen_string_literal: true

require_relative "../../support/operations"

# The view and run-state commands, seen from Ruby, with what they write to the SDK.
class ViewCommandsTest < VelmarTest::PluginTest
  include VelmarTest::Operations

  ZERO = [0, 0, 0].freeze
  UP = [0, 0, 1].freeze
  INCHES_PER_METRE = 39.3701

  def setup
    super
    VelmarExt.set_scene_params("{}")
    VelmarExt.set_camera_view(35.0, false)
  end

  # What a command makes of a host point in each of the three places.
  def position_of(point)
    numbers(written { assert_equal true, VelmarExt.set_camera_pos(point, ZERO, UP) }[133])
  end

  def test_a_position_crosses_from_inches_and_z_up_to_metres_and_y_up
    assert_equal [1.0, 0.0, 0.0], position_of([INCHES_PER_METRE, 0, 0])
    assert_equal [0.0, 0.0, -1.0], position_of([0, INCHES_PER_METRE, 0])
    assert_equal [0.0, 1.0, 0.0], position_of([0, 0, INCHES_PER_METRE])
  end

  def test_a_target_crosses_like_a_position_and_the_up_vector_keeps_its_length
    point = [INCHES_PER_METRE, 2 * INCHES_PER_METRE, 3 * INCHES_PER_METRE]
    pins = written { VelmarExt.set_camera_pos(ZERO, point, [1, 2, 3]) }
    assert_equal [1.0, 3.0, -2.0], numbers(pins[235])
    assert_equal [1.0, 3.0, -2.0], numbers(pins[248])
  end

  def test_positions_are_narrowed_before_they_are_divided
    # a seventh of an inch has no exact single-precision form: dividing first and narrowing then gives another number
    inches = [1.0 / 7].pack("f").unpack1("f")
    expected = [inches / [INCHES_PER_METRE].pack("f").unpack1("f")].pack("f").unpack1("f")
    assert_equal expected, [position_of([1.0 / 7, 0, 0])[0]].pack("f").unpack1("f")
  end

  def test_any_number_serves_as_coordinate
    assert_equal [1.0, 0.0, 0.0], position_of([Rational(393_701, 10_000), Rational(0), 0.0])
    assert_equal [0.0, 0.0, 0.0], position_of([0, 0, 0, "what follows is not read"])
  end

  def test_an_argument_that_is_no_array_raises_before_anything_is_read
    unread = Class.new { def to_f = raise("was read") }.new
    [[1, [unread], UP], [ZERO, "target", [unread]], [[unread], ZERO, nil]].each do |arguments|
      assert_empty(operations { assert_raises(TypeError) { VelmarExt.set_camera_pos(*arguments) } })
    end
  end

  def test_a_bad_coordinate_changes_nothing
    [[["x", 0, 0], ZERO, UP], [ZERO, [0, nil, 0], UP], [ZERO, ZERO, [0, 0]]].each do |arguments|
      assert_empty(operations { assert_raises(TypeError) { VelmarExt.set_camera_pos(*arguments) } })
    end
  end

  def test_a_perspective_view_is_passed_as_it_stands
    VelmarExt.set_scene_params('{"quality": {"width": 500, "height": 500}}')
    assert_in_delta 50.0, written { assert_equal true, VelmarExt.set_camera_view(50, false) }[53].to_f, 1e-4
  end

  def test_a_parallel_view_crosses_to_metres
    VelmarExt.set_scene_params('{"quality": {"width": 500, "height": 500}}')
    pins = written { assert_equal true, VelmarExt.set_camera_view(35.0, true) }
    assert_equal "true", pins[127]
    assert_in_delta 0.889, pins[209].to_f, 1e-4
  end

  def test_only_true_is_parallel
    [1, nil, false, "true", :true, 0.0].each do |value|
      assert_equal [53], written { assert_equal true, VelmarExt.set_camera_view(35.0, value) }.keys, value.inspect
    end
  end

  def test_view_extents_are_followed_when_the_size_type_says_so
    assert_empty(operations { assert_equal true, VelmarExt.set_view_extents(640, 480) })
    VelmarExt.set_scene_params('{"quality": {"sizeType": 2}}')
    assert_equal "(320,240)", written { assert_equal true, VelmarExt.set_view_extents(320, 240.9) }[198]
    assert_equal "(1000,600)", written { VelmarExt.set_view_extents(5000, 5000) }[198]
  end

  def test_the_width_is_converted_first
    assert_raises(RangeError) { VelmarExt.set_view_extents(2**40, "480") }
    assert_raises(TypeError) { VelmarExt.set_view_extents("640", 2**40) }
  end

  def test_stubs_answer_true_and_have_no_effect
    assert_empty(operations do
      assert_equal true, VelmarExt.build_scene
      assert_equal true, VelmarExt.export_scene("a", [])
      assert_equal true, VelmarExt.export_scene(nil, 5)
    end)
  end

  def test_updates_are_blocked_by_true_alone
    VelmarExt.block_updates(false)
    assert_equal false, VelmarExt.block_updates?
    assert_equal(["pauseRendering"], steps { assert_equal true, VelmarExt.block_updates(true) })
    assert_equal true, VelmarExt.block_updates?
    assert_empty(steps { VelmarExt.block_updates(true) })
    [1, nil, false, "true"].each do |flag|
      VelmarExt.block_updates(true)
      assert_equal(["continueRendering"], steps { assert_equal true, VelmarExt.block_updates(flag) }, flag.inspect)
      assert_equal false, VelmarExt.block_updates?
    end
  end

  def test_update_and_restart_brings_a_blocked_render_back
    VelmarExt.block_updates(true)
    assert_equal(%w[setRenderTargetNode update continueRendering],
                 steps { assert_equal true, VelmarExt.update_and_restart })
    assert_equal(%w[setRenderTargetNode update], steps { assert_equal true, VelmarExt.update_and_restart })
  end
end

# What needs an engine that has not run yet, or does not run any more.
class ViewCommandsOfAStoppedEngineTest < Minitest::Test
  def outcome_of(code)
    outcome = VelmarTest.run_process("load_plugin(18)\n#{code}")
    assert outcome.status.success?, outcome.err
    outcome
  end

  def test_the_first_camera_looks_from_50_metres_away
    views = outcome_of("").operations.filter_map { |line| $1 if line =~ /\AsetPinValue \S+ .*(?:133|235|248) (\(.*\)) true\z/ }
    assert_equal ["(0,0,-50)", "(0,0,0)", "(0,1,0)"], views
  end

  def test_a_stopped_engine_counts_as_blocked
    assert_equal "true\n", outcome_of("p VelmarExt.block_updates?").out
  end

  def test_blocking_a_stopped_engine_does_nothing
    outcome = outcome_of("p VelmarExt.block_updates(true), VelmarExt.block_updates?")
    assert_equal "true\ntrue\n", outcome.out
    assert_empty outcome.operations.grep(/\A(pause|restart|continue)Rendering/)
  end

  def test_unblocking_a_stopped_engine_starts_a_render
    outcome = outcome_of("p VelmarExt.block_updates(false), VelmarExt.block_updates?")
    assert_equal "true\nfalse\n", outcome.out
    assert_includes outcome.operations, "restartRendering"
  end

  def test_update_and_restart_starts_a_stopped_engine
    outcome = outcome_of("p VelmarExt.update_and_restart, VelmarExt.block_updates?")
    assert_equal "true\nfalse\n", outcome.out
    assert_equal ["setRenderTargetNode VELMAR_RENDERTARGET:Default View", "update", "restartRendering"],
                 outcome.operations.last(3)
  end

  def test_after_shutdown_commands_answer_false_and_touch_no_node
    outcome = outcome_of(<<~RUBY)
      VelmarExt.update_and_restart
      VelmarExt.shutdown
      p VelmarExt.set_camera_pos([1, 2, 3], [0, 0, 0], [0, 0, 1]), VelmarExt.set_camera_view(50, true),
        VelmarExt.set_view_extents(10, 10), VelmarExt.set_scene_params("{}"), VelmarExt.update_and_restart,
        VelmarExt.block_updates(true), VelmarExt.block_updates(false), VelmarExt.block_updates?,
        VelmarExt.build_scene, VelmarExt.export_scene(1, 2)
      begin
        VelmarExt.set_camera_pos(1, 2, 3)
      rescue TypeError => error
        p error.class
      end
    RUBY
    assert_equal ["false"] * 10 + ["TypeError"], outcome.out.lines(chomp: true)
    assert_match(/\AapiMode_Shared_exit/, outcome.operations.last)
  end
end
