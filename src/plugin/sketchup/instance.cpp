#include "plugin/sketchup/instance.h"

#include <utility>

namespace Velmar {

void Instance::SetEditTransform(const Float4x4& edit_transform) {
    edit_transform_ = edit_transform == Float4x4() ? nullptr : std::make_unique<Float4x4>(edit_transform);
}

void Instance::SetPlacements(std::vector<Float4x4> placements) {
    placements_ = placements.empty() ? nullptr : std::make_unique<std::vector<Float4x4>>(std::move(placements));
}

}  // namespace Velmar
