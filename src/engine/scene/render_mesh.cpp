#include "engine/scene/render_mesh.h"

#include <cstring>

namespace Velmar::Engine {

/// Turns the arrays of a mesh node into triangles, polygon after polygon.
class MeshBuilder {
public:
    explicit MeshBuilder(const MeshSource& source) : source_(source), mesh_(new RenderMesh) {
        usable_.resize(source.vertices.size());
        for (std::size_t i = 0; i < usable_.size(); ++i) usable_[i] = isUsable(source.vertices[i]);
        smooth_ = !source.normals.empty() && !source.normal_indices.empty();
        textured_ = !source.uvws.empty() && !source.uvw_indices.empty();
        slotted_ = !source.polygon_slots.empty();
    }

    std::shared_ptr<const RenderMesh> build(const AccelerationDevice& device) {
        copyCornerData();
        std::size_t corner = 0;
        for (std::size_t polygon = 0; polygon < source_.corners_per_polygon.size(); ++polygon) {
            const int count = source_.corners_per_polygon[polygon];
            if (count <= 0) continue;
            if (static_cast<std::size_t>(count) > source_.vertex_indices.size() - corner) break;
            if (polygonIsUsable(corner, static_cast<std::size_t>(count))) addFan(polygon, corner, count);
            corner += static_cast<std::size_t>(count);
        }
        copyVertices();
        if (!mesh_->triangles_.empty()) buildAcceleration(device);
        return std::move(mesh_);
    }

private:
    static bool isUsable(Float3 p) { return isFinite(p) && largest(absolute(p)) <= kLargestCoordinate; }

    bool polygonIsUsable(std::size_t first, std::size_t count) const {
        if (count < 3) return false;
        for (std::size_t i = first; i < first + count; ++i) {
            const auto vertex = static_cast<std::uint32_t>(source_.vertex_indices[i]);
            if (vertex >= usable_.size() || !usable_[vertex]) return false;
        }
        return true;
    }

    void addFan(std::size_t polygon, std::size_t first, int count) {
        for (int k = 1; k + 1 < count; ++k) {
            const std::size_t corners[3] = {first, first + static_cast<std::size_t>(k),
                                            first + static_cast<std::size_t>(k) + 1};
            addTriangle(polygon, corners);
        }
    }

    void addTriangle(std::size_t polygon, const std::size_t (&corners)[3]) {
        RenderMesh::Triangle triangle;
        for (int k = 0; k < 3; ++k) triangle[k] = static_cast<std::uint32_t>(source_.vertex_indices[corners[k]]);
        const Float3 a = source_.vertices[triangle[0]];
        const Float3 b = source_.vertices[triangle[1]];
        const Float3 c = source_.vertices[triangle[2]];
        if (normalised(cross(b - a, c - a)) == Float3{}) return;

        mesh_->triangles_.push_back(triangle);
        for (Float3 p : {a, b, c}) mesh_->bounds_.include(p);
        if (smooth_)
            mesh_->normal_triangles_.push_back(cornerIndices(corners, source_.normal_indices, usable_normals_));
        if (textured_) mesh_->uvw_triangles_.push_back(cornerIndices(corners, source_.uvw_indices, usable_uvws_));
        if (slotted_)
            mesh_->slots_.push_back(polygon < source_.polygon_slots.size() ? source_.polygon_slots[polygon] : 0);
    }

    static RenderMesh::Triangle cornerIndices(const std::size_t (&corners)[3], std::span<const int> indices,
                                              const std::vector<char>& usable) {
        RenderMesh::Triangle result;
        for (int k = 0; k < 3; ++k) {
            const std::uint32_t index =
                corners[k] < indices.size() ? static_cast<std::uint32_t>(indices[corners[k]]) : RenderMesh::kNone;
            result[k] = index < usable.size() && usable[index] ? index : RenderMesh::kNone;
        }
        return result;
    }

    void copyCornerData() {
        if (smooth_) {
            mesh_->normals_.reserve(source_.normals.size());
            for (Float3 n : source_.normals) {
                mesh_->normals_.push_back(normalised(n));
                usable_normals_.push_back(mesh_->normals_.back() != Float3{});
            }
        }
        if (textured_) {
            mesh_->uvws_.assign(source_.uvws.begin(), source_.uvws.end());
            for (Float3 uvw : source_.uvws) usable_uvws_.push_back(isFinite(uvw));
        }
    }

    // Vertices that cannot be used stay at the origin; no triangle names them.
    void copyVertices() {
        mesh_->vertices_.resize(source_.vertices.size());
        for (std::size_t i = 0; i < usable_.size(); ++i) {
            const Float3 p = source_.vertices[i];
            if (usable_[i]) mesh_->vertices_[i] = {p.x, p.y, p.z, 0.0f};
        }
    }

    void buildAcceleration(const AccelerationDevice& device) {
        const OwnedGeometry geometry(rtcNewGeometry(device.get(), RTC_GEOMETRY_TYPE_TRIANGLE));
        rtcSetSharedGeometryBuffer(geometry.get(), RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3,
                                   mesh_->vertices_.data(), 0, sizeof(RenderMesh::PaddedVertex),
                                   mesh_->vertices_.size());
        rtcSetSharedGeometryBuffer(geometry.get(), RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, mesh_->triangles_.data(),
                                   0, sizeof(RenderMesh::Triangle), mesh_->triangles_.size());
        rtcCommitGeometry(geometry.get());
        mesh_->scene_.reset(rtcNewScene(device.get()));
        rtcSetSceneFlags(mesh_->scene_.get(), RTC_SCENE_FLAG_ROBUST);
        rtcAttachGeometry(mesh_->scene_.get(), geometry.get());
        rtcCommitScene(mesh_->scene_.get());
        device.throwIfMemoryRanOut();
    }

    const MeshSource& source_;
    std::shared_ptr<RenderMesh> mesh_;
    std::vector<char> usable_, usable_normals_, usable_uvws_;
    bool smooth_ = false, textured_ = false, slotted_ = false;
};

std::shared_ptr<const RenderMesh> RenderMesh::build(const AccelerationDevice& device, const MeshSource& source) {
    return MeshBuilder(source).build(device);
}

}  // namespace Velmar::Engine
