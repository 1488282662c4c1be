// The placement of a material's textures: a new image stands on the surface as the images before it.
#include <velmar/node.h>

#include "plugin/nodes/node_utils.h"

namespace Velmar {

namespace {

/// The image on `pin` of `node`, when there is one that is not `added`.
ApiNode* otherImage(const ApiNode* node, PinId pin, const ApiNode* added) {
    ApiNode* const image = node->connectedNode(pin);
    return NodeUtils::IsImage(image) && image != added ? image : nullptr;
}

/// The image beside `added` on the two pins of a multiply texture.
ApiNode* imageBeside(const ApiNode* added, const ApiNode* multiply) {
    ApiNode* const first = multiply->connectedNode(PIN_TEXTURE_1);
    ApiNode* const second = multiply->connectedNode(PIN_TEXTURE_2);
    if (first == added && NodeUtils::IsImage(second)) return second;
    if (second == added && NodeUtils::IsImage(first)) return first;
    return nullptr;
}

/// The image that displaces the material's surface, even when it is the one that was added.
ApiNode* displacementImage(const ApiNode* material) {
    const ApiNode* const displacement = material->connectedNode(PIN_DISPLACEMENT);
    ApiNode* const image = displacement == nullptr ? nullptr : displacement->connectedNode(PIN_TEXTURE);
    return NodeUtils::IsImage(image) ? image : nullptr;
}

/// The image of `owner` whose placement counts.
ApiNode* sourceImage(const ApiNode* added, const ApiNode* owner) {
    const NodeType type = owner->type();
    // Takes effect once multiply textures count as owners, as materials do.
    if (type == NODE_MULTIPLY_TEXTURE) return imageBeside(added, owner);
    for (const PinId pin : {PIN_DIFFUSE, PIN_BUMP, PIN_NORMAL_MAP}) {
        if (ApiNode* image = otherImage(owner, pin, added)) return image;
    }
    if (type == NODE_MATERIAL_GLOSSY) {
        if (ApiNode* image = otherImage(owner, PIN_SPECULAR, added)) return image;
    }
    if (type == NODE_MATERIAL_SPECULAR) {
        for (const PinId pin : {PIN_REFLECTION, PIN_TRANSMISSION}) {
            if (ApiNode* image = otherImage(owner, pin, added)) return image;
        }
    }
    return displacementImage(owner);
}

/// The transform that places what was added; a displacement without an image gets one first.
ApiNode* targetTransform(ApiNode* added) {
    if (added->type() != NODE_DISPLACEMENT) return added->connectedNode(PIN_UV_TRANSFORM);
    ApiNode* image = added->connectedNode(PIN_TEXTURE);
    if (image == nullptr) image = added->createInternal(PIN_TEXTURE, NODE_IMAGE, true, true);
    return image == nullptr ? nullptr : image->connectedNode(PIN_UV_TRANSFORM);
}

}  // namespace

bool NodeUtils::TryToCorrectNewNodeScale(ApiNode* added, ApiNode* owner) {
    if (added == nullptr || owner == nullptr) return false;
    if (!IsImage(added) && added->type() != NODE_DISPLACEMENT) return false;
    if (!IsMaterialType(owner->type())) return false;
    const ApiNode* const source = sourceImage(added, owner);
    if (source == nullptr) return false;
    const ApiNode* const from = source->connectedNode(PIN_UV_TRANSFORM);
    ApiNode* const to = targetTransform(added);
    if (from == nullptr || to == nullptr) return false;
    Matrix<float> placement;
    if (!from->get(ATTR_TRANSFORM, placement)) return false;
    to->set(ATTR_TRANSFORM, placement, true);
    return true;
}

}  // namespace Velmar
