# frozen_string_literal: true

# The sources of a tree and the includes in them. Knows nothing of layers.
class SourceTree
  Include = Struct.new(:file, :line, :name, :target) do
    # `name` as written; `target` the included file's path from the tree's root, or nil for a header from outside.
    def to_s
      "#{file}:#{line} includes #{name}"
    end
  end

  SOURCE = /\.(h|cpp|mm|c)\z/
  DIRECTIVE = /^[ \t]*#[ \t]*(?:include|import)[ \t]*["<]([^">\n]+)[">]/

  attr_reader :root

  def initialize(root)
    @root = root
  end

  # Paths of all sources below `folder`, from the tree's root, sorted.
  def sources(folder)
    Dir.glob("#{folder}/**/*", base: root).grep(SOURCE).sort
  end

  def includes_below(folder)
    sources(folder).flat_map { |file| includes(file) }
  end

  def includes(file)
    text = without_comments(read(file))
    text.each_line.with_index(1).filter_map do |line, number|
      match = DIRECTIVE.match(line)
      Include.new(file, number, match[1], locate(file, match[1])) if match
    end
  end

  # The text of a source without comments, with all its line breaks.
  def without_comments(text)
    text.gsub(%r{"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/}m) do |match|
      match.start_with?("/") ? match.gsub(/[^\n]/, " ") : match
    end
  end

  def read(file)
    File.read(File.join(root, file), encoding: "UTF-8")
  end

  private

  def locate(file, name)
    beside = clean(File.join(File.dirname(file), name))
    [beside, File.join("src", name), File.join("sdk/include", name)].find do |path|
      File.file?(File.join(root, path))
    end
  end

  def clean(path)
    parts = path.split("/").each_with_object([]) { |part, kept| part == ".." ? kept.pop : kept << part unless part == "." }
    parts.join("/")
  end
end
