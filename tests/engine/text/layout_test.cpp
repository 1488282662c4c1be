#include "engine/text/layout.h"

#include "engine/catalog/engine_ids.h"
#include "text_test.h"

#include <velmar/arrays.h>
#include <velmar/change.h>

#include <algorithm>
#include <random>
#include <set>
#include <utility>

namespace Velmar::Engine {
namespace {

using Inputs = std::vector<std::vector<std::size_t>>;

/// The smallest distance between two things of one row; a large number when no row holds two.
float narrowestGap(const std::vector<Vec2<float>>& places) {
    std::vector<std::pair<float, float>> by_row;
    for (const Vec2<float>& place : places) by_row.emplace_back(place.y, place.x);
    std::ranges::sort(by_row);
    float gap = 1.0e9F;
    for (std::size_t i = 1; i < by_row.size(); ++i) {
        if (by_row[i].first == by_row[i - 1].first) gap = std::min(gap, by_row[i].second - by_row[i - 1].second);
    }
    return gap;
}

TEST(TreeLayout, PutsInputsAboveTheirUserSideBySide) {
    const auto places = treeLayout({{1, 2, 3}, {}, {}, {}});
    EXPECT_EQ(places[0], (Vec2<float>{1, 1}));
    EXPECT_EQ(places[1], (Vec2<float>{0, 0}));
    EXPECT_EQ(places[2], (Vec2<float>{1, 0}));
    EXPECT_EQ(places[3], (Vec2<float>{2, 0}));
}

TEST(TreeLayout, CentresAUserAndKeepsBranchesApart) {
    const auto places = treeLayout({{1, 4}, {2, 3}, {}, {}, {5}, {}});
    EXPECT_EQ(places[1], (Vec2<float>{0.5F, 1}));
    EXPECT_EQ(places[4], (Vec2<float>{2, 1}));
    EXPECT_EQ(places[0], (Vec2<float>{1.25F, 2}));
}

TEST(TreeLayout, PutsWhatHasSeveralUsersAboveTheHighest) {
    const auto places = treeLayout({{1, 2}, {2}, {}});
    EXPECT_EQ(places[0].y, 2);
    EXPECT_EQ(places[1].y, 1);
    EXPECT_EQ(places[2].y, 0);
}

TEST(TreeLayout, TakesNothingAndCircles) {
    EXPECT_TRUE(treeLayout({}).empty());
    EXPECT_GE(narrowestGap(treeLayout({{1}, {2}, {0}})), 1.0F);
    EXPECT_GE(narrowestGap(treeLayout({{0, 0}, {0, 1}})), 1.0F);
}

TEST(TreeLayout, KeepsRandomGraphsApartAndInputsAbove) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        Inputs inputs(1 + random() % 60);
        for (std::size_t i = 1; i < inputs.size(); ++i) {
            for (unsigned count = random() % 4; count > 0; --count) inputs[i].push_back(random() % i);
        }
        const auto places = treeLayout(inputs);
        ASSERT_GE(narrowestGap(places), 1.0F);
        for (std::size_t i = 0; i < inputs.size(); ++i) {
            for (const std::size_t input : inputs[i]) ASSERT_LT(places[input].y, places[i].y);
        }
    }
}

TEST(TreeLayout, KeepsRandomGraphsWithCirclesApart) {
    std::mt19937 random(8);
    for (int round = 0; round < 500; ++round) {
        Inputs inputs(1 + random() % 30);
        for (auto& list : inputs) {
            for (unsigned count = random() % 4; count > 0; --count) list.push_back(random() % inputs.size());
        }
        ASSERT_GE(narrowestGap(treeLayout(inputs)), 1.0F);
    }
}

