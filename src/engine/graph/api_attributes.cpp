// Attributes of items, as the SDK reads and writes them.
#include "engine/graph/edit.h"
#include "engine/graph/operation_log.h"
#include "engine/graph/pin_values.h"

#include <velmar/info.h>
#include <velmar/item.h>

#include <cstring>

namespace Velmar {

using Engine::Catalog;
using Engine::Edit;
using Engine::ElementCount;
using Engine::NodeRecord;
using Engine::OperationLog;
using Engine::SharedArray;
using Engine::SharedTexts;
using Engine::Value;

namespace {

const Value* valueAt(const ApiItem* item, unsigned index) {
    const NodeRecord* node = NodeRecord::of(item);
    return node == nullptr || index >= node->attributes.size() ? nullptr : &node->attributes[index].value;
}

const Value* valueOf(const ApiItem* item, AttributeId id) {
    const NodeRecord* node = NodeRecord::of(item);
    if (node == nullptr) return nullptr;
    const auto index = attributeIndex(*node, id);
    return index ? &node->attributes[*index].value : nullptr;
}

template <typename T>
T as(const Value* value) {
    const T* held = value == nullptr ? nullptr : std::get_if<T>(value);
    return held == nullptr ? T() : *held;
}

const char* asText(const Value* value) {
    const auto* held = value == nullptr ? nullptr : std::get_if<std::string>(value);
    return held == nullptr ? "" : held->c_str();
}

template <typename T>
ApiArray<T> asArray(const Value* value) {
    const auto* held = value == nullptr ? nullptr : std::get_if<SharedArray<T>>(value);
    if (held == nullptr || *held == nullptr || (*held)->empty()) return {};
    return {(*held)->data(), (*held)->size()};
}

template <typename T>
bool getInto(const Value* value, T& out) {
    const T* held = value == nullptr ? nullptr : std::get_if<T>(value);
    if (held != nullptr) out = *held;
    return held != nullptr;
}

// Carries one write through the door: `write` gets the edit, the node and the index, and answers whether the attribute
// took the value.
template <typename Write>
void change(const ApiItem* item, AttributeId id, bool evaluate, Write write) {
    NodeRecord* node = NodeRecord::alive(item);
    const auto index = node == nullptr ? std::nullopt : attributeIndex(*node, id);
    if (!index) return;
    Edit edit;
    if (write(edit, *node, *index) && evaluate) edit.evaluate(*node);
    edit.finish();
}

template <typename T>
void writeValue(ApiItem* item, AttributeId id, T value, bool evaluate) {
    OperationLog::record("set", item, id, value, evaluate);
    change(item, id, evaluate, [&value](Edit& edit, NodeRecord& node, unsigned index) {
        return edit.write<T>(node, index, std::move(value));
    });
}

template <typename T>
void writeArray(ApiItem* item, AttributeId id, const T* values, std::size_t count, bool evaluate) {
    if (values == nullptr) count = 0;
    OperationLog::record("set", item, id, ElementCount{count}, evaluate);
    change(item, id, evaluate, [values, count](Edit& edit, NodeRecord& node, unsigned index) {
        return edit.writeArray<T>(node, index, values, count);
    });
}

template <typename T>
void writeValueIx(ApiItem* item, unsigned index, T value, bool evaluate) {
    OperationLog::record("setIx", item, index, value, evaluate);
    NodeRecord* node = NodeRecord::alive(item);
    if (node == nullptr || index >= node->attributes.size()) return;
    Edit edit;
    if (edit.write<T>(*node, index, value) && evaluate) edit.evaluate(*node);
    edit.finish();
}

const ApiAttributeInfo& infoAt(const ApiItem* item, unsigned index) {
    const NodeRecord* node = NodeRecord::of(item);
    const bool exists = node != nullptr && index < node->attributes.size();
    return exists ? node->type->attributes[index] : Catalog::noAttribute();
}

}  // namespace

bool ApiItem::hasAttr(AttributeId id) const {
    return valueOf(this, id) != nullptr;
}
bool ApiItem::getBool(AttributeId id) const {
    return as<bool>(valueOf(this, id));
}
int ApiItem::getInt(AttributeId id) const {
    return as<int>(valueOf(this, id));
}
Vec2<int> ApiItem::getInt2(AttributeId id) const {
    return as<Vec2<int>>(valueOf(this, id));
}
Vec3<int> ApiItem::getInt3(AttributeId id) const {
    return as<Vec3<int>>(valueOf(this, id));
}
float ApiItem::getFloat(AttributeId id) const {
    return as<float>(valueOf(this, id));
}
Vec2<float> ApiItem::getFloat2(AttributeId id) const {
    return as<Vec2<float>>(valueOf(this, id));
}
Vec3<float> ApiItem::getFloat3(AttributeId id) const {
    return as<Vec3<float>>(valueOf(this, id));
}
Vec4<float> ApiItem::getFloat4(AttributeId id) const {
    return as<Vec4<float>>(valueOf(this, id));
}
const char* ApiItem::getString(AttributeId id) const {
    return asText(valueOf(this, id));
}

bool ApiItem::get(AttributeId id, bool& out) const {
    return getInto(valueOf(this, id), out);
}
bool ApiItem::get(AttributeId id, Vec3<float>& out) const {
    return getInto(valueOf(this, id), out);
}
bool ApiItem::get(AttributeId id, Matrix<float>& out) const {
    return getInto(valueOf(this, id), out);
}

bool ApiItem::get(AttributeId id, const char*& out) const {
    const Value* value = valueOf(this, id);
    const bool is_text = value != nullptr && std::holds_alternative<std::string>(*value);
    if (is_text) out = asText(value);
    return is_text;
}

void ApiItem::set(AttributeId id, bool value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, int value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, float value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, Vec2<int> value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, Vec3<int> value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, Vec2<float> value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, Vec3<float> value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, Vec4<float> value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}
void ApiItem::set(AttributeId id, const Matrix<float>& value, bool evaluate) {
    writeValue(this, id, value, evaluate);
}

void ApiItem::set(AttributeId id, const char* value, bool evaluate) {
    OperationLog::record("set", this, id, value, evaluate);
    change(this, id, evaluate, [value](Edit& edit, NodeRecord& node, unsigned index) {
        return edit.write<std::string>(node, index, value == nullptr ? "" : value);
    });
}

void ApiItem::set(AttributeId id, const int* values, std::size_t count, bool evaluate) {
    writeArray(this, id, values, count, evaluate);
}

void ApiItem::set(AttributeId id, const Vec3<float>* values, std::size_t count, bool evaluate) {
    writeArray(this, id, values, count, evaluate);
}

void ApiItem::set(AttributeId id, const Matrix<float>* values, std::size_t count, bool evaluate) {
    writeArray(this, id, values, count, evaluate);
}

void ApiItem::set(AttributeId id, const char* const* values, std::size_t count, bool evaluate) {
    if (values == nullptr) count = 0;
    OperationLog::record("set", this, id, ElementCount{count}, evaluate);
    change(this, id, evaluate, [values, count](Edit& edit, NodeRecord& node, unsigned index) {
        return edit.writeTexts(node, index, values, count);
    });
}

unsigned ApiItem::attrCount() const {
    const NodeRecord* node = NodeRecord::of(this);
    return node == nullptr ? 0 : static_cast<unsigned>(node->attributes.size());
}

AttributeId ApiItem::attrId(const char* name) const {
    for (unsigned i = 0; name != nullptr && i < attrCount(); ++i) {
        if (std::strcmp(infoAt(this, i).name, name) == 0) return infoAt(this, i).id;
    }
    return ATTR_UNKNOWN;
}

AttributeId ApiItem::attrIdIx(unsigned index) const {
    return infoAt(this, index).id;
}
const char* ApiItem::attrNameIx(unsigned index) const {
    return infoAt(this, index).name;
}
AttributeType ApiItem::attrTypeIx(unsigned index) const {
    return infoAt(this, index).type;
}
const ApiAttributeInfo& ApiItem::attrInfoIx(unsigned index) const {
    return infoAt(this, index);
}

bool ApiItem::getBoolIx(unsigned index) const {
    return as<bool>(valueAt(this, index));
}
int ApiItem::getIntIx(unsigned index) const {
    return as<int>(valueAt(this, index));
}
Vec2<int> ApiItem::getInt2Ix(unsigned index) const {
    return as<Vec2<int>>(valueAt(this, index));
}
Vec3<int> ApiItem::getInt3Ix(unsigned index) const {
    return as<Vec3<int>>(valueAt(this, index));
}
Vec4<int> ApiItem::getInt4Ix(unsigned index) const {
    return as<Vec4<int>>(valueAt(this, index));
}
float ApiItem::getFloatIx(unsigned index) const {
    return as<float>(valueAt(this, index));
}
Vec2<float> ApiItem::getFloat2Ix(unsigned index) const {
    return as<Vec2<float>>(valueAt(this, index));
}
Vec3<float> ApiItem::getFloat3Ix(unsigned index) const {
    return as<Vec3<float>>(valueAt(this, index));
}
Vec4<float> ApiItem::getFloat4Ix(unsigned index) const {
    return as<Vec4<float>>(valueAt(this, index));
}
const char* ApiItem::getStringIx(unsigned index) const {
    return asText(valueAt(this, index));
}
Matrix<float> ApiItem::getMatrixIx(unsigned index) const {
    return as<Matrix<float>>(valueAt(this, index));
}

// No attribute is an array of booleans.
ApiArray<bool> ApiItem::getBoolArrayIx(unsigned) const {
    return {};
}
ApiArray<int> ApiItem::getIntArrayIx(unsigned index) const {
    return asArray<int>(valueAt(this, index));
}
ApiArray<Vec2<int>> ApiItem::getInt2ArrayIx(unsigned index) const {
    return asArray<Vec2<int>>(valueAt(this, index));
}
ApiArray<Vec3<int>> ApiItem::getInt3ArrayIx(unsigned index) const {
    return asArray<Vec3<int>>(valueAt(this, index));
}
ApiArray<Vec4<int>> ApiItem::getInt4ArrayIx(unsigned index) const {
    return asArray<Vec4<int>>(valueAt(this, index));
}
ApiArray<float> ApiItem::getFloatArrayIx(unsigned index) const {
    return asArray<float>(valueAt(this, index));
}
ApiArray<Vec2<float>> ApiItem::getFloat2ArrayIx(unsigned index) const {
    return asArray<Vec2<float>>(valueAt(this, index));
}
ApiArray<Vec3<float>> ApiItem::getFloat3ArrayIx(unsigned index) const {
    return asArray<Vec3<float>>(valueAt(this, index));
}
ApiArray<Vec4<float>> ApiItem::getFloat4ArrayIx(unsigned index) const {
    return asArray<Vec4<float>>(valueAt(this, index));
}
ApiArray<Matrix<float>> ApiItem::getMatrixArrayIx(unsigned index) const {
    return asArray<Matrix<float>>(valueAt(this, index));
}
ApiArray<unsigned char> ApiItem::getByteArrayIx(unsigned index) const {
    return asArray<unsigned char>(valueAt(this, index));
}

ApiArray<const char*> ApiItem::getStringArrayIx(unsigned index) const {
    const Value* value = valueAt(this, index);
    const auto* held = value == nullptr ? nullptr : std::get_if<SharedTexts>(value);
    if (held == nullptr || *held == nullptr || (*held)->texts.empty()) return {};
    return {(*held)->pointers.data(), (*held)->pointers.size()};
}

void ApiItem::setIx(unsigned index, float value, bool evaluate) {
    writeValueIx(this, index, value, evaluate);
}
void ApiItem::setIx(unsigned index, Vec3<float> value, bool evaluate) {
    writeValueIx(this, index, value, evaluate);
}

}  // namespace Velmar
