#include "plugin/materials/su_material.h"

namespace Velmar {

void SuMaterial::ReplaceVelmarNode(ApiNode* old_node, ApiNode* new_node) {
    if (node == old_node) node = new_node;
}

void SuMaterial::DiscardVelmarNode(ApiNode* gone) {
    if (node == gone) node = nullptr;
}

}  // namespace Velmar
