# frozen_string_literal: true

# The geometry stream from Ruby against empty native methods of the same arguments, called with the same values in the
# same loops: once the two calls of a point alone, once a model of a million corners from beginning to end.
#
#   ruby bench/stream_bench.rb LIB_DIR

require "fileutils"
require "tmpdir"

LIB_DIR = File.expand_path(ARGV.fetch(0))
HOME = Dir.mktmpdir("velmar-bench-")
ENV["HOME"] = HOME
at_exit { FileUtils.rm_rf(HOME) }

require File.join(LIB_DIR, "velmar_bench")
require File.join(LIB_DIR, "velmarsu18")

# Rolling ground of square quads, `WIDTH` to a row; surfaces are strips of some rows.
class Terrain
  WIDTH = 250

  def initialize(rows)
    @rows = rows
    @xs = Array.new(WIDTH + 1) { |column| column * 7.3 }
    @ys = Array.new(rows + 1) { |row| row * 7.3 }
    @zs = Array.new(rows + 1) { |row| Array.new(WIDTH + 1) { |column| 30.0 * Math.sin(column * 0.05) * Math.cos(row * 0.05) } }
    # Numbers of the corners of each quad's two triangles.
    @corners = Array.new(rows * WIDTH) do |quad|
      first = quad / WIDTH * (WIDTH + 1) + quad % WIDTH + 1
      [first, first + 1, first + WIDTH + 2, first, first + WIDTH + 2, first + WIDTH + 1]
    end.flatten
  end

  def corner_count
    @corners.size
  end

  # Each corner of each triangle as a point of its own, with its normal.
  def add_corner_points(stream)
    stream.warmup_stream(@corners.size, 0)
    row = 0
    while row < @rows
      y0 = @ys[row]
      y1 = @ys[row + 1]
      near = @zs[row]
      far = @zs[row + 1]
      surface = row / 20
      column = 0
      while column < WIDTH
        x0 = @xs[column]
        x1 = @xs[column + 1]
        z00 = near[column]
        z10 = near[column + 1]
        z01 = far[column]
        z11 = far[column + 1]
        stream.add_vertex(x0, y0, z00)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        stream.add_vertex(x1, y0, z10)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        stream.add_vertex(x1, y1, z11)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        stream.add_vertex(x0, y0, z00)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        stream.add_vertex(x1, y1, z11)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        stream.add_vertex(x0, y1, z01)
        stream.add_normal(-0.1, 0.1, 0.99, surface)
        column += 1
      end
      row += 1
    end
  end

  # The whole protocol: points with normals and texture coordinates, corners, faces.
  def send_to(stream, definition)
    stream.set_geometry_stream(definition, "terrain")
    stream.warmup_stream((@rows + 1) * (WIDTH + 1), @corners.size)
    add_grid(stream)
    add_corners(stream)
    quad = 0
    while quad < @rows * WIDTH
      stream.add_face(quad, -1, 2 * quad, 2 * quad + 2)
      quad += 1
    end
    stream.evaluate_stream("")
  end

  private

  def add_grid(stream)
    row = 0
    while row <= @rows
      y = @ys[row]
      heights = @zs[row]
      column = 0
      while column <= WIDTH
        stream.add_vertex(@xs[column], y, heights[column])
        stream.add_normal(-0.1, 0.1, 0.99, 1)
        stream.add_uvw(@xs[column], y, 1.0)
        column += 1
      end
      row += 1
    end
  end

  def add_corners(stream)
    corner = 0
    while corner < @corners.size
      number = @corners[corner]
      stream.add_vertex_index(number)
      stream.add_normal_index(number)
      stream.add_uvw_index(number)
      corner += 1
    end
  end
end

ROUNDS = 9

def seconds
  start = Process.clock_gettime(Process::CLOCK_MONOTONIC)
  yield
  Process.clock_gettime(Process::CLOCK_MONOTONIC) - start
end

def median(values)
  values.sort[values.size / 2]
end

# Both in turn, after one round each that does not count. Prints a line as bench/ratio_rounds.h does.
def compare(name, goal, reference:, ours:)
  rounds = Array.new(ROUNDS + 1) do
    GC.start
    [seconds(&reference), seconds(&ours)]
  end
  empty, full = rounds.drop(1).transpose.map { |values| median(values) }
  puts format("%s\t%.6f\t%.6f\t%.3f\t%.3f", name, empty, full, empty / full, goal)
end

# What the stream holds goes; no definition has this id.
def drop_stream
  ExtStream.set_geometry_stream(-1, "none")
  ExtStream.evaluate_stream("")
end

ground = Terrain.new(667)
compare("add_vertex and add_normal of a million points / empty methods", 0.6,
        reference: -> { ground.add_corner_points(EmptyStream) },
        ours: lambda {
          ground.add_corner_points(ExtStream)
          drop_stream
        })

PIECES = 20
piece = Terrain.new(34)
PIECES.times { |id| ExtDefinition.add(id, [], []) }
corners = PIECES * piece.corner_count
abort "the model has #{corners} corners" unless corners >= 1_000_000
compare("stream a model of a million corners, end to end / empty methods", 0.6,
        reference: -> { PIECES.times { |id| piece.send_to(EmptyStream, id) } },
        ours: -> { PIECES.times { |id| piece.send_to(ExtStream, id) || abort("a stream was refused") } })
