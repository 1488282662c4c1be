# frozen_string_literal: true

require "json"
require_relative "../../support/operations"

# set_scene_params, seen from Ruby: what reaches the SDK, what raises, and that a bad document leaves all as it was.
class SceneSettingsTest < VelmarTest::PluginTest
  include VelmarTest::Operations

  FILTERS = { leftFilter: {}, rightFilter: {} }.freeze
  PANORAMIC_FILTERS = { panoLeftFilter: {}, panoRightFilter: {} }.freeze

  def setup
    super
    VelmarExt.set_camera_view(35.0, false)
    apply(camera: { type: 0, **FILTERS }, quality: {})
  end

  def apply(document)
    assert_equal true, VelmarExt.set_scene_params(JSON.generate(document))
  end

  def test_a_document_reaches_camera_and_film_and_restarts
    VelmarExt.block_updates(true)
    done = steps { apply(quality: { width: 400, height: 300 }, camera: { aperture: 2.5, **FILTERS }) }
    assert_operator done.index("setPinValue 8"), :<, done.index("setPinValue 198")
    assert_equal %w[setRenderTargetNode update continueRendering], done.last(3)
  end

  def test_values_reach_their_pins
    pins = written { apply(camera: { aperture: 2.5, leftFilter: { x: 0.5 }, rightFilter: { z: 1 } }, quality: { width: 77 }) }
    assert_equal "2.5", pins[8]
    assert_equal "(0.5,0,0)", pins[93]
    assert_equal "(0,0,1)", pins[200]
    assert_equal "(77,600)", pins[198]
  end

  def test_comments_are_allowed
    text = "// from the model\n{\"quality\": {\"width\": 88 /* pixels */, \"height\": 99}}"
    assert_equal "(88,99)", written { VelmarExt.set_scene_params(text) }[198]
  end

  def test_an_empty_document_takes_default_quality_and_leaves_the_camera
    apply(camera: { type: 1, **PANORAMIC_FILTERS }, quality: { width: 10, height: 10 })
    done = steps { apply({}) }
    assert_equal "createInternal 311", done.first
    assert_empty done.grep(/createInternal 19/)
    assert_equal %w[setRenderTargetNode update], done.last(2)
  end

  def test_text_that_is_no_document_changes_nothing
    ["", "{", "[]", "5", "nil", "{\"quality\": }", "[" * 2000].each do |text|
      assert_empty(operations { assert_equal true, VelmarExt.set_scene_params(text) }, text[0, 20])
    end
  end

  def test_a_section_that_is_no_object_is_left_out
    done = steps { apply(camera: [], quality: { width: 123, height: 45 }) }
    assert_includes done, "createInternal 311"
    assert_equal %w[setRenderTargetNode update], done.last(2)
  end

  def test_only_a_string_without_zero_bytes_serves_as_text
    [nil, 5, {}, :text].each { |text| assert_raises(TypeError) { VelmarExt.set_scene_params(text) } }
    assert_raises(ArgumentError) { VelmarExt.set_scene_params("{}\0") }
  end

  THIN_LENS_KEYS = %i[
    type fov distortion aperture apertureEdge pixelAspectRatio apertureAspectRatio perspectiveCorrection stereoMode
    stereoOutput stereoDist leftFilter rightFilter lensShiftX lensShiftY focalDepth focusType lensClipDepth
  ].freeze
  PANORAMIC_KEYS = %i[
    fovx fovy mode panoClipDepth panoStereoOutput panoEyeDist panoEyeFalloff panoBlackoutLatitude panoLeftFilter
    panoRightFilter
  ].freeze
  QUALITY_KEYS = %i[width height sizeType maxSamples update].freeze

  # A text, a list and an object stand in each key's place; what the key reads well is left out.
  def assert_refused(section, good, keys, kinds)
    keys.product(kinds).each do |key, value|
      done = operations do
        error = assert_raises(RuntimeError, "#{key}: #{value}") { apply(section => good.merge(key => value)) }
        refute_empty error.message
      end
      assert_empty done, "#{key}: #{value}"
    end
  end

  def test_a_camera_value_of_the_wrong_kind_raises_and_changes_nothing
    filters = %i[leftFilter rightFilter panoLeftFilter panoRightFilter]
    assert_refused(:camera, FILTERS, THIN_LENS_KEYS - filters, ["wide", [1], { x: 1 }])
    assert_refused(:camera, { type: 1, **PANORAMIC_FILTERS }, PANORAMIC_KEYS - filters, ["wide", [1], { x: 1 }])
    assert_refused(:camera, FILTERS, %i[leftFilter rightFilter], ["red", [1], 3, true, { x: "much" }])
    assert_refused(:camera, { type: 1, **PANORAMIC_FILTERS }, %i[panoLeftFilter panoRightFilter], ["red", [1], 3, true])
  end

  def test_a_quality_value_of_the_wrong_kind_raises_and_changes_nothing
    assert_refused(:quality, { width: 11, height: 12, maxSamples: 13, update: true }, QUALITY_KEYS, ["many", [1], { x: 1 }])
    assert_refused(:quality, {}, %i[width height sizeType maxSamples], [2**40, 1e30])
  end

  def test_a_camera_without_its_filters_raises_and_leaves_no_half_written_camera
    [{ type: 0 }, { type: 1 }, { type: 0, leftFilter: {} }, { type: 1, panoRightFilter: {}, fovx: 99 }].each do |camera|
      assert_empty(operations { assert_raises(RuntimeError) { apply(camera: camera) } })
    end
    # the panoramic angle that came with a bad message was not kept
    apply(camera: { type: 1, **PANORAMIC_FILTERS })
    assert_equal({ 54 => "35", 55 => "60" }, written { VelmarExt.set_camera_view(1, false) })
  end

  def test_after_a_bad_document_the_next_good_one_is_right
    assert_raises(RuntimeError) { apply(camera: { fov: [], **FILTERS }) }
    assert_equal "(55,44)", written { apply(quality: { width: 55, height: 44 }) }[198]
  end
end

# What the log says.
class SceneSettingsLogTest < Minitest::Test
  UNREADABLE = "ERROR Failed to read scene setting from .skp file"

  def errors_of(*documents)
    calls = documents.map { |text| "VelmarExt.set_scene_params(#{text.dump})" }
    outcome = VelmarTest.run_process("load_plugin(18)\n#{calls.join("\n")}\nVelmarExt.shutdown")
    assert outcome.status.success?, outcome.err
    @operations = outcome.operations
    outcome.log.grep(/\AERROR/)
  end

  def test_a_malformed_document_logs_once_and_does_not_restart
    assert_equal [UNREADABLE], errors_of("{\"camera\"")
    assert_empty @operations.grep(/restartRendering/)
  end

  def test_a_section_that_is_no_object_logs_once_and_restarts
    assert_equal ["#{UNREADABLE}: quality"], errors_of('{"quality": 7}')
    assert_includes @operations, "restartRendering"
  end

  def test_a_good_document_logs_nothing
    assert_empty errors_of("{}", "null", '{"quality": {"width": 5}}')
  end

  def test_an_unknown_camera_type_is_logged
    assert_equal ["ERROR Error: Undefined Camera Type"], errors_of('{"camera": {"type": 5}}')
  end
end
