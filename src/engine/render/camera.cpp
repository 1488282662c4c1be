#include "engine/render/camera.h"

#include "engine/render/sampling.h"

#include <algorithm>
#include <cmath>

namespace Velmar::Engine {

namespace {

float radians(float degrees) {
    return degrees * (kPi / 180.0f);
}

// Any unit vector perpendicular to `forward`, for an up vector that says nothing.
Float3 rightWithoutUp(Float3 forward) {
    const Float3 axis = std::fabs(forward.y) < 0.9f ? Float3{0, 1, 0} : Float3{0, 0, -1};
    return normalised(cross(forward, axis));
}

}  // namespace

Camera::Camera(const CameraSettings& settings, FilmSize film)
    : projection_(settings.projection), position_(settings.position), film_(film), shift_(settings.lens_shift) {
    // Look from the position to the target, with the up vector upwards in the picture.
    forward_ = normalised(settings.target - settings.position);
    if (forward_ == Float3{}) forward_ = {0, 0, -1};
    const Float3 sideways = cross(forward_, normalised(settings.up));
    right_ = length(sideways) > 1e-5f ? normalised(sideways) : rightWithoutUp(forward_);
    up_ = cross(right_, forward_);

    // Spread the film over the plane of the picture, or over the sphere.
    const float pixel_aspect = std::clamp(settings.pixel_aspect, 0.01f, 100.0f);
    const float height_per_width = static_cast<float>(film.height) / static_cast<float>(film.width) * pixel_aspect;
    if (projection_ == Projection::Perspective) {
        plane_width_ = 2.0f * std::tan(radians(std::clamp(settings.fov_degrees, 0.01f, 179.9f)) * 0.5f);
    } else if (projection_ == Projection::Parallel) {
        plane_width_ = std::clamp(settings.parallel_width, 1e-6f, 1e12f);
    }
    plane_height_ = plane_width_ * height_per_width;
    if (projection_ == Projection::Spherical) {
        plane_width_ = radians(std::clamp(settings.fov_degrees, 0.01f, 360.0f));
        plane_height_ = radians(std::clamp(settings.vertical_fov_degrees, 0.01f, 180.0f));
    }

    const float radius = std::max(settings.aperture_radius, 0.0f);
    const float aspect = std::sqrt(std::clamp(settings.aperture_aspect, 0.01f, 100.0f));
    lens_width_ = radius * aspect;
    lens_height_ = radius / aspect;
    focal_depth_ = std::max(settings.focal_depth, 1e-4f);
    near_ = std::max(settings.near_clip, 0.0f);
}

Ray Camera::ray(Float2 pixel, Float2 lens) const {
    // From -1/2 at the left and bottom to 1/2 at the right and top.
    const float x = pixel.x / static_cast<float>(film_.width) - 0.5f + shift_.x;
    const float y = 0.5f - pixel.y / static_cast<float>(film_.height) + shift_.y;
    if (projection_ == Projection::Parallel) return parallelRay(x, y);
    if (projection_ == Projection::Spherical) return sphericalRay(x, y);
    return perspectiveRay(x, y, lens);
}

Ray Camera::perspectiveRay(float x, float y, Float2 lens) const {
    const Float3 through = forward_ + right_ * (x * plane_width_) + up_ * (y * plane_height_);
    Ray ray{position_, through};
    if (lens_width_ > 0.0f) {
        const Float2 point = sampleDisc(lens);
        const Float3 offset = right_ * (point.x * lens_width_) + up_ * (point.y * lens_height_);
        ray.origin += offset;
        ray.direction = through * focal_depth_ - offset;
    }
    ray.direction = normalised(ray.direction);
    ray.near = near_ / dot(ray.direction, forward_);
    return ray;
}

Ray Camera::parallelRay(float x, float y) const {
    return {position_ + right_ * (x * plane_width_) + up_ * (y * plane_height_), forward_, near_};
}

Ray Camera::sphericalRay(float x, float y) const {
    const float longitude = x * plane_width_;
    const float latitude = y * plane_height_;
    const Float3 level = forward_ * std::cos(longitude) + right_ * std::sin(longitude);
    return {position_, normalised(level * std::cos(latitude) + up_ * std::sin(latitude)), near_};
}

CameraSettings frame(const Bounds& bounds, FilmSize film) {
    constexpr float kFilledShare = 0.94f;  // of the picture's width or height
    CameraSettings settings;
    settings.fov_degrees = 40.0f;
    const Float3 towards_camera = normalised({-0.52f, 0.36f, 0.9f});
    const Float3 right = normalised(cross({0, 1, 0}, towards_camera));
    const Float3 up = cross(towards_camera, right);

    // Step back until each corner of the bounds lies within the picture.
    const Bounds box = bounds.empty() ? Bounds{{-1, -1, -1}, {1, 1, 1}} : bounds;
    const float half_width = std::tan(radians(settings.fov_degrees) * 0.5f) * kFilledShare;
    const float half_height = half_width * static_cast<float>(film.height) / static_cast<float>(film.width);
    float distance = 1e-3f;
    for (int index = 0; index < 8; ++index) {
        const Float3 corner = box.corner(index) - box.centre();
        const float across = std::fabs(dot(corner, right)) / half_width;
        const float along = std::fabs(dot(corner, up)) / half_height;
        distance = std::max(distance, dot(corner, towards_camera) + std::max(across, along));
    }

    settings.position = box.centre() + towards_camera * distance;
    settings.target = box.centre();
    settings.focal_depth = distance;
    return settings;
}

}  // namespace Velmar::Engine
