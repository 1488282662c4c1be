// Who hears of changes. ApiChangeManager::update stands where the changes are rendered.
#include "engine/graph/operation_log.h"
#include "engine/graph/world.h"

#include <velmar/change.h>

namespace Velmar {

using Engine::OperationLog;
using Engine::World;

void ApiChangeManager::observeApiItem(const ApiItem* item, Observer& observer, std::uint32_t mask) {
    OperationLog::record("observeApiItem", item, mask);
    if (ItemRecord::alive(item) != nullptr) World::current()->observers.observe(item, observer, mask);
}

void ApiChangeManager::stopObserving() {
    OperationLog::record("stopObserving");
    if (World::current() != nullptr) World::current()->observers.stopAll();
}

void ApiChangeManager::stopObserving(Observer& observer) {
    OperationLog::record("stopObserving", "observer");
    if (World::current() != nullptr) World::current()->observers.stop(observer);
}

void ApiChangeManager::stopObserving(const ApiItem* item, Observer& observer) {
    OperationLog::record("stopObserving", item);
    if (ItemRecord::of(item) != nullptr) World::current()->observers.stop(item, observer);
}

}  // namespace Velmar
