# frozen_string_literal: true

require_relative 'model'
require_relative 'transform'

module VelmarHost
  # Chooses a camera for a model that has none: a three-quarter view from the front right and somewhat above, near enough
  # that the model just fills the picture.
  module Framing
    FOV_DEGREES = 35.0
    FOV_RANGE = [1.0, 170.0].freeze
    AZIMUTH_DEGREES = 35.0               # to the right of the front, which looks along -y
    AZIMUTH_OF_DEEP_DEGREES = 55.0       # shows the long side of what is deeper than wide
    DEEP = 1.25                          # depth / width from which on that is so
    ELEVATIONS_DEGREES = (14.0..36.0)    # from high things, seen near eye height, to flat ones, seen from above
    MARGIN = 1.08                        # how much larger the picture is than what it shows
    UP = [0.0, 0.0, 1.0].freeze

    module_function

    # `aspect` is width / height of the picture, `fov` vertical in degrees.
    def camera(extent, aspect:, fov: FOV_DEGREES)
      forward = view_direction(extent)
      right = Transform.unit(Transform.cross(forward, UP))
      up = Transform.cross(right, forward)
      half_height = Math.tan(radians(fov / 2.0)) / MARGIN
      eye = fitted_eye(extent.points.each_slice(3).to_a, [right, up, forward], half_height * aspect, half_height)
      target = Transform.sum(eye, forward, sight_distance(extent, eye, forward))
      Camera.new(eye: eye, target: target, up: UP, fov: fov, parallel: false, height: nil)
    end

    def view_direction(extent)
      low, high = extent.corners
      width, depth, height = Transform.difference(high, low)
      azimuth = radians(depth > DEEP * width ? AZIMUTH_OF_DEEP_DEGREES : AZIMUTH_DEGREES)
      elevation = radians(elevation_degrees(height, Math.hypot(width, depth)))
      [-Math.sin(azimuth) * Math.cos(elevation), Math.cos(azimuth) * Math.cos(elevation), -Math.sin(elevation)]
    end

    # Falls evenly as the height grows to half of the diagonal of the ground plan.
    def elevation_degrees(height, diagonal)
      lowest = ELEVATIONS_DEGREES.begin
      highest = ELEVATIONS_DEGREES.end
      slenderness = diagonal.zero? ? 1.0 : [height / (0.5 * diagonal), 1.0].min
      highest + (lowest - highest) * slenderness
    end

    def radians(degrees)
      degrees * Math::PI / 180.0
    end

    # The nearest eye from which all points lie within the pyramid of sight. A point p is inside its right plane when
    # p.r - tx p.f <= eye.r - tx eye.f, and likewise for the other three: two planes that face each other fix the place
    # between them and the farthest place along the direction of sight. The pair that asks for more distance wins; the
    # other one is narrowed until it asks for as much, which puts the model in its middle as well.
    def fitted_eye(points, axes, half_width, half_height)
      right, up, forward = axes
      across = opposite_planes(points, right, forward, half_width)
      upwards = opposite_planes(points, up, forward, half_height)
      along = [across[:along], upwards[:along]].min
      across = narrowed(points, right, forward, half_width, along) if across[:along] > along
      upwards = narrowed(points, up, forward, half_height, along) if upwards[:along] > along
      eye = Transform.sum(Transform.scaled(right, across[:middle]), up, upwards[:middle])
      Transform.sum(eye, forward, along)
    end

    def narrowed(points, sideways, forward, half_extent, along)
      low = 0.0
      high = half_extent
      60.times do
        middle = (low + high) / 2.0
        opposite_planes(points, sideways, forward, middle)[:along] > along ? high = middle : low = middle
      end
      opposite_planes(points, sideways, forward, high)
    end

    def opposite_planes(points, sideways, forward, half_extent)
      high = points.map { |p| Transform.dot(p, sideways) - half_extent * Transform.dot(p, forward) }.max
      low = points.map { |p| -Transform.dot(p, sideways) - half_extent * Transform.dot(p, forward) }.max
      { middle: (high - low) / 2.0, along: -(high + low) / (2.0 * half_extent) }
    end

    def sight_distance(extent, eye, forward)
      [Transform.dot(Transform.difference(extent.center, eye), forward), 1e-3].max
    end
  end
end
