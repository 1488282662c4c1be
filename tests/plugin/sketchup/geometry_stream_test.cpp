#include "plugin/sketchup/geometry_stream.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <random>

#include "plugin/sketchup/allocation_count.h"
#include "support/text_key_stream.h"

namespace Velmar {
namespace {

using TestSupport::TextKeyStream;

constexpr float kMetre = kInchesPerMetre;

/// A point with a normal, in metres of the host's axes.
void AddPoint(GeometryStream& stream, float x, float y, float z, Vec3<float> normal, int surface_id) {
    stream.AddVertex(x * kMetre, y * kMetre, z * kMetre);
    stream.AddNormal(normal.x, normal.y, normal.z, surface_id);
}

TEST(GeometryStream, AFaceStartsWithoutAnything) {
    const Face face;
    EXPECT_EQ(face.face_id, -1);
    EXPECT_EQ(face.face_material_id, -1);
    EXPECT_EQ(face.first_poly, 0);
    EXPECT_EQ(face.end_poly, 0);
}

TEST(GeometryStream, ConvertsPointsToMetresWithYUp) {
    GeometryStream stream;
    stream.AddVertex(kMetre, 2 * kMetre, 3 * kMetre);
    EXPECT_EQ(stream.mesh_vertices, (std::vector<Vec3<float>>{{1, 3, -2}}));
    stream.AddVertex(1, 1, 1);
    EXPECT_EQ(stream.mesh_vertices[1], (Vec3<float>{1 / kMetre, 1 / kMetre, -1 / kMetre}));
}

TEST(GeometryStream, ConvertsNormalsWithoutScaling) {
    GeometryStream stream;
    stream.AddVertex(0, 0, 0);
    stream.AddNormal(1, 2, 30, 1);
    EXPECT_EQ(stream.normals, (std::vector<Vec3<float>>{{1, 30, -2}}));
}

TEST(GeometryStream, PointsThatPrintAlikeShareAPosition) {
    GeometryStream stream;
    AddPoint(stream, 1, 2, 3, {0, 0, 1}, 1);
    AddPoint(stream, 1 + 2e-7f, 2, 3, {0, 0, 1}, 1);
    AddPoint(stream, 1 + 2e-6f, 2, 3, {0, 0, 1}, 1);
    EXPECT_EQ(stream.mesh_vertices.size(), 2u);
    for (unsigned number : {1u, 2u, 3u}) EXPECT_TRUE(stream.AddVertexIndex(number));
    EXPECT_EQ(stream.vertex_indices, (std::vector<int>{0, 0, 1}));
}

TEST(GeometryStream, ZerosOfDifferentSignDoNotWeld) {
    GeometryStream stream;
    stream.AddVertex(0.0f, 0.0f, 0.0f);  // the renderer's z is -0
    stream.AddVertex(0.0f, -0.0f, 0.0f);
    EXPECT_EQ(stream.mesh_vertices.size(), 2u);
    stream.AddVertex(-0.0f, 0.0f, 0.0f);
    EXPECT_EQ(stream.mesh_vertices.size(), 3u);
}

TEST(GeometryStream, PositionsAreNotMistakenWhenTheirTextsRunTogether) {
    GeometryStream stream;
    stream.AddVertex(1 * kMetre, 0, 21 * kMetre);
    stream.AddVertex(12 * kMetre, 0, 1 * kMetre);
    stream.AddVertex(1 * kMetre, 0, 2 * kMetre);
    EXPECT_EQ(stream.mesh_vertices.size(), 3u);
}

TEST(GeometryStream, DifferentSurfacesAtOnePositionHaveNormalsOfTheirOwn) {
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 2);
    EXPECT_EQ(stream.mesh_vertices.size(), 1u);
    EXPECT_EQ(stream.normals.size(), 2u);
    EXPECT_TRUE(stream.AddNormalIndex(1));
    EXPECT_TRUE(stream.AddNormalIndex(2));
    EXPECT_EQ(stream.normal_indices, (std::vector<int>{0, 1}));
}

TEST(GeometryStream, OneSurfaceSharesItsNormalEvenWithAnOppositeOne) {
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    AddPoint(stream, 0, 0, 0, {0, 0.6f, 0.8f}, 1);
    AddPoint(stream, 0, 0, 0, {0, 0, -1}, 1);
    EXPECT_EQ(stream.normals.size(), 1u);
    for (unsigned number : {1u, 2u, 3u}) EXPECT_TRUE(stream.AddNormalIndex(number));
    EXPECT_EQ(stream.normal_indices, (std::vector<int>{0, 0, 0}));
}

TEST(GeometryStream, ARightAngleWithinASurfaceGetsANormalOfItsOwn) {
    const float limit = std::bit_cast<float>(std::uint32_t{0x3c23d70a});
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    AddPoint(stream, 0, 0, 0, {1, 0, limit}, 1);
    EXPECT_EQ(stream.normals.size(), 2u);
    AddPoint(stream, 1, 0, 0, {0, 0, 1}, 1);
    AddPoint(stream, 1, 0, 0, {1, 0, std::nextafter(limit, 1.0f)}, 1);
    EXPECT_EQ(stream.normals.size(), 3u);
    AddPoint(stream, 2, 0, 0, {0, 0, 1}, 1);
    AddPoint(stream, 2, 0, 0, {1, 0, -limit}, 1);
    EXPECT_EQ(stream.normals.size(), 5u);
}

TEST(GeometryStream, TheDotProductTakesNormalsAsLongAsTheyCame) {
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 0.05f}, 1);
    AddPoint(stream, 0, 0, 0, {0, 0, 0.1f}, 1);  // parallel, but short: the product is 0.005
    EXPECT_EQ(stream.normals.size(), 2u);
}

