// The form of the catalog's rows. A row declares one thing once: a pin, an attribute or a node type. Everything that is
// known about it derives from the row: creation, descriptions, texts, editors. Rows are constants; nothing is built
// while the library loads.
#pragma once

#include <velmar/info.h>
#include <velmar/values.h>

#include <cstdint>
#include <span>

namespace Velmar::Engine {

/// Limits of a number pin, the same for each component, or of the plain number on a texture pin: of the field and of
/// its slider. Values beyond them may be written and stay as they are; whoever uses a value guards against it.
struct Limits {
    double minimum = 0.0;
    double maximum = 0.0;
    double slider_minimum = 0.0;
    double slider_maximum = 0.0;
};

/// When an empty pin gets its default node.
enum class Filled : std::uint8_t {
    Never,
    WhenCreated,  ///< with the node that has the pin, when that is configured; also on demand
    OnDemand,     ///< only by configureEmptyPins
};

struct PinRow {
    PinId id = PIN_UNKNOWN;
    NodePinType kind = PIN_TYPE_UNKNOWN;
    const char* label = "";
    const char* description = "";
    NodeType default_node = NODE_UNKNOWN;
    Filled filled = Filled::Never;
    std::uint8_t dimension = 0;  ///< of float, int and transform pins
    bool bool_default = false;
    std::int32_t int_defaults[3] = {0, 0, 0};      ///< of int and enum pins
    float float_defaults[3] = {0.0F, 0.0F, 0.0F};  ///< of float pins, and of the value node that a texture pin gets
    const char* string_default = "";
    Limits limits{};
    std::span<const ApiEnumEntry> entries{};
};

struct AttributeRow {
    AttributeId id = ATTR_UNKNOWN;
    AttributeType type = ATTR_TYPE_UNKNOWN;
    bool is_array = false;
    const char* description = "";
    bool bool_default = false;
    std::int32_t int_default = 0;
    float float_defaults[4] = {0.0F, 0.0F, 0.0F, 0.0F};
    /// Writing it is a demand that counts even when the value stands already.
    bool is_trigger = false;
};

/// How the number of a node's pins behind its fixed ones is known.
enum class DynamicPins : std::uint8_t {
    None,
    CountedByAttribute,  ///< ATTR_PIN_COUNT of the node
    NamedByGeometry,     ///< one for each of the ATTR_MATERIAL_NAMES of the geometry on its first pin
};

/// What a node answers when the pin on which it stands is read as a value: nothing, or its first attribute. An
/// attribute that follows from the pins cannot be written.
enum class ValueSource : std::uint8_t {
    None,
    Attribute,     ///< written by whoever likes
    Scale,         ///< the scaling by the vector on the first pin
    SunDirection,  ///< the direction of the place and time on the pins
};

struct NodeTypeRow {
    NodeType type = NODE_UNKNOWN;
    NodePinType output = PIN_TYPE_UNKNOWN;
    const char* type_name = "";
    const char* default_name = "";
    const char* description = "";
    std::span<const PinRow> pins{};
    std::span<const AttributeRow> attributes{};
    ValueSource value = ValueSource::None;
    DynamicPins dynamic_pins = DynamicPins::None;
    PinRow dynamic_pin{};
};

}  // namespace Velmar::Engine
