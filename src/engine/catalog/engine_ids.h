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
/// Stands for a node of a type that this engine does not know, so that a scene keeps it.
inline constexpr NodeType NODE_STAND_IN = NodeType{1900};

// Link types beside NODE_LINK_FIRST and NODE_LINK_MATERIAL.
inline constexpr NodeType NODE_LINK_TEXTURE = NodeType{30008};

inline constexpr PinId PIN_SCALE = PinId{1000};                // float3: scale of a scale transform
inline constexpr PinId PIN_MATERIAL_1 = PinId{1001};           // material of a mix where the amount is 1
inline constexpr PinId PIN_MATERIAL_2 = PinId{1002};           // material of a mix where the amount is 0
inline constexpr PinId PIN_AMOUNT = PinId{1003};               // texture: share of the first material of a mix
inline constexpr PinId PIN_ROUGHNESS = PinId{1004};            // texture, 0 mirror to 1 dull
inline constexpr PinId PIN_INDEX = PinId{1005};                // float: index of refraction
inline constexpr PinId PIN_DISPLACEMENT_HEIGHT = PinId{1006};  // float, metres: height at white
inline constexpr PinId PIN_EXPOSURE = PinId{1007};             // float: factor on all radiance
inline constexpr PinId PIN_SATURATION = PinId{1008};           // float, 0 grey, 1 as rendered
inline constexpr PinId PIN_ENABLED = PinId{1009};              // bool: post-processing takes place
inline constexpr PinId PIN_BLOOM_POWER = PinId{1010};          // float
inline constexpr PinId PIN_GLARE_POWER = PinId{1011};          // float

}  // namespace Velmar::Engine
