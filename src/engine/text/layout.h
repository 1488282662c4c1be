// Lays the items of a graph out for people: each in a row of its own depth, users below what they use, each above the
// middle of its inputs' columns, no two in one place. Works on what depends on what alone; sizes in view units.
#pragma once

#include "engine/graph/edit.h"

#include <vector>

namespace Velmar::Engine {

/// Distances between the places of neighbours: wide enough for an item as the window draws it, and its gap.
inline constexpr float kColumnWidth = 160.0F;
inline constexpr float kRowHeight = 100.0F;

/// Column and row of each of `inputs.size()` things, of which `inputs[i]` lists what the i-th depends on, in order.
/// Rows count from the top, columns from the left; a column may stand half way between two others. What depends on
/// itself by way of others is laid out as if one of those dependencies were not there. Takes time in proportion to the
/// number of dependencies.
std::vector<Vec2<float>> treeLayout(const std::vector<std::vector<std::size_t>>& inputs);

/// Moves the graph's own items to their places, from the origin down and to the right. An internal node, and what
/// stands in a graph inside, counts as the item of `graph` that holds it.
void layOut(Edit& edit, GraphRecord& graph);

}  // namespace Velmar::Engine
