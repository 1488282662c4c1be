// Textures, and displacement, which reads one.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr AttributeRow image_attributes[] = {
    attribute(ATTR_FILENAME, ATTR_TYPE_FILENAME, "Image file"),
    [] {
        AttributeRow row = boolAttribute(ATTR_RELOAD, true, "Writing false reads the file");
        row.is_trigger = true;
        return row;
    }(),
};

constexpr PinRow imagePower(const char* description) {
    return floatPin(PIN_POWER, "Power", 1.0F, {0.0, 1.0e3, 0.0, 1.0}, description);
}

constexpr Limits gamma_limits = {0.1, 8.0, 0.1, 8.0};
constexpr PinRow invert_pin = boolPin(PIN_INVERT, "Invert", false);
constexpr PinRow transform_pin = transformPin(PIN_UV_TRANSFORM, "UV transform", NODE_TRANSFORM_2D, 2);

constexpr PinRow image_pins[] = {
    imagePower("Brightness"),
    floatPin(PIN_GAMMA, "Gamma", 2.2F, gamma_limits),
    invert_pin,
    transform_pin,
};

constexpr PinRow data_image_pins[] = {
    imagePower("Factor"),
    floatPin(PIN_GAMMA, "Gamma", 1.0F, gamma_limits),
    invert_pin,
    transform_pin,
};

constexpr PinRow multiply_pins[] = {
    colorTexturePin(PIN_TEXTURE_1, "First texture", {1.0F, 1.0F, 1.0F}),
    colorTexturePin(PIN_TEXTURE_2, "Second texture", {1.0F, 1.0F, 1.0F}),
};

constexpr PinRow gamma_color_pins[] = {
    colorTexturePin(PIN_TEXTURE, "Texture", {1.0F, 1.0F, 1.0F}),
    floatPin(PIN_GAMMA, "Gamma", 1.0F, gamma_limits),
};

constexpr PinRow displacement_pins[] = {
    nodePin(PIN_TEXTURE, PIN_TYPE_TEXTURE, "Texture", NODE_FLOAT_IMAGE),
    floatPin(PIN_DISPLACEMENT_HEIGHT, "Height", 0.001F, {-1.0e3, 1.0e3, -1.0, 1.0}, "At white, metres"),
};

constexpr NodeTypeRow textureRow(NodeType type, const char* type_name, const char* name, const char* description,
                                 std::span<const PinRow> pins, std::span<const AttributeRow> attributes) {
    return {.type = type,
            .output = PIN_TYPE_TEXTURE,
            .type_name = type_name,
            .default_name = name,
            .description = description,
            .pins = pins,
            .attributes = attributes};
}

constexpr NodeTypeRow rows[] = {
    textureRow(NODE_IMAGE, "VELMAR_IMAGE", "RGB image", "Colours of an image file", image_pins, image_attributes),
    textureRow(NODE_ALPHA_IMAGE, "VELMAR_ALPHAIMAGE", "Alpha image", "Alpha channel of an image file", data_image_pins,
               image_attributes),
    textureRow(NODE_FLOAT_IMAGE, "VELMAR_FLOATIMAGE", "Greyscale image", "Brightness of an image file", data_image_pins,
               image_attributes),
    textureRow(NODE_MULTIPLY_TEXTURE, "VELMAR_MULTIPLY", "Multiply texture", "Product of two textures", multiply_pins,
               {}),
    textureRow(NODE_GAMMA_COLOR, "VELMAR_GAMMACOLOR", "Gamma colour", "A colour with a gamma", gamma_color_pins, {}),
    textureRow(NODE_DISPLACEMENT, "VELMAR_DISPLACEMENT", "Displacement", "Moves a surface by a texture",
               displacement_pins, {}),
};

}  // namespace

std::span<const NodeTypeRow> textureTypes() {
    return rows;
}

}  // namespace Velmar::Engine
