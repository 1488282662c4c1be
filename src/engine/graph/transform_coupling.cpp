#include "engine/graph/transform_coupling.h"

#include <cmath>

namespace Velmar::Engine {
namespace {

float determinant(const float (&m)[3][4]) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

void scaleColumn(Matrix<float>& matrix, unsigned column, float old_scale, float scale) {
    const float ratio = scale / old_scale;
    if (std::isfinite(ratio) && old_scale != 0.0F) {
        for (auto& row : matrix.m) row[column] *= ratio;
        return;
    }
    for (unsigned row = 0; row < 3; ++row) matrix.m[row][column] = row == column ? scale : 0.0F;
}

}  // namespace

Vec3<float> scaleOf(const Matrix<float>& matrix) {
    const auto& m = matrix.m;
    const auto length = [&m](unsigned column) { return std::hypot(m[0][column], m[1][column], m[2][column]); };
    return {std::copysign(length(0), determinant(m)), length(1), length(2)};
}

Vec3<float> translationOf(const Matrix<float>& matrix) {
    return {matrix.m[0][3], matrix.m[1][3], matrix.m[2][3]};
}

Matrix<float> withScale(const Matrix<float>& matrix, Vec3<float> old_scale, Vec3<float> scale) {
    Matrix<float> scaled = matrix;
    scaleColumn(scaled, 0, old_scale.x, scale.x);
    scaleColumn(scaled, 1, old_scale.y, scale.y);
    scaleColumn(scaled, 2, old_scale.z, scale.z);
    return scaled;
}

Matrix<float> withTranslation(const Matrix<float>& matrix, Vec3<float> translation) {
    Matrix<float> moved = matrix;
    moved.m[0][3] = translation.x;
    moved.m[1][3] = translation.y;
    moved.m[2][3] = translation.z;
    return moved;
}

}  // namespace Velmar::Engine
