// Making nodes and wiring them.
#include <velmar/node.h>

#include "engine/catalog/catalog.h"
#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

#include <cstdio>

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class NodeTest : public GraphTest {};

TEST_F(NodeTest, OfEachTypeIsMadeWithThePinsOfItsRow) {
    for (const TypeEntry* entry : Catalog::types()) {
        ApiNode* node = ApiNode::create(entry->row->type, root, true);
        ASSERT_NE(node, nullptr) << entry->row->type_name;
        EXPECT_EQ(node->type(), entry->row->type);
        EXPECT_EQ(&node->info(), &entry->info);
        EXPECT_STREQ(node->name(), entry->row->default_name);
        EXPECT_EQ(node->graphOwner(), root);
        ASSERT_EQ(node->pinCount(), entry->pins.size()) << entry->row->type_name;
        for (unsigned i = 0; i < node->pinCount(); ++i) {
            const PinRow& row = *entry->pins[i]->row;
            EXPECT_EQ(node->pinIdIx(i), row.id);
            EXPECT_EQ(node->pinTypeIx(i), row.kind);
            EXPECT_EQ(&node->pinInfoIx(i), &entry->pins[i]->info);
            EXPECT_TRUE(node->hasPin(row.id));
            EXPECT_EQ(node->pinId(node->pinNameIx(i)), row.id);
            const ApiNode* filler = node->connectedNodeIx(i);
            EXPECT_EQ(filler != nullptr, row.filled == Filled::WhenCreated) << node->pinNameIx(i);
            if (filler != nullptr) {
                EXPECT_TRUE(filler->pinOwned());
                EXPECT_EQ(filler->type(), row.default_node);
            }
        }
    }
}

TEST_F(NodeTest, IsMadeEmptyWithoutConfiguration) {
    ApiNode* camera = bare(NODE_THIN_LENS_CAMERA);
    for (unsigned i = 0; i < camera->pinCount(); ++i) EXPECT_EQ(camera->connectedNodeIx(i), nullptr);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV), 45.0F) << "an empty pin answers its default";
}

TEST_F(NodeTest, OfTypeZeroOrAnUnknownTypeIsNull) {
    for (const int type : {0, -1, 4, 999, 40000}) {
        EXPECT_EQ(ApiNode::create(static_cast<NodeType>(type), root, true), nullptr) << type;
        EXPECT_EQ(make(NODE_RENDER_TARGET)->createInternal(PIN_CAMERA, static_cast<NodeType>(type), true, true),
                  nullptr);
    }
    EXPECT_EQ(ApiNode::create(NODE_MESH, nullptr, true), nullptr);
}

TEST_F(NodeTest, UnknownPinsAnswerEmpty) {
    ApiNode* scatter = make(NODE_SCATTER);
    EXPECT_FALSE(scatter->hasPin(PIN_FOV));
    EXPECT_FALSE(scatter->hasPin(PIN_UNKNOWN));
    EXPECT_EQ(scatter->pinId("no such pin"), PIN_UNKNOWN);
    EXPECT_EQ(scatter->pinId(""), PIN_UNKNOWN);
    EXPECT_EQ(scatter->pinId(nullptr), PIN_UNKNOWN);
    EXPECT_EQ(scatter->pinIdIx(9), PIN_UNKNOWN);
    EXPECT_STREQ(scatter->pinNameIx(9), "");
    EXPECT_EQ(scatter->pinTypeIx(9), PIN_TYPE_UNKNOWN);
    EXPECT_EQ(scatter->pinInfoIx(9).type, PIN_TYPE_UNKNOWN);
    EXPECT_STREQ(scatter->pinInfoIx(9).label, "");
    EXPECT_EQ(scatter->inputNode(PIN_FOV), nullptr);
    EXPECT_EQ(scatter->connectedNode(PIN_FOV), nullptr);
    EXPECT_EQ(scatter->connectedNodeIx(9), nullptr);
    EXPECT_EQ(scatter->createInternal(PIN_FOV, NODE_FLOAT, true, true), nullptr);
    ChangeLog::take();
    ApiNode* mesh = make(NODE_MESH);
    ChangeLog::take();
    scatter->connectTo(PIN_FOV, mesh, true, true);
    scatter->connectTo(PIN_UNKNOWN, mesh, true, true);
    scatter->connectTo("no such pin", mesh, true, true);
    scatter->connectTo(static_cast<const char*>(nullptr), mesh, true, true);
    scatter->connectToIx(9, mesh, true, true);
    scatter->copyFromIx(9, mesh, true);
    EXPECT_THAT(users(mesh), IsEmpty());
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(NodeTest, ConnectsByNumberNameAndIndexAndDisconnectsWithNull) {
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* mesh = make(NODE_MESH);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), mesh);
    EXPECT_EQ(map->connectedNodeIx(0), mesh);
    EXPECT_EQ(map->inputNode(PIN_GEOMETRY), mesh);
    map->connectTo(PIN_GEOMETRY, nullptr, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), nullptr);
    EXPECT_TRUE(isAlive(mesh));
    map->connectTo("geometry", mesh, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), mesh);
    map->connectToIx(0, nullptr, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), nullptr);
    map->connectToIx(0, mesh, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), mesh);
}

