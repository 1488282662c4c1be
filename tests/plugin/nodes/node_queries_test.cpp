#include <velmar/change.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "plugin/nodes/input_walk.h"
#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class NodeQueriesTest : public SdkTest {
protected:
    /// A texture with two inputs that the caller chooses; null leaves a pin empty.
    static ApiNode* Multiply(ApiNode* first, ApiNode* second) {
        ApiNode* const node = Make(NODE_MULTIPLY_TEXTURE);
        node->connectTo(PIN_TEXTURE_1, first, true, false);
        node->connectTo(PIN_TEXTURE_2, second, true, false);
        return node;
    }
    static ApiNode* Image(const char* file) {
        ApiNode* const node = Make(NODE_IMAGE);
        node->set(ATTR_FILENAME, file, true);
        return node;
    }
    /// Nested textures, the given number of levels below the first.
    static ApiNode* Chain(int levels) {
        ApiNode* node = Multiply(nullptr, nullptr);
        for (int i = 0; i < levels; ++i) node = Multiply(node, nullptr);
        return node;
    }
    static void Gather(ApiItemArray& items) { Root()->getOwnedItems(items); }
};

// --- Kinds and ends ---

TEST_F(NodeQueriesTest, KnowMaterialTypesInTheirOrder) {
    EXPECT_THAT(NodeUtils::MaterialTypes(), ElementsAre(17, 16, 120, 19, 20, 18, 121));
    int count = 0;
    for (int type = -2; type < 40000; ++type) count += NodeUtils::IsMaterialType(NodeType{type}) ? 1 : 0;
    EXPECT_EQ(count, 7);
    for (const NodeType type : NodeUtils::MaterialTypes()) EXPECT_TRUE(NodeUtils::IsMaterialType(type));
    EXPECT_FALSE(NodeUtils::IsMaterialType(NODE_MULTIPLY_TEXTURE));
}

TEST_F(NodeQueriesTest, TakeANodeForAnImageWhenItIsATextureOfAFileWithATransform) {
    EXPECT_FALSE(NodeUtils::IsImage(nullptr));
    for (const NodeType type : {NODE_IMAGE, NODE_ALPHA_IMAGE, NODE_FLOAT_IMAGE}) {
        ApiNode* const image = Make(type);
        EXPECT_TRUE(NodeUtils::IsImage(image));
        image->connectTo(PIN_UV_TRANSFORM, nullptr, true, false);
        EXPECT_FALSE(NodeUtils::IsImage(image));
    }
    EXPECT_FALSE(NodeUtils::IsImage(Make(NODE_FLOAT)));
    EXPECT_FALSE(NodeUtils::IsImage(Make(NODE_DISPLACEMENT)));
}

TEST_F(NodeQueriesTest, DestroyRecursivelyFromTheInputsUp) {
    ApiNode* const shared = Image("shared.png");
    shared->setName("Shared");
    ApiNode* const below = Multiply(shared, shared);
    below->setName("Below");
    ApiNode* const kept = Make(NODE_FLOAT);
    ApiNode* top = Multiply(below, shared);
    top->setName("Top");
    EXPECT_THAT(
        Operations([&] { NodeUtils::SafeRecursiveDestroy(top); }),
        ElementsAre("destroy VELMAR_IMAGE:Shared", "destroy VELMAR_MULTIPLY:Below", "destroy VELMAR_MULTIPLY:Top"));
    EXPECT_EQ(top, nullptr);
    EXPECT_EQ(RootItems(), 1U);
    EXPECT_EQ(Root()->findFirstNode(NODE_FLOAT), kept);
    NodeUtils::SafeRecursiveDestroy(top);
}

