#include "engine/text/layout.h"

#include <algorithm>
#include <unordered_map>

namespace Velmar::Engine {
namespace {

using Inputs = std::vector<std::vector<std::size_t>>;

constexpr std::size_t nothing = static_cast<std::size_t>(-1);

/// All things, each before those it depends on, but for dependencies that close a circle: the order in which a walk in
/// depth leaves them, reversed.
std::vector<std::size_t> usersFirst(const Inputs& inputs) {
    struct Step {
        std::size_t thing;
        std::size_t next_input;
    };
    std::vector<std::size_t> order;
    std::vector<bool> entered(inputs.size(), false);
    std::vector<Step> open;
    for (std::size_t top = inputs.size(); top-- > 0;) {
        if (entered[top]) continue;
        entered[top] = true;
        open.push_back({top, 0});
        while (!open.empty()) {
            Step& step = open.back();
            if (step.next_input == inputs[step.thing].size()) {
                order.push_back(step.thing);
                open.pop_back();
                continue;
            }
            const std::size_t input = inputs[step.thing][step.next_input++];
            if (entered[input]) continue;
            entered[input] = true;
            open.push_back({input, 0});
        }
    }
    std::ranges::reverse(order);
    return order;
}

class TreeLayout {
public:
    explicit TreeLayout(const Inputs& inputs)
        : inputs_(inputs),
          order_(usersFirst(inputs)),
          rank_(inputs.size()),
          height_(inputs.size(), 0),
          parent_(inputs.size(), nothing),
          children_(inputs.size()),
          width_(inputs.size(), 0),
          start_(inputs.size(), 0) {
        for (std::size_t i = 0; i < order_.size(); ++i) rank_[order_[i]] = i;
    }

    std::vector<Vec2<float>> places() {
        rankByDepth();
        chooseParents();
        measure();
        spread();
        return centre();
    }

private:
    // True for a dependency that goes along the order; the others would close a circle.
    bool counts(std::size_t user, std::size_t input) const { return rank_[user] < rank_[input]; }

    // Each stands above all its users: as high as the longest way down from it.
    void rankByDepth() {
        for (const std::size_t user : order_) {
            for (const std::size_t input : inputs_[user]) {
                if (counts(user, input)) height_[input] = std::max(height_[input], height_[user] + 1);
            }
        }
    }

    // Of its users in the row below, the first in the order is the one above which a thing stands.
    void chooseParents() {
        for (const std::size_t user : order_) {
            for (const std::size_t input : inputs_[user]) {
                if (!counts(user, input) || parent_[input] != nothing || height_[input] != height_[user] + 1) continue;
                parent_[input] = user;
                children_[user].push_back(input);
            }
        }
    }

    // A tree is as wide as all its branches side by side, so no two branches meet.
    void measure() {
        for (auto thing = order_.rbegin(); thing != order_.rend(); ++thing) {
            width_[*thing] = std::max<std::size_t>(width_[*thing], 1);
            if (parent_[*thing] != nothing) width_[parent_[*thing]] += width_[*thing];
        }
    }

    void spread() {
        std::size_t next_root = 0;
        for (std::size_t thing = 0; thing < inputs_.size(); ++thing) {
            if (parent_[thing] != nothing) continue;
            start_[thing] = next_root;
            next_root += width_[thing];
        }
        for (const std::size_t thing : order_) {
            std::size_t next = start_[thing];
            for (const std::size_t child : children_[thing]) {
                start_[child] = next;
                next += width_[child];
            }
        }
    }

    // Each stands in the middle between its first branch and its last.
    std::vector<Vec2<float>> centre() const {
        std::vector<double> columns(inputs_.size());
        for (auto thing = order_.rbegin(); thing != order_.rend(); ++thing) {
            const auto& branches = children_[*thing];
            columns[*thing] = branches.empty() ? static_cast<double>(start_[*thing])
                                               : (columns[branches.front()] + columns[branches.back()]) / 2.0;
        }
        const std::size_t top = height_.empty() ? 0 : *std::ranges::max_element(height_);
        std::vector<Vec2<float>> places;
        places.reserve(inputs_.size());
        for (std::size_t i = 0; i < inputs_.size(); ++i) {
            places.push_back({static_cast<float>(columns[i]), static_cast<float>(top - height_[i])});
        }
        return places;
    }

    const Inputs& inputs_;
    std::vector<std::size_t> order_;
    std::vector<std::size_t> rank_;
    std::vector<std::size_t> height_;
    std::vector<std::size_t> parent_;
    std::vector<std::vector<std::size_t>> children_;
    std::vector<std::size_t> width_;
    std::vector<std::size_t> start_;
};

struct Holding {
    const ItemRecord* record;
    std::size_t item;  ///< index of the graph's own item that holds the record
};

/// All that a graph's own items hold, themselves first, each behind what holds it.
std::vector<Holding> holdings(const std::vector<ItemRecord*>& items) {
    std::vector<Holding> all;
    for (std::size_t i = 0; i < items.size(); ++i) all.push_back({items[i], i});
    for (std::size_t at = 0; at < all.size(); ++at) {
        const Holding holding = all[at];
        if (holding.record->isNode()) {
            for (const PinSlot& slot : static_cast<const NodeRecord*>(holding.record)->pins) {
                if (slot.node != nullptr && slot.node->pin_owned) all.push_back({slot.node, holding.item});
            }
        } else {
            const auto* graph = static_cast<const GraphRecord*>(holding.record);
            for (const ItemRecord* item = graph->first; item != nullptr; item = item->next) {
                all.push_back({item, holding.item});
            }
        }
    }
    return all;
}

Inputs dependencies(const std::vector<ItemRecord*>& items) {
    const std::vector<Holding> all = holdings(items);
    std::unordered_map<const ItemRecord*, std::size_t> item_of;
    item_of.reserve(all.size());
    for (const Holding& holding : all) item_of.emplace(holding.record, holding.item);

    Inputs inputs(items.size());
    for (const Holding& holding : all) {
        if (!holding.record->isNode()) continue;
        for (const PinSlot& slot : static_cast<const NodeRecord*>(holding.record)->pins) {
            const auto found = slot.node == nullptr ? item_of.end() : item_of.find(slot.node);
            if (found != item_of.end() && found->second != holding.item) inputs[holding.item].push_back(found->second);
        }
    }
    return inputs;
}

}  // namespace

std::vector<Vec2<float>> treeLayout(const std::vector<std::vector<std::size_t>>& inputs) {
    return TreeLayout(inputs).places();
}

void layOut(Edit& edit, GraphRecord& graph) {
    std::vector<ItemRecord*> items;
    for (ItemRecord* item = graph.first; item != nullptr; item = item->next) items.push_back(item);
    const std::vector<Vec2<float>> places = treeLayout(dependencies(items));
    for (std::size_t i = 0; i < items.size(); ++i) {
        edit.move(*items[i], {places[i].x * kColumnWidth, places[i].y * kRowHeight});
    }
}

}  // namespace Velmar::Engine
