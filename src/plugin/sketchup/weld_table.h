// A hash table for welding: keys are added, found, and all dropped at once. Entries stand in one list in the order in
// which they came, and the hash slots, which only hold their places in that list, begin small for each filling, so that
// a small mesh after a large one does not pay for the large one's table. Memory is kept for the next filling.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace Velmar {

/// Mixes 64 bits so that each one reaches all of the result (finalizer of the 64-bit MurmurHash3, Appleby 2011).
inline std::uint64_t MixBits(std::uint64_t bits) {
    bits ^= bits >> 33;
    bits *= 0xff51afd7ed558ccdULL;
    bits ^= bits >> 33;
    bits *= 0xc4ceb9fe1a85ec53ULL;
    return bits ^ (bits >> 33);
}

/// A map from keys to ints. `Key` has operator== and Hash(), 64 well-mixed bits.
template <typename Key>
class WeldTable {
public:
    struct Entry {
        Key key;
        int value;
    };

    /// The place of the key's entry; a new key gets one with `initial` as its value.
    std::uint32_t FindOrInsert(const Key& key, int initial) {
        if (entries_.size() >= limit_) Grow();
        const std::uint64_t hash = key.Hash();
        const auto tag = static_cast<std::uint32_t>(hash >> 32);
        for (std::size_t i = hash & mask_;; i = (i + 1) & mask_) {
            Slot& slot = slots_[i];
            if (slot.place_plus_one == 0) {
                entries_.push_back({key, initial});
                slot = {tag, static_cast<std::uint32_t>(entries_.size())};
                return slot.place_plus_one - 1;
            }
            if (slot.tag == tag && entries_[slot.place_plus_one - 1].key == key) return slot.place_plus_one - 1;
        }
    }

    Entry& operator[](std::uint32_t place) { return entries_[place]; }
    std::size_t size() const { return entries_.size(); }

    /// Makes room for `count` entries, so that none of them allocates.
    void Reserve(std::size_t count) {
        entries_.reserve(count);
        slots_.reserve(std::max(kFirstSlots, std::bit_ceil(2 * count)));
    }

    /// Drops all entries in a time that their number bounds; the memory stays.
    void Clear() {
        if (!entries_.empty()) std::fill_n(slots_.begin(), mask_ + 1, Slot{});
        entries_.clear();
        mask_ = kFirstSlots - 1;
        limit_ = slots_.empty() ? 0 : kFirstSlots / 2;
    }

private:
    struct Slot {
        std::uint32_t tag = 0;             ///< upper half of the key's hash
        std::uint32_t place_plus_one = 0;  ///< 0 for a free slot
    };
    static constexpr std::size_t kFirstSlots = 1024;

    /// Doubles the slots in use, at most half of which are ever taken. All slots beyond them are free.
    void Grow() {
        if (entries_.size() >= std::numeric_limits<std::int32_t>::max()) throw std::length_error("too many points");
        const std::size_t count = slots_.empty() ? kFirstSlots : 2 * (mask_ + 1);
        if (slots_.size() < count) slots_.resize(count);
        std::fill_n(slots_.begin(), count / 2, Slot{});
        mask_ = count - 1;
        limit_ = count / 2;
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            const std::uint64_t hash = entries_[place].key.Hash();
            std::size_t i = hash & mask_;
            while (slots_[i].place_plus_one != 0) i = (i + 1) & mask_;
            slots_[i] = {static_cast<std::uint32_t>(hash >> 32), static_cast<std::uint32_t>(place + 1)};
        }
    }

    std::vector<Entry> entries_;
    std::vector<Slot> slots_;
    std::size_t mask_ = kFirstSlots - 1;
    std::size_t limit_ = 0;  ///< entries at which the slots in use are too few
};

}  // namespace Velmar
