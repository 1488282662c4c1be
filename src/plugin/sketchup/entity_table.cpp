#include "plugin/sketchup/entity_table.h"

#include <algorithm>
#include <utility>

namespace Velmar {

void EntityIndex::MakeRoom() {
    if (2 * (count_ + 1) > slots_.size()) Grow();
}

void EntityIndex::Set(int id, Entity* entity) {
    MakeRoom();
    std::size_t i = Home(id);
    while (slots_[i].entity != nullptr && slots_[i].id != id) i = (i + 1) & mask_;
    if (slots_[i].entity == nullptr) ++count_;
    slots_[i] = {id, entity->type, entity};
}

void EntityIndex::Erase(int id) {
    std::size_t hole = Home(id);
    while (slots_[hole].entity != nullptr && slots_[hole].id != id) hole = (hole + 1) & mask_;
    if (slots_[hole].entity == nullptr) return;

    // Close the gap: an entry further on moves up unless its home lies beyond the hole.
    for (std::size_t i = (hole + 1) & mask_; slots_[i].entity != nullptr; i = (i + 1) & mask_) {
        const std::size_t distance_from_home = (i - Home(slots_[i].id)) & mask_;
        const std::size_t distance_from_hole = (i - hole) & mask_;
        if (distance_from_home < distance_from_hole) continue;
        slots_[hole] = slots_[i];
        hole = i;
    }
    slots_[hole] = {};
    --count_;
}

void EntityIndex::Clear() {
    slots_.assign(1, {});
    mask_ = 0;
    count_ = 0;
}

void EntityIndex::Grow() {
    constexpr std::size_t kFirstSlots = 64;
    std::vector<Slot> old(std::max(kFirstSlots, 2 * slots_.size()));
    old.swap(slots_);
    mask_ = slots_.size() - 1;
    count_ = 0;
    for (const Slot& slot : old) {
        if (slot.entity != nullptr) Set(slot.id, slot.entity);
    }
}

void EntityTable::Count(const Entity* entity, std::ptrdiff_t step) {
    if (entity == nullptr) {
        empty_count_ += static_cast<std::size_t>(step);
    } else if (entity->IsInstance()) {
        instance_count_ += static_cast<std::size_t>(step);
    }
}

void EntityTable::Set(int id, std::shared_ptr<Entity> entity) {
    // What can fail comes first. Ids mostly come in ascending order, so the end is the place to look at first.
    index_.MakeRoom();
    const std::size_t count_before = entries_.size();
    const auto entry = entries_.try_emplace(entries_.end(), id);

    if (entries_.size() == count_before) Count(entry->second.get(), -1);
    Count(entity.get(), 1);
    if (entity != nullptr) {
        index_.Set(id, entity.get());
    } else {
        index_.Erase(id);
    }
    ++version_;
    // The old entity goes last, with the table whole: its end may call the SDK.
    entry->second.swap(entity);
}

void EntityTable::Erase(int id) {
    const auto entry = entries_.find(id);
    if (entry != entries_.end()) Erase(entry);
}

EntityTable::Map::const_iterator EntityTable::Erase(Map::const_iterator position) {
    const std::shared_ptr<Entity> gone = position->second;
    Count(gone.get(), -1);
    index_.Erase(position->first);
    ++version_;
    return entries_.erase(position);
}

void EntityTable::Clear() {
    Map gone(&nodes_);
    gone.swap(entries_);
    index_.Clear();
    instance_count_ = 0;
    empty_count_ = 0;
    ++version_;
}

}  // namespace Velmar
