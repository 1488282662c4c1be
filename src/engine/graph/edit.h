// The one door through which the graph changes. An edit applies its steps at once, appends them to the change log, and
// gathers the events; finish() tells the observers, with the graph consistent, and then turns destroyed items into
// tombstones. An edit that is left by an exception does the latter only.
#pragma once

#include "engine/graph/world.h"

#include <string>
#include <utility>
#include <vector>

namespace Velmar::Engine {

class Edit {
public:
    /// There must be a world.
    Edit();
    ~Edit();
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

    /// Ends the edit. The first exception that left an observer goes on from here, when all is done.
    void finish();

    // Items.
    NodeRecord& addNode(const TypeEntry& type, GraphRecord& owner);
    GraphRecord& addGraph(ItemRecord::Kind kind, GraphRecord* owner);
    void rename(ItemRecord& item, const char* name);
    void move(ItemRecord& item, Vec2<float> position);
    void setFlags(ItemRecord& item, int flags);
    void scrollTo(GraphRecord& graph, Vec2<float> view_offset);
    /// Disconnects and ends an item with all that it owns.
    void destroy(ItemRecord& item);
    void clear(GraphRecord& graph);
    /// Moves an item into another graph, behind what stands there.
    void changeOwner(ItemRecord& item, GraphRecord& owner);

    // Pins. An index must be that of a pin.
    /// Puts a free node, or nothing, on a pin; an internal node that stood there ends. Nothing happens when the node is
    /// owned by a pin or the connection would close a cycle.
    void connect(NodeRecord& user, unsigned pin, NodeRecord* node);
    /// Puts a new node that the pin owns on it, with the pin's default value when the node can hold it.
    NodeRecord& addInternal(NodeRecord& user, unsigned pin, const TypeEntry& type);
    /// Fills the empty pins of a node that are filled at creation and, with `on_demand`, those with any default node.
    void configure(NodeRecord& node, bool on_demand);
    /// Makes written attributes take effect: dynamic pins follow them.
    void evaluate(NodeRecord& node);

    // Attributes. False, and no change, for an attribute of another type and for one that follows from pins. Writing
    // the value that stands is no change.
    template <typename T>
    bool write(NodeRecord& node, unsigned index, T value);
    template <typename T>
    bool writeArray(NodeRecord& node, unsigned index, const T* values, std::size_t count);
    bool writeTexts(NodeRecord& node, unsigned index, const char* const* values, std::size_t count);

    // Pieces for copies, whose items are listed in the change log as a whole.
    NodeRecord& addCopy(const NodeRecord& source, GraphRecord* owner);
    /// Puts a fresh copy on the pin of another.
    void wireCopy(NodeRecord& user, unsigned pin, NodeRecord& node, bool owned);
    /// Gives a pin a node that nothing owns yet, as its internal node.
    void adopt(NodeRecord& user, unsigned pin, NodeRecord& node);

private:
    using Event = ApiChangeManager::ChangeEvent;

    void enter(ItemRecord& item, GraphRecord* owner);
    void announce(ItemRecord& item);
    void attach(NodeRecord& user, unsigned pin, NodeRecord& node);
    void detach(NodeRecord& user, unsigned pin);
    void connectionChanged(NodeRecord& user, unsigned pin);
    void attributeWritten(NodeRecord& node, unsigned index, bool changed);
    void markPending(NodeRecord& node);
    void attributeListed(NodeRecord& node, unsigned index);
    void evaluated(NodeRecord& node);
    void valueChanged(NodeRecord& node, unsigned pin);
    bool recompute(NodeRecord& node);
    void coupleTransform(NodeRecord& node, unsigned index, Vec3<float> old_scale);
    void updateDynamicPins(NodeRecord& node);
    void resizePins(NodeRecord& node, unsigned count, SharedTexts names);
    void displace(NodeRecord& user, unsigned pin);
    enum class Users : bool { Told, NotTold };
    void doom(ItemRecord& item, Users users = Users::Told);
    void release(ItemRecord& item);
    void bury();
    void emit(Event::Type type, ItemRecord& item, unsigned pin);

    World& world_;
    std::vector<Event> events_;
    std::vector<ItemRecord*> doomed_;
};

}  // namespace Velmar::Engine

#include "engine/graph/edit_write.h"
