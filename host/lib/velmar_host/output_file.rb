# frozen_string_literal: true

require_relative 'errors'

module VelmarHost
  # Where the picture goes; looked at before any work is done.
  module OutputFile
    ENDINGS = %w[.png .exr].freeze

    module_function

    # Raises Error when a picture could not be saved under the name.
    def check(path)
      unless ENDINGS.include?(File.extname(path).downcase)
        raise Error, "#{path}: pictures are saved as #{ENDINGS.map { |ending| ending[1..] }.join(' or ')}"
      end
      raise Error, "#{path}: this is a folder" if File.directory?(path)

      folder = File.dirname(path)
      raise Error, "#{folder}: no such folder" unless File.directory?(folder)
      raise Error, "#{path}: the file may not be written" if File.exist?(path) && !File.writable?(path)

      try_writing(folder)
    end

    # Permission bits do not tell everything: a file system may be read-only.
    def try_writing(folder)
      probe = File.join(folder, ".velmar-#{Process.pid}-#{rand(2**32).to_s(16)}")
      File.open(probe, File::WRONLY | File::CREAT | File::EXCL) { nil }
      File.delete(probe)
    rescue SystemCallError
      raise Error, "#{folder}: the folder may not be written"
    end
  end
end
