# frozen_string_literal: true

require 'stringio'

require_relative 'host_support'

class RenderJobTest < Minitest::Test
  include HostSupport

  # An engine that makes one sample with each wait.
  class Engine
    attr_accessor :results, :failure
    attr_reader :waits, :saved, :pumps
    attr_writer :max_samples

    def initialize(results = [])
      @results = results
      @waits = []
      @pumps = 0
    end

    def wait(samples, seconds)
      @waits << [samples, seconds]
      @results.shift || :time_limit
    end

    def pump_events
      @pumps += 1
    end

    def progress
      { width: 960, height: 540, samples: @waits.size, max_samples: @max_samples, seconds: 0.5, running: true }
    end

    def save_picture(path)
      @saved = path
      @failure
    end
  end

  def setup
    super
    @recorder = Recorder.new
    @interruption = VelmarHost::Interruption.new
    @out = StringIO.new
  end

  def run_job(engine, content: document, **order)
    wish = VelmarHost::RenderJob::Order.new(model: write('m.json', content), output: 'out.png', width: 960, height: 540,
                                            samples: 4, **order)
    VelmarHost::RenderJob.new(wish, report: VelmarHost::Report.for(quiet: false, out: @out), interruption: @interruption,
                                    warn: ->(_line) {}, ext: @recorder.namespace, engine: engine).run
    engine
  end

  def test_the_picture_is_saved_when_the_samples_are_there
    engine = run_job(Engine.new(%i[time_limit samples_reached]))
    assert_equal 'out.png', engine.saved
    assert_equal [4, 4], engine.waits.map(&:first)
    assert_equal 2, engine.pumps
    assert_match(/^Saved out.png: 960x540, 2 samples in 0.5 s$/, @out.string)
  end

  def test_the_view_goes_out_before_the_geometry_is_applied
    run_job(Engine.new([:samples_reached]))
    order = @recorder.calls.map { |call| call[1] } & %i[evaluate_stream set_view_extents set_camera_pos set_camera_view
                                                        set_scene_params apply_geometry]
    assert_equal %i[evaluate_stream set_view_extents set_camera_pos set_camera_view set_scene_params apply_geometry], order
  end

  def test_a_time_limit_ends_the_sampling_and_saves
    engine = run_job(Engine.new, samples: 1000, seconds: 0.01)
    assert_equal 'out.png', engine.saved
    assert_operator engine.waits.map(&:last).max, :<=, 0.01
  end

  def test_an_interruption_ends_the_sampling_and_saves
    engine = Engine.new
    interruption = @interruption
    engine.define_singleton_method(:pump_events) { interruption.ask }
    assert_equal 'out.png', run_job(engine, samples: 1000).saved
    assert_equal 1, engine.waits.size
  end

  def test_an_interruption_before_there_is_a_picture_saves_nothing
    @interruption.ask
    engine = Engine.new
    assert_raises(VelmarHost::Stopped) { run_job(engine) }
    assert_nil engine.saved
    assert_empty @recorder.calls
  end

  def test_an_interruption_before_the_first_sample_saves_nothing
    engine = Engine.new
    interruption = @interruption
    engine.define_singleton_method(:pump_events) { interruption.ask }
    engine.define_singleton_method(:progress) { super().merge(samples: 0) }
    error = assert_raises(VelmarHost::Stopped) { run_job(engine) }
    assert_equal 'stopped before there was a picture', error.message
    assert_nil engine.saved
  end

  def test_a_time_limit_waits_for_the_first_sample
    engine = Engine.new
    engine.define_singleton_method(:progress) { super().merge(samples: [0, @waits.size - 2].max) }
    assert_equal 'out.png', run_job(engine, samples: 1000, seconds: 1e-6).saved
    assert_equal 3, engine.waits.size
  end

  def test_a_failed_save_names_file_and_reason
    engine = Engine.new([:samples_reached])
    engine.failure = 'disk full'
    assert_equal 'out.png: disk full', assert_raises(VelmarHost::Error) { run_job(engine) }.message
  end

  def test_nothing_to_render_is_an_error
    assert_match(/nothing to render/, assert_raises(VelmarHost::Error) { run_job(Engine.new([:nothing_to_render])) }.message)
  end

  def view(**order)
    @recorder.calls.clear
    page = { name: 'P', eye: [1, -9, 2], target: [1, 0, 2], up: [0, 0, 1], fov: 50, parallel: false, height: 0 }
    run_job(Engine.new([:samples_reached]), content: document(pages: [page]), **order)
    [*@recorder.named(:set_camera_pos).first, *@recorder.named(:set_camera_view).first]
  end

  def test_the_pages_camera_is_taken_unless_the_command_says_otherwise
    assert_equal [[1, -9, 2], [1, 0, 2], [0, 0, 1], 50, false], view
    assert_equal [[1, -9, 2], [1, 0, 2], [0, 0, 1], 20.0, false], view(fov: 20.0)
    assert_equal [[7, 8, 9], [5.0, 0.0, 5.0], [0, 0, 1], 50, false], view(eye: [7, 8, 9])
    assert_equal [[7, 8, 9], [3, 3, 3], [0, 0, 1], 50, false], view(eye: [7, 8, 9], target: [3, 3, 3])
    assert_equal [[1, -9, 2], [3, 3, 3], [0, 0, 1], 50, false], view(target: [3, 3, 3])
  end

  def test_an_eye_on_its_target_is_refused
    assert_raises(VelmarHost::UsageError) { view(eye: [1, 2, 3], target: [1, 2, 3]) }
  end

  def test_lines_tell_of_the_samples_at_every_doubling
    run_job(Engine.new(Array.new(19) { :time_limit } + [:samples_reached]), samples: 20)
    assert_equal [1, 2, 4, 8, 16], @out.string.scan(/^Rendering: (\d+) of 20/).flatten.map(&:to_i)
  end

  def test_quiet_says_nothing_and_a_terminal_gets_a_bar
    assert_instance_of VelmarHost::Report::Silent, VelmarHost::Report.for(quiet: true, out: @out)
    @out.define_singleton_method(:tty?) { true }
    report = VelmarHost::Report.for(quiet: false, out: @out)
    report.start('Work', 10)
    [5, 10, 11].each { |done| report.at(done) }
    report.finish
    assert_match(/Work .*100%/, @out.string)
  end

  def test_a_stage_that_ends_early_leaves_its_bar_where_it_is
    @out.define_singleton_method(:tty?) { true }
    report = VelmarHost::Report.for(quiet: false, out: @out)
    report.start('Work', 10)
    report.at(5)
    report.finish
    refute_match(/100%/, @out.string)
  end
end

class InterruptionTest < Minitest::Test
  include HostSupport

  def run_watched(body)
    code = "$:.unshift #{File.join(ROOT, 'host/lib').inspect}\nrequire 'velmar_host/interruption'\n" \
           "work = VelmarHost::Interruption.new\n#{body}"
    Open3.capture2e(RbConfig.ruby, '-e', code)
  end

  def test_the_first_signal_is_a_wish
    out, status = run_watched('work.watch { Process.kill("INT", $$); sleep 0.01 until work.asked?; puts "asked" }')
    assert_equal ["asked\n", 0], [out, status.exitstatus]
  end

  def test_the_second_signal_quits
    out, status = run_watched('work.watch { 2.times { Process.kill("INT", $$); sleep 0.01 until work.asked? }; sleep 20 }')
    assert_equal ['', 130], [out, status.exitstatus]
  end

  def test_the_signal_means_what_it_meant_before_afterwards
    out, = run_watched('trap("INT") { puts "mine"; exit }; work.watch {}; Process.kill("INT", $$); sleep 20')
    assert_equal "mine\n", out
  end
end
