#include "random_graph.h"

#include <bit>
#include <cstdint>

namespace Velmar::Engine {
namespace {

constexpr const char* odd_texts[] = {"",
                                     " ",
                                     "\n",
                                     "a\tb\r\n",
                                     "\x01\x1F",
                                     "<&>\"']]>",
                                     "_x0041_",
                                     "caf\xC3\xA9",
                                     "\xFF\xFE",
                                     "/home/someone/maps/oak.png",
                                     "C:\\maps\\oak.png",
                                     "-->",
                                     "  indented  "};

/// All nodes within a graph, internal ones and those of graphs inside too.
std::vector<NodeRecord*> nodesWithin(GraphRecord& graph) {
    std::vector<NodeRecord*> nodes;
    std::vector<ItemRecord*> open{&graph};
    while (!open.empty()) {
        ItemRecord* item = open.back();
        open.pop_back();
        if (item->isNode()) {
            auto* node = static_cast<NodeRecord*>(item);
            nodes.push_back(node);
            for (const PinSlot& slot : node->pins) {
                if (slot.node != nullptr && slot.node->pin_owned) open.push_back(slot.node);
            }
        } else {
            auto* inner = static_cast<GraphRecord*>(item);
            for (ItemRecord* owned = inner->first; owned != nullptr; owned = owned->next) open.push_back(owned);
        }
    }
    return nodes;
}

}  // namespace

void RandomGraph::settle(ApiRootNodeGraph* root) {
    for (bool changed = true; changed;) {
        changed = false;
        for (NodeRecord* node : nodesWithin(*GraphRecord::of(root))) {
            if (node->dying) continue;
            const std::size_t pins = node->pins.size();
            const SharedTexts names = node->pin_names;
            Edit edit;
            edit.evaluate(*node);
            const bool same_names = node->pin_names == names;
            changed = changed || pins != node->pins.size() || !same_names;
            edit.finish();
            if (pins != node->pins.size()) break;  // internal nodes may have gone
        }
    }
}

std::string RandomGraph::text() {
    std::string made;
    for (unsigned count = below(3); count > 0; --count) made += odd_texts[below(std::size(odd_texts))];
    return made;
}

float RandomGraph::number() {
    if (below(4) == 0) return std::bit_cast<float>(static_cast<std::uint32_t>(random_()));
    return static_cast<float>(below(2000)) / 16.0F - 50.0F;
}

void RandomGraph::place(Edit& edit, ItemRecord& item) {
    if (below(3) == 0) edit.rename(item, text().c_str());
    if (below(3) == 0) edit.move(item, {number(), number()});
    if (below(8) == 0) edit.setFlags(item, static_cast<int>(below(9)));
}

void RandomGraph::writeAttributes(Edit& edit, NodeRecord& node) {
    for (unsigned i = 0; i < node.attributes.size(); ++i) {
        if (below(3) != 0) continue;
        if (node.type->row->attributes[i].id == ATTR_PIN_COUNT) {
            edit.write(node, i, static_cast<int>(below(6)));
        } else {
            writeRandomly(edit, node, i);
        }
    }
    if (below(4) != 0) edit.evaluate(node);
}

void RandomGraph::writeRandomly(Edit& edit, NodeRecord& node, unsigned i) {
    const unsigned count = below(40);
    std::vector<int> ints(count);
    std::vector<Vec3<float>> vectors(count);
    std::vector<Matrix<float>> matrices(count);
    std::vector<std::string> texts(below(5));
    std::vector<const char*> pointers;
    for (int& value : ints) value = static_cast<int>(random_());
    for (auto& value : vectors) value = {number(), number(), number()};
    for (auto& value : matrices) value.m[below(3)][below(4)] = number();
    for (std::string& value : texts) pointers.push_back((value = text()).c_str());

    // Each of these does nothing for an attribute of another kind.
    edit.write(node, i, below(2) == 0);
    edit.write(node, i, static_cast<int>(random_()));
    edit.write(node, i, Vec2<int>{static_cast<int>(random_()), 3});
    edit.write(node, i, Vec3<int>{static_cast<int>(random_()), 3, 4});
    edit.write(node, i, number());
    edit.write(node, i, Vec2<float>{number(), number()});
    edit.write(node, i, Vec3<float>{number(), number(), number()});
    edit.write(node, i, Vec4<float>{number(), number(), number(), number()});
    edit.write(node, i, Matrix<float>{{{number(), 0, 0, 1}, {0, number(), 0, 2}, {0, 0, 1, number()}}});
    edit.write(node, i, text());
    edit.writeArray(node, i, ints.data(), ints.size());
    edit.writeArray(node, i, vectors.data(), vectors.size());
    edit.writeArray(node, i, matrices.data(), matrices.size());
    edit.writeTexts(node, i, pointers.data(), pointers.size());
}

// Nodes only use nodes that were made before them, so nothing closes a circle.
void RandomGraph::fillPins(Edit& edit, NodeRecord& node, unsigned depth) {
    for (unsigned pin = 0; pin < node.pins.size(); ++pin) {
        const unsigned kind = below(8);
        if (kind < 3 && !nodes_.empty()) {
            edit.connect(node, pin, nodes_[below(static_cast<unsigned>(nodes_.size()))]);
        } else if (kind == 3 && depth < 4) {
            const auto types = Catalog::types();
            NodeRecord& inner = edit.addInternal(node, pin, *types[below(static_cast<unsigned>(types.size()))]);
            place(edit, inner);
            writeAttributes(edit, inner);
            fillPins(edit, inner, depth + 1);
        } else if (kind == 4) {
            edit.connect(node, pin, nullptr);
        }
        if (pin == 0 && below(4) != 0) edit.evaluate(node);
    }
}

void RandomGraph::fill(ApiRootNodeGraph* root, unsigned most_nodes) {
    Edit edit;
    std::vector<GraphRecord*> graphs{GraphRecord::of(root)};
    const auto types = Catalog::types();
    for (unsigned count = below(most_nodes + 1); count > 0; --count) {
        GraphRecord& owner = *graphs[below(static_cast<unsigned>(graphs.size()))];
        if (below(6) == 0) {
            graphs.push_back(&edit.addGraph(ItemRecord::Kind::Graph, &owner));
            place(edit, *graphs.back());
            if (below(2) == 0) edit.scrollTo(*graphs.back(), {number(), number()});
            continue;
        }
        NodeRecord& node = edit.addNode(*types[below(static_cast<unsigned>(types.size()))], owner);
        place(edit, node);
        if (below(2) == 0) edit.configure(node, below(2) == 0);
        writeAttributes(edit, node);
        fillPins(edit, node, 0);
        nodes_.push_back(&node);
    }
    edit.finish();
}

}  // namespace Velmar::Engine
