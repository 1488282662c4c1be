// What the camera nodes say about the view, as plain numbers.
#pragma once

#include "engine/scene/vector_math.h"

namespace Velmar::Engine {

enum class Projection { Perspective, Parallel, Spherical };

struct CameraSettings {
    Projection projection = Projection::Perspective;
    Float3 position{0.0f, 0.0f, 0.0f};   ///< metres
    Float3 target{0.0f, 0.0f, -1.0f};    ///< metres
    Float3 up{0.0f, 1.0f, 0.0f};         ///< any length
    float fov_degrees = 45.0f;           ///< horizontal, between 0 and 180; of a panorama up to 360
    float vertical_fov_degrees = 90.0f;  ///< of a panorama, up to 180
    float parallel_width = 10.0f;        ///< width of the picture in parallel projection, metres
    Float2 lens_shift{0.0f, 0.0f};       ///< of the picture, in its widths (to the right) and heights (up)
    float pixel_aspect = 1.0f;           ///< height over width of a pixel
    float aperture_radius = 0.0f;        ///< metres
    float aperture_aspect = 1.0f;        ///< width over height of the lens opening
    float focal_depth = 10.0f;           ///< distance of the plane in focus along the view, metres
    bool autofocus = false;              ///< focus on what stands in the middle of the picture
    float near_clip = 0.0f;              ///< distance along the view before which nothing is seen, metres

    friend bool operator==(const CameraSettings&, const CameraSettings&) = default;
};

}  // namespace Velmar::Engine
