// Graphs, as the SDK knows them. Writing graphs to text and reading them, and the layout of a graph, stand elsewhere.
#include "engine/graph/copy_tree.h"
#include "engine/graph/operation_log.h"

#include <velmar/graph.h>

#include <algorithm>
#include <limits>

namespace Velmar {

using Engine::Edit;
using Engine::GraphRecord;
using Engine::NodeRecord;
using Engine::OperationLog;
using Engine::World;

namespace {

// Calls `visit` for each node of the graph, and with `recurse` for those of the graphs inside it at their place.
template <typename Visit>
void forEachNode(const GraphRecord& top, bool recurse, Visit visit) {
    std::vector<const ItemRecord*> open;
    const auto openAll = [&open](const GraphRecord& graph) {
        for (const ItemRecord* item = graph.last; item != nullptr; item = item->previous) open.push_back(item);
    };
    openAll(top);
    while (!open.empty()) {
        const ItemRecord* item = open.back();
        open.pop_back();
        if (item->isNode()) {
            if (!visit(static_cast<const NodeRecord&>(*item))) return;
        } else if (recurse) {
            openAll(static_cast<const GraphRecord&>(*item));
        }
    }
}

// The middle of the box around the places of a graph's items; the origin for an empty graph.
Vec2<float> middleOf(const GraphRecord& graph) {
    if (graph.first == nullptr) return {};
    constexpr float most = std::numeric_limits<float>::max();
    Vec2<float> low{most, most};
    Vec2<float> high{-most, -most};
    for (const ItemRecord* item = graph.first; item != nullptr; item = item->next) {
        low = {std::min(low.x, item->position.x), std::min(low.y, item->position.y)};
        high = {std::max(high.x, item->position.x), std::max(high.y, item->position.y)};
    }
    return {low.x + (high.x - low.x) / 2.0F, low.y + (high.y - low.y) / 2.0F};
}

// Moves the items of a graph out into its owner, at the places at which they were seen, and ends the graph.
void dissolve(Edit& edit, GraphRecord& graph, std::vector<ApiItem*>& out) {
    GraphRecord& owner = *graph.owner;
    while (graph.first != nullptr) {
        ItemRecord& item = *graph.first;
        edit.changeOwner(item, owner);
        edit.move(item, {item.position.x + graph.position.x, item.position.y + graph.position.y});
        out.push_back(item.handle);
    }
    edit.destroy(graph);
}

}  // namespace

ApiNodeGraph* ApiNodeGraph::create(NodeGraphType type, ApiNodeGraph* owner) {
    OperationLog::record("createGraph", type, owner);
    GraphRecord* record = GraphRecord::alive(owner);
    if (record == nullptr || type != GRAPH_STANDARD) return nullptr;
    Edit edit;
    ApiNodeGraph* made = edit.addGraph(ItemRecord::Kind::Graph, record).graph();
    edit.finish();
    return made;
}

NodeGraphType ApiNodeGraph::type() const {
    const ItemRecord* record = ItemRecord::of(this);
    if (record == nullptr) return GRAPH_UNKNOWN;
    return record->kind == ItemRecord::Kind::RootGraph ? GRAPH_ROOT : GRAPH_STANDARD;
}

void ApiNodeGraph::clear() {
    OperationLog::record("clear", this);
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.clear(*record);
    edit.finish();
}

ApiItem* ApiNodeGraph::copyItemTree(const ApiItem* item) {
    OperationLog::record("copyItemTree", this, item);
    GraphRecord* record = GraphRecord::alive(this);
    ItemRecord* source = ItemRecord::alive(item);
    if (record == nullptr || source == nullptr) return nullptr;
    Edit edit;
    ApiItem* copy = copyTree(edit, *source, *record).handle;
    edit.finish();
    return copy;
}

ApiNode* ApiNodeGraph::findFirstNode(NodeType type) const {
    const GraphRecord* record = GraphRecord::of(this);
    ApiNode* found = nullptr;
    if (record == nullptr) return found;
    forEachNode(*record, false, [&found, type](const NodeRecord& node) {
        if (node.type->row->type == type) found = node.node();
        return found == nullptr;
    });
    return found;
}

void ApiNodeGraph::findNodes(NodeType type, ApiNodeArray& nodes, bool recurse) const {
    nodes.clear();
    const GraphRecord* record = GraphRecord::of(this);
    if (record == nullptr) return;
    forEachNode(*record, recurse, [&nodes, type](const NodeRecord& node) {
        if (node.type->row->type == type) nodes.append(node.node());
        return true;
    });
}

void ApiNodeGraph::getOwnedItems(ApiItemArray& items) const {
    items.clear();
    const GraphRecord* record = GraphRecord::of(this);
    if (record == nullptr) return;
    for (const ItemRecord* item = record->first; item != nullptr; item = item->next) items.append(item->handle);
}

void ApiNodeGraph::recenter(Vec2<float> offset) {
    OperationLog::record("recenter", this, offset);
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr) return;
    const Vec2<float> middle = middleOf(*record);
    Edit edit;
    edit.scrollTo(*record, {offset.x - middle.x, offset.y - middle.y});
    edit.finish();
}

void ApiNodeGraph::ungroup(bool recurse, ApiItemArray* items) {
    OperationLog::record("ungroup", this, recurse);
    if (items != nullptr) items->clear();
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr || record->owner == nullptr) return;

    // What comes out of a graph may be a graph to dissolve in its turn; it stands behind what came out before.
    std::vector<ApiItem*> out;
    Edit edit;
    dissolve(edit, *record, out);
    for (std::size_t i = 0; recurse && i < out.size();) {
        GraphRecord* inner = GraphRecord::alive(out[i]);
        if (inner == nullptr) {
            ++i;
            continue;
        }
        out.erase(out.begin() + static_cast<std::ptrdiff_t>(i));
        dissolve(edit, *inner, out);
    }
    edit.finish();
    if (items == nullptr) return;
    for (ApiItem* item : out) items->append(item);
}

ApiRootNodeGraph* ApiRootNodeGraph::create(unsigned version) {
    OperationLog::record("createRootGraph", version);
    if (World::current() == nullptr) return nullptr;
    Edit edit;
    GraphRecord& graph = edit.addGraph(ItemRecord::Kind::RootGraph, nullptr);
    graph.version = version;
    edit.finish();
    return static_cast<ApiRootNodeGraph*>(graph.handle);
}

}  // namespace Velmar
