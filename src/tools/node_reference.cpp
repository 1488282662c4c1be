// Prints the reference page of all node types, with their pins and attributes as the catalog declares them.
#include "engine/catalog/catalog.h"
#include "engine/catalog/tables.h"

#include <velmar/info.h>

#include <cstdio>
#include <iostream>
#include <set>
#include <string>

namespace Velmar::Engine {
namespace {

struct Chapter {
    const char* title;
    std::span<const NodeTypeRow> types;
};

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", value);
    return text;
}

std::string code(const std::string& text) {
    return text.empty() ? "" : "`" + text + "`";
}

std::string typeName(NodeType type) {
    return code(ApiInfo::getNodeTypeName(type));
}

template <typename T>
std::string numbers(const T* values, unsigned count) {
    std::string text;
    for (unsigned i = 0; i < count; ++i) text += (i == 0 ? "" : " ") + number(static_cast<double>(values[i]));
    return text;
}

// How many parts the value has that stands on the pin at first; 0 for what is no number.
unsigned partsOfDefault(const PinRow& row) {
    if (row.kind != PIN_TYPE_TEXTURE) return row.dimension;
    if (row.default_node == NODE_COLOR) return 3;
    return row.default_node == NODE_FLOAT ? 1 : 0;
}

std::string pinDefault(const PinRow& row) {
    switch (row.kind) {
        case PIN_TYPE_BOOL:
            return row.bool_default ? "true" : "false";
        case PIN_TYPE_INT:
            return numbers(row.int_defaults, row.dimension);
        case PIN_TYPE_ENUM:
            return number(row.int_defaults[0]);
        case PIN_TYPE_FLOAT:
        case PIN_TYPE_TEXTURE:
            return numbers(row.float_defaults, partsOfDefault(row));
        case PIN_TYPE_TRANSFORM:
            return "identity";
        case PIN_TYPE_STRING:
            return code(row.string_default);
        default:
            return "";
    }
}

std::string pinKind(const PinRow& row) {
    std::string kind = ApiInfo::getPinTypeName(row.kind);
    if (row.kind == PIN_TYPE_TRANSFORM) return kind + " " + std::to_string(row.dimension) + "D";
    return row.dimension > 1 ? kind + std::to_string(row.dimension) : kind;
}

std::string range(double minimum, double maximum) {
    return minimum < maximum ? number(minimum) + " to " + number(maximum) : "";
}

std::string choices(const PinRow& row) {
    std::string text;
    for (const ApiEnumEntry& entry : row.entries) {
        text += (text.empty() ? "" : ", ") + std::to_string(entry.value) + " " + entry.label;
    }
    return text;
}

std::string defaultNode(const PinRow& row) {
    const std::string name = typeName(row.default_node);
    return row.filled == Filled::OnDemand ? "(" + name + ")" : name;
}

void printPin(std::ostream& out, const PinRow& row) {
    const Limits& limits = row.limits;
    out << "| " << code(Catalog::pinName(row.id)) << " | " << row.id << " | " << row.label << " | " << pinKind(row)
        << " | " << pinDefault(row) << " | "
        << (row.entries.empty() ? range(limits.minimum, limits.maximum) : choices(row)) << " | "
        << range(limits.slider_minimum, limits.slider_maximum) << " | " << defaultNode(row) << " | " << row.description
        << " |\n";
}

void printPins(std::ostream& out, const NodeTypeRow& type) {
    if (type.pins.empty()) return;
    out << "\n| Pin | Number | Label | Kind | Default | Range | Slider | Default node | Meaning |\n"
           "|---|---|---|---|---|---|---|---|---|\n";
    for (const PinRow& row : type.pins) printPin(out, row);
}

void printDynamicPins(std::ostream& out, const NodeTypeRow& type) {
    if (type.dynamic_pins == DynamicPins::None) return;
    const std::string kind = ApiInfo::getPinTypeName(type.dynamic_pin.kind);
    const bool counted = type.dynamic_pins == DynamicPins::CountedByAttribute;
    out << "\nMore pins" << (kind.empty() ? "" : " of the kind " + kind) << " stand behind: "
        << (counted ? "as many as its `pin_count` says" : "one for each of the `material_names` of its geometry")
        << ".\n";
}

std::string attributeDefault(const ApiAttributeInfo& info) {
    if (info.is_array) return "";
    switch (info.type) {
        case ATTR_TYPE_BOOL:
            return info.default_bool ? "true" : "false";
        case ATTR_TYPE_INT:
        case ATTR_TYPE_INT2:
        case ATTR_TYPE_INT3:
        case ATTR_TYPE_INT4:
            return numbers(info.default_ints, static_cast<unsigned>(info.type - ATTR_TYPE_INT + 1));
        case ATTR_TYPE_FLOAT:
        case ATTR_TYPE_FLOAT2:
        case ATTR_TYPE_FLOAT3:
        case ATTR_TYPE_FLOAT4:
            return numbers(info.default_floats, static_cast<unsigned>(info.type - ATTR_TYPE_FLOAT + 1));
        case ATTR_TYPE_MATRIX:
            return "identity";
        default:
            return code(info.default_string);
    }
}

void printAttributes(std::ostream& out, const TypeEntry& type) {
    if (type.attributes.empty()) return;
    out << "\n| Attribute | Number | Type | Default | Meaning |\n|---|---|---|---|---|\n";
    for (const ApiAttributeInfo& info : type.attributes) {
        out << "| " << code(info.name) << " | " << info.id << " | " << ApiInfo::getAttributeTypeName(info.type)
            << (info.is_array ? " array" : "") << " | " << attributeDefault(info) << " | " << info.description
            << " |\n";
    }
}

void printType(std::ostream& out, const NodeTypeRow& row) {
    const std::string kind = ApiInfo::getPinTypeName(row.output);
    out << "\n### " << row.default_name << "\n\n"
        << typeName(row.type) << ", number " << row.type << ", "
        << (kind.empty() ? "for no pin" : "for pins of the kind " + kind) << ". " << row.description << ".\n";
    printPins(out, row);
    printDynamicPins(out, row);
    printAttributes(out, *Catalog::find(row.type));
}

void printFittingTypes(std::ostream& out, NodePinType kind) {
    const NodeGraphType* graphs = nullptr;
    const NodeType* types = nullptr;
    std::size_t graph_count = 0;
    std::size_t type_count = 0;
    ApiInfo::getCompatibleTypes(kind, graphs, graph_count, types, type_count);
    out << "| " << ApiInfo::getPinTypeName(kind) << " | " << kind << " | ";
    for (std::size_t i = 0; i < type_count; ++i) out << (i == 0 ? "" : ", ") << typeName(types[i]);
    out << " |\n";
}

// The kinds that a pin or a node of the catalog has.
std::set<NodePinType> kindsInUse() {
    std::set<NodePinType> kinds;
    for (const TypeEntry* type : Catalog::types()) {
        kinds.insert(type->row->output);
        for (const PinRow& pin : type->row->pins) kinds.insert(pin.kind);
    }
    kinds.erase(PIN_TYPE_UNKNOWN);
    return kinds;
}

void printKinds(std::ostream& out) {
    out << "\n## What may stand on a pin\n\n"
           "A link stands wherever what is on its own pin may stand.\n\n"
           "| Kind of the pin | Number | Node types |\n|---|---|---|\n";
    for (const NodePinType kind : kindsInUse()) printFittingTypes(out, kind);
}

void printPage(std::ostream& out) {
    out << R"(# Node types

What a scene is made of: each node type with its pins and attributes, in the order of their indices. `./velmar docs`
writes this page from the tables in `src/engine/catalog`.

The default of a pin is the value of the node that stands on it at first. A default node in parentheses comes only when
the node's empty pins are configured. Ranges are those of an editor's field and of its slider; of a texture pin they are
those of a plain number on it. A value beyond them may be written.
)";
    printKinds(out);
    const Chapter chapters[] = {
        {"Geometry", geometryTypes()},   {"Materials and emissions", materialTypes()},
        {"Textures", textureTypes()},    {"Environments", environmentTypes()},
        {"Cameras", cameraTypes()},      {"Kernels", kernelTypes()},
        {"The picture", pictureTypes()}, {"Values, transforms and links", valueTypes()},
    };
    for (const Chapter& chapter : chapters) {
        out << "\n## " << chapter.title << "\n";
        for (const NodeTypeRow& row : chapter.types) printType(out, row);
    }
}

}  // namespace
}  // namespace Velmar::Engine

int main() {
    Velmar::Engine::printPage(std::cout);
    return std::cout.flush() ? 0 : 1;
}
