#include "engine/graph/operation_log.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class OperationLogTest : public GraphTest {
protected:
    ~OperationLogTest() override { OperationLog::end(); }
};

std::string lineOf(const std::function<void()>& operation) {
    OperationLog::begin();
    operation();
    const std::vector<std::string> lines = OperationLog::end();
    EXPECT_THAT(lines, SizeIs(1));
    return lines.empty() ? "" : lines.front();
}

TEST_F(OperationLogTest, ListsOperationsInOrderWithTheirArguments) {
    OperationLog::begin();
    ApiNode* scatter = ApiNode::create(NODE_SCATTER, root, true);
    ApiNode* map = ApiNode::create(NODE_MATERIAL_MAP, root, true);
    map->setName("Map");
    scatter->connectTo(PIN_GEOMETRY, map, true, false);
    const std::vector<Matrix<float>> places(12);
    scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
    scatter->destroy();
    EXPECT_THAT(OperationLog::end(),
                ElementsAre("create VELMAR_SCATTER VELMAR_ROOTGRAPH:Scene true",
                            "create VELMAR_MATERIAL_MAP VELMAR_ROOTGRAPH:Scene true",
                            "setName VELMAR_MATERIAL_MAP:Material map \"Map\"",
                            "connectTo VELMAR_SCATTER:Scatter 59 VELMAR_MATERIAL_MAP:Map true false",
                            "set VELMAR_SCATTER:Scatter 170 [12] true", "destroy VELMAR_SCATTER:Scatter"));
}

TEST_F(OperationLogTest, WritesEachKindOfArgument) {
    ApiNode* mesh = make(NODE_MESH);
    const char* names[] = {"a", "b"};
    const int counts[] = {3};
    const Vec3<float> points[] = {{}, {}, {}};
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_SMOOTHING, false, true); }), "set VELMAR_MESH:Mesh 40 false true");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_SUBDIVISION_LEVEL, -2, false); }), "set VELMAR_MESH:Mesh 161 -2 false");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_SMOOTHING_ANGLE, 0.1F, true); }), "set VELMAR_MESH:Mesh 41 0.1 true");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_FILENAME, "a\"b\\c\nd", true); }),
              "set VELMAR_MESH:Mesh 34 \"a\\\"b\\\\c\\nd\" true");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_FILENAME, static_cast<const char*>(nullptr), true); }),
              "set VELMAR_MESH:Mesh 34 null true");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_VALUE, Vec2<int>{1, 2}, true); }), "set VELMAR_MESH:Mesh 185 (1,2) true");
    EXPECT_EQ(lineOf([&] {
                  mesh->set(ATTR_VALUE, Vec3<int>{1, 2, 3}, true);
              }),
              "set VELMAR_MESH:Mesh 185 (1,2,3) true");
    EXPECT_EQ(lineOf([&] {
                  mesh->set(ATTR_VALUE, Vec2<float>{0.5F, 2}, true);
              }),
              "set VELMAR_MESH:Mesh 185 (0.5,2) true");
    EXPECT_EQ(lineOf([&] {
                  mesh->set(ATTR_VALUE, Vec3<float>{1e-7F, 2, 3}, true);
              }),
              "set VELMAR_MESH:Mesh 185 (1e-07,2,3) true");
    EXPECT_EQ(lineOf([&] {
                  mesh->set(ATTR_VALUE, Vec4<float>{1, 2, 3, 4}, true);
              }),
              "set VELMAR_MESH:Mesh 185 (1,2,3,4) true");
    EXPECT_EQ(lineOf([&] {
                  mesh->set(ATTR_TRANSFORM, Matrix<float>{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9}}}, true);
              }),
              "set VELMAR_MESH:Mesh 171 ((1,2,3,4),(5,6,7,8),(9,0,0,0)) true");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_MATERIAL_NAMES, names, 2, false); }), "set VELMAR_MESH:Mesh 63 [2] false");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_VERTICES_PER_POLYGON, counts, 1, false); }),
              "set VELMAR_MESH:Mesh 189 [1] false");
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_VERTICES, points, 3, false); }), "set VELMAR_MESH:Mesh 190 [3] false");
    EXPECT_EQ(lineOf([&] { mesh->setIx(1, 0.5F, true); }), "setIx VELMAR_MESH:Mesh 1 0.5 true");
}

