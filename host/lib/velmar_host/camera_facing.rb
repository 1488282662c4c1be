# frozen_string_literal: true

require_relative 'transform'

module VelmarHost
  # Turns the instances of definitions that always face the camera about their own upright axis, so that their front
  # (-y) looks at the eye, as the modelling application shows them. An instance inside a definition that is placed more
  # than once is turned for the first of these placements.
  class CameraFacing
    def initialize(eye)
      @eye = eye
      @seen = {}.compare_by_identity
    end

    def turn(definition, world = Transform::IDENTITY)
      return if @seen[definition]

      @seen[definition] = true
      definition.instances.each do |instance|
        instance.transform = facing(instance.transform, world) if instance.definition.always_faces_camera
        turn(instance.definition, Transform.product(instance.transform, world))
      end
    end

    private

    def facing(transform, world)
      inverse = Transform.inverse(world)
      axes = Transform.axes(transform)
      up = Transform.unit(axes[2])
      return transform unless inverse && up

      sight = Transform.difference(transform[12, 3], Transform.point(inverse, @eye))
      back = Transform.unit(Transform.sum(sight, up, -Transform.dot(sight, up)))
      return transform unless back

      right = Transform.cross(back, up)
      right = Transform.scaled(right, -1.0) if Transform.mirrored?(transform)
      turned = [right, back, up].zip(axes).map { |axis, old| Transform.scaled(axis, Transform.length(old)) }
      [*turned[0], 0.0, *turned[1], 0.0, *turned[2], 0.0, *transform[12, 3], 1.0]
    end
  end
end
