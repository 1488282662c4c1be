# frozen_string_literal: true

require_relative 'host_support'
require_relative 'png_file'

# From a model file to a picture, in a process of its own.
class RenderTest < Minitest::Test
  include HostSupport

  WIDTH = 320
  HEIGHT = 180
  VIEW = ['--eye', '0,-100,0', '--target', '0,0,0', '--fov', '40'].freeze

  # A square that faces the camera: x from 20 to 30, z from 8 to 16.
  SQUARE = { points: [20, 0, 8, 30, 0, 8, 30, 0, 16, 20, 0, 16], normals: [0, -1, 0] * 4, surfaces: [0] * 4,
             uvs: [0, 0, 1], faces: [{ points: [0, 1, 2, 0, 2, 3], uvs: [0] * 6 }] }.freeze

  def render(content, *options, name: 'picture')
    model = content.is_a?(String) ? content : write("#{name}.json", content)
    picture = File.join(@folder, "#{name}.png")
    out, complaint, process = run_command(model, '-o', picture, '--size', "#{WIDTH}x#{HEIGHT}", '--samples', 8, *options)
    assert_equal ['', 0], [complaint, process.exitstatus]
    assert_match(/^Saved .*: #{WIDTH}x#{HEIGHT}, \d+ samples/, out)
    PngFile.new(picture)
  end

  # The view without the square: something stands behind the camera.
  def background(*options, **members)
    behind = SQUARE[:points].each_slice(3).flat_map { |x, _, z| [x, -500, z] }
    render(document(root: SQUARE.merge(points: behind), **members), *options, name: 'background')
  end

  # Where a box of x and z at y = 0 lies in the picture, for `half` inches from its middle to its upper edge.
  def expected_box(x_range, z_range, half)
    scale = HEIGHT / 2.0 / half
    [WIDTH / 2.0 + x_range[0] * scale, HEIGHT / 2.0 - z_range[1] * scale,
     WIDTH / 2.0 + x_range[1] * scale, HEIGHT / 2.0 - z_range[0] * scale]
  end

  def assert_box(expected, picture, background)
    actual = picture.difference_box(background)
    refute_nil actual, 'the square is not in the picture'
    assert_near expected, [actual[0], actual[1], actual[2] + 1, actual[3] + 1], 1.5
  end

  PERSPECTIVE = 100.0 * Math.tan(20.0 * Math::PI / 180.0)

  def test_the_picture_is_upright_and_unmirrored_and_the_field_of_view_is_vertical
    assert_box expected_box([20, 30], [8, 16], PERSPECTIVE), render(document(root: SQUARE), *VIEW), background(*VIEW)
  end

  def test_mirrored_and_nested_placements_are_where_they_belong
    mirrored = [-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]
    group = nothing.merge(id: 2, name: 'Group', instances: [instance(3, 1, transform: moved(0, 0, -20))])
    root = nothing.merge(instances: [instance(4, 2, transform: mirrored)])
    content = document(definitions: [SQUARE.merge(id: 1, name: 'Square', instances: []), group], root: root)
    assert_box expected_box([-30, -20], [-12, -4], PERSPECTIVE), render(content, *VIEW), background(*VIEW)
  end

  def test_hidden_placements_are_not_in_the_picture
    square = SQUARE.merge(id: 1, name: 'Square', instances: [])
    behind = moved(0, -500, 0)
    root = nothing.merge(instances: [instance(2, 1, hidden: true), instance(3, 1, transform: behind)])
    assert_nil render(document(definitions: [square], root: root), *VIEW).difference_box(background(*VIEW))
  end

  def test_a_pages_parallel_view_has_its_height
    page = { name: 'Elevation', eye: [0, -100, 0], target: [0, 0, 0], up: [0, 0, 1], parallel: true, height: 60 }
    picture = render(document(root: SQUARE, pages: [page]))
    assert_box expected_box([20, 30], [8, 16], 30.0), picture, background(pages: [page])
  end

  def test_every_reader_ends_in_the_same_picture
    inch = 0.0254
    corners = SQUARE[:points].each_slice(3).map { |x, y, z| [x * inch, z * inch, -y * inch].join(' ') }
    obj = write('square.obj', corners.map { |corner| "v #{corner}\n" }.join + "f 1 2 3\nf 1 3 4\n")
    assert_box expected_box([20, 30], [8, 16], PERSPECTIVE), render(obj, *VIEW, name: 'obj'), background(*VIEW)
  end

  def test_a_model_without_a_camera_fills_the_picture
    picture = render(document(root: SQUARE))
    center = picture.pixel(WIDTH / 2, HEIGHT / 2)
    assert_operator center.zip(picture.pixel(2, HEIGHT - 3)).map { |a, b| (a - b).abs }.max, :>, 12
  end

  def test_the_example_renders
    example = File.join(ROOT, 'examples/pavilion.json')
    picture = render(example)
    tones = (0...HEIGHT).step(9).flat_map { |y| (0...WIDTH).step(8).map { |x| picture.pixel(x, y).sum / 30 } }
    assert_operator tones.uniq.size, :>, 10
  end

  def test_exr_files_are_written_too
    picture = File.join(@folder, 'picture.exr')
    _, complaint, process = run_command(write('m.json', document), '-o', picture, '--size', '64x64', '--samples', 1, '-q')
    assert_equal ['', 0], [complaint, process.exitstatus]
    assert_equal [0x76, 0x2f, 0x31, 0x01], File.binread(picture, 4).bytes
  end

  def test_quiet_prints_nothing
    out, complaint, process = run_command(write('m.json', document), '-o', 'q.png', '--size', '32x32', '--samples', 1, '--quiet')
    assert_equal ['', '', 0], [out, complaint, process.exitstatus]
    assert File.file?(File.join(@folder, 'q.png'))
  end

  def test_a_time_limit_ends_in_good_order
    out, _, process = run_command(write('m.json', document), '-o', 't.png', '--size', '64x64', '--samples', 1_000_000,
                                  '--time', '0.3')
    assert_equal 0, process.exitstatus
    assert_operator out[/, (\d[\d,]*) samples? in/, 1].delete(',').to_i, :<, 1_000_000
  end

  def test_a_lost_texture_is_a_warning_and_the_picture_comes
    write('m.mtl', "newmtl a\nmap_Kd lost.png\n")
    model = write('m.obj', "mtllib m.mtl\nusemtl a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nf 1/1 2/1 3/1\n")
    _, complaint, process = run_command(model, '-o', 'w.png', '--size', '32x32', '--samples', 1)
    assert_equal ["velmar: warning: texture not found: lost.png\n", 0], [complaint, process.exitstatus]
  end

  def test_an_unreadable_texture_fails_and_the_picture_comes_all_the_same
    empty = write('empty.png', '')
    write('m.mtl', "newmtl a\nmap_Kd empty.png\n")
    model = write('m.obj', "mtllib m.mtl\nusemtl a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nf 1/1 2/1 3/1\n")
    _, complaint, process = run_command(model, '-o', 'w.png', '--size', '32x32', '--samples', 1)
    assert_equal ["velmar: texture cannot be read: #{empty}; the picture was saved without it\n", 1],
                 [complaint, process.exitstatus]
    assert_operator File.size(File.join(@folder, 'w.png')), :>, 0
  end

  # Starts the command, calls the block with each line that it prints, and answers its status and complaints.
  def run_and_watch(*arguments)
    environment = { 'HOME' => @folder, 'VELMAR_LIB_DIR' => LIBRARIES }
    Open3.popen3(environment, RbConfig.ruby, COMMAND, *arguments.map(&:to_s), chdir: @folder) do |input, out, complaints, process|
      input.close
      out.each_line { |line| yield line, process.pid }
      [process.value.exitstatus, complaints.read]
    end
  end

  def test_ctrl_c_saves_what_is_there
    asked = false
    lines = []
    result = run_and_watch(write('m.json', document), '-o', 'c.png', '--size', '200x100', '--samples', 1_000_000) do |line, pid|
      lines << line
      Process.kill('INT', pid) if line.start_with?('Rendering') && !asked
      asked ||= line.start_with?('Rendering')
    end
    assert_equal [0, ''], result
    assert_match(/^Saved c.png: 200x100/, lines.last)
    assert_equal [200, 100], PngFile.new(File.join(@folder, 'c.png')).then { |picture| [picture.width, picture.height] }
  end

  def test_ctrl_c_before_there_is_a_picture_saves_nothing
    points = Array.new(200_000) { |i| [i % 100, i / 100 % 100, i / 10_000] }.flatten
    content = document(root: triangle.merge(points: points, normals: [0, 0, 1] * 200_000, surfaces: [0] * 200_000))
    status, complaint = run_and_watch(write('m.json', content), '-o', 'n.png', '--samples', 1_000_000) do |line, pid|
      Process.kill('INT', pid) if line.start_with?('Reading')
    end
    assert_equal 130, status
    assert_one_line(/stopped before there was a picture/, complaint)
    refute File.exist?(File.join(@folder, 'n.png'))
  end
end
