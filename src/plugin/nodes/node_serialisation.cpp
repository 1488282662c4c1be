// Node trees as JSON: written, made anew, applied to a tree that stands.
#include <json/value.h>
#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <utility>

#include "plugin/nodes/node_record.h"
#include "plugin/nodes/node_utils.h"
#include "plugin/nodes/pin_info.h"

namespace Velmar {

namespace {

const Json::StaticString kName("name");
const Json::StaticString kType("type");

// --- Writing ---

/// What stands on the pin, seen through one link.
ApiNode* nodeOnPin(const ApiNode& node, unsigned pin) {
    ApiNode* const connected = node.connectedNodeIx(pin);
    const bool is_link = connected != nullptr && connected->type() >= NODE_LINK_FIRST;
    return is_link ? connected->connectedNodeIx(0) : connected;
}

Json::Value pinRecord(ApiNode& node, unsigned pin, bool full) {
    Json::Value record = NodeUtils::NodeToStr(nodeOnPin(node, pin), full);
    if (record.isNull()) {
        record[kName] = node.name();
        record[kType] = static_cast<int>(NodeRecord::kEmptyPin);
    }
    record["info"] = GetPinInfo(&node, pin, full);
    return record;
}

// --- Making and updating ---

ApiNode* createFree(NodeType type) {
    return ApiNode::create(type, ApiProjectManager::rootNodeGraph(), true);
}

/// Name and attributes.
void applyValues(const NodeRecord& record, ApiNode& node) {
    if (!record.name.empty()) node.setName(record.name.c_str());
    if (!record.has_params) return;
    for (const AttributeRecord& attribute : record.params) ApplyAttributeRecord(attribute, node);
    node.evaluate();
}

/// `owner` and `pin` say where a pin-owned node is made; null or 0 for a free node.
ApiNode* makeTree(const NodeRecord& record, ApiNode* owner, PinId pin) {
    const bool is_internal = record.pin_owned && owner != nullptr && pin != PIN_UNKNOWN;
    ApiNode* const node = is_internal ? owner->createInternal(pin, record.type, true, true) : createFree(record.type);
    if (node == nullptr) return nullptr;
    applyValues(record, *node);
    for (const NodeRecord& pin_record : record.pins) {
        const PinId child_pin = node->pinId(pin_record.pin_name.c_str());
        ApiNode* const child = makeTree(pin_record, node, child_pin);
        if (child != nullptr && !child->pinOwned()) node->connectTo(child_pin, child, true, false);
    }
    return node;
}

enum class Update { None = -1, Values = 0, Structure = 1 };

/// The place of a node: on a pin of its owner; 0 and null at the top.
struct Place {
    PinId pin;
    ApiNode* owner;
};

/// Gives the pin what the record's type asks for, with the values that a fresh node has.
Update replaceNode(NodeType type, ApiNode* node, const Place& place, bool internal) {
    if (place.pin == PIN_UNKNOWN || place.owner == nullptr) return Update::None;
    const bool pin_takes_care = node == nullptr || node->pinOwned() || internal;
    if (type == NodeRecord::kNoType) {
        if (!pin_takes_care) NodeUtils::SafeDestroy(node);
        place.owner->connectTo(place.pin, nullptr, true, false);
        return Update::Structure;
    }
    ApiNode* added = nullptr;
    if (pin_takes_care) {
        added = place.owner->createInternal(place.pin, type, true, true);
    } else {
        NodeUtils::SafeDestroy(node);
        added = createFree(type);
        place.owner->connectTo(place.pin, added, true, false);
    }
    NodeUtils::TryToCorrectNewNodeScale(added, place.owner);
    return Update::Structure;
}

Update updateTree(const NodeRecord& record, ApiNode* node, const Place& place, bool internal) {
    if (record.type == NodeRecord::kEmptyPin) return Update::None;
    if (node == nullptr && record.type == NodeRecord::kNoType) return Update::Values;  // asked to be empty, and is
    if (node == nullptr || record.type != node->type()) return replaceNode(record.type, node, place, internal);
    applyValues(record, *node);
    Update result = Update::Values;
    for (const NodeRecord& pin_record : record.pins) {
        const PinId pin = node->pinId(pin_record.pin_name.c_str());
        const Update below =
            updateTree(pin_record, node->connectedNode(pin), {pin, node}, node->pinOwned() || internal);
        if (below == Update::Structure) result = Update::Structure;
    }
    return result;
}

}  // namespace

Json::Value NodeUtils::NodeToStr(ApiNode* node, bool full, ApiNode*) {
    if (node == nullptr) return Json::Value();
    Json::Value params;
    for (unsigned i = 0; i < node->attrCount(); ++i) params.append(GetAttribute(node, i));
    Json::Value pins;
    for (unsigned i = 0; i < node->pinCount(); ++i) pins.append(pinRecord(*node, i, full));
    if (params.isNull() && pins.isNull()) return Json::Value();
    Json::Value record;
    record[kName] = node->name();
    record[kType] = static_cast<int>(node->type());
    record["pin_owned"] = node->pinOwned();
    if (!params.isNull()) record["params"] = std::move(params);
    if (!pins.isNull()) record["nodes"] = std::move(pins);
    return record;
}

ApiNode* NodeUtils::StrToNode(const Json::Value& json, int depth, ApiNode* owner, PinId pin) {
    const std::optional<NodeRecord> record = ReadNodeRecord(json);
    if (!record) return nullptr;
    return makeTree(*record, depth == 0 ? nullptr : owner, pin);
}

int NodeUtils::UpdateNode(Json::Value json, ApiNode* node, PinId pin, ApiNode* owner, bool internal) {
    const std::optional<NodeRecord> record = ReadNodeRecord(json);
    if (!record) return static_cast<int>(Update::None);
    return static_cast<int>(updateTree(*record, node, {pin, owner}, internal));
}

}  // namespace Velmar
