// Where a ray meets the scene: the point, its normals, and how a new ray leaves it.
#pragma once

#include "engine/render/ray.h"
#include "engine/scene/render_scene.h"

#include <optional>

namespace Velmar::Engine {

struct SurfacePoint {
    Float3 position;
    Float3 geometric_normal;  ///< unit vector of the flat triangle, on the side that the ray came from
    Float3 shading_normal;    ///< unit vector, interpolated where the mesh has normals, on the same side
    Float3 departure;         ///< where rays start that leave on that side, clear of the surface
    float distance;           ///< from the ray's origin
};

/// The nearest surface along a ray.
std::optional<SurfacePoint> intersect(const RenderGeometry& geometry, const Ray& ray);

/// True when something stands between the ray's near and far ends.
bool isOccluded(const RenderGeometry& geometry, const Ray& ray);

}  // namespace Velmar::Engine
