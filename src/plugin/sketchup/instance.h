// A placed occurrence of a definition. Ruby thread only.
#pragma once

#include <cstdint>
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
    const Float4x4& GetEditTransform() const { return edit_transform_; }

    /// Visits in the scene evaluation of that number; a visit in another evaluation starts the count anew.
    int VisitCount(std::uint64_t evaluation) const { return evaluation_ == evaluation ? visit_count_ : 0; }
    /// Counts a visit and answers whether it is the first one.
    bool Visit(std::uint64_t evaluation);

private:
    // First the members that every visit touches: a scene evaluation walks over very many instances.
    std::uint64_t evaluation_ = 0;
    int visit_count_ = 0;
    bool edit_pending_ = false;  ///< edit_transform_ may differ from the identity

public:
    bool edit_mode = false;  ///< it is being moved in the host's edit context
    bool visible = true;
    int definition_id = kNoId;
    int material_id = kNoId;  ///< painted on the instance
    Float4x4 transform;
    std::vector<Float4x4> placements;  ///< where not empty, these stand in for `transform`

private:
    Float4x4 edit_transform_;
};

inline bool Instance::Visit(std::uint64_t evaluation) {
    if (evaluation_ == evaluation) {
        ++visit_count_;
        return false;
    }
    evaluation_ = evaluation;
    visit_count_ = 1;
    return true;
}

inline void Instance::UpdateTransform() {
    if (!edit_pending_) return;
    if (edit_mode && edit_transform_ != Float4x4()) transform = transform * edit_transform_;
    edit_transform_ = Float4x4();
    edit_pending_ = false;
}

inline void Instance::SetEditTransform(const Float4x4& edit_transform) {
    edit_transform_ = edit_transform;
    edit_pending_ = true;
}

}  // namespace Velmar