TEST_F(NodeQueriesTest, DestroyRecursivelyWhatStandsBelowAPinOwnedNodeAndSpareThatNode) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    ApiNode* const owned = PutInternal(material, PIN_BUMP, NODE_MULTIPLY_TEXTURE);
    ApiNode* const image = Put(owned, PIN_TEXTURE_1, NODE_IMAGE);
    ApiNode* pointer = owned;
    NodeUtils::SafeRecursiveDestroy(pointer);
    EXPECT_EQ(pointer, owned);
    EXPECT_EQ(material->connectedNode(PIN_BUMP), owned);
    EXPECT_EQ(image->type(), NODE_UNKNOWN);
}

// --- Walks down the pins ---

TEST_F(NodeQueriesTest, FindNothingBelowNull) {
    EXPECT_EQ(NodeUtils::FindNode(nullptr, "x"), nullptr);
    EXPECT_EQ(NodeUtils::FindStringParam(nullptr, "filename"), "");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(nullptr, "filename"), nullptr);
    std::vector<ApiNode*> nodes;
    NodeUtils::FindAllPinNodes(nullptr, "texture", nodes);
    EXPECT_THAT(nodes, IsEmpty());
    std::map<ApiNode*, bool> transforms;
    NodeUtils::FindAllTransformNodes(nullptr, transforms);
    EXPECT_THAT(transforms, IsEmpty());
}

TEST_F(NodeQueriesTest, FindNoNodeByName) {
    EXPECT_EQ(NodeUtils::FindNode(Make(NODE_FLOAT, "F"), "F"), nullptr);
}

TEST_F(NodeQueriesTest, FindTheFirstStringThatIsNotEmptyAndTheFirstOwnerWhateverItsValue) {
    ApiNode* const empty = Image("");
    ApiNode* const behind = Image("behind.png");
    ApiNode* const top = Multiply(Multiply(empty, nullptr), behind);
    EXPECT_EQ(NodeUtils::FindStringParam(top, "filename"), "behind.png");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(top, "filename"), empty);
}

TEST_F(NodeQueriesTest, SearchStringsDepthFirstInPinOrder) {
    ApiNode* const deep = Image("deep.png");
    ApiNode* const top = Multiply(Multiply(nullptr, deep), Image("beside.png"));
    EXPECT_EQ(NodeUtils::FindStringParam(top, "filename"), "deep.png");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(top, "filename"), deep);
}

TEST_F(NodeQueriesTest, SearchStringsOnTheNodeItselfFirstAndByNameAndKind) {
    ApiNode* const text = Make(Engine::NODE_STRING);
    text->set(ATTR_VALUE, "words", true);
    EXPECT_EQ(NodeUtils::FindStringParam(text, "value"), "words");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(text, "value"), text);
    EXPECT_EQ(NodeUtils::FindStringParam(text, "filename"), "");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(text, "filename"), nullptr);
    // An attribute of that name that holds a number is none.
    ApiNode* const number = Make(NODE_FLOAT);
    EXPECT_EQ(NodeUtils::FindStringParam(number, "value"), "");
    EXPECT_EQ(NodeUtils::FindStringParamOwner(number, "value"), nullptr);
}

TEST_F(NodeQueriesTest, ListNodesOnPinsOfANameTheUpperFirstAndRepeatsTwice) {
    ApiNode* const shared = Make(NODE_FLOAT);
    ApiNode* const lower = Multiply(shared, nullptr);
    ApiNode* const upper = Multiply(lower, lower);
    std::vector<ApiNode*> nodes{nullptr};
    NodeUtils::FindAllPinNodes(upper, "texture_1", nodes);
    EXPECT_THAT(nodes, ElementsAre(nullptr, lower, shared, shared));
    nodes.clear();
    NodeUtils::FindAllPinNodes(upper, "no_such_pin", nodes);
    EXPECT_THAT(nodes, IsEmpty());
}