TEST_F(OperationLogTest, HasALineForEachOperationThatChangesSomething) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    const std::string name = "VELMAR_RENDERTARGET:Render target";
    EXPECT_EQ(lineOf([&] { target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true); }),
              "createInternal " + name + " 19 VELMAR_THINLENS true true");
    EXPECT_EQ(lineOf([&] { target->connectTo("camera", nullptr, true, false); }),
              "connectTo " + name + " \"camera\" null true false");
    EXPECT_EQ(lineOf([&] { group->connectToIx(3, nullptr, false, true); }),
              "connectToIx VELMAR_GEOMETRY_GROUP:Geometry group 3 null false true");
    EXPECT_EQ(lineOf([&] {
                  target->setPinValue(PIN_RESOLUTION, Vec2<int>{8, 6}, true);
              }),
              "setPinValue " + name + " 198 (8,6) true");
    EXPECT_EQ(lineOf([&] { target->copyFromIx(0, nullptr, false); }), "copyFromIx " + name + " 0 null false");
    EXPECT_EQ(lineOf([&] { target->configureEmptyPins(); }), "configureEmptyPins " + name);
    EXPECT_EQ(lineOf([&] { target->evaluate(); }), "evaluate " + name);
    EXPECT_EQ(lineOf([&] { target->select(); }), "select " + name);
    EXPECT_EQ(lineOf([&] { target->setUIOperationFlags(4); }), "setUIOperationFlags " + name + " 4");
    EXPECT_EQ(lineOf([&] { target->setPosition({1, 2.5F}); }), "setPosition " + name + " (1,2.5)");
    EXPECT_EQ(lineOf([&] { graph->copyItemTree(group); }),
              "copyItemTree VELMAR_GRAPH:Graph VELMAR_GEOMETRY_GROUP:Geometry group");
    EXPECT_EQ(lineOf([&] { graph->recenter({1, 2}); }), "recenter VELMAR_GRAPH:Graph (1,2)");
    EXPECT_EQ(lineOf([&] { graph->clear(); }), "clear VELMAR_GRAPH:Graph");
    EXPECT_EQ(lineOf([&] { graph->ungroup(false, nullptr); }), "ungroup VELMAR_GRAPH:Graph false");
    EXPECT_EQ(lineOf([&] { ApiNodeGraph::create(GRAPH_STANDARD, root); }),
              "createGraph VELMAR_GRAPH VELMAR_ROOTGRAPH:Scene");
    EXPECT_EQ(lineOf([&] { ApiRootNodeGraph::create(3080100); }), "createRootGraph 3080100");
}

TEST_F(OperationLogTest, HasALineForEachOperationOnObservers) {
    ApiNode* mesh = make(NODE_MESH);
    Listener listener;
    EXPECT_EQ(lineOf([&] { listener.listen(mesh, 32); }), "observeApiItem VELMAR_MESH:Mesh 32");
    EXPECT_EQ(lineOf([&] { ApiChangeManager::stopObserving(mesh, listener.observer); }),
              "stopObserving VELMAR_MESH:Mesh");
    EXPECT_EQ(lineOf([&] { ApiChangeManager::stopObserving(listener.observer); }), "stopObserving \"observer\"");
    EXPECT_EQ(lineOf([&] { ApiChangeManager::stopObserving(); }), "stopObserving");
}

TEST_F(OperationLogTest, ListsWhatWasAskedForEvenWhenItChangesNothing) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* gone = make(NODE_MESH);
    gone->destroy();
    EXPECT_EQ(lineOf([&] { mesh->set(ATTR_SMOOTHING, true, true); }), "set VELMAR_MESH:Mesh 40 true true");
    EXPECT_EQ(lineOf([&] { gone->set(ATTR_SMOOTHING, true, true); }), "set destroyed 40 true true");
    EXPECT_EQ(lineOf([&] { ApiNode::create(NODE_UNKNOWN, root, true); }), "create 0 VELMAR_ROOTGRAPH:Scene true");
    EXPECT_EQ(lineOf([&] { ApiNode::create(NODE_MESH, nullptr, false); }), "create VELMAR_MESH null false");
}

