#include "axes.h"

#include <cmath>

namespace Velmar::Host {
namespace {

using Rows = std::array<std::array<double, 3>, 3>;

constexpr double inches_per_metre = 1.0 / 0.0254;
constexpr double rounding = 1e-5;  // transforms in files and in the reader are of single precision

constexpr Rows z_up_from_y_up = {{{1.0, 0.0, 0.0}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}}};

Rows linearPart(const aiMatrix4x4& m) {
    return {{{m.a1, m.a2, m.a3}, {m.b1, m.b2, m.b3}, {m.c1, m.c2, m.c3}}};
}

Rows product(const Rows& a, const Rows& b) {
    Rows result{};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            for (int k = 0; k < 3; ++k) result[r][c] += a[r][k] * b[k][c];
    return result;
}

Rows transposed(const Rows& a) {
    Rows result{};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) result[r][c] = a[c][r];
    return result;
}

double determinant(const Rows& m) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

double snapped(double value) {
    const double whole = std::round(value);
    return std::abs(value - whole) < rounding ? whole : value;
}

/// The uniform scale of a matrix that is a rotation times a positive scale; 0 for any other.
double similarityScale(const Rows& m) {
    const double volume = determinant(m);
    if (!(volume > 0.0) || !std::isfinite(volume)) return 0.0;
    const double scale = std::cbrt(volume);
    const Rows square = product(m, transposed(m));
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            const double expected = r == c ? 1.0 : 0.0;
            if (!(std::abs(square[r][c] / (scale * scale) - expected) < rounding)) return 0.0;
        }
    return scale;
}

bool moves(const aiMatrix4x4& m) {
    return m.a4 != 0.0F || m.b4 != 0.0F || m.c4 != 0.0F;
}

aiVector3D applied(const Rows& m, double scale, const aiVector3D& v) {
    std::array<double, 3> result{};
    for (int r = 0; r < 3; ++r) result[r] = scale * (m[r][0] * v.x + m[r][1] * v.y + m[r][2] * v.z);
    return {static_cast<float>(result[0]), static_cast<float>(result[1]), static_cast<float>(result[2])};
}

}  // namespace

AxisChange::AxisChange(const aiMatrix4x4& root)
    : rotation_(z_up_from_y_up), scale_(inches_per_metre), takes_root_(false) {
    const Rows linear = linearPart(root);
    const double root_scale = moves(root) ? 0.0 : similarityScale(linear);
    if (root_scale == 0.0) return;

    takes_root_ = true;
    rotation_ = product(z_up_from_y_up, linear);
    for (auto& row : rotation_)
        for (double& element : row) element = snapped(element / root_scale);
    scale_ = inches_per_metre * root_scale;
    if (std::abs(scale_ - 1.0) < rounding) scale_ = 1.0;
}

aiVector3D AxisChange::point(const aiVector3D& p) const {
    return applied(rotation_, scale_, p);
}

aiVector3D AxisChange::direction(const aiVector3D& d) const {
    return applied(rotation_, 1.0, d);
}

std::array<double, 16> AxisChange::transform(const aiMatrix4x4& local) const {
    const Rows linear = product(product(rotation_, linearPart(local)), transposed(rotation_));
    const std::array<double, 3> move = {local.a4, local.b4, local.c4};
    std::array<double, 16> result{};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            result[4 * c + r] = linear[r][c];
            result[12 + r] += scale_ * rotation_[r][c] * move[c];
        }
    result[15] = 1.0;
    return result;
}

}  // namespace Velmar::Host
