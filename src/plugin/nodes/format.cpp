#include "plugin/nodes/format.h"

#include <velmar/arrays.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>

#include <algorithm>
#include <cstdint>

#include "plugin/nodes/node_utils.h"
#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

using ChangeEvent = ApiChangeManager::ChangeEvent;

constexpr std::size_t kShownElements = 20;

std::ostream& address(std::ostream& out, const void* pointer) {
    return out << pointer << ' ';
}

unsigned connectedPins(const ApiNode& node) {
    unsigned count = 0;
    for (unsigned i = 0; i < node.pinCount(); ++i) {
        if (node.connectedNodeIx(i) != nullptr) ++count;
    }
    return count;
}

const char* changeName(ChangeEvent::Type type) {
    switch (type) {
        case ChangeEvent::ITEM_ADDED:
            return "ITEM_ADDED";
        case ChangeEvent::ITEM_DELETE:
            return "ITEM_DELETE";
        case ChangeEvent::CONNECTION_CHANGED:
            return "CONNECTION_CHANGED";
        case ChangeEvent::DESTINATION_ADDED:
            return "DESTINATION_ADDED";
        case ChangeEvent::PINS_CHANGED:
            return "PINS_CHANGED";
        case ChangeEvent::ITEM_VALUE_CHANGED:
            return "ITEM_VALUE_CHANGED";
        case ChangeEvent::ITEM_NAME_CHANGED:
            return "ITEM_NAME_CHANGED";
        case ChangeEvent::ITEM_MOVED:
            return "ITEM_MOVED";
        case ChangeEvent::LINKER_ORDER_CHANGED:
            return "LINKER_ORDER_CHANGED";
        case ChangeEvent::ITEM_UI_OPERATION_FLAG_CHANGED:
            return "ITEM_UI_OPERATION_FLAG_CHANGED";
    }
    return nullptr;
}

/// "pin ", index, name and kind of a pin.
void writePin(std::ostream& out, const ApiNode& node, std::uint32_t index) {
    out << "pin " << index << ' ' << ApiInfo::getPinIdName(node.pinIdIx(index)) << ' '
        << ApiInfo::getPinTypeName(node.pinTypeIx(index));
}

/// The owner, and the pin if it is a node's.
void writeOwner(std::ostream& out, const ChangeEvent& event) {
    out << " (owner " << static_cast<const ApiItem*>(event.owner);
    if (const ApiNode* node = event.owner == nullptr ? nullptr : event.owner->toNode()) {
        out << ", ";
        writePin(out, *node, event.pin_index);
    }
    out << ')';
}

template <typename T>
void writeElement(std::ostream& out, const T& element) {
    out << element;
}

void writeElement(std::ostream& out, unsigned char byte) {
    out << static_cast<unsigned>(byte);
}

void writeElement(std::ostream& out, const char* text) {
    out << (text == nullptr ? "<null>" : text);
}

template <typename T>
void writeElements(std::ostream& out, const ApiArray<T>& array) {
    const std::size_t shown = array.data == nullptr ? 0 : std::min(array.size, kShownElements);
    out << '[';
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) out << ',';
        writeElement(out, array.data[i]);
    }
    if (array.size > kShownElements) out << ",...";
    out << ']';
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ApiNode* node) {
    address(out, node);
    if (node == nullptr) return out << "[null ApiNode*]";
    return out << ApiInfo::getNodeTypeName(node->type()) << ' ' << Strings::Uquote(node->name()) << " in "
               << connectedPins(*node) << '/' << node->pinCount() << " out " << NodeUtils::CountOutputs(node);
}

std::ostream& operator<<(std::ostream& out, const ApiNodeGraph* graph) {
    address(out, graph);
    if (graph == nullptr) return out << "[null ApiNodeGraph*]";
    return out << ApiInfo::getGraphTypeName(graph->type()) << ' ' << Strings::Uquote(graph->name());
}

std::ostream& operator<<(std::ostream& out, const ApiItem* item) {
    if (item == nullptr) return address(out, item) << "[null ApiItem*]";
    if (const ApiNode* node = item->toNode()) return out << node;
    if (const ApiNodeGraph* graph = item->toGraph()) return out << graph;
    return address(out, item) << "[unknown ApiItem*]";
}

std::ostream& operator<<(std::ostream& out, ChangeEvent::Type type) {
    const char* const name = changeName(type);
    return name == nullptr ? out << static_cast<std::uint32_t>(type) : out << name;
}

std::ostream& operator<<(std::ostream& out, const ChangeEvent& event) {
    const ApiItem* const item = event.changed_item;
    out << event.type << ": " << item;
    switch (event.type) {
        case ChangeEvent::ITEM_ADDED:
        case ChangeEvent::ITEM_DELETE:
            writeOwner(out, event);
            break;
        case ChangeEvent::CONNECTION_CHANGED:
            if (const ApiNode* node = item == nullptr ? nullptr : item->toNode()) {
                out << '(';
                writePin(out, *node, event.pin_index);
                out << ')';
            }
            break;
        case ChangeEvent::LINKER_ORDER_CHANGED:
            out << " (owner " << static_cast<const ApiItem*>(event.owner) << ')';
            break;
        default:
            break;
    }
    return out;
}

template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec2<T>& vector) {
    return out << '[' << vector.x << ',' << vector.y << ']';
}

template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec3<T>& vector) {
    return out << '[' << vector.x << ',' << vector.y << ',' << vector.z << ']';
}

template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec4<T>& vector) {
    return out << '[' << vector.x << ',' << vector.y << ',' << vector.z << ',' << vector.w << ']';
}

std::ostream& operator<<(std::ostream& out, const Matrix<float>& matrix) {
    out << '[';
    for (const float(&row)[4] : matrix.m) out << Vec4<float>{row[0], row[1], row[2], row[3]} << ',';
    return out << "[0,0,0,1]]";
}

template <typename T>
std::ostream& operator<<(std::ostream& out, const ApiArray<T>& array) {
    out << '[' << array.size << "] ";
    writeElements(out, array);
    return out;
}

std::ostream& operator<<(std::ostream& out, const ApiArray<unsigned char>& bytes) {
    out << bytes.size << ' ';
    writeElements(out, bytes);
    return out;
}

template std::ostream& operator<<(std::ostream&, const Vec2<int>&);
template std::ostream& operator<<(std::ostream&, const Vec3<int>&);
template std::ostream& operator<<(std::ostream&, const Vec4<int>&);
template std::ostream& operator<<(std::ostream&, const Vec2<float>&);
template std::ostream& operator<<(std::ostream&, const Vec3<float>&);
template std::ostream& operator<<(std::ostream&, const Vec4<float>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<bool>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<int>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec2<int>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec3<int>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec4<int>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<float>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec2<float>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec3<float>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Vec4<float>>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<const char*>&);
template std::ostream& operator<<(std::ostream&, const ApiArray<Matrix<float>>&);

}  // namespace Velmar
