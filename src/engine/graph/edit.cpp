#include "engine/graph/edit.h"

#include <exception>

namespace Velmar::Engine {

Edit::Edit() : world_(*World::current()) {}

Edit::~Edit() {
    if (World::current() == &world_) bury();
}

void Edit::finish() {
    std::exception_ptr error;
    for (const Event& event : std::exchange(events_, {})) {
        if (World::current() != &world_) break;
        world_.observers.deliver(event, error);
    }
    if (World::current() == &world_) bury();
    if (error != nullptr) std::rethrow_exception(error);
}

void Edit::bury() {
    for (ItemRecord* record : std::exchange(doomed_, {})) {
        world_.observers.forget(record->handle);
        delete record;
    }
}

// The owner of an item is its graph, or the node whose pin owns it; the pin is then the owner's, unless the event
// speaks of a pin of the item itself.
void Edit::emit(Event::Type type, ItemRecord& item, unsigned pin) {
    if (!world_.observers.any()) return;
    Event event{type, item.handle, nullptr, pin};
    if (item.owner != nullptr) {
        event.owner = item.owner->handle;
    } else if (item.isNode() && static_cast<NodeRecord&>(item).pin_owned) {
        const auto& node = static_cast<NodeRecord&>(item);
        if (!node.users.empty()) event.owner = node.users.front().user->handle;
    }
    events_.push_back(event);
}

void Edit::enter(ItemRecord& item, GraphRecord* owner) {
    item.owner = owner;
    if (owner == nullptr) return;
    item.previous = owner->last;
    item.next = nullptr;
    (owner->last == nullptr ? owner->first : owner->last->next) = &item;
    owner->last = &item;
}

void Edit::release(ItemRecord& item) {
    GraphRecord* owner = std::exchange(item.owner, nullptr);
    if (owner == nullptr) return;
    (item.previous == nullptr ? owner->first : item.previous->next) = item.next;
    (item.next == nullptr ? owner->last : item.next->previous) = item.previous;
    item.previous = item.next = nullptr;
}

void Edit::announce(ItemRecord& item) {
    ChangeLog::append({Change::Kind::ItemAdded, item.handle});
    const bool owned = item.isNode() && static_cast<NodeRecord&>(item).pin_owned;
    emit(Event::ITEM_ADDED, item, owned ? static_cast<NodeRecord&>(item).users.front().pin : 0);
}

NodeRecord& Edit::addNode(const TypeEntry& type, GraphRecord& owner) {
    NodeRecord& node = world_.newNode(type);
    enter(node, &owner);
    announce(node);
    return node;
}

GraphRecord& Edit::addGraph(ItemRecord::Kind kind, GraphRecord* owner) {
    GraphRecord& graph = world_.newGraph(kind);
    graph.name = kind == ItemRecord::Kind::RootGraph ? "Scene" : "Graph";
    enter(graph, owner);
    announce(graph);
    return graph;
}

void Edit::rename(ItemRecord& item, const char* name) {
    if (item.name == name) return;
    item.name = name;
    emit(Event::ITEM_NAME_CHANGED, item, 0);
}

void Edit::move(ItemRecord& item, Vec2<float> position) {
    if (same(item.position, position)) return;
    item.position = position;
    emit(Event::ITEM_MOVED, item, 0);
}

void Edit::setFlags(ItemRecord& item, int flags) {
    if (item.ui_flags == flags) return;
    item.ui_flags = flags;
    emit(Event::ITEM_UI_OPERATION_FLAG_CHANGED, item, 0);
}

void Edit::scrollTo(GraphRecord& graph, Vec2<float> view_offset) {
    if (same(graph.view_offset, view_offset)) return;
    graph.view_offset = view_offset;
    emit(Event::ITEM_MOVED, graph, 0);
}

void Edit::destroy(ItemRecord& item) {
    if (item.dying || &item == world_.root || &item == world_.settings) return;
    doom(item);
}

void Edit::clear(GraphRecord& graph) {
    while (graph.first != nullptr) doom(*graph.first);
}

void Edit::changeOwner(ItemRecord& item, GraphRecord& owner) {
    release(item);
    enter(item, &owner);
    emit(Event::ITEM_ADDED, item, 0);
}

// Items that `item` owns go with it, from the outside in; a list in place of recursion, because nesting has no limit.
void Edit::doom(ItemRecord& item, Users users) {
    // Gather all that ends.
    const std::size_t begin = doomed_.size();
    item.dying = true;
    doomed_.push_back(&item);
    for (std::size_t i = begin; i < doomed_.size(); ++i) {
        const auto gather = [this](ItemRecord& owned) {
            owned.dying = true;
            doomed_.push_back(&owned);
        };
        if (doomed_[i]->isNode()) {
            for (const PinSlot& slot : static_cast<NodeRecord*>(doomed_[i])->pins) {
                if (slot.node != nullptr && slot.node->pin_owned) gather(*slot.node);
            }
        } else {
            auto* graph = static_cast<GraphRecord*>(doomed_[i]);
            for (ItemRecord* owned = graph->first; owned != nullptr; owned = owned->next) gather(*owned);
        }
    }

    // Say what ends while it still stands in its place, then take it out.
    for (std::size_t i = begin; i < doomed_.size(); ++i) {
        ItemRecord& ends = *doomed_[i];
        const auto* node = ends.isNode() ? static_cast<NodeRecord*>(&ends) : nullptr;
        emit(Event::ITEM_DELETE, ends, node != nullptr && node->pin_owned ? node->users.front().pin : 0);
        ChangeLog::append({Change::Kind::ItemDestroyed, ends.handle});
        if (world_.selected == ends.handle) world_.selected = nullptr;
    }
    for (std::size_t i = begin; i < doomed_.size(); ++i) {
        ItemRecord& ends = *doomed_[i];
        release(ends);
        if (!ends.isNode()) continue;
        auto& node = static_cast<NodeRecord&>(ends);
        for (unsigned pin = 0; pin < node.pins.size(); ++pin) detach(node, pin);
        while (!node.users.empty()) {
            const PinUse use = node.users.front();
            detach(*use.user, use.pin);
            if (users == Users::Told) connectionChanged(*use.user, use.pin);
        }
    }
}

}  // namespace Velmar::Engine
