// Placements as the host gives them: 4 x 4 matrices that act on row vectors. Knows nothing of nodes; a plain value that
// any thread may use.
#pragma once

#include <velmar/values.h>

#include <array>
#include <cstddef>

namespace Velmar {

/// A 4 x 4 matrix of single-precision numbers, row after row: element 4 r + c is row r, column c. A point p becomes
/// p * M: rows 0, 1, 2 are the images of the axes, elements 12, 13, 14 the translation, element 15 the homogeneous
/// weight. A fresh matrix is the identity.
///
/// Translate and the rotations act on rows, as they would on a matrix that acts on column vectors; nothing in the
/// plug-in's own work uses them.
class Float4x4 {
public:
    constexpr float& operator[](std::size_t element) { return f_[element]; }
    constexpr const float& operator[](std::size_t element) const { return f_[element]; }

    /// Element by element, exactly.
    friend bool operator==(const Float4x4&, const Float4x4&) = default;

    /// In `a * b`, a acts first and b second.
    inline Float4x4 operator*(const Float4x4& other) const;
    /// Turns a transform of host axes into the same transform of renderer axes.
    Float4x4& SwapYZ();
    /// Divides the translation by the inches of a metre.
    void InchesToMeters();
    /// Multiplies the translation by the inches of a metre.
    void MetersToInches();
    Float4x4& Transpose();
    /// Determinant of all 16 elements.
    float GetDeterminant() const;
    /// Determinant of the rows (a b c), (d e f), (g h i).
    static float Cofactor(float a, float b, float c, float d, float e, float f, float g, float h, float i);
    /// Inverts the matrix. One whose determinant is 1e-5 or less in size becomes the identity.
    Float4x4& Invert();
    /// Adds x, y and z times row 3 to rows 0, 1 and 2.
    Float4x4& Translate(float x, float y, float z);
    /// Multiplies rows 0, 1 and 2.
    Float4x4& Scale(float s);
    Float4x4& Scale(float x, float y, float z);
    /// Angles are in degrees.
    Float4x4& RotateX(float angle);
    Float4x4& RotateY(float angle);
    Float4x4& RotateZ(float angle);
    /// Rotates about the axis (x, y, z), which is taken as it is given, not normalised.
    Float4x4& Rotate(float angle, float x, float y, float z);

    /// The transform in the renderer's axes and form: the transpose of SwapYZ, without its last row. The host's fourth
    /// column is dropped; nothing is divided by the weight.
    inline Matrix<float> ToRenderer() const;
    /// (a * b).ToRenderer() without the detour through memory.
    static inline Matrix<float> ProductToRenderer(const Float4x4& a, const Float4x4& b);

private:
    using Row = float __attribute__((vector_size(16)));
    struct Rows {
        Row r0, r1, r2, r3;
    };
    inline Row LoadRow(std::size_t row) const;
    inline void StoreRow(std::size_t row, Row values);
    inline Rows Load() const { return {LoadRow(0), LoadRow(1), LoadRow(2), LoadRow(3)}; }
    static inline Row Times(Row a, const Rows& b) { return a[0] * b.r0 + a[1] * b.r1 + a[2] * b.r2 + a[3] * b.r3; }
    static inline Rows Times(const Rows& a, const Rows& b) {
        return {Times(a.r0, b), Times(a.r1, b), Times(a.r2, b), Times(a.r3, b)};
    }
    static inline Matrix<float> ToRenderer(const Rows& rows);

    std::array<float, 16> f_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

inline Float4x4::Row Float4x4::LoadRow(std::size_t row) const {
    Row values;
    __builtin_memcpy(&values, f_.data() + 4 * row, sizeof values);
    return values;
}

inline void Float4x4::StoreRow(std::size_t row, Row values) {
    __builtin_memcpy(f_.data() + 4 * row, &values, sizeof values);
}

inline Float4x4 Float4x4::operator*(const Float4x4& other) const {
    const Rows rows = Times(Load(), other.Load());
    Float4x4 product;
    static_assert(sizeof product == sizeof rows);
    __builtin_memcpy(product.f_.data(), &rows, sizeof rows);
    return product;
}

inline Matrix<float> Float4x4::ToRenderer(const Rows& rows) {
    // The transpose of rows 0, 2, -1 and 3; its columns 0, 2 and -1 are what is wanted.
    const Row r1 = -rows.r1;
    const Row x02 = __builtin_shufflevector(rows.r0, rows.r2, 0, 4, 1, 5);
    const Row z02 = __builtin_shufflevector(rows.r0, rows.r2, 2, 6, 3, 7);
    const Row x13 = __builtin_shufflevector(r1, rows.r3, 0, 4, 1, 5);
    const Row z13 = __builtin_shufflevector(r1, rows.r3, 2, 6, 3, 7);
    const Row columns[3] = {__builtin_shufflevector(x02, x13, 0, 1, 4, 5),
                            __builtin_shufflevector(z02, z13, 0, 1, 4, 5),
                            -__builtin_shufflevector(x02, x13, 2, 3, 6, 7)};
    Matrix<float> renderer;
    static_assert(sizeof renderer == sizeof columns);
    __builtin_memcpy(&renderer, columns, sizeof columns);
    return renderer;
}

inline Matrix<float> Float4x4::ToRenderer() const {
    return ToRenderer(Load());
}

inline Matrix<float> Float4x4::ProductToRenderer(const Float4x4& a, const Float4x4& b) {
    return ToRenderer(Times(a.Load(), b.Load()));
}

}  // namespace Velmar
