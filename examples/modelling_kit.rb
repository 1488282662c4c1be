# frozen_string_literal: true

require 'json'

# A few tools for building models by script: solids with bevelled edges and smooth normals, components that are placed
# inside each other, and the host-model JSON that comes out. Lengths are inches, z is up. The result depends on nothing
# but the calls.
module ModellingKit
  Point = Struct.new(:x, :y, :z) do
    def +(other) = Point.new(x + other.x, y + other.y, z + other.z)
    def -(other) = Point.new(x - other.x, y - other.y, z - other.z)
    def *(other) = Point.new(x * other, y * other, z * other)
    def dot(other) = x * other.x + y * other.y + z * other.z

    def cross(other)
      Point.new(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x)
    end

    def length = Math.sqrt(dot(self))
    def unit = self * (1.0 / length)
  end

  # Transforms: 16 numbers, a point being a row in front of them; `chain` lets the first act first.
  module Place
    module_function

    def identity = [1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0]
    def at(x, y, z = 0.0) = axes([1, 0, 0], [0, 1, 0], [0, 0, 1], [x, y, z])
    def scaled(x, y = x, z = x) = axes([x, 0, 0], [0, y, 0], [0, 0, z])
    def mirrored_x = scaled(-1.0, 1.0, 1.0)
    def mirrored_y = scaled(1.0, -1.0, 1.0)

    # The images of the three axes and of the origin.
    def axes(x, y, z, origin = [0, 0, 0])
      [*x, 0, *y, 0, *z, 0, *origin, 1].map(&:to_f)
    end

    def turned_x(degrees)
      s, c = sine_cosine(degrees)
      axes([1, 0, 0], [0, c, s], [0, -s, c])
    end

    def turned_y(degrees)
      s, c = sine_cosine(degrees)
      axes([c, 0, -s], [0, 1, 0], [s, 0, c])
    end

    def turned_z(degrees)
      s, c = sine_cosine(degrees)
      axes([c, s, 0], [-s, c, 0], [0, 0, 1])
    end

    def chain(*transforms)
      [identity, *transforms].reduce do |a, b|
        Array.new(16) { |i| (0..3).sum { |k| a[i / 4 * 4 + k] * b[4 * k + i % 4] } }
      end
    end

    def sine_cosine(degrees)
      angle = degrees * Math::PI / 180.0
      [Math.sin(angle), Math.cos(angle)]
    end
  end

  # A component, or the model itself: faces and placed components.
  class Part
    attr_reader :id, :name, :instances

    def initialize(model, id, name)
      @model = model
      @id = id
      @name = name
      @points = []
      @normals = []
      @surfaces = []
      @numbers = {}
      @faces = []
      @instances = []
      @surface = 0
    end

    def place(part, *transforms, name: '', material: nil)
      @instances << { id: @model.next_id, definition: part.id, material: material && @model.material_id(material),
                      transform: Place.chain(*transforms).map { |v| rounded(v, 6) }, hidden: false, layer: nil, name: name }
      self
    end

    # A flat convex face; its corners run counter-clockwise seen from outside.
    def polygon(corners, material = nil)
      normal = newell_normal(corners)
      return self if normal.length < 1e-9

      surface = next_surface
      numbers = corners.map { |corner| point(corner, normal.unit, surface) }
      triangles = (1..numbers.size - 2).flat_map { |i| [numbers[0], numbers[i], numbers[i + 1]] }
      face(triangles, material)
    end

    # A smooth patch over rows of points with their normals, seen from outside with rows running upwards.
    def patch(rows, normals, material = nil)
      surface = next_surface
      numbers = rows.each_with_index.map do |row, r|
        row.each_with_index.map { |corner, c| point(corner, normals[r][c], surface) }
      end
      triangles = numbers.each_cons(2).flat_map do |low, high|
        (0..low.size - 2).flat_map { |c| quad(low[c], low[c + 1], high[c + 1], high[c]) }
      end
      face(triangles, material)
    end

    # A box with its edges cut off at 45 degrees.
    def box(low, high, material = nil, bevel: 0.25)
      return plain_box(low, high, material) if bevel.zero?

      corner = lambda do |signs, axis|
        Point.new(*(0..2).map { |i| (signs[i].positive? ? high[i] : low[i]) - (i == axis ? 0 : signs[i] * bevel) })
      end
      3.times { |axis| [-1, 1].each { |side| box_side(axis, side, corner, material) } }
      3.times { |axis| box_edges(axis, corner, material) }
      [-1, 1].product([-1, 1], [-1, 1]).each do |signs|
        corners = (0..2).map { |axis| corner.call(signs, axis) }
        polygon(signs.inject(:*).positive? ? corners : corners.reverse, material)
      end
      self
    end

    # A box whose edges are rounded with a smooth surface all over.
    def cushion(low, high, radius, material = nil, steps: 4)
      center = low.zip(high).map { |a, b| (a + b) / 2.0 }
      half = low.zip(high).map { |a, b| (b - a) / 2.0 - radius }
      rows = latitude_angles(steps).map do |latitude, vertical|
        longitude_angles(steps).map do |longitude, sx, sy|
          normal = Point.new(Math.cos(latitude) * Math.cos(longitude), Math.cos(latitude) * Math.sin(longitude),
                             Math.sin(latitude))
          corner = Point.new(center[0] + sx * half[0], center[1] + sy * half[1], center[2] + vertical * half[2])
          [corner + normal * radius, normal]
        end
      end
      patch(rows.map { |row| row.map(&:first) }, rows.map { |row| row.map(&:last) }, material)
      polygon(rows.last.map(&:first).each_slice(steps + 1).map(&:first).first(4), material)
      polygon(rows.first.map(&:first).each_slice(steps + 1).map(&:first).first(4).reverse, material)
    end

    # A profile of [radius, z] turned about the z axis. Neighbouring pieces are smooth unless they meet at more than
    # `crease` degrees. The profile runs upwards on the outside.
    def lathe(profile, material = nil, segments: 24, crease: 35.0, center: [0, 0])
      smooth_runs(profile, crease).each do |run|
        normals = run_normals(run)
        rows = run.zip(normals).map do |(radius, z), (outwards, upwards)|
          (0..segments).map do |i|
            angle = 2.0 * Math::PI * (i % segments) / segments
            [Point.new(center[0] + radius * Math.cos(angle), center[1] + radius * Math.sin(angle), z),
             Point.new(outwards * Math.cos(angle), outwards * Math.sin(angle), upwards)]
          end
        end
        patch(rows.map { |row| row.map(&:first) }, rows.map { |row| row.map(&:last) }, material)
      end
      self
    end

    # A round bar along a path of points, its radius given for each of them, with flat ends.
    def bar(path, radii, material = nil, segments: 8)
      centers = path.map { |p| Point.new(*p) }
      frames = frames_along(centers)
      rows = centers.each_index.map do |i|
        (0..segments).map do |s|
          angle = 2.0 * Math::PI * (s % segments) / segments
          normal = frames[i][0] * Math.cos(angle) + frames[i][1] * Math.sin(angle)
          [centers[i] + normal * radii[i], normal]
        end
      end
      patch(rows.map { |row| row.map(&:first) }, rows.map { |row| row.map(&:last) }, material)
      polygon(rows.last.first(segments).map(&:first), material)
      polygon(rows.first.first(segments).map(&:first).reverse, material)
    end

    # A convex outline in two coordinates, drawn out from `from` to `to` along the third axis (:x, :y or :z), the long
    # edges cut off at 45 degrees. The outline runs counter-clockwise seen from the end of the axis.
    def prism(outline, axis, from, to, material = nil, bevel: 0.0)
      inner = bevel.zero? ? outline : inset(outline, bevel)
      at = ->(p, along) { Point.new(*axis_order(axis, p, along)) }
      polygon(inner.map { |p| at.call(p, to) }, material)
      polygon(inner.reverse.map { |p| at.call(p, from) }, material)
      outline.each_index do |i|
        j = (i + 1) % outline.size
        low = [at.call(outline[i], from + bevel), at.call(outline[j], from + bevel)]
        high = [at.call(outline[j], to - bevel), at.call(outline[i], to - bevel)]
        polygon(low + high, material)
        next if bevel.zero?

        polygon([high[1], high[0], at.call(inner[j], to), at.call(inner[i], to)], material)
        polygon([at.call(inner[i], from), at.call(inner[j], from), low[1], low[0]], material)
      end
      self
    end

    def mesh_record
      { points: @points, normals: @normals, surfaces: @surfaces, uvs: [0, 0, 1], faces: merged_faces,
        instances: @instances }
    end

    def triangle_count
      @faces.sum { |triangles, _| triangles.size / 3 }
    end

    private

    def rounded(value, digits)
      short = value.round(digits)
      short == short.to_i ? short.to_i : short
    end

    def next_surface
      @surface += 1
    end

    def point(position, normal, surface)
      key = [position.x.round(3), position.y.round(3), position.z.round(3), surface]
      @numbers[key] ||= begin
        @points.push(*position.to_a.map { |v| rounded(v, 3) })
        @normals.push(*normal.to_a.map { |v| rounded(v, 3) })
        @surfaces << surface
        @surfaces.size - 1
      end
    end

    def quad(a, b, c, d)
      [[a, b, c], [a, c, d]].select { |triangle| triangle.uniq.size == 3 }.flatten
    end

    def face(triangles, material)
      @faces << [triangles, material]
      self
    end

    # One face for each material.
    def merged_faces
      @faces.group_by(&:last).each_with_index.map do |(material, faces), i|
        points = faces.flat_map(&:first)
        id = material && @model.material_id(material)
        { id: i + 1, material: id, back_material: id, hidden: false, points: points, uvs: Array.new(points.size, 0) }
      end
    end

    def newell_normal(corners)
      corners.each_index.reduce(Point.new(0.0, 0.0, 0.0)) do |sum, i|
        sum + (corners[i] - corners[0]).cross(corners[(i + 1) % corners.size] - corners[0])
      end
    end

    def plain_box(low, high, material)
      prism([[low[0], low[1]], [high[0], low[1]], [high[0], high[1]], [low[0], high[1]]], :z, low[2], high[2], material)
    end

    def box_side(axis, side, corner, material)
      u, v = [(axis + 1) % 3, (axis + 2) % 3]
      corners = [[-1, -1], [1, -1], [1, 1], [-1, 1]].map do |su, sv|
        signs = [0, 0, 0]
        signs[axis] = side
        signs[u] = su
        signs[v] = sv
        corner.call(signs, axis)
      end
      polygon(side.positive? ? corners : corners.reverse, material)
    end

    # The four edges that run along `axis`.
    def box_edges(axis, corner, material)
      u, v = [(axis + 1) % 3, (axis + 2) % 3]
      [-1, 1].product([-1, 1]).each do |su, sv|
        ends = [-1, 1].map { |s| [0, 0, 0].tap { |signs| signs[axis], signs[u], signs[v] = s, su, sv } }
        corners = [corner.call(ends[0], u), corner.call(ends[0], v), corner.call(ends[1], v), corner.call(ends[1], u)]
        polygon((su * sv).positive? ? corners : corners.reverse, material)
      end
    end

    def latitude_angles(steps)
      [[-1, -90.0], [1, 0.0]].flat_map do |side, from|
        (0..steps).map { |i| [(from + 90.0 * i / steps) * Math::PI / 180.0, side] }
      end
    end

    def longitude_angles(steps)
      angles = [[1, 1, 0.0], [-1, 1, 90.0], [-1, -1, 180.0], [1, -1, 270.0]].flat_map do |sx, sy, from|
        (0..steps).map { |i| [(from + 90.0 * i / steps) * Math::PI / 180.0, sx, sy] }
      end
      angles + [angles.first]
    end

    def smooth_runs(profile, crease)
      runs = [[profile.first]]
      profile.each_cons(2).with_index do |(a, b), i|
        runs.last << b
        following = profile[i + 2]
        runs << [b] if following && turn_degrees(a, b, following) > crease
      end
      runs
    end

    def turn_degrees(a, b, c)
      first = Math.atan2(b[1] - a[1], b[0] - a[0])
      second = Math.atan2(c[1] - b[1], c[0] - b[0])
      turn = (second - first).abs * 180.0 / Math::PI
      turn > 180.0 ? 360.0 - turn : turn
    end

    # Normals of a profile as [outwards, upwards], between those of the neighbouring pieces.
    def run_normals(run)
      pieces = run.each_cons(2).map do |(r0, z0), (r1, z1)|
        long = Math.hypot(r1 - r0, z1 - z0)
        [(z1 - z0) / long, (r0 - r1) / long]
      end
      run.each_index.map do |i|
        a = pieces[[i - 1, 0].max]
        b = pieces[[i, pieces.size - 1].min]
        sum = [a[0] + b[0], a[1] + b[1]]
        long = Math.hypot(*sum)
        [sum[0] / long, sum[1] / long]
      end
    end

    # Two directions across the path at each of its points, turning as little as possible.
    def frames_along(centers)
      across = nil
      centers.each_index.map do |i|
        along = (centers[[i + 1, centers.size - 1].min] - centers[[i - 1, 0].max]).unit
        across ||= along.z.abs < 0.9 ? Point.new(0.0, 0.0, 1.0) : Point.new(1.0, 0.0, 0.0)
        across = (across - along * along.dot(across)).unit
        [across, along.cross(across)]
      end
    end

    def axis_order(axis, outline_point, along)
      a, b = outline_point
      { x: [along, a, b], y: [b, along, a], z: [a, b, along] }.fetch(axis)
    end

    # A convex outline moved inwards by `distance`.
    def inset(outline, distance)
      count = outline.size
      outline.each_index.map do |i|
        before, here, after = outline[i - 1], outline[i], outline[(i + 1) % count]
        n1 = inward(before, here)
        n2 = inward(here, after)
        factor = distance / (1.0 + n1[0] * n2[0] + n1[1] * n2[1])
        [here[0] + (n1[0] + n2[0]) * factor, here[1] + (n1[1] + n2[1]) * factor]
      end
    end

    def inward(from, to)
      long = Math.hypot(to[0] - from[0], to[1] - from[1])
      [(from[1] - to[1]) / long, (to[0] - from[0]) / long]
    end
  end

  # The model: materials, components and the root that holds all.
  class Model
    attr_reader :root

    def initialize
      @last_id = 0
      @materials = {}
      @parts = []
      @pages = []
      @root = Part.new(self, nil, '')
    end

    def next_id
      @last_id += 1
    end

    def material(name, color, opacity: 1.0)
      @materials[name] = { id: @materials.size + 1, name: name, color: color, opacity: opacity, texture: nil }
    end

    def material_id(name)
      @materials.fetch(name)[:id]
    end

    # A new component, filled by the block.
    def part(name)
      part = Part.new(self, next_id, name)
      @parts << part
      yield part
      part
    end

    def page(name, eye:, target:, fov:)
      @pages << { name: name, eye: eye, target: target, up: [0, 0, 1], fov: fov, parallel: false, height: 0,
                  hidden_layers: [] }
    end

    # One line for each entry of a list, so that a change of the script shows as a change of few lines.
    def write(path)
      lists, values = record.partition { |_, value| value.is_a?(Array) }
      lines = values.map { |key, value| "#{JSON.generate(key)}: #{JSON.generate(value)}" } +
              lists.map { |key, list| "#{JSON.generate(key)}: [\n#{list.map { |entry| JSON.generate(entry) }.join(",\n")}\n]" }
      File.write(path, "{\n#{lines.join(",\n")}\n}\n")
    end

    def record
      { format: 'host-model', version: 1, length_unit: 'inch', up_axis: 'z', materials: @materials.values,
        layers: [{ name: 'Layer0', visible: true }], pages: @pages,
        definitions: @parts.map { |part| { id: part.id, name: part.name, always_faces_camera: false }.merge(part.mesh_record) },
        root: @root.mesh_record }
    end
  end
end
