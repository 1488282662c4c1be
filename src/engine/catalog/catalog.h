// What there is: all node types with their pins and attributes, as the tables declare them, and the descriptions that
// the SDK hands out. Knows nothing of nodes that exist. Built at the first call and kept as long as the process; may be
// called from any thread.
#pragma once

#include "engine/catalog/rows.h"

#include <velmar/info.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace Velmar::Engine {

/// A pin as it is handed out, with what its description points at.
struct PinEntry {
    const PinRow* row = nullptr;
    ApiNodePinInfo info{};
    ApiNumberPinInfo<float> float_info{};
    ApiNumberPinInfo<std::int32_t> int_info{};
    ApiEnumPinInfo enum_info{};
    ApiTransformPinInfo transform_info{};
};

/// One node type. Pins and attributes stand in the order of their rows, which is the order of their indices.
struct TypeEntry {
    const NodeTypeRow* row = nullptr;
    ApiNodeInfo info{};
    std::vector<std::unique_ptr<PinEntry>> pins;
    PinEntry dynamic_pin;  ///< describes each of the dynamic pins
    std::vector<ApiAttributeInfo> attributes;
};

class Catalog {
public:
    /// The type of that number; null when there is none.
    static const TypeEntry* find(NodeType type);
    /// All types, in ascending order of their numbers.
    static std::span<const TypeEntry* const> types();

    /// Name of the pin or attribute of that number; empty for an unknown one.
    static const char* pinName(PinId id);
    static const char* attributeName(AttributeId id);

    /// The value node that carries a value of that kind and dimension; NODE_UNKNOWN for kinds without a value.
    static NodeType valueNode(NodePinType kind, unsigned dimension);
    /// True when a node of that output may stand on a pin of that kind: they are equal, or a number serves as a
    /// texture.
    static bool fits(NodePinType output, NodePinType pin);
    /// True for the types from NODE_LINK_FIRST up.
    static bool isLink(NodeType type) { return type >= NODE_LINK_FIRST; }

    /// Descriptions that stand for a pin, attribute or type that does not exist.
    static const ApiNodePinInfo& noPin();
    static const ApiAttributeInfo& noAttribute();
    static const ApiNodeInfo& noType();
};

}  // namespace Velmar::Engine
