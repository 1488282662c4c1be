// The numbers of attributes. Numbers from 1000 up are the engine's own and stand in its catalog.
#pragma once

#include <cstdint>

namespace Velmar {

enum AttributeId : std::int32_t {
    ATTR_UNKNOWN = 0,
    ATTR_FILENAME = 34,                    ///< file name: the file that a node reads
    ATTR_PROJECT_FLAG = 35,                ///< bool: a flag of the project settings
    ATTR_SMOOTHING = 40,                   ///< bool: shade with interpolated normals
    ATTR_SMOOTHING_ANGLE = 41,             ///< float, degrees: the widest angle that is smoothed
    ATTR_MATERIAL_NAMES = 63,              ///< string array: one name per material slot
    ATTR_NORMALS = 80,                     ///< float3 array, unit vectors
    ATTR_PIN_COUNT = 113,                  ///< int: number of pins of a geometry group
    ATTR_POLYGON_MATERIAL_INDICES = 114,   ///< int array: slot of each polygon
    ATTR_NORMAL_INDICES = 115,             ///< int array: normal of each corner
    ATTR_UVW_INDICES = 119,                ///< int array: uvw of each corner
    ATTR_VERTEX_INDICES = 120,             ///< int array: vertex of each corner
    ATTR_RELOAD = 124,                     ///< bool: writing false reads the file of ATTR_FILENAME
    ATTR_SCALE = 139,                      ///< float3: scale of a transform
    ATTR_SUBDIVISION_INTERPOLATION = 153,  ///< int: boundary interpolation, 0 to 3
    ATTR_SUBDIVISION_LEVEL = 161,          ///< int: levels of subdivision, 0 for none
    ATTR_SUBDIVISION_SCHEME = 162,         ///< int: 0 Catmull-Clark, 1 Loop, 2 bilinear
    ATTR_SUBDIVISION_SHARPNESS = 163,      ///< float: crease sharpness, 0 to 10
    ATTR_TRANSFORMS = 170,                 ///< matrix array, metres: placements of a scatter
    ATTR_TRANSFORM = 171,                  ///< matrix: the transform itself
    ATTR_TRANSLATION = 172,                ///< float3: translation of a transform
    ATTR_UVW = 184,                        ///< float3 array: texture coordinates
    ATTR_VALUE = 185,                      ///< the value of a value node, for a colour node its linear RGB
    ATTR_VERTICES_PER_POLYGON = 189,       ///< int array: number of corners of each polygon
    ATTR_VERTICES = 190,                   ///< float3 array, metres, Y up
    ATTR_INSTANCE_IDS = 279,               ///< int array: one id per placement of a scatter
    ATTR_INSTANCE_ID_BASE = 280,           ///< int: number from which instance ids count
};

}  // namespace Velmar
