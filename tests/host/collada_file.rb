# frozen_string_literal: true

# Small COLLADA documents, shaped as modelling applications write them.
module ColladaFile
  # The corner that tells the three axes apart: 1 along x, 2 along y, 3 along z.
  POINTS = '0 0 0 1 0 0 0 2 0 0 0 3'
  TRIANGLES = '0 2 1 0 1 3 0 3 2 1 2 3'

  module_function

  # `unit` in metres, `up` Y_UP or Z_UP; `scene` and `nodes` are the contents of the visual scene and of the library.
  def text(scene:, nodes: '', unit: '0.0254', up: 'Z_UP', geometries: geometry('shape') + edges('edges'))
    <<~XML
      <?xml version="1.0" encoding="UTF-8"?>
      <COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
        <asset><unit meter="#{unit}" name="unit"/><up_axis>#{up}</up_axis></asset>
        <library_effects>#{effect}</library_effects>
        <library_materials><material id="paint" name="Paint"><instance_effect url="#look"/></material></library_materials>
        <library_geometries>#{geometries}</library_geometries>
        <library_nodes>#{nodes}</library_nodes>
        <library_visual_scenes><visual_scene id="scene"><node name="Model">#{scene}</node></visual_scene></library_visual_scenes>
        <scene><instance_visual_scene url="#scene"/></scene>
      </COLLADA>
    XML
  end

  def effect
    '<effect id="look"><profile_COMMON><technique sid="COMMON"><lambert><diffuse><color>0.2 0.4 0.6 1</color></diffuse>' \
      '</lambert></technique></profile_COMMON></effect>'
  end

  def geometry(id, points: POINTS, triangles: TRIANGLES)
    shape(id, points, %(<triangles material="m" count="#{triangles.split.size / 3}">#{input(id)}<p>#{triangles}</p></triangles>))
  end

  # Edges of faces, which are drawn and never rendered.
  def edges(id)
    shape(id, POINTS, %(<lines count="2">#{input(id)}<p>0 1 0 2</p></lines>))
  end

  def shape(id, points, primitives)
    numbers = points.split.size
    <<~XML
      <geometry id="#{id}"><mesh>
        <source id="#{id}-p"><float_array id="#{id}-a" count="#{numbers}">#{points}</float_array>
          <technique_common><accessor source="##{id}-a" count="#{numbers / 3}" stride="3">
            <param name="X" type="float"/><param name="Y" type="float"/><param name="Z" type="float"/>
          </accessor></technique_common></source>
        <vertices id="#{id}-v"><input semantic="POSITION" source="##{id}-p"/></vertices>
        #{primitives}
      </mesh></geometry>
    XML
  end

  def input(id)
    %(<input semantic="VERTEX" source="##{id}-v" offset="0"/>)
  end

  def placed(id)
    %(<instance_geometry url="##{id}"><bind_material><technique_common><instance_material symbol="m" target="#paint"/>) +
      '</technique_common></bind_material></instance_geometry>'
  end

  def node(name, content, matrix: nil, id: nil)
    %(<node#{%( id="#{id}") if id} name="#{name}">#{"<matrix>#{matrix}</matrix>" if matrix}#{content}</node>)
  end

  def instance(id)
    %(<instance_node url="##{id}"/>)
  end
end