TEST_F(NodeTest, GivingAPinAnotherNodeDestroysTheInternalOne) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* first = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), first);
    ApiNode* second = target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true);
    EXPECT_FALSE(isAlive(first));
    ApiNode* free_camera = make(NODE_THIN_LENS_CAMERA);
    target->connectTo(PIN_CAMERA, free_camera, true, false);
    EXPECT_FALSE(isAlive(second));
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), free_camera);
    target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_TRUE(isAlive(free_camera)) << "a free node outlives its use";
    EXPECT_THAT(users(free_camera), IsEmpty());
    ApiNode* last = target->connectedNode(PIN_CAMERA);
    target->connectTo(PIN_CAMERA, nullptr, true, false);
    EXPECT_FALSE(isAlive(last));
}

TEST_F(NodeTest, AFailedCreateInternalLeavesThePinAsItIs) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_EQ(target->createInternal(PIN_CAMERA, NODE_UNKNOWN, true, true), nullptr);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), camera);
    EXPECT_TRUE(isAlive(camera));
}

TEST_F(NodeTest, AnInternalNodeOfOnePinGoesOnNoOther) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* other = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    other->connectTo(PIN_CAMERA, camera, true, false);
    EXPECT_EQ(other->connectedNode(PIN_CAMERA), nullptr);
    target->connectTo(PIN_CAMERA, camera, true, false);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), camera);
    EXPECT_TRUE(isAlive(camera));
}

TEST_F(NodeTest, ListsItsUsersWithTheNamesOfTheirPins) {
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* mix = make(NODE_MATERIAL_MIX);
    map->setName("map");
    mix->setName("mix");
    map->connectTo(PIN_GEOMETRY, meshWithSlots(3), true, false);
    map->connectToIx(3, material, true, false);
    mix->connectTo(PIN_MATERIAL_2, material, true, false);
    map->connectToIx(1, material, true, false);
    EXPECT_THAT(users(material), ElementsAre("map mat_3", "mix material_2", "map mat_1"));
    map->connectToIx(3, nullptr, true, false);
    EXPECT_THAT(users(material), ElementsAre("mix material_2", "map mat_1"));
}

TEST_F(NodeTest, TheUserOfAnInternalNodeIsItsOwner) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    target->setName("view");
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_THAT(users(camera), ElementsAre("view camera"));
}

TEST_F(NodeTest, ListsAreFilledAnew) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNodeArray found;
    ApiStringArray pins;
    found.append(mesh);
    pins.append("left over");
    mesh->destinationNodes(found, pins);
    EXPECT_EQ(found.size(), 0U);
    EXPECT_EQ(pins.size(), 0U);
}

std::string captureCycle(const std::function<void()>& connect) {
    ::testing::internal::CaptureStderr();
    connect();
    return ::testing::internal::GetCapturedStderr();
}

