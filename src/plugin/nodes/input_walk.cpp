#include "plugin/nodes/input_walk.h"

#include <velmar/arrays.h>
#include <velmar/graph.h>
#include <velmar/node.h>

#include <algorithm>
#include <limits>

#include "plugin/nodes/node_utils.h"

namespace Velmar {

void ForAllInputNodes(ApiNode* node, const std::function<bool(ApiNode*, int)>& visit, int depth) {
    if (node == nullptr || depth > kDeepestInput) return;
    if (depth > 0 && !visit(node, depth)) return;
    for (ApiNode* input : NodeUtils::AllInputNodes(node)) ForAllInputNodes(input, visit, depth + 1);
}

void ForAllWithAttribute(ApiNode* node, AttributeId id, const std::function<void(ApiNode*)>& visit) {
    if (node != nullptr && node->hasAttr(id)) visit(node);
    ForAllInputNodes(
        node,
        [&](ApiNode* input, int) {
            if (input->hasAttr(id)) visit(input);
            return true;
        },
        0);
}

std::set<ApiNode*> FindMaterialNodes(ApiNodeGraph* graph) {
    std::set<ApiNode*> materials;
    if (graph == nullptr) return materials;
    ApiNodeArray nodes;
    for (const NodeType type : NodeUtils::MaterialTypes()) {
        graph->findNodes(type, nodes, false);
        materials.insert(nodes.items(), nodes.items() + nodes.size());
    }
    return materials;
}

std::pair<Vec2<float>, Vec2<float>> GetExtent(ApiNodeGraph* graph) {
    if (graph == nullptr) return {};
    ApiItemArray items;
    graph->getOwnedItems(items);
    if (items.size() == 0) return {};
    constexpr float largest = std::numeric_limits<float>::max();
    Vec2<float> minimum{largest, largest};
    Vec2<float> maximum{-largest, -largest};
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Vec2<float> position = items.get(i)->position();
        minimum = {std::min(minimum.x, position.x), std::min(minimum.y, position.y)};
        maximum = {std::max(maximum.x, position.x), std::max(maximum.y, position.y)};
    }
    return {minimum, {maximum.x - minimum.x, maximum.y - minimum.y}};
}

}  // namespace Velmar
