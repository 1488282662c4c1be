# frozen_string_literal: true

require_relative 'camera_facing'
require_relative 'errors'
require_relative 'extent'
require_relative 'framing'
require_relative 'readers'
require_relative 'streamer'
require_relative 'view_sender'

module VelmarHost
  # Makes one picture of one model file: reads it, frames it, streams it to the plug-in, waits for the samples and saves.
  class RenderJob
    STOPPED_EARLY = 'stopped before there was a picture'
    LONGEST_WAIT_SECONDS = 0.25    # between two looks at the progress and the user's wishes

    # What to make. `eye`, `target` and `fov` (vertical, degrees) are nil where the model or the framing decides; `seconds`
    # is nil for no limit.
    Order = Struct.new(:model, :output, :width, :height, :samples, :seconds, :eye, :target, :fov, keyword_init: true)

    # `engine` is the engine's host interface, see VelmarHost::Native; `warn` is called with lines.
    def initialize(order, report:, interruption:, warn:, ext: Object, engine: Native)
      @order = order
      @report = report
      @interruption = interruption
      @warn = warn
      @ext = ext
      @engine = engine
    end

    def run
      model = read
      stream(model)
      sample
      save
      refuse_unreadable_textures(model)
    end

    private

    def read
      @report.say "Reading #{@order.model}"
      model = Readers.read(@order.model, warn: @warn)
      raise Stopped, STOPPED_EARLY if @interruption.asked?

      model
    end

    def stream(model)
      camera = camera(model)
      CameraFacing.new(camera.eye).turn(model.root)
      streamer = Streamer.new(model, ext: @ext, progress: ->(done) { @report.at(done) },
                                     stopped: -> { @interruption.asked? })
      @report.say "Streaming #{contents(model)}"
      @report.start('Streaming', streamer.total)
      streamer.stream
      @report.finish
      ViewSender.new(ext: @ext).show(camera, width: @order.width, height: @order.height, samples: @order.samples)
      @engine.max_samples = @order.samples
      streamer.apply
    end

    def contents(model)
      triangles = count(model.placed_triangles, 'triangle')
      return triangles if model.definitions.empty?

      "#{count(model.definitions.size, 'component')}, #{triangles} in all placements"
    end

    # The command line's wishes win over the model's page, and the page over the framing.
    def camera(model)
      extent = Extent.new(model)
      camera = (model.camera || frame(extent)).dup
      camera.fov = @order.fov if @order.fov
      return camera unless @order.eye || @order.target

      camera.eye = @order.eye if @order.eye
      camera.target = @order.target || (@order.eye ? extent.center : camera.target)
      camera.up = Framing::UP
      camera.parallel = false
      camera.fov ||= Framing::FOV_DEGREES
      raise UsageError, 'the eye and the target are the same point' if camera.eye == camera.target

      camera
    end

    def frame(extent)
      Framing.camera(extent, aspect: @order.width.to_f / @order.height, fov: @order.fov || Framing::FOV_DEGREES)
    end

    def sample
      started = now
      @report.start('Rendering', @order.samples)
      loop do
        result = @engine.wait(@order.samples, wait_seconds(started))
        @engine.pump_events
        progress = @engine.progress
        @report.at(progress[:samples], format('%.1f s', now - started))
        raise Error, 'the render engine has nothing to render' if result == :nothing_to_render
        break if result == :samples_reached || @interruption.asked? || (progress[:samples].positive? && out_of_time?(started))
      end
      @report.finish
    end

    def wait_seconds(started)
      return LONGEST_WAIT_SECONDS unless @order.seconds

      (@order.seconds - (now - started)).clamp(0.001, LONGEST_WAIT_SECONDS)
    end

    def out_of_time?(started)
      @order.seconds && now - started >= @order.seconds
    end

    def save
      progress = @engine.progress
      raise Stopped, STOPPED_EARLY if progress[:samples].zero? && @interruption.asked?

      reason = @engine.save_picture(@order.output)
      raise Error, "#{@order.output}: #{reason}" if reason

      @report.say format('Saved %<file>s: %<width>dx%<height>d, %<samples>s in %<seconds>.1f s',
                         file: @order.output, width: progress[:width], height: progress[:height],
                         samples: count(progress[:samples], 'sample'), seconds: progress[:seconds])
    end

    # The picture stays: it lacks only what the files do not give.
    def refuse_unreadable_textures(model)
      first, *others = model.unreadable_textures
      return unless first

      more = others.empty? ? '' : " and #{others.size} more"
      raise Error, "texture cannot be read: #{first}#{more}; the picture was saved without it"
    end

    def count(number, thing)
      "#{number.to_s.gsub(/(\d)(?=(\d{3})+$)/, '\1,')} #{thing}#{'s' unless number == 1}"
    end

    def now
      Process.clock_gettime(Process::CLOCK_MONOTONIC)
    end
  end
end
