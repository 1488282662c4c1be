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

private:
    using Row = float __attribute__((vector_size(16)));
    inline Row LoadRow(std::size_t row) const;
    inline void StoreRow(std::size_t row, Row values);

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
    const Row b0 = other.LoadRow(0), b1 = other.LoadRow(1), b2 = other.LoadRow(2), b3 = other.LoadRow(3);
    Float4x4 product;
    for (std::size_t i = 0; i < 4; ++i) {
        const float* a = f_.data() + 4 * i;
        product.StoreRow(i, a[0] * b0 + a[1] * b1 + a[2] * b2 + a[3] * b3);
    }
    return product;
}

inline Matrix<float> Float4x4::ToRenderer() const {
    return {{{f_[0], f_[8], -f_[4], f_[12]}, {f_[2], f_[10], -f_[6], f_[14]}, {-f_[1], -f_[9], f_[5], -f_[13]}}};
}

}  // namespace Velmar
