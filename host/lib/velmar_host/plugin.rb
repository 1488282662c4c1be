# frozen_string_literal: true

require 'velmar_plugin'

require_relative 'errors'

module VelmarHost
  # Loads the plug-in, as the modelling application does, and the host's own native half.
  module Plugin
    MODULE = 'velmarsu18'

    module_function

    # `folder` is where the build leaves its libraries.
    def load(folder)
      raise Error, "#{folder}: no such folder; the program is built by './velmar build'" unless File.directory?(folder)

      $LOAD_PATH.unshift(File.expand_path(folder))
      [MODULE, 'velmarhost'].each { |file| load_library(file, folder) }
      raise Error, 'the render engine did not start; its log is in Documents/Velmar' unless started?
    end

    # The native half alone: enough to read models.
    def load_reader(folder)
      $LOAD_PATH.unshift(File.expand_path(folder))
      load_library('velmarhost', folder)
    end

    def load_library(file, folder)
      require file
    rescue LoadError => e
      raise Error, "#{file} cannot be loaded from #{folder}: #{e.message.lines.first.strip}"
    end

    def started?
      Object.const_defined?(:ExtStream) && VelmarExt.respond_to?(:apply_geometry)
    end
  end
end
