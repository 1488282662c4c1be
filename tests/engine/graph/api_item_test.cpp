// Identity, place and life of items.
#include <velmar/item.h>

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

#include <set>

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ItemTest : public GraphTest {};

TEST_F(ItemTest, IsNamedAfterItsTypeUntilItIsRenamed) {
    ApiNode* mesh = make(NODE_MESH);
    EXPECT_STREQ(mesh->name(), mesh->info().default_name);
    mesh->setName("chair");
    EXPECT_STREQ(mesh->name(), "chair");
    mesh->setName("Stühle");
    EXPECT_STREQ(mesh->name(), "Stühle");
    mesh->setName(nullptr);
    EXPECT_STREQ(mesh->name(), "");
}

TEST_F(ItemTest, ConvertsToWhatItIs) {
    ApiItem* node = make(NODE_MESH);
    const ApiItem* const_node = node;
    EXPECT_TRUE(node->isNode());
    EXPECT_FALSE(node->isGraph());
    EXPECT_EQ(node->toNode(), node);
    EXPECT_EQ(const_node->toNode(), node);
    EXPECT_EQ(node->toGraph(), nullptr);
    EXPECT_EQ(const_node->toGraph(), nullptr);

    ApiItem* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    const ApiItem* const_graph = graph;
    EXPECT_TRUE(graph->isGraph());
    EXPECT_FALSE(graph->isNode());
    EXPECT_EQ(graph->toGraph(), graph);
    EXPECT_EQ(const_graph->toGraph(), graph);
    EXPECT_EQ(graph->toNode(), nullptr);
    EXPECT_EQ(const_graph->toNode(), nullptr);
}

TEST_F(ItemTest, KnowsItsOwnerAndItsPlace) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* mesh = ApiNode::create(NODE_MESH, graph, true);
    EXPECT_EQ(mesh->graphOwner(), graph);
    EXPECT_EQ(graph->graphOwner(), root);
    EXPECT_FALSE(mesh->pinOwned());
    EXPECT_EQ(mesh->position(), (Vec2<float>{0, 0}));
    mesh->setPosition({12.5F, -3.0F});
    EXPECT_EQ(mesh->position(), (Vec2<float>{12.5F, -3.0F}));
}

TEST_F(ItemTest, AnInternalNodeHasNoOwnerGraph) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_TRUE(camera->pinOwned());
    EXPECT_EQ(camera->graphOwner(), nullptr);
    EXPECT_THAT(ownedItems(root), ElementsAre(target));
}

void expectEmptyReads(ApiNode* gone) {
    EXPECT_STREQ(gone->name(), "");
    EXPECT_FALSE(gone->isNode());
    EXPECT_FALSE(gone->isGraph());
    EXPECT_EQ(gone->toNode(), nullptr);
    EXPECT_EQ(gone->toGraph(), nullptr);
    EXPECT_EQ(gone->graphOwner(), nullptr);
    EXPECT_FALSE(gone->pinOwned());
    EXPECT_EQ(gone->position(), (Vec2<float>{}));
    EXPECT_EQ(gone->type(), NODE_UNKNOWN);
    EXPECT_STREQ(gone->info().default_name, "");
    EXPECT_EQ(gone->pinCount(), 0U);
    EXPECT_FALSE(gone->hasPin(PIN_GEOMETRY));
    EXPECT_EQ(gone->pinId("geometry"), PIN_UNKNOWN);
    EXPECT_EQ(gone->pinIdIx(0), PIN_UNKNOWN);
    EXPECT_STREQ(gone->pinNameIx(0), "");
    EXPECT_EQ(gone->pinTypeIx(0), PIN_TYPE_UNKNOWN);
    EXPECT_EQ(gone->pinInfoIx(0).type, PIN_TYPE_UNKNOWN);
    EXPECT_EQ(gone->inputNode(PIN_GEOMETRY), nullptr);
    EXPECT_EQ(gone->connectedNode(PIN_GEOMETRY), nullptr);
    EXPECT_EQ(gone->connectedNodeIx(0), nullptr);
    EXPECT_FALSE(gone->getPinBool(PIN_SMOOTH));
    EXPECT_EQ(gone->getPinInt(PIN_MONTH), 0);
    EXPECT_EQ(gone->getPinFloat3Ix(0), (Vec3<float>{}));
    EXPECT_STREQ(gone->getPinStringIx(0), "");
    EXPECT_EQ(gone->attrCount(), 0U);
    EXPECT_FALSE(gone->hasAttr(ATTR_TRANSFORMS));
    EXPECT_EQ(gone->attrId("transforms"), ATTR_UNKNOWN);
    EXPECT_EQ(gone->attrInfoIx(0).type, ATTR_TYPE_UNKNOWN);
    EXPECT_EQ(gone->getMatrixArrayIx(0).size, 0U);
    EXPECT_STREQ(gone->getString(ATTR_FILENAME), "");
}

