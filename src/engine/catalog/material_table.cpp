// Materials.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr PinRow diffuse_pin = colorTexturePin(PIN_DIFFUSE, "Diffuse", {0.7F, 0.7F, 0.7F}, "Colour");
constexpr PinRow roughness_pin = floatTexturePin(PIN_ROUGHNESS, "Roughness", 0.06F, "0 mirror to 1 dull");
constexpr PinRow index_pin = floatPin(PIN_INDEX, "Index", 1.3F, {1.0, 8.0, 1.0, 8.0}, "Of refraction");
constexpr PinRow opacity_pin = floatTexturePin(PIN_OPACITY, "Opacity", 1.0F);
constexpr PinRow bump_pin = nodePin(PIN_BUMP, PIN_TYPE_TEXTURE, "Bump");
constexpr PinRow normal_pin = nodePin(PIN_NORMAL_MAP, PIN_TYPE_TEXTURE, "Normal");
constexpr PinRow displacement_pin = nodePin(PIN_DISPLACEMENT, PIN_TYPE_TEXTURE, "Displacement");
constexpr PinRow smooth_pin = boolPin(PIN_SMOOTH, "Smooth", true, "Shade with interpolated normals");

constexpr PinRow glossy_pins[] = {
    diffuse_pin,      colorTexturePin(PIN_SPECULAR, "Specular", {1.0F, 1.0F, 1.0F}, "Colour of the coat"),
    roughness_pin,    index_pin,
    bump_pin,         normal_pin,
    displacement_pin, opacity_pin,
    smooth_pin,
};

constexpr PinRow diffuse_pins[] = {
    diffuse_pin, bump_pin, normal_pin, displacement_pin, opacity_pin, smooth_pin,
};

constexpr PinRow specular_pins[] = {
    colorTexturePin(PIN_REFLECTION, "Reflection", {1.0F, 1.0F, 1.0F}, "Colour"),
    colorTexturePin(PIN_TRANSMISSION, "Transmission", {1.0F, 1.0F, 1.0F}, "Colour of what passes through"),
    floatTexturePin(PIN_ROUGHNESS, "Roughness", 0.0F, "0 mirror to 1 dull"),
    index_pin,
    bump_pin,
    normal_pin,
    displacement_pin,
    opacity_pin,
    smooth_pin,
};

constexpr PinRow mix_pins[] = {
    floatTexturePin(PIN_AMOUNT, "Amount", 0.5F, "Share of the first material"),
    nodePin(PIN_MATERIAL_1, PIN_TYPE_MATERIAL, "First material", NODE_MATERIAL_GLOSSY),
    nodePin(PIN_MATERIAL_2, PIN_TYPE_MATERIAL, "Second material", NODE_MATERIAL_DIFFUSE),
    displacement_pin,
};

constexpr PinRow portal_pins[] = {boolPin(PIN_ENABLED, "Enable", true)};

constexpr PinRow metal_pins[] = {
    diffuse_pin,   colorTexturePin(PIN_SPECULAR, "Specular", {1.0F, 1.0F, 1.0F}, "Colour of the highlights"),
    roughness_pin, bump_pin,
    normal_pin,    displacement_pin,
    opacity_pin,   smooth_pin,
};

constexpr PinRow toon_pins[] = {
    diffuse_pin,   colorTexturePin(PIN_SPECULAR, "Specular", {0.0F, 0.0F, 0.0F}, "Colour of the highlights"),
    roughness_pin, bump_pin,
    normal_pin,    displacement_pin,
    opacity_pin,   smooth_pin,
};

constexpr NodeTypeRow materialRow(NodeType type, const char* type_name, const char* name, const char* description,
                                  std::span<const PinRow> pins) {
    return {.type = type,
            .output = PIN_TYPE_MATERIAL,
            .type_name = type_name,
            .default_name = name,
            .description = description,
            .pins = pins};
}

constexpr NodeTypeRow rows[] = {
    materialRow(NODE_MATERIAL_GLOSSY, "VELMAR_GLOSSY", "Glossy material", "A coloured base under a coat", glossy_pins),
    materialRow(NODE_MATERIAL_DIFFUSE, "VELMAR_DIFFUSE", "Diffuse material", "A dull surface", diffuse_pins),
    materialRow(NODE_MATERIAL_SPECULAR, "VELMAR_SPECULAR", "Specular material", "Glass and mirrors", specular_pins),
    materialRow(NODE_MATERIAL_MIX, "VELMAR_MIX", "Mix material", "Two materials in one", mix_pins),
    materialRow(NODE_MATERIAL_PORTAL, "VELMAR_PORTAL", "Portal material", "An opening through which light enters",
                portal_pins),
    materialRow(NODE_MATERIAL_METAL, "VELMAR_METAL", "Metallic material", "A metal", metal_pins),
    materialRow(NODE_MATERIAL_TOON, "VELMAR_TOON", "Toon material", "Flat shading with outlines", toon_pins),
};

}  // namespace

std::span<const NodeTypeRow> materialTypes() {
    return rows;
}

}  // namespace Velmar::Engine
