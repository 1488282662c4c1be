#include "engine/graph/graph_walk.h"

#include "engine/graph/graph_test.h"

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GraphWalkTest : public GraphTest {};

TEST_F(GraphWalkTest, FollowsLinks) {
    ApiNode* mesh = meshWithSlots(1);
    ApiNode* link = make(NODE_LINK_FIRST);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, link, true, false);
    EXPECT_EQ(inputNodeIx(map, 0), nullptr);
    EXPECT_EQ(followLinks(link), nullptr);
    link->connectTo(PIN_GEOMETRY, mesh, true, false);
    EXPECT_EQ(inputNodeIx(map, 0), mesh);
    EXPECT_EQ(followLinks(link), mesh);
    EXPECT_EQ(followLinks(mesh), mesh);
    EXPECT_EQ(followLinks(nullptr), nullptr);
    EXPECT_EQ(inputNodeIx(map, 99), nullptr);
    EXPECT_EQ(inputNodeIx(nullptr, 0), nullptr);
}

TEST_F(GraphWalkTest, KnowsTheOwnerOfAnInternalNode) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* film = target->createInternal(PIN_FILM_SETTINGS, NODE_FILM_SETTINGS, true, true);
    unsigned pin = 99;
    EXPECT_EQ(pinOwnerNode(film, &pin), target);
    EXPECT_EQ(target->pinIdIx(pin), PIN_FILM_SETTINGS);
    EXPECT_EQ(pinOwnerNode(film), target);
    pin = 99;
    EXPECT_EQ(pinOwnerNode(target, &pin), nullptr);
    EXPECT_EQ(pinOwnerNode(nullptr, &pin), nullptr);
    EXPECT_EQ(pin, 99U);
}

TEST_F(GraphWalkTest, FindsPinsByNumber) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    unsigned pin = 99;
    EXPECT_TRUE(findPin(target, PIN_KERNEL, pin));
    EXPECT_EQ(target->pinIdIx(pin), PIN_KERNEL);
    pin = 99;
    EXPECT_FALSE(findPin(target, PIN_GEOMETRY, pin));
    EXPECT_FALSE(findPin(nullptr, PIN_KERNEL, pin));
    EXPECT_EQ(pin, 99U);
}

TEST_F(GraphWalkTest, VisitsEachUseOfANode) {
    ApiNode* mix = make(NODE_MATERIAL_MIX);
    ApiNode* plain = make(NODE_MATERIAL_GLOSSY);
    mix->connectToIx(2, plain, true, false);
    mix->connectToIx(1, plain, true, false);
    std::vector<std::pair<ApiNode*, unsigned>> uses;
    const auto visit = [&uses](ApiNode* user, unsigned pin) { uses.emplace_back(user, pin); };
    forEachUser(plain, visit);
    EXPECT_THAT(uses, ElementsAre(std::pair(mix, 2U), std::pair(mix, 1U)));
    uses.clear();
    forEachUser(mix, visit);
    forEachUser(nullptr, visit);
    EXPECT_THAT(uses, IsEmpty());
}

TEST_F(GraphWalkTest, TellsTheLivingFromTheRest) {
    ApiNode* mesh = make(NODE_MESH);
    EXPECT_TRUE(isAlive(mesh));
    EXPECT_TRUE(isAlive(root));
    EXPECT_FALSE(isAlive(nullptr));
    mesh->destroy();
    EXPECT_FALSE(isAlive(mesh));
}

}  // namespace
}  // namespace Velmar::Engine
