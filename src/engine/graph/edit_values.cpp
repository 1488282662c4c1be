// Attributes, and what follows from a change of value.
#include "engine/graph/computed_value.h"
#include "engine/graph/edit.h"
#include "engine/graph/pin_values.h"
#include "engine/graph/transform_coupling.h"

#include <unordered_set>

namespace Velmar::Engine {
namespace {

bool sameNumbers(const Value& a, const Value& b) {
    return std::visit(
        [&b](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_trivially_copyable_v<T>) return same(held, std::get<T>(b));
            return false;
        },
        a);
}

}  // namespace

bool Edit::writeTexts(NodeRecord& node, unsigned index, const char* const* values, std::size_t count) {
    auto* held = std::get_if<SharedTexts>(&node.attributes[index].value);
    if (held == nullptr) return false;
    const bool changed = !same(*held, values, count);
    if (changed) *held = makeTexts(values, count);
    attributeWritten(node, index, changed);
    return true;
}

void Edit::attributeWritten(NodeRecord& node, unsigned index, bool changed) {
    const bool demanded = node.type->row->attributes[index].is_trigger &&
                          std::get_if<bool>(&node.attributes[index].value) != nullptr &&
                          !std::get<bool>(node.attributes[index].value);
    if (!changed && !demanded) return;
    markPending(node);
    attributeListed(node, index);
    if (changed) valueChanged(node, node.pin_owned ? node.users.front().pin : 0);
}

void Edit::markPending(NodeRecord& node) {
    node.pending = true;
    if (!std::exchange(node.listed_pending, true)) world_.pending.push_back(node.handle);
}

// After a new attribute an evaluation counts anew.
void Edit::attributeListed(NodeRecord& node, unsigned index) {
    AttributeSlot& slot = node.attributes[index];
    if (std::exchange(slot.logged, world_.round) == world_.round) return;
    node.logged_evaluated = 0;
    const AttributeId id = node.type->row->attributes[index].id;
    ChangeLog::append({Change::Kind::Attribute, node.handle, id});
}

void Edit::evaluated(NodeRecord& node) {
    if (std::exchange(node.logged_evaluated, world_.round) == world_.round) return;
    ChangeLog::append({Change::Kind::Evaluated, node.handle});
}

// Tells of a changed value of `node`, and of all nodes whose value it is a part of: users hear of it with the pin on
// which it reaches them, and those that pass a value on themselves tell theirs.
void Edit::valueChanged(NodeRecord& node, unsigned pin) {
    emit(Event::ITEM_VALUE_CHANGED, node, pin);
    if (!node.passesValue()) return;
    std::unordered_set<const NodeRecord*> told{&node};
    std::vector<NodeRecord*> open{&node};
    while (!open.empty()) {
        NodeRecord& source = *open.back();
        open.pop_back();
        for (const PinUse& use : source.users) {
            if (use.user->dying) continue;
            recompute(*use.user);
            emit(Event::ITEM_VALUE_CHANGED, *use.user, use.pin);
            if (use.user->passesValue() && told.insert(use.user).second) open.push_back(use.user);
        }
    }
}

// Works the value of a node out anew that follows from its pins; true when it became another.
bool Edit::recompute(NodeRecord& node) {
    if (!node.isComputed()) return false;
    Value& held = node.attributes[0].value;
    Value value = computedValue(node);
    if (sameNumbers(held, value)) return false;
    held = std::move(value);
    attributeListed(node, 0);
    evaluated(node);
    return true;
}

void Edit::coupleTransform(NodeRecord& node, unsigned index, Vec3<float> old_scale) {
    const auto matrix_index = attributeIndex(node, ATTR_TRANSFORM);
    const auto scale_index = attributeIndex(node, ATTR_SCALE);
    const auto translation_index = attributeIndex(node, ATTR_TRANSLATION);
    if (!matrix_index || !scale_index || !translation_index) return;
    auto& matrix = std::get<Matrix<float>>(node.attributes[*matrix_index].value);
    auto& scale = std::get<Vec3<float>>(node.attributes[*scale_index].value);
    auto& translation = std::get<Vec3<float>>(node.attributes[*translation_index].value);
    if (index == *matrix_index) {
        scale = scaleOf(matrix);
        translation = translationOf(matrix);
    } else if (index == *scale_index) {
        matrix = withScale(matrix, old_scale, scale);
    } else {
        matrix = withTranslation(matrix, translation);
    }
    attributeListed(node, *matrix_index);
    attributeListed(node, *scale_index);
    attributeListed(node, *translation_index);
}

NodeRecord& Edit::addCopy(const NodeRecord& source, GraphRecord* owner) {
    NodeRecord& copy = world_.newNode(*source.type);
    copy.name = source.name;
    copy.position = source.position;
    copy.ui_flags = source.ui_flags;
    for (std::size_t i = 0; i < source.attributes.size(); ++i) {
        copy.attributes[i].value = source.attributes[i].value;
    }
    copy.pins.resize(source.pins.size());
    copy.pin_names = source.pin_names;
    if (source.pending) markPending(copy);
    enter(copy, owner);
    if (owner != nullptr) announce(copy);
    return copy;
}

void Edit::wireCopy(NodeRecord& user, unsigned pin, NodeRecord& node, bool owned) {
    node.pin_owned = owned;
    attach(user, pin, node);
    if (owned) announce(node);
}

}  // namespace Velmar::Engine
