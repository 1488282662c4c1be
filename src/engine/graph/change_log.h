// What has changed in the graph since the render scene last looked. Every write to the graph passes one door, which
// appends here; ApiChangeManager::update takes the list. Knows nothing of rendering. SDK thread only.
#pragma once

#include <velmar/item.h>

#include <cstdint>
#include <vector>

namespace Velmar::Engine {

struct Change {
    enum class Kind : std::uint8_t {
        ItemAdded,      ///< with all that it had then: a copy comes whole
        ItemDestroyed,  ///< `item` is a tombstone by now
        Attribute,      ///< `id` is the AttributeId
        Connection,     ///< `id` is the index of the pin; nodes that come and go on a pin are listed too
        Pins,           ///< the number of pins changed; pins that went have lost their nodes
        Evaluated,      ///< written attributes take effect
    };
    Kind kind;
    ApiItem* item;
    std::int32_t id = 0;
};

/// Between two calls of take() each change of one item is listed once, however often it was made: what counts is what
/// stands in the graph at the time of the call.
class ChangeLog {
public:
    static void append(const Change& change);
    /// The changes since the last call, in order of their first occurrence; the log is empty afterwards. Attributes
    /// that were written without evaluation, and not evaluated since, take effect here, so that every Attribute entry
    /// is followed by an Evaluated entry of its item. Empty when the project does not run.
    static std::vector<Change> take();
};

}  // namespace Velmar::Engine