TEST_F(NodeTest, AConnectionThatWouldCloseACycleChangesNothingAndLogsALine) {
    ApiNode* outer = make(NODE_MATERIAL_MIX);
    ApiNode* inner = make(NODE_MATERIAL_MIX);
    ApiNode* plain = make(NODE_MATERIAL_GLOSSY);
    outer->connectTo(PIN_MATERIAL_1, inner, true, false);
    inner->connectTo(PIN_MATERIAL_1, plain, true, false);
    ChangeLog::take();

    const std::string log = captureCycle([&] { inner->connectTo(PIN_MATERIAL_1, outer, true, false); });
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1);
    EXPECT_THAT(log, HasSubstr("velmar: "));
    EXPECT_THAT(log, HasSubstr("cycle"));
    EXPECT_EQ(inner->connectedNode(PIN_MATERIAL_1), plain);
    captureCycle([&] { inner->connectTo(PIN_MATERIAL_1, inner, true, false); });
    EXPECT_EQ(inner->connectedNode(PIN_MATERIAL_1), plain);
    EXPECT_THAT(users(inner), ElementsAre("Mix material material_1"));
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(NodeTest, ACycleThroughAnInternalNodeIsFoundToo) {
    ApiNode* outer = make(NODE_MATERIAL_MIX);
    ApiNode* inside = outer->createInternal(PIN_MATERIAL_1, NODE_MATERIAL_MIX, false, true);
    captureCycle([&] { inside->connectTo(PIN_MATERIAL_1, outer, true, false); });
    EXPECT_EQ(inside->connectedNode(PIN_MATERIAL_1), nullptr);
    ApiNode* link = make(NODE_LINK_MATERIAL);
    link->connectTo(PIN_MATERIAL, outer, true, false);
    captureCycle([&] { inside->connectTo(PIN_MATERIAL_1, link, true, false); });
    EXPECT_EQ(inside->connectedNode(PIN_MATERIAL_1), nullptr);
}

TEST_F(NodeTest, OneNodeOnTwoPinsIsNoCycle) {
    ApiNode* mix = make(NODE_MATERIAL_MIX);
    ApiNode* plain = make(NODE_MATERIAL_GLOSSY);
    mix->connectTo(PIN_MATERIAL_1, plain, true, false);
    mix->connectTo(PIN_MATERIAL_2, plain, true, false);
    EXPECT_EQ(mix->connectedNode(PIN_MATERIAL_1), plain);
    EXPECT_EQ(mix->connectedNode(PIN_MATERIAL_2), plain);
}

TEST_F(NodeTest, LinksPassOnWhatStandsOnTheirFirstPin) {
    ApiNode* mesh = meshWithSlots(1);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* link = make(NODE_LINK_FIRST);
    ApiNode* second = make(NODE_LINK_FIRST);
    map->connectTo(PIN_GEOMETRY, link, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), link);
    EXPECT_EQ(map->inputNode(PIN_GEOMETRY), nullptr);
    link->connectTo(PIN_GEOMETRY, mesh, true, false);
    EXPECT_EQ(map->inputNode(PIN_GEOMETRY), mesh);
    second->connectTo(PIN_GEOMETRY, mesh, true, false);
    link->connectTo(PIN_GEOMETRY, second, true, false);
    EXPECT_EQ(map->inputNode(PIN_GEOMETRY), mesh) << "through two links";
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), link);
}

TEST_F(NodeTest, AGroupHasAsManyPinsAsItsCountSays) {
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    EXPECT_EQ(group->pinCount(), 0U);
    group->set(ATTR_PIN_COUNT, 3, true);
    ASSERT_EQ(group->pinCount(), 3U);
    EXPECT_EQ(group->pinTypeIx(2), PIN_TYPE_GEOMETRY);
    EXPECT_EQ(group->pinIdIx(2), PIN_UNKNOWN);
    EXPECT_STREQ(group->pinInfoIx(2).label, "Input");
    EXPECT_STRNE(group->pinNameIx(2), group->pinNameIx(1));
    EXPECT_EQ(group->pinId(group->pinNameIx(2)), PIN_UNKNOWN);
    ApiNode* mesh = make(NODE_MESH);
    group->connectTo(group->pinNameIx(2), mesh, true, false);
    EXPECT_EQ(group->connectedNodeIx(2), mesh);
    EXPECT_STREQ(group->pinNameIx(3), "");
}

TEST_F(NodeTest, AGroupThatShrinksLetsGoOfTheNodesOnItsLastPins) {
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    ApiNode* first = make(NODE_MESH);
    ApiNode* last = make(NODE_MESH);
    group->set(ATTR_PIN_COUNT, 3, true);
    group->connectToIx(0, first, true, false);
    group->connectToIx(2, last, true, false);
    group->set(ATTR_PIN_COUNT, 1, true);
    EXPECT_EQ(group->pinCount(), 1U);
    EXPECT_EQ(group->connectedNodeIx(0), first);
    EXPECT_THAT(users(last), IsEmpty());
    EXPECT_TRUE(isAlive(last));
    group->set(ATTR_PIN_COUNT, 3, true);
    EXPECT_EQ(group->connectedNodeIx(2), nullptr);
    group->set(ATTR_PIN_COUNT, -7, true);
    EXPECT_EQ(group->pinCount(), 0U);
    EXPECT_EQ(group->getInt(ATTR_PIN_COUNT), -7);
}

