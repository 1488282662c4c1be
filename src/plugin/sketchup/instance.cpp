#include "plugin/sketchup/instance.h"

namespace Velmar {

void Instance::SetEditTransform(const Float4x4& edit_transform) {
    edit_transform_ = edit_transform == Float4x4() ? nullptr : std::make_unique<Float4x4>(edit_transform);
}

}  // namespace Velmar
