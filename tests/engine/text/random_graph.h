// Graphs of random shape, the same for one seed.
#pragma once

#include "engine/graph/edit.h"

#include <random>
#include <string>
#include <vector>

namespace Velmar::Engine {

class RandomGraph {
public:
    explicit RandomGraph(unsigned seed) : random_(seed) {}

    /// Fills `root` with up to `most_nodes` free nodes of all types, internal ones, and graphs inside, wired at random
    /// without circles; names, places, flags and attributes are random too.
    void fill(ApiRootNodeGraph* root, unsigned most_nodes);

    /// Makes everything written take effect, in all graphs and nodes within `root`, until nothing changes any more.
    static void settle(ApiRootNodeGraph* root);

    unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }
    std::string text();

private:
    void place(Edit& edit, ItemRecord& item);
    void writeAttributes(Edit& edit, NodeRecord& node);
    void writeRandomly(Edit& edit, NodeRecord& node, unsigned index);
    void fillPins(Edit& edit, NodeRecord& node, unsigned depth);
    float number();

    std::mt19937 random_;
    std::vector<NodeRecord*> nodes_;
};

}  // namespace Velmar::Engine
