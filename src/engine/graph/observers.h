// Who observes what. SDK thread only.
#pragma once

#include <velmar/change.h>

#include <exception>
#include <unordered_map>
#include <vector>

namespace Velmar::Engine {

class Observers {
public:
    using Event = ApiChangeManager::ChangeEvent;
    using Observer = ApiChangeManager::Observer;

    bool any() const { return !by_item_.empty(); }
    void observe(const ApiItem* item, Observer& observer, std::uint32_t mask);
    void stopAll();
    void stop(const Observer& observer);
    void stop(const ApiItem* item, const Observer& observer);
    void forget(const ApiItem* item);

    /// Calls everyone whom the event concerns. The first exception that leaves a callback is handed out in `error` once
    /// all have been called; one that stands there already is kept.
    void deliver(const Event& event, std::exception_ptr& error);

private:
    struct Entry {
        Observer* observer;
        std::uint32_t mask;
    };

    void deliverTo(const ApiItem* item, const Event& event, std::exception_ptr& error);
    bool observes(const ApiItem* item, const Entry& entry, Event::Type type) const;

    std::unordered_map<const ApiItem*, std::vector<Entry>> by_item_;
};

}  // namespace Velmar::Engine
