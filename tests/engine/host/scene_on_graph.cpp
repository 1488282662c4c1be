#include "engine/host/scene_on_graph.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace Velmar::Engine {

SceneOnGraph::SceneOnGraph() {
    ApiRootNodeGraph* root = ApiProjectManager::rootNodeGraph();
    target = ApiNode::create(NODE_RENDER_TARGET, root, true);
    group = ApiNode::create(NODE_GEOMETRY_GROUP, root, true);
    mesh = ApiNode::create(NODE_MESH, root, true);
    scatter = ApiNode::create(NODE_SCATTER, root, true);
    ApiNode* const map = ApiNode::create(NODE_MATERIAL_MAP, root, true);

    // A box of side 1 about the origin.
    std::vector<Vec3<float>> vertices;
    for (int i = 0; i < 8; ++i) vertices.push_back({i & 1 ? 0.5f : -0.5f, i & 2 ? 0.5f : -0.5f, i & 4 ? 0.5f : -0.5f});
    const std::vector<int> corners(6, 4);
    const std::vector<int> indices{4, 5, 7, 6, 1, 0, 2, 3, 5, 1, 3, 7, 0, 4, 6, 2, 6, 7, 3, 2, 0, 1, 5, 4};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners.data(), corners.size(), false);
    mesh->set(ATTR_VERTICES, vertices.data(), vertices.size(), false);
    mesh->set(ATTR_VERTEX_INDICES, indices.data(), indices.size(), false);
    mesh->evaluate();

    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    scatter->connectTo(PIN_GEOMETRY, map, true, false);
    place({movedBy(0, 0, 0)});
    group->set(ATTR_PIN_COUNT, 1, true);
    group->connectToIx(0, scatter, true, false);
    target->connectTo(PIN_RENDER_GEOMETRY, group, true, false);
    setFilm(48, 32);
    ApiRenderEngine::setRenderTargetNode(target);
}

void SceneOnGraph::place(const std::vector<Matrix<float>>& places) const {
    scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
}

void SceneOnGraph::setFilm(int width, int height) const {
    ApiNode* const film = target->createInternal(PIN_FILM_SETTINGS, NODE_FILM_SETTINGS, true, true);
    film->setPinValue(PIN_RESOLUTION, Vec2<int>{width, height}, true);
}

ApiNode* SceneOnGraph::lookFrom(Vec3<float> position) const {
    ApiNode* camera = target->inputNode(PIN_CAMERA);
    if (camera == nullptr) camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    camera->setPinValue(PIN_POSITION, position, true);
    camera->setPinValue(PIN_TARGET, Vec3<float>{0, 0, 0}, true);
    camera->setPinValue(PIN_UP, Vec3<float>{0, 1, 0}, true);
    return camera;
}

EngineTest::EngineTest() {
    const char* reason = nullptr;
    EXPECT_TRUE(apiMode_Shared_start("test", false, &reason, nullptr, nullptr)) << reason;
    EngineHost::setMaxSamples(16000);
    EngineHost::resetStatistics();
}

EngineTest::~EngineTest() {
    apiMode_Shared_exit(nullptr);
}

void EngineTest::render(int samples) {
    ApiChangeManager::update();
    ApiRenderEngine::restartRendering();
    EXPECT_EQ(EngineHost::waitForSamples(samples, 0.0), WaitResult::SamplesReached);
}

std::string EngineTest::file(const std::string& name) {
    return std::string(std::getenv("HOME")) + "/" + name;
}

std::string contentsOfFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace Velmar::Engine
