#include "engine/text/scene_builder.h"

#include "engine/graph/computed_value.h"
#include "engine/graph/pin_values.h"

namespace Velmar::Engine {
namespace {

// The records are fresh and nobody has been told of them, so their fields are filled as they stand in the text: a scale
// and the matrix that it is coupled to come back bit by bit.
class SceneBuilder {
public:
    SceneBuilder(Edit& edit, SceneDraft& draft, GraphRecord& target) : edit_(edit), draft_(draft) {
        nodes_.resize(draft.nodes.size(), nullptr);
        graphs_.resize(draft.graphs.size(), nullptr);
        graphs_[0] = &target;
    }

    void build() {
        makeItems();
        makeInternalNodes();
        wire([](const NodeRecord& user, unsigned pin) { return pin < user.fixedPins(); });
        makeDynamicPins();
        wire([](const NodeRecord& user, unsigned pin) { return pin >= user.fixedPins(); });
        computeValues();
    }

private:
    void makeItems() {
        for (const ItemDraft& item : draft_.items) {
            GraphRecord& owner = *graphs_[item.owner];
            if (item.is_node) {
                NodeDraft& draft = draft_.nodes[item.index];
                nodes_[item.index] = &fill(edit_.addNode(*draft.type, owner), draft);
            } else {
                GraphDraft& draft = draft_.graphs[item.index];
                GraphRecord& graph = edit_.addGraph(ItemRecord::Kind::Graph, &owner);
                place(graph, draft);
                graph.view_offset = draft.view;
                graphs_[item.index] = &graph;
            }
        }
    }

    void makeInternalNodes() {
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            NodeDraft& draft = draft_.nodes[i];
            if (nodes_[i] == nullptr) nodes_[i] = &fill(World::current()->newNode(*draft.type), draft);
        }
    }

    template <typename Draft>
    static void place(ItemRecord& item, Draft& draft) {
        item.name = std::move(draft.name);
        item.position = draft.position;
        item.ui_flags = draft.flags;
    }

    static NodeRecord& fill(NodeRecord& node, NodeDraft& draft) {
        place(node, draft);
        for (auto& [index, value] : draft.values) node.attributes[index].value = std::move(value);
        return node;
    }

    template <typename Wanted>
    void wire(Wanted wanted) {
        for (const WireDraft& wire : draft_.wires) {
            NodeRecord& user = *nodes_[wire.user];
            if (wanted(user, wire.pin)) edit_.wireCopy(user, wire.pin, *nodes_[wire.node], wire.owned);
        }
    }

    // The fixed pins stand by now, so links lead to the geometry that names the others.
    void makeDynamicPins() {
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            NodeRecord& node = *nodes_[i];
            if (node.type->row->dynamic_pins == DynamicPins::NamedByGeometry) node.pin_names = pinNames(i);
            node.pins.resize(draft_.nodes[i].pin_count);
        }
    }

    // The names that the geometry gives, and empty ones for pins of the text beyond them.
    SharedTexts pinNames(std::size_t index) const {
        const NodeRecord& node = *nodes_[index];
        const std::size_t count = draft_.nodes[index].pin_count - node.fixedPins();
        SharedTexts given;
        if (const NodeRecord* geometry = follow(node.pins[0].node)) {
            if (const auto names = attributeIndex(*geometry, ATTR_MATERIAL_NAMES)) {
                given = std::get<SharedTexts>(geometry->attributes[*names].value);
            }
        }
        const std::size_t known = given == nullptr ? 0 : given->texts.size();
        if (known == count) return given;
        std::vector<const char*> names(count, "");
        for (std::size_t i = 0; i < known; ++i) names[i] = given->pointers[i];
        return makeTexts(names.data(), names.size());
    }

    void computeValues() {
        for (const std::size_t index : draft_.order) {
            NodeRecord& node = *nodes_[index];
            if (node.isComputed()) node.attributes[0].value = computedValue(node);
        }
    }

    Edit& edit_;
    SceneDraft& draft_;
    std::vector<NodeRecord*> nodes_;
    std::vector<GraphRecord*> graphs_;
};

}  // namespace

void buildScene(Edit& edit, SceneDraft& draft, GraphRecord& target) {
    SceneBuilder(edit, draft, target).build();
}

}  // namespace Velmar::Engine