TEST_F(NodeTest, AGroupWaitsForEvaluation) {
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    group->set(ATTR_PIN_COUNT, 2, false);
    EXPECT_EQ(group->pinCount(), 0U);
    group->evaluate();
    EXPECT_EQ(group->pinCount(), 2U);
}

TEST_F(NodeTest, AnAbsurdPinCountIsCut) {
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    group->set(ATTR_PIN_COUNT, 2147483647, true);
    EXPECT_LE(group->pinCount(), 1U << 22);
    EXPECT_GE(group->pinCount(), 1000000U);
}

TEST_F(NodeTest, AMaterialMapLearnsItsPinsWhenItIsEvaluated) {
    ApiNode* mesh = meshWithSlots(2);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    EXPECT_EQ(map->pinCount(), 1U);
    EXPECT_EQ(map->pinIdIx(0), PIN_GEOMETRY);
    map->connectTo(PIN_GEOMETRY, mesh, false, false);
    EXPECT_EQ(map->pinCount(), 1U);
    map->evaluate();
    ASSERT_EQ(map->pinCount(), 3U);
    EXPECT_STREQ(map->pinNameIx(1), "mat_1");
    EXPECT_STREQ(map->pinNameIx(2), "mat_2");
    EXPECT_EQ(map->pinTypeIx(1), PIN_TYPE_MATERIAL);
    EXPECT_EQ(map->pinIdIx(1), PIN_UNKNOWN);

    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    map->connectTo("mat_2", material, true, false);
    EXPECT_EQ(map->connectedNodeIx(2), material);

    setSlots(mesh, 4);
    EXPECT_EQ(map->pinCount(), 3U) << "not before its own evaluation";
    map->evaluate();
    EXPECT_EQ(map->pinCount(), 5U);
    EXPECT_EQ(map->connectedNodeIx(2), material);
    setSlots(mesh, 1);
    map->evaluate();
    EXPECT_EQ(map->pinCount(), 2U);
    EXPECT_THAT(users(material), IsEmpty());
}

TEST_F(NodeTest, AMaterialMapLearnsItsPinsThroughLinks) {
    ApiNode* mesh = meshWithSlots(2);
    ApiNode* link = make(NODE_LINK_FIRST);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    link->connectTo(PIN_GEOMETRY, mesh, true, false);
    map->connectTo(PIN_GEOMETRY, link, true, false);
    EXPECT_EQ(map->pinCount(), 3U);
    map->connectTo(PIN_GEOMETRY, nullptr, true, false);
    EXPECT_EQ(map->pinCount(), 1U);
    map->connectTo(PIN_GEOMETRY, make(NODE_SCATTER), true, false);
    EXPECT_EQ(map->pinCount(), 1U) << "no names, no pins";
}

TEST_F(NodeTest, AMaterialMapTakesNewNamesOfTheSameNumber) {
    ApiNode* mesh = meshWithSlots(2);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    const char* names[] = {"wood", "glass"};
    mesh->set(ATTR_MATERIAL_NAMES, names, 2, true);
    map->evaluate();
    EXPECT_EQ(map->pinCount(), 3U);
    EXPECT_STREQ(map->pinNameIx(2), "glass");
}