TEST(GeometryStream, TheLatestNormalBeyondAHardEdgeTakesItsPlace) {
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 7);
    AddPoint(stream, 0, 0, 0, {1, 0, 0}, 7);
    EXPECT_TRUE(stream.AddNormalIndex(2));
    AddPoint(stream, 0, 0, 0, {0, 1, 0}, 7);
    for (unsigned number : {1u, 2u, 3u}) EXPECT_TRUE(stream.AddNormalIndex(number));
    EXPECT_EQ(stream.normals.size(), 3u);
    EXPECT_EQ(stream.normal_indices, (std::vector<int>{1, 0, 2, 2}));
    // The key beyond the edge is that of the surface 100000 further on.
    AddPoint(stream, 0, 0, 0, {0, 1, 0}, 100007);
    EXPECT_TRUE(stream.AddNormalIndex(4));
    EXPECT_EQ(stream.normal_indices.back(), 2);
}

TEST(GeometryStream, SurfaceIdsWrapBeyondAHardEdge) {
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, INT_MAX);
    AddPoint(stream, 0, 0, 0, {1, 0, 0}, INT_MAX);
    AddPoint(stream, 0, 0, 0, {1, 0, 0}, INT_MIN + 99999);
    EXPECT_EQ(stream.normals.size(), 2u);
    for (unsigned number : {1u, 2u, 3u}) EXPECT_TRUE(stream.AddNormalIndex(number));
    EXPECT_EQ(stream.normal_indices, (std::vector<int>{0, 1, 1}));
}

TEST(GeometryStream, ANormalThatIsNoNumberIsKeptAndShared) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    GeometryStream stream;
    AddPoint(stream, 0, 0, 0, {nan, 0, 1}, 1);
    AddPoint(stream, 0, 0, 0, {1, 0, 0}, 1);
    EXPECT_EQ(stream.normals.size(), 1u);
}

TEST(GeometryStream, UvwsAreDividedAndNotWelded) {
    GeometryStream stream;
    stream.AddUvw(1, 2, 4);
    stream.AddUvw(1, 2, 4);
    stream.AddUvw(1, -2, 0);
    ASSERT_EQ(stream.uvws.size(), 3u);
    EXPECT_EQ(stream.uvws[0], (Vec3<float>{0.25f, 0.5f, 1}));
    EXPECT_EQ(stream.uvws[1], stream.uvws[0]);
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(stream.uvws[2], (Vec3<float>{infinity, -infinity, 1}));
    EXPECT_TRUE(stream.AddUvwIndex(2));
    EXPECT_EQ(stream.uvw_indices, (std::vector<int>{1}));
}

TEST(GeometryStream, NumbersOutsideTheListsAddNothing) {
    GeometryStream stream;
    for (unsigned number : {0u, 1u, UINT_MAX}) {
        EXPECT_FALSE(stream.AddVertexIndex(number));
        EXPECT_FALSE(stream.AddNormalIndex(number));
    }
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    stream.AddUvw(0, 0, 1);
    for (unsigned number : {0u, 2u, 0x80000001u, UINT_MAX}) {
        EXPECT_FALSE(stream.AddVertexIndex(number));
        EXPECT_FALSE(stream.AddNormalIndex(number));
    }
    for (int number : {0, -1, 2, INT_MIN, INT_MAX}) EXPECT_FALSE(stream.AddUvwIndex(number));
    EXPECT_TRUE(stream.vertex_indices.empty());
    EXPECT_TRUE(stream.normal_indices.empty());
    EXPECT_TRUE(stream.uvw_indices.empty());
    EXPECT_TRUE(stream.AddVertexIndex(1));
    EXPECT_TRUE(stream.AddNormalIndex(1));
    EXPECT_TRUE(stream.AddUvwIndex(1));
}

