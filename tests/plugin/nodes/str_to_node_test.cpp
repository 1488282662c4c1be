#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StrToNodeTest : public SdkTest {};

TEST_F(StrToNodeTest, AnswersNullForTheNullValue) {
    EXPECT_EQ(FromRecord(Json::Value()), nullptr);
}

TEST_F(StrToNodeTest, MakesNothingOfAnEmptyPinOrATypeThatCannotBeMade) {
    for (const char* text : {R"({"type":0,"name":"x"})", R"({"type":-1})", R"({})", R"({"type":29999})",
                             R"({"type":29999,"params":[{"type":6,"name":"value","value":1}],"nodes":[
                                 {"type":31,"info":{"name":"bump"}}]})",
                             R"({"name":"x","params":[{"type":6,"name":"value","value":1}]})"}) {
        EXPECT_EQ(FromRecord(Parse(text)), nullptr) << text;
        EXPECT_EQ(RootItems(), 0U) << text;
    }
}

TEST_F(StrToNodeTest, MakesAFreeNodeOfTheRootGraphAtTheTopWhateverTheRecordSays) {
    ApiNode* const node = FromRecord(Parse(R"({"type":31,"pin_owned":true,"name":"Free"})"));
    ASSERT_NE(node, nullptr);
    EXPECT_FALSE(node->pinOwned());
    EXPECT_EQ(node->graphOwner(), Root());
    EXPECT_STREQ(node->name(), "Free");
}

TEST_F(StrToNodeTest, MakesAPinOwnedNodeOnAPinOfAnOwnerBelowTheTopAlone) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    const Json::Value record = Parse(R"({"type":34,"pin_owned":true})");
    ApiNode* const owned = NodeUtils::StrToNode(record, 1, material, PIN_BUMP);
    ASSERT_NE(owned, nullptr);
    EXPECT_TRUE(owned->pinOwned());
    EXPECT_EQ(material->connectedNode(PIN_BUMP), owned);

    const Json::Value free_record = Parse(R"({"type":34,"pin_owned":false})");
    for (ApiNode* node : {NodeUtils::StrToNode(record, 0, material, PIN_NORMAL_MAP),
                          NodeUtils::StrToNode(record, 1, nullptr, PIN_NORMAL_MAP),
                          NodeUtils::StrToNode(record, 1, material, PIN_UNKNOWN),
                          NodeUtils::StrToNode(free_record, 1, material, PIN_NORMAL_MAP)}) {
        ASSERT_NE(node, nullptr);
        EXPECT_FALSE(node->pinOwned());
        EXPECT_EQ(material->connectedNode(PIN_NORMAL_MAP), nullptr);
    }
}

TEST_F(StrToNodeTest, KeepsTheNameOfAFreshNodeWhenTheRecordHasNone) {
    EXPECT_STREQ(FromRecord(Parse(R"({"type":31})"))->name(), Make(NODE_FLOAT)->name());
    EXPECT_STREQ(FromRecord(Parse(R"({"type":31,"name":""})"))->name(), Make(NODE_FLOAT)->name());
}

TEST_F(StrToNodeTest, WritesAllAttributesAndThenEvaluatesOnce) {
    const auto operations = Operations([] {
        FromRecord(Parse(R"({"type":27,"name":"T","params":[
            {"type":8,"name":"translation","translation":{"x":1,"y":2,"z":3}}, null, {"type":13,"name":"transform"},
            {"type":8,"name":"scale","scale":{"x":2,"y":2,"z":2}}]})"));
    });
    EXPECT_THAT(operations, ElementsAre("create VELMAR_TRANSFORM2D VELMAR_ROOTGRAPH:Scene true",
                                        testing::StartsWith("setName VELMAR_TRANSFORM2D:"),
                                        "set VELMAR_TRANSFORM2D:T 172 (1,2,3) false",
                                        "set VELMAR_TRANSFORM2D:T 139 (2,2,2) false", "evaluate VELMAR_TRANSFORM2D:T"));
}

