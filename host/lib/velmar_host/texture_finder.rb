# frozen_string_literal: true

module VelmarHost
  # Finds the files that a model names as textures. Models travel without their folders, so a file that is not where the
  # model says is looked for by its name around the model. What stays missing is told once, whatever the number.
  class TextureFinder
    # Below the model's folder and the one above it.
    PLACES = ['.', 'textures', 'images', 'materials/textures', '..', '../textures', '../images',
              '../materials/textures'].freeze

    # Files that are there and cannot be read, or hold nothing.
    attr_reader :unreadable

    # `warn` is called with one line at most.
    def initialize(folder, warn)
      @folder = folder
      @warn = warn
      @missing = []
      @unreadable = []
    end

    # The path of an existing file; nil when there is none, or when the model has the texture inside ("*0").
    def find(name)
      return nil if name.nil? || name.empty? || name.start_with?('*')

      clean = name.tr('\\', '/').delete_prefix('file://')
      candidates = [File.expand_path(clean, @folder)] +
                   PLACES.map { |place| File.expand_path(File.join(place, File.basename(clean)), @folder) }
      found = candidates.find { |path| File.file?(path) } || miss(name)
      @unreadable |= [found] if found && !readable?(found)
      found
    rescue ArgumentError
      miss(name)
    end

    def report
      return if @missing.empty?

      others = @missing.size > 1 ? " and #{@missing.size - 1} more" : ''
      @warn.call("texture not found: #{@missing.first}#{others}")
    end

    private

    def readable?(path)
      File.open(path, 'rb') { |file| !file.read(1).nil? }
    rescue SystemCallError
      false
    end

    def miss(name)
      @missing |= [name.inspect[1..-2]]
      nil
    end
  end
end
