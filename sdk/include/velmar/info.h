// Descriptions of node types, pins and attributes, and the names of numbers. The descriptions are plain C records whose
// byte layout is fixed; the static_asserts below hold every position that a reader relies on.
#pragma once

#include <velmar/attribute_ids.h>
#include <velmar/export.h>
#include <velmar/kinds.h>
#include <velmar/node_types.h>
#include <velmar/pin_ids.h>

#include <cstddef>
#include <cstdint>

namespace Velmar {

/// Limits of one component of a float or int pin: those of the field and those of its slider.
template <typename T>
struct ApiPinRange {
    T minimum;
    T maximum;
    T slider_minimum;
    T slider_maximum;
    std::int32_t reserved[4];
};

/// Description of a float pin (T float) or an int pin (T 32-bit int).
template <typename T>
struct ApiNumberPinInfo {
    std::uint8_t dimension;  ///< 1 to 3
    T defaults[3];
    ApiPinRange<T> ranges[3];  ///< x, y, z
};

struct ApiEnumEntry {
    std::int32_t value;
    const char* label;
};

struct ApiEnumPinInfo {
    const ApiEnumEntry* entries;
    std::uint32_t count;
    std::int32_t default_value;
};

struct ApiTransformPinInfo {
    float default_rows[12];
    std::uint8_t dimension;  ///< 2 for texture planes, 3 for space
};

/// Description of one pin. The pointer for the pin's kind is set, the others are null.
struct ApiNodePinInfo {
    PinId id;
    NodePinType type;
    const char* name;
    const char* label;
    const char* description;
    NodeType default_node;  ///< node that an empty pin is configured with, NODE_UNKNOWN for none
    std::uint32_t reserved;
    const char* group;
    const bool* bool_default;
    const char* string_default;
    const ApiNumberPinInfo<float>* float_info;
    const ApiNumberPinInfo<std::int32_t>* int_info;
    const ApiEnumPinInfo* enum_info;
    const void* texture_info;
    const ApiTransformPinInfo* transform_info;
};

/// Description of a node type.
struct ApiNodeInfo {
    NodeType type;
    NodePinType output;  ///< kind of pin on which such a node may stand
    const char* description;
    const char* type_name;  ///< as ApiInfo::getNodeTypeName
    const char* default_name;
    std::uint32_t pin_count;
    std::uint32_t attribute_count;
};

/// Description of one attribute. Of the defaults the one of the attribute's type counts.
struct ApiAttributeInfo {
    AttributeId id;
    AttributeType type;
    const char* name;
    const char* description;
    bool is_array;
    bool default_bool;
    std::int32_t default_ints[4];
    float default_floats[4];
    float default_matrix[12];
    const char* default_string;
};

static_assert(sizeof(ApiPinRange<float>) == 32 && sizeof(ApiPinRange<std::int32_t>) == 32);
static_assert(offsetof(ApiNumberPinInfo<float>, dimension) == 0 && offsetof(ApiNumberPinInfo<float>, ranges) == 16);
static_assert(offsetof(ApiNumberPinInfo<std::int32_t>, ranges) == 16);
static_assert(sizeof(ApiEnumEntry) == 16 && offsetof(ApiEnumEntry, label) == 8);
static_assert(offsetof(ApiEnumPinInfo, entries) == 0 && offsetof(ApiEnumPinInfo, count) == 8);
static_assert(offsetof(ApiTransformPinInfo, dimension) == 48);
static_assert(offsetof(ApiNodePinInfo, label) == 16);
static_assert(offsetof(ApiNodePinInfo, float_info) == 64);
static_assert(offsetof(ApiNodePinInfo, int_info) == 72);
static_assert(offsetof(ApiNodePinInfo, enum_info) == 80);
static_assert(offsetof(ApiNodePinInfo, transform_info) == 96);
static_assert(offsetof(ApiNodeInfo, default_name) == 24);

/// Names of numbers, for people and for texts. Every name is static text, never null; an unknown number answers the
/// empty text.
class VELMAR_SDK ApiInfo {
public:
    /// "VELMAR_" and an upper-case word, "VELMAR_GLOSSY" for instance.
    static const char* getNodeTypeName(NodeType type);
    static const char* getPinIdName(PinId id);
    static const char* getPinTypeName(NodePinType type);
    static const char* getGraphTypeName(NodeGraphType type);
    static const char* getAttributeIdName(AttributeId id);
    static const char* getAttributeTypeName(AttributeType type);

    /// What may stand on a pin of a kind: sets the out-arguments to static lists, to null and 0 when there are none.
    static void getCompatibleTypes(NodePinType type, const NodeGraphType*& graph_types, std::size_t& graph_count,
                                   const NodeType*& node_types, std::size_t& node_count);
};

}  // namespace Velmar
