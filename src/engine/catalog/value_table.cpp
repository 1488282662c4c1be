// Nodes that carry a value, transforms, links, and the settings of the project.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr AttributeRow bool_value[] = {boolAttribute(ATTR_VALUE, false)};
constexpr AttributeRow int_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_INT)};
constexpr AttributeRow int2_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_INT2)};
constexpr AttributeRow int3_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_INT3)};
constexpr AttributeRow float_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_FLOAT)};
constexpr AttributeRow float2_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_FLOAT2)};
constexpr AttributeRow float3_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_FLOAT3)};
constexpr AttributeRow color_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_FLOAT3, "Linear RGB")};
constexpr AttributeRow string_value[] = {attribute(ATTR_VALUE, ATTR_TYPE_STRING)};

// The three hold one transform between them: writing the matrix sets scale and translation from it, writing one of
// those changes the matrix in that part alone.
constexpr AttributeRow transform_attributes[] = {
    attribute(ATTR_TRANSFORM, ATTR_TYPE_MATRIX, "The transform; the identity at first"),
    float3Attribute(ATTR_SCALE, {1.0F, 1.0F, 1.0F}, "Lengths of the matrix's columns"),
    float3Attribute(ATTR_TRANSLATION, {0.0F, 0.0F, 0.0F}, "Last column of the matrix"),
};

constexpr PinRow scale_pins[] = {
    float3Pin(PIN_SCALE, "Scale", {1.0F, 1.0F, 1.0F}, {-1.0e6, 1.0e6, 0.001, 1000.0}, "Along each axis"),
};

constexpr AttributeRow scale_attributes[] = {
    attribute(ATTR_TRANSFORM, ATTR_TYPE_MATRIX, "Follows from the pin"),
};

constexpr PinRow geometry_link_pins[] = {nodePin(PIN_GEOMETRY, PIN_TYPE_GEOMETRY, "Geometry")};
constexpr PinRow material_link_pins[] = {nodePin(PIN_MATERIAL, PIN_TYPE_MATERIAL, "Material")};
constexpr PinRow texture_link_pins[] = {nodePin(PIN_TEXTURE, PIN_TYPE_TEXTURE, "Texture")};

constexpr AttributeRow project_attributes[] = {boolAttribute(ATTR_PROJECT_FLAG, false)};

constexpr AttributeRow stand_in_attributes[] = {
    attribute(ATTR_VALUE, ATTR_TYPE_STRING, "The node's element of the scene text"),
    intAttribute(ATTR_PIN_COUNT, 0, "Number of connections that the element names"),
};

constexpr NodeTypeRow valueRow(NodeType type, NodePinType output, const char* type_name, const char* name,
                               const char* description, std::span<const AttributeRow> attributes) {
    return {.type = type,
            .output = output,
            .type_name = type_name,
            .default_name = name,
            .description = description,
            .attributes = attributes,
            .value = ValueSource::Attribute};
}

constexpr NodeTypeRow linkRow(NodeType type, NodePinType output, const char* type_name, const char* name,
                              std::span<const PinRow> pins) {
    return {.type = type,
            .output = output,
            .type_name = type_name,
            .default_name = name,
            .description = "Passes on what stands on its pin",
            .pins = pins};
}

constexpr NodeTypeRow rows[] = {
    valueRow(NODE_TRANSFORM_2D, PIN_TYPE_TRANSFORM, "VELMAR_TRANSFORM2D", "2D transform",
             "Turns, scales and moves a texture plane", transform_attributes),
    {.type = NODE_TRANSFORM_SCALE,
     .output = PIN_TYPE_TRANSFORM,
     .type_name = "VELMAR_SCALE",
     .default_name = "Scale",
     .description = "A scale alone",
     .pins = scale_pins,
     .attributes = scale_attributes,
     .value = ValueSource::Scale},
    valueRow(NODE_TRANSFORM_3D, PIN_TYPE_TRANSFORM, "VELMAR_TRANSFORM3D", "3D transform",
             "Turns, scales and moves in space", transform_attributes),
    valueRow(NODE_FLOAT, PIN_TYPE_FLOAT, "VELMAR_FLOAT", "Float value",
             "A number; as a texture, grey of that brightness", float_value),
    valueRow(NODE_COLOR, PIN_TYPE_FLOAT, "VELMAR_RGB", "RGB colour", "A colour, as a value or as a texture",
             color_value),
    valueRow(NODE_TRANSFORM_MATRIX, PIN_TYPE_TRANSFORM, "VELMAR_MATRIX", "Matrix", "Any affine transform",
             transform_attributes),
    valueRow(NODE_TRANSFORM_2D_ADVANCED, PIN_TYPE_TRANSFORM, "VELMAR_PLANETRANSFORM", "Plane transform",
             "Turns, scales and moves a texture plane", transform_attributes),
    valueRow(NODE_BOOL, PIN_TYPE_BOOL, "VELMAR_BOOL", "Bool value", "Yes or no", bool_value),
    valueRow(NODE_INT, PIN_TYPE_INT, "VELMAR_INT", "Int value", "A whole number", int_value),
    valueRow(NODE_INT2, PIN_TYPE_INT, "VELMAR_INT2", "Int pair", "Two whole numbers", int2_value),
    valueRow(NODE_INT3, PIN_TYPE_INT, "VELMAR_INT3", "Int triple", "Three whole numbers", int3_value),
    valueRow(NODE_FLOAT2, PIN_TYPE_FLOAT, "VELMAR_FLOAT2", "Float pair", "Two numbers", float2_value),
    valueRow(NODE_FLOAT3, PIN_TYPE_FLOAT, "VELMAR_FLOAT3", "Float triple", "Three numbers", float3_value),
    valueRow(NODE_ENUM, PIN_TYPE_ENUM, "VELMAR_ENUM", "Enum value", "A choice of those that the pin offers", int_value),
    valueRow(NODE_STRING, PIN_TYPE_STRING, "VELMAR_STRING", "Text", "A text", string_value),
    {.type = NODE_PROJECT_SETTINGS,
     .output = PIN_TYPE_UNKNOWN,
     .type_name = "VELMAR_PROJECTSETTINGS",
     .default_name = "Project settings",
     .description = "Settings of the project",
     .attributes = project_attributes},
    {.type = NODE_STAND_IN,
     .output = PIN_TYPE_UNKNOWN,
     .type_name = "VELMAR_STANDIN",
     .default_name = "Stand-in",
     .description = "Keeps a node of a type that is not known; renders as nothing",
     .attributes = stand_in_attributes,
     .dynamic_pins = DynamicPins::CountedByAttribute,
     .dynamic_pin = nodePin(PIN_UNKNOWN, PIN_TYPE_UNKNOWN, "Input")},
    linkRow(NODE_LINK_FIRST, PIN_TYPE_GEOMETRY, "VELMAR_GEOMETRYLINK", "Geometry link", geometry_link_pins),
    linkRow(NODE_LINK_MATERIAL, PIN_TYPE_MATERIAL, "VELMAR_MATERIALLINK", "Material link", material_link_pins),
    linkRow(NODE_LINK_TEXTURE, PIN_TYPE_TEXTURE, "VELMAR_TEXTURELINK", "Texture link", texture_link_pins),
};

}  // namespace

std::span<const NodeTypeRow> valueTypes() {
    return rows;
}

}  // namespace Velmar::Engine
