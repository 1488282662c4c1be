#include "engine/graph/copy_tree.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/array_access.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class CopyTreeTest : public GraphTest {
protected:
    CopyTreeTest() : other(ApiRootNodeGraph::create(3080100)) {}
    ApiRootNodeGraph* other;
};

TEST_F(CopyTreeTest, CopiesANodeWithAllThatItIs) {
    ApiNode* mesh = meshWithSlots(2);
    const Vec3<float> points[] = {{1, 2, 3}};
    mesh->set(ATTR_VERTICES, points, 1, true);
    mesh->set(ATTR_SMOOTHING_ANGLE, 12.0F, true);
    mesh->setName("chair");
    mesh->setPosition({5, 6});
    ApiItem* copied = other->copyItemTree(mesh);
    ASSERT_NE(copied, nullptr);
    ApiNode* copy = copied->toNode();
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, mesh);
    EXPECT_EQ(copy->type(), NODE_MESH);
    EXPECT_STREQ(copy->name(), "chair");
    EXPECT_EQ(copy->position(), (Vec2<float>{5, 6}));
    EXPECT_EQ(copy->graphOwner(), other);
    EXPECT_EQ(copy->getFloat(ATTR_SMOOTHING_ANGLE), 12.0F);
    EXPECT_EQ(float3Array(copy, ATTR_VERTICES), float3Array(mesh, ATTR_VERTICES)) << "shared, not copied";

    mesh->set(ATTR_SMOOTHING_ANGLE, 30.0F, true);
    mesh->set(ATTR_VERTICES, points, 0, true);
    EXPECT_EQ(copy->getFloat(ATTR_SMOOTHING_ANGLE), 12.0F);
    EXPECT_THAT(*float3Array(copy, ATTR_VERTICES), SizeIs(1));
}

TEST_F(CopyTreeTest, CopiesInternalNodesAsInternalNodes) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    camera->setPinValue(PIN_FOV, 33.0F, true);
    ApiNode* copy = other->copyItemTree(target)->toNode();
    ApiNode* camera_copy = copy->connectedNode(PIN_CAMERA);
    ASSERT_NE(camera_copy, nullptr);
    EXPECT_NE(camera_copy, camera);
    EXPECT_TRUE(camera_copy->pinOwned());
    EXPECT_EQ(camera_copy->getPinFloat(PIN_FOV), 33.0F);
    EXPECT_THAT(ownedItems(other), ElementsAre(copy));
    camera->setPinValue(PIN_FOV, 44.0F, true);
    EXPECT_EQ(camera_copy->getPinFloat(PIN_FOV), 33.0F);
    copy->connectTo(PIN_CAMERA, nullptr, true, false);
    EXPECT_FALSE(isAlive(camera_copy));
}

TEST_F(CopyTreeTest, KeepsSharing) {
    ApiNode* mix = make(NODE_MATERIAL_MIX);
    ApiNode* inner = make(NODE_MATERIAL_MIX);
    ApiNode* shared = make(NODE_MATERIAL_GLOSSY);
    mix->connectTo(PIN_MATERIAL_1, shared, true, false);
    mix->connectTo(PIN_MATERIAL_2, inner, true, false);
    inner->connectTo(PIN_MATERIAL_1, shared, true, false);
    inner->connectTo(PIN_MATERIAL_2, shared, true, false);
    ApiNode* copy = other->copyItemTree(mix)->toNode();
    ApiNode* shared_copy = copy->connectedNode(PIN_MATERIAL_1);
    EXPECT_EQ(copy->connectedNode(PIN_MATERIAL_2)->connectedNode(PIN_MATERIAL_1), shared_copy);
    EXPECT_EQ(copy->connectedNode(PIN_MATERIAL_2)->connectedNode(PIN_MATERIAL_2), shared_copy);
    EXPECT_NE(shared_copy, shared);
    EXPECT_THAT(nodes(other, NODE_MATERIAL_GLOSSY), ElementsAre(shared_copy));
    EXPECT_THAT(ownedItems(other), SizeIs(3));
    EXPECT_EQ(ownedItems(other).front(), copy) << "the item itself comes first";
    EXPECT_THAT(users(shared), SizeIs(3)) << "nothing uses the originals anew";
}

TEST_F(CopyTreeTest, DoesNotCopyUsers) {
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, meshWithSlots(1), true, false);
    map->connectToIx(1, material, true, false);
    ApiNode* copy = other->copyItemTree(material)->toNode();
    EXPECT_THAT(ownedItems(other), ElementsAre(copy));
    EXPECT_THAT(users(copy), IsEmpty());
}

