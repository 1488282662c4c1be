// A hash table for welding: keys are added, found, and all dropped at once. Entries stand in one list in the order in
// which they came, and the hash slots, which only hold their places in that list, begin small for each filling, so that
// a small mesh after a large one does not pay for the large one's table. Memory is kept for the next filling.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace Velmar {

/// 64 well-mixed bits of two numbers: both halves of their product, folded (the multiply-and-fold step of wyhash, Wang
/// 2019). The constants keep small numbers from making small products.
inline std::uint64_t MixBits(std::uint64_t a, std::uint64_t b) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a ^ 0xa0761d6478bd642fULL) * (b ^ 0xe7037ed1a0b428dbULL);
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

/// A map from keys to values. `Key` has operator== and Hash(), 64 well-mixed bits.
template <typename Key, typename Value>
class WeldTable {
public:
    struct Entry {
        Key key;
        Value value;
    };

    /// The place of the key's entry; a new key gets one with `initial` as its value.
    std::uint32_t FindOrInsert(const Key& key, const Value& initial) {
        if (entries_.size() >= limit_) [[unlikely]]
            Grow();
        const std::uint64_t hash = key.Hash();
        const std::uint32_t tag = TagOf(hash);
        for (std::size_t i = hash & mask_;; i = (i + 1) & mask_) {
            const std::uint32_t slot = slots_[i];
            const std::uint32_t place = (slot & static_cast<std::uint32_t>(mask_)) - 1;
            if (slot == 0) {
                entries_.push_back({key, initial});
                slots_[i] = tag | static_cast<std::uint32_t>(entries_.size());
                return static_cast<std::uint32_t>(entries_.size() - 1);
            }
            if ((slot & ~static_cast<std::uint32_t>(mask_)) == tag && entries_[place].key == key) return place;
        }
    }

    Entry& operator[](std::uint32_t place) { return entries_[place]; }
    std::size_t size() const { return entries_.size(); }

    /// Makes room for `count` entries, so that none of them allocates, and sets out with a part of their slots, as many
    /// keys may be alike.
    void Reserve(std::size_t count) {
        entries_.reserve(count);
        const std::size_t slots = std::max(kFirstSlots, std::bit_ceil(count * kSlotsPerEntry));
        slots_.reserve(slots);
        if (!entries_.empty() || slots / 8 <= kFirstSlots) return;
        mask_ = std::min(slots / 8, kMostFirstSlots) - 1;
        if (slots_.size() <= mask_) slots_.resize(mask_ + 1);
        limit_ = LimitOf(mask_ + 1);
    }

    /// Drops all entries in a time that their number bounds; the memory stays.
    void Clear() {
        if (!entries_.empty()) std::fill_n(slots_.begin(), mask_ + 1, 0u);
        entries_.clear();
        mask_ = kFirstSlots - 1;
        limit_ = slots_.empty() ? 0 : LimitOf(kFirstSlots);
    }

private:
    static constexpr std::size_t kSlotsPerEntry = 4;
    static constexpr std::size_t kFirstSlots = 4096;
    static constexpr std::size_t kMostFirstSlots = 1 << 20;
    static constexpr std::size_t kMostSlots = std::size_t{1} << 31;

    /// Entries for which so many slots are enough. Few slots are taken, so that nearly every search ends at its first
    /// one: a processor that guesses so is seldom wrong, which saves more than the larger table costs.
    static std::size_t LimitOf(std::size_t slots) { return slots / kSlotsPerEntry; }
    /// The upper bits of a slot, those that its place leaves free, tell most keys apart without a look at the entry.
    std::uint32_t TagOf(std::uint64_t hash) const {
        return static_cast<std::uint32_t>(hash >> 32) & ~static_cast<std::uint32_t>(mask_);
    }

    /// Doubles the slots in use. All slots beyond them are free.
    [[gnu::noinline]] void Grow() {
        const std::size_t count = slots_.empty() ? kFirstSlots : 2 * (mask_ + 1);
        if (count > kMostSlots) throw std::length_error("too many points");
        if (slots_.size() < count) slots_.resize(count);
        std::fill_n(slots_.begin(), count / 2, 0u);
        mask_ = count - 1;
        limit_ = LimitOf(count);
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            const std::uint64_t hash = entries_[place].key.Hash();
            std::size_t i = hash & mask_;
            while (slots_[i] != 0) i = (i + 1) & mask_;
            slots_[i] = TagOf(hash) | static_cast<std::uint32_t>(place + 1);
        }
    }

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> slots_;  ///< 0 for a free one, else a tag and, in the bits of mask_, a place plus one
    std::size_t mask_ = kFirstSlots - 1;
    std::size_t limit_ = 0;  ///< entries at which the slots in use are too few
};

}  // namespace Velmar
