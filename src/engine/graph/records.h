// What stands behind the SDK's items. An item as the SDK knows it is a handle with a pointer to its record; the record
// goes when the item is destroyed, the handle stays as a tombstone. Records are changed by class Edit alone.
#pragma once

#include "engine/catalog/catalog.h"
#include "engine/graph/value.h"

#include <velmar/graph.h>
#include <velmar/node.h>

#include <cstdint>
#include <list>
#include <string>
#include <vector>

namespace Velmar {

namespace Engine {
struct GraphRecord;
struct NodeRecord;
}  // namespace Engine

struct ItemRecord {
    enum class Kind : std::uint8_t { Node, Graph, RootGraph };

    ItemRecord(Kind item_kind, ApiItem& item) : handle(&item), kind(item_kind) { item.record_ = this; }
    virtual ~ItemRecord() { handle->record_ = nullptr; }
    ItemRecord(const ItemRecord&) = delete;
    ItemRecord& operator=(const ItemRecord&) = delete;

    /// The record behind an item; null for a null item and a tombstone.
    static ItemRecord* of(const ApiItem* item) { return item == nullptr ? nullptr : item->record_; }
    /// The same, without those that are being destroyed: what may be changed.
    static ItemRecord* alive(const ApiItem* item) {
        ItemRecord* record = of(item);
        return record == nullptr || record->dying ? nullptr : record;
    }

    bool isNode() const { return kind == Kind::Node; }

    ApiItem* handle;
    Engine::GraphRecord* owner = nullptr;  ///< graph in which the item stands
    ItemRecord* previous = nullptr;        ///< neighbours in the owner's list
    ItemRecord* next = nullptr;
    std::string name;
    Vec2<float> position;
    int ui_flags = 0;
    Kind kind;
    bool dying = false;  ///< disconnected and about to become a tombstone
};

namespace Engine {

/// A pin on which a node is used.
struct PinUse {
    NodeRecord* user;
    unsigned pin;
};

struct PinSlot {
    NodeRecord* node = nullptr;
    std::list<PinUse>::iterator use{};  ///< the entry in the node's users, when there is a node
    std::uint32_t logged = 0;           ///< round of the change log that lists the connection
};

struct AttributeSlot {
    Value value;
    std::uint32_t logged = 0;  ///< round of the change log that lists the attribute
};

struct NodeRecord : ItemRecord {
    NodeRecord(ApiNode& node, const TypeEntry& entry) : ItemRecord(Kind::Node, node), type(&entry) {}

    static NodeRecord* of(const ApiItem* item) { return asNode(ItemRecord::of(item)); }
    static NodeRecord* alive(const ApiItem* item) { return asNode(ItemRecord::alive(item)); }

    ApiNode* node() const { return static_cast<ApiNode*>(handle); }
    bool isLink() const { return Catalog::isLink(type->row->type); }
    /// True for a node whose value a user may read: a change of it is one of its users too.
    bool passesValue() const { return type->row->value != ValueSource::None || isLink(); }
    /// True when the first attribute follows from the pins.
    bool isComputed() const { return passesValue() && !isLink() && type->row->value != ValueSource::Attribute; }
    unsigned fixedPins() const { return static_cast<unsigned>(type->pins.size()); }

    const TypeEntry* type;
    std::vector<AttributeSlot> attributes;
    std::vector<PinSlot> pins;
    std::list<PinUse> users;      ///< in the order in which they were connected
    SharedTexts pin_names;        ///< of pins that the geometry names
    bool pin_owned = false;       ///< the one user owns the node
    bool pending = false;         ///< attributes were written and not evaluated
    bool listed_pending = false;  ///< stands in the world's list of such nodes
    std::uint32_t logged_pins = 0;
    std::uint32_t logged_evaluated = 0;

private:
    static NodeRecord* asNode(ItemRecord* record) {
        return record != nullptr && record->isNode() ? static_cast<NodeRecord*>(record) : nullptr;
    }
};

struct GraphRecord : ItemRecord {
    GraphRecord(ApiNodeGraph& graph, Kind graph_kind) : ItemRecord(graph_kind, graph) {}

    static GraphRecord* of(const ApiItem* item) { return asGraph(ItemRecord::of(item)); }
    static GraphRecord* alive(const ApiItem* item) { return asGraph(ItemRecord::alive(item)); }

    ApiNodeGraph* graph() const { return static_cast<ApiNodeGraph*>(handle); }

    ItemRecord* first = nullptr;  ///< the graph's own items, in creation order
    ItemRecord* last = nullptr;
    Vec2<float> view_offset;  ///< where the origin of the graph stands in its view
    unsigned version = 0;     ///< of a root graph: the scene version that it is written for
    std::string text;         ///< of a root graph: what it was last written as

private:
    static GraphRecord* asGraph(ItemRecord* record) {
        return record != nullptr && !record->isNode() ? static_cast<GraphRecord*>(record) : nullptr;
    }
};

}  // namespace Engine
}  // namespace Velmar
