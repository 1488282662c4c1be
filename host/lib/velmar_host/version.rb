# frozen_string_literal: true

module VelmarHost
  VERSION = '0.1.0'
end
