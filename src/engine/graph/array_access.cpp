#include "engine/graph/array_access.h"

#include "engine/graph/pin_values.h"
#include "engine/graph/records.h"

namespace Velmar::Engine {
namespace {

template <typename T>
const T* attributeOf(const ApiItem* item, AttributeId id) {
    const NodeRecord* node = NodeRecord::of(item);
    if (node == nullptr) return nullptr;
    const auto index = attributeIndex(*node, id);
    return index ? std::get_if<T>(&node->attributes[*index].value) : nullptr;
}

template <typename T>
SharedArray<T> emptyArray() {
    static const auto& empty = *new SharedArray<T>(std::make_shared<const std::vector<T>>());
    return empty;
}

template <typename T>
SharedArray<T> arrayOf(const ApiItem* item, AttributeId id) {
    const auto* held = attributeOf<SharedArray<T>>(item, id);
    return held == nullptr || *held == nullptr ? emptyArray<T>() : *held;
}

}  // namespace

SharedArray<int> intArray(const ApiItem* item, AttributeId id) {
    return arrayOf<int>(item, id);
}
SharedArray<float> floatArray(const ApiItem* item, AttributeId id) {
    return arrayOf<float>(item, id);
}
SharedArray<Vec2<float>> float2Array(const ApiItem* item, AttributeId id) {
    return arrayOf<Vec2<float>>(item, id);
}
SharedArray<Vec3<float>> float3Array(const ApiItem* item, AttributeId id) {
    return arrayOf<Vec3<float>>(item, id);
}
SharedArray<Matrix<float>> matrixArray(const ApiItem* item, AttributeId id) {
    return arrayOf<Matrix<float>>(item, id);
}

SharedArray<std::string> stringArray(const ApiItem* item, AttributeId id) {
    const auto* held = attributeOf<SharedTexts>(item, id);
    if (held == nullptr || *held == nullptr) return emptyArray<std::string>();
    return {*held, &(*held)->texts};
}

}  // namespace Velmar::Engine
