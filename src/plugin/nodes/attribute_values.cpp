// Attributes of nodes as JSON and back.
#include <json/value.h>
#include <velmar/node.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

#include "plugin/nodes/attribute_record.h"
#include "plugin/nodes/node_utils.h"

namespace Velmar {

namespace {

const Json::StaticString kType("type");
const Json::StaticString kName("name");

// --- From a node ---

Json::Value number(int value) {
    return value;
}

Json::Value number(float value) {
    return static_cast<double>(value);
}

template <typename T>
Json::Value parts(const Vec2<T>& vector) {
    Json::Value object;
    object["x"] = number(vector.x);
    object["y"] = number(vector.y);
    return object;
}

template <typename T>
Json::Value parts(const Vec3<T>& vector) {
    Json::Value object = parts(Vec2<T>{vector.x, vector.y});
    object["z"] = number(vector.z);
    return object;
}

template <typename T>
Json::Value parts(const Vec4<T>& vector) {
    Json::Value object = parts(Vec3<T>{vector.x, vector.y, vector.z});
    object["w"] = number(vector.w);
    return object;
}

Json::Value fileName(const ApiNode& node, AttributeId id) {
    const char* path = nullptr;
    return node.get(id, path) && path != nullptr ? path : "";
}

/// The value of an attribute in the form of its kind; empty for a kind that does not travel.
std::optional<Json::Value> readValue(const ApiNode& node, AttributeType type, AttributeId id) {
    switch (type) {
        case ATTR_TYPE_BOOL:
            return node.getBool(id);
        case ATTR_TYPE_INT:
            return node.getInt(id);
        case ATTR_TYPE_INT2:
            return parts(node.getInt2(id));
        case ATTR_TYPE_INT3:
            return parts(node.getInt3(id));
        case ATTR_TYPE_FLOAT:
            return number(node.getFloat(id));
        case ATTR_TYPE_FLOAT2:
            return parts(node.getFloat2(id));
        case ATTR_TYPE_FLOAT3:
            return parts(node.getFloat3(id));
        case ATTR_TYPE_FLOAT4:
            return parts(node.getFloat4(id));
        case ATTR_TYPE_FILENAME:
            return fileName(node, id);
        default:
            return std::nullopt;
    }
}

// --- From JSON ---

/// The member of an object, the null value without one. Throws for what is neither object nor null.
const Json::Value& member(const Json::Value& object, std::string_view name) {
    const Json::Value* value = object.find(name.data(), name.data() + name.size());
    return value == nullptr ? Json::Value::nullSingleton() : *value;
}

// A number that fits no float would be infinite, and a text that holds an infinite number cannot be read back.
float toFloat(const Json::Value& value) {
    constexpr double limit = std::numeric_limits<float>::max();
    const double number = value.asDouble();
    return static_cast<float>(std::isfinite(number) ? std::clamp(number, -limit, limit) : number);
}

template <typename T>
T toNumber(const Json::Value& value) {
    if constexpr (std::is_same_v<T, float>) {
        return toFloat(value);
    } else {
        return value.asInt();
    }
}

template <typename T>
T part(const Json::Value& vector, const char* name) {
    return toNumber<T>(member(vector, name));
}

template <typename T>
Vec2<T> toVec2(const Json::Value& value) {
    return {part<T>(value, "x"), part<T>(value, "y")};
}

template <typename T>
Vec3<T> toVec3(const Json::Value& value) {
    return {part<T>(value, "x"), part<T>(value, "y"), part<T>(value, "z")};
}

template <typename T>
Vec4<T> toVec4(const Json::Value& value) {
    return {part<T>(value, "x"), part<T>(value, "y"), part<T>(value, "z"), part<T>(value, "w")};
}

std::optional<AttributeRecord> fileNameRecord(std::string name, std::string path) {
    if (path.empty()) return std::nullopt;
    return AttributeRecord{std::move(name), std::move(path)};
}

}  // namespace

std::optional<AttributeRecord> ReadAttributeRecord(const Json::Value& record) {
    if (record.isNull()) return std::nullopt;
    int type = record.get("type", -1).asInt();
    if (type == 0) return std::nullopt;
    std::string name = member(record, "name").asString();
    if (name.empty()) return std::nullopt;
    // An attribute called "type" has its value where the record's type would stand.
    if (name == "type") type = ATTR_TYPE_INT;
    const Json::Value& value = member(record, name);
    switch (type) {
        case ATTR_TYPE_BOOL:
            return AttributeRecord{std::move(name), value.asBool()};
        case ATTR_TYPE_INT:
            return AttributeRecord{std::move(name), value.asInt()};
        case ATTR_TYPE_INT2:
            return AttributeRecord{std::move(name), toVec2<int>(value)};
        case ATTR_TYPE_INT3:
            return AttributeRecord{std::move(name), toVec3<int>(value)};
        case ATTR_TYPE_FLOAT:
            return AttributeRecord{std::move(name), toFloat(value)};
        case ATTR_TYPE_FLOAT2:
            return AttributeRecord{std::move(name), toVec2<float>(value)};
        case ATTR_TYPE_FLOAT3:
            return AttributeRecord{std::move(name), toVec3<float>(value)};
        case ATTR_TYPE_FLOAT4:
            return AttributeRecord{std::move(name), toVec4<float>(value)};
        case ATTR_TYPE_FILENAME:
            return fileNameRecord(std::move(name), value.asString());
        default:
            return std::nullopt;
    }
}

void ApplyAttributeRecord(const AttributeRecord& record, ApiNode& node) {
    const AttributeId id = node.attrId(record.name.c_str());
    std::visit(
        [&](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>) {
                node.set(id, value.c_str(), false);
                node.set(ATTR_RELOAD, false, true);
            } else {
                node.set(id, value, false);
            }
        },
        record.value);
}

Json::Value NodeUtils::GetAttribute(ApiNode* node, unsigned index) {
    Json::Value record;
    if (node == nullptr) return record;
    const AttributeType type = node->attrTypeIx(index);
    const AttributeId id = node->attrIdIx(index);
    const char* const name = node->attrNameIx(index);
    record[kType] = static_cast<int>(type);
    record[kName] = name;
    if (std::optional<Json::Value> value = readValue(*node, type, id)) record[name] = *std::move(value);
    return record;
}

void NodeUtils::SetAttribute(const Json::Value& record, ApiNode* node) {
    if (node == nullptr) return;
    std::optional<AttributeRecord> attribute;
    try {
        attribute = ReadAttributeRecord(record);
    } catch (const Json::Exception&) {  // a value of the wrong kind: nothing is applied
    }
    if (attribute) ApplyAttributeRecord(*attribute, *node);
}

}  // namespace Velmar
