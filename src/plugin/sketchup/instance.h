// A placed occurrence of a definition. Ruby thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "plugin/sketchup/entity.h"
#include "plugin/sketchup/float4x4.h"

namespace Velmar {

/// An instance as the script layer describes it. Transforms are in host axes and metres.
class Instance : public Entity {
public:
    explicit Instance(int entity_id) : Entity(entity_id, kInstance) {}

    /// Folds a pending edit transform into `transform`, once. An instance that is not in edit mode drops it.
    void UpdateTransform();
    /// Puts a transform on hold for the next scene evaluation.
    void SetEditTransform(const Float4x4& edit_transform);
    Float4x4 GetEditTransform() const { return edit_transform_ != nullptr ? *edit_transform_ : Float4x4(); }

    /// The instance's matrices in the definition that holds it: its placements, or where it has none, its transform.
    /// Valid until the instance changes.
    std::span<const Float4x4> Matrices() const {
        if (placements_ != nullptr) return *placements_;
        return {&transform, 1};
    }
    bool HasPlacements() const { return placements_ != nullptr; }
    void SetPlacements(std::vector<Float4x4> placements);

    // Laid out for scene evaluations, which read very many instances: small, and what each visit reads side by side.
    bool edit_mode = false;  ///< it is being moved in the host's edit context
    bool visible = true;
    int definition_id = kNoId;
    int material_id = kNoId;  ///< painted on the instance

private:
    std::unique_ptr<Float4x4> edit_transform_;           ///< null for the identity
    std::unique_ptr<std::vector<Float4x4>> placements_;  ///< null for none

public:
    Float4x4 transform;
};

inline void Instance::UpdateTransform() {
    if (edit_transform_ == nullptr) return;
    if (edit_mode) transform = transform * *edit_transform_;
    edit_transform_.reset();
}

}  // namespace Velmar
