#include "engine/graph/world.h"

#include "engine/graph/computed_value.h"

namespace Velmar::Engine {

constinit World* World::current_ = nullptr;

void World::begin() {
    current_ = new World;
}

void World::end() {
    World* const world = current_;
    current_ = nullptr;
    delete world;
}

World::~World() {
    for (NodeHandle& handle : nodes_) delete ItemRecord::of(&handle);
    for (GraphHandle& handle : graphs_) delete ItemRecord::of(&handle);
    for (RootHandle& handle : roots_) delete ItemRecord::of(&handle);
}

NodeRecord& World::newNode(const TypeEntry& type) {
    auto* record = new NodeRecord(nodes_.emplace_back(), type);
    record->name = type.row->default_name;
    record->attributes.reserve(type.attributes.size());
    for (const ApiAttributeInfo& info : type.attributes) record->attributes.push_back({defaultValue(info)});
    record->pins.resize(type.pins.size());
    if (record->isComputed()) record->attributes[0].value = computedValue(*record);
    return *record;
}

GraphRecord& World::newGraph(ItemRecord::Kind kind) {
    ApiNodeGraph* handle = nullptr;
    if (kind == ItemRecord::Kind::RootGraph) {
        handle = &roots_.emplace_back();
    } else {
        handle = &graphs_.emplace_back();
    }
    return *new GraphRecord(*handle, kind);
}

const char* World::numberedPinName(unsigned index) {
    auto [found, fresh] = pin_names_.try_emplace(index);
    if (fresh) found->second = "input_" + std::to_string(index + 1);
    return found->second.c_str();
}

}  // namespace Velmar::Engine
