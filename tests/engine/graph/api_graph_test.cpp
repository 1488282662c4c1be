// Graphs: making, finding, dissolving.
#include <velmar/graph.h>

#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"
#include "engine/graph/records.h"

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ApiGraphTest : public GraphTest {};

TEST_F(ApiGraphTest, IsMadeInsideAnother) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ASSERT_NE(graph, nullptr);
    EXPECT_EQ(graph->type(), GRAPH_STANDARD);
    EXPECT_EQ(graph->graphOwner(), root);
    EXPECT_THAT(ownedItems(root), ElementsAre(graph));
}

TEST_F(ApiGraphTest, OfAnotherTypeOrWithoutAnOwnerIsNull) {
    EXPECT_EQ(ApiNodeGraph::create(GRAPH_UNKNOWN, root), nullptr);
    EXPECT_EQ(ApiNodeGraph::create(GRAPH_ROOT, root), nullptr);
    EXPECT_EQ(ApiNodeGraph::create(static_cast<NodeGraphType>(9), root), nullptr);
    EXPECT_EQ(ApiNodeGraph::create(GRAPH_STANDARD, nullptr), nullptr);
    EXPECT_THAT(ownedItems(root), IsEmpty());
}

TEST_F(ApiGraphTest, AFreeRootGraphStandsInNoOther) {
    ApiRootNodeGraph* free_root = ApiRootNodeGraph::create(3080100);
    ASSERT_NE(free_root, nullptr);
    EXPECT_NE(free_root, root);
    EXPECT_EQ(free_root->type(), GRAPH_ROOT);
    EXPECT_EQ(free_root->graphOwner(), nullptr);
    EXPECT_THAT(ownedItems(root), IsEmpty());
    ApiNode* mesh = ApiNode::create(NODE_MESH, free_root, true);
    free_root->destroy();
    EXPECT_FALSE(isAlive(free_root));
    EXPECT_FALSE(isAlive(mesh));
}

TEST_F(ApiGraphTest, ListsItsItemsInTheOrderOfCreation) {
    ApiNode* a = make(NODE_MESH);
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* b = make(NODE_SCATTER);
    ApiNode* inside = ApiNode::create(NODE_MESH, graph, true);
    ApiNode* c = make(NODE_MESH);
    EXPECT_THAT(ownedItems(root), ElementsAre(a, graph, b, c));
    EXPECT_THAT(ownedItems(graph), ElementsAre(inside));
    b->destroy();
    EXPECT_THAT(ownedItems(root), ElementsAre(a, graph, c));
}

TEST_F(ApiGraphTest, FindsNodesOfATypeHereOrInsideToo) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* inside = ApiNode::create(NODE_MESH, graph, true);
    ApiNode* first = make(NODE_MESH);
    ApiNode* second = make(NODE_MESH);
    make(NODE_SCATTER);
    EXPECT_EQ(root->findFirstNode(NODE_MESH), first);
    EXPECT_THAT(nodes(root, NODE_MESH), ElementsAre(first, second));
    EXPECT_THAT(nodes(root, NODE_MESH, true), ElementsAre(inside, first, second));
    EXPECT_EQ(root->findFirstNode(NODE_RENDER_TARGET), nullptr);
    EXPECT_THAT(nodes(root, NODE_UNKNOWN, true), IsEmpty());
}

TEST_F(ApiGraphTest, DoesNotFindInternalNodes) {
    make(NODE_RENDER_TARGET)->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    EXPECT_EQ(root->findFirstNode(NODE_THIN_LENS_CAMERA), nullptr);
    EXPECT_THAT(nodes(root, NODE_THIN_LENS_CAMERA, true), IsEmpty());
}

TEST_F(ApiGraphTest, ClearingDestroysAllItsItems) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* inside = ApiNode::create(NODE_MESH, graph, true);
    ApiNode* beside = make(NODE_MESH);
    graph->clear();
    EXPECT_FALSE(isAlive(inside));
    EXPECT_TRUE(isAlive(graph));
    EXPECT_TRUE(isAlive(beside));
    root->clear();
    EXPECT_FALSE(isAlive(graph));
    EXPECT_FALSE(isAlive(beside));
    EXPECT_TRUE(isAlive(root));
}