TEST(TreeLayout, TakesAMillionInAChain) {
    Inputs chain(1'000'000);
    for (std::size_t i = 1; i < chain.size(); ++i) chain[i].push_back(i - 1);
    const auto places = treeLayout(chain);
    EXPECT_EQ(places.front(), (Vec2<float>{0, 0}));
    EXPECT_EQ(places.back(), (Vec2<float>{0, 999'999}));
}

class UnfoldTest : public TextTest {
protected:
    static std::vector<Vec2<float>> placesOf(const ApiNodeGraph* graph) {
        ApiItemArray items;
        graph->getOwnedItems(items);
        std::vector<Vec2<float>> places;
        for (std::size_t i = 0; i < items.size(); ++i) places.push_back(items.get(i)->position());
        return places;
    }
};

TEST_F(UnfoldTest, MovesNothingButTheItemsOfTheGraph) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    for (int i = 0; i < 3; ++i) ApiNode::create(NODE_IMAGE, inner, true);
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, true);
    ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
    material->connectTo(PIN_DIFFUSE, image, true, false);
    const std::string before = exported(graph);
    graph->unfold(false);
    EXPECT_GE(narrowestGap(placesOf(graph)), kColumnWidth);
    EXPECT_EQ(material->position().y - image->position().y, kRowHeight);
    EXPECT_EQ(narrowestGap(placesOf(inner)), 0);
    graph->unfold(true);
    EXPECT_GE(narrowestGap(placesOf(inner)), kColumnWidth);

    ApiItemArray items;
    graph->getOwnedItems(items);
    for (std::size_t i = 0; i < items.size(); ++i) items.get(i)->setPosition({0, 0});
    inner->getOwnedItems(items);
    for (std::size_t i = 0; i < items.size(); ++i) items.get(i)->setPosition({0, 0});
    EXPECT_EQ(exported(graph), before);
}

TEST_F(UnfoldTest, CountsInternalNodesAndGraphsAsTheItemThatHoldsThem) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    ApiNode* inside = ApiNode::create(NODE_MATERIAL_GLOSSY, inner, false);
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, false);
    ApiNode* user = ApiNode::create(NODE_MATERIAL_MIX, graph, false);
    ApiNode* internal = inside->createInternal(PIN_DIFFUSE, NODE_MULTIPLY_TEXTURE, false, true);
    internal->connectTo(PIN_TEXTURE_1, image, true, false);
    user->connectTo(PIN_MATERIAL_1, inside, true, false);
    graph->unfold(true);
    EXPECT_LT(image->position().y, inner->position().y);
    EXPECT_LT(inner->position().y, user->position().y);
    EXPECT_EQ(internal->position(), (Vec2<float>{0, 0}));
}

TEST_F(UnfoldTest, TellsObserversOfRealMovesOnly) {
    ApiRootNodeGraph* graph = newRoot();
    for (int i = 0; i < 3; ++i) ApiNode::create(NODE_FLOAT, graph, true);
    int moves = 0;
    ApiChangeManager::Observer observer{
        [](const ApiChangeManager::ChangeEvent&, void* user) { ++*static_cast<int*>(user); }, &moves};
    ApiItemArray items;
    graph->getOwnedItems(items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        ApiChangeManager::observeApiItem(items.get(i), observer, ApiChangeManager::ChangeEvent::ITEM_MOVED);
    }
    graph->unfold(false);
    EXPECT_EQ(moves, 2);  // the first stands at the origin already
    graph->unfold(false);
    EXPECT_EQ(moves, 2);
    ApiChangeManager::stopObserving(observer);
}

TEST_F(UnfoldTest, TakesDeepNestingAndAnEmptyGraph) {
    ApiRootNodeGraph* graph = newRoot();
    graph->unfold(true);
    ApiNodeGraph* deepest = graph;
    for (int i = 0; i < 2000; ++i) deepest = ApiNodeGraph::create(GRAPH_STANDARD, deepest);
    ApiNode::create(NODE_FLOAT, deepest, true)->setPosition({5, 5});
    deepest->unfold(false);
    EXPECT_EQ(deepest->findFirstNode(NODE_FLOAT)->position(), (Vec2<float>{0, 0}));
    graph->unfold(true);
    graph->destroy();
    graph->unfold(true);
}

}  // namespace
}  // namespace Velmar::Engine
