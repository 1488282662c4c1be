// Where the host and the renderer disagree: units, the axis that is up, the layout of matrices. Host lengths are inches
// and z is up; renderer lengths are metres and y is up. All crossings between the two use these rules; placements cross
// through Float4x4.
#pragma once

#include <velmar/values.h>

#include <bit>
#include <cstdint>

namespace Velmar {

/// Inches per metre. Metres are inches divided by it, in single precision.
inline constexpr float kInchesPerMetre = std::bit_cast<float>(std::uint32_t{0x421d7afb});  // 39.3701
/// Radians are degrees multiplied by it, in single precision.
inline constexpr float kRadiansPerDegree = std::bit_cast<float>(std::uint32_t{0x3c8efa36});

/// The identity in the renderer's form.
inline constexpr Matrix<float> gIdentityMatrixF{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
inline constexpr Matrix<double> gIdentityMatrixD{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

/// A point of the host, inches, as a point of the renderer, metres.
constexpr Vec3<float> PointFromHost(float x_inches, float y_inches, float z_inches) {
    return {x_inches / kInchesPerMetre, z_inches / kInchesPerMetre, -y_inches / kInchesPerMetre};
}

/// A direction of the host as a direction of the renderer; its length stays.
constexpr Vec3<float> DirectionFromHost(float x, float y, float z) {
    return {x, z, -y};
}

}  // namespace Velmar
