// The typed writes of class Edit.
#pragma once

#include "engine/graph/edit.h"

namespace Velmar::Engine {

template <typename T>
bool Edit::write(NodeRecord& node, unsigned index, T value) {
    T* held = std::get_if<T>(&node.attributes[index].value);
    if (held == nullptr || (index == 0 && node.isComputed())) return false;
    const bool changed = !same(*held, value);
    [[maybe_unused]] const T old = std::exchange(*held, std::move(value));
    if (changed) {
        if constexpr (std::is_same_v<T, Matrix<float>>) coupleTransform(node, index, {});
        if constexpr (std::is_same_v<T, Vec3<float>>) coupleTransform(node, index, old);
    }
    attributeWritten(node, index, changed);
    return true;
}

template <typename T>
bool Edit::writeArray(NodeRecord& node, unsigned index, const T* values, std::size_t count) {
    auto* held = std::get_if<SharedArray<T>>(&node.attributes[index].value);
    if (held == nullptr) return false;
    const bool changed = !same(*held, values, count);
    if (changed) *held = std::make_shared<const std::vector<T>>(values, values + count);
    attributeWritten(node, index, changed);
    return true;
}

}  // namespace Velmar::Engine