std::vector<ApiItem*> list(const ApiItemArray& items) {
    return {items.items(), items.items() + items.size()};
}

TEST_F(ApiGraphTest, UngroupingMovesItsItemsIntoItsOwner) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    graph->setPosition({100, 50});
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
    ApiNode* link = ApiNode::create(NODE_LINK_MATERIAL, graph, true);
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    ApiNode* deep = ApiNode::create(NODE_MESH, inner, true);
    material->setPosition({1, 2});
    link->connectTo(PIN_MATERIAL, material, true, false);
    ApiItemArray out;
    graph->ungroup(false, &out);
    EXPECT_THAT(list(out), ElementsAre(material, link, inner));
    EXPECT_FALSE(isAlive(graph));
    EXPECT_THAT(ownedItems(root), ElementsAre(material, link, inner));
    EXPECT_EQ(material->graphOwner(), root);
    EXPECT_EQ(material->position(), (Vec2<float>{101, 52}));
    EXPECT_EQ(link->connectedNode(PIN_MATERIAL), material) << "the wiring stays";
    EXPECT_EQ(deep->graphOwner(), inner);
}

TEST_F(ApiGraphTest, UngroupingMayDissolveWhatIsInsideToo) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    ApiNodeGraph* innermost = ApiNodeGraph::create(GRAPH_STANDARD, inner);
    ApiNode* deep = ApiNode::create(NODE_MESH, innermost, true);
    ApiNode* shallow = ApiNode::create(NODE_MESH, graph, true);
    graph->ungroup(true, nullptr);
    EXPECT_FALSE(isAlive(inner));
    EXPECT_FALSE(isAlive(innermost));
    EXPECT_THAT(ownedItems(root), ElementsAre(shallow, deep));
}

TEST_F(ApiGraphTest, ARootGraphIsNotUngrouped) {
    ApiNode* mesh = make(NODE_MESH);
    ApiItemArray out;
    out.append(mesh);
    root->ungroup(true, &out);
    EXPECT_EQ(out.size(), 0U);
    EXPECT_THAT(ownedItems(root), ElementsAre(mesh));
}

TEST_F(ApiGraphTest, RecenteringPutsTheMiddleOfTheItemsAtAPlaceOfTheView) {
    make(NODE_MESH)->setPosition({100, 40});
    make(NODE_MESH)->setPosition({300, 80});
    ApiNode* middle = make(NODE_MESH);
    middle->setPosition({150, 60});
    Listener listener;
    listener.listen(root);
    root->recenter({400, 300});
    EXPECT_EQ(GraphRecord::of(root)->view_offset, (Vec2<float>{200, 240}));
    EXPECT_EQ(middle->position(), (Vec2<float>{150, 60})) << "no item moves";
    EXPECT_THAT(listener.types(), ElementsAre(Listener::Event::ITEM_MOVED));
    root->recenter({400, 300});
    EXPECT_EQ(listener.events.size(), 1U);
}

TEST(ApiArrays, AnswerNullBeyondTheirEnd) {
    ApiItemArray items;
    ApiNodeArray nodes;
    ApiStringArray texts;
    EXPECT_EQ(items.size() + nodes.size() + texts.size(), 0U);
    EXPECT_EQ(items.items(), nullptr);
    EXPECT_EQ(nodes.items(), nullptr);
    EXPECT_EQ(items.get(0), nullptr);
    EXPECT_EQ(nodes.get(3), nullptr);
    EXPECT_STREQ(texts.get(0), "");
    items.append(nullptr);
    nodes.append(nullptr);
    texts.append("a");
    texts.append(nullptr);
    EXPECT_EQ(items.size(), 1U);
    EXPECT_NE(nodes.items(), nullptr);
    EXPECT_STREQ(texts.get(0), "a");
    EXPECT_STREQ(texts.get(1), "");
    items.clear();
    nodes.clear();
    texts.clear();
    EXPECT_EQ(items.size() + nodes.size() + texts.size(), 0U);
}

}  // namespace
}  // namespace Velmar::Engine
