// The words and limits of the scene text; docs/scene-text.md tells the format. Writer and reader share them.
#pragma once

#include "engine/graph/records.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace Velmar::Engine::SceneFormat {

/// The newest scene version that this engine reads and writes; a text of a newer one is refused.
inline constexpr unsigned kNewestVersion = 3080100;

/// Elements that stand in each other, the outermost included. Deeper texts are neither written nor read, so both can
/// walk by recursion.
inline constexpr unsigned kDeepest = 256;

/// Pins beside the fixed ones that the nodes of a text may have together, beyond one for each byte of the text.
inline constexpr std::size_t kFreeSlots = std::size_t{1} << 20;
/// And those of one node.
inline constexpr unsigned kMostSlots = 1U << 22;

// Elements.
inline constexpr const char* kScene = "velmar-scene";
inline constexpr const char* kNode = "node";
inline constexpr const char* kGraph = "graph";
inline constexpr const char* kInput = "input";
inline constexpr const char* kAttribute = "attribute";
inline constexpr const char* kText = "text";

// Attributes of elements. No attribute of a node type may have one of these names.
inline constexpr const char* kVersion = "version";
inline constexpr const char* kPin = "pin";
inline constexpr const char* kSlot = "slot";
inline constexpr const char* kId = "id";
inline constexpr const char* kType = "type";
inline constexpr const char* kName = "name";
inline constexpr const char* kPosition = "position";
inline constexpr const char* kFlags = "flags";
inline constexpr const char* kView = "view";
inline constexpr std::string_view kReserved[] = {kPin, kSlot, kId, kType, kName, kPosition, kFlags, kView, kNode};

/// True for a value that stands as an XML attribute of its node's element; the others stand as element text.
inline bool isSmall(const ApiAttributeInfo& info) {
    return !info.is_array && info.type != ATTR_TYPE_STRING && info.type != ATTR_TYPE_FILENAME;
}

/// True for an attribute that follows from the pins of the node; the text does not hold it.
inline bool isComputed(const TypeEntry& type, unsigned attribute) {
    const ValueSource source = type.row->value;
    return attribute == 0 && source != ValueSource::None && source != ValueSource::Attribute;
}

}  // namespace Velmar::Engine::SceneFormat
