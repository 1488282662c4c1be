# frozen_string_literal: true

require_relative 'component_finder'
require_relative 'errors'
require_relative 'model'
require_relative 'texture_finder'

module VelmarHost
  # Reads COLLADA, glTF and OBJ files by way of the native half, which brings them to inches and Z up.
  class SceneFileReader
    NO_UV = [0.0, 0.0, 1.0].freeze

    def self.read(path, warn:)
      new(path, warn).model
    end

    def initialize(path, warn)
      @path = path
      @scene = Native.read_scene(path)
      @textures = TextureFinder.new(File.dirname(path), warn)
    rescue RuntimeError => e
      raise Error, "#{path}: #{e.message}"
    end

    def model
      @materials = @scene[:materials].map { |material| read_material(material) }
      finder = ComponentFinder.new(mesh_names: @scene[:meshes].map { |mesh| mesh[:name] },
                                   build_mesh: ->(numbers) { build_mesh(numbers) })
      root = finder.root_definition(@scene[:root])
      @textures.report
      Model.new(root: root, materials: @materials, unreadable_textures: @textures.unreadable)
    end

    private

    def read_material(material)
      Material.new(name: material[:name], color: material[:color], opacity: material[:opacity],
                   texture: @textures.find(material[:texture]), texture_size: [1.0, 1.0])
    end

    # One mesh of several, each of which becomes a face.
    def build_mesh(numbers)
      return Mesh.empty if numbers.empty?

      sources = @scene[:meshes].values_at(*numbers)
      packed_points = sources.map { |source| source[:points] }.join
      packed_normals = sources.map { |source| source[:normals] }.join
      mesh = Mesh.new(points: packed_points.unpack('f*'), normals: packed_normals.unpack('f*'), uvs: NO_UV.dup,
                      surfaces: Native.surface_numbers(packed_points, packed_normals).unpack('l*'), faces: [])
      first_point = 0
      sources.each do |source|
        mesh.faces << read_face(source, first_point, mesh.uvs)
        first_point += source[:points].bytesize / 12
      end
      mesh
    end

    def read_face(source, first_point, uvs)
      triangles = source[:triangles].unpack('L*')
      first_uv = uvs.size / 3
      uvs.concat(source[:uvs].unpack('f*'))
      has_uvs = !source[:uvs].empty?
      Face.new(material: @materials[source[:material]], back_material: @materials[source[:material]], hidden: false,
               points: first_point.zero? ? triangles : triangles.map { |point| point + first_point },
               uvs: has_uvs ? triangles.map { |point| point + first_uv } : Array.new(triangles.size, 0))
    end
  end
end