TEST_F(ItemTest, ADestroyedNodeAnswersEveryCallEmpty) {
    ApiNode* scatter = make(NODE_SCATTER);
    const Matrix<float> place{};
    scatter->set(ATTR_TRANSFORMS, &place, 1, true);
    scatter->destroy();
    EXPECT_FALSE(isAlive(scatter));
    expectEmptyReads(scatter);
    EXPECT_THAT(users(scatter), IsEmpty());
    EXPECT_THAT(ownedItems(root), IsEmpty());
}

TEST_F(ItemTest, ADestroyedNodeTakesNothingAndIsTakenNowhere) {
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* gone = make(NODE_SCATTER);
    gone->destroy();
    ChangeLog::take();
    gone->setName("ghost");
    gone->setPosition({1, 1});
    gone->setUIOperationFlags(4);
    gone->set(ATTR_INSTANCE_ID_BASE, 5, true);
    gone->setIx(0, 1.0F, true);
    gone->evaluate();
    gone->connectTo(PIN_GEOMETRY, map, true, true);
    gone->connectTo("geometry", map, true, true);
    gone->connectToIx(0, map, true, true);
    gone->configureEmptyPins();
    gone->setPinValue(PIN_FOV, 1.0F, true);
    gone->copyFromIx(0, map, true);
    gone->destroy();
    EXPECT_EQ(gone->createInternal(PIN_GEOMETRY, NODE_MESH, true, true), nullptr);
    map->connectTo(PIN_GEOMETRY, gone, true, true);
    EXPECT_EQ(root->copyItemTree(gone), nullptr);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), nullptr);
    expectEmptyReads(gone);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(ItemTest, ConnectingADestroyedNodeLeavesWhatStoodOnThePin) {
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* gone = make(NODE_MESH);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    gone->destroy();
    map->connectTo(PIN_GEOMETRY, gone, true, false);
    EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), mesh);
}

TEST_F(ItemTest, ADestroyedGraphAnswersEmptyAndTakesNothing) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* mesh = make(NODE_MESH);
    graph->destroy();
    EXPECT_EQ(graph->type(), GRAPH_UNKNOWN);
    EXPECT_STREQ(graph->name(), "");
    EXPECT_EQ(graph->findFirstNode(NODE_MESH), nullptr);
    EXPECT_THAT(ownedItems(graph), IsEmpty());
    EXPECT_THAT(nodes(graph, NODE_MESH, true), IsEmpty());
    EXPECT_EQ(graph->copyItemTree(mesh), nullptr);
    EXPECT_EQ(ApiNode::create(NODE_MESH, graph, true), nullptr);
    EXPECT_EQ(ApiNodeGraph::create(GRAPH_STANDARD, graph), nullptr);
    graph->clear();
    graph->recenter({1, 1});
    graph->ungroup(true, nullptr);
    EXPECT_THAT(ownedItems(root), ElementsAre(mesh));
}

