#include "plugin/velmar/render_targets.h"

#include "plugin/velmar/render_control_test.h"

namespace Velmar {
namespace {

class RenderTargetsTest : public RenderControlTest {
protected:
    ApiNode* NewNode() { return ApiNode::create(NODE_RENDER_TARGET, ApiProjectManager::rootNodeGraph(), true); }
};

TEST_F(RenderTargetsTest, NothingIsInUseWhenThereIsNone) {
    RenderTargets targets;
    targets.current_page = "Front";
    EXPECT_EQ(targets.InUse(), nullptr);
    EXPECT_TRUE(targets.nodes.empty());
}

TEST_F(RenderTargetsTest, TheCurrentPageIsInUse) {
    RenderTargets targets{"Front", {{"Back", NewNode()}, {"Front", NewNode()}}};
    EXPECT_EQ(targets.InUse(), targets.nodes["Front"]);
}

TEST_F(RenderTargetsTest, ACurrentPageWithoutNodeGivesNull) {
    const RenderTargets targets{"Front", {{"Back", NewNode()}, {"Front", nullptr}}};
    EXPECT_EQ(targets.InUse(), nullptr);
}

TEST_F(RenderTargetsTest, AnUnknownPageGivesTheFirstByNameAndAddsNothing) {
    RenderTargets targets{"Attic", {{"Front", NewNode()}, {"Back", NewNode()}, {"attic", NewNode()}}};
    EXPECT_EQ(targets.InUse(), targets.nodes["Back"]);
    EXPECT_EQ(targets.nodes.size(), 3u);
}

TEST_F(RenderTargetsTest, ContainsComparesAddresses) {
    ApiNode* const node = NewNode();
    RenderTargets targets{"Front", {{"Front", node}}};
    EXPECT_TRUE(targets.Contains(node));
    targets.nodes["Front"] = NewNode();
    EXPECT_FALSE(targets.Contains(node));
    EXPECT_FALSE(RenderTargets().Contains(node));
}

}  // namespace
}  // namespace Velmar
