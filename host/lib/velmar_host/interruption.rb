# frozen_string_literal: true

module VelmarHost
  # What the user's Ctrl-C means while a picture is made: the first asks to end in good order, a second one quits on the
  # spot.
  class Interruption
    QUIT_STATUS = 130

    def initialize
      @asked = false
    end

    def asked?
      @asked
    end

    # What the signal does.
    def ask
      exit!(QUIT_STATUS) if @asked
      @asked = true
    end

    # Runs the block with the signal taken care of.
    def watch
      previous = Signal.trap('INT') { ask }
      yield
    ensure
      Signal.trap('INT', previous || 'DEFAULT')
    end
  end
end
