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

constexpr ApiEnumEntry wrap_modes[] = {{0, "Repeat"}, {1, "Mirror"}, {2, "Edge"}, {3, "Black"}, {4, "White"}};

constexpr ApiEnumEntry color_spaces[] = {{0, "Automatic"}, {1, "Gamma"}, {2, "sRGB"}, {3, "Linear"}};

constexpr PinRow imagePower(const char* description) {
    return floatPin(PIN_POWER, "Power", 1.0F, {0.0, 1.0e3, 0.0, 1.0}, description);
}

constexpr PinRow gammaPin(float value) {
    return floatPin(PIN_GAMMA, "Gamma", value, {0.1, 8.0, 0.1, 8.0}, "Exponent from stored to linear values");
}

constexpr PinRow invert_pin = boolPin(PIN_INVERT, "Invert", false, "Black and white change places");
constexpr PinRow transform_pin =
    transformPin(PIN_UV_TRANSFORM, "UV transform", NODE_TRANSFORM_2D, 2, "From the surface's coordinates to the image");
constexpr PinRow wrap_u_pin = enumPin(PIN_WRAP_U, "Wrap U", 0, wrap_modes, "What stands beside the image");
constexpr PinRow wrap_v_pin = enumPin(PIN_WRAP_V, "Wrap V", 0, wrap_modes, "What stands above and below the image");
constexpr PinRow uv_set_pin =
    intPin(PIN_UV_SET, "UV set", 1, {1, 3, 1, 3}, "Which texture coordinates of the surface are read");

// One row a pin.
// clang-format off
constexpr PinRow image_pins[] = {
    imagePower("Brightness"),
    gammaPin(2.2F),
    invert_pin,
    transform_pin,
    wrap_u_pin,
    wrap_v_pin,
    uv_set_pin,
    enumPin(PIN_COLOR_SPACE, "Colour space", 0, color_spaces,
            "Automatic: by the gamma, but a file of floats counts as linear while the gamma is 2.2"),
};

constexpr PinRow data_image_pins[] = {
    imagePower("Factor"),
    gammaPin(1.0F),
    invert_pin,
    transform_pin,
    wrap_u_pin,
    wrap_v_pin,
    uv_set_pin,
};

constexpr PinRow multiply_pins[] = {
    colorTexturePin(PIN_TEXTURE_1, "First texture", {1.0F, 1.0F, 1.0F}),
    colorTexturePin(PIN_TEXTURE_2, "Second texture", {1.0F, 1.0F, 1.0F}),
};

constexpr PinRow mix_pins[] = {
    floatTexturePin(PIN_AMOUNT, "Amount", 0.5F, unit_limits, "Share of the first texture"),
    colorTexturePin(PIN_TEXTURE_1, "First texture", {1.0F, 1.0F, 1.0F}, "Alone where the amount is 1"),
    colorTexturePin(PIN_TEXTURE_2, "Second texture", {0.0F, 0.0F, 0.0F}, "Alone where the amount is 0"),
};

constexpr PinRow checker_pins[] = {
    colorTexturePin(PIN_TEXTURE_1, "First texture", {0.8F, 0.8F, 0.8F}, "Of the square at the origin"),
    colorTexturePin(PIN_TEXTURE_2, "Second texture", {0.2F, 0.2F, 0.2F}, "Of its neighbours"),
    transform_pin,
    uv_set_pin,
};

constexpr PinRow noise_pins[] = {
    colorTexturePin(PIN_TEXTURE_1, "First texture", {0.0F, 0.0F, 0.0F}, "Where the noise is 0"),
    colorTexturePin(PIN_TEXTURE_2, "Second texture", {1.0F, 1.0F, 1.0F}, "Where the noise is 1"),
    intPin(PIN_OCTAVES, "Octaves", 5, {1, 16, 1, 16}, "Layers, each finer than that before it"),
    floatPin(PIN_GAIN, "Gain", 0.5F, unit_limits, "Strength of a layer over that before it"),
    floatPin(PIN_LACUNARITY, "Lacunarity", 2.0F, {1.0, 8.0, 1.0, 4.0}, "Fineness of a layer over that before it"),
    transform_pin,
    uv_set_pin,
};

constexpr PinRow gamma_color_pins[] = {
    colorTexturePin(PIN_TEXTURE, "Texture", {1.0F, 1.0F, 1.0F}),
    floatPin(PIN_GAMMA, "Gamma", 1.0F, {0.1, 8.0, 0.1, 8.0}, "Exponent on each channel"),
};

constexpr PinRow displacement_pins[] = {
    nodePin(PIN_TEXTURE, PIN_TYPE_TEXTURE, "Texture", NODE_FLOAT_IMAGE, "Brighter is higher"),
    floatPin(PIN_DISPLACEMENT_HEIGHT, "Height", 0.001F, {-1.0e3, 1.0e3, -1.0, 1.0}, "From black to white, metres"),
    floatPin(PIN_MIDDLE_LEVEL, "Middle level", 0.0F, unit_limits, "Value of the texture that moves nothing"),
    intPin(PIN_DISPLACE_LEVEL, "Level of detail", 5, {0, 10, 0, 8}, "Subdivisions of what is moved"),
};
// clang-format on

constexpr NodeTypeRow textureRow(NodeType type, const char* type_name, const char* name, const char* description,
                                 std::span<const PinRow> pins, std::span<const AttributeRow> attributes = {}) {
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
    textureRow(NODE_MULTIPLY_TEXTURE, "VELMAR_MULTIPLY", "Multiply texture", "Product of two textures", multiply_pins),
    textureRow(NODE_GAMMA_COLOR, "VELMAR_GAMMACOLOR", "Gamma colour", "A colour with a gamma", gamma_color_pins),
    textureRow(NODE_DISPLACEMENT, "VELMAR_DISPLACEMENT", "Displacement", "Moves a surface by a texture",
               displacement_pins),
    textureRow(NODE_MIX_TEXTURE, "VELMAR_MIXTEXTURE", "Mix texture", "Two textures in one", mix_pins),
    textureRow(NODE_CHECKER_TEXTURE, "VELMAR_CHECKER", "Checker texture", "Squares of half a unit", checker_pins),
    textureRow(NODE_NOISE_TEXTURE, "VELMAR_NOISE", "Noise texture", "Clouds of gradient noise (Perlin, 2002)",
               noise_pins),
};

}  // namespace

std::span<const NodeTypeRow> textureTypes() {
    return rows;
}

}  // namespace Velmar::Engine
