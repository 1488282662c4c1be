#include "plugin/nodes/node_utils.h"

namespace Velmar {

void NodeUtils::SafeDestroy(ApiNode*& node) {
    if (node == nullptr || node->pinOwned()) return;
    node->destroy();
    node = nullptr;
}

void NodeUtils::DestroyItem(ApiItem* item) {
    if (item != nullptr) item->destroy();
}

}  // namespace Velmar
