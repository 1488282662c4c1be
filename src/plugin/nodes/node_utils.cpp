// Kinds and ends of nodes.
#include "plugin/nodes/node_utils.h"

#include <algorithm>
#include <array>

namespace Velmar {

namespace {

constexpr std::array kMaterialTypes = {NODE_MATERIAL_DIFFUSE, NODE_MATERIAL_GLOSSY, NODE_MATERIAL_METAL,
                                       NODE_MATERIAL_MIX,     NODE_MATERIAL_PORTAL, NODE_MATERIAL_SPECULAR,
                                       NODE_MATERIAL_TOON};

}  // namespace

bool NodeUtils::IsImage(const ApiNode* node) {
    if (node == nullptr) return false;
    const NodeType type = node->type();
    const bool is_texture = type == NODE_IMAGE || type == NODE_ALPHA_IMAGE || type == NODE_FLOAT_IMAGE;
    return is_texture && node->connectedNode(PIN_UV_TRANSFORM) != nullptr;
}

std::vector<NodeType> NodeUtils::MaterialTypes() {
    return {kMaterialTypes.begin(), kMaterialTypes.end()};
}

bool NodeUtils::IsMaterialType(NodeType type) {
    return std::find(kMaterialTypes.begin(), kMaterialTypes.end(), type) != kMaterialTypes.end();
}

void NodeUtils::SafeDestroy(ApiNode*& node) {
    if (node == nullptr || node->pinOwned()) return;
    node->destroy();
    node = nullptr;
}

void NodeUtils::SafeRecursiveDestroy(ApiNode*& node) {
    if (node == nullptr) return;
    for (unsigned pin = 0; pin < node->pinCount(); ++pin) {
        ApiNode* input = node->connectedNodeIx(pin);
        SafeRecursiveDestroy(input);
    }
    SafeDestroy(node);
}

void NodeUtils::DestroyItem(ApiItem* item) {
    if (item != nullptr) item->destroy();
}

}  // namespace Velmar
