# frozen_string_literal: true

require_relative 'errors'
require_relative 'host_model_reader'
require_relative 'scene_file_reader'

module VelmarHost
  # Model files by their ending. Other formats are refused by name: the native reader knows many more, but a broken file
  # of some of them would end the process.
  module Readers
    BY_ENDING = {
      '.dae' => SceneFileReader, '.zae' => SceneFileReader, '.gltf' => SceneFileReader, '.glb' => SceneFileReader,
      '.obj' => SceneFileReader, '.json' => HostModelReader
    }.freeze

    module_function

    # The model in the file. Raises Error with one line that names the file. `warn` is called with a line for what is
    # wrong but does not hinder.
    def read(path, warn: ->(_line) {})
      check(path)
      model = BY_ENDING.fetch(File.extname(path).downcase).read(path, warn: warn)
      raise Error, "#{path}: the model is empty: it has no visible faces" if model.placed_triangles.zero?

      model
    rescue SystemCallError => e
      raise Error, "#{path}: #{e.message.sub(/ @ .*/, '').downcase}"
    rescue SystemStackError
      raise Error, "#{path}: its parts are nested too deeply"
    end

    def check(path)
      raise Error, "#{path}: no such file" unless File.exist?(path)
      raise Error, "#{path}: this is a folder, not a model file" if File.directory?(path)
      raise Error, "#{path}: not a regular file" unless File.file?(path)
      raise Error, "#{path}: the file may not be read" unless File.readable?(path)
      return if BY_ENDING.key?(File.extname(path).downcase)

      ending = File.extname(path).empty? ? 'a file without an ending' : "'#{File.extname(path)}'"
      raise Error, "#{path}: #{ending} is not supported; models are #{BY_ENDING.keys.map { |e| e[1..] }.join(', ')}"
    end
  end
end
