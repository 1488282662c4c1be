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

template <typename Key, typename Value>
void TryReserve(WeldTable<Key, Value>& table, std::uint32_t count) {
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
    TryReserve(keyed_normals_, point_count);
    TryReserve(more_normals_, point_count);
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
    keyed_normals_.clear();
    more_normals_.Clear();
    last_position_ = kNone;
}

void GeometryStream::AddVertex(float x_inches, float y_inches, float z_inches) {
    const Vec3<float> position = PointFromHost(x_inches, y_inches, z_inches);
    const std::uint32_t place = positions_.FindOrInsert({KeysOf(position)}, {-1, kNone});
    int vertex = positions_[place].value.vertex;
    if (vertex < 0) {
        mesh_vertices.push_back(position);
        vertex = static_cast<int>(mesh_vertices.size() - 1);
        positions_[place].value.vertex = vertex;
    }
    points_.push_back({place, vertex});
    last_vertex_ = position;
    last_position_ = place;
}

/// The place of the latest position, also of one that an earlier stream has left.
std::uint32_t GeometryStream::LatestPosition() {
    if (last_position_ == kNone) last_position_ = positions_.FindOrInsert({KeysOf(last_vertex_)}, {-1, kNone});
    return last_position_;
}

/// The place of a key's normal; a new key gets one with `initial` as its index.
std::uint32_t GeometryStream::FindOrInsertNormal(std::uint32_t position, std::uint32_t surface_id, int initial) {
    const std::uint32_t first = positions_[position].value.first_normal;
    if (first != kNone && keyed_normals_[first].surface_id == surface_id) return first;

    const auto next = static_cast<std::uint32_t>(keyed_normals_.size());
    if (first != kNone) {
        const std::uint32_t entry = more_normals_.FindOrInsert({position, surface_id}, next);
        const std::uint32_t place = more_normals_[entry].value;
        if (place != next) return place;
    }
    keyed_normals_.push_back({surface_id, initial});
    if (first == kNone) positions_[position].value.first_normal = next;
    return next;
}

int GeometryStream::AppendNormal(const Vec3<float>& normal) {
    normals.push_back(normal);
    return static_cast<int>(normals.size() - 1);
}

void GeometryStream::AddNormal(float x, float y, float z, int surface_id) {
    const Vec3<float> normal = DirectionFromHost(x, y, z);
    const std::uint32_t position = last_position_ != kNone ? last_position_ : LatestPosition();
    auto surface = static_cast<std::uint32_t>(surface_id);
    std::uint32_t place = FindOrInsertNormal(position, surface, -1);

    const int known = keyed_normals_[place].normal;
    if (known < 0) {
        keyed_normals_[place].normal = AppendNormal(normal);
    } else {
        const Vec3<float>& shared = normals[static_cast<std::size_t>(known)];
        const float dot = shared.x * normal.x + shared.y * normal.y + shared.z * normal.z;
        if (std::fabs(dot) <= kRightAngleLimit) {
            // A hard edge: the newest normal takes the key beyond it, whatever stood there.
            surface += kHardEdgeOffset;
            place = FindOrInsertNormal(position, surface, -1);
            keyed_normals_[place].normal = AppendNormal(normal);
        }
    }
    const bool is_paired = points_.size() == surfaces_.size() + 1 && points_.back().position == position;
    surfaces_.push_back({surface, is_paired ? place : kNone});
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
    // Where calls were not paired, the point may be another one than the normal was given for: the key is looked up,
    // and one that nobody has given a normal to is bound to the first normal.
    if (place == kNone) place = FindOrInsertNormal(points_[point].position, surface.surface_id, 0);
    normal_indices.push_back(keyed_normals_[place].normal);
    return true;
}

bool GeometryStream::AddUvwIndex(int uvw_number) {
    if (uvw_number < 1 || static_cast<std::size_t>(uvw_number) > uvws.size()) return false;
    uvw_indices.push_back(uvw_number - 1);
    return true;
}

}  // namespace Velmar
