# frozen_string_literal: true

require_relative "velmar_test_helper"

module VelmarTest
  # The SDK operations of a piece of work in this process, read from the engine's operation log. To be included before
  # the plug-in is loaded.
  module Operations
    FILE = File.join(HOME, "operations")
    ENV["VELMAR_OPERATION_LOG"] = FILE

    # The lines that the block adds.
    def operations
      before = File.size?(FILE).to_i
      yield
      File.open(FILE) do |file|
        file.seek(before)
        file.readlines(chomp: true)
      end
    end

    # Without items and values: "setPinValue 133", "createInternal 19", "update".
    def steps(&work)
      operations(&work).map { |line| line =~ /\A(\w+) \w+:.*? (\d+)\b/ ? "#{$1} #{$2}" : line[/\A\w+/] }
    end

    # The values that the block writes, by the number of their pin, as the log has them; the last one of each counts.
    def written(&work)
      operations(&work).filter_map { |line| [$1.to_i, $2] if line =~ /\AsetPinValue \w+:.*? (\d+) (.*) true\z/ }.to_h
    end

    # A logged vector's numbers.
    def numbers(text)
      text.delete("()").split(",").map(&:to_f)
    end
  end
end