TEST(GeometryStream, APointWithoutItsNormalShowsTheFirstOne) {
    GeometryStream stream;
    stream.AddVertex(0, 0, 0);
    EXPECT_FALSE(stream.AddNormalIndex(1)) << "there is no normal at all";
    stream.AddNormal(0, 0, 1, 1);
    stream.AddVertex(1, 0, 0);
    EXPECT_TRUE(stream.AddNormalIndex(2));
    EXPECT_EQ(stream.normal_indices, (std::vector<int>{0}));
}

TEST(GeometryStream, ClearKeepsTheNameTheLatestPositionAndTheMemory) {
    GeometryStream stream;
    stream.name = "chair";
    AddPoint(stream, 1, 2, 3, {0, 0, 1}, 1);
    stream.AddUvw(0, 0, 1);
    stream.AddFace({});
    stream.AddVertexIndex(1), stream.AddNormalIndex(1), stream.AddUvwIndex(1);
    const std::size_t capacity = stream.mesh_vertices.capacity();
    stream.Clear();

    EXPECT_TRUE(stream.IsEmpty());
    EXPECT_TRUE(stream.faces.empty() && stream.normals.empty() && stream.uvws.empty());
    EXPECT_TRUE(stream.mesh_vertices.empty() && stream.vertex_indices.empty());
    EXPECT_TRUE(stream.normal_indices.empty() && stream.uvw_indices.empty());
    EXPECT_EQ(stream.name, "chair");
    EXPECT_EQ(stream.mesh_vertices.capacity(), capacity);

    // A normal without a point of its own belongs to the latest position, also to one of an earlier stream.
    stream.AddNormal(0, 0, 1, 1);
    AddPoint(stream, 1, 2, 3, {1, 0, 0}, 1);
    EXPECT_EQ(stream.normals.size(), 2u) << "the second stands at right angles to the first";
    EXPECT_EQ(stream.mesh_vertices, (std::vector<Vec3<float>>{{1, 3, -2}}));
}

TEST(GeometryStream, AReservationThatCannotBeHadIsIgnored) {
    GeometryStream stream;
    stream.Warmup(UINT_MAX, UINT_MAX);
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    EXPECT_TRUE(stream.AddVertexIndex(1));
    stream.Clear();
    stream.Warmup(0, 0);
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    EXPECT_EQ(stream.mesh_vertices.size(), 1u);
}

/// A mesh of `size` by `size` quads with its points repeated for each triangle corner.
void StreamGrid(GeometryStream& stream, int size) {
    std::uint32_t number = 0;
    for (int i = 0; i < size * size; ++i) {
        for (const auto& [dx, dy] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}}) {
            const auto x = static_cast<float>(i % size + dx), y = static_cast<float>(i / size + dy);
            stream.AddVertex(x, y, std::sin(x) * std::cos(y));
            stream.AddNormal(0, 0, 1, i % 5);
            stream.AddUvw(x, y, 1);
            ++number;
            stream.AddVertexIndex(number);
            stream.AddNormalIndex(number);
            stream.AddUvwIndex(static_cast<int>(number));
        }
        stream.AddFace({i, -1, 2 * i, 2 * i + 2});
    }
}

TEST(GeometryStream, AllocatesNothingOnceItIsWarm) {
    GeometryStream stream;
    StreamGrid(stream, 100);
    for (int round = 0; round < 3; ++round) {
        stream.Clear();
        const std::size_t before = TestSupport::allocationCount();
        StreamGrid(stream, 100);
        EXPECT_EQ(TestSupport::allocationCount() - before, 0u);
    }
    EXPECT_EQ(stream.mesh_vertices.size(), 101u * 101u);
}

TEST(GeometryStream, AllocatesNothingForTheSizeItWasWarmedUpTo) {
    constexpr int size = 60;
    GeometryStream stream;
    stream.Warmup(size * size * 6, size * size * 6);
    stream.faces.reserve(size * size);
    // The first slots of the two tables come with their first keys.
    AddPoint(stream, 0, 0, 0, {0, 0, 1}, 1);
    stream.Clear();
    const std::size_t before = TestSupport::allocationCount();
    StreamGrid(stream, size);
    EXPECT_EQ(TestSupport::allocationCount() - before, 0u);
}

TEST(GeometryStream, ASmallMeshAfterALargeOneIsWeldedRight) {
    GeometryStream stream;
    StreamGrid(stream, 200);
    for (int round = 0; round < 100; ++round) {
        stream.Clear();
        StreamGrid(stream, 2);
        ASSERT_EQ(stream.mesh_vertices.size(), 9u);
    }
}

