// The values that attributes hold. The kind of an attribute's value never changes: it follows from the attribute's row.
#pragma once

#include "engine/graph/array_access.h"

#include <velmar/info.h>
#include <velmar/values.h>

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace Velmar::Engine {

/// Texts of a string array, with the pointers under which the SDK hands them out.
struct Texts {
    std::vector<std::string> texts;
    std::vector<const char*> pointers;
};
using SharedTexts = std::shared_ptr<const Texts>;

/// No attribute is an array of booleans, so none is held. An array that is null is empty.
using Value =
    std::variant<bool, int, Vec2<int>, Vec3<int>, Vec4<int>, float, Vec2<float>, Vec3<float>, Vec4<float>, std::string,
                 Matrix<float>, SharedArray<int>, SharedArray<Vec2<int>>, SharedArray<Vec3<int>>,
                 SharedArray<Vec4<int>>, SharedArray<float>, SharedArray<Vec2<float>>, SharedArray<Vec3<float>>,
                 SharedArray<Vec4<float>>, SharedArray<Matrix<float>>, SharedArray<unsigned char>, SharedTexts>;

/// The value with which an attribute of that description starts.
Value defaultValue(const ApiAttributeInfo& info);

/// Equality of numbers bit by bit: not-a-number equals itself, and the two zeros differ.
template <typename T>
bool same(const T& a, const T& b) {
    static_assert(std::is_trivially_copyable_v<T>);
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}
inline bool same(const std::string& a, const std::string& b) {
    return a == b;
}

/// Equality of a held array with `count` elements that stand elsewhere.
template <typename T>
bool same(const SharedArray<T>& held, const T* values, std::size_t count) {
    const std::size_t size = held == nullptr ? 0 : held->size();
    return size == count && (count == 0 || std::memcmp(held->data(), values, count * sizeof(T)) == 0);
}
bool same(const SharedTexts& held, const char* const* values, std::size_t count);

/// A copy of `count` texts; a null text is empty.
SharedTexts makeTexts(const char* const* values, std::size_t count);

constexpr Matrix<float> identityMatrix() {
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
}

}  // namespace Velmar::Engine
