# frozen_string_literal: true

require_relative "operations"

module VelmarTest
  # Small models for tests of the mirror, under ids that no other test of the process has used.
  class MirrorTest < PluginTest
    include Operations

    IDENTITY = Array.new(16) { |i| i % 5 == 0 ? 1.0 : 0.0 }.freeze
    INCHES_PER_METRE = 39.3701
    ROOT = -2

    @last_id = 1000
    class << self
      def next_id
        MirrorTest.instance_eval { @last_id += 1 }
      end
    end

    def setup
      super
      VelmarExt.flush_model_entities
      VelmarExt.clear_edit_list
      VelmarExt.set_edit_transform(IDENTITY)
    end

    def fresh_id
      MirrorTest.next_id
    end

    # A placement, inches.
    def shifted(x, y = 0, z = 0)
      IDENTITY.take(12) + [x, y, z, 1]
    end

    def add_definition(children = [])
      fresh_id.tap { |id| assert_equal true, ExtDefinition.add(id, [], children) }
    end

    def add_instance(definition, placement = IDENTITY, material: -1, placements: nil, edit: false)
      fresh_id.tap do |id|
        assert_equal true, ExtInstance.add(id, definition, material, placement, placements, edit)
      end
    end

    # A definition with a mesh of that many triangles.
    def add_meshed(triangles = 1, name: "mesh")
      add_definition.tap { |id| assert_equal true, stream(id, triangles, name: name) }
    end

    def stream(definition, triangles, name: "mesh", settings: "")
      ExtStream.set_geometry_stream(definition, name)
      triangles.times { |triangle| stream_triangle(triangle) }
      ExtStream.evaluate_stream(settings)
    end

    def stream_triangle(triangle)
      [[0, 0], [10.0, 0], [0, 10]].each_with_index do |(x, y), corner|
        ExtStream.add_vertex(x + 100.0 * triangle, y, 0)
        ExtStream.add_normal(0, 0, 1.0, triangle)
        ExtStream.add_uvw(x, y, 1)
        number = 3 * triangle + corner + 1
        ExtStream.add_vertex_index(number)
        ExtStream.add_normal_index(number)
        ExtStream.add_uvw_index(number)
      end
      ExtStream.add_face(triangle + 1, -1, triangle, triangle + 1)
    end

    # Places instances in the model and evaluates the scene. Answers the operations.
    def apply(*instances)
      VelmarExt.flush_model_entities
      instances.each { |id| assert_equal true, VelmarExt.define_model_entity(id) }
      operations { assert_equal true, VelmarExt.apply_geometry }
    end

    # The lengths of the placement lists that were written, in order.
    def placement_counts(lines)
      lines.filter_map { |line| $1.to_i if line =~ /\Aset VELMAR_SCATTER:.* 170 \[(\d+)\]/ }
    end

    # The lengths of the arrays that were written to meshes, by the number of the attribute.
    def mesh_counts(lines)
      lines.filter_map { |line| [$1.to_i, $2.to_i] if line =~ /\Aset VELMAR_MESH:\S* (\d+) \[(\d+)\]/ }.to_h
    end
  end
end
