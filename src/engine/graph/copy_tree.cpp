#include "engine/graph/copy_tree.h"

#include <unordered_map>
#include <unordered_set>

namespace Velmar::Engine {
namespace {

// The graph in which a node stands; for an internal node that of the node around it.
GraphRecord* homeGraph(const ItemRecord& item) {
    const ItemRecord* at = &item;
    while (at->isNode() && static_cast<const NodeRecord*>(at)->pin_owned) {
        at = static_cast<const NodeRecord*>(at)->users.front().user;
    }
    return at->owner;
}

class TreeCopy {
public:
    TreeCopy(Edit& edit, ItemRecord& item, GraphRecord& target) : edit_(edit), item_(item), target_(target) {
        for (const GraphRecord* around = homeGraph(item); around != nullptr; around = around->owner) {
            around_.insert(around);
        }
        gather();
    }

    /// Makes all copies and their wiring. With `top_is_free` the copy of the item stands in the target graph.
    ItemRecord& make(bool top_is_free) {
        for (ItemRecord* source : sources_) makeOne(*source, top_is_free);
        for (ItemRecord* source : sources_) {
            if (source->isNode()) wire(static_cast<NodeRecord&>(*source));
        }
        return *copies_.at(&item_);
    }

private:
    // The item comes first, then what it depends on, nearest first. All is known before the first copy is made, so a
    // graph may be copied into itself.
    void gather() {
        std::unordered_set<const ItemRecord*> seen;
        const auto add = [&](ItemRecord* source) {
            if (source != nullptr && seen.insert(source).second) sources_.push_back(source);
        };
        add(&item_);
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            if (sources_[i]->isNode()) {
                for (const PinSlot& slot : static_cast<NodeRecord*>(sources_[i])->pins) add(slot.node);
            } else {
                auto* graph = static_cast<GraphRecord*>(sources_[i]);
                for (ItemRecord* owned = graph->first; owned != nullptr; owned = owned->next) add(owned);
            }
        }
    }

    void makeOne(ItemRecord& source, bool top_is_free) {
        if (!source.isNode()) {
            auto& graph = static_cast<GraphRecord&>(source);
            if (!copies_.contains(&graph)) makeGraph(graph, &source == &item_ ? target_ : placeFor(graph.owner));
            return;
        }
        const auto& node = static_cast<const NodeRecord&>(source);
        const bool free = &source == &item_ ? top_is_free : !node.pin_owned;
        GraphRecord* owner = nullptr;
        if (free) owner = &source == &item_ ? &target_ : &placeFor(source.owner);
        copies_.emplace(&source, &edit_.addCopy(node, owner));
    }

    // Where the copy of something goes that stands in `graph`.
    GraphRecord& placeFor(GraphRecord* graph) {
        const auto copied = copies_.find(graph);
        if (copied != copies_.end()) return static_cast<GraphRecord&>(*copied->second);
        if (graph == nullptr || around_.contains(graph) || graph->owner == nullptr) return target_;
        return makeGraph(*graph, placeFor(graph->owner));
    }

    GraphRecord& makeGraph(GraphRecord& source, GraphRecord& owner) {
        GraphRecord& copy = edit_.addGraph(ItemRecord::Kind::Graph, &owner);
        copy.name = source.name;
        copy.position = source.position;
        copy.ui_flags = source.ui_flags;
        copy.view_offset = source.view_offset;
        copies_.emplace(&source, &copy);
        return copy;
    }

    void wire(NodeRecord& source) {
        auto& copy = static_cast<NodeRecord&>(*copies_.at(&source));
        for (unsigned pin = 0; pin < source.pins.size(); ++pin) {
            NodeRecord* input = source.pins[pin].node;
            if (input == nullptr) continue;
            edit_.wireCopy(copy, pin, static_cast<NodeRecord&>(*copies_.at(input)), input->pin_owned);
        }
    }

    Edit& edit_;
    ItemRecord& item_;
    GraphRecord& target_;
    std::unordered_set<const GraphRecord*> around_;
    std::vector<ItemRecord*> sources_;
    std::unordered_map<const ItemRecord*, ItemRecord*> copies_;
};

}  // namespace

ItemRecord& copyTree(Edit& edit, ItemRecord& item, GraphRecord& target) {
    return TreeCopy(edit, item, target).make(true);
}

void copyOntoPin(Edit& edit, NodeRecord& source, NodeRecord& user, unsigned pin) {
    GraphRecord* home = homeGraph(user);
    TreeCopy copy(edit, source, home == nullptr ? *World::current()->root : *home);
    edit.adopt(user, pin, static_cast<NodeRecord&>(copy.make(false)));
}

}  // namespace Velmar::Engine
