// Changes: pending changes reach the running render, observers hear of changes.
#pragma once

#include <velmar/export.h>

#include <cstdint>

namespace Velmar {

class ApiItem;

/// Hands changes on. Observers are called on the thread that made the change, within the call that made it, with the
/// graph consistent, and only for a real change of value. An observer may stop observing from inside its callback; an
/// exception that leaves a callback passes through the call that made the change, which stays made.
class VELMAR_SDK ApiChangeManager {
public:
    struct ChangeEvent {
        /// Single bits; an observer's mask combines them.
        enum Type : std::uint32_t {
            ITEM_ADDED = 1,
            ITEM_DELETE = 2,
            CONNECTION_CHANGED = 4,
            DESTINATION_ADDED = 8,
            PINS_CHANGED = 16,
            ITEM_VALUE_CHANGED = 32,
            ITEM_NAME_CHANGED = 64,
            ITEM_MOVED = 128,
            LINKER_ORDER_CHANGED = 256,
            ITEM_UI_OPERATION_FLAG_CHANGED = 512,
        };
        Type type;
        ApiItem* changed_item;
        ApiItem* owner;           ///< graph that owns the item, or the node whose pin does; null for a root graph
        std::uint32_t pin_index;  ///< pin that changed, or the pin of `owner` that owns the item
    };

    // A change of a value is told of the node that holds it, with the pin that owns that node, and of each node that
    // uses it, with the pin on which it does; where the user is itself a value node or a link, of its users too. So a
    // sun direction tells of each change of place and time. In ITEM_DELETE the item stands nowhere any more but still
    // tells its name and type; it is a tombstone when all have heard of it.

    /// A callback with its user pointer. The record must live as long as it observes.
    struct Observer {
        void (*callback)(const ChangeEvent& event, void* user);
        void* user;
    };

    /// Makes pending changes take effect in the running render.
    static void update();
    /// Calls `observer` for events of `mask` on `item`: on the item itself, and, for a graph, on items that it gains
    /// and loses. A second call for the same pair replaces the mask. Null items and observers are ignored.
    static void observeApiItem(const ApiItem* item, Observer& observer, std::uint32_t mask);
    /// Ends all observation.
    static void stopObserving();
    /// Ends all observation of one observer.
    static void stopObserving(Observer& observer);
    /// Ends the observation of one item by one observer.
    static void stopObserving(const ApiItem* item, Observer& observer);
};

}  // namespace Velmar
