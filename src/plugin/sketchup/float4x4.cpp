#include "plugin/sketchup/float4x4.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "plugin/nodes/units.h"

namespace Velmar {

namespace {

/// A determinant of this size or less counts as none.
constexpr float kSingularityLimit = std::bit_cast<float>(std::uint32_t{0x3727c5ac});  // 1e-5

struct SineCosine {
    float s, c;
};

SineCosine SineCosineOf(float angle_degrees) {
    const float angle_radians = angle_degrees * kRadiansPerDegree;
    return {std::sin(angle_radians), std::cos(angle_radians)};
}

/// The elements of a 3 x 3 matrix that is left when one row and one column of the 4 x 4 are struck out.
float Minor(const Float4x4& m, std::size_t row, std::size_t column) {
    float rest[9];
    std::size_t next = 0;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            if (r != row && c != column) rest[next++] = m[4 * r + c];
        }
    }
    return Float4x4::Cofactor(rest[0], rest[1], rest[2], rest[3], rest[4], rest[5], rest[6], rest[7], rest[8]);
}

}  // namespace

Float4x4& Float4x4::SwapYZ() {
    const auto& f = f_;
    f_ = {f[0], f[2], -f[1], f[3], f[8], f[10], -f[9], f[11], -f[4], -f[6], f[5], -f[7], f[12], f[14], -f[13], f[15]};
    return *this;
}

void Float4x4::InchesToMeters() {
    for (std::size_t element = 12; element < 15; ++element) f_[element] /= kInchesPerMetre;
}

void Float4x4::MetersToInches() {
    for (std::size_t element = 12; element < 15; ++element) f_[element] *= kInchesPerMetre;
}

Float4x4& Float4x4::Transpose() {
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < r; ++c) std::swap(f_[4 * r + c], f_[4 * c + r]);
    }
    return *this;
}

float Float4x4::Cofactor(float a, float b, float c, float d, float e, float f, float g, float h, float i) {
    return (e * i - f * h) * a - (i * d - f * g) * b + (d * h - e * g) * c;
}

float Float4x4::GetDeterminant() const {
    return f_[0] * Minor(*this, 0, 0) - f_[1] * Minor(*this, 0, 1) + f_[2] * Minor(*this, 0, 2) -
           f_[3] * Minor(*this, 0, 3);
}

Float4x4& Float4x4::Invert() {
    const float determinant = GetDeterminant();
    if (kSingularityLimit >= std::fabs(determinant)) return *this = Float4x4();

    const float scale = 1.0f / determinant;
    Float4x4 inverse;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            const float sign = (r + c) % 2 == 0 ? 1.0f : -1.0f;
            inverse[4 * c + r] = sign * Minor(*this, r, c) * scale;
        }
    }
    return *this = inverse;
}

Float4x4& Float4x4::Translate(float x, float y, float z) {
    StoreRow(0, LoadRow(0) + x * LoadRow(3));
    StoreRow(1, LoadRow(1) + y * LoadRow(3));
    StoreRow(2, LoadRow(2) + z * LoadRow(3));
    return *this;
}

Float4x4& Float4x4::Scale(float s) {
    return Scale(s, s, s);
}

Float4x4& Float4x4::Scale(float x, float y, float z) {
    StoreRow(0, LoadRow(0) * x);
    StoreRow(1, LoadRow(1) * y);
    StoreRow(2, LoadRow(2) * z);
    return *this;
}

Float4x4& Float4x4::RotateX(float angle) {
    const auto [s, c] = SineCosineOf(angle);
    const Row row1 = LoadRow(1), row2 = LoadRow(2);
    StoreRow(1, c * row1 - s * row2);
    StoreRow(2, s * row1 + c * row2);
    return *this;
}

Float4x4& Float4x4::RotateY(float angle) {
    const auto [s, c] = SineCosineOf(angle);
    const Row row0 = LoadRow(0), row2 = LoadRow(2);
    StoreRow(0, c * row0 + s * row2);
    StoreRow(2, c * row2 - s * row0);
    return *this;
}

Float4x4& Float4x4::RotateZ(float angle) {
    const auto [s, c] = SineCosineOf(angle);
    const Row row0 = LoadRow(0), row1 = LoadRow(1);
    StoreRow(0, c * row0 - s * row1);
    StoreRow(1, s * row0 + c * row1);
    return *this;
}

Float4x4& Float4x4::Rotate(float angle, float x, float y, float z) {
    const auto [s, c] = SineCosineOf(angle);
    const float t = 1.0f - c;
    Float4x4 rotation;
    rotation.f_ = {x * x * t + c,
                   x * y * t - s * z,
                   x * z * t + s * y,
                   0,  //
                   x * y * t + s * z,
                   y * y * t + c,
                   y * z * t - s * x,
                   0,  //
                   x * z * t - s * y,
                   y * z * t + s * x,
                   z * z * t + c,
                   0,  //
                   0,
                   0,
                   0,
                   1};
    return *this = rotation * *this;
}

}  // namespace Velmar
