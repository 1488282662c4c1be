// What has changed in the graph since the render scene last looked. Every write to the graph passes one door, which
// appends here; ApiChangeManager::update takes the list. Knows nothing of rendering. SDK thread only.
#pragma once

#include <velmar/item.h>

#include <cstdint>
#include <vector>

namespace Velmar::Engine {

struct Change {
    enum class Kind : std::uint8_t {
        ItemAdded,
        ItemDestroyed,   ///< `item` is a tombstone by now
        Attribute,       ///< `id` is the AttributeId
        Connection,      ///< `id` is the index of the pin
        Pins,            ///< the number of pins changed
        Evaluated,       ///< written attributes take effect
    };
    Kind kind;
    ApiItem* item;
    std::int32_t id = 0;
};

class ChangeLog {
public:
    static void append(const Change& change);
    /// The changes since the last call, in order; the log is empty afterwards.
    static std::vector<Change> take();
};

}  // namespace Velmar::Engine