TEST_F(OperationLogTest, LeavesOutWhatTheEngineDoesWithinAnOperation) {
    OperationLog::begin();
    ApiNode* target = make(NODE_RENDER_TARGET);
    target->configureEmptyPins();
    root->copyItemTree(target);
    root->clear();
    EXPECT_THAT(OperationLog::end(), SizeIs(4));
}

TEST_F(OperationLogTest, ListsWhatAnObserverAsksForBehindTheOperationThatWokeIt) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* other = make(NODE_SCATTER);
    Listener listener([&](const Listener::Event&) { other->setName("woken"); });
    listener.listen(mesh);
    OperationLog::begin();
    mesh->setName("chair");
    EXPECT_THAT(OperationLog::end(),
                ElementsAre("setName VELMAR_MESH:Mesh \"chair\"", "setName VELMAR_SCATTER:Scatter \"woken\""));
}

TEST_F(OperationLogTest, DoesNotListReading) {
    ApiNode* mesh = make(NODE_MESH);
    OperationLog::begin();
    mesh->getFloat(ATTR_SMOOTHING_ANGLE);
    mesh->inputNode(PIN_GEOMETRY);
    root->findFirstNode(NODE_MESH);
    ownedItems(root);
    users(mesh);
    EXPECT_THAT(OperationLog::end(), IsEmpty());
}

TEST_F(OperationLogTest, IsOffUnlessAskedFor) {
    OperationLog::begin();
    OperationLog::end();
    make(NODE_MESH);
    EXPECT_THAT(OperationLog::end(), IsEmpty());
    OperationLog::begin();
    EXPECT_THAT(OperationLog::end(), IsEmpty()) << "begin() starts from empty";
}

TEST_F(OperationLogTest, TakesLinesOfOtherRooms) {
    OperationLog::begin();
    OperationLog::record("setRenderTargetNode", make(NODE_RENDER_TARGET));
    OperationLog::record("restartRendering");
    OperationLog::record("setRenderPriority", 0);
    EXPECT_THAT(OperationLog::end(), ElementsAre("create VELMAR_RENDERTARGET VELMAR_ROOTGRAPH:Scene true",
                                                 "setRenderTargetNode VELMAR_RENDERTARGET:Render target",
                                                 "restartRendering", "setRenderPriority 0"));
}

std::vector<std::string> linesOf(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

TEST(OperationLogFile, GetsEachLineAtOnceAndTheVariableIsReadAtEachStart) {
    const auto path = std::filesystem::path(std::getenv("HOME")) / "operations.log";
    setenv("VELMAR_OPERATION_LOG", path.c_str(), 1);
    ASSERT_TRUE(Project::start());
    ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    EXPECT_THAT(linesOf(path), ElementsAre("create VELMAR_MESH VELMAR_ROOTGRAPH:Scene true"));
    OperationLog::begin();
    ApiProjectManager::rootNodeGraph()->clear();
    EXPECT_THAT(OperationLog::end(), ElementsAre("clear VELMAR_ROOTGRAPH:Scene"));
    EXPECT_THAT(linesOf(path), SizeIs(2)) << "both go on side by side";
    Project::stop();

    unsetenv("VELMAR_OPERATION_LOG");
    ASSERT_TRUE(Project::start());
    ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    EXPECT_THAT(linesOf(path), SizeIs(2));
    Project::stop();
}

TEST(OperationLogFile, ThatCannotBeWrittenIsOneLineOnTheErrorStream) {
    setenv("VELMAR_OPERATION_LOG", "/no/such/folder/operations.log", 1);
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(Project::start());
    ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "velmar: cannot write the operation log /no/such/folder/operations.log\n");
    Project::stop();
    unsetenv("VELMAR_OPERATION_LOG");
    OperationLog::readEnvironment();
}

}  // namespace
}  // namespace Velmar::Engine
