# frozen_string_literal: true

require_relative 'host_support'

class NativeTest < Minitest::Test
  include HostSupport
  Native = VelmarHost::Native

  def surface_numbers(points, normals)
    Native.surface_numbers(points.flatten.pack('f*'), normals.flatten.pack('f*')).unpack('l*')
  end

  def test_points_at_one_place_share_a_surface_exactly_when_they_share_a_normal
    here = [1.0, 2.0, 3.0]
    there = [4.0, 5.0, 6.0]
    up = [0.0, 0.0, 1.0]
    side = [1.0, 0.0, 0.0]
    assert_equal [0, 0, 1, 0, 1], surface_numbers([here, there, here, here, here], [up, side, side, up, side])
  end

  def test_places_are_one_when_they_agree_to_a_micrometre
    inch = 1.0 / 0.0254
    near = 1.0 * inch + 2e-6
    assert_equal [0, 1], surface_numbers([[inch, 0, 0], [near, 0, 0]], [[0, 0, 1], [0, 1, 0]])
    assert_equal [0, 0], surface_numbers([[inch, 0, 0], [inch + 0.01, 0, 0]], [[0, 0, 1], [0, 1, 0]])
  end

  def test_more_normals_than_two_at_one_place_are_numbered_on
    normals = [[1, 0, 0], [0, 1, 0], [0, 0, 1], [-1, 0, 0], [0, 1, 0]]
    assert_equal [0, 1, 2, 3, 1], surface_numbers([[0, 0, 0]] * 5, normals)
  end

  def test_no_number_is_too_strange_for_a_place
    strange = [Float::NAN, Float::INFINITY, 3.0e38]
    assert_equal [0, 0], surface_numbers([strange, [1, 1, 1]], [[0, 0, 1]] * 2)
  end

  def test_lists_of_different_length_are_read_as_far_as_both_go
    assert_equal [0], surface_numbers([[0, 0, 0], [1, 1, 1]], [[0, 0, 1]])
    assert_equal [], surface_numbers([], [])
  end

  def test_the_outermost_points_hold_the_corners_of_a_filled_box
    inside = Array.new(500) { |i| [Math.sin(i), Math.cos(3 * i), Math.sin(7 * i)] }
    corners = [-2.0, 2.0].product([-3.0, 3.0], [-4.0, 4.0])
    found = Native.outermost_points((inside + corners).flatten.pack('d*')).unpack('d*').each_slice(3).to_a
    assert_equal corners.sort, (found & corners).sort
    assert_operator found.size, :<, 60
  end

  def test_nothing_has_no_outermost_points
    assert_equal '', Native.outermost_points('')
  end

  def test_wrong_types_raise_in_the_caller
    assert_raises(TypeError) { Native.surface_numbers(1, 2) }
    assert_raises(TypeError) { Native.read_scene(nil) }
    assert_raises(ArgumentError) { Native.read_scene("a\0b") }
    assert_raises(ArgumentError) { Native.outermost_points }
  end

  def test_what_is_read_survives_a_collection_at_every_chance
    path = write('m.obj', "o Name\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nusemtl a\nf 1/1 2/1 3/1\n")
    calm = Native.read_scene(path)
    GC.stress = true
    stressed = Native.read_scene(path)
    GC.stress = false
    assert_equal calm, stressed
    assert_equal 'Name', calm[:meshes].first[:name]
  ensure
    GC.stress = false
  end

  def test_a_file_that_cannot_be_read_raises_one_line
    path = write('broken.dae', '<COLLADA><library')
    message = assert_raises(RuntimeError) { Native.read_scene(path) }.message
    assert_equal 1, message.lines.size
    refute_includes message, path
  end
end
