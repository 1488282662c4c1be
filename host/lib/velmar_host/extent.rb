# frozen_string_literal: true

require_relative 'transform'

module VelmarHost
  # Where the visible part of a model lies: a few dozen points that stand for all, whatever the number of placements.
  class Extent
    # Flat x, y, z in the model's coordinates; never empty for a model with visible faces.
    attr_reader :points

    def initialize(model)
      @model = model
      @known = {}.compare_by_identity
      @points = outermost(model.root)
    end

    # The middle of the box around all.
    def center
      low, high = corners
      low.zip(high).map { |a, b| (a + b) / 2.0 }
    end

    # The two opposite corners of the box around all.
    def corners
      by_axis = @points.each_slice(3).to_a.transpose
      [by_axis.map(&:min), by_axis.map(&:max)]
    end

    private

    def outermost(definition)
      @known[definition] ||= begin
        points = mesh_points(definition.mesh)
        definition.instances.each do |instance|
          next unless @model.visible?(instance)

          outermost(instance.definition).each_slice(3) do |point|
            points.concat(Transform.point(instance.transform, point))
          end
        end
        Native.outermost_points(points.pack('d*')).unpack('d*')
      end
    end

    # Only points of visible faces count.
    def mesh_points(mesh)
      return mesh.points.dup if mesh.faces.none?(&:hidden) && !mesh.faces.empty?

      used = mesh.visible_faces.flat_map(&:points).uniq
      used.flat_map { |point| mesh.points[3 * point, 3] }
    end
  end
end
