#include "engine/text/draft_wiring.h"

#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"

#include <algorithm>
#include <numeric>

namespace Velmar::Engine {
namespace {

constexpr std::size_t nothing = static_cast<std::size_t>(-1);

const Value* valueOf(const NodeDraft& node, AttributeId id) {
    for (const auto& [index, value] : node.values) {
        if (node.type->row->attributes[index].id == id) return &value;
    }
    return nullptr;
}

unsigned countedPins(const NodeDraft& node) {
    const Value* count = valueOf(node, ATTR_PIN_COUNT);
    return count == nullptr ? 0U : static_cast<unsigned>(std::max(0, std::get<int>(*count)));
}

unsigned namedPins(const NodeDraft* geometry) {
    const Value* names = geometry == nullptr ? nullptr : valueOf(*geometry, ATTR_MATERIAL_NAMES);
    const auto* texts = names == nullptr ? nullptr : std::get_if<SharedTexts>(names);
    return texts == nullptr ? 0U : static_cast<unsigned>((*texts)->texts.size());
}

}  // namespace

// Takes away, time and again, a node all of whose inputs are gone (Kahn 1962).
void orderNodes(SceneDraft& draft) {
    // List the users of each node, one list behind the other, and count the inputs of each user.
    const std::size_t count = draft.nodes.size();
    std::vector<std::size_t> first_user(count + 1, 0);
    std::vector<std::size_t> waits_for(count, 0);
    for (const WireDraft& wire : draft.wires) {
        ++first_user[wire.node + 1];
        ++waits_for[wire.user];
    }
    std::partial_sum(first_user.begin(), first_user.end(), first_user.begin());
    std::vector<std::size_t> users(draft.wires.size());
    std::vector<std::size_t> next(first_user.begin(), first_user.end() - 1);
    for (const WireDraft& wire : draft.wires) users[next[wire.node]++] = wire.user;

    // Take away what waits for nothing.
    draft.order.clear();
    draft.order.reserve(count);
    for (std::size_t node = 0; node < count; ++node) {
        if (waits_for[node] == 0) draft.order.push_back(node);
    }
    for (std::size_t i = 0; i < draft.order.size(); ++i) {
        const std::size_t node = draft.order[i];
        for (std::size_t use = first_user[node]; use < first_user[node + 1]; ++use) {
            if (--waits_for[users[use]] == 0) draft.order.push_back(users[use]);
        }
    }
    if (draft.order.size() == count) return;
    const auto stuck = std::ranges::find_if(waits_for, [](std::size_t inputs) { return inputs > 0; });
    throw Refusal("nodes that depend on each other in a circle",
                  draft.nodes[static_cast<std::size_t>(stuck - waits_for.begin())].offset);
}

void countPins(SceneDraft& draft, std::size_t most) {
    // Note what stands on each first pin, and the last pin of each node that holds something.
    std::vector<std::size_t> on_first_pin(draft.nodes.size(), nothing);
    for (const WireDraft& wire : draft.wires) {
        NodeDraft& user = draft.nodes[wire.user];
        user.pin_count = std::max(user.pin_count, wire.pin + 1);
        if (wire.pin == 0) on_first_pin[wire.user] = wire.node;
    }

    // Follow links, inputs first, so that each step looks back at one that is known.
    std::vector<std::size_t> stands_for(draft.nodes.size(), nothing);
    std::size_t total = 0;
    for (const std::size_t index : draft.order) {
        NodeDraft& node = draft.nodes[index];
        const std::size_t input = on_first_pin[index];
        const std::size_t behind = input == nothing ? nothing : stands_for[input];
        stands_for[index] = Catalog::isLink(node.type->row->type) ? behind : index;

        unsigned dynamic = 0;
        if (node.type->row->dynamic_pins == DynamicPins::CountedByAttribute) dynamic = countedPins(node);
        if (node.type->row->dynamic_pins == DynamicPins::NamedByGeometry) {
            dynamic = namedPins(behind == nothing ? nullptr : &draft.nodes[behind]);
        }
        const auto fixed = static_cast<unsigned>(node.type->pins.size());
        dynamic = std::max(std::min(dynamic, SceneFormat::kMostSlots), std::max(node.pin_count, fixed) - fixed);
        node.pin_count = fixed + dynamic;
        total += dynamic;
        if (dynamic > SceneFormat::kMostSlots || total > most)
            throw Refusal("more pins than a scene can have", node.offset);
    }
}

}  // namespace Velmar::Engine
