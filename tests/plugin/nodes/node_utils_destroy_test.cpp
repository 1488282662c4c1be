// How nodes and items are ended.
#include <gtest/gtest.h>
#include <velmar/graph.h>
#include <velmar/project.h>

#include <memory>

#include "plugin/nodes/node_utils.h"

namespace Velmar {
namespace {

class NodeUtilsDestroy : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(apiMode_Shared_start("test", false, nullptr, nullptr, nullptr)); }
    void TearDown() override { apiMode_Shared_exit(nullptr); }
};

TEST_F(NodeUtilsDestroy, SafeDestroyEndsANodeAndNullsThePointer) {
    ApiNodeGraph* const graph = ApiProjectManager::rootNodeGraph();
    ApiNode* node = ApiNode::create(NODE_MESH, graph, true);
    NodeUtils::SafeDestroy(node);
    EXPECT_EQ(node, nullptr);
    EXPECT_EQ(graph->findFirstNode(NODE_MESH), nullptr);
    NodeUtils::SafeDestroy(node);
    EXPECT_EQ(node, nullptr);
}

TEST_F(NodeUtilsDestroy, SafeDestroySparesANodeThatAPinOwns) {
    ApiNode* const target = ApiNode::create(NODE_RENDER_TARGET, ApiProjectManager::rootNodeGraph(), true);
    ApiNode* const camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    ASSERT_TRUE(camera->pinOwned());
    ApiNode* pointer = camera;
    NodeUtils::SafeDestroy(pointer);
    EXPECT_EQ(pointer, camera);
    EXPECT_EQ(target->connectedNode(PIN_CAMERA), camera);
}

TEST_F(NodeUtilsDestroy, DestroyItemServesAsDeleterOfSharedGraphs) {
    NodeUtils::DestroyItem(nullptr);
    ApiNodeGraph* const root = ApiProjectManager::rootNodeGraph();
    ApiItemArray items;
    root->getOwnedItems(items);
    const std::size_t before = items.size();
    {
        const std::shared_ptr<ApiNodeGraph> graph(ApiNodeGraph::create(GRAPH_STANDARD, root), NodeUtils::DestroyItem);
        ASSERT_NE(graph, nullptr);
        root->getOwnedItems(items);
        EXPECT_EQ(items.size(), before + 1);
    }
    root->getOwnedItems(items);
    EXPECT_EQ(items.size(), before);
}

}  // namespace
}  // namespace Velmar
