// The three attributes of a transform node hold one transform between them.
#pragma once

#include <velmar/values.h>

namespace Velmar::Engine {

/// Lengths of the columns of a matrix; x is negative when the matrix mirrors.
Vec3<float> scaleOf(const Matrix<float>& matrix);
Vec3<float> translationOf(const Matrix<float>& matrix);
/// The matrix with another scale: each column keeps its direction. A column whose old scale was zero or not finite has
/// none and takes that of its axis.
Matrix<float> withScale(const Matrix<float>& matrix, Vec3<float> old_scale, Vec3<float> scale);
Matrix<float> withTranslation(const Matrix<float>& matrix, Vec3<float> translation);

}  // namespace Velmar::Engine
