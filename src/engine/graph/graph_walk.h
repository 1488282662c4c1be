// Walks along the wiring that the SDK's own calls do not offer, or offer with texts attached. SDK thread only.
#pragma once

#include <velmar/node.h>

#include <functional>

namespace Velmar::Engine {

/// The node that stands on the pin at `index` in the end: links are followed. Null for an empty pin, a null or
/// destroyed node, or an index beyond the list.
ApiNode* inputNodeIx(const ApiNode* node, unsigned index);
/// What `node` stands for: the node itself, or, for a link, what the link passes on in the end. Null when nothing does.
ApiNode* followLinks(ApiNode* node);
/// The node whose pin owns `node`, and the index of that pin; null, and an untouched index, for a node that stands in a
/// graph.
ApiNode* pinOwnerNode(const ApiNode* node, unsigned* pin_index = nullptr);
/// Index of the pin of that number; false when the node has no such pin.
bool findPin(const ApiNode* node, PinId id, unsigned& index);
/// Calls `visit` for each pin on which a node is used, in the order in which they were connected; for an internal node
/// that is the pin of its owner. `visit` must not change the wiring.
void forEachUser(const ApiNode* node, const std::function<void(ApiNode* user, unsigned pin_index)>& visit);
/// True for a node or graph that is not destroyed.
bool isAlive(const ApiItem* item);

}  // namespace Velmar::Engine
