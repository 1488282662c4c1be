# frozen_string_literal: true

require_relative "../../support/velmar_test_helper"
require_relative "../../support/surface_table"

# Calls of every kind with a garbage collection at every chance while they run.
class GcStressTest < VelmarTest::PluginTest
  include SurfaceTable

  def stressed
    GC.stress = true
    yield
  ensure
    GC.stress = false
  end

  def test_one_refused_call_of_each_method
    WRONG_TYPES.uniq { |klass, name,| [klass, name] }.each do |call|
      error = begin
        stressed { SurfaceTable.call(*call) }
      rescue TypeError => e
        e
      end
      assert_kind_of TypeError, error, call.inspect
    end
  end

  def test_a_mesh_streams_and_is_placed
    placements = Array.new(3) { |i| MATRIX.take(12) + [i * 10.0, 0.0, 0.0, 1.0] }
    stressed { ExtDefinition.add(1, [2**20, 3], [11, 12]) }
    stressed do
      ExtStream.set_geometry_stream(1, "a mesh " + "x" * 50)
      [[0, 0, 0], [10.5, 0, 0], [0, 10, 2**70]].each do |point|
        ExtStream.add_vertex(*point)
        ExtStream.add_normal(0, 0, 1.0, 1)
        ExtStream.add_uvw(0.5, Rational(1, 2), 1)
      end
      [1, 2, 3].each { |n| [ExtStream.add_vertex_index(n), ExtStream.add_normal_index(n), ExtStream.add_uvw_index(n)] }
      ExtStream.add_face(1, -1, 0, 1)
    end
    assert_same true, stressed { ExtStream.evaluate_stream("{ \"unknown\" : [1, 2] }") }
    assert_same true, stressed { ExtInstance.add(11, 1, -1, MATRIX, placements, true) }
    assert_same true, stressed { VelmarExt.define_model_entity(11) }
    assert_same true, stressed { VelmarExt.apply_geometry }
  end

  def test_texts_come_and_go
    assert_equal File.join(VelmarTest::HOME, "Documents"), stressed { ExtUtils.get_documents_folder }
    message = Object.new
    message.define_singleton_method(:to_str) { "made " + "up" * 40 }
    stressed { VelmarExt.debug(message) && VelmarExt.log(message, -1) }
    logs = File.join(VelmarTest::HOME, "Documents/Velmar/SketchUp/logs")
    assert File.read(File.join(logs, "debug-log.txt")).end_with?(" made #{'up' * 40}\n")
    assert Dir[File.join(logs, "VelmarSketchup*")].any? { |file| File.read(file).end_with?("] Ruby: made #{'up' * 40}\n") }
  end

  def test_the_view_and_the_settings
    up = [Object.new, 0, 1]
    up[0].define_singleton_method(:to_f) { 0.0 * rand }
    assert_same true, stressed { VelmarExt.set_camera_view(35, false) }
    assert_same true, stressed { VelmarExt.set_camera_pos(POINT, [0, 0, 0], up) }
    assert_same true, stressed { VelmarExt.set_camera_pos(POINT, [0, 0, 0], [0.0, Rational(0), 1]) }
    assert_same true, stressed { VelmarExt.set_scene_params("{ \"quality\" : { } }") }
  end

  def test_commands_to_be_built_raise_and_leave_nothing_behind
    NOT_BUILT.each do |klass, names|
      names.each do |name|
        error = begin
          stressed { SurfaceTable.call(klass, name, *Array.new(METHODS[klass][name], "")) }
        rescue NotImplementedError => e
          e
        end
        assert_kind_of NotImplementedError, error, name
      end
    end
  end
end
