// The camera: from a point on the film to a ray into the world. Immutable; any thread may use it.
#pragma once

#include "engine/render/ray.h"
#include "engine/scene/camera_settings.h"
#include "engine/scene/render_scene.h"

namespace Velmar::Engine {

class Camera {
public:
    /// Settings that make no camera are mended: a position on its target looks along -z, an up vector along the view
    /// gives way to another, angles and widths are brought into their ranges.
    Camera(const CameraSettings& settings, FilmSize film);

    /// The ray through the point `pixel` of the film, in pixels from its upper left corner, and the point `lens` of
    /// the lens, two numbers in [0, 1).
    Ray ray(Float2 pixel, Float2 lens) const;

    /// Distance of the plane in focus, metres.
    void setFocalDepth(float metres) { focal_depth_ = metres; }
    Float3 right() const { return right_; }
    Float3 up() const { return up_; }
    Float3 forward() const { return forward_; }

private:
    Ray perspectiveRay(float x, float y, Float2 lens) const;
    Ray parallelRay(float x, float y) const;
    Ray sphericalRay(float x, float y) const;

    Projection projection_;
    Float3 position_, right_, up_, forward_;
    FilmSize film_;
    Float2 shift_;
    float plane_width_ = 0, plane_height_ = 0;  // of the picture: at distance 1, in metres, or in radians
    float lens_width_, lens_height_, focal_depth_, near_;
};

/// A view of everything in `bounds`, obliquely from above, that fills a film of that shape.
CameraSettings frame(const Bounds& bounds, FilmSize film);

}  // namespace Velmar::Engine
