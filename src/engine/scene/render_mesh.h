// A mesh as the renderer holds it: triangles with their acceleration structure, made once from the arrays of a mesh
// node and shared by every placement. Immutable after build(); any thread may read it.
#pragma once

#include "engine/scene/acceleration.h"
#include "engine/scene/vector_math.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace Velmar::Engine {

/// The arrays of a mesh node, borrowed for the time of a build. Polygons follow one another in the index arrays;
/// normals, uvws and materials may be missing.
struct MeshSource {
    std::span<const int> corners_per_polygon;
    std::span<const Float3> vertices;  ///< metres
    std::span<const int> vertex_indices;
    std::span<const Float3> normals;  ///< any length; those of no length count as missing
    std::span<const int> normal_indices;
    std::span<const Float3> uvws;
    std::span<const int> uvw_indices;
    std::span<const int> polygon_slots;
};

class RenderMesh {
public:
    using Triangle = std::array<std::uint32_t, 3>;
    /// Marks a corner without a normal or uvw of its own.
    static constexpr std::uint32_t kNone = 0xffffffffu;

    /// Polygons become fans of triangles. Dropped are polygons of fewer than three corners, those that name a vertex
    /// that does not exist or is not finite, those whose corners run past the end of the index array, and triangles
    /// without area. What remains may be nothing; then there is no acceleration structure.
    static std::shared_ptr<const RenderMesh> build(const AccelerationDevice& device, const MeshSource& source);

    /// Null when the mesh has no triangle.
    RTCScene accelerationStructure() const { return scene_.get(); }
    std::size_t triangleCount() const { return triangles_.size(); }
    const Bounds& bounds() const { return bounds_; }

    Float3 vertex(std::uint32_t index) const {
        const PaddedVertex& v = vertices_[index];
        return {v.x, v.y, v.z};
    }
    const Triangle& triangle(std::uint32_t index) const { return triangles_[index]; }
    bool hasNormals() const { return !normal_triangles_.empty(); }
    /// The normals of the corners, kNone where a corner has none; only with hasNormals().
    const Triangle& normalTriangle(std::uint32_t index) const { return normal_triangles_[index]; }
    /// A unit vector.
    Float3 normal(std::uint32_t index) const { return normals_[index]; }
    bool hasUvws() const { return !uvw_triangles_.empty(); }
    const Triangle& uvwTriangle(std::uint32_t index) const { return uvw_triangles_[index]; }
    Float3 uvw(std::uint32_t index) const { return uvws_[index]; }
    /// The material slot of a triangle.
    int slot(std::uint32_t index) const { return slots_.empty() ? 0 : slots_[index]; }

private:
    friend class MeshBuilder;
    RenderMesh() = default;

    // The intersection library reads 16 bytes at every vertex.
    struct PaddedVertex {
        float x = 0, y = 0, z = 0, padding = 0;
    };

    std::vector<PaddedVertex> vertices_;
    std::vector<Triangle> triangles_;
    std::vector<Float3> normals_;
    std::vector<Triangle> normal_triangles_;
    std::vector<Float3> uvws_;
    std::vector<Triangle> uvw_triangles_;
    std::vector<int> slots_;
    Bounds bounds_;
    OwnedScene scene_;
};

}  // namespace Velmar::Engine
