// All items there are, from start to stop of the library: the handles, tombstones among them, the project's own items,
// who observes, and what has changed. One at a time. SDK thread only.
#pragma once

#include "engine/graph/change_log.h"
#include "engine/graph/observers.h"
#include "engine/graph/records.h"

#include <deque>
#include <unordered_map>

namespace Velmar::Engine {

class World {
public:
    /// The world between start and stop; null otherwise.
    static World* current() { return current_; }
    static void begin();
    static void end();

    /// A record with a new handle, owned by nothing and with its attributes at their defaults.
    NodeRecord& newNode(const TypeEntry& type);
    GraphRecord& newGraph(ItemRecord::Kind kind);

    /// Name of the pin at `index` of a node whose pins have numbers only; stays valid until the end.
    const char* numberedPinName(unsigned index);

    Observers observers;
    std::vector<Change> changes;
    std::uint32_t round = 1;        ///< of the change log; counts how often it was taken
    std::vector<ApiItem*> pending;  ///< items with attributes that may wait for evaluation
    GraphRecord* root = nullptr;
    NodeRecord* settings = nullptr;
    ApiItem* selected = nullptr;

private:
    struct NodeHandle final : ApiNode {};
    struct GraphHandle final : ApiNodeGraph {};
    struct RootHandle final : ApiRootNodeGraph {};

    World() = default;
    ~World();

    static World* current_;

    // Deques: an address stays as the list grows, and a tombstone costs one pointer.
    std::deque<NodeHandle> nodes_;
    std::deque<GraphHandle> graphs_;
    std::deque<RootHandle> roots_;
    std::unordered_map<unsigned, std::string> pin_names_;
};

}  // namespace Velmar::Engine
