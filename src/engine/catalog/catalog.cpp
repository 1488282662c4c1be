#include "engine/catalog/catalog.h"

#include "engine/catalog/engine_ids.h"
#include "engine/catalog/tables.h"

#include <algorithm>
#include <unordered_map>

namespace Velmar::Engine {
namespace {

template <typename T>
void fillNumberInfo(ApiNumberPinInfo<T>& info, const PinRow& row, const T* defaults) {
    info.dimension = row.dimension;
    for (unsigned i = 0; i < 3; ++i) {
        info.defaults[i] = defaults[i];
        info.ranges[i] = {static_cast<T>(row.limits.minimum),
                          static_cast<T>(row.limits.maximum),
                          static_cast<T>(row.limits.slider_minimum),
                          static_cast<T>(row.limits.slider_maximum),
                          {}};
    }
}

void fillTransformInfo(ApiTransformPinInfo& info, const PinRow& row) {
    info.dimension = row.dimension;
    for (unsigned i = 0; i < 3; ++i) info.default_rows[i * 5] = 1.0F;
}

void fillPinEntry(PinEntry& entry, const PinRow& row, const char* name) {
    entry.row = &row;
    entry.info.id = row.id;
    entry.info.type = row.kind;
    entry.info.name = name;
    entry.info.label = row.label;
    entry.info.description = row.description;
    entry.info.default_node = row.default_node;
    entry.info.group = "";
    switch (row.kind) {
        case PIN_TYPE_BOOL:
            entry.info.bool_default = &row.bool_default;
            break;
        case PIN_TYPE_FLOAT:
            fillNumberInfo(entry.float_info, row, row.float_defaults);
            entry.info.float_info = &entry.float_info;
            break;
        case PIN_TYPE_INT:
            fillNumberInfo(entry.int_info, row, row.int_defaults);
            entry.info.int_info = &entry.int_info;
            break;
        case PIN_TYPE_ENUM:
            entry.enum_info = {row.entries.data(), static_cast<std::uint32_t>(row.entries.size()), row.int_defaults[0]};
            entry.info.enum_info = &entry.enum_info;
            break;
        case PIN_TYPE_TRANSFORM:
            fillTransformInfo(entry.transform_info, row);
            entry.info.transform_info = &entry.transform_info;
            break;
        case PIN_TYPE_STRING:
            entry.info.string_default = row.string_default;
            break;
        default:
            break;
    }
}

ApiAttributeInfo attributeInfo(const AttributeRow& row) {
    ApiAttributeInfo info{};
    info.id = row.id;
    info.type = row.type;
    info.name = Catalog::attributeName(row.id);
    info.description = row.description;
    info.is_array = row.is_array;
    info.default_bool = row.bool_default;
    info.default_ints[0] = row.int_default;
    std::copy(std::begin(row.float_defaults), std::end(row.float_defaults), info.default_floats);
    if (row.type == ATTR_TYPE_MATRIX) {
        for (unsigned i = 0; i < 3; ++i) info.default_matrix[i * 5] = 1.0F;
    }
    info.default_string = "";
    return info;
}

std::unique_ptr<TypeEntry> typeEntry(const NodeTypeRow& row) {
    auto entry = std::make_unique<TypeEntry>();
    entry->row = &row;
    entry->info = {row.type,
                   row.output,
                   row.description,
                   row.type_name,
                   row.default_name,
                   static_cast<std::uint32_t>(row.pins.size()),
                   static_cast<std::uint32_t>(row.attributes.size())};
    for (const PinRow& pin : row.pins) {
        entry->pins.push_back(std::make_unique<PinEntry>());
        fillPinEntry(*entry->pins.back(), pin, Catalog::pinName(pin.id));
    }
    fillPinEntry(entry->dynamic_pin, row.dynamic_pin, "");
    for (const AttributeRow& attribute : row.attributes) entry->attributes.push_back(attributeInfo(attribute));
    return entry;
}

struct Index {
    std::vector<std::unique_ptr<TypeEntry>> owned;
    std::vector<const TypeEntry*> types;
    std::unordered_map<NodeType, const TypeEntry*> by_type;

