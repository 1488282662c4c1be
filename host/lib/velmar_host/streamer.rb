# frozen_string_literal: true

require 'json'

require_relative 'errors'
require_relative 'model'

module VelmarHost
  # Plays the script layer of the modelling application: names everything in the model by small integers and sends it to
  # the plug-in call by call, in the order that the plug-in asks for.
  class Streamer
    ROOT = -2
    NONE = -1
    MESH_SETTINGS = JSON.generate(smoothing: true, angle: 89.0, sharpness: 0.0, level: 0, interpolation: 2, scheme: 0)

    # `ext` holds the plug-in's classes. `progress` is called with the numbers of points and triangle corners sent so far;
    # `stopped` says whether the user wants to end.
    def initialize(model, ext: Object, progress: ->(_done) {}, stopped: -> { false })
      @model = model
      @definitions = model.definitions
      @ext = ext
      @stream = ext::ExtStream
      @progress = progress
      @stopped = stopped
      @done = 0
      hand_out_ids
    end

    # The number that `progress` reaches at the end.
    def total
      [*@definitions, @model.root].sum { |definition| work(definition.mesh) }
    end

    # Everything but the application of the whole.
    def stream
      @definitions.each do |definition|
        @ext::ExtDefinition.add(@ids[definition], [], child_ids(definition))
        stream_mesh(@ids[definition], definition.name, definition.mesh)
      end
      stream_mesh(ROOT, 'Model', @model.root.mesh)
      [*@definitions, @model.root].each { |definition| add_instances(definition) }
      child_ids(@model.root).each { |id| @ext::VelmarExt.define_model_entity(id) }
    end

    # Brings what was streamed into the picture.
    def apply
      @ext::VelmarExt.apply_geometry
    end

    private

    def hand_out_ids
      @ids = {}.compare_by_identity
      @definitions.each { |definition| @ids[definition] = @ids.size + 1 }
      [*@definitions, @model.root].each do |definition|
        definition.instances.each { |instance| @ids[instance] = @ids.size + 1 }
      end
      @material_ids = {}.compare_by_identity
      @material_ids[nil] = NONE
      @model.materials.each { |material| @material_ids[material] = @material_ids.size }
    end

    def child_ids(definition)
      definition.instances.map { |instance| @ids[instance] }
    end

    def add_instances(definition)
      definition.instances.each do |instance|
        id = @ids[instance]
        @ext::ExtInstance.add(id, @ids[instance.definition], @material_ids[instance.material], instance.transform, [],
                              false)
        @ext::ExtInstance.set_visibility(id, false) unless @model.visible?(instance)
      end
    end

    def work(mesh)
      mesh.empty? ? 0 : mesh.points.size / 3 + 3 * mesh.visible_triangles
    end

    def stream_mesh(id, name, mesh)
      raise Stopped, 'stopped before there was a picture' if @stopped.call
      return if mesh.empty?

      @stream.set_geometry_stream(id, name.delete("\0"))
      @stream.warmup_stream(mesh.points.size / 3, 3 * mesh.visible_triangles)
      stream_points(mesh)
      stream_uvs(mesh.uvs)
      stream_faces(mesh.visible_faces)
      raise Error, "the plug-in did not take the geometry of '#{name}'" unless @stream.evaluate_stream(MESH_SETTINGS)

      @progress.call(@done += work(mesh))
    end

    # The loops of the bulk: each index is computed once, nothing is looked up and nothing is made.
    def stream_points(mesh)
      stream = @stream
      points = mesh.points
      normals = mesh.normals
      surfaces = mesh.surfaces
      count = surfaces.size
      at = 0
      point = 0
      while point < count
        stream.add_vertex(points[at], points[at + 1], points[at + 2])
        stream.add_normal(normals[at], normals[at + 1], normals[at + 2], surfaces[point])
        at += 3
        point += 1
      end
    end

    def stream_uvs(uvs)
      stream = @stream
      at = 0
      while at < uvs.size
        stream.add_uvw(uvs[at], uvs[at + 1], uvs[at + 2])
        at += 3
      end
    end

    def stream_faces(faces)
      faces.each { |face| stream_corners(face.points, face.uvs) }
      triangle = 0
      faces.each_with_index do |face, number|
        past = triangle + face.points.size / 3
        @stream.add_face(number + 1, @material_ids.fetch(face.material, NONE), triangle, past)
        triangle = past
      end
    end

    def stream_corners(points, uvs)
      stream = @stream
      count = points.size
      corner = 0
      while corner < count
        point = points[corner] + 1
        stream.add_vertex_index(point)
        stream.add_normal_index(point)
        stream.add_uvw_index(uvs[corner] + 1)
        corner += 1
      end
    end
  end
end
