# frozen_string_literal: true

require_relative 'model'
require_relative 'transform'

module VelmarHost
  # Finds the components of a node tree again: nodes whose contents are equal become instances of one definition, and a
  # mesh that several different nodes use becomes a definition of its own. A node that only wraps one other node without
  # moving it is taken as one with it, so that an instance has its component's content and not a copy of its wrapping.
  #
  # A node is a Hash of :name, :transform, :meshes (numbers) and :children, as the native reader gives it.
  class ComponentFinder
    # What a node holds, apart from its place: equal for nodes that are placements of one component.
    Content = Struct.new(:number, :name, :meshes, :children)
    Placed = Struct.new(:name, :transform, :content)

    # `build_mesh` makes a Mesh from a list of mesh numbers.
    def initialize(mesh_names:, build_mesh:)
      @mesh_names = mesh_names
      @build_mesh = build_mesh
    end

    # The root definition of the tree.
    def root_definition(root_node)
      @contents = {}
      placed = place(root_node)
      return Definition.new(name: '', mesh: Mesh.empty, instances: [], always_faces_camera: false) unless placed

      group_meshes
      @definitions = {}
      @shared = {}
      return definition(placed.content) if Transform.identity?(placed.transform)

      Definition.new(name: '', mesh: Mesh.empty, instances: [instance(placed)], always_faces_camera: false)
    end

    private

    # Nil for a node that holds nothing.
    def place(node)
      children = node[:children].filter_map { |child| place(child) }
      return nil if node[:meshes].empty? && children.empty?
      return unwrapped(node, children.first) if node[:meshes].empty? && children.size == 1 && wraps?(node, children.first)

      Placed.new(node[:name], node[:transform], content(node, children))
    end

    def wraps?(node, child)
      Transform.identity?(child.transform) || Transform.identity?(node[:transform])
    end

    def unwrapped(node, child)
      moves = Transform.identity?(child.transform)
      Placed.new(moves ? node[:name] : child.name, moves ? node[:transform] : child.transform, child.content)
    end

    def content(node, children)
      key = [node[:meshes], children.map { |child| [child.transform, child.content.number] }]
      @contents[key] ||= Content.new(@contents.size, node[:name], node[:meshes], children)
    end

    # Meshes that are used by just the same contents belong together: they get one group number.
    def group_meshes
      users = Hash.new { |hash, mesh| hash[mesh] = [] }
      @contents.each_value { |content| content.meshes.each { |mesh| users[mesh] |= [content.number] } }
      groups = users.values.uniq.each_with_index.to_h
      @group_of = users.transform_values { |numbers| groups[numbers] }
      @is_shared = groups.to_h { |numbers, group| [group, numbers.size > 1] }
      @owner = {}
      @contents.each_value do |content|
        present = content.meshes.map { |mesh| @group_of[mesh] }.uniq
        @owner[present.first] ||= content if present.size == 1 && content.children.empty?
      end
    end

    def definition(content)
      @definitions[content.number] ||= begin
        own, shared = content.meshes.uniq.group_by { |mesh| @group_of[mesh] }.partition { |group, _| own?(content, group) }
        Definition.new(name: content.name, mesh: @build_mesh.call(own.flat_map(&:last)), always_faces_camera: false,
                       instances: shared.map { |group, meshes| instance_of_shared(group, meshes) } +
                                  content.children.map { |child| instance(child) })
      end
    end

    def own?(content, group)
      !@is_shared[group] || @owner[group].equal?(content)
    end

    def instance_of_shared(group, meshes)
      owner = @owner[group]
      shared = owner ? definition(owner) : (@shared[group] ||= shared_definition(meshes))
      Instance.new(name: '', definition: shared, material: nil, transform: Transform::IDENTITY, hidden: false, layer: nil)
    end

    def shared_definition(meshes)
      Definition.new(name: @mesh_names[meshes.first], mesh: @build_mesh.call(meshes), instances: [],
                     always_faces_camera: false)
    end

    def instance(placed)
      Instance.new(name: placed.name, definition: definition(placed.content), material: nil,
                   transform: placed.transform, hidden: false, layer: nil)
    end
  end
end
