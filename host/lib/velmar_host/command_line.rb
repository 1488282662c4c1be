# frozen_string_literal: true

require 'optparse'

require_relative 'errors'
require_relative 'interruption'
require_relative 'output_file'
require_relative 'plugin'
require_relative 'render_job'
require_relative 'report'
require_relative 'version'

module VelmarHost
  # The command `velmar-render`: options in, one picture out. Whatever goes wrong is one line on the error stream and a
  # status: 1 for work that failed, 2 for a command that makes no sense, 130 when the user ended it without a picture.
  class CommandLine
    LARGEST = [1000, 600].freeze    # what the plug-in allows
    DEFAULT_SIZE = [960, 540].freeze
    DEFAULT_SAMPLES = 64
    MOST_SAMPLES = 1_000_000

    def self.run(arguments, library_folder:)
      new(library_folder).run(arguments)
    end

    def initialize(library_folder)
      @library_folder = library_folder
      @order = RenderJob::Order.new(width: DEFAULT_SIZE[0], height: DEFAULT_SIZE[1], samples: DEFAULT_SAMPLES)
      @quiet = false
    end

    # The status of the process.
    def run(arguments)
      guarded do
        parse(arguments)
        @answer ? puts(@answer) : render
      end
    end

    private

    def guarded
      yield
      0
    rescue UsageError, OptionParser::ParseError => e
      fail_with(e, 2)
    rescue Stopped, Interrupt => e
      fail_with(e, Interruption::QUIT_STATUS)
    rescue Error, SystemCallError => e
      fail_with(e, 1)
    rescue NoMemoryError
      fail_with(Error.new('out of memory'), 1)
    rescue StandardError => e
      fail_with(Error.new("internal error: #{e.message} (#{e.class}, #{File.basename(e.backtrace.first)})"), 1)
    end

    def fail_with(error, status)
      complain(error.is_a?(Interrupt) ? 'stopped before there was a picture' : error.message)
      status
    end

    def complain(line)
      $stderr.puts "velmar: #{line.gsub(/[[:cntrl:]]+/, ' ').strip}"
    end

    def render
      OutputFile.check(@order.output)
      interruption = Interruption.new
      interruption.watch do
        Readers.check(@order.model)
        Plugin.load(@library_folder)
        begin
          RenderJob.new(@order, report: Report.for(quiet: @quiet), interruption: interruption,
                                warn: ->(line) { complain("warning: #{line}") }).run
        ensure
          VelmarExt.shutdown
        end
      end
    end

    def parse(arguments)
      rest = parser.parse(arguments)
      return if @answer

      raise UsageError, 'which model? See --help' if rest.empty?
      raise UsageError, "one model at a time, not also #{rest[1]}" if rest.size > 1
      raise UsageError, 'where does the picture go? Say -o OUT.png' unless @order.output

      @order.model = rest.first
    end

    def parser
      OptionParser.new do |options|
        options.banner = 'usage: velmar-render MODEL -o OUT.png [options]'
        options.separator ''
        options.separator "Renders a model file (#{Readers::BY_ENDING.keys.map { |e| e[1..] }.join(', ')})."
        options.separator 'Ctrl-C saves the picture as far as it is; a second one quits.'
        options.separator ''
        define_picture_options(options)
        define_view_options(options)
        define_other_options(options)
      end
    end

    def define_picture_options(options)
      options.on('-o', '--output FILE', String, 'where the picture goes: png (8-bit sRGB) or exr (linear)') do |file|
        @order.output = file
      end
      options.on('--size WxH', String, "pixels, #{DEFAULT_SIZE.join('x')} by itself, #{LARGEST.join('x')} at most") do |text|
        @order.width, @order.height = size(text)
      end
      options.on('--samples N', Integer, "samples per pixel, #{DEFAULT_SAMPLES} by itself") do |samples|
        @order.samples = between('--samples', samples, 1, MOST_SAMPLES)
      end
      options.on('--time SECONDS', Float, 'stop sampling after so long') do |seconds|
        @order.seconds = between('--time', seconds, 0.01, 1e9)
      end
    end

    def define_view_options(options)
      options.on('--eye X,Y,Z', String, 'where the camera stands: inches, Z up, as the host sees the model') do |text|
        @order.eye = point('--eye', text)
      end
      options.on('--target X,Y,Z', String, 'what it looks at; by itself the middle of the model') do |text|
        @order.target = point('--target', text)
      end
      options.on('--fov DEGREES', Float, "vertical field of view, #{Framing::FOV_DEGREES.round} by itself") do |degrees|
        @order.fov = between('--fov', degrees, *Framing::FOV_RANGE)
      end
    end

    def define_other_options(options)
      options.on('-q', '--quiet', 'say nothing unless something is wrong') { @quiet = true }
      options.on('--version', 'tell the version') { @answer = "velmar #{VERSION}" }
      options.on('-h', '--help', 'tell this') { @answer = options.to_s }
    end

    def size(text)
      match = /\A(\d{1,9})x(\d{1,9})\z/.match(text) || raise(UsageError, "--size #{text}: not of the form 960x540")
      width, height = match.captures.map(&:to_i)
      raise UsageError, "--size #{text}: a picture has at least 1x1 pixel" if width < 1 || height < 1
      return [width, height] if width <= LARGEST[0] && height <= LARGEST[1]

      raise UsageError, "--size #{text}: too large, #{LARGEST.join('x')} at most"
    end

    def between(option, number, least, most)
      return number if number >= least && number <= most

      raise UsageError, "#{option} #{number}: must be between #{least} and #{most}"
    end

    def point(option, text)
      numbers = text.split(',', -1).map { |part| Float(part, exception: false) }
      return numbers if numbers.size == 3 && numbers.all? { |number| number && number.abs <= Document::LARGEST }

      raise UsageError, "#{option} #{text}: not of the form 10,20,30"
    end
  end
end
