#include "plugin/nodes/pin_info.h"

#include <json/value.h>
#include <velmar/info.h>
#include <velmar/node.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace Velmar {

// The descriptions come from a library that is built apart from this one: these are the positions that it keeps.
static_assert(offsetof(ApiNodePinInfo, label) == 16);
static_assert(offsetof(ApiNodePinInfo, float_info) == 64 && offsetof(ApiNodePinInfo, int_info) == 72);
static_assert(offsetof(ApiNodePinInfo, enum_info) == 80 && offsetof(ApiNodePinInfo, transform_info) == 96);
static_assert(offsetof(ApiEnumPinInfo, entries) == 0 && offsetof(ApiEnumPinInfo, count) == 8);
static_assert(sizeof(ApiEnumEntry) == 16 && offsetof(ApiEnumEntry, value) == 0 && offsetof(ApiEnumEntry, label) == 8);
static_assert(sizeof(ApiEnumEntry::value) == 4 && sizeof(ApiEnumPinInfo::count) == 4);
static_assert(offsetof(ApiTransformPinInfo, dimension) == 48 && sizeof(ApiTransformPinInfo::dimension) == 1);

namespace {

const Json::StaticString kName("name");
const Json::StaticString kLabel("label");
const Json::StaticString kType("type");
const Json::StaticString kDimension("dim");
constexpr const char* kParts[] = {"x", "y", "z"};

template <typename T>
constexpr bool standsAt(std::size_t ranges, std::size_t range_size) {
    return sizeof(T) == 4 && offsetof(ApiNumberPinInfo<T>, dimension) == 0 &&
           sizeof(ApiNumberPinInfo<T>::dimension) == 1 && offsetof(ApiNumberPinInfo<T>, ranges) == ranges &&
           sizeof(ApiPinRange<T>) == range_size && offsetof(ApiPinRange<T>, minimum) == 0 &&
           offsetof(ApiPinRange<T>, maximum) == 4 && offsetof(ApiPinRange<T>, slider_minimum) == 8 &&
           offsetof(ApiPinRange<T>, slider_maximum) == 12;
}
static_assert(standsAt<float>(16, 32) && standsAt<std::int32_t>(16, 32));

Json::Value text(const char* characters) {
    return characters == nullptr ? "" : characters;
}

Json::Value compatibleNodeTypes(NodePinType kind) {
    const NodeGraphType* graph_types = nullptr;
    const NodeType* node_types = nullptr;
    std::size_t graph_count = 0;
    std::size_t node_count = 0;
    ApiInfo::getCompatibleTypes(kind, graph_types, graph_count, node_types, node_count);
    Json::Value list;
    for (std::size_t i = 0; i < node_count && node_types != nullptr; ++i) list.append(static_cast<int>(node_types[i]));
    return list;
}

Json::Value number(float value) {
    return static_cast<double>(value);
}

Json::Value number(std::int32_t value) {
    return value;
}

template <typename T>
void describeNumber(const char* type, const ApiNumberPinInfo<T>* description, Json::Value& info) {
    info[kType] = type;
    if (description == nullptr) return;
    info[kDimension] = description->dimension;
    Json::Value& minimum = info["min"];
    Json::Value& maximum = info["max"];
    Json::Value& slider_minimum = info["sld_min"];
    Json::Value& slider_maximum = info["sld_max"];
    const int parts = std::clamp<int>(description->dimension, 1, 3);
    for (int i = 0; i < parts; ++i) {
        const Json::StaticString part(kParts[i]);
        const ApiPinRange<T>& range = description->ranges[i];
        minimum[part] = number(range.minimum);
        maximum[part] = number(range.maximum);
        slider_minimum[part] = number(range.slider_minimum);
        slider_maximum[part] = number(range.slider_maximum);
    }
}

Json::Value choices(const ApiEnumPinInfo* description) {
    Json::Value list;
    if (description == nullptr || description->entries == nullptr) return list;
    for (std::uint32_t i = 0; i < description->count; ++i) {
        Json::Value choice;
        choice[kLabel] = text(description->entries[i].label);
        choice["value"] = description->entries[i].value;
        list.append(std::move(choice));
    }
    return list;
}

void describeKind(NodePinType kind, const ApiNodePinInfo& pin, Json::Value& info) {
    switch (kind) {
        case PIN_TYPE_BOOL:
            info[kDimension] = 1;
            info[kType] = "bool";
            break;
        case PIN_TYPE_FLOAT:
            describeNumber("float", pin.float_info, info);
            break;
        case PIN_TYPE_INT:
            describeNumber("int", pin.int_info, info);
            break;
        case PIN_TYPE_TRANSFORM:
            if (pin.transform_info != nullptr) info[kDimension] = pin.transform_info->dimension;
            info[kType] = "transform";
            break;
        case PIN_TYPE_TEXTURE:
            info[kType] = "texture";
            break;
        case PIN_TYPE_ENUM:
            info[kType] = "enum";
            info["values"] = choices(pin.enum_info);
            break;
        default:
            break;
    }
}

}  // namespace

Json::Value GetPinInfo(ApiNode* node, unsigned int index, bool full) {
    Json::Value info;
    if (node == nullptr) return info;
    info[kName] = text(node->pinNameIx(index));
    if (!full) return info;
    const NodePinType kind = node->pinTypeIx(index);
    const ApiNodePinInfo& pin = node->pinInfoIx(index);
    info[kLabel] = text(pin.label);
    info["node_ids"] = compatibleNodeTypes(kind);
    describeKind(kind, pin, info);
    return info;
}

}  // namespace Velmar
