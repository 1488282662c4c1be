# frozen_string_literal: true

require_relative "../../support/velmar_test_helper"

class LogTest < VelmarTest::PluginTest
  LOGS = File.join(VelmarTest::HOME, "Documents/Velmar/SketchUp/logs")

  def debug_lines
    File.readlines(File.join(LOGS, "debug-log.txt"), chomp: true)
  end

  def message_lines
    Dir[File.join(LOGS, "VelmarSketchup*")].flat_map { |file| File.readlines(file, chomp: true) }
  end

  def ruby_messages
    message_lines.filter_map { |line| line[/\] Ruby: (.*)\z/, 1] }
  end

  def test_debug_writes_a_line_with_process_thread_and_time
    assert_same true, VelmarExt.debug("a remark")
    line = debug_lines.last
    assert_match(/\AP\h{8} T\h{16} \d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} a remark\z/, line)
    assert_equal Process.pid, line[1, 8].to_i(16)
  end

  def test_debug_refuses_a_text_with_a_zero_byte
    assert_raises(ArgumentError) { VelmarExt.debug("a\0b") }
  end

  def test_debug_takes_the_bytes_as_they_are
    VelmarExt.debug("gr\u00fcn \xff".b)
    assert_equal "gr\u00fcn \xff".b, debug_lines.last.b[-"gr\u00fcn \xff".bytesize..]
  end

  def test_processes_of_one_user_tell_themselves_apart
    home = Dir.mktmpdir("shared-", VelmarTest::HOME)
    2.times { VelmarTest.run_process("load_plugin(18); VelmarExt.debug('who')", home: home) }
    lines = File.readlines(File.join(home, "Documents/Velmar/SketchUp/logs/debug-log.txt"))
    assert_equal 2, lines.size
    refute_equal lines[0][0, 9], lines[1][0, 9]
  end

  def test_only_levels_below_zero_reach_the_log
    assert_same true, VelmarExt.log("below", -1)
    assert_same true, VelmarExt.log("far below", -2**31)
    [0, 1, 5, 2**31 - 2, 2**31 - 1].each { |level| assert_same true, VelmarExt.log("at #{level}", level) }
    assert_equal ["below", "far below"], ruby_messages.last(2)
    assert_empty ruby_messages.grep(/\Aat/)
  end

  def test_a_message_of_ruby_is_an_info_line_with_its_source
    VelmarExt.log("where from", -1)
    assert_match(/\AI\d{8} [\d:.]+ +\d+ app_manager_ruby\.cpp:\d+\] Ruby: where from\z/, message_lines.last)
  end

  def test_a_message_that_is_not_written_is_not_converted
    asked = 0
    message = Object.new
    message.define_singleton_method(:to_str) { (asked += 1).to_s }
    assert_same true, VelmarExt.log(message, 0)
    assert_same true, VelmarExt.log(17, 3)
    assert_equal 0, asked
    VelmarExt.log(message, -1)
    assert_equal 1, asked
    assert_equal "1", ruby_messages.last
  end

  def test_a_message_that_is_no_text_leaves_no_line
    before = message_lines.size
    assert_raises(TypeError) { VelmarExt.log(17, -1) }
    assert_raises(ArgumentError) { VelmarExt.log("a\0b", -1) }
    assert_equal before, message_lines.size
  end

  def test_the_level_is_read_before_the_message
    error = assert_raises(TypeError) { VelmarExt.log(17, "level") }
    assert_match(/String into Integer/, error.message)
  end

  def test_one_file_holds_all_messages_and_there_is_no_link_beside_it
    VelmarExt.log("a line", -1)
    files = Dir[File.join(LOGS, "*")] - [File.join(LOGS, "debug-log.txt")]
    assert_equal 1, files.size
    assert_match(/VelmarSketchup/, files.first)
    refute File.symlink?(files.first)
  end
end
