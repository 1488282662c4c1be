// The geometry stream told in the plainest way: keys are texts in ordered maps. It is what the plug-in's stream must
// agree with, and what its speed is measured against. It takes correct numbers only.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "plugin/nodes/units.h"

namespace Velmar::TestSupport {

class TextKeyStream {
public:
    std::vector<Vec3<float>> normals, mesh_vertices;
    std::vector<int> normal_indices, vertex_indices;

    void AddVertex(float x, float y, float z) {
        last_vertex_ = PointFromHost(x, y, z);
        vertices_.push_back(last_vertex_);
        const auto next = static_cast<int>(mesh_vertices.size());
        if (vertices_map_.try_emplace(PositionKey(last_vertex_), next).second) mesh_vertices.push_back(last_vertex_);
    }

    void AddNormal(float x, float y, float z, int surface_id) {
        const Vec3<float> normal = DirectionFromHost(x, y, z);
        auto surface = static_cast<unsigned>(surface_id);
        const auto next = static_cast<int>(normals.size());
        const auto [entry, is_new] = normals_map_.try_emplace(NormalKey(last_vertex_, surface), next);
        if (is_new) {
            normals.push_back(normal);
        } else {
            const Vec3<float> known = normals[static_cast<std::size_t>(entry->second)];
            if (std::fabs(known.x * normal.x + known.y * normal.y + known.z * normal.z) <= 0.01f) {
                surface += 100000;
                normals.push_back(normal);
                normals_map_[NormalKey(last_vertex_, surface)] = next;
            }
        }
        surface_ids_.push_back(surface);
    }

    void AddVertexIndex(std::size_t number) {
        vertex_indices.push_back(vertices_map_[PositionKey(vertices_[number - 1])]);
    }

    void AddNormalIndex(std::size_t number) {
        normal_indices.push_back(normals_map_[NormalKey(vertices_[number - 1], surface_ids_[number - 1])]);
    }

    /// Everything but the latest position goes.
    void Clear() {
        const Vec3<float> last_vertex = last_vertex_;
        *this = TextKeyStream();
        last_vertex_ = last_vertex;
    }

    std::size_t PointCount() const { return vertices_.size(); }
    std::size_t SurfaceCount() const { return surface_ids_.size(); }

private:
    static std::string TextOf(float coordinate) {
        char text[64];
        std::snprintf(text, sizeof text, "%f", static_cast<double>(coordinate));
        return text;
    }
    static std::string PositionKey(const Vec3<float>& p) { return TextOf(p.x) + TextOf(p.y) + TextOf(p.z); }
    static std::string NormalKey(const Vec3<float>& p, unsigned surface) {
        return PositionKey(p) + std::to_string(static_cast<int>(surface));
    }

    std::vector<Vec3<float>> vertices_;
    std::vector<unsigned> surface_ids_;
    std::map<std::string, int> vertices_map_, normals_map_;
    Vec3<float> last_vertex_;
};

}  // namespace Velmar::TestSupport
