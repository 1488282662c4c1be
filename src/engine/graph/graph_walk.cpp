#include "engine/graph/graph_walk.h"

#include "engine/graph/pin_values.h"
#include "engine/graph/records.h"

namespace Velmar::Engine {

ApiNode* inputNodeIx(const ApiNode* node, unsigned index) {
    const NodeRecord* record = NodeRecord::of(node);
    if (record == nullptr || index >= record->pins.size()) return nullptr;
    const NodeRecord* input = follow(record->pins[index].node);
    return input == nullptr ? nullptr : input->node();
}

ApiNode* followLinks(ApiNode* node) {
    const NodeRecord* record = follow(NodeRecord::of(node));
    return record == nullptr ? nullptr : record->node();
}

ApiNode* pinOwnerNode(const ApiNode* node, unsigned* pin_index) {
    const NodeRecord* record = NodeRecord::of(node);
    if (record == nullptr || !record->pin_owned || record->users.empty()) return nullptr;
    const PinUse& use = record->users.front();
    if (pin_index != nullptr) *pin_index = use.pin;
    return use.user->node();
}

bool findPin(const ApiNode* node, PinId id, unsigned& index) {
    const NodeRecord* record = NodeRecord::of(node);
    const auto found = record == nullptr ? std::nullopt : pinIndex(*record, id);
    if (found) index = *found;
    return found.has_value();
}

void forEachUser(const ApiNode* node, const std::function<void(ApiNode* user, unsigned pin_index)>& visit) {
    const NodeRecord* record = NodeRecord::of(node);
    if (record == nullptr) return;
    for (const PinUse& use : record->users) visit(use.user->node(), use.pin);
}

bool isAlive(const ApiItem* item) {
    return ItemRecord::alive(item) != nullptr;
}

}  // namespace Velmar::Engine
