# frozen_string_literal: true

require_relative 'host_support'

class ScriptLayerTest < Minitest::Test
  include HostSupport

  def test_edits_of_the_daylight_are_kept
    assert_equal true, VelmarPlugin::Settings.update_environment('turbidity' => '2.5')
    assert_equal({ 'turbidity' => '2.5' }, VelmarPlugin::Settings.environment)
  end

  def test_a_closed_window_leaves_the_model_file_alone
    assert_equal true, VelmarPlugin::Observers::SceneObserver.embed_model_in_skp
  end

  def test_both_are_there_when_the_plug_in_is_loaded
    code = "$:.unshift #{File.join(ROOT, 'host/lib').inspect}; require 'velmar_host/plugin'; " \
           "VelmarHost::Plugin.load(#{LIBRARIES.inspect}); " \
           'print VelmarPlugin::Settings.respond_to?(:update_environment), ExtStream.respond_to?(:add_vertex), ' \
           'VelmarHost::Native.respond_to?(:wait); VelmarExt.shutdown'
    out, status = Open3.capture2e({ 'HOME' => @folder }, RbConfig.ruby, '-e', code)
    assert_equal ['truetruetrue', 0], [out, status.exitstatus]
  end

  def test_the_engine_counts_what_a_render_builds
    model = write('m.json', document(definitions: [triangle.merge(id: 1, name: 'T')],
                                     root: nothing.merge(instances: [instance(2, 1), instance(3, 1, transform: moved(9, 0, 0))])))
    code = "$:.unshift #{File.join(ROOT, 'host/lib').inspect}; require 'velmar_host'; " \
           "VelmarHost::Plugin.load(#{LIBRARIES.inspect}); streamer = VelmarHost::Streamer.new(VelmarHost::Readers.read(#{model.inspect})); " \
           'streamer.stream; streamer.apply; native = VelmarHost::Native; native.wait(1, 20.0); ' \
           'print native.statistics.values_at(:meshes, :placements, :instance_lists).inspect; native.reset_statistics; ' \
           'print native.statistics[:meshes_built]; VelmarExt.shutdown'
    out, status = Open3.capture2e({ 'HOME' => @folder }, RbConfig.ruby, '-e', code)
    assert_equal ['[1, 2, 1]0', 0], [out, status.exitstatus]
  end
end
