// All entities by id: an ordered table that owns them, with a flat index beside it, as a scene evaluation looks up
// every placement. Knows nothing of what entities mean to each other. Ruby thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <memory_resource>
#include <vector>

#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/entity.h"
#include "plugin/sketchup/instance.h"
#include "plugin/sketchup/weld_table.h"

namespace Velmar {

/// Entities by id in open addressing. Runs of eight ids stand side by side, so that children that were numbered in a
/// row are found in a row; the runs themselves are mixed.
class EntityIndex {
public:
    struct Slot {
        int id = 0;
        int type = 0;              ///< the entity's, so that asking for a kind does not touch the entity itself
        Entity* entity = nullptr;  ///< null for a free slot
    };

    /// The slot of that id, or a free one.
    const Slot& Find(int id) const {
        std::size_t i = Home(id);
        while (slots_[i].entity != nullptr && slots_[i].id != id) i = (i + 1) & mask_;
        return slots_[i];
    }
    /// Makes sure that the next Set cannot fail.
    void MakeRoom();
    /// Inserts or overwrites; `entity` is not null.
    void Set(int id, Entity* entity);
    void Erase(int id);
    void Clear();

private:
    std::size_t Home(int id) const {
        const auto bits = static_cast<std::uint32_t>(id);
        return (MixBits(bits >> 3, 0) << 3 | (bits & 7)) & mask_;
    }
    void Grow();

    std::vector<Slot> slots_ = std::vector<Slot>(1);  ///< a power of two, at most half of them taken
    std::size_t mask_ = 0;
    std::size_t count_ = 0;
};

/// The table. A null entity may stand under an id; it counts as absent in every lookup.
class EntityTable {
public:
    using Map = std::pmr::map<int, std::shared_ptr<Entity>>;

    /// Each answers the entity of that id, or null when there is none or it is of another kind. Valid while it stands
    /// in the table.
    Entity* Find(int id) const { return index_.Find(id).entity; }
    Definition* FindDefinition(int id) const { return FindKind<Definition>(id, Entity::kDefinition); }
    Instance* FindInstance(int id) const { return FindKind<Instance>(id, Entity::kInstance); }
    /// Inserts or overwrites.
    void Set(int id, std::shared_ptr<Entity> entity);
    /// Takes the id out, if it is there.
    void Erase(int id);
    Map::const_iterator Erase(Map::const_iterator position);
    void Clear();

    const Map& Entries() const { return entries_; }
    /// How many of the entries hold an instance, and how many hold nothing.
    std::size_t InstanceCount() const { return instance_count_; }
    std::size_t EmptyCount() const { return empty_count_; }
    /// Goes up with each change of the table; never 0.
    std::uint64_t Version() const { return version_; }

private:
    template <typename Kind>
    Kind* FindKind(int id, Entity::Type type) const {
        const EntityIndex::Slot& slot = index_.Find(id);
        return slot.type == type ? static_cast<Kind*>(slot.entity) : nullptr;
    }
    void Count(const Entity* entity, std::ptrdiff_t step);

    std::pmr::unsynchronized_pool_resource nodes_;  ///< keeps the tree's nodes out from between the entities
    Map entries_{&nodes_};
    EntityIndex index_;
    std::size_t instance_count_ = 0;
    std::size_t empty_count_ = 0;
    std::uint64_t version_ = 1;
};

}  // namespace Velmar
