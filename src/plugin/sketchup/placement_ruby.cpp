#include "plugin/sketchup/placement_ruby.h"

#include <cstddef>

namespace Velmar::Ruby {

Float4x4 ToPlacement(VALUE array) {
    const auto numbers = to_doubles<16>(array);
    Float4x4 placement;
    for (std::size_t i = 0; i < numbers.size(); ++i) placement[i] = static_cast<float>(numbers[i]);
    placement.InchesToMeters();
    return placement;
}

std::vector<Float4x4> ToPlacements(VALUE list) {
    std::vector<Float4x4> placements;
    if (!RB_TYPE_P(list, T_ARRAY)) return placements;
    for (long i = 0; i < array_size(list); ++i) {
        const VALUE element = array_at(list, i);
        if (RB_TYPE_P(element, T_ARRAY) && array_size(element) == 16) placements.push_back(ToPlacement(element));
    }
    return placements;
}

}  // namespace Velmar::Ruby
