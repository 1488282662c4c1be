# frozen_string_literal: true

require 'fileutils'
require 'json'
require 'minitest/autorun'
require 'open3'
require 'rbconfig'
require 'tmpdir'

# What the tests of the host program share: folders, small models, a plug-in that only writes down what it is told.
module HostSupport
  ROOT = File.expand_path('../..', __dir__)
  LIBRARIES = File.expand_path(ENV.fetch('VELMAR_LIB_DIR') { File.join(ROOT, 'build/lib') })
  COMMAND = File.join(ROOT, 'host/bin/velmar-render')
  TEST_MODELS = '/usr/share/assimp/models'

  $LOAD_PATH.unshift(File.join(ROOT, 'host/lib'))
  require 'velmar_host'
  VelmarHost::Plugin.load_reader(LIBRARIES)

  # The plug-in's classes as a list of the calls that they got; every call answers `true` unless told otherwise.
  class Recorder
    attr_reader :calls, :answers

    def initialize
      @calls = []
      @answers = {}
    end

    # Stands in for the place where the classes are defined.
    def namespace
      recorder = self
      @namespace ||= Module.new.tap do |space|
        %i[VelmarExt ExtStream ExtDefinition ExtInstance].each { |name| space.const_set(name, Double.new(recorder, name)) }
      end
    end

    def named(name)
      @calls.select { |call| call[1] == name }.map { |call| call[2..] }
    end

    # One class of the plug-in.
    class Double < BasicObject
      def initialize(recorder, name)
        @recorder = recorder
        @name = name
      end

      def method_missing(method, *arguments)
        @recorder.calls << [@name, method, *arguments]
        @recorder.answers.fetch(method, true)
      end

      def respond_to_missing?(*) = true
    end
  end

  def setup
    @folder = Dir.mktmpdir('velmar-host-test')
    @warnings = []
  end

  def teardown
    FileUtils.remove_entry(@folder)
  end

  def write(name, content)
    path = File.join(@folder, name)
    content.is_a?(Hash) ? File.write(path, JSON.generate(content)) : File.binwrite(path, content)
    path
  end

  def read(path)
    VelmarHost::Readers.read(path, warn: ->(line) { @warnings << line })
  end

  def read_error(path)
    assert_raises(VelmarHost::Error) { read(path) }.message
  end

  # Runs the command in a process with a home of its own: what it printed, what it complained about, its status.
  def run_command(*arguments, libraries: LIBRARIES)
    home = File.join(@folder, 'home')
    FileUtils.mkdir_p(home)
    environment = { 'HOME' => home, 'VELMAR_LIB_DIR' => libraries }
    Open3.capture3(environment, RbConfig.ruby, COMMAND, *arguments.map(&:to_s), chdir: @folder)
  end

  # The points of all placements of a model, in the model's coordinates.
  def placed_points(model, definition = model.root, world = VelmarHost::Transform::IDENTITY)
    own = definition.mesh.points.each_slice(3).map { |point| VelmarHost::Transform.point(world, point) }
    own + definition.instances.flat_map do |instance|
      placed_points(model, instance.definition, VelmarHost::Transform.product(instance.transform, world))
    end
  end

  # The box around points: its two corners.
  def box_of(points)
    axes = points.transpose
    [axes.map(&:min), axes.map(&:max)]
  end

  def assert_near(expected, actual, tolerance = 1e-4)
    expected.flatten.zip(actual.flatten).each { |e, a| assert_in_delta e, a, tolerance, "#{actual} is not #{expected}" }
  end

  def assert_one_line(pattern, text)
    assert_equal 1, text.lines.size, text
    assert_match(/\Avelmar: /, text)
    assert_match pattern, text
  end

  # A host-model document of one triangle; `root` and other members are merged over it.
  def document(root: {}, **members)
    { format: 'host-model', version: 1, length_unit: 'inch', up_axis: 'z', materials: [], layers: [], pages: [],
      definitions: [], root: triangle.merge(root) }.merge(members)
  end

  def triangle
    { points: [0, 0, 0, 10, 0, 0, 0, 0, 10], normals: [0, -1, 0] * 3, surfaces: [0, 0, 0], uvs: [0, 0, 1],
      faces: [{ id: 1, material: nil, back_material: nil, hidden: false, points: [0, 1, 2], uvs: [0, 0, 0] }],
      instances: [] }
  end

  def nothing
    { points: [], normals: [], surfaces: [], uvs: [], faces: [], instances: [] }
  end

  def instance(id, definition, transform: VelmarHost::Transform::IDENTITY, **members)
    { id: id, definition: definition, material: nil, transform: transform, hidden: false, layer: nil, name: '' }
      .merge(members)
  end

  def moved(x, y, z)
    [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1]
  end
end