TEST_F(NodeQueriesTest, FindTransformsOfEachKindAtEveryDepth) {
    std::map<ApiNode*, bool> transforms;
    std::size_t count = 0;
    for (const int type : {27, 28, 29, 66, 67}) {
        ApiNode* const node = Make(NodeType{type});
        NodeUtils::FindAllTransformNodes(node, transforms);
        EXPECT_EQ(transforms.size(), ++count) << type;
        EXPECT_TRUE(transforms[node]);
    }
    transforms.clear();
    ApiNode* const image = Image("");
    ApiNode* const other = Make(NODE_FLOAT);
    ApiNode* const transform = image->connectedNode(PIN_UV_TRANSFORM);
    transforms = {{transform, false}, {other, false}};
    NodeUtils::FindAllTransformNodes(Multiply(nullptr, Multiply(image, image)), transforms);
    EXPECT_THAT(transforms, UnorderedElementsAre(Pair(transform, true), Pair(other, false)));
}

// --- Neighbours ---

TEST_F(NodeQueriesTest, GiveTheInputsAsASetThatHoldsNullForEmptyPins) {
    ApiNode* const link = Make(NODE_FLOAT);
    EXPECT_THAT(NodeUtils::AllInputNodes(link), IsEmpty());
    EXPECT_THAT(NodeUtils::AllInputNodes(nullptr), IsEmpty());
    ApiNode* const group = Make(NODE_GEOMETRY_GROUP);
    group->set(ATTR_PIN_COUNT, 3, true);
    ApiNode* const mesh = Make(NODE_MESH);
    group->connectToIx(1, mesh, true, false);
    EXPECT_THAT(NodeUtils::AllInputNodes(group), UnorderedElementsAre(nullptr, mesh));
    group->connectToIx(2, mesh, true, false);
    EXPECT_EQ(NodeUtils::AllInputNodes(group).size(), 2U);
}

TEST_F(NodeQueriesTest, GiveTheUsersAndCountThemWithRepeats) {
    ApiNode* const image = Image("");
    EXPECT_TRUE(NodeUtils::IsOrphanNode(image));
    EXPECT_EQ(NodeUtils::CountOutputs(image), 0U);
    EXPECT_THAT(NodeUtils::AllOutputNodes(image), IsEmpty());
    ApiNode* const twice = Multiply(image, image);
    ApiNode* const once = Multiply(image, nullptr);
    EXPECT_FALSE(NodeUtils::IsOrphanNode(image));
    EXPECT_EQ(NodeUtils::CountOutputs(image), 3U);
    EXPECT_THAT(NodeUtils::AllOutputNodes(image), UnorderedElementsAre(twice, once));
}

TEST_F(NodeQueriesTest, TakeNullForAnOrphanWithoutUsers) {
    EXPECT_TRUE(NodeUtils::IsOrphanNode(nullptr));
    EXPECT_EQ(NodeUtils::CountOutputs(nullptr), 0U);
    EXPECT_THAT(NodeUtils::AllOutputNodes(nullptr), IsEmpty());
}

TEST_F(NodeQueriesTest, CountThePinsWithNodesThatAGraphOwns) {
    EXPECT_EQ(NodeUtils::VisibleInputs(nullptr), 0U);
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    EXPECT_EQ(NodeUtils::VisibleInputs(material), 0U);
    ApiNode* const image = Put(material, PIN_BUMP, NODE_IMAGE);
    material->connectTo(PIN_NORMAL_MAP, image, true, false);
    PutInternal(material, PIN_DIFFUSE, NODE_IMAGE);
    EXPECT_EQ(NodeUtils::VisibleInputs(material), 2U);
}

// --- Names and order ---

TEST_F(NodeQueriesTest, TellANodeThatHasBeenNamed) {
    EXPECT_FALSE(NodeUtils::HasBeenNamed(nullptr));
    ApiNode* const node = Make(NODE_MATERIAL_GLOSSY);
    EXPECT_FALSE(NodeUtils::HasBeenNamed(node));
    node->setName("Oak");
    EXPECT_TRUE(NodeUtils::HasBeenNamed(node));
    node->setName(node->info().default_name);
    EXPECT_FALSE(NodeUtils::HasBeenNamed(node));
    node->setName("");
    EXPECT_TRUE(NodeUtils::HasBeenNamed(node));
}

