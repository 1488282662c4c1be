// A scene as its text tells it, before anything of it stands in a graph: all of it is read and checked here first, so
// that an import either takes place whole or not at all.
#pragma once

#include "engine/graph/value.h"

#include <velmar/values.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Velmar::Engine {

struct TypeEntry;

struct NodeDraft {
    const TypeEntry* type = nullptr;
    std::string name;
    Vec2<float> position;
    int flags = 0;
    unsigned pin_count = 0;  ///< fixed and dynamic ones
    std::vector<std::pair<unsigned, Value>> values;
    std::ptrdiff_t offset = 0;  ///< of its element in the text
};

struct GraphDraft {
    std::string name;
    Vec2<float> position;
    Vec2<float> view;
    int flags = 0;
};

/// A node or graph that stands in a graph. The graphs are numbered from 1; 0 is the one that all goes into.
struct ItemDraft {
    bool is_node;
    std::size_t index;
    std::size_t owner;
};

/// What stands on a pin. An internal node is owned by it.
struct WireDraft {
    std::size_t user;
    unsigned pin;
    std::size_t node;
    bool owned;
};

struct SceneDraft {
    std::vector<NodeDraft> nodes;
    std::vector<GraphDraft> graphs{1};
    std::vector<ItemDraft> items;    ///< in the order of the text, a graph before what it holds
    std::vector<WireDraft> wires;    ///< in the order of the text
    std::vector<std::size_t> order;  ///< all nodes, each behind those on its pins
};

}  // namespace Velmar::Engine