TEST_F(CopyTreeTest, KeepsDynamicPins) {
    ApiNode* map = make(NODE_MATERIAL_MAP);
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    map->connectTo(PIN_GEOMETRY, meshWithSlots(2), true, false);
    map->connectToIx(2, material, true, false);
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    group->set(ATTR_PIN_COUNT, 3, true);
    group->connectToIx(2, map, true, false);
    ApiNode* copy = other->copyItemTree(group)->toNode();
    ASSERT_EQ(copy->pinCount(), 3U);
    const ApiNode* map_copy = copy->connectedNodeIx(2);
    ASSERT_NE(map_copy, nullptr);
    ASSERT_EQ(map_copy->pinCount(), 3U);
    EXPECT_STREQ(map_copy->pinNameIx(2), "mat_2");
    EXPECT_EQ(map_copy->connectedNodeIx(2)->type(), NODE_MATERIAL_GLOSSY);
    EXPECT_EQ(map_copy->connectedNodeIx(1), nullptr);
}

TEST_F(CopyTreeTest, WhatStandsInTheItemsOwnGraphStandsInTheTarget) {
    ApiNodeGraph* scratch = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNodeGraph* sandbox = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, scratch, true);
    ApiNode* image = ApiNode::create(NODE_IMAGE, scratch, true);
    material->connectTo(PIN_DIFFUSE, image, true, false);
    ApiNode* copy = sandbox->copyItemTree(material)->toNode();
    EXPECT_EQ(copy->graphOwner(), sandbox);
    EXPECT_EQ(copy->connectedNode(PIN_DIFFUSE)->graphOwner(), sandbox);
    EXPECT_THAT(ownedItems(sandbox), SizeIs(2));
}

TEST_F(CopyTreeTest, WhatStandsInAGraphAroundTheItemStandsInTheTargetToo) {
    ApiNodeGraph* sandbox = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, sandbox, true);
    ApiNode* image = make(NODE_IMAGE);
    material->connectTo(PIN_DIFFUSE, image, true, false);
    ApiNode* copy = other->copyItemTree(material)->toNode();
    EXPECT_EQ(copy->connectedNode(PIN_DIFFUSE)->graphOwner(), other);
    EXPECT_THAT(ownedItems(other), SizeIs(2));
}

TEST_F(CopyTreeTest, WhatStandsInAnotherGraphBringsThatGraphAlong) {
    ApiNodeGraph* sandbox = ApiNodeGraph::create(GRAPH_STANDARD, root);
    sandbox->setName("Velmar Sandbox");
    sandbox->setPosition({7, 8});
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, sandbox, true);
    ApiNode* link = ApiNode::create(NODE_LINK_MATERIAL, sandbox, true);
    ApiNode* unused = ApiNode::create(NODE_MATERIAL_GLOSSY, sandbox, true);
    link->connectTo(PIN_MATERIAL, material, true, false);
    ApiNode* mesh = meshWithSlots(1);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    map->connectToIx(1, link, true, false);

    ApiNode* copy = other->copyItemTree(map)->toNode();
    EXPECT_EQ(copy->graphOwner(), other);
    EXPECT_EQ(copy->connectedNode(PIN_GEOMETRY)->graphOwner(), other);
    ApiNodeGraph* brought = copy->connectedNodeIx(1)->graphOwner();
    ASSERT_NE(brought, other);
    EXPECT_STREQ(brought->name(), "Velmar Sandbox");
    EXPECT_EQ(brought->position(), (Vec2<float>{7, 8}));
    EXPECT_EQ(brought->graphOwner(), other);
    EXPECT_THAT(ownedItems(brought), SizeIs(2)) << "what was needed";
    EXPECT_EQ(copy->connectedNodeIx(1)->connectedNode(PIN_MATERIAL)->graphOwner(), brought);
    EXPECT_THAT(users(unused), IsEmpty());

    brought->ungroup(false, nullptr);
    EXPECT_EQ(copy->connectedNodeIx(1)->graphOwner(), other);
}

TEST_F(CopyTreeTest, ANestedGraphKeepsItsNestingWhenItIsBroughtAlong) {
    ApiNodeGraph* outer = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, outer);
    inner->setName("inner");
    outer->setName("outer");
    ApiNode* image = ApiNode::create(NODE_IMAGE, inner, true);
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    material->connectTo(PIN_DIFFUSE, image, true, false);
    ApiNode* copy = other->copyItemTree(material)->toNode();
    const ApiNodeGraph* owner = copy->connectedNode(PIN_DIFFUSE)->graphOwner();
    EXPECT_STREQ(owner->name(), "inner");
    EXPECT_STREQ(owner->graphOwner()->name(), "outer");
    EXPECT_EQ(owner->graphOwner()->graphOwner(), other);
}

TEST_F(CopyTreeTest, AGraphIsCopiedWithAllItsItemsAndWhatTheyDependOn) {
    ApiNodeGraph* sandbox = ApiNodeGraph::create(GRAPH_STANDARD, root);
    sandbox->setName("sandbox");
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, sandbox, true);
    ApiNode::create(NODE_MATERIAL_TOON, sandbox, true);
    ApiNode* image = make(NODE_IMAGE);
    material->connectTo(PIN_DIFFUSE, image, true, false);
    ApiNodeGraph* copy = other->copyItemTree(sandbox)->toGraph();
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->name(), "sandbox");
    EXPECT_EQ(copy->graphOwner(), other);
    EXPECT_THAT(ownedItems(copy), SizeIs(2));
    EXPECT_EQ(copy->findFirstNode(NODE_MATERIAL_GLOSSY)->connectedNode(PIN_DIFFUSE)->graphOwner(), other);
}

