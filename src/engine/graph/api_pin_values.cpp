// Values of pins, as the SDK reads and writes them.
#include "engine/graph/edit.h"
#include "engine/graph/operation_log.h"
#include "engine/graph/pin_values.h"

#include <velmar/node.h>

namespace Velmar {

using Engine::Catalog;
using Engine::Edit;
using Engine::NodeRecord;
using Engine::OperationLog;
using Engine::pinIndex;
using Engine::PinRow;
using Engine::TypeEntry;
using Engine::ValueSource;

namespace {

template <typename T>
T readIx(const ApiNode* self, unsigned index) {
    const NodeRecord* node = NodeRecord::of(self);
    return node != nullptr && index < node->pins.size() ? Engine::pinValue<T>(*node, index) : T();
}

template <typename T>
T read(const ApiNode* self, PinId id) {
    const NodeRecord* node = NodeRecord::of(self);
    const auto index = node == nullptr ? std::nullopt : pinIndex(*node, id);
    return index ? Engine::pinValue<T>(*node, *index) : T();
}

template <typename T>
bool takes(const NodeRecord& node) {
    return node.type->row->value == ValueSource::Attribute && std::holds_alternative<T>(node.attributes[0].value);
}

// The type of the node that a pin is given for a value: its default node when that can hold it.
template <typename T>
const TypeEntry* holderFor(const PinRow& row) {
    const TypeEntry* usual = Catalog::find(row.default_node);
    if (usual != nullptr && usual->row->value == ValueSource::Attribute) return usual;
    return Catalog::find(Catalog::valueNode(row.kind, row.dimension));
}

template <typename T>
void give(Edit& edit, NodeRecord& node, unsigned pin, const T& value, bool evaluate) {
    NodeRecord* holder = Engine::follow(node.pins[pin].node);
    if (holder == nullptr || !takes<T>(*holder)) {
        holder = &edit.addInternal(node, pin, *holderFor<T>(*pinEntry(node, pin).row));
    }
    edit.write<T>(*holder, 0, value);
    if (!evaluate) return;
    edit.evaluate(*holder);
    edit.evaluate(node);
}

template <typename T>
void write(ApiNode* self, PinId id, const T& value, bool evaluate) {
    OperationLog::record("setPinValue", self, id, value, evaluate);
    NodeRecord* node = NodeRecord::alive(self);
    const auto pin = node == nullptr ? std::nullopt : pinIndex(*node, id);
    if (!pin) return;
    const PinRow& row = *pinEntry(*node, *pin).row;
    Edit edit;
    if (Engine::carries<T>(row)) {
        give<T>(edit, *node, *pin, value, evaluate);
    } else if constexpr (std::is_same_v<T, int>) {
        if (Engine::carries<float>(row)) give<float>(edit, *node, *pin, static_cast<float>(value), evaluate);
    }
    edit.finish();
}

}  // namespace

bool ApiNode::getPinBool(PinId id) const {
    return read<bool>(this, id);
}
int ApiNode::getPinInt(PinId id) const {
    return read<int>(this, id);
}
Vec2<int> ApiNode::getPinInt2(PinId id) const {
    return read<Vec2<int>>(this, id);
}
float ApiNode::getPinFloat(PinId id) const {
    return read<float>(this, id);
}
Vec3<float> ApiNode::getPinFloat3(PinId id) const {
    return read<Vec3<float>>(this, id);
}
Matrix<float> ApiNode::getPinMatrix(PinId id) const {
    return read<Matrix<float>>(this, id);
}

bool ApiNode::getPinBoolIx(unsigned index) const {
    return readIx<bool>(this, index);
}
int ApiNode::getPinIntIx(unsigned index) const {
    return readIx<int>(this, index);
}
Vec2<int> ApiNode::getPinInt2Ix(unsigned index) const {
    return readIx<Vec2<int>>(this, index);
}
Vec3<int> ApiNode::getPinInt3Ix(unsigned index) const {
    return readIx<Vec3<int>>(this, index);
}
float ApiNode::getPinFloatIx(unsigned index) const {
    return readIx<float>(this, index);
}
Vec2<float> ApiNode::getPinFloat2Ix(unsigned index) const {
    return readIx<Vec2<float>>(this, index);
}
Vec3<float> ApiNode::getPinFloat3Ix(unsigned index) const {
    return readIx<Vec3<float>>(this, index);
}
Matrix<float> ApiNode::getPinMatrixIx(unsigned index) const {
    return readIx<Matrix<float>>(this, index);
}

const char* ApiNode::getPinStringIx(unsigned index) const {
    const NodeRecord* node = NodeRecord::of(this);
    return node != nullptr && index < node->pins.size() ? Engine::pinText(*node, index) : "";
}

void ApiNode::setPinValue(PinId id, bool value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, int value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, float value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, Vec2<int> value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, Vec2<float> value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, Vec3<float> value, bool evaluate) {
    write(this, id, value, evaluate);
}
void ApiNode::setPinValue(PinId id, const Matrix<float>& value, bool evaluate) {
    write(this, id, value, evaluate);
}

}  // namespace Velmar
