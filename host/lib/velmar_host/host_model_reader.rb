# frozen_string_literal: true

require 'json'

require_relative 'document'
require_relative 'framing'
require_relative 'model'
require_relative 'texture_finder'

module VelmarHost
  # Reads the JSON form of a host model, version 1: what a script layer in the modelling application reads from its
  # model. Everything is checked before it is taken.
  class HostModelReader
    FORMAT = 'host-model'
    VERSION = 1
    MOST_LEVELS = 1000    # of lists and objects inside each other; a model has six

    def self.read(path, warn:)
      new(File.read(path, encoding: 'UTF-8'), TextureFinder.new(File.dirname(path), warn)).model
    rescue Error, JSON::ParserError, EncodingError => e
      raise Error, "#{path}: #{reason(e)}"
    end

    def self.reason(error)
      return error.message if error.is_a?(Error)

      "not a JSON document: #{error.message.lines.first.to_s.scrub.strip[0, 120]}"
    end
    private_class_method :reason

    def initialize(text, textures)
      @document = Document.new(JSON.parse(text, max_nesting: MOST_LEVELS))
      @textures = textures
    end

    def model
      check_kind
      read_materials
      layers = @document.each('layers').map { |entry| read_layer(entry) }
      pages = @document.each('pages').map { |entry| read_page(entry) }
      read_definitions
      root = Definition.new(name: '', always_faces_camera: false, mesh: nil, instances: nil)
      fill(root, @document['root'])
      refuse_cycles
      @textures.report
      Model.new(root: root, materials: @materials.values, layers: layers, pages: pages,
                unreadable_textures: @textures.unreadable)
    end

    private

    def check_kind
      @document.fail('the document must be an object') unless @document.value.is_a?(Hash)
      kind = @document.optional('format')&.value
      @document.fail("not a #{FORMAT} document") unless kind == FORMAT
      version = @document['version'].value
      @document.fail("version #{version.inspect} is not supported, only #{VERSION}") unless version == VERSION
      unit = @document.optional('length_unit')
      unit.fail("only 'inch' is supported") if unit && unit.value != 'inch'
      axis = @document.optional('up_axis')
      axis.fail("only 'z' is supported") if axis && axis.value != 'z'
    end

    def read_materials
      @materials = {}
      @document.each('materials').each do |entry|
        id = entry['id'].integer
        entry['id'].fail("#{id} is used twice") if @materials.key?(id)
        @materials[id] = read_material(entry)
      end
    end

    def read_material(entry)
      texture = entry.optional('texture')
      Material.new(name: entry.optional('name')&.text.to_s, opacity: entry.optional('opacity')&.number || 1.0,
                   color: entry.optional('color')&.numbers(size: 3) || [255, 255, 255],
                   texture: texture && @textures.find(texture['file'].text),
                   texture_size: texture && [texture['width'].number, texture['height'].number])
    end

    def read_layer(entry)
      visible = entry.optional('visible')
      Layer.new(name: entry['name'].text, visible: visible ? visible.flag : true)
    end

    def read_page(entry)
      hidden = entry.optional('hidden_layers') && entry.each('hidden_layers').map(&:text)
      Page.new(name: entry.optional('name')&.text.to_s, hidden_layers: hidden,
               camera: entry.optional('eye') && read_camera(entry))
    end

    def read_camera(entry)
      parallel = flag(entry, 'parallel')
      camera = Camera.new(eye: entry['eye'].numbers(size: 3), target: entry['target'].numbers(size: 3),
                          up: entry.optional('up')&.numbers(size: 3) || [0, 0, 1], parallel: parallel)
      entry['target'].fail('is the eye') if camera.eye == camera.target
      if parallel
        camera.height = entry['height'].between(1e-6, Document::LARGEST)
      else
        camera.fov = entry['fov'].between(*Framing::FOV_RANGE)
      end
      camera
    end

    def read_definitions
      entries = @document.each('definitions')
      @ids = {}
      @definitions = entries.to_h do |entry|
        definition = Definition.new(name: entry.optional('name')&.text.to_s,
                                    always_faces_camera: flag(entry, 'always_faces_camera'))
        [take_id(entry), definition]
      end
      entries.each { |entry| fill(@definitions[entry['id'].integer], entry) }
    end

    # Definitions and instances share one space of ids.
    def take_id(entry)
      id = entry['id'].integer
      entry['id'].fail("#{id} is used twice") if @ids.key?(id)
      @ids[id] = true
      id
    end

    def fill(definition, entry)
      definition.mesh = read_mesh(entry)
      definition.instances = entry.each('instances').map { |instance| read_instance(instance) }
    end

    def read_mesh(entry)
      points = entry['points'].numbers(multiple: 3)
      mesh = Mesh.new(points: points, normals: entry['normals'].numbers(size: points.size),
                      surfaces: entry['surfaces'].indices(2**31, multiple: 1),
                      uvs: entry.optional('uvs')&.numbers(multiple: 3) || [], faces: [])
      entry['surfaces'].fail("must hold #{points.size / 3} numbers, not #{mesh.surfaces.size}") unless
        mesh.surfaces.size == points.size / 3
      faces = entry.each('faces')
      mesh.uvs = [0.0, 0.0, 1.0] if mesh.uvs.empty?
      mesh.faces = faces.map { |face| read_face(face, mesh) }
      mesh
    end

    def read_face(entry, mesh)
      points = entry['points'].indices(mesh.points.size / 3, multiple: 3)
      uvs = entry.optional('uvs')&.indices(mesh.uvs.size / 3)
      uvs = Array.new(points.size, 0) if uvs.nil? || uvs.empty?
      entry['uvs'].fail("must hold #{points.size} numbers, not #{uvs.size}") unless uvs.size == points.size
      Face.new(material: material(entry, 'material'), back_material: material(entry, 'back_material'),
               hidden: flag(entry, 'hidden'), points: points, uvs: uvs)
    end

    def read_instance(entry)
      take_id(entry)
      placed = entry['definition']
      definition = @definitions[placed.integer] || placed.fail("there is no definition #{placed.value}")
      Instance.new(name: entry.optional('name')&.text.to_s, definition: definition, hidden: flag(entry, 'hidden'),
                   material: material(entry, 'material'), transform: entry['transform'].numbers(size: 16),
                   layer: entry.optional('layer')&.text)
    end

    def material(entry, key)
      id = entry.optional(key)
      return nil unless id

      @materials[id.integer] || id.fail("there is no material #{id.value}")
    end

    def flag(entry, key)
      entry.optional(key)&.flag || false
    end

    # A definition that contains itself could never be drawn.
    def refuse_cycles
      state = {}.compare_by_identity
      @definitions.each_value do |start|
        path = [[start, 0]]
        until path.empty?
          definition, at = path.pop
          state[definition] = :open
          child = definition.instances[at]&.definition
          next state[definition] = :done unless child

          path.push([definition, at + 1])
          @document.fail("definition '#{child.name}' contains itself") if state[child] == :open
          path.push([child, 0]) unless state[child] == :done
        end
      end
    end
  end
end
