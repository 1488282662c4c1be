// Attribute records as typed values: what stands between JSON, which may hold anything, and a node. Reading is the only
// step that can fail; what was read can always be applied.
#pragma once

#include <json/forwards.h>
#include <velmar/node.h>

#include <optional>
#include <string>
#include <variant>

namespace Velmar {

/// One attribute of a node by name, with the value that it is to take.
struct AttributeRecord {
    std::string name;
    std::variant<bool, int, Vec2<int>, Vec3<int>, float, Vec2<float>, Vec3<float>, Vec4<float>, std::string> value;
};

/// Reads an attribute record (see NodeUtils). Empty for one that changes nothing: null, without type or name, of a kind
/// that does not travel, or an empty file name. A missing value is 0, false or empty; numbers beyond a float's range
/// become its limits. Throws Json::Exception for values of the wrong kind.
std::optional<AttributeRecord> ReadAttributeRecord(const Json::Value& record);

/// Writes the value without evaluation; a file name also has the node read the file. A name that the node does not have
/// changes nothing.
void ApplyAttributeRecord(const AttributeRecord& record, ApiNode& node);

}  // namespace Velmar