TEST_F(NodeQueriesTest, TellASandboxByItsKindAndTheStartOfItsName) {
    EXPECT_FALSE(NodeUtils::IsSandbox(nullptr));
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    const std::vector<std::pair<const char*, bool>> names = {{"Velmar Sandbox", true},
                                                             {"VELMAR SANDBOX of the second scene", true},
                                                             {"velmar sandboxes", true},
                                                             {"My Velmar Sandbox", false},
                                                             {" velmar sandbox", false},
                                                             {"a\nvelmar sandbox", false},
                                                             {"velmar  sandbox", false},
                                                             {"velmar sandbo", false},
                                                             {"", false}};
    for (const auto& [name, is_sandbox] : names) {
        graph->setName(name);
        EXPECT_EQ(NodeUtils::IsSandbox(graph), is_sandbox) << name;
        EXPECT_FALSE(NodeUtils::IsSandbox(Make(NODE_FLOAT, name))) << name;
    }
    graph->setName(std::string(1 << 20, 'v').c_str());
    EXPECT_FALSE(NodeUtils::IsSandbox(graph));
}

TEST_F(NodeQueriesTest, CompareByKindTypeNameAndAddress) {
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    graph->setName("z");
    ApiNode* const mesh = Make(NODE_MESH, "z");
    ApiNode* const float_a = Make(NODE_FLOAT, "a");
    ApiNode* const float_b1 = Make(NODE_FLOAT, "b");
    ApiNode* const float_b2 = Make(NODE_FLOAT, "b");
    const std::vector<const ApiItem*> sorted = {
        Root(),  // root graphs have the higher type, so this one must go behind the other graph
        graph,
        mesh,
        float_a,
        std::min<const ApiItem*>(float_b1, float_b2),
        std::max<const ApiItem*>(float_b1, float_b2),
        nullptr};
    std::vector<const ApiItem*> items(sorted.rbegin(), sorted.rend());
    std::sort(items.begin(), items.end(), NodeUtils::CompareItems);
    EXPECT_THAT(items, ElementsAre(graph, Root(), mesh, float_a, sorted[4], sorted[5], nullptr));
    for (std::size_t i = 0; i < items.size(); ++i) {
        for (std::size_t j = 0; j < items.size(); ++j) {
            EXPECT_EQ(NodeUtils::CompareItems(items[i], items[j]), i < j) << i << " " << j;
        }
    }
}

// --- Whole graphs ---

TEST_F(NodeQueriesTest, KeepTheOwnedItemsThatTheCallerWants) {
    ApiNode* const mesh = Make(NODE_MESH);
    ApiNode* const number = Make(NODE_FLOAT);
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    ApiNode::create(NODE_MESH, graph, true);
    EXPECT_THAT(NodeUtils::GetOwnedItems(Root(), [](const ApiItem*) { return true; }),
                UnorderedElementsAre(mesh, number, graph));
    EXPECT_THAT(NodeUtils::GetOwnedItems(Root(), [](const ApiItem* item) { return item->isGraph(); }),
                UnorderedElementsAre(graph));
    EXPECT_THAT(NodeUtils::GetOwnedItems(nullptr, nullptr), IsEmpty());
    EXPECT_THROW(NodeUtils::GetOwnedItems(Root(), nullptr), std::bad_function_call);
}

TEST_F(NodeQueriesTest, FindTheGeometryOfTheFirstRenderTargetThatHasOne) {
    ApiItemArray items;
    EXPECT_EQ(NodeUtils::FindMainMesh(items), nullptr);
    ApiNode* const loose = Make(NODE_MESH);
    Gather(items);
    EXPECT_EQ(NodeUtils::FindMainMesh(items), nullptr);
    Make(NODE_RENDER_TARGET)->connectTo(PIN_RENDER_GEOMETRY, nullptr, true, false);
    ApiNode* const second = Make(NODE_RENDER_TARGET);
    second->connectTo(PIN_RENDER_GEOMETRY, loose, true, false);
    Put(Make(NODE_RENDER_TARGET), PIN_RENDER_GEOMETRY, NODE_MESH);
    ApiNodeGraph::create(GRAPH_STANDARD, Root());
    Gather(items);
    items.append(nullptr);
    EXPECT_EQ(NodeUtils::FindMainMesh(items), loose);
}

