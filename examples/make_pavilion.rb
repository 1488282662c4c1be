#!/usr/bin/env ruby
# frozen_string_literal: true

# Makes pavilion.json, a reading pavilion in a garden: `ruby make_pavilion.rb` writes it beside this script. x runs to the
# right, y to the back, z up, all in inches. Most of it is components inside components; the roof's back slope, the column
# braces, window leaves, chair sides and others are mirrored.
require_relative 'modelling_kit'

# The pavilion, built from the ground up.
class Pavilion
  include ModellingKit

  FLOOR = 18.0
  COLUMN_HEIGHT = 108.0
  COLUMNS_X = [-132.0, -48.0, 48.0, 132.0].freeze
  COLUMNS_Y = 90.0
  PITCH = 28.0               # of the roof, degrees
  RIDGE = 188.0
  SLOPE = 129.0              # from the ridge to the eave, along the roof
  ROOF_HALF_LENGTH = 168.0

  def initialize
    @model = Model.new
    @root = @model.root
    @random = Random.new(1889)
  end

  def build
    define_materials
    lay_ground
    build_plinth
    build_columns
    build_frame
    build_roof
    build_walls
    furnish
    plant
    @model.page('Garden side', eye: [318.0, -560.0, 84.0], target: [-12.0, 0.0, 88.0], fov: 28.5)
    @model
  end

  private

  def define_materials
    { 'Oak' => [171, 128, 84], 'Dark oak' => [104, 74, 50], 'Limestone' => [206, 199, 184], 'Slate' => [92, 98, 106],
      'Plaster' => [236, 231, 220], 'Linen' => [214, 202, 178], 'Moss wool' => [104, 122, 84],
      'Terracotta' => [186, 104, 74], 'Lawn' => [112, 136, 78], 'Leaf' => [84, 122, 62], 'Maple leaf' => [176, 74, 46],
      'Bark' => [98, 82, 68], 'Brass' => [196, 160, 96], 'Paper' => [246, 240, 226], 'Indigo' => [62, 78, 118],
      'Ochre' => [196, 148, 66], 'Rust' => [150, 76, 56] }.each { |name, color| @model.material(name, color) }
  end

  def random(from, to)
    (from + (to - from) * @random.rand).round(3)
  end

  # A lawn that runs to the horizon, with soft hills far behind.
  def lay_ground
    rings = [0.0, 120.0, 260.0, 420.0, 700.0, 1200.0, 2400.0, 5000.0, 12_000.0]
    profile = rings.reverse.map { |radius| [radius, 0.0] }
    @root.lathe(profile, 'Lawn', segments: 40)
    hill = @model.part('Hill') do |part|
      part.lathe((0..10).map { |i| [1000.0 * Math.cos(i * Math::PI / 20.0), 1000.0 * Math.sin(i * Math::PI / 20.0)] }, 'Lawn',
                 segments: 36)
    end
    [[-2600, 5200, 2.6, 0.34], [700, 6100, 3.1, 0.42], [3600, 5600, 2.3, 0.28], [-6200, 5200, 2.9, 0.52]].each do |x, y, wide, high|
      @root.place(hill, Place.scaled(wide, wide * 0.7, high), Place.at(x, y, -12.0))
    end
  end

  def build_plinth
    tile = @model.part('Paving slab') { |part| part.box([-17.8, -17.8, 0], [17.8, 17.8, 2.6], 'Limestone', bevel: 0.35) }
    step = @model.part('Step') { |part| part.box([-51.0, 0, 0], [51.0, 18.0, 6.0], 'Limestone', bevel: 0.6) }
    cheek = @model.part('Step cheek') do |part|
      part.prism([[-37.0, 0], [0, 0], [0, 19.5], [-14.0, 19.5], [-37.0, 9.5]], :x, 0.0, 9.0, 'Limestone', bevel: 0.7)
    end
    plinth = @model.part('Plinth') do |part|
      part.box([-149.0, -113.0, -6.0], [149.0, 113.0, 11.4], 'Limestone', bevel: 1.0)
      part.box([-151.5, -115.5, 11.4], [151.5, 115.5, 15.4], 'Limestone', bevel: 1.2)
      8.times { |i| 6.times { |j| part.place(tile, Place.at(-126.0 + 36.0 * i, -90.0 + 36.0 * j, 15.4)) } }
      [[0, 0], [1, 0], [1, 1]].each { |row, level| part.place(step, Place.at(0, -148.0 + 16.0 * row, 6.0 * level)) }
      part.place(cheek, Place.at(51.5, -114.0))
      part.place(cheek, Place.mirrored_x, Place.at(-51.5, -114.0))
    end
    @root.place(plinth)
  end

  def build_columns
    brace = @model.part('Brace') { |part| curved_brace(part) }
    column = @model.part('Column') do |part|
      part.box([-7.0, -7.0, 0], [7.0, 7.0, 5.0], 'Limestone', bevel: 0.8)
      part.prism(chamfered_square(3.6, 0.9), :z, 5.0, COLUMN_HEIGHT, 'Oak')
      part.box([-5.4, -5.4, COLUMN_HEIGHT - 4.5], [5.4, 5.4, COLUMN_HEIGHT], 'Oak', bevel: 0.8)
      part.place(brace, Place.at(3.4, 0, COLUMN_HEIGHT))
      part.place(brace, Place.mirrored_x, Place.at(-3.4, 0, COLUMN_HEIGHT))
    end
    COLUMNS_X.product([-COLUMNS_Y, COLUMNS_Y]).each { |x, y| @root.place(column, Place.at(x, y, FLOOR), name: 'Column') }
    post = @model.part('Side post') { |part| part.prism(chamfered_square(3.0, 0.6), :z, 0.0, COLUMN_HEIGHT, 'Oak') }
    @root.place(post, Place.at(132.0, 0, FLOOR))
  end

  # A quarter of an arch between a column and the beam above it.
  def curved_brace(part)
    steps = 8
    outer = (0..steps).map { |i| arc_point(27.0, 90.0 * i / steps) }
    inner = (0..steps).map { |i| arc_point(22.5, 90.0 * i / steps) }
    steps.times do |i|
      part.prism([outer[i], inner[i], inner[i + 1], outer[i + 1]].map { |x, z| [z, x] }.reverse, :y, -1.8, 1.8, 'Oak')
    end
  end

  def arc_point(radius, degrees)
    s, c = Place.sine_cosine(degrees)
    [27.0 - radius * c, -27.0 + radius * s]
  end

  def chamfered_square(half, cut)
    [[half, -half + cut], [half, half - cut], [half - cut, half], [-half + cut, half], [-half, half - cut],
     [-half, -half + cut], [-half + cut, -half], [half - cut, -half]]
  end

  def build_frame
    top = FLOOR + COLUMN_HEIGHT
    eave_beam = @model.part('Eave beam') do |part|
      part.prism([[-4.0, 0], [4.0, 0], [4.0, 10.0], [-4.0, 10.0]].map { |y, z| [y, z] }, :x, -158.0, 158.0, 'Oak', bevel: 0.9)
    end
    @root.place(eave_beam, Place.at(0, -COLUMNS_Y, top))
    @root.place(eave_beam, Place.mirrored_y, Place.at(0, COLUMNS_Y, top))
    truss = build_truss
    COLUMNS_X.each { |x| @root.place(truss, Place.at(x, 0, top + 1.0), name: 'Truss') }
    ridge_beam = @model.part('Ridge beam') { |part| part.box([-172.0, -3.0, -14.0], [172.0, 3.0, -3.5], 'Oak', bevel: 0.6) }
    @root.place(ridge_beam, Place.at(0, 0, RIDGE))
  end

  def build_truss
    strut = @model.part('Strut') do |part|
      part.bar([[0, 46.0, 8.0], [0, 2.0, 34.0]], [2.2, 2.2], 'Oak', segments: 4)
    end
    @model.part('Truss') do |part|
      part.box([-3.4, -88.0, 0], [3.4, 88.0, 9.0], 'Oak', bevel: 0.6)
      part.prism(chamfered_square(3.0, 0.6), :z, 9.0, 48.0, 'Oak')
      part.place(strut)
      part.place(strut, Place.mirrored_y)
    end
  end

  # The roof's own coordinates: x along the ridge, y down the slope, z out of the roof.
  def build_roof
    slope = @model.part('Roof slope') do |part|
      part.box([-ROOF_HALF_LENGTH, 0.0, 0.0], [ROOF_HALF_LENGTH, SLOPE, 1.2], 'Dark oak', bevel: 0.2)
      rafters(part)
      shingles(part)
    end
    s, c = Place.sine_cosine(PITCH)
    @root.place(slope, Place.axes([-1, 0, 0], [0, -c, -s], [0, -s, c], [0, 0, RIDGE]), name: 'Front slope')
    @root.place(slope, Place.axes([-1, 0, 0], [0, c, -s], [0, s, c], [0, 0, RIDGE]), name: 'Back slope')
    cap = @model.part('Ridge tile') do |part|
      rows = [[0.0, 6.4], [1.4, 6.6], [13.2, 5.6]]
      half_round(part, rows)
    end
    26.times { |i| @root.place(cap, Place.at(-169.0 + 13.0 * i, 0, RIDGE - 1.2)) }
  end

  def rafters(slope)
    rafter = @model.part('Rafter') do |part|
      part.prism([[2.0, 0.0], [2.0, -6.0], [117.0, -6.0], [123.0, -4.6], [127.5, -2.2], [127.5, 0.0]], :x, -1.9, 1.9, 'Oak',
                 bevel: 0.3)
    end
    barge = @model.part('Barge board') do |part|
      part.prism([[-3.0, 2.6], [-3.0, -7.4], [118.0, -7.4], [131.0, -3.0], [131.0, 2.6]], :x, 0.0, 2.0, 'Dark oak', bevel: 0.3)
    end
    13.times { |i| slope.place(rafter, Place.at(-156.0 + 26.0 * i, 0)) }
    slope.place(barge, Place.at(ROOF_HALF_LENGTH, 0))
    slope.place(barge, Place.mirrored_x, Place.at(-ROOF_HALF_LENGTH, 0))
  end

  def shingles(slope)
    shingle = @model.part('Shingle') { |part| part.box([-5.85, 0, 0], [5.85, 13.5, 0.75], 'Slate', bevel: 0.18) }
    courses = [0.0, 6.0].map { |offset| shingle_course(shingle, offset) }
    14.times do |i|
      slope.place(courses[i % 2], Place.turned_x(-4.2), Place.at(0, SLOPE - 10.5 - 9.0 * i, 2.25), name: "Course #{i + 1}")
    end
  end

  def shingle_course(shingle, offset)
    @model.part('Shingle course') do |part|
      28.times do |i|
        part.place(shingle, Place.turned_z(random(-0.7, 0.7)), Place.at(-162.0 + 12.0 * i + offset - 3.0, random(-0.3, 0.3), random(0.0, 0.22)))
      end
    end
  end

  def half_round(part, rows)
    angles = (0..10).map { |i| 18.0 * i * Math::PI / 180.0 }
    outer = rows.map { |x, radius| angles.map { |a| Point.new(x, radius * Math.cos(a), radius * Math.sin(a)) } }
    normals = rows.map { angles.map { |a| Point.new(0.0, Math.cos(a), Math.sin(a)) } }
    part.patch(outer.map(&:reverse), normals.map(&:reverse), 'Slate')
    inner = rows.map { |x, radius| angles.map { |a| Point.new(x, (radius - 0.9) * Math.cos(a), (radius - 0.9) * Math.sin(a)) } }
    [0, rows.size - 1].each do |end_row|
      10.times do |i|
        ring = [outer[end_row][i], outer[end_row][i + 1], inner[end_row][i + 1], inner[end_row][i]]
        part.polygon(end_row.zero? ? ring.reverse : ring, 'Slate')
      end
    end
  end

  def build_walls
    board = @model.part('Board') { |part| part.box([-4.15, -0.8, 0], [4.15, 0.8, COLUMN_HEIGHT], 'Oak', bevel: 0.35) }
    31.times { |i| @root.place(board, Place.at(-127.5 + 8.5 * i, COLUMNS_Y + 1.5, FLOOR)) }
    @root.place(moon_wall, Place.at(-132.0, 0, FLOOR), name: 'Moon window')
    window = lattice_window
    @root.place(window, Place.at(132.0, -45.0, FLOOR), name: 'Window')
    @root.place(window, Place.mirrored_y, Place.at(132.0, 45.0, FLOOR), name: 'Window')
    rail = balustrade
    @root.place(rail, Place.at(90.0, -COLUMNS_Y, FLOOR), name: 'Balustrade')
    @root.place(rail, Place.mirrored_x, Place.at(-90.0, -COLUMNS_Y, FLOOR), name: 'Balustrade')
  end

  # A plastered wall with a round opening, in the plane x = 0.
  def moon_wall
    @model.part('Moon wall') do |part|
      radius = 38.0
      center = 56.0
      outline = [[84.0, COLUMN_HEIGHT], [-84.0, COLUMN_HEIGHT], [-84.0, 0.0], [84.0, 0.0]]
      angles = (outline.map { |y, z| Math.atan2(z - center, y) } + (0..63).map { |i| (i - 32) * Math::PI / 32.0 }).uniq.sort
      angles.each_with_index do |angle, i|
        following = angles[(i + 1) % angles.size]
        edge = [angle, following].map { |a| rectangle_point(a, center) }
        hole = [angle, following].map { |a| [radius * Math.cos(a), center + radius * Math.sin(a)] }
        part.polygon([hole[0], edge[0], edge[1], hole[1]].map { |y, z| Point.new(2.5, y, z) }, 'Plaster')
        part.polygon([hole[1], edge[1], edge[0], hole[0]].map { |y, z| Point.new(-2.5, y, z) }, 'Plaster')
      end
      window_ring(part, radius, center)
    end
  end

  # Where the ray from the opening's middle leaves the wall.
  def rectangle_point(angle, center)
    c = Math.cos(angle)
    s = Math.sin(angle)
    reach = [c.abs < 1e-9 ? Float::INFINITY : 84.0 / c.abs,
             s.abs < 1e-9 ? Float::INFINITY : (s.positive? ? COLUMN_HEIGHT - center : center) / s.abs].min
    [reach * c, center + reach * s]
  end

  def window_ring(part, radius, center)
    section = [[-4.0, radius - 2.0], [4.0, radius - 2.0], [4.0, radius + 1.6], [-4.0, radius + 1.6]]
    section.each_index do |i|
      (x0, r0), (x1, r1) = section[i], section[(i + 1) % 4]
      out = i.zero? ? -1.0 : 1.0
      flat = i.odd?
      rows = [[x0, r0], [x1, r1]].map do |x, r|
        (0..64).map { |k| Point.new(x, r * Math.cos(k * Math::PI / 32.0), center + r * Math.sin(k * Math::PI / 32.0)) }
      end
      normals = rows.map do |row|
        row.each_index.map do |k|
          a = k * Math::PI / 32.0
          flat ? Point.new(i == 1 ? 1.0 : -1.0, 0.0, 0.0) : Point.new(0.0, out * Math.cos(a), out * Math.sin(a))
        end
      end
      part.patch(rows.map(&:reverse), normals.map(&:reverse), 'Dark oak')
    end
  end

  # A low panel with a lattice above, 84 wide, in the plane x = 0.
  def lattice_window
    upright = @model.part('Lattice upright') { |part| part.box([-0.7, -0.6, 0], [0.7, 0.6, 74.0], 'Oak', bevel: 0.12) }
    crossbar = @model.part('Lattice crossbar') { |part| part.box([-0.5, -39.5, -0.5], [0.5, 39.5, 0.5], 'Oak', bevel: 0.1) }
    leaf = @model.part('Lattice') do |part|
      part.box([-1.6, -42.0, 0], [1.6, -39.0, 80.0], 'Oak', bevel: 0.3)
      part.box([-1.6, 39.0, 0], [1.6, 42.0, 80.0], 'Oak', bevel: 0.3)
      part.box([-1.55, -39.0, 0], [1.55, 39.0, 3.0], 'Oak', bevel: 0.3)
      part.box([-1.55, -39.0, 77.0], [1.55, 39.0, 80.0], 'Oak', bevel: 0.3)
      [-29.0, -19.5, -10.0, 10.0, 19.5, 29.0].each { |y| part.place(upright, Place.at(0, y, 3.0)) }
      [13.0, 24.0, 35.0, 58.0, 67.5].each { |z| part.place(crossbar, Place.at(0, 0, z)) }
    end
    @model.part('Window') do |part|
      part.box([-2.0, -42.0, 0], [2.0, 42.0, 26.0], 'Plaster', bevel: 0.2)
      part.box([-4.2, -42.5, 26.0], [4.2, 42.5, 28.0], 'Oak', bevel: 0.5)
      part.place(leaf, Place.at(0, 0, 28.0))
    end
  end

  def balustrade
    baluster = @model.part('Baluster') do |part|
      part.lathe([[0.0, 0.0], [1.3, 0.0], [1.3, 2.0], [0.8, 2.6], [1.5, 8.0], [1.7, 11.0], [1.2, 15.0], [0.75, 20.0],
                  [1.2, 22.0], [1.2, 24.0], [0.0, 24.0]], 'Oak', segments: 12)
    end
    @model.part('Balustrade') do |part|
      part.box([-38.5, -1.6, 2.0], [38.5, 1.6, 5.0], 'Oak', bevel: 0.5)
      part.box([-38.5, -2.4, 29.0], [38.5, 2.4, 32.0], 'Oak', bevel: 0.8)
      11.times { |i| part.place(baluster, Place.at(-35.0 + 7.0 * i, 0, 5.0)) }
    end
  end

  def furnish
    rug = @model.part('Rug') { |part| part.cushion([-66.0, -46.0, 0], [66.0, 46.0, 0.6], 0.3, 'Indigo', steps: 2) }
    @root.place(rug, Place.at(0, 4.0, FLOOR))
    @root.place(table, Place.at(0, 6.0, FLOOR + 0.6), name: 'Table')
    place_chairs
    place_bookcases
    lamp = pendant
    [-30.0, 0.0, 30.0].each { |x| @root.place(lamp, Place.at(x, 6.0, FLOOR + 62.0), name: 'Lamp') }
    @root.place(armchair, Place.turned_z(52.0), Place.at(-94.0, -2.0, FLOOR), name: 'Armchair')
    @root.place(vase, Place.at(-14.0, 10.0, FLOOR + 29.9), name: 'Vase')
    cup = cup_and_saucer
    [[22.0, -6.0], [20.0, 20.0], [-34.0, -5.0]].each_with_index do |(x, y), i|
      @root.place(cup, Place.turned_z(70.0 * i), Place.at(x, y, FLOOR + 29.9))
    end
  end

  def table
    leg = @model.part('Table leg') do |part|
      part.prism([[-1.0, -1.0], [1.6, -1.0], [1.6, 1.6], [-1.0, 1.6]], :z, 0.0, 27.4, 'Dark oak', bevel: 0.3)
    end
    @model.part('Table') do |part|
      part.cushion([-45.0, -19.0, 27.4], [45.0, 19.0, 29.3], 0.8, 'Oak', steps: 3)
      part.box([-40.0, -14.6, 23.0], [40.0, -13.4, 27.4], 'Dark oak', bevel: 0.15)
      part.box([-40.0, 13.4, 23.0], [40.0, 14.6, 27.4], 'Dark oak', bevel: 0.15)
      [[1, 1], [-1, 1], [1, -1], [-1, -1]].each do |sx, sy|
        part.place(leg, Place.scaled(sx, sy, 1), Place.at(40.0 * sx, 14.0 * sy))
      end
    end
  end

  def chair
    side = @model.part('Chair side') do |part|
      part.bar([[8.2, -8.5, 0], [8.0, -8.0, 17.0]], [0.75, 1.0], 'Dark oak', segments: 8)
      part.bar([[8.0, 9.5, 0], [7.8, 8.2, 10.0], [7.7, 8.0, 18.0], [7.6, 9.2, 27.0], [7.5, 11.4, 35.0]],
               [0.75, 0.95, 1.05, 0.9, 0.7], 'Dark oak', segments: 8)
      part.bar([[8.0, -8.2, 8.0], [7.8, 8.2, 9.0]], [0.5, 0.5], 'Dark oak', segments: 6)
    end
    slat = @model.part('Chair slat') { |part| part.cushion([-7.8, -0.45, -1.5], [7.8, 0.45, 1.5], 0.4, 'Dark oak', steps: 2) }
    @model.part('Chair') do |part|
      part.cushion([-9.2, -9.6, 16.4], [9.2, 8.8, 18.6], 1.0, 'Linen', steps: 3)
      part.place(side)
      part.place(side, Place.mirrored_x)
      [[9.0, 25.0, -10.0], [9.9, 29.2, -14.0], [11.0, 33.4, -16.0]].each do |y, z, lean|
        part.place(slat, Place.turned_x(lean), Place.at(0, y, z))
      end
    end
  end

  def place_chairs
    seat = chair
    [[-26.0, 30.0, 4.0], [4.0, 31.0, -3.0], [32.0, 30.0, 2.0]].each do |x, y, turn|
      @root.place(seat, Place.turned_z(turn), Place.at(x, y, FLOOR + 0.6), name: 'Chair')
    end
    [[-24.0, -18.0, 5.0], [9.0, -22.0, -14.0]].each do |x, y, turn|
      @root.place(seat, Place.mirrored_y, Place.turned_z(turn), Place.at(x, y, FLOOR + 0.6), name: 'Chair')
    end
    @root.place(seat, Place.turned_z(-78.0), Place.at(58.0, 2.0, FLOOR + 0.6), name: 'Chair')
  end

  def place_bookcases
    books = %w[Rust Indigo Ochre Moss\ wool Linen].each_with_index.map { |material, i| book(material, i) }
    shelf = @model.part('Shelf') { |part| part.box([-39.5, -5.8, 0], [39.5, 5.8, 1.2], 'Dark oak', bevel: 0.15) }
    filled = 3.times.map { |i| filled_shelf(shelf, books, i) }
    bookcase = @model.part('Bookcase') do |part|
      [-41.0, 39.4].each { |x| part.box([x, -6.2, 0], [x + 1.6, 6.2, 84.0], 'Dark oak', bevel: 0.2) }
      part.box([-42.5, -7.0, 84.0], [42.5, 6.8, 86.4], 'Dark oak', bevel: 0.5)
      part.box([-39.5, 5.4, 0], [39.5, 6.0, 84.0], 'Dark oak', bevel: 0.0)
      6.times { |i| part.place(filled[i % 3], i.odd? ? Place.mirrored_x : Place.identity, Place.at(0, 0, 3.0 + 13.6 * i)) }
    end
    @root.place(bookcase, Place.at(-87.0, 80.0, FLOOR), name: 'Bookcase')
    @root.place(bookcase, Place.at(0, 80.0, FLOOR), name: 'Bookcase')
    @root.place(bookcase, Place.mirrored_x, Place.at(87.0, 80.0, FLOOR), name: 'Bookcase')
  end

  # A book of 1 by 7 by 10 inches, its back towards -y.
  def book(material, number)
    @model.part("Book #{number + 1}") do |part|
      part.cushion([0.0, -3.5, 0.0], [1.0, 3.3, 10.0], 0.16, material, steps: 2)
      part.box([0.12, -3.2, 0.1], [0.88, 3.45, 9.85], 'Paper', bevel: 0.0)
    end
  end

  def filled_shelf(shelf, books, number)
    @model.part("Filled shelf #{number + 1}") do |part|
      part.place(shelf)
      x = -38.5
      while x < 33.0
        x = @random.rand < 0.10 ? x + lean_book(part, books, x) : x + stand_book(part, books, x)
        x += random(5.0, 9.0) if @random.rand < 0.06
      end
    end
  end

  def stand_book(part, books, x)
    thick = random(0.9, 2.3)
    part.place(books[@random.rand(books.size)], Place.scaled(thick, random(0.8, 1.0), random(0.82, 1.12)),
               Place.at(x, random(-1.6, -0.4), 1.2))
    thick + 0.05
  end

  def lean_book(part, books, x)
    thick = random(0.9, 1.6)
    part.place(books[@random.rand(books.size)], Place.scaled(thick, 0.9, 0.95), Place.turned_y(-12.0),
               Place.at(x + 2.1, -1.0, 1.2 + 0.0))
    thick + 2.9
  end

  def pendant
    @model.part('Pendant lamp') do |part|
      part.lathe([[8.6, 0.0], [8.8, 0.2], [8.0, 3.4], [5.6, 6.4], [2.2, 8.2], [1.1, 9.2], [1.0, 11.0], [0.0, 11.2]], 'Brass',
                 segments: 28, crease: 60.0)
      part.lathe([[0.0, 9.0], [2.0, 7.8], [5.2, 6.0], [7.6, 3.1], [8.5, 0.1], [8.6, 0.0]].map { |r, z| [r, z] }, 'Paper', segments: 28)
      part.lathe((0..8).map { |i| [2.2 * Math.sin(i * Math::PI / 8.0), 3.6 - 2.2 * Math.cos(i * Math::PI / 8.0)] }, 'Paper', segments: 16)
      part.bar([[0, 0, 11.0], [0, 0, 55.0]], [0.18, 0.18], 'Dark oak', segments: 6)
    end
  end

  def armchair
    side = @model.part('Armchair side') do |part|
      part.cushion([13.0, -13.0, 5.0], [16.5, 13.5, 21.5], 1.5, 'Moss wool', steps: 3)
      [-10.5, 10.5].each { |y| part.bar([[14.6, y, 0], [14.6, y, 5.6]], [0.7, 1.0], 'Dark oak', segments: 8) }
    end
    @model.part('Armchair') do |part|
      part.cushion([-13.2, -13.0, 5.5], [13.2, 12.0, 12.0], 1.8, 'Moss wool', steps: 3)
      part.cushion([-12.8, -14.5, 11.4], [12.8, 8.0, 16.2], 2.0, 'Linen', steps: 4)
      part.cushion([-13.2, 8.0, 6.0], [13.2, 13.6, 33.0], 2.4, 'Moss wool', steps: 4)
      part.place(side)
      part.place(side, Place.mirrored_x)
    end
  end

  def vase
    stem = @model.part('Stem') do |part|
      part.bar([[0, 0, 6.0], [0.3, 0.2, 11.0], [1.3, 0.4, 15.0], [3.0, 0.6, 18.0]], [0.12, 0.11, 0.09, 0.06], 'Leaf', segments: 5)
      part.lathe((0..6).map { |i| [0.9 * Math.sin(i * Math::PI / 6.0), 18.2 - 0.9 * Math.cos(i * Math::PI / 6.0)] }, 'Paper',
                 segments: 10, center: [3.1, 0.6])
    end
    @model.part('Vase') do |part|
      part.lathe([[0.0, 0.0], [1.8, 0.0], [3.0, 2.0], [3.4, 4.2], [2.6, 6.6], [1.3, 8.2], [1.2, 9.0], [1.6, 9.8], [1.35, 9.8],
                  [1.0, 9.0]], 'Terracotta', segments: 24, crease: 50.0)
      7.times { |i| part.place(stem, Place.scaled(1, 1, 0.85 + 0.05 * i), Place.turned_z(51.4 * i)) }
    end
  end

  def cup_and_saucer
    @model.part('Cup') do |part|
      part.lathe([[0.0, 0.0], [2.2, 0.0], [3.0, 0.4], [2.9, 0.5], [1.2, 0.3], [0.0, 0.3]], 'Paper', segments: 20)
      part.lathe([[0.9, 0.35], [1.0, 0.5], [1.6, 1.2], [1.75, 2.6], [1.62, 2.6], [1.45, 1.2], [0.0, 0.7]], 'Paper',
                 segments: 20, crease: 70.0)
      handle = (0..6).map { |i| a = (-80 + 160 * i / 6.0) * Math::PI / 180; [1.55 + 0.8 * Math.cos(a), 0, 1.6 + 0.7 * Math.sin(a)] }
      part.bar(handle, [0.14] * 7, 'Paper', segments: 6)
    end
  end

  def plant
    lay_path
    leaf = leaf_part('Leaf', 'Leaf', 9.0, 2.2, 4.5)
    pot = potted_plant(leaf)
    @root.place(pot, Place.at(70.0, -134.0), name: 'Planter')
    @root.place(pot, Place.mirrored_x, Place.turned_z(25.0), Place.at(-70.0, -134.0), name: 'Planter')
    @root.place(stone_lantern, Place.turned_z(30.0), Place.at(-128.0, -196.0), name: 'Lantern')
    grow_maple
    grow_shrubs
    grow_grass
  end

  def lay_path
    stones = 3.times.map { |i| stepping_stone(i) }
    9.times do |i|
      x = 6.0 + 2.4 * i * i
      @root.place(stones[i % 3], Place.scaled(1.0 + 0.03 * i, i.odd? ? -1.0 : 1.0, 1.0), Place.turned_z(12.0 * (i % 4) - 18.0),
                  Place.at(x + (i.even? ? -7.0 : 7.0), -176.0 - 27.0 * i))
    end
  end

  def stepping_stone(number)
    outline = (0..10).map do |i|
      angle = 2.0 * Math::PI * i / 11.0
      reach = 1.0 + 0.09 * Math.sin(2.0 * angle + number) + 0.06 * Math.cos(3.0 * angle + 2.0 * number)
      [13.5 * reach * Math.cos(angle), 9.5 * reach * Math.sin(angle)]
    end
    @model.part("Stepping stone #{number + 1}") { |part| part.prism(outline, :z, -3.0, 3.2, 'Limestone', bevel: 0.8) }
  end

  # A leaf that grows along y and bends down, one inch stalk at the origin.
  def leaf_part(name, material, long, wide, droop)
    @model.part(name) do |part|
      rows = (0..4).map do |i|
        t = i / 4.0
        half = wide * Math.sin(Math::PI * (0.12 + 0.88 * t)) * (i == 4 ? 0.0 : 1.0)
        [-1, 0, 1].map { |side| Point.new(side * half, long * t, 0.35 * long * t - droop * t * t + (side.zero? ? 0.0 : 0.18 * half)) }
      end
      normals = rows.each_index.map do |i|
        slope = 0.35 * long - 2.0 * droop * i / 4.0
        [-0.18, 0.0, 0.18].map { |lean| Point.new(-lean, -slope / long, 1.0).unit }
      end
      part.patch(rows, normals, material)
    end
  end

  def potted_plant(leaf)
    tuft = @model.part('Tuft') do |part|
      14.times do |i|
        part.place(leaf, Place.turned_x(random(2.0, 34.0)), Place.scaled(random(0.9, 1.25)), Place.turned_z(137.5 * i),
                   Place.at(0, 0, 0.5 * i))
      end
    end
    @model.part('Planter') do |part|
      part.lathe([[0.0, 0.0], [8.4, 0.0], [9.0, 0.6], [12.0, 14.0], [12.2, 17.0], [13.4, 17.4], [13.4, 20.0], [12.8, 20.6],
                  [11.6, 20.6], [11.2, 18.0], [0.0, 18.0]], 'Terracotta', segments: 32)
      [[0, 0, 1.55, 0], [3.0, 2.5, 1.1, 70], [-3.5, 1.0, 1.15, 160], [0.5, -4.0, 1.05, 250]].each do |x, y, size, turn|
        part.place(tuft, Place.scaled(size), Place.turned_z(turn), Place.at(x, y, 17.5))
      end
    end
  end

  def stone_lantern
    post = @model.part('Lantern post') { |part| part.box([-1.2, -1.2, 0], [1.2, 1.2, 8.0], 'Limestone', bevel: 0.25) }
    @model.part('Stone lantern') do |part|
      part.lathe([[0.0, 0.0], [12.0, 0.0], [12.0, 3.0], [10.0, 5.0], [4.6, 6.0], [3.8, 18.0], [4.6, 28.0], [8.0, 30.0],
                  [10.5, 32.0], [10.5, 35.0], [0.0, 35.0]], 'Limestone', segments: 6, crease: 0.0)
      4.times { |i| part.place(post, Place.at(4.6, 4.6, 35.0), Place.turned_z(90.0 * i)) }
      part.lathe([[0.0, 43.0], [6.5, 43.0], [15.0, 42.4], [15.6, 44.2], [8.0, 48.5], [3.0, 51.5], [1.4, 52.0]], 'Limestone',
                 segments: 6, crease: 0.0)
      part.lathe((0..6).map { |i| [2.4 * Math.sin(i * Math::PI / 6.0), 54.2 - 2.8 * Math.cos(i * Math::PI / 6.0)] }, 'Limestone',
                 segments: 12)
    end
  end

  # A maple behind the left corner and a smaller one, mirrored, behind the right.
  def grow_maple
    leaf = leaf_part('Maple leaf', 'Maple leaf', 6.0, 2.4, 2.6)
    spray = @model.part('Maple spray') do |part|
      26.times do |i|
        part.place(leaf, Place.turned_x(random(-40.0, 40.0)), Place.turned_z(137.5 * i),
                   Place.at(random(-11.0, 11.0), random(-11.0, 11.0), random(-5.0, 5.0)))
      end
    end
    branches = maple_branches
    maple = @model.part('Maple') do |part|
      part.bar([[0, 0, -4], [2, -1, 30], [-3, 2, 66], [1, -2, 104]], [6.0, 4.8, 4.0, 3.0], 'Bark', segments: 10)
      branches.each { |path| part.bar(path, [2.4, 1.7, 1.0, 0.45], 'Bark', segments: 6) }
      branches.each { |path| leafy_branch(part, spray, path) }
    end
    @root.place(maple, Place.scaled(1.15), Place.at(-252.0, 60.0), name: 'Maple')
    @root.place(maple, Place.scaled(-0.8, 0.8, 0.72), Place.turned_z(140.0), Place.at(226.0, 150.0), name: 'Maple')
  end

  def maple_branches
    9.times.map do |i|
      angle = 2.0 * Math::PI * i / 9.0 + random(-0.2, 0.2)
      reach = random(46.0, 74.0)
      start = 58.0 + 5.2 * i
      rise = random(34.0, 62.0)
      [0.0, 0.34, 0.7, 1.0].map do |t|
        [reach * t * Math.cos(angle), reach * t * Math.sin(angle), start + rise * t * (1.25 - 0.4 * t)]
      end
    end
  end

  def leafy_branch(part, spray, path)
    [[1, 0.85], [2, 1.05], [2, 0.95], [3, 1.15], [3, 1.0], [3, 0.9]].each_with_index do |(node, size), i|
      x, y, z = path[node]
      part.place(spray, Place.scaled(size, size, 0.8 * size), Place.turned_z(60.0 * i),
                 Place.at(x + random(-10.0, 10.0), y + random(-10.0, 10.0), z + random(-4.0, 12.0)))
    end
  end

  def grow_shrubs
    leaf = leaf_part('Shrub leaf', 'Leaf', 4.2, 1.3, 1.2)
    clump = @model.part('Shrub clump') do |part|
      30.times do |i|
        height = 1.0 - i / 30.0
        ring = Math.sqrt(1.0 - height * height)
        part.place(leaf, Place.turned_x(60.0 * height), Place.turned_z(137.5 * i - 90.0),
                   Place.at(8.0 * ring * Math.cos(2.4 * i), 8.0 * ring * Math.sin(2.4 * i), 8.0 * height))
      end
    end
    shrub = @model.part('Shrub') do |part|
      part.lathe((0..6).map { |i| [11.5 * Math.cos(i * Math::PI / 12.0), 12.0 * Math.sin(i * Math::PI / 12.0)] }, 'Leaf', segments: 16)
      22.times do |i|
        height = 0.95 * (1.0 - i / 22.0)
        ring = Math.sqrt(1.0 - height * height)
        part.place(clump, Place.turned_y(75.0 * (1.0 - height)), Place.turned_z(137.5 * i),
                   Place.at(13.0 * ring * Math.cos(2.4 * i), 13.0 * ring * Math.sin(2.4 * i), 12.0 * height))
      end
    end
    [[172, -84, 1.3], [184, -40, 1.0], [176, -6, 1.5], [186, 40, 1.15], [178, 84, 1.35], [-176, -92, 1.2], [-190, -60, 0.9],
     [-196, -128, 0.8]].each_with_index do |(x, y, size), i|
      @root.place(shrub, Place.scaled(size * (i.odd? ? -1 : 1), size, size * 0.9), Place.turned_z(47.0 * i), Place.at(x, y), name: 'Shrub')
    end
  end

  def grow_grass
    blade = leaf_part('Blade', 'Lawn', 7.0, 0.28, 3.2)
    tuft = @model.part('Grass tuft') do |part|
      16.times do |i|
        part.place(blade, Place.turned_x(random(20.0, 62.0)), Place.scaled(random(0.6, 1.15)), Place.turned_z(137.5 * i),
                   Place.at(random(-3.0, 3.0), random(-3.0, 3.0)))
      end
    end
    170.times do
      x = random(-260.0, 330.0)
      y = random(-430.0, -152.0)
      next if (x - 6.0 - 2.4 * ((-176.0 - y) / 27.0)**2).abs < 30.0

      @root.place(tuft, Place.scaled(random(0.7, 1.5)), Place.turned_z(random(0.0, 360.0)), Place.at(x, y))
    end
  end
end

Pavilion.new.build.write(File.join(__dir__, 'pavilion.json')) if $PROGRAM_NAME == __FILE__
