#include "engine/graph/observers.h"

#include "engine/graph/world.h"

#include <velmar/item.h>

#include <algorithm>

namespace Velmar::Engine {

void Observers::observe(const ApiItem* item, Observer& observer, std::uint32_t mask) {
    auto& entries = by_item_[item];
    const auto found = std::ranges::find(entries, &observer, &Entry::observer);
    if (found != entries.end()) {
        found->mask = mask;
    } else {
        entries.push_back({&observer, mask});
    }
}

void Observers::stopAll() {
    by_item_.clear();
}

void Observers::stop(const Observer& observer) {
    for (auto pair = by_item_.begin(); pair != by_item_.end();) {
        std::erase_if(pair->second, [&observer](const Entry& entry) { return entry.observer == &observer; });
        pair = pair->second.empty() ? by_item_.erase(pair) : std::next(pair);
    }
}

void Observers::stop(const ApiItem* item, const Observer& observer) {
    const auto found = by_item_.find(item);
    if (found == by_item_.end()) return;
    std::erase_if(found->second, [&observer](const Entry& entry) { return entry.observer == &observer; });
    if (found->second.empty()) by_item_.erase(found);
}

void Observers::forget(const ApiItem* item) {
    by_item_.erase(item);
}

void Observers::deliver(const Event& event, std::exception_ptr& error) {
    deliverTo(event.changed_item, event, error);
    const bool concerns_owner = event.type == Event::ITEM_ADDED || event.type == Event::ITEM_DELETE;
    if (concerns_owner && event.owner != nullptr && event.owner->isGraph()) deliverTo(event.owner, event, error);
}

// Callbacks may start and stop observation, and change the graph again, so each entry is looked up anew before its
// call; those who join during the event wait for the next one.
void Observers::deliverTo(const ApiItem* item, const Event& event, std::exception_ptr& error) {
    const auto found = by_item_.find(item);
    if (found == by_item_.end()) return;
    const World* const world = World::current();
    const std::vector<Entry> entries = found->second;
    for (const Entry& entry : entries) {
        if (World::current() != world) return;
        if (!observes(item, entry, event.type)) continue;
        try {
            entry.observer->callback(event, entry.observer->user);
        } catch (...) {
            if (error == nullptr) error = std::current_exception();
        }
    }
}

bool Observers::observes(const ApiItem* item, const Entry& entry, Event::Type type) const {
    const auto found = by_item_.find(item);
    if (found == by_item_.end()) return false;
    const auto now = std::ranges::find(found->second, entry.observer, &Entry::observer);
    return now != found->second.end() && (now->mask & type) != 0 && now->observer->callback != nullptr;
}

}  // namespace Velmar::Engine
