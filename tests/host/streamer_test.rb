# frozen_string_literal: true

require_relative 'host_support'

class StreamerTest < Minitest::Test
  include HostSupport

  SETTINGS = VelmarHost::Streamer::MESH_SETTINGS
  IDENTITY = VelmarHost::Transform::IDENTITY

  def setup
    super
    @recorder = Recorder.new
  end

  def stream(content, **options)
    model = read(write('m.json', content))
    streamer = VelmarHost::Streamer.new(model, ext: @recorder.namespace, **options)
    streamer.stream
    streamer.apply
    streamer
  end

  def triangle_calls(id, name, material: -1)
    points = [[0, 0, 0], [10, 0, 0], [0, 0, 10]].flat_map do |point|
      [[:ExtStream, :add_vertex, *point], [:ExtStream, :add_normal, 0, -1, 0, 0]]
    end
    corners = [1, 2, 3].flat_map do |n|
      [[:ExtStream, :add_vertex_index, n], [:ExtStream, :add_normal_index, n], [:ExtStream, :add_uvw_index, 1]]
    end
    [[:ExtStream, :set_geometry_stream, id, name], [:ExtStream, :warmup_stream, 3, 3], *points, [:ExtStream, :add_uvw, 0, 0, 1],
     *corners, [:ExtStream, :add_face, 1, material, 0, 1], [:ExtStream, :evaluate_stream, SETTINGS]]
  end

  def test_loose_geometry_goes_to_the_root
    stream(document)
    assert_equal triangle_calls(-2, 'Model') + [[:VelmarExt, :apply_geometry]], @recorder.calls
  end

  def test_definitions_come_first_then_instances_then_the_application
    paint = { id: 5, name: 'Paint', color: [1, 2, 3], opacity: 1.0, texture: nil }
    leg = triangle.merge(id: 41, name: 'Leg')
    table = nothing.merge(id: 40, name: 'Table', instances: [instance(50, 41, transform: moved(1, 0, 0), material: 5),
                                                             instance(51, 41, transform: moved(2, 0, 0), hidden: true)])
    root = nothing.merge(instances: [instance(60, 40, transform: moved(0, 0, 9))])
    stream(document(materials: [paint], definitions: [table, leg], root: root))
    assert_equal [[:ExtDefinition, :add, 1, [], [3, 4]],
                  [:ExtDefinition, :add, 2, [], []], *triangle_calls(2, 'Leg'),
                  [:ExtInstance, :add, 3, 2, 1, moved(1, 0, 0), [], false],
                  [:ExtInstance, :add, 4, 2, -1, moved(2, 0, 0), [], false],
                  [:ExtInstance, :set_visibility, 4, false],
                  [:ExtInstance, :add, 5, 1, -1, moved(0, 0, 9), [], false],
                  [:VelmarExt, :define_model_entity, 5],
                  [:VelmarExt, :apply_geometry]], @recorder.calls
  end

  def test_a_definition_that_is_never_placed_is_not_sent
    stream(document(definitions: [triangle.merge(id: 1, name: 'Unused')]))
    assert_empty @recorder.named(:add)
    assert_equal [[-2, 'Model']], @recorder.named(:set_geometry_stream)
  end

  def test_hidden_faces_are_left_out_and_the_ranges_close_up
    faces = [[0, 1, 2], [1, 2, 3], [0, 2, 3, 0, 1, 3]].each_with_index.map do |points, i|
      { id: i, material: i, points: points, uvs: [0] * points.size, hidden: i == 1 }
    end
    paints = [0, 1, 2].map { |i| { id: i, name: "p#{i}", color: [0, 0, 0], opacity: 1.0, texture: nil } }
    root = { points: (0...12).to_a, normals: [0, 0, 1] * 4, surfaces: [0] * 4, uvs: [0, 0, 1], faces: faces }
    stream(document(materials: paints, root: root))
    assert_equal [[4, 9]], @recorder.named(:warmup_stream)
    assert_equal [1, 2, 3, 1, 3, 4, 1, 2, 4], @recorder.named(:add_vertex_index).flatten
    assert_equal [[1, 1, 0, 1], [2, 3, 1, 3]], @recorder.named(:add_face)
  end

  def test_texture_coordinates_are_numbered_from_one
    root = { uvs: [0, 0, 1, 2, 0, 1, 0, 3, 2], faces: [{ points: [0, 1, 2], uvs: [2, 0, 1] }] }
    stream(document(root: root))
    assert_equal [[0, 0, 1], [2, 0, 1], [0, 3, 2]], @recorder.named(:add_uvw)
    assert_equal [3, 1, 2], @recorder.named(:add_uvw_index).flatten
  end

  def test_surfaces_go_with_the_normals
    stream(document(root: { surfaces: [4, 9, 4] }))
    assert_equal [4, 9, 4], @recorder.named(:add_normal).map(&:last)
  end

  def test_names_lose_the_zero_bytes_that_a_call_could_not_take
    root = nothing.merge(instances: [instance(2, 1)])
    stream(document(definitions: [triangle.merge(id: 1, name: "a\0b")], root: root))
    assert_equal [[1, 'ab']], @recorder.named(:set_geometry_stream)
  end

  def test_progress_counts_points_and_corners
    told = []
    root = triangle.merge(instances: [instance(2, 1)])
    streamer = stream(document(definitions: [triangle.merge(id: 1, name: 'D')], root: root), progress: ->(done) { told << done })
    assert_equal [6, 12], told
    assert_equal 12, streamer.total
  end

  def test_a_stop_comes_between_two_definitions
    root = triangle.merge(instances: [instance(2, 1)])
    stops = [false, true]
    content = document(definitions: [triangle.merge(id: 1, name: 'D')], root: root)
    assert_raises(VelmarHost::Stopped) { stream(content, stopped: -> { stops.shift }) }
    assert_equal :evaluate_stream, @recorder.calls.last[1]
  end

  def test_refused_geometry_is_an_error
    @recorder.answers[:evaluate_stream] = false
    assert_match(/did not take the geometry/, assert_raises(VelmarHost::Error) { stream(document) }.message)
  end

  def test_the_mesh_settings_are_the_applications_usual_ones
    assert_equal({ 'smoothing' => true, 'angle' => 89.0, 'sharpness' => 0.0, 'level' => 0, 'interpolation' => 2,
                   'scheme' => 0 }, JSON.parse(SETTINGS))
  end

  def test_the_view_is_sent_with_its_size
    camera = VelmarHost::Camera.new(eye: [1, 2, 3], target: [4, 5, 6], up: [0, 0, 1], fov: 30.0, parallel: false)
    VelmarHost::ViewSender.new(ext: @recorder.namespace).show(camera, width: 400, height: 300, samples: 8)
    assert_equal %i[set_view_extents set_camera_pos set_camera_view set_scene_params], (@recorder.calls.map { |call| call[1] })
    assert_equal [[400, 300]], @recorder.named(:set_view_extents)
    assert_equal [[[1, 2, 3], [4, 5, 6], [0, 0, 1]]], @recorder.named(:set_camera_pos)
    assert_equal [[30.0, false]], @recorder.named(:set_camera_view)
    quality = JSON.parse(@recorder.named(:set_scene_params).flatten.first)['quality']
    assert_equal({ 'width' => 400, 'height' => 300, 'sizeType' => 0, 'maxSamples' => 8, 'update' => true }, quality)
  end

  def test_a_parallel_view_sends_its_height
    camera = VelmarHost::Camera.new(eye: [1, 2, 3], target: [4, 5, 6], up: [0, 0, 1], height: 120.0, parallel: true)
    VelmarHost::ViewSender.new(ext: @recorder.namespace).show(camera, width: 400, height: 300, samples: 8)
    assert_equal [[120.0, true]], @recorder.named(:set_camera_view)
  end
end