TEST_F(ItemTest, AddressesOfDestroyedItemsAreNotUsedAgain) {
    std::set<ApiItem*> addresses;
    for (int i = 0; i < 1000; ++i) {
        ApiNode* node = make(NODE_FLOAT);
        EXPECT_TRUE(addresses.insert(node).second);
        node->destroy();
        ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
        EXPECT_TRUE(addresses.insert(graph).second);
        graph->destroy();
    }
}

TEST_F(ItemTest, AddressesStayAsItemsAreAdded) {
    ApiNode* first = make(NODE_MESH);
    first->setName("first");
    for (int i = 0; i < 10000; ++i) bare(NODE_FLOAT);
    EXPECT_STREQ(first->name(), "first");
    EXPECT_EQ(root->findFirstNode(NODE_MESH), first);
}

TEST_F(ItemTest, DestroyingDisconnectsANodeEverywhere) {
    ApiNode* mesh = meshWithSlots(2);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* scatter = make(NODE_SCATTER);
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    map->connectToIx(1, material, true, false);
    map->connectToIx(2, material, true, false);
    scatter->connectTo(PIN_GEOMETRY, map, true, false);

    map->destroy();
    EXPECT_EQ(scatter->connectedNode(PIN_GEOMETRY), nullptr);
    EXPECT_THAT(users(mesh), IsEmpty());
    EXPECT_THAT(users(material), IsEmpty());
    EXPECT_TRUE(isAlive(mesh));
    EXPECT_TRUE(isAlive(material));
}

TEST_F(ItemTest, DestroyingANodeEndsItsInternalNodesAtAnyDepth) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* environment = target->createInternal(PIN_ENVIRONMENT, NODE_DAYLIGHT_ENVIRONMENT, true, true);
    ApiNode* sun = environment->connectedNode(PIN_SUN_DIRECTION);
    ApiNode* latitude = sun->connectedNode(PIN_LATITUDE);
    target->destroy();
    for (const ApiNode* node : {target, environment, sun, latitude}) EXPECT_FALSE(isAlive(node));
}

TEST_F(ItemTest, DestroyingAnInternalNodeEmptiesItsPin) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    camera->destroy();
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), nullptr);
    EXPECT_FALSE(isAlive(camera));
}

TEST_F(ItemTest, DestroyingAGraphEndsAllThatIsInItAndNoMore) {
    ApiNodeGraph* outer = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, outer);
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, inner, true);
    ApiNode* link = ApiNode::create(NODE_LINK_MATERIAL, outer, true);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, meshWithSlots(1), true, false);
    link->connectTo(PIN_MATERIAL, material, true, false);
    map->connectToIx(1, link, true, false);

    outer->destroy();
    for (const ApiItem* item : std::initializer_list<ApiItem*>{outer, inner, material, link}) {
        EXPECT_FALSE(isAlive(item));
    }
    EXPECT_TRUE(isAlive(map));
    EXPECT_EQ(map->connectedNodeIx(1), nullptr);
}

TEST_F(ItemTest, DeepNestingEndsWithoutHarm) {
    ApiNode* top = make(NODE_MATERIAL_MIX);
    ApiNode* at = top;
    for (int i = 0; i < 100000; ++i) {
        at = at->createInternal(PIN_MATERIAL_1, NODE_MATERIAL_MIX, false, false);
        ASSERT_NE(at, nullptr);
    }
    top->destroy();
    EXPECT_FALSE(isAlive(at));
}

TEST_F(ItemTest, UiFlagsTellOnlyOfAChange) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    Listener listener;
    listener.listen(target);
    target->setUIOperationFlags(4);
    target->setUIOperationFlags(4);
    EXPECT_THAT(listener.types(), ElementsAre(Listener::Event::ITEM_UI_OPERATION_FLAG_CHANGED));
}

}  // namespace
}  // namespace Velmar::Engine
