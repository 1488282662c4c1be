# frozen_string_literal: true

# A host for the plug-in on a machine without the modelling application: it reads a model file into memory and plays the
# script layer that streams it. The native half (`velmarhost`) reads the files of foreign formats and waits for the engine;
# it is loaded by VelmarHost::Plugin.
require_relative 'velmar_host/command_line'
