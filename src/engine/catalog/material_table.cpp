// Materials, and the emissions that make lamps of them.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr const char* roughness_meaning =
    "0 mirror to 1 dull; its square is the width of the GGX facets (Burley, 2012)";

constexpr PinRow roughnessPin(float value) {
    return floatTexturePin(PIN_ROUGHNESS, "Roughness", value, unit_limits, roughness_meaning);
}

constexpr PinRow index_pin =
    floatPin(PIN_INDEX, "Index", 1.5F, {1.0, 8.0, 1.0, 4.0}, "Of refraction; 1.33 water, 1.5 glass, 2.42 diamond");
constexpr PinRow film_width_pin = floatTexturePin(PIN_FILM_WIDTH, "Film width", 0.0F, {0.0, 10.0, 0.0, 1.0},
                                                  "Of a thin film on the surface, micrometres; 0 for no film");
constexpr PinRow film_index_pin =
    floatPin(PIN_FILM_INDEX, "Film index", 1.45F, {1.0, 8.0, 1.0, 4.0}, "Of refraction of the thin film");
constexpr PinRow anisotropy_pin = floatPin(PIN_ANISOTROPY, "Anisotropy", 0.0F, {-1.0, 1.0, -1.0, 1.0},
                                           "Stretch of highlights: 0 round, 1 along u, -1 along v");
constexpr PinRow rotation_pin =
    floatTexturePin(PIN_ROTATION, "Rotation", 0.0F, {-1.0, 1.0, 0.0, 1.0}, "Turn of the stretch, in full turns");

// What every surface has, in two parts, as pins that came later stand behind.
constexpr PinRow bump_pin = nodePin(PIN_BUMP, PIN_TYPE_TEXTURE, "Bump", NODE_UNKNOWN, "Brighter is higher");
constexpr PinRow normal_pin = nodePin(PIN_NORMAL_MAP, PIN_TYPE_TEXTURE, "Normal", NODE_UNKNOWN,
                                      "Tangent space normals in an image with gamma 1; goes before the bump map");
constexpr PinRow displacement_pin =
    nodePin(PIN_DISPLACEMENT, PIN_TYPE_TEXTURE, "Displacement", NODE_UNKNOWN, "Moves the surface itself");
constexpr PinRow opacity_pin =
    floatTexturePin(PIN_OPACITY, "Opacity", 1.0F, unit_limits, "0 as if nothing were there, 1 all there");
constexpr PinRow smooth_pin = boolPin(PIN_SMOOTH, "Smooth", true, "Shade with interpolated normals");
constexpr PinRow bump_height_pin = floatPin(PIN_BUMP_HEIGHT, "Bump height", 0.01F, {-10.0, 10.0, 0.0, 0.1},
                                            "Of the bump map from black to white, metres");
constexpr PinRow emission_pin = nodePin(PIN_EMISSION, PIN_TYPE_EMISSION, "Emission", NODE_UNKNOWN,
                                        "The light that the surface sends out by itself");

// One row a pin.
// clang-format off
constexpr PinRow glossy_pins[] = {
    colorTexturePin(PIN_DIFFUSE, "Diffuse", {0.7F, 0.7F, 0.7F}, "Colour of the base"),
    colorTexturePin(PIN_SPECULAR, "Specular", {1.0F, 1.0F, 1.0F}, "Colour of the coat; black for no coat"),
    roughnessPin(0.3F),
    index_pin,
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
    film_width_pin,
    film_index_pin,
    anisotropy_pin,
    rotation_pin,
    bump_height_pin,
    emission_pin,
};

constexpr PinRow diffuse_pins[] = {
    colorTexturePin(PIN_DIFFUSE, "Diffuse", {0.7F, 0.7F, 0.7F}, "Colour"),
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
    floatTexturePin(PIN_ROUGHNESS, "Roughness", 0.0F, unit_limits,
                    "0 even to 1 dusty, as bright at the rim as in the middle (Oren and Nayar, 1994)"),
    bump_height_pin,
    emission_pin,
};

constexpr PinRow specular_pins[] = {
    colorTexturePin(PIN_REFLECTION, "Reflection", {1.0F, 1.0F, 1.0F}, "Colour of what is reflected"),
    colorTexturePin(PIN_TRANSMISSION, "Transmission", {1.0F, 1.0F, 1.0F},
                    "Colour of what passes through; black for a mirror"),
    roughnessPin(0.0F),
    index_pin,
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
    film_width_pin,
    film_index_pin,
    floatPin(PIN_DISPERSION, "Dispersion", 0.0F, {0.0, 1.0, 0.0, 0.1},
             "Of the index, square micrometres: the second coefficient of Cauchy's equation"),
    boolPin(PIN_THIN, "Thin", false, "A pane of one face, without an inside: light passes unbent"),
    boolPin(PIN_CLEAR_SHADOWS, "Clear shadows", true,
            "Light passes unbent on its way to other surfaces: less noise, no caustics"),
    bump_height_pin,
    emission_pin,
};

constexpr PinRow mix_pins[] = {
    floatTexturePin(PIN_AMOUNT, "Amount", 0.5F, unit_limits, "Share of the first material"),
    nodePin(PIN_MATERIAL_1, PIN_TYPE_MATERIAL, "First material", NODE_MATERIAL_GLOSSY, "Alone where the amount is 1"),
    nodePin(PIN_MATERIAL_2, PIN_TYPE_MATERIAL, "Second material", NODE_MATERIAL_DIFFUSE, "Alone where the amount is 0"),
    displacement_pin,
};

