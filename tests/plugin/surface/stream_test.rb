# frozen_string_literal: true

require_relative "../../support/mirror_models"

# The geometry stream, seen from Ruby, with what reaches the mesh.
class StreamTest < VelmarTest::MirrorTest
  VERTICES_PER_POLYGON = 189
  VERTICES = 190
  NORMALS = 80
  UVWS = 184
  VERTEX_INDICES = 120
  NORMAL_INDICES = 115
  UVW_INDICES = 119
  SLOTS = 114
  NAMES = 63

  # What the stream of the block, into a fresh definition, writes to the mesh.
  def counts_of(settings: "", accepted: true)
    id = add_definition
    ExtStream.set_geometry_stream(id, "mesh")
    mesh_counts(operations do
      yield
      assert_equal accepted, ExtStream.evaluate_stream(settings)
    end)
  end

  def add_point(x, y, z, normal = [0, 0, 1], surface = 1)
    assert_equal true, ExtStream.add_vertex(x, y, z)
    assert_equal true, ExtStream.add_normal(*normal, surface)
  end

  def test_every_call_of_a_good_stream_answers_true
    assert_equal true, ExtStream.set_geometry_stream(add_definition, "chair")
    assert_equal true, ExtStream.warmup_stream(3, 3)
    3.times { |i| add_point(i, i * i, 0.0) }
    assert_equal true, ExtStream.add_uvw(0.5, 0.5, 1.0)
    (1..3).each do |number|
      assert_equal true, ExtStream.add_vertex_index(number)
      assert_equal true, ExtStream.add_normal_index(number)
      assert_equal true, ExtStream.add_uvw_index(1)
    end
    assert_equal true, ExtStream.add_face(7, -1, 0, 1)
    lines = operations { assert_equal true, ExtStream.evaluate_stream("") }
    assert_includes lines, 'setName VELMAR_MESH:Mesh "chair"'
    assert_equal({ VERTICES_PER_POLYGON => 1, VERTICES => 3, VERTEX_INDICES => 3, NORMALS => 3, NORMAL_INDICES => 3,
                   UVWS => 1, UVW_INDICES => 3, SLOTS => 1, NAMES => 1 }, mesh_counts(lines))
  end

  def test_points_that_print_alike_in_metres_weld
    inch = INCHES_PER_METRE
    counts = counts_of do
      add_point(inch, 0, 0)
      add_point(inch * 1.0000002, 0, 0)
      add_point(inch * 1.000002, 0, 0)
    end
    assert_equal 2, counts[VERTICES]
  end

  def test_zeros_of_different_sign_do_not_weld
    assert_equal 2, counts_of { [0.0, -0.0].each { |x| add_point(x, 0.0, 0.0) } }[VERTICES]
    assert_equal 1, counts_of { [0.0, 0].each { |x| add_point(x, 0.0, 0.0) } }[VERTICES]
  end

  def test_normals_are_shared_within_a_surface_up_to_a_right_angle
    assert_equal 1, counts_of { [[0, 0, 1], [0, 0.6, 0.8], [0, 0, -1]].each { |n| add_point(0, 0, 0, n) } }[NORMALS]
    assert_equal 2, counts_of { [1, 2].each { |surface| add_point(0, 0, 0, [0, 0, 1], surface) } }[NORMALS]
    assert_equal 3, counts_of { [[0, 0, 1], [1, 0, 0], [0, 1, 0]].each { |n| add_point(0, 0, 0, n) } }[NORMALS]
  end

  def test_any_number_serves_as_coordinate
    counts = counts_of do
      add_point(1, 2.0, Rational(3, 1), [Rational(0), 0.0, 2**70], 1)
      add_point(2**70, -2**200, Float::INFINITY)
      add_point(Float::NAN, 0, 0)
      add_point(-Float::NAN, 0, 0)
    end
    assert_operator counts[VERTICES], :>=, 3
  end

  def test_a_failed_conversion_adds_nothing
    own_number = Class.new(Numeric) { def to_f = raise("no number today") }.new
    counts = counts_of do
      add_point(0, 0, 0)
      assert_raises(TypeError) { ExtStream.add_vertex(1, 2, "3") }
      assert_raises(TypeError) { ExtStream.add_vertex(1, nil, 3) }
      assert_raises(RuntimeError) { ExtStream.add_vertex(1, 2, own_number) }
      assert_raises(TypeError) { ExtStream.add_normal(0, 0, 1, "one") }
      assert_raises(RangeError) { ExtStream.add_normal(0, 0, 1, 2**40) }
      assert_raises(TypeError) { ExtStream.add_uvw(0, 0, Object.new) }
    end
    assert_equal [1, 1, 0], counts.values_at(VERTICES, NORMALS, UVWS)
  end

  def test_a_conversion_may_leave_by_throw
    thrower = Class.new(Numeric) { def to_f = throw(:away, :thrown) }.new
    assert_equal :thrown, catch(:away) { ExtStream.add_vertex(1, 2, thrower) }
  end

  def test_numbers_outside_the_lists_answer_false_and_the_next_stream_is_right
    bad = counts_of(accepted: true) do
      assert_equal false, ExtStream.add_vertex_index(1)
      assert_equal false, ExtStream.add_normal_index(1)
      add_point(0, 0, 0)
      [0, 2, 2**32 - 1, -1, -2**31].each do |number|
        assert_equal false, ExtStream.add_vertex_index(number), number.to_s
        assert_equal false, ExtStream.add_normal_index(number), number.to_s
      end
      [0, 1, -1, -2**31, 2**31 - 1].each { |number| assert_equal false, ExtStream.add_uvw_index(number), number.to_s }
    end
    assert_equal [0, 0, 0], bad.values_at(VERTEX_INDICES, NORMAL_INDICES, UVW_INDICES)
    assert_equal 1, bad[VERTICES]

    good = counts_of { stream_triangle(0) }
    assert_equal [3, 3, 3, 3], good.values_at(VERTICES, VERTEX_INDICES, NORMAL_INDICES, UVW_INDICES)
  end

  def test_faces_outside_the_triangles_fill_what_is_valid
    counts = counts_of do
      3.times { |i| add_point(i, i * i, 0) }
      (1..3).each { |number| ExtStream.add_vertex_index(number) }
      [[5, 9], [-7, 2**31 - 1], [1, 0], [-2**31, -2**31]].each_with_index do |(first, last), face|
        assert_equal true, ExtStream.add_face(face, -1, first, last)
      end
    end
    assert_equal 1, counts[SLOTS]
  end

  def test_a_corner_count_that_is_no_multiple_of_three_is_cut
    counts = counts_of do
      add_point(0, 0, 0)
      5.times { ExtStream.add_vertex_index(1) }
    end
    assert_equal [1, 5, 1], counts.values_at(VERTICES_PER_POLYGON, VERTEX_INDICES, SLOTS)
  end

  def test_a_point_without_its_normal_shows_the_first_one
    counts = counts_of do
      add_point(0, 0, 0)
      ExtStream.add_vertex(1, 0, 0)
      assert_equal true, ExtStream.add_normal_index(2)
    end
    assert_equal [2, 1, 1], counts.values_at(VERTICES, NORMALS, NORMAL_INDICES)
  end

  def test_surface_ids_wrap
    counts = counts_of { [[0, 0, 1], [1, 0, 0]].each { |normal| add_point(0, 0, 0, normal, 2**31 - 1) } }
    assert_equal 2, counts[NORMALS]
  end

  def test_a_texture_coordinate_without_depth_lives
    assert_equal 1, counts_of { add_point(0, 0, 0) && ExtStream.add_uvw(1.0, 1.0, 0) }[UVWS]
  end

  def test_a_reservation_that_cannot_be_had_is_ignored
    counts = counts_of do
      [-1, 2**32 - 1].each { |count| assert_equal true, ExtStream.warmup_stream(count, count) }
      stream_triangle(0)
    end
    assert_equal 3, counts[VERTICES]
  end

  def test_an_empty_stream_empties_the_definition
    id = add_meshed
    lines = operations { assert_equal false, stream(id, 0) }
    assert_equal ["destroy VELMAR_MESH:mesh"], lines
    assert_empty(operations { assert_equal false, stream(id, 0) })
    assert_equal true, stream(id, 1)
  end

  def test_a_stream_for_nothing_is_cleared
    [fresh_id, -1, add_instance(1)].each { |id| assert_equal false, stream(id, 5), id.to_s }
    assert_equal 3, counts_of { stream_triangle(0) }[VERTICES]
  end

  def test_what_an_abandoned_stream_left_is_carried_into_the_next
    ExtStream.set_geometry_stream(add_definition, "abandoned")
    add_point(1, 2, 3)
    assert_equal 2, counts_of { add_point(4, 5, 6) }[VERTICES]
    assert_equal 1, counts_of { add_point(4, 5, 6) }[VERTICES]
  end

  def test_settings_are_written_with_their_defaults
    lines = operations { assert_equal true, stream(add_definition, 1, settings: "{}") }
    settings = lines.filter_map { |line| line[/\Aset VELMAR_MESH:\S+ (\d+ [^\[]+) false\z/, 1] }
    assert_equal ["40 true", "41 89", "163 0", "161 0", "153 2", "162 0"], settings
    assert_equal 3, mesh_counts(lines)[NORMALS]
  end

  def test_a_mesh_without_smoothing_gets_no_normals
    counts = counts_of(settings: '{"smoothing": false, /* flat */ "level": 1}') { stream_triangle(0) }
    assert_equal [nil, nil, 3], counts.values_at(NORMALS, NORMAL_INDICES, VERTICES)
  end

  def test_bad_settings_count_as_none_and_wrong_ones_raise
    assert_equal 3, counts_of(settings: "{ no JSON") { stream_triangle(0) }[VERTICES]
    id = add_definition
    ['{"level": "many"}', '{"smoothing": []}', "[1]", '{"scheme": 1e300}'].each do |settings|
      assert_raises(RuntimeError, settings) { stream(id, 1, settings: settings) }
    end
    assert_equal 3, counts_of { stream_triangle(0) }[VERTICES], "the stream was cleared"
    assert_equal true, stream(id, 1)
  end

  def test_a_name_may_be_of_any_kind_of_text
    ["", "Stuhl – ü", "a\nb", "x" * 10_000].each { |name| assert_equal true, stream(add_definition, 1, name: name) }
    assert_raises(ArgumentError) { ExtStream.set_geometry_stream(1, "a\0b") }
  end

  def test_the_root_takes_a_stream_of_its_own
    assert_equal true, stream(ROOT, 2)
    assert_equal [1], placement_counts(apply)
    assert_equal false, stream(ROOT, 0)
    assert_empty placement_counts(apply)
  end

  def test_many_points_in_any_order_under_stress
    GC.stress = true
    counts = counts_of { 5.times { |triangle| stream_triangle(triangle) } }
    assert_equal [15, 15, 5], counts.values_at(VERTICES, VERTEX_INDICES, VERTICES_PER_POLYGON)
  end
end
