// The render-side shadow of one material of the host. Shared by the mirror's tables, by the faces that wear it and by
// the slots of meshes. The node is borrowed: the SDK owns it. Ruby thread only.
#pragma once

namespace Velmar {

class ApiNode;

class SuMaterial {
public:
    explicit SuMaterial(int host_material_id) : su_id(host_material_id) {}

    /// The sandbox has put another node in the place of one; this material follows if it stands on that one.
    void ReplaceVelmarNode(ApiNode* old_node, ApiNode* new_node);
    /// The node goes away; this material is left without one if it stands on it.
    void DiscardVelmarNode(ApiNode* gone);

    ApiNode* node = nullptr;  ///< the live render material
    const int su_id;          ///< the host's id
};

}  // namespace Velmar
