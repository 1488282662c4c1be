# frozen_string_literal: true

require 'zlib'

# Reads 8-bit PNG files of red, green and blue, with or without opacity (W3C Recommendation, second edition).
class PngFile
  attr_reader :width, :height

  def initialize(path)
    data = File.binread(path)
    raise "#{path} is no PNG file" unless data.start_with?("\x89PNG\r\n\x1A\n".b)

    chunks = chunks(data)
    @width, @height, depth, color, _, _, interlace = chunks.assoc('IHDR')[1].unpack('NNCCCCC')
    raise "#{path}: depth #{depth}, colour #{color}" unless depth == 8 && [2, 6].include?(color) && interlace.zero?

    @channels = color == 2 ? 3 : 4
    @rows = unfiltered(Zlib::Inflate.inflate(chunks.select { |name, _| name == 'IDAT' }.map(&:last).join))
  end

  # Red, green and blue of 0 to 255; the first row is the upper one.
  def pixel(x, y)
    @rows[y][@channels * x, 3]
  end

  # The box around all pixels that differ from those of `other` by more than `least` in a channel:
  # [left, top, right, bottom], nil when there are none.
  def difference_box(other, least: 12)
    different = (0...@height).flat_map do |y|
      (0...@width).select { |x| pixel(x, y).zip(other.pixel(x, y)).any? { |a, b| (a - b).abs > least } }.map { |x| [x, y] }
    end
    return nil if different.empty?

    xs, ys = different.transpose
    [xs.min, ys.min, xs.max, ys.max]
  end

  private

  def chunks(data)
    at = 8
    list = []
    while at < data.bytesize
      size, name = data[at, 8].unpack('Na4')
      list << [name, data[at + 8, size]]
      at += size + 12
    end
    list
  end

  def unfiltered(bytes)
    stride = @width * @channels
    before = Array.new(stride, 0)
    Array.new(@height) do |y|
      filter, *row = bytes[y * (stride + 1), stride + 1].bytes
      before = undo(filter, row, before)
    end
  end

  def undo(filter, row, above)
    row.each_index do |i|
      left = i >= @channels ? row[i - @channels] : 0
      corner = i >= @channels ? above[i - @channels] : 0
      row[i] = (row[i] + prediction(filter, left, above[i], corner)) & 255
    end
    row
  end

  def prediction(filter, left, above, corner)
    case filter
    when 0 then 0
    when 1 then left
    when 2 then above
    when 3 then (left + above) / 2
    when 4 then [left, above, corner].min_by.with_index { |v, i| [(left + above - corner - v).abs, i] }
    else raise "unknown filter #{filter}"
    end
  end
end
