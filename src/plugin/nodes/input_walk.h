// Walks and measures that serve the windows of the plug-in: what stands below a node, and how much room a graph or a
// pane takes. They hold no state and own nothing; every call comes from the thread that runs Ruby.
#pragma once

#include <velmar/attribute_ids.h>
#include <velmar/values.h>

#include <functional>
#include <set>
#include <utility>

namespace Velmar {

class ApiGuiComponent;
class ApiNode;
class ApiNodeGraph;

/// The deepest level below its start to which ForAllInputNodes goes.
inline constexpr int kDeepestInput = 20;

/// Calls `visit` with each node below `node` and its depth, 1 for what stands on a pin of `node`, down to
/// kDeepestInput. What `visit` answers false for is not followed further. A node that can be reached on two ways is
/// visited on each. `depth` is 0 for callers.
void ForAllInputNodes(ApiNode* node, const std::function<bool(ApiNode*, int)>& visit, int depth);

/// Calls `visit` with `node` and each node below it that has the attribute.
void ForAllWithAttribute(ApiNode* node, AttributeId id, const std::function<void(ApiNode*)>& visit);

/// The materials that the graph itself owns.
std::set<ApiNode*> FindMaterialNodes(ApiNodeGraph* graph);

/// Position and size of the rectangle in which the graph's items stand, each as a point, in view units. All zero for
/// null and for an empty graph.
std::pair<Vec2<float>, Vec2<float>> GetExtent(ApiNodeGraph* graph);

/// Position and size of a pane, in pixels; all zero for null.
std::pair<Vec2<float>, Vec2<float>> GetExtent(ApiGuiComponent* pane);

}  // namespace Velmar
