# frozen_string_literal: true

require 'minitest/autorun'
require 'open3'

# The reference page of node types, as the program prints it and as it stands in docs/.
class NodeReferenceTest < Minitest::Test
  ROOT = File.expand_path('../..', __dir__)
  LIBRARIES = ENV.fetch('VELMAR_LIB_DIR', File.join(ROOT, 'build/lib'))
  PROGRAM = File.join(LIBRARIES, '../bin/velmar-node-reference')

  PIN_CELLS = 11 # nine columns between what stands before the first and behind the last bar

  def page
    @page ||= begin
      out, complaint, status = Open3.capture3(PROGRAM)
      assert_equal ['', 0], [complaint, status.exitstatus]
      out.force_encoding(Encoding::UTF_8)
    end
  end

  def section(title)
    page[/^### #{Regexp.escape(title)}\n(.*?)(?=^##|\z)/m, 1] or flunk "no section '#{title}'"
  end

  def row(title, pin)
    section(title).lines.find { |line| line.start_with?("| `#{pin}` |") }&.chomp
  end

  def test_the_page_in_docs_is_up_to_date
    stands = File.read(File.join(ROOT, 'docs/nodes.md'), encoding: Encoding::UTF_8)
    assert stands == page, "docs/nodes.md is stale; './velmar docs' writes it anew"
  end

  def test_each_node_type_of_the_sdk_has_a_section
    header = File.read(File.join(ROOT, 'sdk/include/velmar/node_types.h'))
    numbers = header.scan(/^ *NODE_\w+ = (\d+),/).flatten.map(&:to_i) - [0]
    assert_operator numbers.size, :>, 30
    assert_empty numbers - page.scan(/^`VELMAR_\w+`, number (\d+), /).flatten.map(&:to_i)
  end

  def test_no_section_stands_twice
    titles = page.scan(/^###? (.*)/).flatten
    assert_equal titles.uniq, titles
  end

  def test_a_row_tells_all_of_a_pin
    assert_equal '| `fov` | 53 | Field of view | float | 45 | 0.01 to 179 | 1 to 150 | `VELMAR_FLOAT` | ' \
                 'Horizontal, degrees |', row('Thin lens camera', 'fov')
    assert_equal '| `panorama_mode` | 20 | Mode | enum | 0 | 0 Spherical, 1 Cylindrical, 2 Cube |  | `VELMAR_ENUM` | ' \
                 'What the picture is wrapped on |', row('Panoramic camera', 'panorama_mode')
    assert_match(/\| int2 \| 1000 600 \| 1 to 65536 \|/, row('Film settings', 'resolution'))
    assert_match(/\| texture \| 0.7 0.7 0.7 \|  \|  \| `VELMAR_RGB` \|/, row('Diffuse material', 'diffuse'))
    assert_match(/\| texture \| 1 \| 0 to 1 \| 0 to 1 \| `VELMAR_FLOAT` \|/, row('Diffuse material', 'opacity'))
    assert_match(/\| transform 2D \| identity \|/, row('RGB image', 'uv_transform'))
    assert_match(/\| texture \|  \|  \|  \|  \|/, row('Diffuse material', 'bump'))
    assert_match(/\| material \|  \|  \|  \| \(`VELMAR_GLOSSY`\) \|/, row('Mix material', 'material_1'))
  end

  def test_attributes_and_pins_that_grow_are_told
    assert_match(/\| 41 \| float \| 89 \|/, row('Mesh', 'smoothing_angle'))
    assert_match(/\| 190 \| float3 array \|  \|/, row('Mesh', 'vertices'))
    assert_match(/\| 124 \| bool \| true \|/, row('RGB image', 'reload'))
    assert_match(/\| 139 \| float3 \| 1 1 1 \|/, row('3D transform', 'scale'))
    assert_includes section('Geometry group'), 'More pins of the kind geometry stand behind: as many as its `pin_count`'
    assert_includes section('Material map'), 'More pins of the kind material stand behind: one for each'
  end

  def test_each_kind_of_pin_tells_what_may_stand_on_it
    assert_includes page, "| camera | 8 | `VELMAR_THINLENS`, `VELMAR_PANORAMIC` |\n"
    kinds = page.scan(/^\| (\w[\w ]*) \| \d+ \| `VELMAR_/).flatten
    cells = page.lines.grep(/^\| `/).map { |line| line.split('|').map(&:strip) }
    used = cells.select { |row| row.size == PIN_CELLS }.map { |row| row[4].sub(/ ?\dD?\z/, '') }.uniq
    assert_includes used, 'emission'
    assert_empty used - kinds
  end
end
