# frozen_string_literal: true

module VelmarHost
  # How the work goes on is told in one of three ways: not at all, line by line, or with a bar on a terminal. All have the
  # same four methods.
  module Report
    def self.for(quiet:, out: $stdout)
      return Silent.new if quiet

      out.tty? ? Bars.new(out) : Lines.new(out)
    rescue LoadError
      Lines.new(out)    # the bar's library is a convenience
    end

    # Tells nothing.
    class Silent
      def say(line); end

      # A piece of work of `total` steps starts.
      def start(title, total); end

      # `done` steps of it are done; `note` is a short text.
      def at(done, note = nil); end

      def finish; end
    end

    # One line for each stage, and one whenever the number of steps has doubled.
    class Lines < Silent
      def initialize(out)
        super()
        @out = out
      end

      def say(line)
        @out.puts line
        @out.flush
      end

      def start(title, total)
        @title = title
        @total = total
        @next = 1
      end

      def at(done, note = nil)
        return unless note && done >= @next && done < @total

        say "#{@title}: #{done} of #{@total}, #{note}"
        @next *= 2 while @next <= done
      end
    end

    # A bar for each stage.
    class Bars < Silent
      def initialize(out)
        super()
        require 'ruby-progressbar'
        @out = out
      end

      def say(line)
        @out.puts line
      end

      def start(title, total)
        @bar = ProgressBar.create(title: title.ljust(9), total: [total, 1].max, output: @out,
                                  format: '%t |%B| %p%% %e', throttle_rate: 0.05)
      end

      def at(done, _note = nil)
        @bar.progress = [done, @bar.total].min
      end

      # A stage that ends early leaves its bar where it is.
      def finish
        @bar.progress < @bar.total ? @bar.stop : @bar.finish
      end
    end
  end
end
