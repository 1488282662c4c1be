# frozen_string_literal: true

require_relative 'host_support'

class HostModelReaderTest < Minitest::Test
  include HostSupport

  def error_of(content)
    path = write('model.json', content)
    message = read_error(path)
    assert message.start_with?("#{path}: "), message
    message.delete_prefix("#{path}: ")
  end

  def test_everything_of_a_document_arrives
    paints = [{ id: 7, name: 'Red', color: [200, 10, 10], opacity: 0.5, texture: nil }]
    definition = triangle.merge(id: 3, name: 'Sail', always_faces_camera: true)
    definition[:faces] = [definition[:faces].first.merge(material: 7)]
    placed = instance(9, 3, transform: moved(1, 2, 3), material: 7, layer: 'Sails', name: 'Main')
    model = read(write('m.json', document(materials: paints, definitions: [definition], root: nothing.merge(instances: [placed]),
                                          layers: [{ name: 'Sails', visible: true }])))
    sail = model.root.instances.first
    assert_equal ['Main', 'Sail', 'Red', 'Sails'], [sail.name, sail.definition.name, sail.material.name, sail.layer]
    assert_equal [1, 2, 3], sail.transform[12, 3]
    assert sail.definition.always_faces_camera
    assert_same sail.material, sail.definition.mesh.faces.first.material
    assert_equal [0, 1, 2], sail.definition.mesh.faces.first.points
  end

  def test_a_definition_may_be_placed_before_it_is_told
    outer = nothing.merge(id: 1, name: 'Outer', always_faces_camera: false, instances: [instance(5, 2)])
    inner = triangle.merge(id: 2, name: 'Inner', always_faces_camera: false)
    model = read(write('m.json', document(definitions: [outer, inner], root: nothing.merge(instances: [instance(6, 1)]))))
    assert_equal %w[Outer Inner], model.definitions.map(&:name)
    assert_equal 1, model.placed_triangles
  end

  def test_the_first_page_brings_camera_and_hidden_layers
    page = { name: 'One', eye: [1, 2, 3], target: [4, 5, 6], up: [0, 0, 1], fov: 30, parallel: false, height: 0,
             hidden_layers: ['Roof'] }
    layers = [{ name: 'Roof', visible: true }, { name: 'Walls', visible: false }]
    definition = triangle.merge(id: 1, name: 'D')
    root = nothing.merge(instances: [instance(2, 1, layer: 'Roof'), instance(3, 1, layer: 'Walls')])
    model = read(write('m.json', document(pages: [page], layers: layers, definitions: [definition], root: root)))
    assert_equal [[1, 2, 3], 30], [model.camera.eye, model.camera.fov]
    assert_equal [false, true], model.root.instances.map { |i| model.visible?(i) }
  end

  def test_layers_decide_for_themselves_without_a_page
    definition = triangle.merge(id: 1, name: 'D')
    root = nothing.merge(instances: [instance(2, 1, layer: 'Off'), instance(3, 1), instance(4, 1, hidden: true)])
    model = read(write('m.json', document(layers: [{ name: 'Off', visible: false }], definitions: [definition], root: root)))
    assert_equal [false, true, false], model.root.instances.map { |i| model.visible?(i) }
    assert_equal 1, model.placed_triangles
  end

  def test_a_page_without_an_eye_has_no_camera
    model = read(write('m.json', document(pages: [{ name: 'One', hidden_layers: [] }])))
    assert_nil model.camera
  end

  def test_what_is_no_document_of_this_kind_is_named
    assert_match(/\Anot a JSON document: /, error_of('{"format": '))
    assert_match(/\Anot a JSON document: /, error_of("\xFF\xFE".b))
    assert_equal 'the document must be an object', error_of('[1]')
    assert_equal 'not a host-model document', error_of(format: 'other', version: 1)
    assert_equal 'not a host-model document', error_of('{}')
    assert_equal 'version 2 is not supported, only 1', error_of(document(version: 2))
    assert_equal "length_unit: only 'inch' is supported", error_of(document(length_unit: 'metre'))
    assert_equal "up_axis: only 'z' is supported", error_of(document(up_axis: 'y'))
    assert_equal "'root' is missing", error_of(document.reject { |key, _| key == :root })
  end

  def test_deep_nesting_is_refused
    assert_match(/\Anot a JSON document: nesting/, error_of('[' * 5000))
  end

  MISTAKES = {
    'root.points: must hold a multiple of 3 numbers, not 4' => { points: [0, 0, 0, 1] },
    'root.points: must be a list' => { points: 5 },
    'root.points[4]: must be a number, 1e12 at most' => { points: [0, 0, 0, 0, 'x', 0, 0, 0, 0] },
    'root.points[1]: must be a number, 1e12 at most' => { points: [0, 1e13, 0, 0, 0, 0, 0, 0, 0] },
    'root.normals: must hold 9 numbers, not 3' => { normals: [0, 0, 1] },
    'root.surfaces: must hold 3 numbers, not 2' => { surfaces: [1, 1] },
    'root.surfaces[0]: -1 is not one of the 2147483648 there are' => { surfaces: [-1, 0, 0] },
    'root.uvs: must hold a multiple of 3 numbers, not 2' => { uvs: [0, 0] },
    "root: 'normals' is missing" => { normals: nil },
    'root.faces: must be a list' => { faces: {} },
    'root.faces[0]: must be an object' => { faces: [1] },
    'root.faces[0].points[2]: 3 is not one of the 3 there are' => { faces: [{ points: [0, 1, 3], uvs: [0, 0, 0] }] },
    'root.faces[0].points[1]: -1 is not one of the 3 there are' => { faces: [{ points: [0, -1, 2], uvs: [0, 0, 0] }] },
    'root.faces[0].points[0]: 0.5 is not one of the 3 there are' => { faces: [{ points: [0.5, 1, 2], uvs: [0, 0, 0] }] },
    'root.faces[0].points: must hold a multiple of 3 numbers, not 2' => { faces: [{ points: [0, 1], uvs: [0, 0] }] },
    'root.faces[0].uvs: must hold 3 numbers, not 2' => { faces: [{ points: [0, 1, 2], uvs: [0, 0] }] },
    'root.faces[0].uvs[0]: 9 is not one of the 1 there are' => { faces: [{ points: [0, 1, 2], uvs: [9, 0, 0] }] },
    'root.faces[0].material: there is no material 4' => { faces: [{ points: [0, 1, 2], uvs: [0, 0, 0], material: 4 }] },
    'root.faces[0].hidden: must be true or false' => { faces: [{ points: [0, 1, 2], uvs: [0, 0, 0], hidden: 1 }] },
    'root.instances[0].definition: there is no definition 4' => { instances: [{ id: 1, definition: 4 }] },
    "root.instances[0]: 'id' is missing" => { instances: [{ definition: 4 }] }
  }.freeze

  def test_every_mistake_is_named_by_its_path
    MISTAKES.each { |message, root| assert_equal message, error_of(document(root: root)) }
  end

  def test_a_transform_has_sixteen_numbers
    definition = triangle.merge(id: 1, name: 'D')
    root = nothing.merge(instances: [instance(2, 1, transform: [1, 0, 0])])
    assert_equal 'root.instances[0].transform: must hold 16 numbers, not 3',
                 error_of(document(definitions: [definition], root: root))
  end

  def test_definitions_and_instances_share_one_space_of_ids
    definitions = [triangle.merge(id: 1, name: 'A'), triangle.merge(id: 1, name: 'B')]
    assert_equal 'definitions[1].id: 1 is used twice', error_of(document(definitions: definitions))
    root = nothing.merge(instances: [instance(1, 1)])
    assert_equal 'root.instances[0].id: 1 is used twice', error_of(document(definitions: definitions.first(1), root: root))
  end

  def test_a_definition_cannot_contain_itself
    a = nothing.merge(id: 1, name: 'A', instances: [instance(10, 2)])
    b = nothing.merge(id: 2, name: 'B', instances: [instance(11, 1)])
    assert_match(/\Adefinition '[AB]' contains itself\z/, error_of(document(definitions: [a, b])))
  end

  def test_a_page_needs_what_its_projection_needs
    page = { name: 'P', eye: [0, 0, 0], target: [1, 0, 0] }
    assert_equal "pages[0]: 'fov' is missing", error_of(document(pages: [page]))
    assert_equal "pages[0]: 'height' is missing", error_of(document(pages: [page.merge(parallel: true)]))
    assert_equal "pages[0]: 'target' is missing", error_of(document(pages: [{ eye: [0, 0, 0] }]))
  end

  def test_a_page_that_no_camera_can_show_is_refused
    page = { name: 'P', eye: [0, 0, 0], target: [1, 0, 0], fov: 35 }
    assert_equal 'pages[0].target: is the eye', error_of(document(pages: [page.merge(target: [0, 0, 0])]))
    [-500, 0, 171].each do |fov|
      assert_equal 'pages[0].fov: must be between 1.0 and 170.0', error_of(document(pages: [page.merge(fov: fov)]))
    end
    flat = page.merge(parallel: true, height: 0)
    assert_match(/\Apages\[0\]\.height: must be between/, error_of(document(pages: [flat])))
  end

  def test_a_material_id_is_used_once
    paint = { id: 7, name: 'Red' }
    assert_equal 'materials[1].id: 7 is used twice', error_of(document(materials: [paint, paint]))
  end

  def test_hidden_faces_alone_make_an_empty_model
    face = triangle[:faces].first.merge(hidden: true)
    assert_match(/the model is empty/, error_of(document(root: { faces: [face] })))
  end

  def test_a_lost_texture_is_a_warning
    paint = { id: 1, name: 'P', color: [1, 2, 3], opacity: 1.0, texture: { file: 'lost.jpg', width: 10, height: 10 } }
    read(write('m.json', document(materials: [paint])))
    assert_equal ['texture not found: lost.jpg'], @warnings
  end
end
