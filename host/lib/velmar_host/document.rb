# frozen_string_literal: true

require_relative 'errors'

module VelmarHost
  # A value of a JSON document together with the place where it stands, so that whatever is wrong is reported by its
  # path, as in `definitions[3].faces[0].points[5]`.
  class Document
    LARGEST = 1e12    # no length, angle or scale of a model is beyond
    NO_NUMBER = 'must be a number, 1e12 at most'

    attr_reader :value, :path

    def initialize(value, path = '')
      @value = value
      @path = path
    end

    def fail(message)
      raise Error, @path.empty? ? message : "#{@path}: #{message}"
    end

    # The member `key` of an object, which must be there.
    def [](key)
      member = optional(key)
      fail("'#{key}' is missing") unless member
      member
    end

    # The member `key` of an object; nil when it is missing or null.
    def optional(key)
      fail('must be an object') unless @value.is_a?(Hash)
      member = @value[key]
      member.nil? ? nil : Document.new(member, @path.empty? ? key : "#{@path}.#{key}")
    end

    # The elements of the list `key`, none when it is missing.
    def each(key)
      list = optional(key)
      return [] unless list

      list.fail('must be a list') unless list.value.is_a?(Array)
      list.value.each_with_index.map { |element, i| Document.new(element, "#{list.path}[#{i}]") }
    end

    def text
      fail('must be a text') unless @value.is_a?(String)
      @value
    end

    def integer
      fail('must be a whole number') unless @value.is_a?(Integer)
      @value
    end

    def number
      fail(NO_NUMBER) unless sensible?(@value)
      @value
    end

    def between(least, most)
      fail("must be between #{least} and #{most}") unless number.between?(least, most)
      @value
    end

    def flag
      fail('must be true or false') unless [true, false].include?(@value)
      @value
    end

    # A list of numbers; `size` fixes its length, `multiple` what its length is a multiple of.
    def numbers(size: nil, multiple: nil)
      fail('must be a list') unless @value.is_a?(Array)
      unless @value.all? { |element| sensible?(element) }
        at = @value.index { |element| !sensible?(element) }
        Document.new(@value[at], "#{@path}[#{at}]").fail(NO_NUMBER)
      end
      check_size(size, multiple)
      @value
    end

    # A list of 0-based numbers below `count`.
    def indices(count, multiple: nil)
      fail('must be a list') unless @value.is_a?(Array)
      unless @value.all?(Integer) && (@value.empty? || (@value.min >= 0 && @value.max < count))
        at = @value.index { |element| !element.is_a?(Integer) || element.negative? || element >= count }
        Document.new(@value[at], "#{@path}[#{at}]").fail("#{@value[at].inspect[0, 40]} is not one of the #{count} there are")
      end
      check_size(nil, multiple)
      @value
    end

    private

    def sensible?(number)
      (number.is_a?(Float) || number.is_a?(Integer)) && number.abs <= LARGEST
    end

    def check_size(size, multiple)
      fail("must hold #{size} numbers, not #{@value.size}") if size && @value.size != size
      fail("must hold a multiple of #{multiple} numbers, not #{@value.size}") if multiple && @value.size % multiple != 0
    end
  end
end
