// Welding a million corners: the geometry stream against the same welding with text keys in ordered maps.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "plugin/sketchup/geometry_stream.h"
#include "ratio_rounds.h"
#include "support/text_key_stream.h"

namespace {

using Velmar::GeometryStream;
using Velmar::Bench::Compare;
using Velmar::TestSupport::TextKeyStream;

struct Corner {
    float x, y, z;  // inches
    float nx, ny, nz;
    int surface_id;
};

/// A rolling terrain of quads, 1000 by 167, whose corners all come as points of their own; six to a quad, like the
/// triangles of a host that shares nothing.
std::vector<Corner> Terrain(std::size_t count) {
    std::vector<Corner> corners;
    for (std::size_t quad = 0; corners.size() < count; ++quad) {
        for (const auto& [dx, dy] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}}) {
            const float x = static_cast<float>(quad % 1000) + static_cast<float>(dx);
            const float y = static_cast<float>(quad / 1000) + static_cast<float>(dy);
            const float z = 30.0f * std::sin(x * 0.05f) * std::cos(y * 0.05f);
            corners.push_back({x * 7.3f, y * 7.3f, z, -0.1f, 0.1f, 0.99f, static_cast<int>(quad / 5000)});
        }
    }
    corners.resize(count);
    return corners;
}

template <typename Stream>
void Weld(Stream& stream, const std::vector<Corner>& corners) {
    stream.Clear();
    for (const Corner& c : corners) {
        stream.AddVertex(c.x, c.y, c.z);
        stream.AddNormal(c.nx, c.ny, c.nz, c.surface_id);
    }
    for (std::size_t number = 1; number <= corners.size(); ++number) {
        stream.AddVertexIndex(static_cast<std::uint32_t>(number));
        stream.AddNormalIndex(static_cast<std::uint32_t>(number));
    }
}

}  // namespace

int main() {
    const std::vector<Corner> corners = Terrain(1'000'000);
    GeometryStream ours;
    TextKeyStream reference;
    Compare(
        "weld a million corners / text keys in an ordered map", 12.0, [&] { Weld(reference, corners); },
        [&] { Weld(ours, corners); });
    const bool agree = ours.mesh_vertices == reference.mesh_vertices && ours.normals == reference.normals &&
                       ours.vertex_indices == reference.vertex_indices &&
                       ours.normal_indices == reference.normal_indices;
    if (!agree) std::fprintf(stderr, "weld_bench: the two do not agree\n");
    return agree ? EXIT_SUCCESS : EXIT_FAILURE;
}