TEST_F(CopyTreeTest, AGraphMayBeCopiedIntoItself) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode::create(NODE_MESH, graph, true);
    ApiNodeGraph* copy = graph->copyItemTree(graph)->toGraph();
    EXPECT_EQ(copy->graphOwner(), graph);
    EXPECT_THAT(ownedItems(graph), SizeIs(2));
    EXPECT_THAT(ownedItems(copy), SizeIs(1));
    ApiNodeGraph* of_root = graph->copyItemTree(root)->toGraph();
    EXPECT_EQ(of_root->type(), GRAPH_STANDARD);
    EXPECT_EQ(of_root->graphOwner(), graph);
}

TEST_F(CopyTreeTest, AnInternalNodeBecomesAFreeOne) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* environment = target->createInternal(PIN_ENVIRONMENT, NODE_DAYLIGHT_ENVIRONMENT, true, true);
    ApiNode* copy = other->copyItemTree(environment)->toNode();
    EXPECT_FALSE(copy->pinOwned());
    EXPECT_EQ(copy->graphOwner(), other);
    EXPECT_EQ(copy->inputNode(PIN_SUN_DIRECTION)->type(), NODE_SUN_DIRECTION);
    EXPECT_EQ(copy->getPinFloat3(PIN_SUN_DIRECTION), environment->getPinFloat3(PIN_SUN_DIRECTION));
}

TEST_F(CopyTreeTest, NothingComesOfNothing) {
    EXPECT_EQ(other->copyItemTree(nullptr), nullptr);
    EXPECT_THAT(ownedItems(other), IsEmpty());
}

TEST_F(CopyTreeTest, TheChangeLogListsEachCopyAsAdded) {
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, meshWithSlots(1), true, false);
    map->connectToIx(1, material, true, false);
    ChangeLog::take();
    ApiNode* copy = root->copyItemTree(map)->toNode();
    std::vector<ApiItem*> added;
    for (const Change& change : ChangeLog::take()) {
        EXPECT_EQ(change.kind, Change::Kind::ItemAdded);
        added.push_back(change.item);
    }
    EXPECT_THAT(added, ::testing::IsSupersetOf<ApiItem*>({copy, copy->connectedNodeIx(0), copy->connectedNodeIx(1),
                                                          copy->connectedNodeIx(1)->connectedNode(PIN_DIFFUSE)}));
}

TEST_F(CopyTreeTest, APinTakesACopyAsItsInternalNode) {
    ApiNode* source = ApiNode::create(NODE_THIN_LENS_CAMERA, other, true);
    source->setPinValue(PIN_FOV, 12.0F, true);
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* before = target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true);
    target->copyFromIx(0, source, true);
    ApiNode* copy = target->connectedNode(PIN_CAMERA);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, source);
    EXPECT_TRUE(copy->pinOwned());
    EXPECT_EQ(copy->getPinFloat(PIN_FOV), 12.0F);
    EXPECT_FALSE(isAlive(before));
    EXPECT_THAT(ownedItems(root), ElementsAre(target));
}

TEST_F(CopyTreeTest, FreeNodesBelowACopyOnAPinComeIntoTheGraphOfThePinsNode) {
    ApiNode* source = ApiNode::create(NODE_TEXTURE_ENVIRONMENT, other, true);
    ApiNode* image = ApiNode::create(NODE_IMAGE, other, true);
    source->connectTo(PIN_TEXTURE, image, true, false);
    ApiNode* target = make(NODE_RENDER_TARGET);
    target->copyFromIx(2, source, true);
    ApiNode* copy = target->connectedNode(PIN_ENVIRONMENT);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->connectedNode(PIN_TEXTURE)->graphOwner(), root);
}

TEST_F(CopyTreeTest, APinTakesTheFirstNodeOfAGraph) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, other);
    ApiNodeGraph::create(GRAPH_STANDARD, graph);
    ApiNode::create(NODE_THIN_LENS_CAMERA, graph, true);
    ApiNode* target = make(NODE_RENDER_TARGET);
    target->copyFromIx(0, graph, true);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA)->type(), NODE_THIN_LENS_CAMERA);
}

TEST_F(CopyTreeTest, APinTakesNoCopyOfNothingAndOfAnotherKind) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ChangeLog::take();
    ApiNode* mesh = make(NODE_MESH);
    ApiNodeGraph* empty = ApiNodeGraph::create(GRAPH_STANDARD, other);
    ChangeLog::take();
    target->copyFromIx(0, nullptr, true);
    target->copyFromIx(0, mesh, true);
    target->copyFromIx(0, empty, true);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), nullptr);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

}  // namespace
}  // namespace Velmar::Engine
