#include "engine/render/surface.h"

#include <cmath>

namespace Velmar::Engine {

namespace {

RTCRay toLibrary(const Ray& ray) {
    RTCRay result;
    result.org_x = ray.origin.x;
    result.org_y = ray.origin.y;
    result.org_z = ray.origin.z;
    result.tnear = ray.near;
    result.dir_x = ray.direction.x;
    result.dir_y = ray.direction.y;
    result.dir_z = ray.direction.z;
    result.time = 0.0f;
    result.tfar = ray.far;
    result.mask = 0xffffffffu;
    result.id = 0;
    result.flags = 0;
    return result;
}

// A triangle in world space, as far as shading needs it.
struct WorldTriangle {
    Float3 vertices[3];
    Float3 normals[3];
    float weights[3];
    bool smooth = false;  // the normals are there and differ
};

/// Reads the triangle that was hit, brings it into the world and works out the point.
class SurfaceReader {
public:
    SurfaceReader(const RenderGeometry& geometry, const Ray& ray, const RTCRayHit& hit)
        : ray_(ray), placement_(geometry.placement(hit.hit.instID[0])), primitive_(hit.hit.primID) {
        triangle_.weights[0] = 1.0f - hit.hit.u - hit.hit.v;
        triangle_.weights[1] = hit.hit.u;
        triangle_.weights[2] = hit.hit.v;
        surface_.distance = hit.ray.tfar;
    }

    SurfacePoint read() {
        readPosition();
        readGeometricNormal();
        readShadingNormal();
        surface_.departure = surface_.position + surface_.geometric_normal * clearance();
        if (triangle_.smooth) surface_.departure += liftToSmoothSurface();
        return surface_;
    }

private:
    void readPosition() {
        const RenderMesh::Triangle& indices = placement_.mesh->triangle(primitive_);
        for (int k = 0; k < 3; ++k) model_vertices_[k] = placement_.mesh->vertex(indices[k]);
        model_position_ = interpolate(model_vertices_);
        surface_.position = transformPoint(*placement_.world_from_model, model_position_);
    }

    void readGeometricNormal() {
        const Float3 edge_1 = model_vertices_[1] - model_vertices_[0];
        const Float3 edge_2 = model_vertices_[2] - model_vertices_[0];
        const Float3 normal = normalised(transformNormal(*placement_.world_from_model, cross(edge_1, edge_2)));
        surface_.geometric_normal = dot(normal, ray_.direction) > 0.0f ? -normal : normal;
        surface_.shading_normal = surface_.geometric_normal;
    }

    void readShadingNormal() {
        if (!placement_.mesh->hasNormals()) return;
        const RenderMesh::Triangle& indices = placement_.mesh->normalTriangle(primitive_);
        const bool flat = indices[0] == indices[1] && indices[1] == indices[2];
        for (int k = 0; k < 3; ++k) {
            if (indices[k] == RenderMesh::kNone) return;
            triangle_.normals[k] = worldNormal(placement_.mesh->normal(indices[k]));
            if (flat) break;
        }
        const Float3 normal = flat ? triangle_.normals[0] : normalised(interpolate(triangle_.normals));
        if (normal == Float3{}) return;
        surface_.shading_normal = normal;
        triangle_.smooth = !flat;
    }

    // On the side of the geometric normal.
    Float3 worldNormal(Float3 model_normal) const {
        const Float3 normal = normalised(transformNormal(*placement_.world_from_model, model_normal));
        return dot(normal, surface_.geometric_normal) < 0.0f ? -normal : normal;
    }

    // A bound of the rounding error of the position, along the geometric normal: each coordinate is a sum whose terms
    // each carry a few units of the last place (Pharr, Jakob and Humphreys 2016, section 3.9).
    float clearance() const {
        const auto& m = placement_.world_from_model->m;
        const Float3 p = absolute(model_position_);
        const Float3 n = absolute(surface_.geometric_normal);
        const auto magnitude = [&](int row) {
            return std::fabs(m[row][0]) * p.x + std::fabs(m[row][1]) * p.y + std::fabs(m[row][2]) * p.z +
                   std::fabs(m[row][3]);
        };
        constexpr float kUnits = 16.0f * std::numeric_limits<float>::epsilon();
        return kUnits * (n.x * magnitude(0) + n.y * magnitude(1) + n.z * magnitude(2)) + 1e-7f;
    }

    // From the flat triangle to the rounded surface that its normals mean, so that it casts no shadow on itself where
    // the light grazes. Hanika 2021, "Hacking the Shadow Terminator".
    Float3 liftToSmoothSurface() const {
        Float3 lift{};
        for (int k = 0; k < 3; ++k) {
            const Float3 vertex = transformPoint(*placement_.world_from_model, model_vertices_[k]);
            const float below = dot(surface_.position - vertex, triangle_.normals[k]);
            if (below < 0.0f && dot(triangle_.normals[k], surface_.geometric_normal) > kLeastCosineOfLift)
                lift += triangle_.normals[k] * (-below * triangle_.weights[k]);
        }
        return lift;
    }

    Float3 interpolate(const Float3 (&values)[3]) const {
        return values[0] * triangle_.weights[0] + values[1] * triangle_.weights[1] + values[2] * triangle_.weights[2];
    }

    // Normals farther off than this stand for a hard edge that was smoothed over; there is no rounded surface there.
    static constexpr float kLeastCosineOfLift = 0.5f;

    const Ray& ray_;
    RenderGeometry::Placement placement_;
    std::uint32_t primitive_;
    WorldTriangle triangle_;
    Float3 model_vertices_[3];
    Float3 model_position_;
    SurfacePoint surface_;
};

}  // namespace

std::optional<SurfacePoint> intersect(const RenderGeometry& geometry, const Ray& ray) {
    RTCRayHit hit;
    hit.ray = toLibrary(ray);
    hit.hit.geomID = RTC_INVALID_GEOMETRY_ID;
    hit.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    rtcIntersect1(geometry.accelerationStructure(), &context, &hit);
    if (hit.hit.geomID == RTC_INVALID_GEOMETRY_ID) return std::nullopt;
    return SurfaceReader(geometry, ray, hit).read();
}

bool isOccluded(const RenderGeometry& geometry, const Ray& ray) {
    RTCRay shadow = toLibrary(ray);
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    rtcOccluded1(geometry.accelerationStructure(), &context, &shadow);
    return shadow.tfar < 0.0f;
}

}  // namespace Velmar::Engine
