# frozen_string_literal: true

module VelmarHost
  # A paint of the model: display colour of 0 to 255, opacity of 0 to 1, texture file or nil with the size of one tile in
  # inches.
  Material = Struct.new(:name, :color, :opacity, :texture, :texture_size, keyword_init: true)

  Layer = Struct.new(:name, :visible, keyword_init: true)

  # A view of the model. `fov` is vertical, in degrees; `height` is the extent of a parallel view, in inches.
  Camera = Struct.new(:eye, :target, :up, :fov, :parallel, :height, keyword_init: true)

  # A saved view. `hidden_layers` is a list of names, or nil when the layers' own visibility counts.
  Page = Struct.new(:name, :camera, :hidden_layers, keyword_init: true)

  # Triangles of one material (nil: painted by the instance). `points` and `uvs` are 0-based numbers in the lists of the
  # mesh, three of each for every triangle.
  Face = Struct.new(:material, :back_material, :hidden, :points, :uvs, keyword_init: true)

  # Geometry of a definition in flat lists of numbers: `points` (inches), `normals` (unit, one per point) and `uvs` by
  # threes, `surfaces` one per point. Points at one place that share a surface number share their normal.
  Mesh = Struct.new(:points, :normals, :surfaces, :uvs, :faces, keyword_init: true) do
    def self.empty
      new(points: [], normals: [], surfaces: [], uvs: [0.0, 0.0, 1.0], faces: [])
    end

    def visible_faces
      faces.reject(&:hidden)
    end

    def visible_triangles
      visible_faces.sum { |face| face.points.size / 3 }
    end

    def empty?
      visible_faces.all? { |face| face.points.empty? }
    end
  end

  # A placed definition. The transform maps the definition's coordinates to those around it.
  Instance = Struct.new(:name, :definition, :material, :transform, :hidden, :layer, keyword_init: true)

  # Something that can be placed any number of times; the model's root is one as well.
  Definition = Struct.new(:name, :mesh, :instances, :always_faces_camera, keyword_init: true)

  # What a model file holds, in inches with Z up, whatever the format. Its objects are told apart by identity: the ids of
  # a file end with its reader.
  class Model
    attr_reader :materials, :layers, :pages, :root, :unreadable_textures

    def initialize(root:, materials: [], layers: [], pages: [], unreadable_textures: [])
      @unreadable_textures = unreadable_textures
      @root = root
      @materials = materials
      @layers = layers
      @pages = pages
    end

    # The definitions below the root that are placed at all, each once, those that a definition places after it.
    def definitions
      found = {}.compare_by_identity
      waiting = [@root]
      until waiting.empty?
        waiting.shift.instances.each do |instance|
          next if found.key?(instance.definition)

          found[instance.definition] = true
          waiting << instance.definition
        end
      end
      found.keys
    end

    # The camera of the first page, nil when there is none.
    def camera
      @pages.first&.camera
    end

    def visible?(instance)
      !instance.hidden && !hidden_layers.include?(instance.layer)
    end

    # How many triangles a viewer meets when all placements are counted.
    def placed_triangles
      counts = {}.compare_by_identity
      count = lambda do |definition|
        counts[definition] ||= definition.mesh.visible_triangles +
                               definition.instances.sum { |i| visible?(i) ? count.call(i.definition) : 0 }
      end
      count.call(@root)
    end

    private

    def hidden_layers
      @hidden_layers ||= @pages.first&.hidden_layers || @layers.reject(&:visible).map(&:name)
    end
  end
end
