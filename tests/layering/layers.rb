# frozen_string_literal: true

# One numbered list of layers in docs/architecture.md, bottom up: "1. `utils`: what it is for". A name is a folder of the
# part, or `surface` for the sources named *_ruby, whatever folder they stand in. The sources beside the folders stand
# above all and in no list.
class Layers
  SURFACE = "surface"
  TOP = "the sources beside the folders"

  def self.read(page, heading)
    section = page[/^#{Regexp.escape(heading)}\n(.*?)(?=^## |\z)/m, 1] or raise ArgumentError, "no heading '#{heading}'"
    rows = section.scan(/^(\d+)\. `(\w+)`:/)
    numbered = rows.map(&:first).map(&:to_i)
    raise ArgumentError, "'#{heading}' has no list of layers" if rows.empty?
    raise ArgumentError, "'#{heading}' is numbered #{numbered.join(', ')}" unless numbered == [*1..rows.size]

    rows.map(&:last)
  end

  # `part` is the folder that holds the layers' folders, "src/plugin" for instance; `names` its layers, bottom up.
  def initialize(tree, part, names)
    @tree = tree
    @part = part
    @names = names
  end

  # Includes that go up the list, and folders that the list lacks; one line each.
  def upward_includes
    unlisted = modules - @names - [TOP]
    upward = edges.select { |edge| rank(edge.to) > rank(edge.from) }
    unlisted.map { |name| "#{@part}/#{name} is in no list of layers" } +
      upward.map { |edge| "#{edge.include}: '#{edge.from}' stands below '#{edge.to}'" }
  end

  # Layers of the list that have no folder; one line each.
  def missing_folders
    missing = (@names - [SURFACE]).reject { |name| Dir.exist?(File.join(@tree.root, @part, name)) }
    missing.map { |name| "#{@part}/#{name} is listed and not there" }
  end

  # Groups of modules that include each other in a circle; one line each. Needs no list.
  def cycles
    uses = Hash.new { |hash, name| hash[name] = [] }
    edges.each { |edge| uses[edge.from] |= [edge.to] }
    knots = modules.map { |name| modules.select { |other| reaches?(uses, name, other) && reaches?(uses, other, name) } }
    knots.reject(&:empty?).uniq.map { |knot| "#{@part}: #{knot.join(', ')} include each other" }
  end

  private

  Edge = Struct.new(:from, :to, :include)

  def edges
    @edges ||= @tree.includes_below(@part).filter_map do |inclusion|
      next unless inclusion.target&.start_with?("#{@part}/")

      edge = Edge.new(module_of(inclusion.file), module_of(inclusion.target), inclusion)
      edge unless edge.from == edge.to
    end
  end

  def modules
    @modules ||= @tree.sources(@part).map { |file| module_of(file) }.uniq.sort
  end

  def module_of(file)
    below = file.delete_prefix("#{@part}/")
    return SURFACE if below.match?(/_ruby\.(h|cpp)\z/)

    below[%r{\A[^/]+(?=/)}] || TOP
  end

  def rank(name)
    @names.index(name) || @names.size
  end

  def reaches?(uses, from, to, seen = [])
    uses[from].any? do |name|
      name == to || (!seen.include?(name) && reaches?(uses, name, to, seen << name))
    end
  end
end
