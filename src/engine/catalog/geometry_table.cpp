// Meshes and what places and colours them.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr AttributeRow reload_attribute = [] {
    AttributeRow row = boolAttribute(ATTR_RELOAD, true, "Writing false reads the file");
    row.is_trigger = true;
    return row;
}();

constexpr AttributeRow instance_id_base = intAttribute(ATTR_INSTANCE_ID_BASE, 0, "Number from which instances count");

constexpr AttributeRow mesh_attributes[] = {
    attribute(ATTR_FILENAME, ATTR_TYPE_FILENAME, "OBJ file to read; empty for a mesh that is given by its arrays"),
    reload_attribute,
    boolAttribute(ATTR_SMOOTHING, true, "Shade with interpolated normals"),
    floatAttribute(ATTR_SMOOTHING_ANGLE, 89.0F, "Widest angle that is smoothed, degrees"),
    intAttribute(ATTR_SUBDIVISION_LEVEL, 0, "Levels of subdivision, 0 for none"),
    floatAttribute(ATTR_SUBDIVISION_SHARPNESS, 0.0F, "Crease sharpness, 0 to 10"),
    intAttribute(ATTR_SUBDIVISION_INTERPOLATION, 2, "Boundary interpolation, 0 to 3"),
    intAttribute(ATTR_SUBDIVISION_SCHEME, 0, "0 Catmull-Clark, 1 Loop, 2 bilinear"),
    arrayAttribute(ATTR_VERTICES_PER_POLYGON, ATTR_TYPE_INT, "Number of corners of each polygon"),
    arrayAttribute(ATTR_VERTICES, ATTR_TYPE_FLOAT3, "Positions, metres, Y up"),
    arrayAttribute(ATTR_VERTEX_INDICES, ATTR_TYPE_INT, "Position of each corner"),
    arrayAttribute(ATTR_NORMALS, ATTR_TYPE_FLOAT3, "Unit normals"),
    arrayAttribute(ATTR_NORMAL_INDICES, ATTR_TYPE_INT, "Normal of each corner"),
    arrayAttribute(ATTR_UVW, ATTR_TYPE_FLOAT3, "Texture coordinates"),
    arrayAttribute(ATTR_UVW_INDICES, ATTR_TYPE_INT, "Texture coordinate of each corner"),
    arrayAttribute(ATTR_POLYGON_MATERIAL_INDICES, ATTR_TYPE_INT, "Material slot of each polygon"),
    arrayAttribute(ATTR_MATERIAL_NAMES, ATTR_TYPE_STRING, "One name for each material slot"),
    instance_id_base,
};

constexpr PinRow geometry_pin = nodePin(PIN_GEOMETRY, PIN_TYPE_GEOMETRY, "Geometry");

constexpr PinRow material_map_pins[] = {geometry_pin};
constexpr AttributeRow material_map_attributes[] = {instance_id_base};

constexpr AttributeRow group_attributes[] = {
    intAttribute(ATTR_PIN_COUNT, 0, "Number of pins"),
    instance_id_base,
};

constexpr PinRow scatter_pins[] = {geometry_pin};
constexpr AttributeRow scatter_attributes[] = {
    arrayAttribute(ATTR_TRANSFORMS, ATTR_TYPE_MATRIX, "Placements, metres"),
    arrayAttribute(ATTR_INSTANCE_IDS, ATTR_TYPE_INT, "One number for each placement"),
    instance_id_base,
};

constexpr NodeTypeRow rows[] = {
    {.type = NODE_MESH,
     .output = PIN_TYPE_GEOMETRY,
     .type_name = "VELMAR_MESH",
     .default_name = "Mesh",
     .description = "Polygons, given by arrays or read from an OBJ file",
     .attributes = mesh_attributes},
    {.type = NODE_MATERIAL_MAP,
     .output = PIN_TYPE_GEOMETRY,
     .type_name = "VELMAR_MATERIAL_MAP",
     .default_name = "Material map",
     .description = "A geometry with a material for each of its slots",
     .pins = material_map_pins,
     .attributes = material_map_attributes,
     .dynamic_pins = DynamicPins::NamedByGeometry,
     .dynamic_pin = nodePin(PIN_UNKNOWN, PIN_TYPE_MATERIAL, "Material")},
    {.type = NODE_GEOMETRY_GROUP,
     .output = PIN_TYPE_GEOMETRY,
     .type_name = "VELMAR_GEOMETRY_GROUP",
     .default_name = "Geometry group",
     .description = "Many geometries as one",
     .attributes = group_attributes,
     .dynamic_pins = DynamicPins::CountedByAttribute,
     .dynamic_pin = nodePin(PIN_UNKNOWN, PIN_TYPE_GEOMETRY, "Input")},
    {.type = NODE_SCATTER,
     .output = PIN_TYPE_GEOMETRY,
     .type_name = "VELMAR_SCATTER",
     .default_name = "Scatter",
     .description = "One geometry at many places",
     .pins = scatter_pins,
     .attributes = scatter_attributes},
};

}  // namespace

std::span<const NodeTypeRow> geometryTypes() {
    return rows;
}

}  // namespace Velmar::Engine