TEST_F(StrToNodeTest, EvaluatesANodeWhoseListOfAttributesIsEmptyButNotOneWithoutAList) {
    EXPECT_THAT(Operations([] { FromRecord(Parse(R"({"type":31,"params":[]})")); }),
                ElementsAre(testing::StartsWith("create"), testing::StartsWith("evaluate")));
    EXPECT_THAT(Operations([] { FromRecord(Parse(R"({"type":31,"params":null})")); }),
                ElementsAre(testing::StartsWith("create")));
}

TEST_F(StrToNodeTest, ConnectsFreeChildrenAndMakesPinOwnedOnesInPlace) {
    const auto operations = Operations([] {
        FromRecord(Parse(R"({"type":16,"name":"M","nodes":[
            {"type":34,"pin_owned":false,"info":{"name":"bump"}},
            {"type":31,"pin_owned":true,"info":{"name":"roughness"}},
            {"type":0,"name":"M","info":{"name":"normal_map"}}]})"));
    });
    EXPECT_THAT(operations,
                ElementsAre("create VELMAR_GLOSSY VELMAR_ROOTGRAPH:Scene true", testing::StartsWith("setName"),
                            "create VELMAR_IMAGE VELMAR_ROOTGRAPH:Scene true",
                            "connectTo VELMAR_GLOSSY:M 18 VELMAR_IMAGE:RGB image true false",
                            "createInternal VELMAR_GLOSSY:M 1004 VELMAR_FLOAT true true",
                            testing::MatchesRegex("create 0 .*")));
}

TEST_F(StrToNodeTest, LeavesThePinOfAnEmptyPinRecordAsTheFreshNodeHasIt) {
    ApiNode* const node = FromRecord(Parse(R"({"type":16,"nodes":[{"type":0,"info":{"name":"diffuse"}}]})"));
    ASSERT_NE(node->connectedNode(PIN_DIFFUSE), nullptr);
    EXPECT_TRUE(node->connectedNode(PIN_DIFFUSE)->pinOwned());
}

TEST_F(StrToNodeTest, SkipsPinRecordsThatAreNullOrDoNotNameTheirPin) {
    ApiNode* const node = FromRecord(Parse(R"({"type":16,"nodes":[null, {"type":34}, {"type":34,"info":null},
        {"type":34,"info":{}}, {"type":34,"info":{"name":""}}, {"type":34,"info":{"name":null}},
        {"type":34,"info":{"name":"bump"}}]})"));
    ASSERT_NE(node, nullptr);
    EXPECT_NE(node->connectedNode(PIN_BUMP), nullptr);
    EXPECT_EQ(RootItems(), 2U);
}

TEST_F(StrToNodeTest, MakesTheChildOfAnUnknownPinAsAFreeNode) {
    ApiNode* const node =
        FromRecord(Parse(R"({"type":16,"nodes":[{"type":34,"pin_owned":true,"info":{"name":"no_such_pin"}}]})"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(RootItems(), 2U);
    EXPECT_NE(Root()->findFirstNode(NODE_IMAGE), nullptr);
}

TEST_F(StrToNodeTest, GivesANodeThatStoodOnTwoPinsTwice) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    material->connectTo(PIN_NORMAL_MAP, Put(material, PIN_BUMP, NODE_IMAGE), true, false);
    ApiNode* const copy = FromRecord(Record(material));
    ASSERT_NE(copy->connectedNode(PIN_BUMP), nullptr);
    ASSERT_NE(copy->connectedNode(PIN_NORMAL_MAP), nullptr);
    EXPECT_NE(copy->connectedNode(PIN_BUMP), copy->connectedNode(PIN_NORMAL_MAP));
    EXPECT_EQ(Record(copy), Record(material));
}

TEST_F(StrToNodeTest, PutsFreeNodesInTheRootGraphNeverInThatOfTheOwner) {
    ApiNodeGraph* const sandbox = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    ApiNode* const owner = ApiNode::create(NODE_MATERIAL_GLOSSY, sandbox, true);
    EXPECT_EQ(NodeUtils::StrToNode(Parse(R"({"type":34})"), 1, owner, PIN_BUMP)->graphOwner(), Root());
}

TEST_F(StrToNodeTest, TakesNumbersOfAnyForm) {
    ApiNode* const node = FromRecord(Parse(R"({"type":31.0,"pin_owned":0,"name":7,"params":[
        {"type":6.0,"name":"value","value":3}]})"));
    ASSERT_NE(node, nullptr);
    EXPECT_STREQ(node->name(), "7");
    EXPECT_EQ(node->getFloat(ATTR_VALUE), 3.0F);
}

