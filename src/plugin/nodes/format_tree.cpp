// Graphs and node trees as indented text, one line for each node and each attribute that is not at its default.
#include <velmar/arrays.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "plugin/nodes/format.h"
#include "plugin/nodes/node_utils.h"

namespace Velmar {

namespace {

void writeNode(std::ostream& out, const ApiNode* node, unsigned long depth, const std::string& value);
void writeGraph(std::ostream& out, const ApiNodeGraph* graph, unsigned long depth);

std::string indent(unsigned long depth) {
    return std::string(4 * depth, ' ');
}

/// A text stream that names truth values.
std::ostringstream textStream() {
    std::ostringstream stream;
    stream << std::boolalpha;
    return stream;
}

template <typename T>
std::string text(const T& value) {
    std::ostringstream stream = textStream();
    stream << value;
    return stream.str();
}

// --- Default values, as the description of an attribute holds them ---

void readDefault(const ApiAttributeInfo& info, bool& value) {
    value = info.default_bool;
}

void readDefault(const ApiAttributeInfo& info, int& value) {
    value = info.default_ints[0];
}

void readDefault(const ApiAttributeInfo& info, unsigned char& value) {
    value = static_cast<unsigned char>(info.default_ints[0]);
}

void readDefault(const ApiAttributeInfo& info, Vec2<int>& value) {
    value = {info.default_ints[0], info.default_ints[1]};
}

void readDefault(const ApiAttributeInfo& info, Vec3<int>& value) {
    value = {info.default_ints[0], info.default_ints[1], info.default_ints[2]};
}

void readDefault(const ApiAttributeInfo& info, Vec4<int>& value) {
    value = {info.default_ints[0], info.default_ints[1], info.default_ints[2], info.default_ints[3]};
}

void readDefault(const ApiAttributeInfo& info, float& value) {
    value = info.default_floats[0];
}

void readDefault(const ApiAttributeInfo& info, Vec2<float>& value) {
    value = {info.default_floats[0], info.default_floats[1]};
}

void readDefault(const ApiAttributeInfo& info, Vec3<float>& value) {
    value = {info.default_floats[0], info.default_floats[1], info.default_floats[2]};
}

void readDefault(const ApiAttributeInfo& info, Vec4<float>& value) {
    value = {info.default_floats[0], info.default_floats[1], info.default_floats[2], info.default_floats[3]};
}

void readDefault(const ApiAttributeInfo& info, const char*& value) {
    value = info.default_string;
}

void readDefault(const ApiAttributeInfo& info, Matrix<float>& value) {
    std::copy(std::begin(info.default_matrix), std::end(info.default_matrix), &value.m[0][0]);
}

bool equal(const char* a, const char* b) {
    return std::strcmp(a == nullptr ? "" : a, b == nullptr ? "" : b) == 0;
}

template <typename T>
bool equal(const T& a, const T& b) {
    return a == b;
}

// --- Attributes ---

template <typename T>
bool isDefault(const T& value, const ApiAttributeInfo& info) {
    T default_value{};
    readDefault(info, default_value);
    return equal(value, default_value);
}

template <typename T>
bool isDefault(const ApiArray<T>& array, const ApiAttributeInfo& info) {
    return array.size == 1 && isDefault(array.data[0], info);
}

/// The value as text; empty for one that is at its default.
template <typename T>
std::string changed(const T& value, const ApiAttributeInfo& info) {
    return isDefault(value, info) ? std::string() : " = " + text(value);
}

std::string changedArray(const ApiNode& node, unsigned index, const ApiAttributeInfo& info) {
    switch (info.type) {
        case ATTR_TYPE_BOOL:
            return changed(node.getBoolArrayIx(index), info);
        case ATTR_TYPE_INT:
            return changed(node.getIntArrayIx(index), info);
        case ATTR_TYPE_INT2:
            return changed(node.getInt2ArrayIx(index), info);
        case ATTR_TYPE_INT3:
            return changed(node.getInt3ArrayIx(index), info);
        case ATTR_TYPE_INT4:
            return changed(node.getInt4ArrayIx(index), info);
        case ATTR_TYPE_FLOAT:
            return changed(node.getFloatArrayIx(index), info);
        case ATTR_TYPE_FLOAT2:
            return changed(node.getFloat2ArrayIx(index), info);
        case ATTR_TYPE_FLOAT3:
            return changed(node.getFloat3ArrayIx(index), info);
        case ATTR_TYPE_FLOAT4:
            return changed(node.getFloat4ArrayIx(index), info);
        case ATTR_TYPE_STRING:
        case ATTR_TYPE_FILENAME:
            return changed(node.getStringArrayIx(index), info);
        case ATTR_TYPE_BYTE:
            return changed(node.getByteArrayIx(index), info);
        case ATTR_TYPE_MATRIX:
            return changed(node.getMatrixArrayIx(index), info);
        default:
            return {};
    }
}

std::string changedScalar(const ApiNode& node, unsigned index, const ApiAttributeInfo& info) {
    switch (info.type) {
        case ATTR_TYPE_BOOL:
            return changed(node.getBoolIx(index), info);
        case ATTR_TYPE_INT:
            return changed(node.getIntIx(index), info);
        case ATTR_TYPE_INT2:
            return changed(node.getInt2Ix(index), info);
        case ATTR_TYPE_INT3:
            return changed(node.getInt3Ix(index), info);
        case ATTR_TYPE_INT4:
            return changed(node.getInt4Ix(index), info);
        case ATTR_TYPE_FLOAT:
            return changed(node.getFloatIx(index), info);
        case ATTR_TYPE_FLOAT2:
            return changed(node.getFloat2Ix(index), info);
        case ATTR_TYPE_FLOAT3:
            return changed(node.getFloat3Ix(index), info);
        case ATTR_TYPE_FLOAT4:
            return changed(node.getFloat4Ix(index), info);
        case ATTR_TYPE_STRING:
        case ATTR_TYPE_FILENAME:
            return changed(node.getStringIx(index), info);
        case ATTR_TYPE_MATRIX:
            return changed(node.getMatrixIx(index), info);
        default:
            return {};
    }
}

void writeAttributes(std::ostream& out, const ApiNode& node, unsigned long depth) {
    for (unsigned i = 0; i < node.attrCount(); ++i) {
        const ApiAttributeInfo& info = node.attrInfoIx(i);
        const std::string value = info.is_array ? changedArray(node, i, info) : changedScalar(node, i, info);
        if (value.empty()) continue;
        out << indent(depth) << ApiInfo::getAttributeIdName(info.id) << ": " << ApiInfo::getAttributeTypeName(info.type)
            << value << '\n';
    }
}

// --- Pins ---

std::string floatParts(const ApiNode& node, unsigned pin) {
    const auto* const description = node.pinInfoIx(pin).float_info;
    const int dimension = description == nullptr ? 1 : description->dimension;
    if (dimension <= 1) return text(node.getPinFloatIx(pin));
    return dimension == 2 ? text(node.getPinFloat2Ix(pin)) : text(node.getPinFloat3Ix(pin));
}

std::string intParts(const ApiNode& node, unsigned pin) {
    const auto* const description = node.pinInfoIx(pin).int_info;
    const int dimension = description == nullptr ? 1 : description->dimension;
    if (dimension <= 1) return text(node.getPinIntIx(pin));
    return dimension == 2 ? text(node.getPinInt2Ix(pin)) : text(node.getPinInt3Ix(pin));
}

/// The value on a pin as text; empty for pins without a value.
std::string pinValue(const ApiNode& node, unsigned pin) {
    switch (node.pinTypeIx(pin)) {
        case PIN_TYPE_BOOL:
            return text(node.getPinBoolIx(pin));
        case PIN_TYPE_FLOAT:
            return floatParts(node, pin);
        case PIN_TYPE_INT:
        case PIN_TYPE_ENUM:
            return intParts(node, pin);
        case PIN_TYPE_TRANSFORM:
            return text(node.getPinMatrixIx(pin));
        case PIN_TYPE_STRING:
            return node.getPinStringIx(pin);
        default:
            return {};
    }
}

std::string pinLabel(const ApiNode& node, unsigned pin) {
    return std::string(ApiInfo::getPinIdName(node.pinIdIx(pin))) + ": " + ApiInfo::getPinTypeName(node.pinTypeIx(pin));
}

// --- Items ---

void writeItem(std::ostream& out, const ApiItem* item, unsigned long depth, const std::string& label,
               const std::string& value) {
    out << indent(depth);
    if (!label.empty()) out << label << " <- ";
    if (item == nullptr) {
        out << "nullptr\n";
        return;
    }
    out << item->name() << ": ";
    if (const ApiNodeGraph* graph = item->toGraph()) {
        writeGraph(out, graph, depth);
    } else if (const ApiNode* node = item->toNode()) {
        writeNode(out, node, depth, value);
    } else {
        out << "unknown type\n";
    }
}

void writeNode(std::ostream& out, const ApiNode* node, unsigned long depth, const std::string& value) {
    if (node == nullptr) {
        out << node << '\n';
        return;
    }
    out << ApiInfo::getNodeTypeName(node->type());
    if (!value.empty()) out << " = " << value;
    out << '\n';
    writeAttributes(out, *node, depth + 1);
    for (unsigned i = 0; i < node->pinCount(); ++i) {
        const ApiNode* const connected = node->connectedNodeIx(i);
        if (connected != nullptr) writeItem(out, connected, depth + 1, pinLabel(*node, i), pinValue(*node, i));
    }
}

/// What a graph lists of its own: graphs, and nodes that do not come up below others.
bool isListed(const ApiItem* item) {
    return item->isGraph() || NodeUtils::IsOrphanNode(item->toNode());
}

void writeGraph(std::ostream& out, const ApiNodeGraph* graph, unsigned long depth) {
    out << graph << '\n';
    if (graph == nullptr) return;
    ApiItemArray items;
    graph->getOwnedItems(items);
    std::vector<const ApiItem*> listed;
    std::copy_if(items.items(), items.items() + items.size(), std::back_inserter(listed), isListed);
    std::sort(listed.begin(), listed.end(), NodeUtils::CompareItems);
    for (const ApiItem* item : listed) writeItem(out, item, depth + 1, "", "");
}

void writeUsers(std::ostream& out, const ApiNode* node, unsigned long max_depth, unsigned long depth,
                const std::string& label) {
    out << indent(depth) << label << node << '\n';
    if (node == nullptr || depth >= max_depth) return;
    ApiNodeArray users;
    ApiStringArray pin_names;
    node->destinationNodes(users, pin_names);
    for (std::size_t i = 0; i < users.size(); ++i) {
        writeUsers(out, users.get(i), max_depth, depth + 1, std::string("=> ") + pin_names.get(i) + ":");
    }
}

}  // namespace

std::string NodeUtils::FormatItem(const ApiItem* item, unsigned long depth, const std::string& label,
                                  const std::string& value) {
    std::ostringstream out = textStream();
    writeItem(out, item, depth, label, value);
    return out.str();
}

std::string NodeUtils::FormatGraph(const ApiNodeGraph* graph, unsigned long depth) {
    std::ostringstream out = textStream();
    writeGraph(out, graph, depth);
    return out.str();
}

std::string NodeUtils::FormatNode(const ApiNode* node, unsigned long depth, const std::string& value) {
    std::ostringstream out = textStream();
    writeNode(out, node, depth, value);
    return out.str();
}

std::string NodeUtils::FormatOutputNodes(const ApiNode* node, unsigned long max_depth, unsigned long depth,
                                         const std::string& label) {
    std::ostringstream out = textStream();
    writeUsers(out, node, max_depth, depth, label);
    return out.str();
}

}  // namespace Velmar
