# frozen_string_literal: true

require "fileutils"
require "minitest/autorun"
require "tmpdir"
require_relative "borders"
require_relative "layers"
require_relative "source_tree"

ROOT = File.expand_path("../..", __dir__)
LIBRARIES = ENV.fetch("VELMAR_LIB_DIR", File.join(ROOT, "build/lib"))

# The rules of docs/architecture.md, held against the tree itself.
class LayeringTest < Minitest::Test
  def test_the_plugin_includes_only_what_stands_below
    assert_empty plugin_layers.upward_includes
  end

  def test_the_engine_includes_only_what_stands_below
    assert_empty engine_layers.upward_includes
  end

  def test_no_modules_of_the_plugin_include_each_other
    assert_empty plugin_layers.cycles
  end

  def test_no_modules_of_the_engine_include_each_other
    assert_empty engine_layers.cycles
  end

  def test_each_layer_that_is_listed_has_a_folder
    assert_empty plugin_layers.missing_folders
    assert_empty engine_layers.missing_folders
  end

  def test_the_plugin_knows_no_engine
    assert_empty borders.plugin_knows_no_engine
  end

  def test_the_engine_knows_neither_plugin_nor_its_libraries
    assert_empty borders.engine_knows_neither_plugin_nor_its_libraries
  end

  def test_ruby_stays_at_the_edge
    assert_empty borders.ruby_stays_at_the_edge
  end

  def test_the_host_stays_outside
    assert_empty borders.host_stays_outside
  end

  def test_the_sdk_includes_only_itself
    assert_empty borders.sdk_includes_only_itself
  end

  def test_the_sdk_holds_no_bodies
    assert_empty borders.sdk_holds_no_bodies
  end

  def test_module_files_export_their_three_entries_and_nothing_else
    %w[16 17 18].each do |generation|
      assert_empty borders.module_exports(File.join(LIBRARIES, "velmarsu#{generation}.so"))
    end
  end

  private

  def plugin_layers
    layers("src/plugin", "## Layers of the plug-in")
  end

  def engine_layers
    layers("src/engine", "## Layers of the engine")
  end

  def layers(part, heading)
    page = File.read(File.join(ROOT, "docs/architecture.md"), encoding: "UTF-8")
    Layers.new(SourceTree.new(ROOT), part, Layers.read(page, heading))
  end

  def borders
    Borders.new(SourceTree.new(ROOT))
  end
end