// --- Faults ---

class FaultyRecords : public SdkTest, public testing::WithParamInterface<const char*> {};

TEST_P(FaultyRecords, MakeNothing) {
    const Json::Value record = Parse(GetParam());
    EXPECT_THAT(Operations([&] { EXPECT_EQ(FromRecord(record), nullptr); }), IsEmpty());
    EXPECT_EQ(RootItems(), 0U);
}

TEST_P(FaultyRecords, ChangeNothing) {
    const Json::Value record = Parse(GetParam());
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    EXPECT_THAT(Operations([&] { EXPECT_EQ(Update(record, material), -1); }), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Row, FaultyRecords,
    testing::Values(R"([])", R"([{"type":16}])", R"({"type":"16"})", R"({"type":[16]})", R"({"type":1e300})",
                    R"({"type":4294967296})", R"({"type":16,"name":["x"]})", R"({"type":16,"name":{}})",
                    R"({"type":16,"pin_owned":"yes"})", R"({"type":16,"params":5})", R"({"type":16,"params":"x"})",
                    R"({"type":16,"params":{"a":{"type":1}}})", R"({"type":16,"params":[5]})",
                    R"({"type":16,"params":[[]]})", R"({"type":16,"params":["x"]})",
                    R"({"type":16,"params":[{"type":6,"name":"value","value":"1"}]})", R"({"type":16,"nodes":5})",
                    R"({"type":16,"nodes":{"a":{"type":31,"info":{"name":"bump"}}}})", R"({"type":16,"nodes":[5]})",
                    R"({"type":16,"nodes":[[]]})", R"({"type":16,"nodes":[{"type":34,"info":"bump"}]})",
                    R"({"type":16,"nodes":[{"type":34,"info":["bump"]}]})",
                    R"({"type":16,"nodes":[{"type":34,"info":{"name":["bump"]}}]})",
                    // The fault stands last, behind much that is good.
                    R"({"type":16,"name":"New","nodes":[{"type":34,"info":{"name":"bump"},"name":"Image"},
                        {"type":31,"pin_owned":true,"info":{"name":"roughness"},"params":[
                        {"type":6,"name":"value","value":0.5},{"type":6,"name":"value","value":[]}]}]})"));

TEST_F(StrToNodeTest, ReadsAsDeepAsTextCanBeParsedAndNoDeeper) {
    const auto nested = [](int levels) {
        std::string text;
        for (int i = 0; i < levels; ++i) {
            text += R"({"type":30007,"info":{"name":"material"},"nodes":[)";
        }
        for (int i = 0; i < levels; ++i) text += "]}";
        return text;
    };
    const QuietLog quiet;
    EXPECT_NE(FromRecord(Parse(nested(400))), nullptr);
    EXPECT_EQ(RootItems(), 400U);
    Root()->clear();
    EXPECT_TRUE(Message::StringToJson(nested(600)).isNull());
    EXPECT_TRUE(Message::StringToJson(nested(100000)).isNull());
    EXPECT_TRUE(Message::StringToJson(std::string(100000, '[')).isNull());
    EXPECT_TRUE(Message::StringToJson(std::string(100000, '{')).isNull());
}

TEST_F(StrToNodeTest, WritesAndReadsATreeFarDeeperThanTextMayBe) {
    ApiNode* const top = Make(NODE_MULTIPLY_TEXTURE);
    ApiNode* node = top;
    for (int depth = 1; depth < 2000; ++depth) node = Put(node, PIN_TEXTURE_1, NODE_MULTIPLY_TEXTURE);
    const Json::Value record = Record(top);
    EXPECT_EQ(Record(FromRecord(record)), record);
}

}  // namespace
}  // namespace Velmar