    Index() {
        for (const auto table : {geometryTypes(), cameraTypes(), environmentTypes(), kernelTypes(), materialTypes(),
                                 pictureTypes(), textureTypes(), valueTypes()}) {
            for (const NodeTypeRow& row : table) owned.push_back(typeEntry(row));
        }
        for (const auto& entry : owned) types.push_back(entry.get());
        std::ranges::sort(types, {}, [](const TypeEntry* entry) { return entry->row->type; });
        for (const TypeEntry* entry : types) by_type.emplace(entry->row->type, entry);
    }
};

// Kept to the end of the process and never destroyed: descriptions may be read by destructors of the host.
const Index& index() {
    static const Index& built = *new Index;
    return built;
}

template <typename Id, typename Row>
std::unordered_map<Id, const char*> namesById(std::span<const Row> rows) {
    std::unordered_map<Id, const char*> names;
    for (const Row& row : rows) names.emplace(row.id, row.name);
    return names;
}

template <typename Id>
const char* nameOf(const std::unordered_map<Id, const char*>& names, Id id) {
    const auto found = names.find(id);
    return found == names.end() ? "" : found->second;
}

}  // namespace

const TypeEntry* Catalog::find(NodeType type) {
    const auto found = index().by_type.find(type);
    return found == index().by_type.end() ? nullptr : found->second;
}

std::span<const TypeEntry* const> Catalog::types() {
    return index().types;
}

const char* Catalog::pinName(PinId id) {
    static const auto& names = *new auto(namesById<PinId>(pinNames()));
    return nameOf(names, id);
}

const char* Catalog::attributeName(AttributeId id) {
    static const auto& names = *new auto(namesById<AttributeId>(attributeNames()));
    return nameOf(names, id);
}

NodeType Catalog::valueNode(NodePinType kind, unsigned dimension) {
    static constexpr NodeType int_nodes[] = {NODE_INT, NODE_INT2, NODE_INT3};
    static constexpr NodeType float_nodes[] = {NODE_FLOAT, NODE_FLOAT2, NODE_FLOAT3};
    switch (kind) {
        case PIN_TYPE_BOOL:
            return NODE_BOOL;
        case PIN_TYPE_ENUM:
            return NODE_ENUM;
        case PIN_TYPE_STRING:
            return NODE_STRING;
        case PIN_TYPE_TRANSFORM:
            return dimension == 2 ? NODE_TRANSFORM_2D : NODE_TRANSFORM_3D;
        case PIN_TYPE_INT:
            return dimension >= 1 && dimension <= 3 ? int_nodes[dimension - 1] : NODE_UNKNOWN;
        case PIN_TYPE_FLOAT:
            return dimension >= 1 && dimension <= 3 ? float_nodes[dimension - 1] : NODE_UNKNOWN;
        default:
            return NODE_UNKNOWN;
    }
}

bool Catalog::fits(NodePinType output, NodePinType pin) {
    return output == pin || (pin == PIN_TYPE_TEXTURE && output == PIN_TYPE_FLOAT);
}

const ApiNodePinInfo& Catalog::noPin() {
    static const ApiNodePinInfo info = [] {
        ApiNodePinInfo none{};
        none.name = none.label = none.description = none.group = "";
        return none;
    }();
    return info;
}

const ApiAttributeInfo& Catalog::noAttribute() {
    static const ApiAttributeInfo info = [] {
        ApiAttributeInfo none{};
        none.name = none.description = none.default_string = "";
        return none;
    }();
    return info;
}

const ApiNodeInfo& Catalog::noType() {
    static const ApiNodeInfo info = {NODE_UNKNOWN, PIN_TYPE_UNKNOWN, "", "", "", 0, 0};
    return info;
}

}  // namespace Velmar::Engine
