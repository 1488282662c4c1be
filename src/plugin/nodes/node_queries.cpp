// Questions about nodes and graphs that change nothing.
#include <json/value.h>
#include <velmar/arrays.h>
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>

#include <cstring>
#include <functional>
#include <mutex>
#include <regex>
#include <utility>

#include "plugin/nodes/format.h"
#include "plugin/nodes/node_utils.h"
#include "plugin/utils/debug_log.h"

namespace Velmar {

static_assert(offsetof(ApiNodeInfo, default_name) == 24);

namespace {

bool isStringAttribute(const ApiNode& node, unsigned index, const std::string& name) {
    const AttributeType type = node.attrTypeIx(index);
    const bool is_string = type == ATTR_TYPE_STRING || type == ATTR_TYPE_FILENAME;
    return is_string && name == node.attrNameIx(index);
}

bool isTransformType(NodeType type) {
    return type == NODE_TRANSFORM_2D || type == NODE_TRANSFORM_SCALE || type == NODE_TRANSFORM_3D ||
           type == NODE_TRANSFORM_MATRIX || type == NODE_TRANSFORM_2D_ADVANCED;
}

bool isMaterial(const ApiNode* node) {
    return node != nullptr && NodeUtils::IsMaterialType(node->type());
}

/// The items of the list that are nodes.
std::vector<ApiNode*> nodesOf(const ApiItemArray& items) {
    std::vector<ApiNode*> nodes;
    for (std::size_t i = 0; i < items.size(); ++i) {
        ApiItem* const item = items.get(i);
        if (ApiNode* node = item == nullptr ? nullptr : item->toNode()) nodes.push_back(node);
    }
    return nodes;
}

/// The number by which items of a kind sort.
int typeNumber(const ApiItem& item) {
    if (const ApiNodeGraph* graph = item.toGraph()) return graph->type();
    const ApiNode* const node = item.toNode();
    return node == nullptr ? 0 : node->type();
}

void logDestruction(const ApiChangeManager::ChangeEvent& event, void*) {
    DebugLog("Destroying", event.changed_item);
}

}  // namespace

// --- Walks down the pins ---

ApiNode* NodeUtils::FindNode(ApiNode*, const std::string&) {
    return nullptr;
}

std::string NodeUtils::FindStringParam(ApiNode* node, const std::string& name) {
    if (node == nullptr) return {};
    for (unsigned i = 0; i < node->attrCount(); ++i) {
        if (!isStringAttribute(*node, i, name)) continue;
        std::string value = node->getStringIx(i);
        if (!value.empty()) return value;
    }
    for (unsigned i = 0; i < node->pinCount(); ++i) {
        std::string value = FindStringParam(node->connectedNodeIx(i), name);
        if (!value.empty()) return value;
    }
    return {};
}

ApiNode* NodeUtils::FindStringParamOwner(ApiNode* node, const std::string& name) {
    if (node == nullptr) return nullptr;
    for (unsigned i = 0; i < node->attrCount(); ++i) {
        if (isStringAttribute(*node, i, name)) return node;
    }
    for (unsigned i = 0; i < node->pinCount(); ++i) {
        if (ApiNode* owner = FindStringParamOwner(node->connectedNodeIx(i), name)) return owner;
    }
    return nullptr;
}

void NodeUtils::FindAllPinNodes(ApiNode* node, const std::string& pin_name, std::vector<ApiNode*>& out) {
    if (node == nullptr) return;
    for (unsigned i = 0; i < node->pinCount(); ++i) {
        ApiNode* const connected = node->connectedNodeIx(i);
        if (connected == nullptr) continue;
        if (pin_name == node->pinNameIx(i)) out.push_back(connected);
        FindAllPinNodes(connected, pin_name, out);
    }
}

void NodeUtils::FindAllTransformNodes(ApiNode* node, std::map<ApiNode*, bool>& out) {
    if (node == nullptr) return;
    if (isTransformType(node->type())) out[node] = true;
    for (unsigned i = 0; i < node->pinCount(); ++i) FindAllTransformNodes(node->connectedNodeIx(i), out);
}

// --- Neighbours ---

std::set<ApiNode*> NodeUtils::AllInputNodes(ApiNode* node) {
    std::set<ApiNode*> inputs;
    if (node == nullptr) return inputs;
    for (unsigned i = 0; i < node->pinCount(); ++i) inputs.insert(node->connectedNodeIx(i));
    return inputs;
}

std::set<ApiNode*> NodeUtils::AllOutputNodes(ApiNode* node) {
    if (node == nullptr) return {};
    ApiNodeArray users;
    ApiStringArray pin_names;
    node->destinationNodes(users, pin_names);
    return {users.items(), users.items() + users.size()};
}

std::size_t NodeUtils::CountOutputs(const ApiNode* node) {
    if (node == nullptr) return 0;
    ApiNodeArray users;
    ApiStringArray pin_names;
    node->destinationNodes(users, pin_names);
    return users.size();
}

bool NodeUtils::IsOrphanNode(const ApiNode* node) {
    return CountOutputs(node) == 0;
}

unsigned NodeUtils::VisibleInputs(const ApiNode* node) {
    if (node == nullptr) return 0;
    unsigned count = 0;
    for (unsigned i = 0; i < node->pinCount(); ++i) {
        const ApiNode* const connected = node->connectedNodeIx(i);
        if (connected != nullptr && connected->graphOwner() != nullptr) ++count;
    }
    return count;
}

// --- Names and order ---

bool NodeUtils::HasBeenNamed(const ApiNode* node) {
    if (node == nullptr) return false;
    const char* const default_name = node->info().default_name;
    return std::strcmp(node->name(), default_name == nullptr ? "" : default_name) != 0;
}

bool NodeUtils::IsSandbox(const ApiItem* item) {
    if (item == nullptr || !item->isGraph()) return false;
    static const std::regex pattern("^velmar sandbox", std::regex::ECMAScript | std::regex::icase);
    return std::regex_search(item->name(), pattern);
}

bool NodeUtils::CompareItems(const ApiItem* a, const ApiItem* b) {
    if (a == nullptr || b == nullptr) return a != nullptr;
    if (a->isGraph() != b->isGraph()) return a->isGraph();
    const int type_a = typeNumber(*a);
    const int type_b = typeNumber(*b);
    if (type_a != type_b) return type_a < type_b;
    const int names = std::strcmp(a->name(), b->name());
    return names != 0 ? names < 0 : std::less<>()(a, b);
}

// --- Whole graphs ---

std::set<ApiItem*> NodeUtils::GetOwnedItems(const ApiNodeGraph* graph,
                                            const std::function<bool(const ApiItem*)>& keep) {
    std::set<ApiItem*> kept;
    if (graph == nullptr) return kept;
    ApiItemArray items;
    graph->getOwnedItems(items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (keep(items.get(i))) kept.insert(items.get(i));
    }
    return kept;
}

ApiNode* NodeUtils::FindMainMesh(const ApiItemArray& items) {
    for (const ApiNode* node : nodesOf(items)) {
        if (node->type() != NODE_RENDER_TARGET) continue;
        if (ApiNode* geometry = node->connectedNode(PIN_RENDER_GEOMETRY)) return geometry;
    }
    return nullptr;
}

Json::Value NodeUtils::FindAllMaterials(const ApiItemArray& items) {
    std::set<ApiNode*> materials;
    for (ApiNode* node : nodesOf(items)) {
        if (!isMaterial(node)) continue;
        materials.insert(node);
        for (ApiNode* input : AllInputNodes(node)) {
            if (isMaterial(input)) materials.insert(input);
        }
    }
    Json::Value records;
    for (ApiNode* material : materials) {
        Json::Value record = NodeToStr(material, true);
        if (!record.isNull()) records.append(std::move(record));
    }
    return records;
}

// --- Debugging aid ---

void NodeUtils::WatchForDelete(const ApiItem* item, bool watch) {
    if (item == nullptr) return;
    static std::mutex mutex;
    static ApiChangeManager::Observer observer{logDestruction, nullptr};
    const std::lock_guard<std::mutex> lock(mutex);
    if (watch) {
        ApiChangeManager::observeApiItem(item, observer, ApiChangeManager::ChangeEvent::ITEM_DELETE);
    } else {
        ApiChangeManager::stopObserving(item, observer);
    }
}

}  // namespace Velmar