TEST_F(NodeQueriesTest, FindMaterialsOfTheListAndOneLevelBelow) {
    ApiItemArray items;
    EXPECT_TRUE(NodeUtils::FindAllMaterials(items).isNull());
    ApiNode* const top = Make(NODE_MATERIAL_MIX, "top");
    ApiNode* const second = Put(top, Engine::PIN_MATERIAL_1, NODE_MATERIAL_MIX);
    ApiNode* const third = Put(second, Engine::PIN_MATERIAL_1, NODE_MATERIAL_DIFFUSE);
    const auto found = [&] {
        std::set<std::string> names;
        const Json::Value records = NodeUtils::FindAllMaterials(items);
        for (const Json::Value& record : records) names.insert(record["name"].asString());
        EXPECT_EQ(names.size(), records.size());
        return names;
    };
    second->setName("second");
    third->setName("third");
    items.append(Make(NODE_FLOAT));
    items.append(nullptr);
    EXPECT_TRUE(NodeUtils::FindAllMaterials(items).isNull());
    items.append(top);
    EXPECT_THAT(found(), ElementsAre("second", "top"));
    items.append(second);
    EXPECT_THAT(found(), ElementsAre("second", "third", "top"));
    items.append(third);
    EXPECT_THAT(found(), ElementsAre("second", "third", "top"));
}

TEST_F(NodeQueriesTest, FindMaterialsAsFullRecordsInOrderOfTheirAddress) {
    std::vector<ApiNode*> materials;
    ApiItemArray items;
    for (int i = 0; i < 20; ++i) materials.push_back(Make(NodeUtils::MaterialTypes()[static_cast<std::size_t>(i % 7)]));
    for (ApiNode* material : materials) items.append(material);
    std::sort(materials.begin(), materials.end());
    Json::Value expected;
    for (ApiNode* material : materials) expected.append(Record(material));
    EXPECT_EQ(NodeUtils::FindAllMaterials(items), expected);
}

// --- Walks and measures for the windows ---

TEST_F(NodeQueriesTest, VisitInputsDownToTheTwentiethLevel) {
    std::vector<int> depths;
    ForAllInputNodes(
        Chain(30),
        [&](ApiNode* node, int depth) {
            if (node->type() == NODE_MULTIPLY_TEXTURE) depths.push_back(depth);
            return true;
        },
        0);
    std::vector<int> expected;
    for (int depth = 1; depth <= 20; ++depth) expected.push_back(depth);
    EXPECT_EQ(depths, expected);
}

TEST_F(NodeQueriesTest, DoNotVisitTheStartNorNullsAndPruneWhereTheCallerSaysSo) {
    ApiNode* const pruned_below = Make(NODE_FLOAT);
    ApiNode* const pruned = Multiply(pruned_below, nullptr);
    ApiNode* const below = Make(NODE_FLOAT);
    ApiNode* const open = Multiply(below, nullptr);
    std::vector<ApiNode*> visited;
    const auto visit = [&](ApiNode* node, int) {
        visited.push_back(node);
        return node != pruned;
    };
    ForAllInputNodes(Multiply(pruned, open), visit, 0);
    EXPECT_THAT(visited, UnorderedElementsAre(pruned, open, below));
    visited.clear();
    ForAllInputNodes(nullptr, visit, 0);
    EXPECT_THAT(visited, IsEmpty());
}

TEST_F(NodeQueriesTest, VisitANodeOnceForEachWayToIt) {
    ApiNode* const shared = Make(NODE_FLOAT);
    std::vector<ApiNode*> visited;
    ForAllInputNodes(
        Multiply(Multiply(shared, nullptr), shared),
        [&](ApiNode* node, int) {
            visited.push_back(node);
            return true;
        },
        0);
    EXPECT_EQ(std::count(visited.begin(), visited.end(), shared), 2);
}