TEST_F(NodeTest, EmptyPinsAreConfiguredOnDemand) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    for (const PinId pin : {PIN_CAMERA, PIN_ENVIRONMENT, PIN_KERNEL, PIN_IMAGER, PIN_POSTPROC, PIN_FILM_SETTINGS,
                            PIN_RENDER_GEOMETRY, PIN_VISIBLE_ENVIRONMENT}) {
        EXPECT_EQ(target->connectedNode(pin), nullptr) << pin;
    }
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true);
    target->configureEmptyPins();
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), camera) << "what stands there stays";
    const ApiNode* geometry = target->connectedNode(PIN_RENDER_GEOMETRY);
    ASSERT_NE(geometry, nullptr);
    EXPECT_EQ(geometry->type(), NODE_LINK_FIRST);
    EXPECT_TRUE(geometry->pinOwned());
    EXPECT_EQ(target->inputNode(PIN_RENDER_GEOMETRY), nullptr);
    EXPECT_EQ(target->connectedNode(PIN_ENVIRONMENT)->type(), NODE_DAYLIGHT_ENVIRONMENT);
    EXPECT_EQ(target->connectedNode(PIN_KERNEL)->type(), NODE_KERNEL_PATH_TRACING);
    EXPECT_EQ(target->connectedNode(PIN_IMAGER)->type(), NODE_IMAGER);
    EXPECT_EQ(target->connectedNode(PIN_POSTPROC)->type(), NODE_POSTPROC);
    EXPECT_EQ(target->connectedNode(PIN_FILM_SETTINGS)->type(), NODE_FILM_SETTINGS);
    EXPECT_EQ(target->connectedNode(PIN_VISIBLE_ENVIRONMENT), nullptr);
    ChangeLog::take();
    target->configureEmptyPins();
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(NodeTest, ConnectingMayConfigureTheNodeThatIsConnected) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = bare(NODE_THIN_LENS_CAMERA);
    target->connectTo(PIN_CAMERA, camera, true, false);
    EXPECT_EQ(camera->connectedNode(PIN_FOV), nullptr);
    target->connectTo(PIN_CAMERA, camera, true, true);
    EXPECT_NE(camera->connectedNode(PIN_FOV), nullptr);
}

TEST_F(NodeTest, TextureEnvironmentsHaveATextureFromTheStart) {
    ApiNode* environment = make(NODE_TEXTURE_ENVIRONMENT);
    ASSERT_NE(environment->connectedNode(PIN_TEXTURE), nullptr);
    ApiNode* holder = environment->createInternal(PIN_TEXTURE, NODE_GAMMA_COLOR, true, true);
    ASSERT_NE(holder->connectedNode(PIN_TEXTURE), nullptr);
    EXPECT_EQ(holder->connectedNode(PIN_TEXTURE)->type(), NODE_COLOR);
    EXPECT_EQ(holder->connectedNode(PIN_TEXTURE)->getFloat3(ATTR_VALUE), (Vec3<float>{1, 1, 1}));
    EXPECT_EQ(make(NODE_DAYLIGHT_ENVIRONMENT)->connectedNode(PIN_TEXTURE), nullptr);
}

TEST_F(NodeTest, MaterialsHaveAPlainColourAndFullOpacityFromTheStart) {
    ApiNode* glossy = make(NODE_MATERIAL_GLOSSY);
    EXPECT_EQ(glossy->connectedNode(PIN_DIFFUSE)->type(), NODE_COLOR);
    EXPECT_EQ(glossy->connectedNode(PIN_DIFFUSE)->getFloat3Ix(0), (Vec3<float>{0.7F, 0.7F, 0.7F}));
    EXPECT_EQ(glossy->connectedNode(PIN_OPACITY)->type(), NODE_FLOAT);
    EXPECT_EQ(glossy->connectedNode(PIN_OPACITY)->getFloatIx(0), 1.0F);
    EXPECT_EQ(glossy->connectedNode(PIN_BUMP), nullptr);
    EXPECT_EQ(make(NODE_MATERIAL_SPECULAR)->connectedNode(PIN_REFLECTION)->type(), NODE_COLOR);
}

TEST_F(NodeTest, AGroupOfManyScattersIsBuiltAndTakenDownQuickly) {
    constexpr int count = 20000;
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    ApiNode* mesh = meshWithSlots(1);
    group->set(ATTR_PIN_COUNT, count, true);
    std::vector<ApiNode*> maps;
    for (int i = 0; i < count; ++i) {
        ApiNode* scatter = make(NODE_SCATTER);
        maps.push_back(make(NODE_MATERIAL_MAP));
        maps.back()->connectTo(PIN_GEOMETRY, mesh, true, false);
        maps.back()->connectToIx(1, material, true, false);
        scatter->connectTo(PIN_GEOMETRY, maps.back(), true, false);
        group->connectToIx(static_cast<unsigned>(i), scatter, true, false);
    }
    ApiNodeArray found;
    ApiStringArray pins;
    material->destinationNodes(found, pins);
    EXPECT_EQ(found.size(), static_cast<std::size_t>(count));
    for (ApiNode* map : maps) map->destroy();
    material->destinationNodes(found, pins);
    EXPECT_EQ(found.size(), 0U);
}

}  // namespace
}  // namespace Velmar::Engine
