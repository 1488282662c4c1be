// Deep copies across graphs.
#pragma once

#include "engine/graph/edit.h"

namespace Velmar::Engine {

/// Copies `item` and all that it depends on into `target`, each dependency once, and returns the copy of `item`. What
/// stands in the same graph as `item`, or in a graph around that one, comes to stand in `target` itself; what stands in
/// another graph brings a graph along, of the same name, with the part of its items that is needed. A graph that is
/// copied as `item` comes with all its items. An internal node that is copied as `item` becomes a free one.
ItemRecord& copyTree(Edit& edit, ItemRecord& item, GraphRecord& target);
/// Copies a node and what it depends on onto a pin, as an internal node.
void copyOntoPin(Edit& edit, NodeRecord& source, NodeRecord& user, unsigned pin);

}  // namespace Velmar::Engine
