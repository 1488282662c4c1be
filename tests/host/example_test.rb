# frozen_string_literal: true

require_relative 'host_support'

class ExampleTest < Minitest::Test
  include HostSupport
  require File.join(ROOT, 'examples/make_pavilion')

  EXAMPLE = File.join(ROOT, 'examples/pavilion.json')

  def model
    @model ||= read(EXAMPLE)
  end

  def levels(definition)
    1 + (definition.instances.map { |instance| levels(instance.definition) }.max || 0)
  end

  def test_the_file_is_what_the_script_makes
    path = File.join(@folder, 'pavilion.json')
    Pavilion.new.build.write(path)
    assert File.read(path) == File.read(EXAMPLE), 'examples/pavilion.json is out of date: run examples/make_pavilion.rb'
    assert_operator File.size(EXAMPLE), :<, 1_500_000
  end

  def test_it_has_nested_repeated_and_mirrored_components_and_a_view
    assert_operator levels(model.root), :>=, 4
    instances = [model.root, *model.definitions].flat_map(&:instances)
    uses = instances.group_by { |instance| instance.definition.object_id }.values.map(&:size)
    assert_operator uses.max, :>=, 100
    assert_operator instances.count { |instance| VelmarHost::Transform.mirrored?(instance.transform) }, :>=, 10
    refute_nil model.camera
    assert_operator model.materials.size, :>, 10
    assert_empty @warnings
  end

  def test_everything_that_is_made_is_placed
    assert_equal JSON.parse(File.read(EXAMPLE))['definitions'].size, model.definitions.size
  end
end

class ModellingKitTest < Minitest::Test
  include HostSupport
  require File.join(ROOT, 'examples/modelling_kit')

  def mesh
    ModellingKit::Model.new.part('Solid') { |part| yield part }.mesh_record
  end

  # Positive when all faces of a closed solid look outwards.
  def volume(mesh)
    points = mesh[:points].each_slice(3).to_a
    corners(mesh).sum do |triangle|
      a, b, c = triangle.map { |number| points[number] }
      VelmarHost::Transform.dot(a, VelmarHost::Transform.cross(b, c)) / 6.0
    end
  end

  def corners(mesh)
    mesh[:faces].flat_map { |face| face[:points].each_slice(3).to_a }
  end

  # Every normal is on the side of its triangles' outside.
  def assert_normals_look_outwards(mesh)
    points = mesh[:points].each_slice(3).to_a
    normals = mesh[:normals].each_slice(3).to_a
    corners(mesh).each do |triangle|
      a, b, c = triangle.map { |number| points[number] }
      outside = VelmarHost::Transform.cross(VelmarHost::Transform.difference(b, a), VelmarHost::Transform.difference(c, a))
      triangle.each { |n| assert_operator VelmarHost::Transform.dot(outside, normals[n]), :>=, -1e-3 }
    end
  end

  def assert_solid(expected_volume, tolerance, mesh)
    assert_in_delta expected_volume, volume(mesh), tolerance * expected_volume
    assert_normals_look_outwards(mesh)
  end

  def test_boxes_are_closed_and_lose_their_bevels
    plain = mesh { |part| part.box([1, 2, 3], [11, 22, 33], bevel: 0) }
    assert_solid 6000, 1e-6, plain
    # From each edge a prism of half a square inch goes, from each corner five sixths of a cubic inch.
    bevelled = mesh { |part| part.box([1, 2, 3], [11, 22, 33], bevel: 1) }
    assert_solid 6000 - 4 * 0.5 * (8 + 18 + 28) - 8 * 5.0 / 6.0, 1e-6, bevelled
  end

  def test_cushions_are_round_all_over
    whole = 8 * 18 * 28
    rounds = 2 * (8 * 18 + 8 * 28 + 18 * 28) + Math::PI * (8 + 18 + 28) + 4.0 / 3.0 * Math::PI
    assert_solid whole + rounds, 5e-3, mesh { |part| part.cushion([1, 2, 3], [11, 22, 33], 1.0) }
  end

  def test_a_turned_half_circle_is_a_ball
    profile = (0..16).map { |i| [5 * Math.sin(i * Math::PI / 16), -5 * Math.cos(i * Math::PI / 16)] }
    assert_solid 4.0 / 3.0 * Math::PI * 125, 2e-2, mesh { |part| part.lathe(profile, segments: 48) }
  end

  def test_bars_and_prisms_are_closed
    assert_solid Math::PI * 4 * 10, 3e-2, mesh { |part| part.bar([[0, 0, 0], [6, 0, 8]], [2, 2], segments: 24) }
    %i[x y z].each do |axis|
      solid = mesh { |part| part.prism([[0, 0], [4, 0], [4, 3]], axis, -1, 9) }
      assert_solid 60, 1e-6, solid
    end
  end

  def test_bevelled_prisms_look_outwards
    solid = mesh { |part| part.prism([[0, 0], [8, 0], [8, 6], [0, 6]], :y, 0, 10, bevel: 0.5) }
    assert_normals_look_outwards(solid)
    assert_operator volume(solid), :<, 480
    assert_operator volume(solid), :>, 460
  end
end
