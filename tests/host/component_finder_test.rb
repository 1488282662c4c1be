# frozen_string_literal: true

require_relative 'host_support'

class ComponentFinderTest < Minitest::Test
  include HostSupport
  IDENTITY = VelmarHost::Transform::IDENTITY

  def setup
    super
    @built = []
  end

  def node(name, meshes: [], transform: IDENTITY, children: [])
    { name: name, meshes: meshes, transform: transform.map(&:to_f), children: children }
  end

  def find(root)
    build = lambda do |numbers|
      @built << numbers unless numbers.empty?
      VelmarHost::Mesh.new(points: numbers, normals: [], surfaces: [], uvs: [], faces: [])
    end
    VelmarHost::ComponentFinder.new(mesh_names: Array.new(20) { |i| "mesh #{i}" }, build_mesh: build).root_definition(root)
  end

  def test_nodes_of_one_mesh_become_one_definition
    root = find(node('root', children: Array.new(5) { |i| node("n#{i}", meshes: [3], transform: moved(i, 0, 0)) }))
    assert_equal 1, root.instances.map(&:definition).uniq(&:object_id).size
    assert_equal %w[n0 n1 n2 n3 n4], root.instances.map(&:name)
    assert_equal [[3]], @built
  end

  def test_equal_subtrees_become_one_definition_at_every_level
    group = lambda do |name, x|
      node(name, transform: moved(x, 0, 0), children: [node('a', meshes: [1], transform: moved(1, 0, 0)),
                                                       node('b', meshes: [1], transform: moved(2, 0, 0))])
    end
    root = find(node('root', children: [group.call('g1', 0), group.call('g2', 10), group.call('g3', 20)]))
    assert_equal 1, root.instances.map(&:definition).uniq(&:object_id).size
    assert_equal 2, root.instances.first.definition.instances.size
    assert_equal [[1]], @built
  end

  def test_subtrees_whose_parts_stand_elsewhere_are_different
    root = find(node('root', children: [1, 2].map do |x|
      node('g', transform: moved(0, x, 0), children: [node('a', meshes: [1], transform: moved(x, 0, 0)), node('b', meshes: [2])])
    end))
    assert_equal 2, root.instances.map(&:definition).uniq(&:object_id).size
    assert_equal [[1], [2]], @built.sort
  end

  def test_a_wrapping_node_is_one_with_what_it_wraps
    root = find(node('root', children: [node('placement', transform: moved(4, 0, 0), children: [node('Chair', meshes: [1])]),
                                        node('loose', meshes: [2])]))
    assert_equal %w[placement loose], root.instances.map(&:name)
    assert_equal 'Chair', root.instances.first.definition.name
    assert_equal [4, 0, 0], root.instances.first.transform[12, 3]
  end

  def test_two_moves_are_not_folded_into_one
    root = find(node('root', children: [node('outer', transform: moved(4, 0, 0), children: [
                                          node('inner', meshes: [1], transform: moved(0, 5, 0))
                                        ]), node('other', meshes: [2])]))
    outer = root.instances.first
    assert_equal [4, 0, 0], outer.transform[12, 3]
    assert_equal [0, 5, 0], outer.definition.instances.first.transform[12, 3]
  end

  def test_loose_meshes_of_the_root_are_the_roots_own
    root = find(node('root', meshes: [0, 1], children: [node('n', meshes: [2], transform: moved(1, 0, 0))]))
    assert_equal [0, 1], root.mesh.points
    assert_equal 1, root.instances.size
  end

  def test_a_root_that_is_moved_keeps_its_move
    root = find(node('root', meshes: [0], transform: moved(1, 2, 3)))
    assert_empty root.mesh.points
    assert_equal [1, 2, 3], root.instances.first.transform[12, 3]
  end

  def test_a_mesh_that_different_nodes_use_becomes_a_definition_of_its_own
    root = find(node('root', children: [
                       node('a', meshes: [1, 7], children: [node('x', meshes: [2], transform: moved(1, 0, 0))]),
                       node('b', meshes: [7], children: [node('x', meshes: [2], transform: moved(2, 0, 0))])
                     ]))
    a, b = root.instances.map(&:definition)
    shared = (a.instances.map(&:definition) & b.instances.map(&:definition)).find { |d| d.mesh.points == [7] }
    assert_equal 'mesh 7', shared.name
    assert_equal [[1], [2], [7]], @built.sort
    assert_equal [1], a.mesh.points
    assert_empty b.mesh.points
  end

  def test_a_mesh_that_is_a_node_of_its_own_as_well_is_not_built_twice
    root = find(node('root', children: [
                       node('plain', meshes: [7], transform: moved(9, 0, 0)),
                       node('more', meshes: [7], children: [node('x', meshes: [2], transform: moved(2, 0, 0))])
                     ]))
    plain, more = root.instances.map(&:definition)
    assert_same plain, more.instances.first.definition
    assert_equal [[2], [7]], @built.sort
  end

  def test_nodes_that_hold_nothing_vanish
    root = find(node('root', children: [node('camera'), node('group', children: [node('lamp')]), node('n', meshes: [1])]))
    assert_equal [1], root.mesh.points
    assert_empty root.instances
  end

  def test_a_tree_that_holds_nothing_is_an_empty_definition
    root = find(node('root', children: [node('camera')]))
    assert root.mesh.empty?
    assert_empty root.instances
  end
end
