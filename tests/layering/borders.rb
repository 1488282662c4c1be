# frozen_string_literal: true

require "open3"

# What the parts of the tree may know of each other and of the libraries around them. Each check answers its complaints,
# one line each.
class Borders
  RUBY = %r{\Aruby(\.h|/)}
  EDGE = %r{\Asrc/plugin/(ruby/|main\.cpp\z)|_ruby\.(h|cpp)\z}
  STANDARD_HEADER = /\A[a-z_]+\z/
  ENTRIES = %w[Init_velmarsu16 Init_velmarsu17 Init_velmarsu18].freeze

  # The parenthesis that ends a parameter list, what may stand between it and a body, and the body's brace.
  QUALIFIERS = /(?:\s|const\b|noexcept\b(?:\([^()]*\))?|override\b|final\b|&&?|->[\s\w:<>,&*]+)*/
  INITIALISERS = /(?::\s*[\w:<>]+\s*(?:\([^()]*\)|\{[^{}]*\})(?:\s*,\s*[\w:<>]+\s*(?:\([^()]*\)|\{[^{}]*\}))*\s*)?/
  BODY = /\)#{QUALIFIERS}#{INITIALISERS}\{/

  def initialize(tree)
    @tree = tree
  end

  def plugin_knows_no_engine
    forbid("src/plugin") { |include| within?(include, "engine") || within?(include, "host") }
  end

  def engine_knows_neither_plugin_nor_its_libraries
    outside = %r{\A(json|glog)/|#{RUBY}}
    forbid("src/engine") { |include| within?(include, "plugin") || include.name.match?(outside) }
  end

  # The interpreter's headers come neither straight nor by way of a header of ours into a source that is not at the edge.
  def ruby_stays_at_the_edge
    forbid("{src,sdk}") { |include| !include.file.match?(EDGE) && brings_ruby?(include) }
  end

  # The host program reaches the plug-in through its Ruby classes, and of the engine only the interface that is made for
  # programs.
  def host_stays_outside
    forbid("host") do |include|
      within?(include, "plugin") || (within?(include, "engine") && !include.name.include?("engine/host/"))
    end
  end

  def sdk_includes_only_itself
    forbid("sdk/include") { |include| !include.name.start_with?("velmar/") && !include.name.match?(STANDARD_HEADER) }
  end

  def sdk_holds_no_bodies
    @tree.sources("sdk/include").flat_map { |file| bodies(file) }
  end

  # `library` is the path of a module file.
  def module_exports(library)
    listing, status = Open3.capture2e("nm", "-D", "--defined-only", "--format=posix", library)
    return ["#{library}: #{listing.strip}"] unless status.success?

    exported = listing.lines.map { |line| line[/\A[^\s@]+/] }.sort
    exported == ENTRIES ? [] : ["#{library} exports #{exported.first(20).join(', ')}"]
  end

  private

  def forbid(folder)
    @tree.includes_below(folder).select { |include| yield include }.map(&:to_s)
  end

  def brings_ruby?(include)
    include.name.match?(RUBY) || (include.target && holds_ruby?(include.target))
  end

  def holds_ruby?(file)
    @holds_ruby ||= {}
    return @holds_ruby[file] if @holds_ruby.key?(file)

    @holds_ruby[file] = false # a header that includes itself by a circle brings nothing new
    @holds_ruby[file] = @tree.includes(file).any? { |include| brings_ruby?(include) }
  end

  # True for an include that names the part, or that ends up in it by another way.
  def within?(include, part)
    homes = ["src/#{part}/", "#{part}/"]
    include.name.start_with?("#{part}/") || include.target&.start_with?(*homes)
  end

  def bodies(file)
    text = @tree.without_comments(@tree.read(file)).gsub(/^[ \t]*#(?:[^\n]*\\\n)*[^\n]*/) { |line| line.gsub(/[^\n]/, " ") }
    found = []
    text.scan(BODY) { found << "#{file}:#{$~.pre_match.count("\n") + 1} holds a function body" }
    found
  end
end
