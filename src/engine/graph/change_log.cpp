#include "engine/graph/change_log.h"

#include "engine/graph/edit.h"
#include "engine/graph/world.h"

namespace Velmar::Engine {

void ChangeLog::append(const Change& change) {
    if (World* world = World::current()) world->changes.push_back(change);
}

std::vector<Change> ChangeLog::take() {
    if (World::current() == nullptr) return {};
    Edit edit;
    for (const ApiItem* item : std::exchange(World::current()->pending, {})) {
        NodeRecord* node = NodeRecord::alive(item);
        if (node == nullptr) continue;
        node->listed_pending = false;
        if (node->pending) edit.evaluate(*node);
    }
    edit.finish();
    World* const world = World::current();
    if (world == nullptr) return {};
    ++world->round;
    return std::exchange(world->changes, {});
}

}  // namespace Velmar::Engine
