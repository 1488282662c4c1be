#include "plugin/sketchup/geometry_stream.h"

#include <bit>
#include <cmath>
#include <exception>

namespace Velmar {

namespace {

/// Normals whose dot product is this or less in size stand at right angles within one surface.
constexpr float kRightAngleLimit = std::bit_cast<float>(std::uint32_t{0x3c23d70a});  // 0.01
/// Added to a surface id for the normals beyond a hard edge.
constexpr std::uint32_t kHardEdgeOffset = 100000;
/// More than any host has; a larger count is a mistake of the caller and would only bind memory.
constexpr std::uint32_t kLargestReservation = 1u << 27;

template <typename List>
void TryReserve(List& list, std::uint32_t count) {
    if (count > kLargestReservation) return;
    try {
        list.reserve(count);
    } catch (const std::exception&) {
        // The list grows on demand instead.
    }
}

template <typename Key>
void TryReserve(WeldTable<Key>& table, std::uint32_t count) {
    if (count > kLargestReservation) return;
    try {
        table.Reserve(count);
    } catch (const std::exception&) {
        // The table grows on demand instead.
    }
}

}  // namespace

void GeometryStream::Warmup(std::uint32_t point_count, std::uint32_t index_count) {
    TryReserve(normals, point_count);
    TryReserve(uvws, point_count);
    TryReserve(mesh_vertices, point_count);
    TryReserve(surfaces_, point_count);
    TryReserve(points_, point_count);
    TryReserve(positions_, point_count);
    TryReserve(normals_by_key_, point_count);
    TryReserve(normal_indices, index_count);
    TryReserve(uvw_indices, index_count);
    TryReserve(vertex_indices, index_count);
}

void GeometryStream::Clear() {
    faces.clear();
    normals.clear();
    uvws.clear();
    mesh_vertices.clear();
    normal_indices.clear();
    uvw_indices.clear();
    vertex_indices.clear();
    points_.clear();
    surfaces_.clear();
    positions_.Clear();
    normals_by_key_.Clear();
    last_position_ = kNone;
}

void GeometryStream::AddVertex(float x_inches, float y_inches, float z_inches) {
    last_vertex_ = PointFromHost(x_inches, y_inches, z_inches);
    last_position_ = kNone;
    const std::uint32_t place = LatestPosition();
    int& vertex = positions_[place].value;
    if (vertex < 0) {
        mesh_vertices.push_back(last_vertex_);
        vertex = static_cast<int>(mesh_vertices.size() - 1);
    }
    points_.push_back({place, vertex});
}

std::uint32_t GeometryStream::LatestPosition() {
    if (last_position_ == kNone) last_position_ = positions_.FindOrInsert(KeyOf(last_vertex_), -1);
    return last_position_;
}

int GeometryStream::AppendNormal(const Vec3<float>& normal) {
    normals.push_back(normal);
    return static_cast<int>(normals.size() - 1);
}

void GeometryStream::AddNormal(float x, float y, float z, int surface_id) {
    const Vec3<float> normal = DirectionFromHost(x, y, z);
    const std::uint32_t position = LatestPosition();
    auto surface = static_cast<std::uint32_t>(surface_id);
    std::uint32_t place = normals_by_key_.FindOrInsert({position, surface}, -1);

    const int known = normals_by_key_[place].value;
    if (known < 0) {
        normals_by_key_[place].value = AppendNormal(normal);
    } else {
        const Vec3<float>& shared = normals[static_cast<std::size_t>(known)];
        const float dot = shared.x * normal.x + shared.y * normal.y + shared.z * normal.z;
        if (std::fabs(dot) <= kRightAngleLimit) {
            // A hard edge: the newest normal takes the key beyond it, whatever stood there.
            surface += kHardEdgeOffset;
            place = normals_by_key_.FindOrInsert({position, surface}, -1);
            normals_by_key_[place].value = AppendNormal(normal);
        }
    }
    surfaces_.push_back({surface, position, place});
}

bool GeometryStream::AddVertexIndex(std::uint32_t point_number) {
    const std::size_t point = point_number - std::size_t{1};
    if (point >= points_.size()) return false;
    vertex_indices.push_back(points_[point].vertex);
    return true;
}

bool GeometryStream::AddNormalIndex(std::uint32_t point_number) {
    const std::size_t point = point_number - std::size_t{1};
    if (point >= points_.size() || normals.empty()) return false;
    if (point >= surfaces_.size()) {
        normal_indices.push_back(0);
        return true;
    }
    const Surface& surface = surfaces_[point];
    std::uint32_t place = surface.normal;
    // Where calls were not paired, the point and the surface of one number belong to different positions: their key is
    // looked up, and a key that nobody has given a normal to is bound to the first one.
    if (surface.position != points_[point].position) {
        place = normals_by_key_.FindOrInsert({points_[point].position, surface.surface_id}, 0);
    }
    normal_indices.push_back(normals_by_key_[place].value);
    return true;
}

bool GeometryStream::AddUvwIndex(int uvw_number) {
    if (uvw_number < 1 || static_cast<std::size_t>(uvw_number) > uvws.size()) return false;
    uvw_indices.push_back(uvw_number - 1);
    return true;
}

}  // namespace Velmar
