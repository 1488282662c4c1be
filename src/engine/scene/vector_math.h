// Small vector and matrix arithmetic over the SDK's value types, single precision. Points and directions are Float3,
// transforms are Affine in column-vector form. Nothing here allocates or fails; normalised() of a zero vector is zero.
#pragma once

#include <velmar/values.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Velmar::Engine {

using Float2 = Vec2<float>;
using Float3 = Vec3<float>;
using Affine = Matrix<float>;

inline constexpr float kPi = 3.14159265358979323846f;

inline Float3 operator+(Float3 a, Float3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Float3 operator-(Float3 a, Float3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Float3 operator-(Float3 a) {
    return {-a.x, -a.y, -a.z};
}
inline Float3 operator*(Float3 a, Float3 b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
inline Float3 operator*(Float3 a, float s) {
    return {a.x * s, a.y * s, a.z * s};
}
inline Float3 operator*(float s, Float3 a) {
    return a * s;
}
inline Float3& operator+=(Float3& a, Float3 b) {
    return a = a + b;
}
inline Float3& operator*=(Float3& a, Float3 b) {
    return a = a * b;
}
inline Float3& operator*=(Float3& a, float s) {
    return a = a * s;
}

inline float dot(Float3 a, Float3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Float3 cross(Float3 a, Float3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float length(Float3 a) {
    return std::sqrt(dot(a, a));
}
inline Float3 absolute(Float3 a) {
    return {std::fabs(a.x), std::fabs(a.y), std::fabs(a.z)};
}
inline float largest(Float3 a) {
    return std::max(a.x, std::max(a.y, a.z));
}
inline Float3 lerp(Float3 a, Float3 b, float t) {
    return a * (1.0f - t) + b * t;
}

inline bool isFinite(float a) {
    return std::isfinite(a);
}
inline bool isFinite(Float3 a) {
    return isFinite(a.x) && isFinite(a.y) && isFinite(a.z);
}
inline bool isFinite(const Affine& a) {
    for (const auto& row : a.m)
        for (float element : row)
            if (!isFinite(element)) return false;
    return true;
}

/// `a` at length 1; zero when `a` is zero or not finite.
inline Float3 normalised(Float3 a) {
    const float squared = dot(a, a);
    if (squared > 1e-30f && squared < 1e30f) return a * (1.0f / std::sqrt(squared));
    // The square has left the range of single precision, so bring the vector to size first.
    const float scale = largest(absolute(a));
    if (!(scale > 0.0f) || !isFinite(a)) return {};
    const Float3 scaled = {a.x / scale, a.y / scale, a.z / scale};
    return scaled * (1.0f / length(scaled));
}

inline Float3 transformPoint(const Affine& a, Float3 p) {
    const auto& m = a.m;
    return {m[0][0] * p.x + m[0][1] * p.y + m[0][2] * p.z + m[0][3],
            m[1][0] * p.x + m[1][1] * p.y + m[1][2] * p.z + m[1][3],
            m[2][0] * p.x + m[2][1] * p.y + m[2][2] * p.z + m[2][3]};
}

inline Float3 transformVector(const Affine& a, Float3 v) {
    const auto& m = a.m;
    return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
            m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
}

inline Float3 column(const Affine& a, int c) {
    return {a.m[0][c], a.m[1][c], a.m[2][c]};
}

/// `normal` by the matrix of cofactors, which is the inverse transpose times the determinant: right for shear, uneven
/// scale and mirrors, and defined for flat transforms. Not normalised.
inline Float3 transformNormal(const Affine& a, Float3 normal) {
    const Float3 x = column(a, 0), y = column(a, 1), z = column(a, 2);
    return cross(y, z) * normal.x + cross(z, x) * normal.y + cross(x, y) * normal.z;
}

inline Affine identity() {
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
}

/// The transform that applies `inner` first and `outer` second.
inline Affine multiply(const Affine& outer, const Affine& inner) {
    Affine product;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c) {
            float sum = c == 3 ? outer.m[r][3] : 0.0f;
            for (int k = 0; k < 3; ++k) sum += outer.m[r][k] * inner.m[k][c];
            product.m[r][c] = sum;
        }
    return product;
}

/// An axis-aligned box; empty until it has taken in a point.
struct Bounds {
    Float3 lower{std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                 std::numeric_limits<float>::max()};
    Float3 upper{std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                 std::numeric_limits<float>::lowest()};

    bool empty() const { return lower.x > upper.x; }
    Float3 centre() const { return (lower + upper) * 0.5f; }
    Float3 corner(int index) const {
        return {index & 1 ? upper.x : lower.x, index & 2 ? upper.y : lower.y, index & 4 ? upper.z : lower.z};
    }
    void include(Float3 p) {
        lower = {std::min(lower.x, p.x), std::min(lower.y, p.y), std::min(lower.z, p.z)};
        upper = {std::max(upper.x, p.x), std::max(upper.y, p.y), std::max(upper.z, p.z)};
    }
    void include(const Bounds& other) {
        if (other.empty()) return;
        include(other.lower);
        include(other.upper);
    }
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// The box around `box` after `world_from_model`. Empty stays empty.
inline Bounds transformBounds(const Affine& world_from_model, const Bounds& box) {
    Bounds result;
    if (box.empty()) return result;
    for (int corner = 0; corner < 8; ++corner) result.include(transformPoint(world_from_model, box.corner(corner)));
    return result;
}

/// Two directions that complete the unit vector `n` to a right-handed orthonormal basis.
/// Duff et al. 2017, "Building an Orthonormal Basis, Revisited", listing 3.
struct Frame {
    Float3 tangent, bitangent, normal;
    explicit Frame(Float3 n) : normal(n) {
        const float sign = std::copysign(1.0f, n.z);
        const float a = -1.0f / (sign + n.z);
        const float b = n.x * n.y * a;
        tangent = {1.0f + sign * n.x * n.x * a, sign * b, -sign * n.x};
        bitangent = {b, sign + n.y * n.y * a, -n.y};
    }
    Float3 toWorld(Float3 v) const { return tangent * v.x + bitangent * v.y + normal * v.z; }
};

}  // namespace Velmar::Engine
