# frozen_string_literal: true

# A test process of the Ruby surface: a home folder of its own, the script layer's two classes as stubs that remember
# their calls, and the module file of VELMAR_LIB_DIR on demand.
#
# VELMAR_GC_STRESS=1 collects garbage at every chance while a test body runs.

require "fileutils"
require "minitest/autorun"
require "open3"
require "rbconfig"
require "tmpdir"

module VelmarPlugin
  # What the plug-in tells the script layer, in order.
  CALLS = []

  class Settings
    def self.update_environment(settings)
      CALLS << [:update_environment, settings]
      true
    end
  end

  module Observers
    class SceneObserver
      def self.embed_model_in_skp
        CALLS << [:embed_model_in_skp]
        true
      end
    end
  end
end

module VelmarTest
  HOME = Dir.mktmpdir("velmar-test-")
  ENV["HOME"] = HOME
  Minitest.after_run { FileUtils.rm_rf(HOME) }

  module_function

  def lib_dir
    ENV.fetch("VELMAR_LIB_DIR") { abort "VELMAR_LIB_DIR must name the folder of the module files" }
  end

  # Loads the plug-in into this process, once.
  def load_plugin
    require File.join(lib_dir, "velmarsu18")
  end

  # What a process of its own left behind.
  Outcome = Struct.new(:status, :out, :err, :home) do
    def debug_log
      lines_of("debug-log.txt").map { |line| line.sub(/\AP\h{8} T\h{16} \d{4}-\d\d-\d\d [\d:.]{12} /, "") }
    end

    # Messages of the log without their prefix, errors marked.
    def log
      lines_of("VelmarSketchup*").filter_map do |line|
        "#{'ERROR ' if $1 == 'E'}#{$'}" if line =~ /\A([IWEF])\d{8} [\d:.]+ +\d+ \S+\] /
      end
    end

    def operations
      File.readlines(File.join(home, "operations"), chomp: true)
    end

    def documents(path)
      File.join(home, "Documents", path)
    end

    private

    def lines_of(pattern)
      Dir[documents("Velmar/SketchUp/logs/#{pattern}")].sort.flat_map { |file| File.readlines(file, chomp: true) }
    end
  end

  # Runs Ruby code in a process of its own, with a fresh home folder and the operation log on. `load_plugin(18)` loads a
  # module file there.
  def run_process(code, seconds: 60, home: Dir.mktmpdir("process-", HOME))
    environment = { "HOME" => home, "VELMAR_OPERATION_LOG" => File.join(home, "operations") }
    program = "#{PRELUDE}\n#{code}"
    out, err, status = Open3.capture3(environment, "timeout", "-s", "KILL", seconds.to_s,
                                      RbConfig.ruby, "--disable=gems", "-e", program)
    Outcome.new(status, out, err, home)
  end

  PRELUDE = <<~RUBY
    def load_plugin(generation)
      require File.join(ENV.fetch("VELMAR_LIB_DIR"), "velmarsu\#{generation}")
    end
  RUBY

  # A test case whose process has the plug-in loaded.
  class PluginTest < Minitest::Test
    def setup
      VelmarTest.load_plugin
      VelmarPlugin::CALLS.clear
      GC.stress = ENV["VELMAR_GC_STRESS"] == "1"
    end

    def teardown
      GC.stress = false
    end
  end
end
