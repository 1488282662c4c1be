// The value types of pins and attributes. All are plain aggregates passed by value; they hold no units of their own:
// the row of the pin or attribute says what the numbers mean.
#pragma once

#include <cstddef>

namespace Velmar {

/// Two numbers of type T (int or float).
template <typename T>
struct Vec2 {
    T x{}, y{};
    friend bool operator==(const Vec2&, const Vec2&) = default;
};

/// Three numbers of type T (int or float): a point, a direction, or a linear RGB colour.
template <typename T>
struct Vec3 {
    T x{}, y{}, z{};
    friend bool operator==(const Vec3&, const Vec3&) = default;
};

/// Four numbers of type T (int or float).
template <typename T>
struct Vec4 {
    T x{}, y{}, z{}, w{};
    friend bool operator==(const Vec4&, const Vec4&) = default;
};

/// An affine transform in column-vector form: 3 rows of 4, the translation in the fourth column. A point p becomes
/// (m[r][0] p.x + m[r][1] p.y + m[r][2] p.z + m[r][3]) for r = 0, 1, 2. A fresh matrix is all zero.
template <typename T>
struct Matrix {
    T m[3][4]{};
    friend bool operator==(const Matrix&, const Matrix&) = default;
};

/// A view of `size` elements owned by the item that answered it; valid until the next call on that item that writes.
/// An attribute that is no array, or does not exist, answers an empty view.
template <typename T>
struct ApiArray {
    const T* data = nullptr;
    std::size_t size = 0;
};

}  // namespace Velmar
