// Node records as typed values: what stands between JSON, which may hold anything, and the graph. A record is read
// whole before any of it is applied, so a fault in its last corner leaves the graph as it was.
#pragma once

#include <json/forwards.h>
#include <velmar/node_types.h>

#include <optional>
#include <string>
#include <vector>

#include "plugin/nodes/attribute_record.h"

namespace Velmar {

/// A node record (see NodeUtils) and, below it, the records of its pins.
struct NodeRecord {
    /// What an empty pin has for a type.
    static constexpr NodeType kEmptyPin = NODE_UNKNOWN;
    /// The type of a record without one; on update it asks for the pin to be emptied.
    static constexpr NodeType kNoType = NodeType{-1};

    std::string pin_name;  ///< pin on which the node stands; empty at the top
    std::string name;
    NodeType type = kNoType;
    bool pin_owned = false;
    bool has_params = false;
    std::vector<AttributeRecord> params;  ///< those that change something
    std::vector<NodeRecord> pins;         ///< those whose pin is named
};

/// Reads a record with all that it holds; of the record of an empty pin only the type. Empty for the null value and for
/// a value of the wrong kind anywhere in it.
std::optional<NodeRecord> ReadNodeRecord(const Json::Value& json);

}  // namespace Velmar
