// What a scene text holds comes back: the same graph, and from it the same text.
#include "random_graph.h"
#include "text_test.h"

#include "engine/catalog/engine_ids.h"

#include <velmar/arrays.h>

#include <string>

namespace Velmar::Engine {
namespace {

class RoundTripTest : public TextTest {
protected:
    /// Writes, reads and writes again; the graph that came back.
    ApiRootNodeGraph* roundTrip(ApiRootNodeGraph* graph) {
        const std::string text = exported(graph);
        EXPECT_NE(text, "");
        ApiRootNodeGraph* back = imported(text);
        EXPECT_EQ(exported(back), text);
        return back;
    }
};

TEST_F(RoundTripTest, AnEmptyGraph) {
    EXPECT_TRUE(sameGraphs(newRoot(), roundTrip(newRoot())));
    EXPECT_EQ(exported(newRoot()),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<velmar-scene version=\"3080100\" />\n");
}

TEST_F(RoundTripTest, EveryNodeTypeBareConfiguredAndFilled) {
    for (const TypeEntry* type : Catalog::types()) {
        for (const bool configure : {false, true}) {
            ApiRootNodeGraph* graph = newRoot();
            ApiNode* node = ApiNode::create(type->row->type, graph, configure);
            EXPECT_TRUE(sameGraphs(graph, roundTrip(graph))) << type->row->type_name;
            node->configureEmptyPins();
            EXPECT_TRUE(sameGraphs(graph, roundTrip(graph))) << type->row->type_name;
            node->setName("a name");
            node->setPosition({1.5F, -2});
            EXPECT_TRUE(sameGraphs(graph, roundTrip(graph))) << type->row->type_name;
        }
    }
}

TEST_F(RoundTripTest, RandomGraphs) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        ApiRootNodeGraph* graph = newRoot();
        RandomGraph(seed).fill(graph, 1 + seed / 10);
        ApiRootNodeGraph* back = roundTrip(graph);
        if (HasFailure()) FAIL() << "seed " << seed;

        // What was read is read to the end: pins that only stood for want of an evaluation are all that may differ.
        EXPECT_TRUE(sameGraphs(back, roundTrip(back))) << "seed " << seed;
        graph->destroy();
        back->destroy();
    }
}

TEST_F(RoundTripTest, RandomGraphsThatWereEvaluatedComeBackTheSame) {
    for (unsigned seed = 1000; seed < 1300; ++seed) {
        ApiRootNodeGraph* graph = newRoot();
        RandomGraph(seed).fill(graph, 30);
        RandomGraph::settle(graph);
        EXPECT_TRUE(sameGraphs(graph, roundTrip(graph))) << "seed " << seed;
        graph->destroy();
    }
}

TEST_F(RoundTripTest, ANodeOnTwoPinsComesBackAsOne) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, true);
    ApiNode* first = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
    ApiNode* second = ApiNode::create(NODE_MATERIAL_DIFFUSE, graph, true);
    first->connectToIx(0, image, true, false);
    second->connectToIx(0, image, true, false);
    ApiRootNodeGraph* back = roundTrip(graph);
    ASSERT_TRUE(sameGraphs(graph, back));
    ApiNodeArray images;
    back->findNodes(NODE_IMAGE, images, true);
    ASSERT_EQ(images.size(), 1U);
    EXPECT_EQ(back->findFirstNode(NODE_MATERIAL_GLOSSY)->connectedNodeIx(0), images.get(0));
    EXPECT_EQ(back->findFirstNode(NODE_MATERIAL_DIFFUSE)->connectedNodeIx(0), images.get(0));
}

TEST_F(RoundTripTest, NestedGraphsWithWiresBetweenThem) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    inner->setName("Sandbox");
    inner->recenter({30, 40});
    ApiNode* outside = ApiNode::create(NODE_IMAGE, graph, true);
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, inner, true);
    ApiNode* link = ApiNode::create(NODE_LINK_MATERIAL, inner, true);
    link->setUIOperationFlags(4);
    ApiNode* map = ApiNode::create(NODE_MATERIAL_MIX, graph, true);
    material->connectToIx(0, outside, true, false);
    link->connectTo(PIN_MATERIAL, material, true, false);
    map->connectTo(PIN_MATERIAL_1, link, true, false);
    EXPECT_TRUE(sameGraphs(graph, roundTrip(graph)));
}

