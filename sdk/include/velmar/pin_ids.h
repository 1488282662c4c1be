// The numbers of pins. Numbers from 1000 up are the engine's own and stand in its catalog.
#pragma once

#include <cstdint>

namespace Velmar {

enum PinId : std::int32_t {
    PIN_UNKNOWN = 0,
    PIN_ALPHA_CHANNEL = 2,             ///< bool: the background is transparent
    PIN_ALPHA_SHADOWS = 3,             ///< bool: transparent surfaces cast lighter shadows
    PIN_AO_DISTANCE = 7,               ///< float, metres: reach of ambient occlusion
    PIN_APERTURE = 8,                  ///< float, centimetres: radius of the lens opening
    PIN_APERTURE_ASPECT_RATIO = 9,     ///< float: width over height of the lens opening
    PIN_APERTURE_EDGE = 10,            ///< float: how much the rim of the opening is favoured, 1 even
    PIN_AUTOFOCUS = 12,                ///< bool: focus on what stands in the middle of the picture
    PIN_BUMP = 18,                     ///< texture: bump map; bool of the info channel kernel
    PIN_CAMERA = 19,                   ///< camera of a render target
    PIN_PANORAMA_MODE = 20,            ///< enum: 0 spherical, 1 cylindrical, 2 cube
    PIN_CAUSTIC_BLUR = 22,             ///< float, 0 to 1
    PIN_COHERENT_RATIO = 25,           ///< float, 0 to 1: share of samples that neighbours have in common
    PIN_DAY = 27,                      ///< int, 1 to 31
    PIN_DIFFUSE_DEPTH_DIRECT = 29,     ///< int: diffuse bounces of the direct light kernel
    PIN_DIFFUSE = 30,                  ///< texture: colour of a material; the specular, mix and portal ones have none
    PIN_DIRECT_LIGHT_IMPORTANCE = 32,  ///< float, 0 to 1
    PIN_DISPLACEMENT = 34,             ///< a node that holds an image on PIN_TEXTURE
    PIN_DISTORTION = 35,               ///< float, -1 to 1: lens distortion
    PIN_DISTRIBUTED_TRACING = 36,      ///< bool: info channels with depth of field and antialiasing
    PIN_ENVIRONMENT = 43,              ///< environment of a render target
    PIN_EXPLORATION_STRENGTH = 44,     ///< float, 0 to 1
    PIN_FILTER_SIZE = 50,              ///< float, pixels: width of the reconstruction filter
    PIN_FOCAL_DEPTH = 51,              ///< float, metres: distance of the plane in focus
    PIN_FOV = 53,                      ///< float, degrees: horizontal field of view
    PIN_FOV_X = 54,                    ///< float, degrees: horizontal field of view of a panorama
    PIN_FOV_Y = 55,                    ///< float, degrees: vertical field of view of a panorama
    PIN_GAMMA = 57,                    ///< float
    PIN_GEOMETRY = 59,                 ///< geometry that a material map or a scatter uses
    PIN_GI_CLAMP = 60,                 ///< float: largest radiance of an indirect path
    PIN_GI_MODE = 61,              ///< enum: 0 none, 1 ambient, 2 sample environment, 3 ambient occlusion, 4 diffuse
    PIN_GLOSSY_DEPTH = 66,         ///< int
    PIN_GMT_OFFSET = 67,           ///< int, hours
    PIN_HIGHLIGHT_BACKFACES = 72,  ///< bool
    PIN_HOUR = 75,                 ///< float, hours of local time, 0 to 24
    PIN_IMAGER = 78,               ///< imager of a render target
    PIN_IMPORTANCE_SAMPLING = 79,  ///< bool: sample bright parts of the environment more often
    PIN_INFO_CHANNEL_TYPE = 81,    ///< enum: what the info channel kernel shows
    PIN_MATERIAL = 82,             ///< material of a link node
    PIN_INVERT = 83,               ///< bool: invert an image
    PIN_KERNEL = 89,               ///< kernel of a render target
    PIN_LATITUDE = 91,             ///< float, degrees, north positive
    PIN_STEREO_FILTER_LEFT = 93,   ///< float3: colour of the left eye in an anaglyph
    PIN_LENS_SHIFT = 95,           ///< float2: shift of the picture in widths and heights
    PIN_LONGITUDE = 99,            ///< float, degrees, east positive
    PIN_DIFFUSE_DEPTH = 104,       ///< int: diffuse bounces of path tracing and PMC
    PIN_SPECULAR_DEPTH = 105,      ///< int: specular bounces of path tracing and PMC
    PIN_MAX_REJECTS = 107,         ///< int
    PIN_MAX_SAMPLES = 108,         ///< int: samples per pixel at which rendering ends
    PIN_MAX_SPEED = 109,           ///< float: largest speed of the motion channel
    PIN_RENDER_GEOMETRY = 111,     ///< geometry of a render target
    PIN_DAYLIGHT_MODEL = 114,      ///< int: sky model of a daylight environment
    PIN_MONTH = 115,               ///< int, 1 to 12
    PIN_NEAR_CLIP_DEPTH = 116,     ///< float, metres
    PIN_NORMAL_MAP = 119,          ///< texture: normal map
    PIN_NORTH_OFFSET = 120,        ///< float: turn of the north direction, in full turns, -1 to 1
    PIN_OPACITY = 125,             ///< texture
    PIN_ORTHOGRAPHIC = 127,        ///< bool: parallel projection
    PIN_PARALLELISM = 128,         ///< int
    PIN_PATH_TERMINATION_POWER = 129,   ///< float, 0 to 1
    PIN_PERSPECTIVE_CORRECTION = 130,   ///< bool: keep verticals upright
    PIN_PIXEL_ASPECT_RATIO = 132,       ///< float: height over width of a pixel
    PIN_POSITION = 133,                 ///< float3, metres: camera position
    PIN_POSTPROC = 136,                 ///< post-processing of a render target
    PIN_POWER = 138,                    ///< float: power of an environment, an emission or an image
    PIN_RAY_EPSILON = 144,              ///< float, metres: distance at which a ray starts
    PIN_REFLECTION = 145,               ///< texture: colour of the specular material
    PIN_RESOLUTION = 198,               ///< int2, pixels: width and height
    PIN_STEREO_FILTER_RIGHT = 200,      ///< float3: colour of the right eye in an anaglyph
    PIN_ORTHOGRAPHIC_SCALE = 209,       ///< float, metres: width of the picture in parallel projection
    PIN_SKY_COLOR = 217,                ///< float3: linear RGB
    PIN_SMOOTH = 218,                   ///< bool: shade with interpolated normals
    PIN_SPECULAR_DEPTH_DIRECT = 221,    ///< int: specular bounces of the direct light kernel
    PIN_SPECULAR = 222,                 ///< texture: coat colour of the glossy material; edge or highlights of others
    PIN_STATIC_NOISE = 223,             ///< bool: the same noise in each picture
    PIN_STEREO_DISTANCE = 224,          ///< float, metres: distance of the eyes
    PIN_STEREO_DISTANCE_FALLOFF = 225,  ///< float: how the eye distance falls towards the poles
    PIN_BLACKOUT_LATITUDE = 226,        ///< float, degrees: beyond it a stereo panorama is black
    PIN_STEREO_MODE = 227,              ///< enum: 1 off-axis, 2 parallel
    PIN_STEREO_OUTPUT = 228,            ///< enum: 0 off, 1 left, 2 right, 3 side by side, 4 anaglyph, 5 over-under
    PIN_SUN_DIRECTION = 231,            ///< float3: a node with place and time, or a direction towards the sun
    PIN_SUNSET_COLOR = 232,             ///< float3: linear RGB
    PIN_SUN_SIZE = 233,                 ///< float: diameter of the sun, 1 its natural size
    PIN_TARGET = 235,                   ///< float3, metres: point that the camera looks at
    PIN_TEXTURE_1 = 238,                ///< texture
    PIN_TEXTURE_2 = 239,                ///< texture
    PIN_TEXTURE = 240,              ///< texture input of an environment, an emission, a displacement, a gamma colour
    PIN_UV_TRANSFORM = 243,         ///< transform of a texture
    PIN_TRANSMISSION = 245,         ///< texture: transmission colour of the specular material
    PIN_TURBIDITY = 246,            ///< float: haze of the sky, 2 to 15
    PIN_UP = 248,                   ///< float3: up vector of a camera
    PIN_UV_SET = 249,               ///< int, 1 to 3
    PIN_UV_MAX = 250,               ///< float: UV value that is shown white
    PIN_Z_DEPTH_MAX = 257,          ///< float, metres: depth that is shown white
    PIN_VISIBLE_ENVIRONMENT = 303,  ///< second environment of a render target
    PIN_FILM_SETTINGS = 311,        ///< film settings of a render target
    PIN_GROUND_COLOR = 331,         ///< float3: linear RGB
};

}  // namespace Velmar
