# frozen_string_literal: true

# Measures speed and prints one table of ratios, each taken side by side in one process.
#
#   ruby bench/run.rb BUILD_DIR
#
# Ends with status 1 when a goal is missed. Rows without a goal explain the one above them.

require "open3"
require "rbconfig"

build = ARGV.fetch(0) { abort "usage: ruby bench/run.rb BUILD_DIR" }
bin = File.expand_path("bin", build)
lib = File.expand_path("lib", build)

programs = [
  [RbConfig.ruby, "--disable=gems", File.join(__dir__, "stream_bench.rb"), lib],
  [File.join(bin, "weld_bench")],
  [File.join(bin, "apply_bench")],
  [File.join(bin, "text_bench")],
  [File.join(bin, "node_bench")]
]

Row = Struct.new(:name, :reference, :ours, :ratio, :goal) do
  def self.parse(line)
    name, *numbers = line.chomp.split("\t")
    new(name, *numbers.map(&:to_f)) if numbers.size == 4
  end

  def missed?
    goal.positive? && ratio < goal
  end

  def to_s
    wanted = goal.positive? ? format("%8.2f  %s", goal, missed? ? "missed" : "met") : ""
    format("%-66s %10.2f %10.2f %8.2f %s", name, reference * 1000, ours * 1000, ratio, wanted).rstrip
  end
end

puts format("%-66s %10s %10s %8s %8s", "ours / reference (speed; medians of 9 rounds in turn)", "ref. ms", "ours ms", "ratio", "goal")
missed = 0
programs.each do |program|
  out, status = Open3.capture2(*program)
  abort "#{program.first} failed" unless status.success?

  rows = out.lines.filter_map { |line| Row.parse(line) }
  abort "#{program.last} measured nothing" if rows.empty?
  puts rows
  missed += rows.count(&:missed?)
end
exit missed.zero?
