// Short forms in which the tables write their rows.
#pragma once

#include "engine/catalog/engine_ids.h"
#include "engine/catalog/rows.h"

namespace Velmar::Engine {

constexpr Limits unit_limits = {0.0, 1.0, 0.0, 1.0};

constexpr PinRow boolPin(PinId id, const char* label, bool value, const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_BOOL, .label = label, .description = description};
    row.default_node = NODE_BOOL;
    row.filled = Filled::WhenCreated;
    row.bool_default = value;
    return row;
}

constexpr PinRow intPin(PinId id, const char* label, int value, Limits limits, const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_INT, .label = label, .description = description};
    row.default_node = NODE_INT;
    row.filled = Filled::WhenCreated;
    row.dimension = 1;
    row.int_defaults[0] = value;
    row.limits = limits;
    return row;
}

constexpr PinRow int2Pin(PinId id, const char* label, int x, int y, Limits limits, const char* description = "") {
    PinRow row = intPin(id, label, x, limits, description);
    row.default_node = NODE_INT2;
    row.dimension = 2;
    row.int_defaults[1] = y;
    return row;
}

constexpr PinRow enumPin(PinId id, const char* label, int value, std::span<const ApiEnumEntry> entries,
                         const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_ENUM, .label = label, .description = description};
    row.default_node = NODE_ENUM;
    row.filled = Filled::WhenCreated;
    row.int_defaults[0] = value;
    row.entries = entries;
    return row;
}

constexpr PinRow floatPin(PinId id, const char* label, float value, Limits limits, const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_FLOAT, .label = label, .description = description};
    row.default_node = NODE_FLOAT;
    row.filled = Filled::WhenCreated;
    row.dimension = 1;
    row.float_defaults[0] = value;
    row.limits = limits;
    return row;
}

constexpr PinRow float2Pin(PinId id, const char* label, float x, float y, Limits limits, const char* description = "") {
    PinRow row = floatPin(id, label, x, limits, description);
    row.default_node = NODE_FLOAT2;
    row.dimension = 2;
    row.float_defaults[1] = y;
    return row;
}

constexpr PinRow float3Pin(PinId id, const char* label, Vec3<float> value, Limits limits,
                           const char* description = "") {
    PinRow row = float2Pin(id, label, value.x, value.y, limits, description);
    row.default_node = NODE_FLOAT3;
    row.dimension = 3;
    row.float_defaults[2] = value.z;
    return row;
}

/// A linear RGB colour that is a value, not a texture.
constexpr PinRow colorPin(PinId id, const char* label, Vec3<float> value, const char* description = "") {
    PinRow row = float3Pin(id, label, value, {0.0, 1.0e6, 0.0, 1.0}, description);
    row.default_node = NODE_COLOR;
    return row;
}

constexpr PinRow transformPin(PinId id, const char* label, NodeType default_node, std::uint8_t dimension,
                              const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_TRANSFORM, .label = label, .description = description};
    row.default_node = default_node;
    row.filled = Filled::WhenCreated;
    row.dimension = dimension;
    return row;
}

/// A pin for a texture that is created with a plain colour.
constexpr PinRow colorTexturePin(PinId id, const char* label, Vec3<float> value, const char* description = "") {
    PinRow row{.id = id, .kind = PIN_TYPE_TEXTURE, .label = label, .description = description};
    row.default_node = NODE_COLOR;
    row.filled = Filled::WhenCreated;
    row.float_defaults[0] = value.x;
    row.float_defaults[1] = value.y;
    row.float_defaults[2] = value.z;
    return row;
}

/// A pin for a texture that is created with a plain number; the limits are those of such a number.
constexpr PinRow floatTexturePin(PinId id, const char* label, float value, Limits limits,
                                 const char* description = "") {
    PinRow row = colorTexturePin(id, label, {value, 0.0F, 0.0F}, description);
    row.default_node = NODE_FLOAT;
    row.limits = limits;
    return row;
}

/// A pin on which a node stands for itself. Without a default node it stays empty.
constexpr PinRow nodePin(PinId id, NodePinType kind, const char* label, NodeType default_node = NODE_UNKNOWN,
                         const char* description = "") {
    PinRow row{.id = id, .kind = kind, .label = label, .description = description};
    row.default_node = default_node;
    row.filled = default_node == NODE_UNKNOWN ? Filled::Never : Filled::OnDemand;
    return row;
}

constexpr AttributeRow attribute(AttributeId id, AttributeType type, const char* description = "") {
    return {.id = id, .type = type, .description = description};
}

constexpr AttributeRow arrayAttribute(AttributeId id, AttributeType type, const char* description = "") {
    AttributeRow row = attribute(id, type, description);
    row.is_array = true;
    return row;
}

constexpr AttributeRow boolAttribute(AttributeId id, bool value, const char* description = "") {
    AttributeRow row = attribute(id, ATTR_TYPE_BOOL, description);
    row.bool_default = value;
    return row;
}

constexpr AttributeRow intAttribute(AttributeId id, int value, const char* description = "") {
    AttributeRow row = attribute(id, ATTR_TYPE_INT, description);
    row.int_default = value;
    return row;
}

constexpr AttributeRow floatAttribute(AttributeId id, float value, const char* description = "") {
    AttributeRow row = attribute(id, ATTR_TYPE_FLOAT, description);
    row.float_defaults[0] = value;
    return row;
}

constexpr AttributeRow float3Attribute(AttributeId id, Vec3<float> value, const char* description = "") {
    AttributeRow row = attribute(id, ATTR_TYPE_FLOAT3, description);
    row.float_defaults[0] = value.x;
    row.float_defaults[1] = value.y;
    row.float_defaults[2] = value.z;
    return row;
}

}  // namespace Velmar::Engine
