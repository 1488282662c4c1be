# frozen_string_literal: true

require_relative "../../support/velmar_test_helper"

# Start and stop of the plug-in, each in a process of its own.
class LifecycleTest < Minitest::Test
  START = [
    "Init AppManager...", "Velmar dependencies sucessfully loaded.", "Ruby extension init...",
    "Ruby extension init complete", "Creating VelmarManager...", "VelmarManager Created",
    "Creating MaterialManager...", "MaterialManager Created", "ApplicationManager Init Complete"
  ].freeze
  STOP = ["Stopping server loop...", "Stopping Velmar SDK...", "Shutdown complete"].freeze
  FOLDERS = %w[Velmar Velmar/SketchUp Velmar/SketchUp/temp Velmar/SketchUp/logs Velmar/SketchUp/temp/previews
               Velmar/SketchUp/temp/textures].freeze

  def run_clean(code)
    outcome = VelmarTest.run_process(code)
    assert outcome.status.success?, "ended with #{outcome.status}: #{outcome.err}"
    assert_empty outcome.err
    outcome
  end

  # The items of `expected` in their order among `found`, whatever stands between them.
  def assert_in_order(expected, found)
    rest = found.dup
    expected.each do |item|
      index = rest.index { |line| item === line } or flunk "#{item.inspect} is missing after the ones before it in #{found}"
      rest.shift(index + 1)
    end
  end

  def test_each_of_the_three_entries_starts_the_plug_in
    [16, 17, 18].each do |generation|
      outcome = run_clean("load_plugin(#{generation}); print ExtUtils.get_documents_folder")
      assert_equal outcome.documents("").chomp("/"), outcome.out
      assert_in_order START, outcome.log
    end
  end

  def test_a_module_exports_its_three_entries_and_nothing_else
    [16, 17, 18].each do |generation|
      symbols = IO.popen(["nm", "-D", "--defined-only", File.join(VelmarTest.lib_dir, "velmarsu#{generation}.so")], &:read)
      names = symbols.lines.map { |line| line.split.last }
      assert_equal %w[Init_velmarsu16 Init_velmarsu17 Init_velmarsu18], names.sort
    end
  end

  def test_the_start_makes_the_folders_in_a_home_that_has_none
    outcome = run_clean("load_plugin(18)")
    FOLDERS.each { |folder| assert File.directory?(outcome.documents(folder)), folder }
  end

  def test_the_start_talks_to_the_sdk_in_its_order
    operations = run_clean("load_plugin(18)").operations
    assert_in_order [/\AapiMode_Shared_start\b/, /\AsetRenderPriority 0\z/, /\AstopRendering\b/, /\Acreate VELMAR_RENDERTARGET\b/,
                     /\AsetRenderTargetNode\b/], operations
    assert_match(/\AapiMode_Shared_start\b/, operations.first)
  end

  def test_no_sdk_call_happens_before_the_entry
    outcome = run_clean(<<~RUBY)
      require "fiddle"
      Fiddle.dlopen(File.join(ENV.fetch("VELMAR_LIB_DIR"), "velmarsu18.so"))
    RUBY
    refute File.exist?(File.join(outcome.home, "operations")), "operations were made"
    refute File.exist?(outcome.documents("")), "files were made"
  end

  def test_the_stop_goes_through_its_steps_in_order
    outcome = run_clean("load_plugin(18); p VelmarExt.shutdown")
    assert_equal "true\n", outcome.out
    assert_equal STOP, outcome.debug_log
    assert_in_order ["MaterialManager Destroyed", "VelmarManager Destroyed"], outcome.log
    assert_in_order [/\AstopObserving\z/, /\AapiMode_Shared_exit\b/], outcome.operations
    assert_match(/\AapiMode_Shared_exit\b/, outcome.operations.last)
  end

  def test_the_stop_takes_a_few_poll_periods_at_most
    outcome = run_clean(<<~RUBY)
      load_plugin(18)
      before = Process.clock_gettime(Process::CLOCK_MONOTONIC)
      VelmarExt.shutdown
      print Process.clock_gettime(Process::CLOCK_MONOTONIC) - before
    RUBY
    assert_operator outcome.out.to_f, :<, 5
  end

  def test_further_stops_go_through_the_steps_again
    outcome = run_clean("load_plugin(18); p 3.times.map { VelmarExt.shutdown }")
    assert_equal "[true, true, true]\n", outcome.out
    assert_equal STOP * 3, outcome.debug_log
    assert_equal 1, outcome.operations.grep(/\AapiMode_Shared_exit\b/).size
  end

  def test_a_second_entry_changes_nothing_and_logs_the_failure
    outcome = run_clean(<<~RUBY)
      load_plugin(18)
      ExtDefinition.add(5, [], [])
      require "fiddle"
      library = Fiddle.dlopen(File.join(ENV.fetch("VELMAR_LIB_DIR"), "velmarsu18.so"))
      Fiddle::Function.new(library["Init_velmarsu18"], [], Fiddle::TYPE_VOID).call
      p ExtEntity.present?(5)
    RUBY
    assert_equal "true\n", outcome.out
    assert_equal ["Init AppManager...", "ERROR Failed to initialize application. Exiting."], outcome.log.last(2)
    assert_equal 1, outcome.operations.grep(/\AapiMode_Shared_start\b/).size
  end

  def test_an_entry_after_the_stop_does_not_start_again
    outcome = run_clean(<<~RUBY)
      load_plugin(18)
      VelmarExt.shutdown
      require "fiddle"
      library = Fiddle.dlopen(File.join(ENV.fetch("VELMAR_LIB_DIR"), "velmarsu18.so"))
      Fiddle::Function.new(library["Init_velmarsu18"], [], Fiddle::TYPE_VOID).call
      p VelmarExt.shutdown, ExtEntity.present?(5)
    RUBY
    assert_equal "true\nfalse\n", outcome.out
    assert_equal STOP * 2, outcome.debug_log
    assert_equal 1, outcome.operations.grep(/\AapiMode_Shared_start\b/).size
  end

  def test_a_second_module_in_the_process_finds_the_sdk_running
    outcome = run_clean("load_plugin(18); load_plugin(17); p VelmarExt.shutdown, VelmarExt.shutdown")
    assert_equal "true\ntrue\n", outcome.out
    assert_includes outcome.log, "ERROR Failed to initialize application. Exiting."
    assert_match(/\AERROR Velmar Shared Start: ./, outcome.log.grep(/Shared Start/).first)
    assert_equal STOP * 2, outcome.debug_log
  end

  def test_a_process_that_ends_without_the_stop_ends_well
    outcome = run_clean(<<~RUBY)
      load_plugin(18)
      ExtDefinition.add(5, [], [])
      ExtStream.set_geometry_stream(5, "left over")
      VelmarExt.update_and_restart
    RUBY
    assert_equal 0, outcome.status.exitstatus
    assert_empty outcome.debug_log
  end

  def test_other_ways_out_keep_their_status
    { "exit 3" => 3, "abort" => 1, "exit! 4" => 4 }.each do |ending, status|
      outcome = VelmarTest.run_process("load_plugin(18); VelmarExt.update_and_restart; #{ending}")
      assert_equal status, outcome.status.exitstatus, ending
    end
  end

  def test_temporary_folders_are_emptied_when_the_process_ends
    ["", "VelmarExt.shutdown", "2.times { VelmarExt.shutdown }"].each do |ending|
      outcome = run_clean(<<~RUBY)
        load_plugin(18)
        temp = File.join(ENV["HOME"], "Documents/Velmar/SketchUp/temp")
        %w[previews textures].each { |folder| File.write(File.join(temp, folder, "file"), "x") }
        File.write(File.join(temp, "kept"), "x")
        #{ending}
        print Dir[File.join(temp, "*/file")].size
      RUBY
      assert_equal "2", outcome.out, "the folders are emptied at the end, not before"
      temp = outcome.documents("Velmar/SketchUp/temp")
      assert_equal %w[kept previews textures], Dir.children(temp).sort
      assert_empty Dir[File.join(temp, "{previews,textures}/*")]
    end
  end

  def test_commands_after_the_stop_answer_and_the_process_lives
    outcome = run_clean(<<~RUBY)
      #{File.read(File.expand_path('../../support/surface_table.rb', __dir__))}
      load_plugin(18)
      VelmarExt.shutdown
      samples = { "VelmarExt.set_camera_pos" => [[0, 0, 0], [0, 1, 0], [0, 0, 1]], "VelmarExt.set_camera_view" => [35.0, false],
                  "VelmarExt.set_scene_params" => ["{}"], "VelmarExt.set_edit_transform" => [SurfaceTable::MATRIX],
                  "VelmarExt.debug" => ["d"], "VelmarExt.log" => ["l", -1], "ExtDefinition.add" => [1, [], []],
                  "ExtDefinition.update" => [1, [], []], "ExtStream.set_geometry_stream" => [1, "n"],
                  "ExtStream.evaluate_stream" => ["{}"], "ExtDefinition.set_proxy" => [1, "p"],
                  "ExtInstance.add" => [1, 2, 3, SurfaceTable::MATRIX, [], true],
                  "ExtInstance.update" => [1, 2, 3, SurfaceTable::MATRIX, [], true] }
      talking = %w[VelmarExt.debug VelmarExt.log VelmarExt.shutdown ExtUtils.get_documents_folder]
      SurfaceTable.each_method do |klass, name, count|
        next if SurfaceTable::NOT_BUILT[klass]&.include?(name)
        method = "\#{klass}.\#{name}"
        answer = SurfaceTable.call(klass, name, *samples.fetch(method) { Array.new(count, 1) })
        next if talking.include?(method)
        puts "\#{method} answers \#{answer.inspect}" unless [false, 0, -1, ""].include?(answer)
      end
      puts "alive"
    RUBY
    assert_equal "alive\n", outcome.out
  end

  def test_a_failed_start_raises_nothing_and_defines_no_methods
    outcome = run_clean(<<~RUBY)
      require "fiddle"
      library = Fiddle.dlopen(File.join(ENV.fetch("VELMAR_LIB_DIR"), "libvelmar.so"))
      name = IO.popen(["nm", "-D", "--defined-only", library.respond_to?(:file_name) ? library.file_name : ""], err: File::NULL, &:read)
      symbol = name[/\\S*apiMode_Shared_start\\S*/] or abort "no start in the library"
      start = Fiddle::Function.new(library[symbol], [Fiddle::TYPE_VOIDP, Fiddle::TYPE_CHAR, Fiddle::TYPE_VOIDP, Fiddle::TYPE_VOIDP, Fiddle::TYPE_VOIDP], Fiddle::TYPE_CHAR)
      abort "the library does not start" if start.call("somebody else", 0, 0, 0, 0) & 0xff == 0
      load_plugin(18)
      p defined?(VelmarExt)
    RUBY
    assert_equal "nil\n", outcome.out
    assert_match(/\AERROR Velmar Shared Start: ./, outcome.log[-2])
    assert_equal "ERROR Failed to initialize application. Exiting.", outcome.log[-1]
  end
end
