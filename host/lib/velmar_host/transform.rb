# frozen_string_literal: true

module VelmarHost
  # Transforms as the modelling application hands them over: 16 numbers, row after row, a point being a row in front of
  # the matrix, so that elements 12 to 14 are the translation and `product(a, b)` lets `a` act first. Vectors are lists
  # of three numbers.
  module Transform
    IDENTITY = [1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0].freeze

    module_function

    def product(first, second)
      Array.new(16) do |i|
        row = i & ~3
        column = i & 3
        first[row] * second[column] + first[row + 1] * second[column + 4] +
          first[row + 2] * second[column + 8] + first[row + 3] * second[column + 12]
      end
    end

    def point(transform, point)
      x, y, z = point
      Array.new(3) { |i| x * transform[i] + y * transform[i + 4] + z * transform[i + 8] + transform[i + 12] }
    end

    # The inverse of a transform that leaves the weight alone; nil when it flattens space.
    def inverse(transform)
      rows = axes(transform)
      volume = dot(rows[0], cross(rows[1], rows[2]))
      return nil if volume.abs < 1e-300 || !volume.finite?

      columns = [cross(rows[1], rows[2]), cross(rows[2], rows[0]), cross(rows[0], rows[1])]
      linear = Array.new(3) { |r| Array.new(3) { |c| columns[c][r] / volume } }
      move = transform[12, 3]
      origin = Array.new(3) { |c| -(0..2).sum { |r| move[r] * linear[r][c] } }
      [*linear[0], 0.0, *linear[1], 0.0, *linear[2], 0.0, *origin, 1.0]
    end

    def mirrored?(transform)
      rows = axes(transform)
      dot(rows[0], cross(rows[1], rows[2])).negative?
    end

    def identity?(transform, tolerance = 1e-9)
      transform.each_with_index.all? { |element, i| (element - IDENTITY[i]).abs <= tolerance }
    end

    # The images of the three axes.
    def axes(transform)
      [transform[0, 3], transform[4, 3], transform[8, 3]]
    end

    def dot(a, b)
      a[0] * b[0] + a[1] * b[1] + a[2] * b[2]
    end

    def cross(a, b)
      [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]
    end

    def difference(a, b)
      [a[0] - b[0], a[1] - b[1], a[2] - b[2]]
    end

    # `a` and `factor` times `b`.
    def sum(a, b, factor = 1.0)
      [a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]]
    end

    def scaled(a, factor)
      [a[0] * factor, a[1] * factor, a[2] * factor]
    end

    def length(a)
      Math.sqrt(dot(a, a))
    end

    # The direction of `a`; nil when it has none.
    def unit(a)
      long = length(a)
      long > 0.0 && long.finite? ? scaled(a, 1.0 / long) : nil
    end
  end
end