# Each rule, held against a small tree that breaks it: a rule that cannot fail proves nothing.
class BrokenRulesTest < Minitest::Test
  def setup
    @root = Dir.mktmpdir("velmar-layering")
  end

  def teardown
    FileUtils.remove_entry(@root)
  end

  def test_an_include_that_goes_up_is_found
    plant("src/plugin/utils/a.cpp", %(#include "plugin/sketchup/b.h"\n))
    plant("src/plugin/sketchup/b.h", "")
    assert_equal ["src/plugin/utils/a.cpp:1 includes plugin/sketchup/b.h: 'utils' stands below 'sketchup'"],
                 layers(%w[utils sketchup]).upward_includes
  end

  def test_an_include_that_goes_down_is_fine
    plant("src/plugin/utils/a.h", "")
    plant("src/plugin/sketchup/b.cpp", %(#include "plugin/utils/a.h"\n))
    assert_empty layers(%w[utils sketchup]).upward_includes
  end

  def test_an_include_that_goes_up_by_a_relative_path_is_found
    plant("src/plugin/utils/deep/a.cpp", %(#include "../../sketchup/b.h"\n))
    plant("src/plugin/sketchup/b.h", "")
    assert_equal 1, layers(%w[utils sketchup]).upward_includes.size
  end

  def test_the_ruby_surface_stands_above_the_folder_that_holds_it
    plant("src/plugin/utils/a.cpp", %(#include "plugin/utils/a_ruby.h"\n))
    plant("src/plugin/utils/a_ruby.h", %(#include "plugin/utils/a.h"\n))
    plant("src/plugin/utils/a.h", "")
    assert_equal 1, layers(%w[utils surface]).upward_includes.size
  end

  def test_a_folder_that_no_list_names_is_found
    plant("src/plugin/attic/a.cpp", "")
    assert_equal ["src/plugin/attic is in no list of layers"], layers(%w[utils]).upward_includes
  end

  def test_a_source_beside_the_folders_may_include_all_and_be_included_by_none
    plant("src/plugin/main.cpp", %(#include "plugin/utils/a.h"\n))
    plant("src/plugin/main.h", "")
    plant("src/plugin/utils/a.h", %(#include "plugin/main.h"\n))
    assert_equal ["src/plugin/utils/a.h:1 includes plugin/main.h: 'utils' stands below 'the sources beside the folders'"],
                 layers(%w[utils]).upward_includes
  end

  def test_a_layer_without_a_folder_is_found
    plant("src/plugin/utils/a.h", "")
    assert_equal ["src/plugin/attic is listed and not there"], layers(%w[utils attic surface]).missing_folders
  end

  def test_a_circle_of_three_modules_is_found
    plant("src/plugin/a/a.h", %(#include "plugin/b/b.h"\n))
    plant("src/plugin/b/b.h", %(#include "plugin/c/c.h"\n))
    plant("src/plugin/c/c.h", %(#include "plugin/a/a.h"\n))
    plant("src/plugin/d/d.h", %(#include "plugin/a/a.h"\n))
    assert_equal ["src/plugin: a, b, c include each other"], layers([]).cycles
  end

  def test_a_page_without_the_list_or_with_a_gap_in_it_is_refused
    assert_raises(ArgumentError) { Layers.read("# A page\n", "## Layers") }
    assert_raises(ArgumentError) { Layers.read("## Layers\nnone yet\n", "## Layers") }
    assert_raises(ArgumentError) { Layers.read("## Layers\n1. `a`: x\n3. `b`: y\n", "## Layers") }
    assert_equal %w[a b], Layers.read("## Layers\n1. `a`: x\n   and y\n2. `b`: z\n## Next\n1. `c`: w\n", "## Layers")
  end

  def test_a_commented_include_does_not_count
    plant("src/plugin/utils/a.cpp", %(// #include "engine/graph/b.h"\n/*\n#include "engine/graph/b.h"\n*/\n))
    assert_empty borders.plugin_knows_no_engine
  end

  def test_a_plugin_that_knows_the_engine_or_the_host_is_found
    plant("src/plugin/utils/a.cpp", %(#include "engine/graph/b.h"\n#include <host/ext/c.h>\n#include <velmar/node.h>\n))
    assert_equal 2, borders.plugin_knows_no_engine.size
  end

  def test_an_engine_that_knows_who_uses_it_is_found
    plant("src/engine/graph/a.cpp", %(#include "plugin/b.h"\n#include <ruby.h>\n#include <json/value.h>\n) +
                                    %(#include <glog/logging.h>\n#include <ruby/encoding.h>\n#include <vector>\n))
    assert_equal 5, borders.engine_knows_neither_plugin_nor_its_libraries.size
  end

  def test_ruby_away_from_the_edge_is_found
    plant("src/plugin/sketchup/a.cpp", "#include <ruby.h>\n")
    plant("src/plugin/sketchup/a_ruby.cpp", "#include <ruby.h>\n")
    plant("src/plugin/ruby/b.h", "#include <ruby.h>\n")
    plant("sdk/include/velmar/c.h", "#include <ruby/version.h>\n")
    assert_equal ["sdk/include/velmar/c.h:1 includes ruby/version.h", "src/plugin/sketchup/a.cpp:1 includes ruby.h"],
                 borders.ruby_stays_at_the_edge
  end

  def test_ruby_that_comes_in_by_way_of_another_header_is_found
    plant("src/plugin/ruby/b.h", "#include <ruby.h>\n")
    plant("src/plugin/ruby/plain.h", "")
    plant("src/plugin/utils/c.h", %(#include "plugin/ruby/b.h"\n#include "plugin/utils/c.h"\n))
    plant("src/plugin/sketchup/a.cpp", %(#include "plugin/utils/c.h"\n#include "plugin/ruby/plain.h"\n))
    assert_equal ["src/plugin/sketchup/a.cpp:1 includes plugin/utils/c.h", "src/plugin/utils/c.h:1 includes plugin/ruby/b.h"],
                 borders.ruby_stays_at_the_edge.uniq - ["src/plugin/utils/c.h:2 includes plugin/utils/c.h"]
  end

  def test_a_host_that_reaches_inside_is_found
    plant("host/ext/a.cpp", %(#include "plugin/utils/b.h"\n#include "engine/graph/c.h"\n) +
                            %(#include "engine/host/engine_host.h"\n#include <ruby.h>\n))
    assert_equal 2, borders.host_stays_outside.size
  end

  def test_an_sdk_header_that_needs_others_is_found
    plant("sdk/include/velmar/a.h", %(#include <velmar/b.h>\n#include <cstdint>\n#include "plugin/c.h"\n) +
                                    "#include <json/value.h>\n#include <unistd.h>\n")
    assert_equal 3, borders.sdk_includes_only_itself.size
  end

  def test_a_function_body_in_an_sdk_header_is_found
    ["inline int f(int a) { return a; }",
     "struct S {\n  int f() const noexcept { return 1; }\n};",
     "struct S {\n  S(int a) : a_(a), b_{1} {}\n  int a_, b_;\n};",
     "auto f() -> int {\n  return 1;\n}",
     "EXPORT int f(\n    int a,\n    int b)\n{\n}"].each do |text|
      plant("sdk/include/velmar/a.h", "// f() {}\n#{text}\n")
      assert_equal 1, borders.sdk_holds_no_bodies.size, text
    end
  end

  def test_declarations_and_defaults_are_no_bodies
    plant("sdk/include/velmar/a.h", <<~HEADER)
      #define EXPORT __attribute__((visibility("default")))
      class EXPORT A { public: A(const A&) = delete; protected: A() = default; };
      template <typename T> struct B { T x{}, y{}; T m[3][4]{}; friend bool operator==(const B&, const B&) = default; };
      static_assert(sizeof(int) == 4 && (1 == 1));
      enum C : int { D = 1 };  // f() { }
      struct E { void (*callback)(int); int n; };
    HEADER
    assert_empty borders.sdk_holds_no_bodies
  end

  def test_a_library_that_exports_more_or_is_not_there_is_found
    assert_match(/exports .*ApiNode/, borders.module_exports(File.join(LIBRARIES, "libvelmar.so")).join)
    assert_equal 1, borders.module_exports(File.join(@root, "none.so")).size
  end

  private

  def plant(file, text)
    path = File.join(@root, file)
    FileUtils.mkdir_p(File.dirname(path))
    File.write(path, text)
  end

  def layers(names)
    Layers.new(SourceTree.new(@root), "src/plugin", names)
  end

  def borders
    Borders.new(SourceTree.new(@root))
  end
end
