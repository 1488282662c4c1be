# frozen_string_literal: true

require_relative "velmar_test_helper"

module VelmarTest
  # What the address sanitizer's leak check says about a process of its own. The interpreter gives its own memory back to
  # nobody, so only blocks count that the product's own code asked for.
  class LeakReport
    # Names of the libraries through which a request for memory passes on its way to the sanitizer.
    CARRIERS = %r{/lib(asan|clang_rt|stdc\+\+|jsoncpp|glog)[^/]*\.so}
    PRODUCT = %r{/(velmarsu\d+|libvelmar\w*|velmar_leaking)\.so}
    # Stacks are short, as the check reports a limited number of different ones, and name the library of each frame.
    OPTIONS = "detect_leaks=1:exitcode=0:fast_unwind_on_malloc=0:malloc_context_size=7:" \
              "stack_trace_format='    #%n %m %f %S'"

    # Runs Ruby code under the leak check.
    def self.of(code)
      outcome = nil
      Dir.mktmpdir("leaks-", HOME) do |folder|
        outcome = with_options("#{OPTIONS}:log_path=#{folder}/report") { VelmarTest.run_process(code, seconds: 240) }
        raise "ended with #{outcome.status}: #{outcome.err}" unless outcome.status.success?

        reports = Dir["#{folder}/report.*"].map { |file| File.read(file) }
        raise "the leak check found not even the interpreter's own blocks" unless reports.join.include?("LeakSanitizer")
        raise "the leak check left out a part of its report" if reports.join.include?("Too many leaks")

        return new(reports.join("\n"))
      end
    end

    def self.with_options(options)
      before = ENV.fetch("ASAN_OPTIONS", nil)
      ENV["ASAN_OPTIONS"] = options
      yield
    ensure
      ENV["ASAN_OPTIONS"] = before
    end
    private_class_method :with_options

    def initialize(text)
      @text = text
    end

    # The blocks whose request came from the product, each with its stack.
    def leaks
      @text.split(/^(?=(?:Direct|Indirect) leak of)/).select { |block| block.include?("leak of") && ours?(block) }
    end

    private

    def ours?(block)
      frame = block.lines.grep(/^ +#\d/).find { |line| line !~ CARRIERS }
      frame&.match?(PRODUCT)
    end
  end
end
