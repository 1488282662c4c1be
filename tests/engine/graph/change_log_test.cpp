#include "engine/graph/change_log.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

namespace Velmar::Engine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Kind = Change::Kind;

class ChangeLogTest : public GraphTest {};

TEST_F(ChangeLogTest, IsEmptyAfterItWasTaken) {
    make(NODE_MESH);
    EXPECT_THAT(ChangeLog::take(), SizeIs(1));
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(ChangeLogTest, ListsEachKindOfChangeInOrder) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    EXPECT_THAT(ChangeLog::take(), ElementsAre(Change{Kind::ItemAdded, mesh}, Change{Kind::ItemAdded, group}));
    group->set(ATTR_PIN_COUNT, 2, true);
    group->connectToIx(1, mesh, true, false);
    EXPECT_THAT(ChangeLog::take(),
                ElementsAre(Change{Kind::Attribute, group, ATTR_PIN_COUNT}, Change{Kind::Evaluated, group},
                            Change{Kind::Pins, group}, Change{Kind::Connection, group, 1}));
    mesh->destroy();
    EXPECT_THAT(ChangeLog::take(), ElementsAre(Change{Kind::ItemDestroyed, mesh}, Change{Kind::Connection, group, 1}));
    EXPECT_FALSE(isAlive(mesh)) << "a tombstone by now";
}

TEST_F(ChangeLogTest, ListsAChangeThatIsMadeOftenOnce) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ChangeLog::take();
    for (int i = 0; i < 100; ++i) {
        mesh->set(ATTR_SUBDIVISION_LEVEL, i + 1, true);
        map->connectTo(PIN_GEOMETRY, i % 2 == 0 ? mesh : nullptr, true, false);
    }
    EXPECT_THAT(ChangeLog::take(), ElementsAre(Change{Kind::Attribute, mesh, ATTR_SUBDIVISION_LEVEL},
                                               Change{Kind::Evaluated, mesh}, Change{Kind::Connection, map, 0}));
    mesh->set(ATTR_SUBDIVISION_LEVEL, 0, true);
    EXPECT_THAT(ChangeLog::take(), SizeIs(2)) << "and again after it was taken";
}

TEST_F(ChangeLogTest, AMovedInstanceIsOneAttributeOfOneNode) {
    ApiNode* mesh = meshWithSlots(1);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* scatter = make(NODE_SCATTER);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    scatter->connectTo(PIN_GEOMETRY, map, true, false);
    std::vector<Matrix<float>> places(10);
    scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
    ChangeLog::take();

    // The same walk as for a model change: all is written anew, one placement differs.
    places[3].m[0][3] = 1.0F;
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    map->evaluate();
    scatter->connectTo(PIN_GEOMETRY, map, true, false);
    scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
    EXPECT_THAT(ChangeLog::take(),
                ElementsAre(Change{Kind::Attribute, scatter, ATTR_TRANSFORMS}, Change{Kind::Evaluated, scatter}));
}

TEST_F(ChangeLogTest, AValueOnAPinIsAnAttributeOfItsInternalNode) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ApiNode* holder = camera->connectedNode(PIN_FOV);
    ChangeLog::take();
    camera->setPinValue(PIN_FOV, 12.0F, true);
    EXPECT_THAT(ChangeLog::take(),
                ElementsAre(Change{Kind::Attribute, holder, ATTR_VALUE}, Change{Kind::Evaluated, holder}));
}

TEST_F(ChangeLogTest, ANewInternalNodeIsListedWithThePin) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* first = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, false, false);
    ChangeLog::take();
    ApiNode* second = target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, false, false);
    EXPECT_THAT(ChangeLog::take(), ElementsAre(Change{Kind::ItemDestroyed, first}, Change{Kind::ItemAdded, second},
                                               Change{Kind::Connection, target, 0}));
}

TEST_F(ChangeLogTest, TheSunsDirectionIsListedWhenItsPinsChange) {
    ApiNode* environment = make(NODE_DAYLIGHT_ENVIRONMENT);
    ApiNode* sun = environment->inputNode(PIN_SUN_DIRECTION);
    ChangeLog::take();
    sun->setPinValue(PIN_HOUR, 9.0F, true);
    EXPECT_THAT(ChangeLog::take(), Contains(Change{Kind::Attribute, sun, ATTR_VALUE}));
}

TEST_F(ChangeLogTest, WritesWithoutEvaluationTakeEffectAtTheLatestWhenItIsTaken) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    ChangeLog::take();
    mesh->set(ATTR_SMOOTHING, false, false);
    group->set(ATTR_PIN_COUNT, 2, false);
    EXPECT_EQ(group->pinCount(), 0U);
    EXPECT_THAT(
        ChangeLog::take(),
        ElementsAre(Change{Kind::Attribute, mesh, ATTR_SMOOTHING}, Change{Kind::Attribute, group, ATTR_PIN_COUNT},
                    Change{Kind::Evaluated, mesh}, Change{Kind::Evaluated, group}, Change{Kind::Pins, group}));
    EXPECT_EQ(group->pinCount(), 2U);
    mesh->evaluate();
    EXPECT_THAT(ChangeLog::take(), IsEmpty()) << "nothing is left to evaluate";
}

TEST_F(ChangeLogTest, AnItemThatWaitsForEvaluationMayBeDestroyed) {
    ApiNode* mesh = make(NODE_MESH);
    mesh->set(ATTR_SMOOTHING, false, false);
    mesh->destroy();
    EXPECT_THAT(ChangeLog::take(), Contains(Change{Kind::ItemDestroyed, mesh}));
}

TEST_F(ChangeLogTest, DoesNotGrowWithTheNumberOfWrites) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ChangeLog::take();
    for (int i = 0; i < 100000; ++i) {
        camera->setPinValue(PIN_POSITION, Vec3<float>{static_cast<float>(i), 0, 0}, true);
    }
    EXPECT_THAT(ChangeLog::take(), SizeIs(2));
}

TEST_F(ChangeLogTest, EndsWithTheProject) {
    make(NODE_MESH);
    Project::stop();
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    ChangeLog::append({Kind::ItemAdded, nullptr});
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    ASSERT_TRUE(Project::start());
}

}  // namespace
}  // namespace Velmar::Engine
