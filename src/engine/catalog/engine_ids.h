// Numbers of the engine's own, beside those of the render SDK. They start at 1000, so that they never meet a number of
// the SDK; they stand in scene texts, so a number once given keeps its meaning.
#pragma once

#include <velmar/attribute_ids.h>
#include <velmar/node_types.h>
#include <velmar/pin_ids.h>

namespace Velmar::Engine {

// Value nodes: each carries its value in ATTR_VALUE, its first attribute.
inline constexpr NodeType NODE_BOOL = NodeType{1000};
inline constexpr NodeType NODE_INT = NodeType{1001};
inline constexpr NodeType NODE_INT2 = NodeType{1002};
inline constexpr NodeType NODE_INT3 = NodeType{1003};
inline constexpr NodeType NODE_FLOAT2 = NodeType{1004};
inline constexpr NodeType NODE_FLOAT3 = NodeType{1005};
inline constexpr NodeType NODE_ENUM = NodeType{1006};
inline constexpr NodeType NODE_STRING = NodeType{1007};
/// A direction towards the sun, worked out from its pins: place and time.
inline constexpr NodeType NODE_SUN_DIRECTION = NodeType{1008};
/// The settings of the project; stands in no graph.
inline constexpr NodeType NODE_PROJECT_SETTINGS = NodeType{1009};
// Emissions: what makes a material a lamp.
inline constexpr NodeType NODE_TEXTURE_EMISSION = NodeType{1010};
inline constexpr NodeType NODE_BLACKBODY_EMISSION = NodeType{1011};
// Textures beside those of the SDK.
inline constexpr NodeType NODE_MIX_TEXTURE = NodeType{1020};
inline constexpr NodeType NODE_CHECKER_TEXTURE = NodeType{1021};
inline constexpr NodeType NODE_NOISE_TEXTURE = NodeType{1022};
/// Stands for a node of a type that this engine does not know, so that a scene keeps it.
inline constexpr NodeType NODE_STAND_IN = NodeType{1900};

// Link types beside NODE_LINK_FIRST and NODE_LINK_MATERIAL.
inline constexpr NodeType NODE_LINK_TEXTURE = NodeType{30008};

inline constexpr PinId PIN_SCALE = PinId{1000};                // float3: scale of a scale transform
inline constexpr PinId PIN_MATERIAL_1 = PinId{1001};           // material of a mix where the amount is 1
inline constexpr PinId PIN_MATERIAL_2 = PinId{1002};           // material of a mix where the amount is 0
inline constexpr PinId PIN_AMOUNT = PinId{1003};               // texture: share of the first of the two that are mixed
inline constexpr PinId PIN_ROUGHNESS = PinId{1004};            // texture, 0 mirror to 1 dull
inline constexpr PinId PIN_INDEX = PinId{1005};                // float: index of refraction
inline constexpr PinId PIN_DISPLACEMENT_HEIGHT = PinId{1006};  // float, metres: height at white
inline constexpr PinId PIN_EXPOSURE = PinId{1007};             // float: factor on all radiance
inline constexpr PinId PIN_SATURATION = PinId{1008};           // float, 0 grey, 1 as rendered
inline constexpr PinId PIN_ENABLED = PinId{1009};              // bool: post-processing takes place
inline constexpr PinId PIN_BLOOM_POWER = PinId{1010};          // float
inline constexpr PinId PIN_GLARE_POWER = PinId{1011};          // float

// Of materials.
inline constexpr PinId PIN_EMISSION = PinId{1012};        // emission: the light that the surface sends out
inline constexpr PinId PIN_FILM_WIDTH = PinId{1013};      // texture, micrometres: thickness of a thin film, 0 none
inline constexpr PinId PIN_FILM_INDEX = PinId{1014};      // float: index of refraction of the film
inline constexpr PinId PIN_BUMP_HEIGHT = PinId{1015};     // float, metres: height of the bump map at white
inline constexpr PinId PIN_ANISOTROPY = PinId{1016};      // float, -1 to 1: stretch of highlights, 0 round
inline constexpr PinId PIN_ROTATION = PinId{1017};        // texture: turn of the stretch, in full turns
inline constexpr PinId PIN_DISPERSION = PinId{1018};      // float, square micrometres: Cauchy's second coefficient
inline constexpr PinId PIN_THIN = PinId{1019};            // bool: the surface is a pane without an inside
inline constexpr PinId PIN_CLEAR_SHADOWS = PinId{1020};   // bool: light on its way to other surfaces passes unbent
inline constexpr PinId PIN_TONES = PinId{1021};           // int: steps of brightness
inline constexpr PinId PIN_OUTLINE_COLOR = PinId{1022};   // texture
inline constexpr PinId PIN_OUTLINE_WIDTH = PinId{1023};   // float, 0 to 1: cosine at which the outline begins
inline constexpr PinId PIN_MIDDLE_LEVEL = PinId{1024};    // float: value of a displacement that moves nothing
inline constexpr PinId PIN_DISPLACE_LEVEL = PinId{1025};  // int: subdivisions of what is displaced

// Of emissions.
inline constexpr PinId PIN_SURFACE_BRIGHTNESS = PinId{1026};  // bool: power is radiance, else watts of the whole lamp
inline constexpr PinId PIN_TWO_SIDED = PinId{1027};           // bool: both sides of the surface send out light
inline constexpr PinId PIN_SAMPLING_RATE = PinId{1028};       // float: share of light samples, 1 by power
inline constexpr PinId PIN_TEMPERATURE = PinId{1029};         // float, kelvin
inline constexpr PinId PIN_NORMALIZE = PinId{1030};           // bool: the temperature gives the colour alone

// Of textures.
inline constexpr PinId PIN_WRAP_U = PinId{1031};       // enum: what stands beside the image
inline constexpr PinId PIN_WRAP_V = PinId{1032};       // enum: what stands above and below the image
inline constexpr PinId PIN_COLOR_SPACE = PinId{1033};  // enum: how stored values become linear ones
inline constexpr PinId PIN_OCTAVES = PinId{1034};      // int: layers of noise
inline constexpr PinId PIN_GAIN = PinId{1035};         // float, 0 to 1: strength of a layer over that before it
inline constexpr PinId PIN_LACUNARITY = PinId{1036};   // float: fineness of a layer over that before it

// Of the imager.
inline constexpr PinId PIN_RESPONSE = PinId{1037};               // enum: curve from light to brightness
inline constexpr PinId PIN_HIGHLIGHT_COMPRESSION = PinId{1038};  // float, 0 cut off to 1 soft
inline constexpr PinId PIN_WHITE_POINT = PinId{1039};            // float3, linear RGB: light that is shown white
inline constexpr PinId PIN_VIGNETTING = PinId{1040};             // float, 0 to 1: darkening towards the corners
inline constexpr PinId PIN_HOT_PIXEL_REMOVAL = PinId{1041};      // float, 0 off to 1 strongest
inline constexpr PinId PIN_DITHERING = PinId{1042};              // bool: noise below one step of the picture's bits
inline constexpr PinId PIN_PREMULTIPLIED_ALPHA = PinId{1043};    // bool: colours are saved times alpha

// Of post-processing.
inline constexpr PinId PIN_CUTOFF = PinId{1044};            // float: light below it neither blooms nor glares
inline constexpr PinId PIN_BLOOM_SIZE = PinId{1045};        // float: radius in heights of the picture
inline constexpr PinId PIN_GLARE_RAYS = PinId{1046};        // int
inline constexpr PinId PIN_GLARE_ANGLE = PinId{1047};       // float, degrees: turn of the rays
inline constexpr PinId PIN_GLARE_LENGTH = PinId{1048};      // float: length of the rays in heights of the picture
inline constexpr PinId PIN_GLARE_BLUR = PinId{1049};        // float, 0 sharp rays to 1 a disc
inline constexpr PinId PIN_GLARE_DISPERSION = PinId{1050};  // float, 0 white to 1 rainbow

// Of kernels.
inline constexpr PinId PIN_WIREFRAME_WIDTH = PinId{1051};  // float, pixels

}  // namespace Velmar::Engine
