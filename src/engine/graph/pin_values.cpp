#include "engine/graph/pin_values.h"

#include "engine/graph/world.h"

#include <charconv>
#include <cstring>
#include <string_view>

namespace Velmar::Engine {
namespace {

template <typename T>
T rowDefault(const PinRow& row) {
    const auto& i = row.int_defaults;
    const auto& f = row.float_defaults;
    if constexpr (std::is_same_v<T, bool>) return row.bool_default;
    if constexpr (std::is_same_v<T, int>) return i[0];
    if constexpr (std::is_same_v<T, Vec2<int>>) return {i[0], i[1]};
    if constexpr (std::is_same_v<T, Vec3<int>>) return {i[0], i[1], i[2]};
    if constexpr (std::is_same_v<T, float>) return f[0];
    if constexpr (std::is_same_v<T, Vec2<float>>) return {f[0], f[1]};
    if constexpr (std::is_same_v<T, Vec3<float>>) return {f[0], f[1], f[2]};
    if constexpr (std::is_same_v<T, Matrix<float>>) return identityMatrix();
}

template <typename T>
T nodeValue(const NodeRecord& node) {
    if (node.type->row->value == ValueSource::None) return T();
    const T* held = std::get_if<T>(&node.attributes[0].value);
    return held == nullptr ? T() : *held;
}

std::optional<unsigned> numberedPin(const NodeRecord& node, std::string_view name) {
    constexpr std::string_view prefix = "input_";
    unsigned number = 0;
    if (!name.starts_with(prefix)) return {};
    const char* end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
    if (error != std::errc() || stop != end || number == 0 || number > node.pins.size()) return {};
    return number - 1;
}

std::optional<unsigned> dynamicPin(const NodeRecord& node, const char* name) {
    if (node.type->row->dynamic_pins == DynamicPins::CountedByAttribute) return numberedPin(node, name);
    for (unsigned i = node.fixedPins(); i < node.pins.size(); ++i) {
        if (std::strcmp(pinName(node, i), name) == 0) return i;
    }
    return {};
}

}  // namespace

std::optional<unsigned> pinIndex(const NodeRecord& node, PinId id) {
    if (id == PIN_UNKNOWN) return {};
    for (unsigned i = 0; i < node.fixedPins(); ++i) {
        if (node.type->pins[i]->row->id == id) return i;
    }
    return {};
}

std::optional<unsigned> pinIndex(const NodeRecord& node, const char* name) {
    if (name == nullptr || *name == '\0') return {};
    for (unsigned i = 0; i < node.fixedPins(); ++i) {
        if (std::strcmp(node.type->pins[i]->info.name, name) == 0) return i;
    }
    return dynamicPin(node, name);
}

const char* pinName(const NodeRecord& node, unsigned index) {
    const unsigned fixed = node.fixedPins();
    if (index < fixed) return node.type->pins[index]->info.name;
    if (node.type->row->dynamic_pins == DynamicPins::NamedByGeometry) return node.pin_names->pointers[index - fixed];
    return World::current()->numberedPinName(index);
}

const PinEntry& pinEntry(const NodeRecord& node, unsigned index) {
    return index < node.fixedPins() ? *node.type->pins[index] : node.type->dynamic_pin;
}

std::optional<unsigned> attributeIndex(const NodeRecord& node, AttributeId id) {
    if (id == ATTR_UNKNOWN) return {};
    const auto& rows = node.type->row->attributes;
    for (unsigned i = 0; i < rows.size(); ++i) {
        if (rows[i].id == id) return i;
    }
    return {};
}

NodeRecord* follow(NodeRecord* node) {
    while (node != nullptr && node->isLink()) node = node->pins.empty() ? nullptr : node->pins[0].node;
    return node;
}

template <typename T>
bool carries(const PinRow& row) {
    if constexpr (std::is_same_v<T, bool>) return row.kind == PIN_TYPE_BOOL;
    if constexpr (std::is_same_v<T, int>) {
        return row.kind == PIN_TYPE_ENUM || (row.kind == PIN_TYPE_INT && row.dimension == 1);
    }
    if constexpr (std::is_same_v<T, Vec2<int>>) return row.kind == PIN_TYPE_INT && row.dimension == 2;
    if constexpr (std::is_same_v<T, Vec3<int>>) return row.kind == PIN_TYPE_INT && row.dimension == 3;
    if constexpr (std::is_same_v<T, float>) return row.kind == PIN_TYPE_FLOAT && row.dimension == 1;
    if constexpr (std::is_same_v<T, Vec2<float>>) return row.kind == PIN_TYPE_FLOAT && row.dimension == 2;
    if constexpr (std::is_same_v<T, Vec3<float>>) return row.kind == PIN_TYPE_FLOAT && row.dimension == 3;
    if constexpr (std::is_same_v<T, Matrix<float>>) return row.kind == PIN_TYPE_TRANSFORM;
}

template <typename T>
T pinValue(const NodeRecord& node, unsigned index) {
    const PinRow& row = *pinEntry(node, index).row;
    if (!carries<T>(row)) return T();
    const NodeRecord* source = follow(node.pins[index].node);
    return source == nullptr ? rowDefault<T>(row) : nodeValue<T>(*source);
}

const char* pinText(const NodeRecord& node, unsigned index) {
    const PinRow& row = *pinEntry(node, index).row;
    if (row.kind != PIN_TYPE_STRING) return "";
    const NodeRecord* source = follow(node.pins[index].node);
    if (source == nullptr) return row.string_default;
    if (source->type->row->value != ValueSource::Attribute) return "";
    const auto* held = std::get_if<std::string>(&source->attributes[0].value);
    return held == nullptr ? "" : held->c_str();
}

#define VELMAR_PIN_VALUE(type)                  \
    template bool carries<type>(const PinRow&); \
    template type pinValue<type>(const NodeRecord&, unsigned);
VELMAR_PIN_VALUE(bool)
VELMAR_PIN_VALUE(int)
VELMAR_PIN_VALUE(Vec2<int>)
VELMAR_PIN_VALUE(Vec3<int>)
VELMAR_PIN_VALUE(float)
VELMAR_PIN_VALUE(Vec2<float>)
VELMAR_PIN_VALUE(Vec3<float>)
VELMAR_PIN_VALUE(Matrix<float>)
#undef VELMAR_PIN_VALUE

}  // namespace Velmar::Engine
