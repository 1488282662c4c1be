#include "engine/graph/project.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"

namespace Velmar::Engine {
namespace {

using ::testing::IsEmpty;

TEST(Project, AnswersNothingBeforeStartAndAfterStop) {
    EXPECT_FALSE(Project::running());
    EXPECT_EQ(ApiProjectManager::rootNodeGraph(), nullptr);
    EXPECT_EQ(ApiProjectManager::projectSettings(), nullptr);
    EXPECT_EQ(Project::selectedItem(), nullptr);
    EXPECT_EQ(ApiRootNodeGraph::create(3080100), nullptr);
    EXPECT_EQ(ApiNode::create(NODE_MESH, nullptr, true), nullptr);
    EXPECT_EQ(ApiNodeGraph::create(GRAPH_STANDARD, nullptr), nullptr);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    ApiChangeManager::stopObserving();
    Listener listener;
    ApiChangeManager::observeApiItem(nullptr, listener.observer, 1023);
    ApiChangeManager::stopObserving(nullptr, listener.observer);

    ASSERT_TRUE(Project::start());
    EXPECT_NE(ApiProjectManager::rootNodeGraph(), nullptr);
    Project::stop();
    EXPECT_EQ(ApiProjectManager::rootNodeGraph(), nullptr);
    EXPECT_EQ(ApiProjectManager::projectSettings(), nullptr);
    EXPECT_FALSE(Project::running());
}

TEST(Project, StartsOnceAndStopsOnceAndStartsAnew) {
    ASSERT_TRUE(Project::start());
    ApiRootNodeGraph* root = ApiProjectManager::rootNodeGraph();
    EXPECT_FALSE(Project::start());
    EXPECT_EQ(ApiProjectManager::rootNodeGraph(), root);
    ApiNode::create(NODE_MESH, root, true);
    Project::stop();
    Project::stop();

    ASSERT_TRUE(Project::start());
    ApiItemArray items;
    ApiProjectManager::rootNodeGraph()->getOwnedItems(items);
    EXPECT_EQ(items.size(), 0U);
    Project::stop();
}

class ProjectTest : public GraphTest {};

TEST_F(ProjectTest, HasARootGraphWithoutItemsOrOwner) {
    EXPECT_TRUE(root->isGraph());
    EXPECT_EQ(root->type(), GRAPH_ROOT);
    EXPECT_EQ(root->graphOwner(), nullptr);
    EXPECT_THAT(ownedItems(root), IsEmpty());
    EXPECT_EQ(root->toGraph(), root);
    EXPECT_EQ(root->toNode(), nullptr);
}

TEST_F(ProjectTest, KeepsItsSettingsOutOfTheGraph) {
    ApiNode* settings = ApiProjectManager::projectSettings();
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->type(), NODE_PROJECT_SETTINGS);
    EXPECT_EQ(settings->graphOwner(), nullptr);
    EXPECT_FALSE(settings->pinOwned());
    EXPECT_FALSE(settings->getBool(ATTR_PROJECT_FLAG));
    settings->set(ATTR_PROJECT_FLAG, true, true);
    EXPECT_TRUE(settings->getBool(ATTR_PROJECT_FLAG));
}

TEST_F(ProjectTest, KeepsItsRootAndItsSettingsWhoeverDestroysThem) {
    root->destroy();
    ApiProjectManager::projectSettings()->destroy();
    EXPECT_EQ(ApiProjectManager::rootNodeGraph(), root);
    EXPECT_TRUE(root->isGraph());
    EXPECT_TRUE(ApiProjectManager::projectSettings()->hasAttr(ATTR_PROJECT_FLAG));
    EXPECT_NE(make(NODE_MESH), nullptr);
}

TEST_F(ProjectTest, RemembersTheSelectedItemUntilItGoes) {
    EXPECT_EQ(Project::selectedItem(), nullptr);
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* scatter = make(NODE_SCATTER);
    mesh->select();
    EXPECT_EQ(Project::selectedItem(), mesh);
    scatter->select();
    EXPECT_EQ(Project::selectedItem(), scatter);
    mesh->destroy();
    EXPECT_EQ(Project::selectedItem(), scatter);
    scatter->destroy();
    EXPECT_EQ(Project::selectedItem(), nullptr);
    scatter->select();
    EXPECT_EQ(Project::selectedItem(), nullptr);
}

}  // namespace
}  // namespace Velmar::Engine
