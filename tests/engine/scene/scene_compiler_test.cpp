#include "engine/scene/scene_compiler.h"

#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <gtest/gtest.h>

#include <limits>

#include "engine/graph/project.h"
#include "engine/scene/target_settings.h"

namespace Velmar::Engine {
namespace {

Affine moved(float x, float y = 0, float z = 0) {
    return {{{1, 0, 0, x}, {0, 1, 0, y}, {0, 0, 1, z}}};
}

class SceneCompilerTest : public testing::Test {
protected:
    SceneCompilerTest() {
        Project::start();
        target = create(NODE_RENDER_TARGET);
        group = create(NODE_GEOMETRY_GROUP);
        target->connectTo(PIN_RENDER_GEOMETRY, group, true, false);
    }
    ~SceneCompilerTest() override { Project::stop(); }

    static ApiNode* create(NodeType type) { return ApiNode::create(type, ApiProjectManager::rootNodeGraph(), true); }

    // A square of side 2 in the plane z = 0.
    static ApiNode* makeMesh() {
        ApiNode* mesh = create(NODE_MESH);
        const std::vector<Float3> vertices{{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
        const std::vector<int> corners{4}, indices{0, 1, 2, 3};
        mesh->set(ATTR_VERTICES, vertices.data(), vertices.size(), false);
        mesh->set(ATTR_VERTICES_PER_POLYGON, corners.data(), corners.size(), false);
        mesh->set(ATTR_VERTEX_INDICES, indices.data(), indices.size(), false);
        mesh->evaluate();
        return mesh;
    }
    static ApiNode* makeScatter(ApiNode* geometry, const std::vector<Affine>& places) {
        ApiNode* scatter = create(NODE_SCATTER);
        scatter->connectTo(PIN_GEOMETRY, geometry, true, false);
        place(scatter, places);
        return scatter;
    }
    static void place(ApiNode* scatter, const std::vector<Affine>& places) {
        scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
    }
    static ApiNode* makeMap(ApiNode* geometry) {
        ApiNode* map = create(NODE_MATERIAL_MAP);
        map->connectTo(PIN_GEOMETRY, geometry, true, false);
        return map;
    }
    void setGroup(const std::vector<ApiNode*>& members) {
        group->set(ATTR_PIN_COUNT, static_cast<int>(members.size()), true);
        for (unsigned i = 0; i < members.size(); ++i) group->connectToIx(i, members[i], true, false);
    }
    std::shared_ptr<const RenderScene> compile() {
        compiler.resetWork();
        return compiler.compile(*target);
    }
    const SceneWork& work() const { return compiler.work(); }

    SceneCompiler compiler;
    ApiNode* target;
    ApiNode* group;
};

TEST_F(SceneCompilerTest, TenThousandPlacementsAreOneMeshOneStructureAndOneList) {
    std::vector<Affine> places;
    for (int i = 0; i < 10000; ++i) places.push_back(moved(static_cast<float>(i)));
    ApiNode* scatter = makeScatter(makeMap(makeMesh()), places);
    setGroup({scatter});
    const auto scene = compile();
    const SceneContents contents = contentsOf(*scene);
    EXPECT_EQ(contents.meshes, 1u);
    EXPECT_EQ(contents.triangles, 2u);
    EXPECT_EQ(contents.acceleration_structures, 1u);
    EXPECT_EQ(contents.instance_lists, 1u);
    EXPECT_EQ(contents.placements, 10000u);
    EXPECT_EQ(work().meshes_built, 1u);
    EXPECT_EQ(work().acceleration_structures_built, 1u);
    EXPECT_EQ(work().instance_lists_built, 1u);

    // Move one of them.
    places[4711] = moved(4711, 3);
    place(scatter, places);
    const auto edited = compile();
    EXPECT_NE(edited, scene);
    EXPECT_EQ(work().meshes_built, 0u);
    EXPECT_EQ(work().meshes_kept, 1u);
    EXPECT_EQ(work().acceleration_structures_built, 0u);
    EXPECT_EQ(work().instance_lists_built, 1u);
    EXPECT_EQ(work().top_levels_built, 1u);
    EXPECT_EQ(work().cameras_built, 0u);
    EXPECT_EQ(edited->geometry->lists()[0]->mesh, scene->geometry->lists()[0]->mesh);
    EXPECT_EQ(edited->geometry->placement(4711).world_from_model->m[1][3], 3.0f);
}

TEST_F(SceneCompilerTest, MatricesAreSharedWithTheGraph) {
    ApiNode* scatter = makeScatter(makeMesh(), {moved(1), moved(2)});
    setGroup({scatter});
    EXPECT_EQ(compile()->geometry->lists()[0]->world_from_model, matrixArray(scatter, ATTR_TRANSFORMS));
}

TEST_F(SceneCompilerTest, WithoutAChangeTheSceneIsTheSame) {
    ApiNode* scatter = makeScatter(makeMesh(), {moved(1)});
    setGroup({scatter});
    const auto scene = compile();
    place(scatter, {moved(1)});
    target->setName("another name");
    EXPECT_EQ(compile(), scene);
    EXPECT_EQ(work().meshes_built + work().instance_lists_built + work().top_levels_built + work().cameras_built, 0u);
    EXPECT_EQ(work().instance_lists_kept, 1u);
}

TEST_F(SceneCompilerTest, AnEditedMeshAloneIsBuiltAnew) {
    ApiNode* first = makeMesh();
    ApiNode* second = makeMesh();
    setGroup({makeScatter(first, {moved(0)}), makeScatter(second, {moved(3)})});
    compile();
    const std::vector<int> slots{1};
    second->set(ATTR_POLYGON_MATERIAL_INDICES, slots.data(), slots.size(), true);
    const auto scene = compile();
    EXPECT_EQ(work().meshes_built, 1u);
    EXPECT_EQ(work().meshes_kept, 1u);
    EXPECT_EQ(work().instance_lists_kept, 2u);
    EXPECT_EQ(scene->geometry->lists()[1]->mesh->slot(0), 1);
}

TEST_F(SceneCompilerTest, ACameraEditRebuildsTheCameraAlone) {
    setGroup({makeScatter(makeMesh(), {moved(0)})});
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    const auto scene = compile();
    EXPECT_EQ(work().cameras_built, 1u);
    camera->setPinValue(PIN_FOV, 33.0f, true);
    const auto edited = compile();
    EXPECT_EQ(work().cameras_built, 1u);
    EXPECT_EQ(work().top_levels_built + work().meshes_built + work().instance_lists_built, 0u);
    EXPECT_EQ(edited->geometry, scene->geometry);
    EXPECT_EQ((*edited->camera)->fov_degrees, 33.0f);
    EXPECT_NE((*scene->camera)->fov_degrees, 33.0f);
}

TEST_F(SceneCompilerTest, FindsGeometryHoweverItIsWired) {
    ApiNode* mesh = makeMesh();
    ApiNode* link = create(NODE_LINK_FIRST);
    link->connectToIx(0, group, true, false);
    target->connectTo(PIN_RENDER_GEOMETRY, link, true, false);
    setGroup({mesh, makeMap(mesh), nullptr, makeScatter(mesh, {moved(1)}), makeScatter(makeMap(mesh), {moved(2)})});
    const auto scene = compile();
    EXPECT_EQ(scene->geometry->lists().size(), 4u);
    EXPECT_EQ(contentsOf(*scene).instance_lists, 2u);
    EXPECT_EQ(contentsOf(*scene).placements, 4u);
    EXPECT_EQ(contentsOf(*scene).meshes, 1u);
    EXPECT_EQ(scene->geometry->bounds(), (Bounds{{-1, -1, 0}, {3, 1, 0}}));
}

TEST_F(SceneCompilerTest, TakesAScatterAMapOrAMeshInTheGroupsPlace) {
    ApiNode* mesh = makeMesh();
    for (ApiNode* geometry : {makeScatter(mesh, {moved(1)}), makeMap(mesh), mesh}) {
        target->connectTo(PIN_RENDER_GEOMETRY, geometry, true, false);
        EXPECT_EQ(contentsOf(*compile()).placements, 1u);
    }
    target->connectTo(PIN_RENDER_GEOMETRY, nullptr, true, false);
    const auto scene = compile();
    EXPECT_EQ(contentsOf(*scene).placements, 0u);
    EXPECT_TRUE(scene->geometry->bounds().empty());
    EXPECT_NE(scene->geometry->accelerationStructure(), nullptr);
}

TEST_F(SceneCompilerTest, FlattensScattersOfScattersAndGroupsToOneLevel) {
    ApiNode* inner_group = create(NODE_GEOMETRY_GROUP);
    inner_group->set(ATTR_PIN_COUNT, 2, true);
    ApiNode* mesh = makeMesh();
    inner_group->connectToIx(0, makeScatter(mesh, {moved(1), moved(2)}), true, false);
    inner_group->connectToIx(1, mesh, true, false);
    target->connectTo(PIN_RENDER_GEOMETRY, makeScatter(inner_group, {moved(10), moved(20), moved(30)}), true, false);
    const auto scene = compile();
    EXPECT_EQ(contentsOf(*scene).placements, 3u * 2 + 3);
    EXPECT_EQ(contentsOf(*scene).acceleration_structures, 1u);
    EXPECT_EQ((*scene->geometry->lists()[0]->world_from_model)[3].m[0][3], 22.0f);
}

TEST_F(SceneCompilerTest, HiddenPlacementsComeBackWithoutWork) {
    ApiNode* scatter = makeScatter(makeMesh(), {moved(0)});
    setGroup({scatter});
    compile();
    place(scatter, {});
    EXPECT_EQ(contentsOf(*compile()).placements, 0u);
    place(scatter, {moved(0)});
    EXPECT_EQ(contentsOf(*compile()).placements, 1u);
    EXPECT_EQ(work().meshes_built, 0u);
}

TEST_F(SceneCompilerTest, ForgetsDestroyedNodes) {
    ApiNode* mesh = makeMesh();
    ApiNode* scatter = makeScatter(mesh, {moved(0)});
    setGroup({scatter});
    std::weak_ptr<const RenderMesh> built = compile()->geometry->lists()[0]->mesh;
    EXPECT_FALSE(built.expired());
    mesh->destroy();
    EXPECT_EQ(contentsOf(*compile()).placements, 0u);
    EXPECT_TRUE(built.expired());
    scatter->destroy();
    group->destroy();
    EXPECT_EQ(contentsOf(*compile()).placements, 0u);
}

TEST_F(SceneCompilerTest, AnOldSceneOutlivesTheGraph) {
    setGroup({makeScatter(makeMesh(), {moved(5)})});
    const auto scene = compile();
    ApiProjectManager::rootNodeGraph()->clear();
    EXPECT_EQ(scene->geometry->placement(0).world_from_model->m[0][3], 5.0f);
    EXPECT_EQ(scene->geometry->placement(0).mesh->triangleCount(), 2u);
}

TEST_F(SceneCompilerTest, SkipsPlacementsThatAreNotFiniteWithOneLine) {
    Affine bad = moved(1);
    bad.m[2][1] = std::numeric_limits<float>::quiet_NaN();
    setGroup({makeScatter(makeMesh(), {bad, moved(1), bad})});
    testing::internal::CaptureStderr();
    EXPECT_EQ(contentsOf(*compile()).placements, 1u);
    const std::string lines = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
    EXPECT_NE(lines.find("skipped 2 placements"), std::string::npos) << lines;
}

TEST_F(SceneCompilerTest, NormalsCountOnlyWhileTheMeshIsSmooth) {
    ApiNode* mesh = makeMesh();
    const std::vector<Float3> normals{{0, 0, 1}};
    const std::vector<int> indices{0, 0, 0, 0};
    mesh->set(ATTR_NORMALS, normals.data(), normals.size(), true);
    mesh->set(ATTR_NORMAL_INDICES, indices.data(), indices.size(), true);
    mesh->set(ATTR_SMOOTHING, true, true);
    setGroup({mesh});
    EXPECT_TRUE(compile()->geometry->lists()[0]->mesh->hasNormals());
    mesh->set(ATTR_SMOOTHING, false, true);
    EXPECT_FALSE(compile()->geometry->lists()[0]->mesh->hasNormals());
}

TEST_F(SceneCompilerTest, GroupsThatMultiplyBeyondMeasureAreCutOff) {
    // Each group holds the next one eight times: sixteen of them stand for more places than any machine holds.
    ApiNode* node = makeMesh();
    for (int level = 0; level < 16; ++level) {
        ApiNode* above = create(NODE_GEOMETRY_GROUP);
        above->set(ATTR_PIN_COUNT, 8, true);
        for (unsigned pin = 0; pin < 8; ++pin) above->connectToIx(pin, node, true, false);
        node = above;
    }
    target->connectTo(PIN_RENDER_GEOMETRY, node, true, false);
    EXPECT_LE(contentsOf(*compile()).placements, std::uint64_t{1} << 20);
}

TEST_F(SceneCompilerTest, EmptyGroupsThatMultiplyBeyondMeasureAreCutOff) {
    // Forty groups, each held twice by the next, with nothing at the end: 2 to the power 40 ways to look.
    ApiNode* node = create(NODE_GEOMETRY_GROUP);
    for (int level = 0; level < 40; ++level) {
        ApiNode* above = create(NODE_GEOMETRY_GROUP);
        above->set(ATTR_PIN_COUNT, 2, true);
        above->connectToIx(0, node, true, false);
        above->connectToIx(1, node, true, false);
        node = above;
    }
    target->connectTo(PIN_RENDER_GEOMETRY, node, true, false);
    EXPECT_EQ(contentsOf(*compile()).placements, 0u);
}

TEST_F(SceneCompilerTest, ReadsThePinsOfTheThinLensCameraThatItKnows) {
    EXPECT_FALSE(readCamera(*target));
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    camera->setPinValue(PIN_POSITION, Float3{1, 2, 3}, true);
    camera->setPinValue(PIN_TARGET, Float3{4, 5, 6}, true);
    camera->setPinValue(PIN_UP, Float3{0, 0, 1}, true);
    camera->setPinValue(PIN_FOV, 64.5f, true);
    camera->setPinValue(PIN_ORTHOGRAPHIC_SCALE, 12.0f, true);
    camera->setPinValue(PIN_LENS_SHIFT, Float2{0.1f, -0.2f}, true);
    camera->setPinValue(PIN_PIXEL_ASPECT_RATIO, 1.25f, true);
    camera->setPinValue(PIN_APERTURE, 3.0f, true);
    camera->setPinValue(PIN_APERTURE_ASPECT_RATIO, 2.0f, true);
    camera->setPinValue(PIN_FOCAL_DEPTH, 7.0f, true);
    camera->setPinValue(PIN_AUTOFOCUS, true, true);
    camera->setPinValue(PIN_NEAR_CLIP_DEPTH, 0.5f, true);
    CameraSettings expected;
    expected.position = {1, 2, 3};
    expected.target = {4, 5, 6};
    expected.up = {0, 0, 1};
    expected.fov_degrees = 64.5f;
    expected.parallel_width = 12.0f;
    expected.lens_shift = {0.1f, -0.2f};
    expected.pixel_aspect = 1.25f;
    expected.aperture_radius = 0.03f;
    expected.aperture_aspect = 2.0f;
    expected.focal_depth = 7.0f;
    expected.autofocus = true;
    expected.near_clip = 0.5f;
    EXPECT_EQ(readCamera(*target), expected);
    camera->setPinValue(PIN_ORTHOGRAPHIC, true, true);
    expected.projection = Projection::Parallel;
    EXPECT_EQ(readCamera(*target), expected);
}

TEST_F(SceneCompilerTest, ReadsThePanoramicCamera) {
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true);
    camera->setPinValue(PIN_FOV_X, 120.0f, true);
    camera->setPinValue(PIN_FOV_Y, 80.0f, true);
    const auto settings = readCamera(*target);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->projection, Projection::Spherical);
    EXPECT_EQ(settings->fov_degrees, 120.0f);
    EXPECT_EQ(settings->vertical_fov_degrees, 80.0f);
}

TEST_F(SceneCompilerTest, CameraNumbersThatAreNotFiniteChangeNothingForEver) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    camera->setPinValue(PIN_FOV, nan, true);
    camera->setPinValue(PIN_POSITION, Float3{nan, 0, 0}, true);
    const auto settings = readCamera(*target);
    ASSERT_TRUE(settings);
    EXPECT_TRUE(isFinite(settings->fov_degrees));
    EXPECT_TRUE(isFinite(settings->position));
    const auto scene = compile();
    EXPECT_EQ(compile(), scene) << "the scene compares equal to itself";
}

TEST_F(SceneCompilerTest, FilmHasTheSizeOfItsSettingsWithinReason) {
    EXPECT_EQ(readFilmSize(*target), (FilmSize{1000, 600}));
    target->setPinValue(PIN_RESOLUTION, Vec2<int>{320, 200}, true);
    EXPECT_EQ(readFilmSize(*target), (FilmSize{320, 200})) << "without film settings the target's own size counts";
    ApiNode* film = target->createInternal(PIN_FILM_SETTINGS, NODE_FILM_SETTINGS, true, true);
    const auto sizeFor = [&](Vec2<int> size) {
        film->setPinValue(PIN_RESOLUTION, size, true);
        return readFilmSize(*target);
    };
    EXPECT_EQ(sizeFor({640, 400}), (FilmSize{640, 400}));
    EXPECT_EQ(sizeFor({0, 400}), (FilmSize{0, 0}));
    EXPECT_EQ(sizeFor({640, -1}), (FilmSize{0, 0}));
    const FilmSize huge = sizeFor({2000000000, 1000000000});
    EXPECT_LE(static_cast<double>(huge.width) * huge.height, kLargestFilmArea);
    EXPECT_NEAR(static_cast<double>(huge.width) / huge.height, 2.0, 0.01);
    const FilmSize strip = sizeFor({2000000000, 1});
    EXPECT_EQ(strip.width, kLargestFilmSide);
    EXPECT_EQ(strip.height, 1);
}

TEST_F(SceneCompilerTest, SamplesComeFromTheKernel) {
    EXPECT_FALSE(readMaxSamples(*target));
    ApiNode* kernel = target->createInternal(PIN_KERNEL, NODE_KERNEL_PATH_TRACING, true, true);
    kernel->setPinValue(PIN_MAX_SAMPLES, 77, true);
    EXPECT_EQ(readMaxSamples(*target), 77);
    setGroup({makeScatter(makeMesh(), {moved(0)})});
    const auto scene = compile();
    kernel->setPinValue(PIN_MAX_SAMPLES, 78, true);
    const auto edited = compile();
    EXPECT_EQ(edited->max_samples, 78);
    EXPECT_EQ(edited->geometry, scene->geometry);
}

}  // namespace
}  // namespace Velmar::Engine
