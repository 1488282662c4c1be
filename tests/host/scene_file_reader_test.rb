# frozen_string_literal: true

require 'base64'

require_relative 'collada_file'
require_relative 'host_support'

class SceneFileReaderTest < Minitest::Test
  include HostSupport

  METRE = 1.0 / 0.0254

  def collada(scene: ColladaFile.placed('shape'), **rest)
    read(write('model.dae', ColladaFile.text(scene: scene, **rest)))
  end

  # A glTF document of the corner of ColladaFile under nodes, its buffer inside.
  def gltf(nodes, materials: [{ pbrMetallicRoughness: { baseColorFactor: [0.5, 0.0, 1.0, 0.25] } }])
    points = ColladaFile::POINTS.split.map(&:to_f)
    indices = ColladaFile::TRIANGLES.split.map(&:to_i)
    bytes = points.pack('e*') + indices.pack('v*')
    { asset: { version: '2.0' }, scene: 0, scenes: [{ nodes: [0] }], nodes: nodes, materials: materials,
      meshes: [{ name: 'Corner', primitives: [{ attributes: { POSITION: 0 }, indices: 1, material: 0 }] }],
      buffers: [{ byteLength: bytes.size, uri: "data:application/octet-stream;base64,#{Base64.strict_encode64(bytes)}" }],
      bufferViews: [{ buffer: 0, byteOffset: 0, byteLength: 48 }, { buffer: 0, byteOffset: 48, byteLength: 24 }],
      accessors: [{ bufferView: 0, componentType: 5126, count: 4, type: 'VEC3', min: [0, 0, 0], max: [1, 2, 3] },
                  { bufferView: 1, componentType: 5123, count: 12, type: 'SCALAR' }] }
  end

  def test_inches_with_z_up_stay_as_they_are
    model = collada
    assert_equal [[0, 0, 0], [1, 2, 3]], box_of(placed_points(model))
    assert_empty model.root.instances
  end

  def test_other_units_become_inches
    assert_near [[0, 0, 0], [METRE, 2 * METRE, 3 * METRE]], box_of(placed_points(collada(unit: '1'))), 1e-3
    assert_near [[0, 0, 0], [1 / 2.54, 2 / 2.54, 3 / 2.54]], box_of(placed_points(collada(unit: '0.01')))
  end

  def test_y_up_is_turned_so_that_z_is_up
    assert_near [[0, -3, 0], [1, 0, 2]], box_of(placed_points(collada(up: 'Y_UP')))
  end

  def test_obj_files_count_metres_with_y_up
    model = read(write('corner.obj', "v 0 0 0\nv 1 0 0\nv 0 2 0\nv 0 0 3\nf 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n"))
    assert_near [[0, -3 * METRE, 0], [METRE, 0, 2 * METRE]], box_of(placed_points(model)), 1e-3
  end

  def test_gltf_files_count_metres_with_y_up_at_every_level
    nodes = [{ children: [1], translation: [0, 10, 0] }, { mesh: 0, translation: [0, 0, 5], name: 'Deep' }]
    model = read(write('model.gltf', gltf(nodes)))
    assert_near [[0, -8 * METRE, 10 * METRE], [METRE, -5 * METRE, 12 * METRE]], box_of(placed_points(model)), 1e-2
  end

  def test_gltf_colours_are_brought_to_display_values
    material = read(write('model.gltf', gltf([{ mesh: 0 }]))).materials.first
    assert_near [255 * 0.5**(1 / 2.2), 0, 255], material.color, 0.1
    assert_in_delta 0.25, material.opacity, 1e-6
  end

  def test_collada_colours_are_display_values_already
    material = collada.root.mesh.faces.first.material
    assert_equal 'Paint', material.name
    assert_near [51, 102, 153], material.color, 0.01
  end

  def test_a_component_that_is_placed_twice_is_one_definition
    scene = [['left', '1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1'], ['right', '1 0 0 50 0 1 0 0 0 0 1 0 0 0 0 1']].map do |name, matrix|
      ColladaFile.node(name, ColladaFile.instance('C1'), matrix: matrix)
    end
    model = collada(scene: scene.join, nodes: ColladaFile.node('Chair', ColladaFile.placed('shape'), id: 'C1'))
    assert_equal ['Chair'], model.definitions.map(&:name)
    assert_equal %w[left right], model.root.instances.map(&:name)
    assert_equal [50, 0, 0], model.root.instances.last.transform[12, 3]
  end

  def test_components_inside_components_keep_their_levels
    inner = ColladaFile.node('Leg', ColladaFile.placed('shape'), id: 'C2')
    outer = ColladaFile.node('Table', ColladaFile.placed('shape') + ColladaFile.node('leg', ColladaFile.instance('C2'),
                                                                                    matrix: '1 0 0 7 0 1 0 0 0 0 1 0 0 0 0 1'),
                             id: 'C1')
    model = collada(scene: ColladaFile.node('table', ColladaFile.instance('C1'), matrix: '1 0 0 100 0 1 0 0 0 0 1 0 0 0 0 1'),
                    nodes: outer + inner)
    table = model.root.instances.first.definition
    assert_equal 'Table', table.name
    assert_equal [[0, 0, 0], [108, 2, 3]].last, box_of(placed_points(model)).last
    assert_equal 2, model.definitions.size
  end

  def test_mirrored_and_stretched_placements_stay_so
    scene = ColladaFile.node('mirrored', ColladaFile.placed('shape'), matrix: '-1 0 0 0 0 2 0 0 0 0 1 5 0 0 0 1') +
            ColladaFile.node('plain', ColladaFile.placed('shape'), matrix: '1 0 0 9 0 1 0 0 0 0 1 0 0 0 0 1')
    mirrored = collada(scene: scene).root.instances.first.transform
    assert VelmarHost::Transform.mirrored?(mirrored)
    assert_near [-1, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, 0, 0, 5, 1], mirrored
  end

  def test_edges_are_dropped
    model = collada(scene: ColladaFile.placed('shape') + ColladaFile.placed('edges') +
                           ColladaFile.node('only edges', ColladaFile.placed('edges')))
    assert_equal 4, model.placed_triangles
    assert_empty model.root.instances
  end

  def test_a_model_of_edges_alone_is_empty
    path = write('edges.dae', ColladaFile.text(scene: ColladaFile.placed('edges')))
    assert_match(/the model is empty/, read_error(path))
  end

  def test_hard_edges_get_surfaces_of_their_own_when_normals_are_missing
    mesh = collada.root.mesh
    corner = (0...mesh.points.size / 3).select { |i| mesh.points[3 * i, 3].all?(&:zero?) }
    assert_equal 3, corner.size
    assert_equal [0, 1, 2], corner.map { |i| mesh.surfaces[i] }.sort
  end

  def test_normals_are_unit_and_turned_with_the_axes
    mesh = collada(up: 'Y_UP').root.mesh
    mesh.normals.each_slice(3) { |n| assert_in_delta 1.0, VelmarHost::Transform.length(n), 1e-5 }
    assert_includes mesh.normals.each_slice(3).map { |n| n.map { |v| v.round(4) + 0.0 } }, [0.0, 0.0, -1.0]
  end

  def test_texture_coordinates_are_there_even_when_the_file_has_none
    mesh = collada.root.mesh
    assert_equal [0.0, 0.0, 1.0], mesh.uvs
    assert_equal [0] * 12, mesh.faces.first.uvs
  end

  def test_a_lost_texture_is_one_warning
    material = "newmtl a\nmap_Kd lost.png\nnewmtl b\nmap_Kd other\\away.png\n"
    write('m.mtl', material)
    write('found.png', '')
    read(write('m.obj', "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nusemtl a\nf 1/1 2/1 3/1\nusemtl b\nf 3/1 2/1 1/1\n"))
    assert_equal ['texture not found: lost.png and 1 more'], @warnings
  end

  def test_a_texture_in_another_folder_than_the_file_says_is_found_by_its_name
    FileUtils.mkdir_p(File.join(@folder, 'textures'))
    texture = write('textures/brick.png', '')
    write('m.mtl', "newmtl a\nmap_Kd C:\\work\\brick.png\n")
    model = read(write('m.obj', "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nusemtl a\nf 1/1 2/1 3/1\n"))
    assert_equal texture, model.root.mesh.faces.first.material.texture
    assert_empty @warnings
  end

  def test_broken_files_are_one_clear_line
    { 'text.dae' => 'no model', 'cut.gltf' => '{"asset":', 'noise.glb' => "glTF\x02\0\0\0\xFF\xFF\xFF\xFF".b,
      'empty.obj' => '', 'empty.zae' => 'PK' }.each do |name, content|
      path = write(name, content)
      message = read_error(path)
      assert_equal 1, message.lines.size, message
      assert message.start_with?("#{path}: "), message
    end
  end

  def test_triangles_at_infinite_places_are_dropped
    model = read(write('far.obj', "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1e39 0 0\nf 1 2 3\nf 1 2 4\n"))
    assert_equal 1, model.placed_triangles
    assert placed_points(model).flatten.all?(&:finite?)
  end

  def test_published_test_models_come_with_their_components
    teapots = read("#{TEST_MODELS}/Collada/teapot_instancenodes.DAE")
    assert_equal 2048, teapots.placed_triangles
    assert_equal 1, teapots.definitions.count { |definition| !definition.mesh.empty? }
    engine = read(Dir.glob("#{TEST_MODELS}/glTF2/draco/2CylinderEngine.gltf").first)
    assert_equal 29, engine.definitions.count { |definition| !definition.mesh.empty? }
    assert_equal 110_336, engine.placed_triangles
  end

  def test_no_published_model_of_a_known_ending_gets_past_the_reader_as_anything_but_a_model_or_an_error
    endings = VelmarHost::Readers::BY_ENDING.keys - ['.json']
    files = Dir.glob("#{TEST_MODELS}/**/*").select { |f| File.file?(f) && endings.include?(File.extname(f).downcase) }
    assert_operator files.size, :>, 50
    results = files.map do |file|
      read(file)
      :model
    rescue VelmarHost::Error => e
      assert_equal 1, e.message.lines.size, e.message
      :refused
    end
    assert_operator results.count(:model), :>, results.count(:refused)
  end
end