TEST_F(RoundTripTest, DynamicPinsByCountAndByMaterialNames) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* mesh = ApiNode::create(NODE_MESH, graph, true);
    const char* names[] = {"wood", "glass", "wood"};
    mesh->set(ATTR_MATERIAL_NAMES, names, 3, true);
    ApiNode* map = ApiNode::create(NODE_MATERIAL_MAP, graph, true);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    ASSERT_EQ(map->pinCount(), 4U);
    map->connectToIx(3, ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true), true, false);
    ApiNode* group = ApiNode::create(NODE_GEOMETRY_GROUP, graph, true);
    group->set(ATTR_PIN_COUNT, 5, true);
    group->connectToIx(4, map, true, false);
    ApiRootNodeGraph* back = roundTrip(graph);
    ASSERT_TRUE(sameGraphs(graph, back));
    const ApiNode* map_back = back->findFirstNode(NODE_MATERIAL_MAP);
    EXPECT_STREQ(map_back->pinNameIx(2), "glass");
    EXPECT_EQ(map_back->connectedNodeIx(3), back->findFirstNode(NODE_MATERIAL_GLOSSY));
    EXPECT_EQ(back->findFirstNode(NODE_GEOMETRY_GROUP)->pinCount(), 5U);
}

TEST_F(RoundTripTest, MaterialNamesBehindALinkThatStandsLaterInTheText) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* map = ApiNode::create(NODE_MATERIAL_MAP, graph, true);
    ApiNode* link = ApiNode::create(NODE_LINK_FIRST, graph, true);
    ApiNode* mesh = ApiNode::create(NODE_MESH, graph, true);
    const char* names[] = {"a", "b"};
    mesh->set(ATTR_MATERIAL_NAMES, names, 2, true);
    link->connectToIx(0, mesh, true, false);
    map->connectTo(PIN_GEOMETRY, link, true, false);
    ASSERT_EQ(map->pinCount(), 3U);
    EXPECT_TRUE(sameGraphs(graph, roundTrip(graph)));
}

TEST_F(RoundTripTest, AScaleAndItsMatrixComeBackBitByBit) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* node = ApiNode::create(NODE_TRANSFORM_3D, graph, true);
    node->set(ATTR_TRANSFORM, Matrix<float>{{{0.3F, 0.1F, 0, 1}, {0.7F, 0.2F, 0.9F, 2}, {0.1F, 0, 0.4F, 3}}}, true);
    node->set(ATTR_SCALE, Vec3<float>{0.1F, 0.2F, 0.3F}, true);
    EXPECT_TRUE(sameGraphs(graph, roundTrip(graph)));
}

TEST_F(RoundTripTest, ValuesThatFollowFromPinsAreWorkedOutAnew) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* scale = ApiNode::create(NODE_TRANSFORM_SCALE, graph, true);
    scale->setPinValue(PIN_SCALE, Vec3<float>{2, 3, 4}, true);
    EXPECT_EQ(exported(graph).find("transform="), std::string::npos);
    ApiRootNodeGraph* back = roundTrip(graph);
    Matrix<float> matrix;
    ASSERT_TRUE(back->findFirstNode(NODE_TRANSFORM_SCALE)->get(ATTR_TRANSFORM, matrix));
    EXPECT_EQ(matrix.m[1][1], 3.0F);
    EXPECT_TRUE(sameGraphs(graph, back));
}

TEST_F(RoundTripTest, WhatIsReadStandsBehindWhatIsThere) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode::create(NODE_FLOAT, graph, true)->setName("first");
    const std::string text = exported(graph);
    ASSERT_TRUE(import(graph, text));
    ApiItemArray items;
    graph->getOwnedItems(items);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_STREQ(items.get(1)->name(), "first");
}

TEST_F(RoundTripTest, WiresToNodesOfAnotherGraphAreNotPartOfTheText) {
    ApiRootNodeGraph* graph = newRoot();
    ApiRootNodeGraph* other = newRoot();
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, false);
    material->connectToIx(0, ApiNode::create(NODE_IMAGE, other, false), true, false);
    EXPECT_EQ(exported(graph).find("input"), std::string::npos);
    roundTrip(graph);
}

TEST_F(RoundTripTest, TheProjectItself) {
    ApiRootNodeGraph* root = ApiProjectManager::rootNodeGraph();
    RandomGraph(5).fill(root, 60);
    EXPECT_EQ(exported(roundTrip(root)), exported(root));
}

// Observers and the change log hear of each item, as they do of a copied tree.
TEST_F(RoundTripTest, AnImportIsAChangeLikeACopy) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
    (void)material;
    const std::string text = exported(graph);
    ApiRootNodeGraph* target = newRoot();
    ChangeLog::take();
    ASSERT_TRUE(import(target, text));
    std::size_t added = 0;
    for (const Change& change : ChangeLog::take()) added += change.kind == Change::Kind::ItemAdded ? 1 : 0;
    std::size_t expected = 1;
    for (const PinSlot& slot : NodeRecord::of(target->findFirstNode(NODE_MATERIAL_GLOSSY))->pins) {
        std::vector<const NodeRecord*> open;
        if (slot.node != nullptr) open.push_back(slot.node);
        while (!open.empty()) {
            const NodeRecord* node = open.back();
            open.pop_back();
            ++expected;
            for (const PinSlot& inner : node->pins) {
                if (inner.node != nullptr) open.push_back(inner.node);
            }
        }
    }
    EXPECT_GT(expected, 1U);
    EXPECT_EQ(added, expected);
}

}  // namespace
}  // namespace Velmar::Engine
