#include "plugin/sketchup/face_materials.h"

#include <iterator>

namespace Velmar {

void FaceMaterials::Assign(std::vector<std::pair<int, Material>> faces) {
    // What stands comes first, so that it counts as earlier.
    if (!entries_.empty()) {
        faces.insert(faces.begin(), std::make_move_iterator(entries_.begin()), std::make_move_iterator(entries_.end()));
    }
    const auto by_id = [](const auto& a, const auto& b) { return a.first < b.first; };
    if (!std::is_sorted(faces.begin(), faces.end(), by_id)) std::stable_sort(faces.begin(), faces.end(), by_id);

    // Keep the last one of each id.
    const auto same_id = [](const auto& a, const auto& b) { return a.first == b.first; };
    const auto first_kept = std::unique(faces.rbegin(), faces.rend(), same_id).base();
    faces.erase(faces.begin(), first_kept);
    entries_ = std::move(faces);
}

}  // namespace Velmar