constexpr PinRow portal_pins[] = {
    boolPin(PIN_ENABLED, "Enable", true, "The environment is sampled through the opening"),
};

constexpr PinRow metal_pins[] = {
    colorTexturePin(PIN_DIFFUSE, "Colour", {0.7F, 0.7F, 0.7F}, "Reflected where the surface faces the eye"),
    colorTexturePin(PIN_SPECULAR, "Edge colour", {1.0F, 1.0F, 1.0F}, "Reflected at a grazing angle"),
    roughnessPin(0.15F),
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
    anisotropy_pin,
    rotation_pin,
    film_width_pin,
    film_index_pin,
    bump_height_pin,
    emission_pin,
};

constexpr PinRow toon_pins[] = {
    colorTexturePin(PIN_DIFFUSE, "Diffuse", {0.7F, 0.7F, 0.7F}, "Colour"),
    colorTexturePin(PIN_SPECULAR, "Specular", {0.0F, 0.0F, 0.0F}, "Colour of the highlights; black for none"),
    floatTexturePin(PIN_ROUGHNESS, "Roughness", 0.06F, unit_limits, "Size of the highlights"),
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
    intPin(PIN_TONES, "Tones", 3, {1, 64, 1, 8}, "Steps of brightness from dark to light"),
    colorTexturePin(PIN_OUTLINE_COLOR, "Outline colour", {0.0F, 0.0F, 0.0F}),
    floatPin(PIN_OUTLINE_WIDTH, "Outline width", 0.2F, unit_limits,
             "Cosine between eye and normal below which the outline shows; 0 for no outline"),
    bump_height_pin,
    emission_pin,
};

constexpr PinRow surface_brightness_pin =
    boolPin(PIN_SURFACE_BRIGHTNESS, "Surface brightness", true,
            "Power is the radiance of the surface; else the watts of all surfaces with the material together");
constexpr PinRow two_sided_pin = boolPin(PIN_TWO_SIDED, "Two-sided", true, "The back sends out light too");
constexpr PinRow sampling_rate_pin = floatPin(PIN_SAMPLING_RATE, "Sampling rate", 1.0F, {0.0, 1000.0, 0.0, 10.0},
                                              "Share of light samples over that by power; 0: found by chance alone");
constexpr PinRow emission_power_pin = floatPin(PIN_POWER, "Power", 10.0F, {0.0, 1.0e6, 0.0, 100.0},
                                               "Watts per square metre and steradian, or watts");

constexpr PinRow texture_emission_pins[] = {
    colorTexturePin(PIN_TEXTURE, "Texture", {1.0F, 1.0F, 1.0F}, "Colour of the light"),
    emission_power_pin,
    surface_brightness_pin,
    two_sided_pin,
    sampling_rate_pin,
};

constexpr PinRow blackbody_emission_pins[] = {
    floatPin(PIN_TEMPERATURE, "Temperature", 4000.0F, {500.0, 40000.0, 1000.0, 12000.0},
             "Of the glowing body, kelvin; 2700 a light bulb, 6500 daylight"),
    emission_power_pin,
    boolPin(PIN_NORMALIZE, "Normalize", true, "The temperature gives the colour alone, the power the brightness"),
    surface_brightness_pin,
    two_sided_pin,
    sampling_rate_pin,
};
// clang-format on

constexpr NodeTypeRow materialRow(NodeType type, const char* type_name, const char* name, const char* description,
                                  std::span<const PinRow> pins, NodePinType output = PIN_TYPE_MATERIAL) {
    return {.type = type,
            .output = output,
            .type_name = type_name,
            .default_name = name,
            .description = description,
            .pins = pins};
}

constexpr NodeTypeRow rows[] = {
    materialRow(NODE_MATERIAL_GLOSSY, "VELMAR_GLOSSY", "Glossy material", "A coloured base under a clear coat",
                glossy_pins),
    materialRow(NODE_MATERIAL_DIFFUSE, "VELMAR_DIFFUSE", "Diffuse material", "A dull surface", diffuse_pins),
    materialRow(NODE_MATERIAL_SPECULAR, "VELMAR_SPECULAR", "Specular material",
                "Glass, water and mirrors, clear or frosted", specular_pins),
    materialRow(NODE_MATERIAL_MIX, "VELMAR_MIX", "Mix material", "Two materials in one", mix_pins),
    materialRow(NODE_MATERIAL_PORTAL, "VELMAR_PORTAL", "Portal material",
                "An opening through which the environment lights a room; not seen itself", portal_pins),
    materialRow(NODE_MATERIAL_METAL, "VELMAR_METAL", "Metallic material", "A metal", metal_pins),
    materialRow(NODE_MATERIAL_TOON, "VELMAR_TOON", "Toon material", "Steps of brightness with outlines", toon_pins),
    materialRow(NODE_TEXTURE_EMISSION, "VELMAR_TEXTUREEMISSION", "Texture emission", "Light of the colour of a texture",
                texture_emission_pins, PIN_TYPE_EMISSION),
    materialRow(NODE_BLACKBODY_EMISSION, "VELMAR_BLACKBODYEMISSION", "Black body emission",
                "Light of the colour of a glowing body", blackbody_emission_pins, PIN_TYPE_EMISSION),
};

}  // namespace

std::span<const NodeTypeRow> materialTypes() {
    return rows;
}

}  // namespace Velmar::Engine
