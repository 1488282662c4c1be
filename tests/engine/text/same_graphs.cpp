#include "engine/text/value_text.h"
#include "text_test.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace Velmar::Engine {
namespace {

class Comparison {
public:
    Comparison(const GraphRecord& a, const GraphRecord& b) {
        if (&a != &b) graphs_.emplace_back(&a, &b);
    }

    testing::AssertionResult result() {
        for (std::size_t i = 0; i < graphs_.size() && difference_.empty(); ++i)
            pairItems(*graphs_[i].first, *graphs_[i].second);
        for (std::size_t i = 0; i < nodes_.size() && difference_.empty(); ++i)
            pairInternals(*nodes_[i].first, *nodes_[i].second);
        for (std::size_t i = 0; i < nodes_.size() && difference_.empty(); ++i)
            compareWiring(*nodes_[i].first, *nodes_[i].second);
        if (difference_.empty()) return testing::AssertionSuccess();
        return testing::AssertionFailure() << difference_;
    }

private:
    void differ(const ItemRecord& item, const std::string& what) {
        if (difference_.empty()) difference_ = "\"" + item.name + "\": " + what;
    }

    void pairItems(const GraphRecord& a, const GraphRecord& b) {
        const ItemRecord* in_b = b.first;
        for (const ItemRecord* in_a = a.first; in_a != nullptr; in_a = in_a->next, in_b = in_b->next) {
            if (in_b == nullptr) return differ(*in_a, "is missing");
            if (in_a->kind != in_b->kind) return differ(*in_a, "became another kind of item");
            comparePlaces(*in_a, *in_b);
            if (in_a->isNode()) {
                pairNodes(static_cast<const NodeRecord&>(*in_a), static_cast<const NodeRecord&>(*in_b));
            } else {
                const auto& graph_a = static_cast<const GraphRecord&>(*in_a);
                const auto& graph_b = static_cast<const GraphRecord&>(*in_b);
                if (!same(graph_a.view_offset, graph_b.view_offset)) differ(*in_a, "has another view");
                graphs_.emplace_back(&graph_a, &graph_b);
            }
        }
        if (in_b != nullptr) differ(*in_b, "is too many");
    }

    void comparePlaces(const ItemRecord& a, const ItemRecord& b) {
        if (a.name != b.name) differ(a, "is called \"" + b.name + "\"");
        if (!same(a.position, b.position)) differ(a, "stands elsewhere");
        if (a.ui_flags != b.ui_flags) differ(a, "has other flags");
    }

    void pairNodes(const NodeRecord& a, const NodeRecord& b) {
        if (a.type != b.type) return differ(a, std::string("is a ") + b.type->row->type_name);
        if (a.pin_owned != b.pin_owned) differ(a, "has another kind of owner");
        if (a.pins.size() != b.pins.size()) return differ(a, "has another number of pins");
        for (unsigned i = 0; i < a.attributes.size(); ++i) {
            const bool equal = sameValue(a.attributes[i].value, b.attributes[i].value);
            if (!equal) differ(a, std::string("differs in ") + a.type->attributes[i].name);
        }
        nodes_.emplace_back(&a, &b);
        partner_.emplace(&a, &b);
    }

    void pairInternals(const NodeRecord& a, const NodeRecord& b) {
        for (std::size_t pin = 0; pin < a.pins.size(); ++pin) {
            const NodeRecord* in_a = a.pins[pin].node;
            const NodeRecord* in_b = b.pins[pin].node;
            if ((in_a == nullptr) != (in_b == nullptr)) return differ(a, "has other filled pins");
            if (in_a == nullptr || !in_a->pin_owned) continue;
            comparePlaces(*in_a, *in_b);
            pairNodes(*in_a, *in_b);
        }
    }

    void compareWiring(const NodeRecord& a, const NodeRecord& b) {
        for (std::size_t pin = 0; pin < a.pins.size(); ++pin) {
            if (a.pins[pin].node == nullptr) continue;
            const auto partner = partner_.find(a.pins[pin].node);
            if (partner == partner_.end() || partner->second != b.pins[pin].node) differ(a, "is wired otherwise");
        }
    }

    std::vector<std::pair<const GraphRecord*, const GraphRecord*>> graphs_;
    std::vector<std::pair<const NodeRecord*, const NodeRecord*>> nodes_;
    std::unordered_map<const NodeRecord*, const NodeRecord*> partner_;
    std::string difference_;
};

}  // namespace

testing::AssertionResult sameGraphs(const ApiNodeGraph* a, const ApiNodeGraph* b) {
    const GraphRecord* record_a = GraphRecord::of(a);
    const GraphRecord* record_b = GraphRecord::of(b);
    if (record_a == nullptr || record_b == nullptr) return testing::AssertionFailure() << "one is no graph";
    return Comparison(*record_a, *record_b).result();
}

}  // namespace Velmar::Engine
