// Pins: what stands on them, and how many there are.
#include "engine/catalog/engine_log.h"
#include "engine/graph/edit.h"
#include "engine/graph/pin_values.h"

#include <algorithm>
#include <unordered_set>

namespace Velmar::Engine {
namespace {

// More pins than any scene has use for; a count beyond it is taken for a mistake.
constexpr int max_counted_pins = 1 << 22;

// True when `user` is among what `node` depends on, or is `node`.
bool dependsOn(NodeRecord& node, const NodeRecord& user) {
    if (&node == &user) return true;
    if (user.users.empty()) return false;
    std::unordered_set<const NodeRecord*> seen{&node};
    std::vector<const NodeRecord*> open{&node};
    while (!open.empty()) {
        const NodeRecord& next = *open.back();
        open.pop_back();
        for (const PinSlot& slot : next.pins) {
            if (slot.node == &user) return true;
            if (slot.node != nullptr && seen.insert(slot.node).second) open.push_back(slot.node);
        }
    }
    return false;
}

void logCycle(const NodeRecord& user, unsigned pin, const NodeRecord& node) {
    logLine("connecting \"" + node.name + "\" to the pin " + pinName(user, pin) + " of \"" + user.name +
            "\" would close a cycle; it stays as it was");
}

Value pinDefault(const NodeRecord& node, unsigned pin, const Value& fallback) {
    const PinRow& row = *pinEntry(node, pin).row;
    const auto& i = row.int_defaults;
    const auto& f = row.float_defaults;
    if (std::holds_alternative<bool>(fallback)) return row.bool_default;
    if (std::holds_alternative<int>(fallback)) return int{i[0]};
    if (std::holds_alternative<Vec2<int>>(fallback)) return Vec2<int>{i[0], i[1]};
    if (std::holds_alternative<Vec3<int>>(fallback)) return Vec3<int>{i[0], i[1], i[2]};
    if (std::holds_alternative<float>(fallback)) return f[0];
    if (std::holds_alternative<Vec2<float>>(fallback)) return Vec2<float>{f[0], f[1]};
    if (std::holds_alternative<Vec3<float>>(fallback)) return Vec3<float>{f[0], f[1], f[2]};
    if (std::holds_alternative<std::string>(fallback)) return std::string(row.string_default);
    return fallback;
}

SharedTexts materialNames(const NodeRecord& map) {
    const NodeRecord* mesh = follow(map.pins[0].node);
    if (mesh == nullptr) return nullptr;
    const auto index = attributeIndex(*mesh, ATTR_MATERIAL_NAMES);
    if (!index) return nullptr;
    const auto* names = std::get_if<SharedTexts>(&mesh->attributes[*index].value);
    return names == nullptr ? nullptr : *names;
}

}  // namespace

void Edit::attach(NodeRecord& user, unsigned pin, NodeRecord& node) {
    PinSlot& slot = user.pins[pin];
    slot.node = &node;
    slot.use = node.users.insert(node.users.end(), {&user, pin});
}

void Edit::detach(NodeRecord& user, unsigned pin) {
    PinSlot& slot = user.pins[pin];
    if (slot.node == nullptr) return;
    slot.node->users.erase(slot.use);
    slot.node = nullptr;
}

// Empties a pin before another node comes; an internal node ends.
void Edit::displace(NodeRecord& user, unsigned pin) {
    NodeRecord* node = user.pins[pin].node;
    if (node != nullptr && node->pin_owned) {
        doom(*node, Users::NotTold);
    } else {
        detach(user, pin);
    }
}

void Edit::connectionChanged(NodeRecord& user, unsigned pin) {
    if (user.dying) return;
    PinSlot& slot = user.pins[pin];
    if (std::exchange(slot.logged, world_.round) != world_.round) {
        ChangeLog::append({Change::Kind::Connection, user.handle, static_cast<std::int32_t>(pin)});
    }
    emit(Event::CONNECTION_CHANGED, user, pin);
    if (user.isLink() || recompute(user)) valueChanged(user, pin);
}

void Edit::connect(NodeRecord& user, unsigned pin, NodeRecord* node) {
    PinSlot& slot = user.pins[pin];
    if (slot.node == node || user.dying) return;
    if (node != nullptr) {
        if (node->dying || node->pin_owned) return;
        if (dependsOn(*node, user)) return logCycle(user, pin, *node);
    }

    displace(user, pin);

    // Put the other one on.
    if (node != nullptr) {
        attach(user, pin, *node);
        emit(Event::DESTINATION_ADDED, *node, 0);
    }
    connectionChanged(user, pin);
}

NodeRecord& Edit::addInternal(NodeRecord& user, unsigned pin, const TypeEntry& type) {
    NodeRecord& node = world_.newNode(type);
    if (type.row->value == ValueSource::Attribute) {
        node.attributes[0].value = pinDefault(user, pin, node.attributes[0].value);
    }
    adopt(user, pin, node);
    return node;
}

void Edit::adopt(NodeRecord& user, unsigned pin, NodeRecord& node) {
    displace(user, pin);
    node.pin_owned = true;
    attach(user, pin, node);
    announce(node);
    connectionChanged(user, pin);
}

void Edit::configure(NodeRecord& node, bool on_demand) {
    for (unsigned pin = 0; pin < node.fixedPins(); ++pin) {
        const PinRow& row = *node.type->pins[pin]->row;
        const bool wanted = row.filled == Filled::WhenCreated || (on_demand && row.filled == Filled::OnDemand);
        if (!wanted || node.pins[pin].node != nullptr) continue;
        if (const TypeEntry* type = Catalog::find(row.default_node)) {
            configure(addInternal(node, pin, *type), false);
        }
    }
}

void Edit::evaluate(NodeRecord& node) {
    if (node.dying) return;
    if (std::exchange(node.pending, false)) evaluated(node);
    updateDynamicPins(node);
}

void Edit::updateDynamicPins(NodeRecord& node) {
    switch (node.type->row->dynamic_pins) {
        case DynamicPins::None:
            return;
        case DynamicPins::CountedByAttribute: {
            const auto index = attributeIndex(node, ATTR_PIN_COUNT);
            const int count = std::get<int>(node.attributes[*index].value);
            return resizePins(node, static_cast<unsigned>(std::clamp(count, 0, max_counted_pins)), nullptr);
        }
        case DynamicPins::NamedByGeometry: {
            const SharedTexts names = materialNames(node);
            const auto count = static_cast<unsigned>(names == nullptr ? 0 : names->texts.size());
            return resizePins(node, node.fixedPins() + count, names);
        }
    }
}

void Edit::resizePins(NodeRecord& node, unsigned count, SharedTexts names) {
    const bool renamed = (names == nullptr) != (node.pin_names == nullptr) ||
                         (names != node.pin_names && names->texts != node.pin_names->texts);
    const bool resized = count != node.pins.size();
    if (!renamed && !resized) return;
    for (unsigned pin = count; pin < node.pins.size(); ++pin) displace(node, pin);
    node.pins.resize(count);
    node.pin_names = std::move(names);
    if (std::exchange(node.logged_pins, world_.round) != world_.round) {
        ChangeLog::append({Change::Kind::Pins, node.handle});
    }
    emit(Event::PINS_CHANGED, node, 0);
}

}  // namespace Velmar::Engine
