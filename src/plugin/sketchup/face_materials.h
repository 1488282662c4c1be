// The materials of a definition's faces, by the script layer's face ids. A mesh may have a face for every other
// triangle, and gets them all at once: so they stand in one sorted list. Ruby thread only.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Velmar {

class SuMaterial;

/// A map from face ids to materials; null is a legal material.
class FaceMaterials {
public:
    using Material = std::shared_ptr<SuMaterial>;

    /// The material under an id, or null for an unknown id. Valid until the next change.
    Material* Find(int face_id) {
        const auto entry = LowerBound(face_id);
        return entry != entries_.end() && entry->first == face_id ? &entry->second : nullptr;
    }
    const Material* Find(int face_id) const { return const_cast<FaceMaterials*>(this)->Find(face_id); }
    bool Contains(int face_id) const { return Find(face_id) != nullptr; }
    std::size_t Size() const { return entries_.size(); }

    /// Inserts or overwrites. Many ids at once go through Assign.
    void Set(int face_id, Material material) {
        const auto entry = LowerBound(face_id);
        if (entry != entries_.end() && entry->first == face_id) {
            entry->second = std::move(material);
        } else {
            entries_.insert(entry, {face_id, std::move(material)});
        }
    }
    /// Inserts or overwrites all of `faces`; of one id, the last one counts.
    void Assign(std::vector<std::pair<int, Material>> faces);
    void Clear() { entries_.clear(); }

private:
    using Entries = std::vector<std::pair<int, Material>>;

    Entries::iterator LowerBound(int face_id) {
        return std::lower_bound(entries_.begin(), entries_.end(), face_id,
                                [](const auto& entry, int id) { return entry.first < id; });
    }

    Entries entries_;  ///< in ascending order, each id once
};

}  // namespace Velmar
