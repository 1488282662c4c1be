// The kinds of values that attributes and pins hold, and the kinds of graphs.
#pragma once

#include <cstdint>

namespace Velmar {

/// What one attribute holds. An array attribute has the kind of its elements.
enum AttributeType : std::int32_t {
    ATTR_TYPE_UNKNOWN = 0,
    ATTR_TYPE_BOOL = 1,
    ATTR_TYPE_INT = 2,
    ATTR_TYPE_INT2 = 3,
    ATTR_TYPE_INT3 = 4,
    ATTR_TYPE_INT4 = 5,
    ATTR_TYPE_FLOAT = 6,
    ATTR_TYPE_FLOAT2 = 7,
    ATTR_TYPE_FLOAT3 = 8,
    ATTR_TYPE_FLOAT4 = 9,
    ATTR_TYPE_STRING = 10,
    ATTR_TYPE_FILENAME = 11,
    ATTR_TYPE_BYTE = 12,
    ATTR_TYPE_MATRIX = 13,
};

/// What may stand on a pin. The kinds from PIN_TYPE_BOOL to PIN_TYPE_TRANSFORM, PIN_TYPE_ENUM and PIN_TYPE_STRING carry
/// a value that the getPin* calls read; on all others a node stands for itself.
enum NodePinType : std::int32_t {
    PIN_TYPE_UNKNOWN = 0,
    PIN_TYPE_BOOL = 1,
    PIN_TYPE_FLOAT = 2,
    PIN_TYPE_INT = 3,
    PIN_TYPE_TRANSFORM = 4,
    PIN_TYPE_TEXTURE = 5,
    PIN_TYPE_EMISSION = 6,
    PIN_TYPE_MATERIAL = 7,
    PIN_TYPE_CAMERA = 8,
    PIN_TYPE_ENVIRONMENT = 9,
    PIN_TYPE_IMAGER = 10,
    PIN_TYPE_KERNEL = 11,
    PIN_TYPE_GEOMETRY = 12,
    PIN_TYPE_MEDIUM = 13,
    PIN_TYPE_FILM_SETTINGS = 14,
    PIN_TYPE_POSTPROC = 15,
    PIN_TYPE_ENUM = 16,
    PIN_TYPE_RENDER_TARGET = 17,
    PIN_TYPE_STRING = 23,
};

/// What a graph is for.
enum NodeGraphType : std::int32_t {
    GRAPH_UNKNOWN = 0,
    GRAPH_STANDARD = 1,  ///< sandbox and scratch graphs
    GRAPH_ROOT = 2,      ///< a graph that can be written to text and read back
};

}  // namespace Velmar