TEST_F(NodeQueriesTest, VisitTheNodeItselfAndAllBelowWithAnAttribute) {
    ApiNode* const first = Image("a");
    ApiNode* const second = Image("b");
    std::vector<ApiNode*> visited;
    const auto visit = [&](ApiNode* node) { visited.push_back(node); };
    ForAllWithAttribute(Multiply(first, Multiply(second, nullptr)), ATTR_FILENAME, visit);
    EXPECT_THAT(visited, UnorderedElementsAre(first, second));
    visited.clear();
    ForAllWithAttribute(first, ATTR_FILENAME, visit);
    ForAllWithAttribute(nullptr, ATTR_FILENAME, visit);
    EXPECT_THAT(visited, ElementsAre(first));
}

TEST_F(NodeQueriesTest, FindTheMaterialsThatAGraphOwnsItself) {
    EXPECT_THAT(FindMaterialNodes(nullptr), IsEmpty());
    EXPECT_THAT(FindMaterialNodes(Root()), IsEmpty());
    std::set<ApiNode*> expected;
    for (const NodeType type : NodeUtils::MaterialTypes()) {
        expected.insert(Make(type));
        expected.insert(Make(type));
    }
    Make(NODE_IMAGE);
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    ApiNode* const inside = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
    EXPECT_EQ(FindMaterialNodes(Root()), expected);
    EXPECT_THAT(FindMaterialNodes(graph), UnorderedElementsAre(inside));
}

TEST_F(NodeQueriesTest, MeasureAGraphAsPositionAndSize) {
    using Extent = std::pair<Vec2<float>, Vec2<float>>;
    EXPECT_EQ(GetExtent(static_cast<ApiNodeGraph*>(nullptr)), Extent());
    EXPECT_EQ(GetExtent(Root()), Extent());
    Make(NODE_FLOAT)->setPosition({-10, 40});
    EXPECT_EQ(GetExtent(Root()), Extent({-10, 40}, {0, 0}));
    Make(NODE_FLOAT)->setPosition({30, -5});
    ApiNodeGraph::create(GRAPH_STANDARD, Root())->setPosition({0, 100});
    EXPECT_EQ(GetExtent(Root()), Extent({-10, -5}, {40, 105}));
}

// --- Debugging aid ---

std::string DebugLogText() {
    std::ifstream file(std::string(getenv("HOME")) + "/Documents/Velmar/SketchUp/logs/debug-log.txt");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST_F(NodeQueriesTest, TellTheDebugLogWhenAWatchedItemIsDestroyed) {
    std::filesystem::create_directories(std::string(getenv("HOME")) + "/Documents/Velmar/SketchUp/logs");
    ApiNode* const watched = Make(NODE_FLOAT, "Watched");
    ApiNode* const dropped = Make(NODE_FLOAT, "Dropped");
    ApiNode* const other = Make(NODE_FLOAT, "Other");
    NodeUtils::WatchForDelete(nullptr, true);
    NodeUtils::WatchForDelete(nullptr, false);
    NodeUtils::WatchForDelete(watched, true);
    NodeUtils::WatchForDelete(dropped, true);
    NodeUtils::WatchForDelete(dropped, false);
    watched->setName("Renamed");
    EXPECT_EQ(DebugLogText(), "");
    std::ostringstream address;
    address << static_cast<const void*>(watched);
    for (ApiNode* node : {other, dropped, watched}) node->destroy();
    EXPECT_THAT(DebugLogText(),
                testing::EndsWith(" Destroying " + address.str() + " VELMAR_FLOAT \"Renamed\" in 0/0 out 0\n"));
    EXPECT_THAT(DebugLogText(), testing::Not(testing::HasSubstr("Dropped")));
    EXPECT_THAT(DebugLogText(), testing::Not(testing::HasSubstr("Other")));
}

}  // namespace
}  // namespace Velmar
