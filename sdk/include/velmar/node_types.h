// The numbers of node types.
#pragma once

#include <cstdint>

namespace Velmar {

enum NodeType : std::int32_t {
    NODE_UNKNOWN = 0,
    NODE_MESH = 1,            ///< polygons, also read from an OBJ file
    NODE_MATERIAL_MAP = 2,    ///< a geometry with a material for each of its slots
    NODE_GEOMETRY_GROUP = 3,  ///< many geometries as one
    NODE_SCATTER = 5,         ///< one geometry at many places
    NODE_THIN_LENS_CAMERA = 13,
    NODE_DAYLIGHT_ENVIRONMENT = 14,
    NODE_IMAGER = 15,
    NODE_MATERIAL_GLOSSY = 16,  ///< the default material type
    NODE_MATERIAL_DIFFUSE = 17,
    NODE_MATERIAL_SPECULAR = 18,
    NODE_MATERIAL_MIX = 19,
    NODE_MATERIAL_PORTAL = 20,
    NODE_KERNEL_PMC = 23,
    NODE_KERNEL_DIRECT_LIGHT = 24,
    NODE_KERNEL_PATH_TRACING = 25,
    NODE_KERNEL_INFO_CHANNEL = 26,
    NODE_TRANSFORM_2D = 27,     ///< rotation, scale and translation of a texture plane
    NODE_TRANSFORM_SCALE = 28,  ///< a scale alone, held by a value node on its first pin
    NODE_TRANSFORM_3D = 29,
    NODE_FLOAT = 31,
    NODE_COLOR = 33,
    NODE_IMAGE = 34,
    NODE_ALPHA_IMAGE = 35,
    NODE_FLOAT_IMAGE = 36,
    NODE_TEXTURE_ENVIRONMENT = 37,
    NODE_MULTIPLY_TEXTURE = 38,  ///< owner of PIN_TEXTURE_1 and PIN_TEXTURE_2
    NODE_GAMMA_COLOR = 51,       ///< a colour with a gamma, input of the colour environment
    NODE_RENDER_TARGET = 56,
    NODE_POSTPROC = 61,
    NODE_PANORAMIC_CAMERA = 62,
    NODE_TRANSFORM_MATRIX = 66,
    NODE_TRANSFORM_2D_ADVANCED = 67,
    NODE_DISPLACEMENT = 80,  ///< holds an image on PIN_TEXTURE
    NODE_FILM_SETTINGS = 100,
    NODE_MATERIAL_METAL = 120,
    NODE_MATERIAL_TOON = 121,
    NODE_LINK_FIRST = 30001,     ///< this and all above pass on what stands on their first pin; this one: geometry
    NODE_LINK_MATERIAL = 30007,  ///< link node of a material, on PIN_MATERIAL
};

}  // namespace Velmar