/// Plays the same random calls to both streams. Positions, surfaces and normals come from small sets, so that all paths
/// are taken often. `paired` says whether every point gets its one normal.
void CompareWithTextKeys(unsigned seed, bool paired, GeometryStream& stream, TextKeyStream& expected) {
    std::mt19937 random(seed);
    const auto pick = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    const float coordinates[] = {0.0f,           -0.0f, 1e-6f, -1e-6f, 4e-7f * kMetre, 15.9999995f * kMetre,
                                 16.0f * kMetre, 3.0f};
    const int surfaces[] = {0, 1, -1, 100000, 100001, INT_MAX, INT_MIN + 99999};
    const Vec3<float> normals[] = {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {0, 0, -1}, {0.7f, 0.7f, 0}, {0, 0, 0}};
    const auto add_normal = [&] {
        const Vec3<float> n = normals[pick(6)];
        const int surface = surfaces[pick(7)];
        stream.AddNormal(n.x, n.y, n.z, surface);
        expected.AddNormal(n.x, n.y, n.z, surface);
    };
    for (int call = 0; call < 600; ++call) {
        const int kind = pick(10);
        if (kind < 4) {
            const float x = coordinates[pick(8)], y = coordinates[pick(8)], z = coordinates[pick(3)];
            stream.AddVertex(x, y, z);
            expected.AddVertex(x, y, z);
            if (paired) add_normal();
        } else if (kind < 6 && !paired) {
            add_normal();
        } else if (expected.PointCount() > 0) {
            const auto number = static_cast<std::size_t>(pick(static_cast<int>(expected.PointCount()))) + 1;
            ASSERT_TRUE(stream.AddVertexIndex(static_cast<std::uint32_t>(number)));
            expected.AddVertexIndex(number);
            if (number > expected.SurfaceCount()) continue;
            ASSERT_TRUE(stream.AddNormalIndex(static_cast<std::uint32_t>(number)));
            expected.AddNormalIndex(number);
        }
    }
    ASSERT_EQ(stream.mesh_vertices, expected.mesh_vertices);
    ASSERT_EQ(stream.normals, expected.normals);
    ASSERT_EQ(stream.vertex_indices, expected.vertex_indices);
    ASSERT_EQ(stream.normal_indices, expected.normal_indices);
}

TEST(GeometryStream, AgreesWithTextKeysOnRandomCalls) {
    GeometryStream stream;
    TextKeyStream expected;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        ASSERT_NO_FATAL_FAILURE(CompareWithTextKeys(seed, true, stream, expected));
        stream.Clear();
        expected.Clear();
    }
}

TEST(GeometryStream, AgreesWithTextKeysOnCallsThatAreNotPaired) {
    GeometryStream stream;
    TextKeyStream expected;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        ASSERT_NO_FATAL_FAILURE(CompareWithTextKeys(seed, false, stream, expected));
        stream.Clear();
        expected.Clear();
    }
}

/// The longest run of taken slots that `count` keys leave in a table twice their number, by the low bits of their hash.
template <typename HashOf>
std::size_t LongestRun(std::size_t count, HashOf hash_of) {
    const std::size_t slots = std::bit_ceil(2 * count);
    std::vector<bool> taken(slots);
    std::size_t longest = 0;
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t steps = 1;
        std::size_t slot = hash_of(i) & (slots - 1);
        for (; taken[slot]; slot = (slot + 1) & (slots - 1)) ++steps;
        taken[slot] = true;
        longest = std::max(longest, steps);
    }
    return longest;
}

TEST(GeometryStream, RegularPatternsOfKeysDoNotClusterInTheTable) {
    constexpr std::size_t count = 1 << 17;
    constexpr std::size_t longest = 300;
    for (unsigned shift = 0; shift <= 47; ++shift) {
        const auto first = [&](std::size_t i) { return MixBits(std::uint64_t{i} << shift, 7); };
        const auto second = [&](std::size_t i) { return MixBits(0x12345678u, std::uint64_t{i} << shift); };
        EXPECT_LT(LongestRun(count, first), longest) << shift;
        EXPECT_LT(LongestRun(count, second), longest) << shift;
    }
    // Coordinates on a grid, in two of the three, and the same with the sign bit.
    for (const std::uint64_t step : {1u, 1000u, 1u << 16, 7300u, 1u << 20}) {
        for (const std::uint64_t sign : {0u, 0x80000000u}) {
            const auto xy = [&](std::size_t i) {
                return MixBits((i & 511) * step | ((i >> 9) * step | sign) << 32, sign);
            };
            const auto xz = [&](std::size_t i) {
                return MixBits(((i & 511) * step) | sign << 32, (i >> 9) * step | sign);
            };
            EXPECT_LT(LongestRun(count, xy), longest) << step;
            EXPECT_LT(LongestRun(count, xz), longest) << step;
        }
    }
}

}  // namespace
}  // namespace Velmar
