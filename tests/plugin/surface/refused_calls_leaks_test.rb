# frozen_string_literal: true

require_relative "../../support/leak_report"
require_relative "../../support/surface_table"

# Calls that raise, thousands of times over, and what the leak check finds afterwards.
class RefusedCallsLeaksTest < Minitest::Test
  TABLE = File.expand_path("../../support/surface_table.rb", __dir__)
  ROUNDS = 100

  # Blocks of memory that the plug-in or the engine asked for and nobody holds when the code has run.
  def leaks_of(code)
    VelmarTest::LeakReport.of("require #{TABLE.inspect}; #{code}").leaks
  end

  def test_a_planted_leak_is_found_with_its_size_and_count
    report = VelmarTest::LeakReport.of(<<~RUBY)
      require File.join(ENV.fetch("VELMAR_LIB_DIR"), "velmar_leaking")
      25.times { VelmarLeaking.lose }
    RUBY
    assert_equal ["2500 byte(s) in 25 object(s)"], report.leaks.map { |leak| leak[/\d+ byte\(s\) in \d+ object\(s\)/] }
  end

  def test_a_process_that_only_starts_and_ends_leaks_nothing
    assert_empty leaks_of("load_plugin(18)")
    assert_empty leaks_of("load_plugin(18); VelmarExt.shutdown")
  end

  def test_wrong_types_leak_nothing
    assert_operator SurfaceTable::WRONG_TYPES.size * ROUNDS, :>, 5000
    assert_empty leaks_of(<<~RUBY)
      load_plugin(18)
      #{ROUNDS}.times do
        SurfaceTable::WRONG_TYPES.each do |call|
          begin
            SurfaceTable.call(*call)
            abort "\#{call} raised nothing"
          rescue TypeError
          end
        end
      end
    RUBY
  end

  def test_numbers_that_do_not_fit_and_commands_to_be_built_leak_nothing
    assert_empty leaks_of(<<~RUBY)
      load_plugin(18)
      #{ROUNDS}.times do
        SurfaceTable::WRONG_RANGES.each { |call| begin; SurfaceTable.call(*call); abort "no error"; rescue RangeError; end }
        SurfaceTable::NOT_BUILT.each do |klass, names|
          names.each do |name|
            SurfaceTable.call(klass, name, *Array.new(SurfaceTable::METHODS[klass][name], "text"))
            abort "no error"
          rescue NotImplementedError
          end
        end
      end
    RUBY
  end

  def test_throws_out_of_conversions_leak_nothing
    assert_empty leaks_of(<<~RUBY)
      load_plugin(18)
      jumper = Object.new
      def jumper.to_str; throw :out, 1; end
      def jumper.to_int; throw :out, 1; end
      #{ROUNDS * 10}.times do
        catch(:out) { ExtStream.set_geometry_stream(1, jumper); abort "no throw" }
        catch(:out) { ExtDefinition.add(SurfaceTable::FREE, [1] * 100, [2] * 100 + [jumper]); abort "no throw" }
        catch(:out) { VelmarExt.debug(jumper); abort "no throw" }
      end
    RUBY
  end
end
