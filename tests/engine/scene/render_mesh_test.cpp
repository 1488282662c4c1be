#include "engine/scene/render_mesh.h"

#include <gtest/gtest.h>

#include <limits>

namespace Velmar::Engine {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

class RenderMeshTest : public testing::Test {
protected:
    std::shared_ptr<const RenderMesh> build() {
        MeshSource source;
        source.corners_per_polygon = corners;
        source.vertices = vertices;
        source.vertex_indices = indices;
        source.normals = normals;
        source.normal_indices = normal_indices;
        source.uvws = uvws;
        source.uvw_indices = uvw_indices;
        source.polygon_slots = slots;
        return RenderMesh::build(device, source);
    }

    AccelerationDevice device;
    std::vector<Float3> vertices{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.5f, 2, 0}};
    std::vector<int> corners{3}, indices{0, 1, 2};
    std::vector<Float3> normals, uvws;
    std::vector<int> normal_indices, uvw_indices, slots;
};

TEST_F(RenderMeshTest, CutsPolygonsIntoFans) {
    corners = {3, 4, 5};
    indices = {0, 1, 2, /**/ 0, 1, 2, 3, /**/ 0, 1, 2, 4, 3};
    slots = {7, 8, 9};
    const auto mesh = build();
    ASSERT_EQ(mesh->triangleCount(), 1u + 2 + 3);
    EXPECT_EQ(mesh->triangle(2), (RenderMesh::Triangle{0, 2, 3}));
    EXPECT_EQ(mesh->triangle(4), (RenderMesh::Triangle{0, 2, 4}));
    EXPECT_EQ(mesh->slot(0), 7);
    EXPECT_EQ(mesh->slot(2), 8);
    EXPECT_EQ(mesh->slot(5), 9);
    EXPECT_EQ(mesh->bounds(), (Bounds{{0, 0, 0}, {1, 2, 0}}));
    EXPECT_NE(mesh->accelerationStructure(), nullptr);
}

TEST_F(RenderMeshTest, DropsWhatIsNoPolygonAndKeepsTheRest) {
    vertices.push_back({kNan, 0, 0});
    vertices.push_back({0, kInfinity, 0});
    vertices.push_back({0, 0, 1e30f});
    corners = {2, 3, 3, 3, 3, 3, 0, -4, 1, 3, 3, 3};
    indices = {0, 1,      /**/ 0, 1, 99,     /**/ 0, -1, 2,      /**/ 0, 1, 5, /**/ 0, 1, 6, /**/ 0, 1, 7, /**/
               3, /**/ 0, 1,      1, /**/ 0, 1,      2,  /**/ 0, 1};
    const auto mesh = build();
    ASSERT_EQ(mesh->triangleCount(), 1u);
    EXPECT_EQ(mesh->triangle(0), (RenderMesh::Triangle{0, 1, 2}));
    EXPECT_EQ(mesh->bounds(), (Bounds{{0, 0, 0}, {1, 1, 0}}));
}

TEST_F(RenderMeshTest, EndsWhereTheCornersRunOut) {
    corners = {3, std::numeric_limits<int>::max(), 3};
    indices = {0, 1, 2, 0, 1, 2};
    EXPECT_EQ(build()->triangleCount(), 1u);
    corners = {3, 3, 3};
    EXPECT_EQ(build()->triangleCount(), 2u);
}

TEST_F(RenderMeshTest, OfNothingHasNoStructureAndNoBounds) {
    corners.clear();
    const auto mesh = build();
    EXPECT_EQ(mesh->triangleCount(), 0u);
    EXPECT_EQ(mesh->accelerationStructure(), nullptr);
    EXPECT_TRUE(mesh->bounds().empty());
}

TEST_F(RenderMeshTest, CornersHaveNormalsOfTheirOwnList) {
    normals = {{0, 0, 5}, {0, 3, 0}, {0, 0, 0}, {kNan, 0, 0}};
    normal_indices = {1, 0, 1};
    const auto mesh = build();
    ASSERT_TRUE(mesh->hasNormals());
    EXPECT_EQ(mesh->normalTriangle(0), (RenderMesh::Triangle{1, 0, 1}));
    EXPECT_EQ(mesh->normal(0), (Float3{0, 0, 1}));
    EXPECT_EQ(mesh->normal(1), (Float3{0, 1, 0}));
}

TEST_F(RenderMeshTest, CornersWithoutAUsableNormalSaySo) {
    normals = {{0, 0, 5}, {0, 3, 0}, {0, 0, 0}, {kNan, 0, 0}};
    for (int bad : {2, 3, 4, -1}) {
        normal_indices = {0, bad, 1};
        EXPECT_EQ(build()->normalTriangle(0), (RenderMesh::Triangle{0, RenderMesh::kNone, 1})) << bad;
    }
    normal_indices = {0};
    EXPECT_EQ(build()->normalTriangle(0), (RenderMesh::Triangle{0, RenderMesh::kNone, RenderMesh::kNone}));
    normal_indices.clear();
    EXPECT_FALSE(build()->hasNormals());
}

TEST_F(RenderMeshTest, KeepsTextureCoordinatesAlongsideDroppedPolygons) {
    corners = {3, 3};
    indices = {0, 0, 1, /**/ 0, 1, 2};
    uvws = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    uvw_indices = {0, 0, 0, 2, 1, 0};
    slots = {5, 6};
    const auto mesh = build();
    ASSERT_EQ(mesh->triangleCount(), 1u);
    EXPECT_EQ(mesh->uvwTriangle(0), (RenderMesh::Triangle{2, 1, 0}));
    EXPECT_EQ(mesh->uvw(2), (Float3{1, 1, 0}));
    EXPECT_EQ(mesh->slot(0), 6);
}

TEST_F(RenderMeshTest, PolygonsWithoutASlotHaveTheFirst) {
    EXPECT_EQ(build()->slot(0), 0);
    corners = {3, 3};
    indices = {0, 1, 2, 0, 2, 3};
    slots = {4};
    EXPECT_EQ(build()->slot(1), 0);
}

}  // namespace
}  // namespace Velmar::Engine
