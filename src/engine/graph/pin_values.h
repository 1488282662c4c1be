// Reads pins: by number or name, and the values of the nodes on them.
#pragma once

#include "engine/graph/records.h"

#include <optional>

namespace Velmar::Engine {

/// Index of the pin of that number or name; none when the node has no such pin.
std::optional<unsigned> pinIndex(const NodeRecord& node, PinId id);
std::optional<unsigned> pinIndex(const NodeRecord& node, const char* name);
/// Name of the pin at `index`, which must be one of the node's.
const char* pinName(const NodeRecord& node, unsigned index);
const PinEntry& pinEntry(const NodeRecord& node, unsigned index);

/// Index of the attribute of that number; none when the node has no such attribute.
std::optional<unsigned> attributeIndex(const NodeRecord& node, AttributeId id);

/// What `node` stands for: the node itself or what a link passes on in the end; null for nothing.
NodeRecord* follow(NodeRecord* node);

/// True when values of type T are read from and written to a pin with that row.
template <typename T>
bool carries(const PinRow& row);

/// The value of the node on the pin, the pin's default when it is empty, T() when kinds differ.
template <typename T>
T pinValue(const NodeRecord& node, unsigned index);
/// Text of a string pin, never null.
const char* pinText(const NodeRecord& node, unsigned index);

}  // namespace Velmar::Engine
