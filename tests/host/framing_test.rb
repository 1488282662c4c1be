# frozen_string_literal: true

require_relative 'host_support'

class FramingTest < Minitest::Test
  include HostSupport
  Transform = VelmarHost::Transform

  def model(**members)
    read(write('m.json', document(**members)))
  end

  # A box of 40 by 20 by 10 as a definition.
  def box
    points = [0, 40].product([0, 20], [0, 10])
    triangle.merge(id: 1, name: 'Box', points: points.flatten, normals: [0, 0, 1] * 8, surfaces: [0] * 8,
                   faces: [{ points: [0, 1, 2, 3, 4, 5, 6, 7, 0], uvs: [0] * 9 }])
  end

  # Where points lie in the picture: -1 to 1 across and upwards.
  def seen(camera, points, aspect)
    forward = Transform.unit(Transform.difference(camera.target, camera.eye))
    right = Transform.unit(Transform.cross(forward, camera.up))
    up = Transform.cross(right, forward)
    half = Math.tan(camera.fov * Math::PI / 360)
    points.map do |point|
      sight = Transform.difference(point, camera.eye)
      depth = Transform.dot(sight, forward)
      assert_operator depth, :>, 0
      [Transform.dot(sight, right) / (depth * half * aspect), Transform.dot(sight, up) / (depth * half)]
    end
  end

  def test_the_model_just_fills_the_picture
    [[1.6, 35.0], [0.5, 35.0], [1.0, 90.0], [2.0, 5.0]].each do |aspect, fov|
      placed = model(definitions: [box], root: nothing.merge(instances: [instance(2, 1, transform: moved(1000, -50, 7))]))
      camera = VelmarHost::Framing.camera(VelmarHost::Extent.new(placed), aspect: aspect, fov: fov)
      across, upwards = seen(camera, placed_points(placed), aspect).transpose
      largest = [across, upwards].map { |side| side.map(&:abs).max }
      assert_in_delta 1.0 / VelmarHost::Framing::MARGIN, largest.max, 1e-6, "aspect #{aspect}, fov #{fov}"
      assert_in_delta 0.0, across.min + across.max, 1e-6
      assert_in_delta 0.0, upwards.min + upwards.max, 1e-6
    end
  end

  def test_the_view_comes_from_the_front_right_and_above
    camera = VelmarHost::Framing.camera(VelmarHost::Extent.new(model(root: box)), aspect: 1.0)
    forward = Transform.difference(camera.target, camera.eye)
    assert_operator forward[0], :<, 0
    assert_operator forward[1], :>, 0
    assert_operator forward[2], :<, 0
    assert_equal [[0.0, 0.0, 1.0], 35.0, false], [camera.up, camera.fov, camera.parallel]
  end

  def elevation_and_azimuth(size)
    points = [0, size[0]].product([0, size[1]], [0, size[2]]).flatten
    root = box.merge(points: points)
    camera = VelmarHost::Framing.camera(VelmarHost::Extent.new(model(root: root)), aspect: 1.0)
    x, y, z = Transform.difference(camera.target, camera.eye)
    [Math.atan2(-z, Math.hypot(x, y)), Math.atan2(-x, y)].map { |angle| (angle * 180 / Math::PI).round(6) }
  end

  def test_flat_things_are_seen_from_above_and_high_ones_near_eye_height
    assert_equal [36.0, 35.0], elevation_and_azimuth([40, 30, 0])
    assert_equal [25.0, 35.0], elevation_and_azimuth([40, 30, 12.5])
    assert_equal [14.0, 35.0], elevation_and_azimuth([40, 30, 90])
  end

  def test_what_is_deeper_than_wide_shows_its_long_side
    assert_equal [36.0, 55.0], elevation_and_azimuth([30, 40, 0])
  end

  def test_only_what_is_visible_counts
    far = box[:points].each_slice(3).flat_map { |x, y, z| [x + 900, y, z] }
    hidden_face = { points: [0, 1, 2, 3, 4, 5, 6, 7, 0], uvs: [0] * 9, hidden: true }
    faces = [hidden_face.merge(points: [8, 9, 10, 11, 12, 13, 14, 15, 8]), { points: [0, 1, 2, 3, 4, 5, 6, 7, 0], uvs: [0] * 9 }]
    root = box.merge(points: box[:points] + far, normals: [0, 0, 1] * 16, surfaces: [0] * 16, faces: faces,
                     instances: [instance(2, 1, transform: moved(5000, 0, 0), hidden: true)])
    extent = VelmarHost::Extent.new(model(definitions: [box], root: root))
    assert_equal [[0, 0, 0], [40, 20, 10]], extent.corners
    assert_equal [20, 10, 5], extent.center
  end

  def test_nested_placements_count_where_they_end_up
    group = nothing.merge(id: 3, name: 'Group', instances: [instance(4, 1, transform: moved(100, 0, 0))])
    mirrored = [-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 50, 1]
    root = nothing.merge(instances: [instance(5, 3, transform: mirrored)])
    extent = VelmarHost::Extent.new(model(definitions: [box, group], root: root))
    assert_equal [[-140, 0, 50], [-100, 20, 60]], extent.corners
  end

  def test_thousands_of_placements_are_framed_at_once
    instances = Array.new(10_000) { |i| instance(10 + i, 1, transform: moved(50 * (i % 100), 50 * (i / 100), 0)) }
    placed = model(definitions: [box], root: nothing.merge(instances: instances))
    assert_equal [[0, 0, 0], [4990, 4970, 10]], VelmarHost::Extent.new(placed).corners
  end
end

class CameraFacingTest < Minitest::Test
  include HostSupport
  Transform = VelmarHost::Transform

  def facing_model(instances, **members)
    definition = triangle.merge(id: 1, name: 'Person', always_faces_camera: true)
    read(write('m.json', document(definitions: [definition, *members.delete(:definitions)],
                                  root: nothing.merge(instances: instances))))
  end

  def turned(model, eye)
    VelmarHost::CameraFacing.new(eye).turn(model.root)
    model
  end

  def test_the_front_looks_at_the_eye_and_the_person_stays_upright
    model = turned(facing_model([instance(2, 1, transform: moved(10, 10, 0))]), [110.0, 10.0, 300.0])
    transform = model.root.instances.first.transform
    assert_near [0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 10, 0, 1], transform, 1e-12
    assert_near [11, 10, 0], Transform.point(transform, [0, -1, 0]), 1e-12
  end

  def test_sizes_and_mirrors_are_kept
    stretched = [-2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1]
    transform = turned(facing_model([instance(2, 1, transform: stretched)]), [0.0, 50.0, 0.0]).root.instances.first.transform
    assert_near [2, 0, 0, 0, 0, -3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1], transform, 1e-12
    assert Transform.mirrored?(transform)
  end

  def test_inside_a_turned_group_the_eye_is_still_met
    group = nothing.merge(id: 3, name: 'Group', instances: [instance(4, 1)])
    quarter = [0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 20, 0, 0, 1]
    model = turned(facing_model([instance(5, 3, transform: quarter)], definitions: [group]), [20.0, -80.0, 30.0])
    outer = model.root.instances.first
    world = Transform.product(outer.definition.instances.first.transform, outer.transform)
    assert_near [20, -1, 0], Transform.point(world, [0, -1, 0]), 1e-12
  end

  def test_an_eye_straight_above_turns_nothing
    model = turned(facing_model([instance(2, 1)]), [0.0, 0.0, 100.0])
    assert_near Transform::IDENTITY, model.root.instances.first.transform, 0
  end
end
