// The geometry of one definition on its way from the script layer, which pushes it number by number: points with their
// normals, texture coordinates, triangle corners, faces. Converts units and axes on entry, welds equal positions and
// shares normals over each smoothing surface. Knows nothing of definitions and nodes. Ruby thread only.
#pragma once

#include <velmar/values.h>

#include <cstdint>
#include <string>
#include <vector>

#include "plugin/nodes/units.h"
#include "plugin/sketchup/coordinate_key.h"
#include "plugin/sketchup/weld_table.h"

namespace Velmar {

/// A face of the host's mesh: a run of triangles with one material.
struct Face {
    int face_id = -1;           ///< the script layer's name for it
    int face_material_id = -1;  ///< id of a host material; any id that is not in the table means none
    int first_poly = 0;         ///< its first triangle
    int end_poly = 0;           ///< one past its last triangle
};

/// The mesh as far as it has come. Numbers that the script layer gives count from 1: point numbers in the order of
/// AddVertex, uvw numbers in that of AddUvw. Each AddVertex is followed by its one AddNormal.
class GeometryStream {
public:
    std::vector<Face> faces;
    std::string name;                        ///< of the mesh
    std::vector<Vec3<float>> normals;        ///< distinct ones, renderer axes, as long as they came
    std::vector<Vec3<float>> uvws;           ///< not welded; the third number is always 1
    std::vector<Vec3<float>> mesh_vertices;  ///< welded positions, renderer axes, metres
    std::vector<int> normal_indices;         ///< one for each triangle corner, as the two below
    std::vector<int> uvw_indices;
    std::vector<int> vertex_indices;

    /// Reserves memory for so many points and corners. What cannot be had is done without.
    void Warmup(std::uint32_t point_count, std::uint32_t index_count);
    /// Drops everything but the name and the latest position. Memory is kept.
    void Clear();
    /// No point has come since the last Clear.
    bool IsEmpty() const { return points_.empty(); }

    /// Takes a point of the host, in inches.
    void AddVertex(float x_inches, float y_inches, float z_inches);
    /// Takes the normal of the latest point, in host axes, of any length. Within one surface a point has one normal,
    /// but for one that stands at right angles to it: that begins a hard edge and gets a normal of its own.
    void AddNormal(float x, float y, float z, int surface_id);
    /// Takes the texture coordinate (u / q, v / q).
    void AddUvw(float u, float v, float q) { uvws.push_back({u / q, v / q, 1.0f}); }

    /// Each adds a triangle corner's index; a number that no point or uvw has adds nothing and answers false. A point
    /// that has no normal of its own shows the first normal.
    bool AddVertexIndex(std::uint32_t point_number);
    bool AddNormalIndex(std::uint32_t point_number);
    bool AddUvwIndex(int uvw_number);
    void AddFace(const Face& face) { faces.push_back(face); }

private:
    /// Two positions are one when their coordinates print alike with six decimals: the three numbers tell apart what
    /// the three texts in a row would, as each text ends with its sixth decimal (or is a word of three letters).
    struct PositionKey {
        CoordinateKeys keys;
        friend bool operator==(const PositionKey&, const PositionKey&) = default;
        std::uint64_t Hash() const { return MixBits(keys.x | std::uint64_t{keys.y} << 32, keys.z); }
    };
    /// A position with a surface; again no two pairs could be mistaken for one another if they were written in a row.
    struct NormalKey {
        std::uint32_t position;  ///< place in positions_
        std::uint32_t surface_id;
        friend bool operator==(const NormalKey&, const NormalKey&) = default;
        std::uint64_t Hash() const { return MixBits(position, surface_id); }
    };
    /// What stands at a position.
    struct Position {
        int vertex;                  ///< index in mesh_vertices, -1 for none
        std::uint32_t first_normal;  ///< place in keyed_normals_, kNone for none
    };
    /// A normal by its key. The first one of a position is found there, further ones through more_normals_.
    struct KeyedNormal {
        std::uint32_t surface_id;
        int normal;  ///< index in normals
    };
    /// A point as the script layer numbers them.
    struct Point {
        std::uint32_t position;  ///< place in positions_
        int vertex;              ///< index in mesh_vertices
    };
    /// What the AddNormal of the same number has left.
    struct Surface {
        std::uint32_t surface_id;
        std::uint32_t normal;  ///< place in keyed_normals_; kNone when the point of this number had not just come
    };

    std::uint32_t LatestPosition();
    std::uint32_t FindOrInsertNormal(std::uint32_t position, std::uint32_t surface_id, int initial);
    int AppendNormal(const Vec3<float>& normal);

    static constexpr std::uint32_t kNone = 0xffffffff;

    std::vector<Point> points_;
    std::vector<Surface> surfaces_;
    std::vector<KeyedNormal> keyed_normals_;
    WeldTable<PositionKey, Position> positions_;
    WeldTable<NormalKey, std::uint32_t> more_normals_;  ///< value: place in keyed_normals_
    Vec3<float> last_vertex_;                           ///< stays from one stream to the next
    std::uint32_t last_position_ = kNone;               ///< its place in positions_, when it has one
};

}  // namespace Velmar
