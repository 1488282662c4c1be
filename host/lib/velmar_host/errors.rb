# frozen_string_literal: true

module VelmarHost
  # Something that the user can put right; its message is one line.
  class Error < StandardError; end

  # The command line asks for something that does not exist or does not go together.
  class UsageError < Error; end

  # The user ended the work before there was a picture.
  class Stopped < Error; end
end
