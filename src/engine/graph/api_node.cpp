// Nodes, as the SDK knows them: making and wiring. The values of pins stand in api_pin_values.cpp.
#include "engine/graph/copy_tree.h"
#include "engine/graph/operation_log.h"
#include "engine/graph/pin_values.h"

#include <velmar/arrays.h>
#include <velmar/info.h>
#include <velmar/node.h>

namespace Velmar {

using Engine::Catalog;
using Engine::Edit;
using Engine::GraphRecord;
using Engine::NodeRecord;
using Engine::OperationLog;
using Engine::pinIndex;
using Engine::TypeEntry;

namespace {

std::optional<unsigned> checked(const NodeRecord& node, unsigned index) {
    return index < node.pins.size() ? std::optional(index) : std::nullopt;
}

// Connects when there is such a pin and the node may be used; a destroyed node may not.
void connect(NodeRecord& user, std::optional<unsigned> pin, ApiNode* node, bool evaluate, bool configure) {
    NodeRecord* input = NodeRecord::alive(node);
    if (!pin || (node != nullptr && input == nullptr)) return;
    Edit edit;
    edit.connect(user, *pin, input);
    if (configure && input != nullptr && user.pins[*pin].node == input) edit.configure(*input, true);
    if (evaluate) edit.evaluate(user);
    edit.finish();
}

ApiNode* nodeOn(const NodeRecord* node, std::optional<unsigned> pin) {
    if (node == nullptr || !pin || node->pins[*pin].node == nullptr) return nullptr;
    return node->pins[*pin].node->node();
}

// The node that an item counts as: itself, or the first node of a graph.
NodeRecord* nodeOf(const ApiItem* item) {
    if (const GraphRecord* graph = GraphRecord::alive(item)) {
        for (ItemRecord* owned = graph->first; owned != nullptr; owned = owned->next) {
            if (owned->isNode()) return static_cast<NodeRecord*>(owned);
        }
    }
    return NodeRecord::alive(item);
}

}  // namespace

ApiNode* ApiNode::create(NodeType type, ApiNodeGraph* graph, bool configure) {
    OperationLog::record("create", type, graph, configure);
    GraphRecord* owner = GraphRecord::alive(graph);
    const TypeEntry* entry = Catalog::find(type);
    if (owner == nullptr || entry == nullptr) return nullptr;
    Edit edit;
    NodeRecord& made = edit.addNode(*entry, *owner);
    if (configure) {
        edit.configure(made, false);
        edit.evaluate(made);
    }
    edit.finish();
    return static_cast<ApiNode*>(made.handle);
}

ApiNode* ApiNode::createInternal(PinId pin, NodeType type, bool configure, bool evaluate) {
    OperationLog::record("createInternal", this, pin, type, configure, evaluate);
    NodeRecord* user = NodeRecord::alive(this);
    const TypeEntry* entry = Catalog::find(type);
    const auto index = user == nullptr ? std::nullopt : pinIndex(*user, pin);
    if (entry == nullptr || !index) return nullptr;
    Edit edit;
    NodeRecord& made = edit.addInternal(*user, *index, *entry);
    ApiNode* const handle = made.node();
    if (configure) edit.configure(made, false);
    if (evaluate) {
        edit.evaluate(made);
        edit.evaluate(*user);
    }
    edit.finish();
    return handle;
}

NodeType ApiNode::type() const {
    const NodeRecord* node = NodeRecord::of(this);
    return node == nullptr ? NODE_UNKNOWN : node->type->row->type;
}

const ApiNodeInfo& ApiNode::info() const {
    const NodeRecord* node = NodeRecord::of(this);
    return node == nullptr ? Catalog::noType() : node->type->info;
}

unsigned ApiNode::pinCount() const {
    const NodeRecord* node = NodeRecord::of(this);
    return node == nullptr ? 0 : static_cast<unsigned>(node->pins.size());
}

bool ApiNode::hasPin(PinId id) const {
    const NodeRecord* node = NodeRecord::of(this);
    return node != nullptr && pinIndex(*node, id).has_value();
}

PinId ApiNode::pinId(const char* name) const {
    const NodeRecord* node = NodeRecord::of(this);
    const auto index = node == nullptr ? std::nullopt : pinIndex(*node, name);
    return index ? pinEntry(*node, *index).info.id : PIN_UNKNOWN;
}

PinId ApiNode::pinIdIx(unsigned index) const {
    return pinInfoIx(index).id;
}

const char* ApiNode::pinNameIx(unsigned index) const {
    const NodeRecord* node = NodeRecord::of(this);
    return node != nullptr && index < node->pins.size() ? pinName(*node, index) : "";
}

NodePinType ApiNode::pinTypeIx(unsigned index) const {
    return pinInfoIx(index).type;
}

const ApiNodePinInfo& ApiNode::pinInfoIx(unsigned index) const {
    const NodeRecord* node = NodeRecord::of(this);
    return node != nullptr && index < node->pins.size() ? pinEntry(*node, index).info : Catalog::noPin();
}

void ApiNode::connectTo(PinId id, ApiNode* node, bool evaluate, bool configure) {
    OperationLog::record("connectTo", this, id, node, evaluate, configure);
    if (NodeRecord* user = NodeRecord::alive(this)) connect(*user, pinIndex(*user, id), node, evaluate, configure);
}

void ApiNode::connectTo(const char* pin_name, ApiNode* node, bool evaluate, bool configure) {
    OperationLog::record("connectTo", this, pin_name, node, evaluate, configure);
    if (NodeRecord* user = NodeRecord::alive(this)) {
        connect(*user, pinIndex(*user, pin_name), node, evaluate, configure);
    }
}

void ApiNode::connectToIx(unsigned index, ApiNode* node, bool evaluate, bool configure) {
    OperationLog::record("connectToIx", this, index, node, evaluate, configure);
    if (NodeRecord* user = NodeRecord::alive(this)) connect(*user, checked(*user, index), node, evaluate, configure);
}

ApiNode* ApiNode::inputNode(PinId id) const {
    const NodeRecord* node = NodeRecord::of(this);
    const auto index = node == nullptr ? std::nullopt : pinIndex(*node, id);
    const NodeRecord* input = index ? Engine::follow(node->pins[*index].node) : nullptr;
    return input == nullptr ? nullptr : input->node();
}

ApiNode* ApiNode::connectedNode(PinId id) const {
    const NodeRecord* node = NodeRecord::of(this);
    return nodeOn(node, node == nullptr ? std::nullopt : pinIndex(*node, id));
}

ApiNode* ApiNode::connectedNodeIx(unsigned index) const {
    const NodeRecord* node = NodeRecord::of(this);
    return nodeOn(node, node == nullptr ? std::nullopt : checked(*node, index));
}

void ApiNode::destinationNodes(ApiNodeArray& nodes, ApiStringArray& pin_names) const {
    nodes.clear();
    pin_names.clear();
    const NodeRecord* node = NodeRecord::of(this);
    if (node == nullptr) return;
    for (const Engine::PinUse& use : node->users) {
        nodes.append(use.user->node());
        pin_names.append(pinName(*use.user, use.pin));
    }
}

void ApiNode::copyFromIx(unsigned index, const ApiItem* item, bool evaluate) {
    OperationLog::record("copyFromIx", this, index, item, evaluate);
    NodeRecord* user = NodeRecord::alive(this);
    NodeRecord* source = nodeOf(item);
    if (user == nullptr || source == nullptr || index >= user->pins.size()) return;
    if (!Catalog::fits(source->type->row->output, pinEntry(*user, index).row->kind)) return;
    Edit edit;
    copyOntoPin(edit, *source, *user, index);
    if (evaluate) edit.evaluate(*user);
    edit.finish();
}

void ApiNode::configureEmptyPins() {
    OperationLog::record("configureEmptyPins", this);
    NodeRecord* node = NodeRecord::alive(this);
    if (node == nullptr) return;
    Edit edit;
    edit.configure(*node, true);
    edit.finish();
}

}  // namespace Velmar
