#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::StartsWith;

/// A glossy material "M" with a free image "I" on its bump pin and, as from the start, colours that its pins own.
class UpdateNodeTest : public SdkTest {
protected:
    void SetUp() override {
        SdkTest::SetUp();
        material_ = Make(NODE_MATERIAL_GLOSSY, "M");
        image_ = Put(material_, PIN_BUMP, NODE_IMAGE);
        image_->setName("I");
    }

    /// A record of the material that says something of one pin alone.
    static Json::Value OfPin(const char* pin_name, Json::Value pin) {
        Json::Value record;
        record["type"] = NODE_MATERIAL_GLOSSY;
        pin["info"]["name"] = pin_name;
        record["nodes"].append(pin);
        return record;
    }
    static Json::Value OfType(int type) {
        Json::Value record;
        record["type"] = type;
        return record;
    }
    /// True when the image is no more.
    bool ImageIsGone() const { return image_->type() == NODE_UNKNOWN; }

    ApiNode* material_ = nullptr;
    ApiNode* image_ = nullptr;
};

// --- Nothing to do: -1 ---

TEST_F(UpdateNodeTest, DoesNothingForTheNullValue) {
    EXPECT_EQ(Update(Json::Value(), material_), -1);
    EXPECT_EQ(Update(Json::Value(), nullptr), -1);
}

TEST_F(UpdateNodeTest, DoesNothingForAnEmptyPinRecord) {
    EXPECT_THAT(Operations([this] {
                    EXPECT_EQ(NodeUtils::UpdateNode(OfType(0), image_, PIN_BUMP, material_, false), -1);
                    EXPECT_EQ(Update(OfPin("bump", OfType(0)), material_), 0);
                }),
                IsEmpty());
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), image_);
}

TEST_F(UpdateNodeTest, DoesNothingForAnotherTypeAtTheTop) {
    const Json::Value before = Record(material_);
    for (const int type : {int{NODE_MATERIAL_DIFFUSE}, -1, int{kNoSuchType}}) {
        Json::Value record = OfType(type);
        record["name"] = "Other";
        EXPECT_THAT(Operations([&] { EXPECT_EQ(Update(record, material_), -1); }), IsEmpty()) << type;
    }
    EXPECT_EQ(Update(OfType(NODE_MATERIAL_DIFFUSE), nullptr), -1);
    EXPECT_EQ(Record(material_), before);
}

TEST_F(UpdateNodeTest, DoesNothingForAPinThatDoesNotExist) {
    EXPECT_THAT(Operations([this] { EXPECT_EQ(Update(OfPin("no_such_pin", OfType(NODE_IMAGE)), material_), 0); }),
                IsEmpty());
}

TEST_F(UpdateNodeTest, NeedsPinAndOwnerToReplaceANode) {
    for (const auto& [pin, owner] :
         {std::pair(PIN_UNKNOWN, material_), std::pair<PinId, ApiNode*>(PIN_BUMP, nullptr)}) {
        EXPECT_EQ(NodeUtils::UpdateNode(OfType(NODE_FLOAT), image_, pin, owner, false), -1);
    }
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), image_);
}

// --- In place: 0 ---

TEST_F(UpdateNodeTest, WritesNameAndAttributesWhereTheTypesAgree) {
    ApiNode* const node = Make(NODE_FLOAT);
    const auto operations = Operations([&] {
        EXPECT_EQ(Update(Parse(R"({"type":31,"name":"F","params":[{"type":6,"name":"value","value":0.25}]})"), node),
                  0);
    });
    EXPECT_THAT(operations, testing::ElementsAre(StartsWith("setName"), "set VELMAR_FLOAT:F 185 0.25 false",
                                                 "evaluate VELMAR_FLOAT:F"));
    EXPECT_EQ(Update(Parse(R"({"type":31,"name":""})"), node), 0);
    EXPECT_STREQ(node->name(), "F");
}

TEST_F(UpdateNodeTest, GoesDownThePins) {
    Json::Value record = Record(material_);
    Param(PinRecord(PinRecord(record, "bump"), "power"), "value")["value"] = 0.5;
    PinRecord(record, "bump")["name"] = "Renamed";
    EXPECT_EQ(Update(record, material_), 0);
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), image_);
    EXPECT_STREQ(image_->name(), "Renamed");
    EXPECT_EQ(image_->getPinFloat(PIN_POWER), 0.5F);
    EXPECT_EQ(Record(material_), record);
}

TEST_F(UpdateNodeTest, WithTheRecordOfTheTreeItselfChangesNothing) {
    const Json::Value record = Record(material_);
    EXPECT_EQ(Update(record, material_), 0);
    EXPECT_EQ(Record(material_), record);
}

TEST_F(UpdateNodeTest, LeavesAnEmptyPinEmptyThatIsToBeEmpty) {
    EXPECT_THAT(Operations([this] {
                    EXPECT_EQ(NodeUtils::UpdateNode(OfType(-1), nullptr, PIN_NORMAL_MAP, material_, false), 0);
                    EXPECT_EQ(Update(OfPin("normal_map", OfType(-1)), material_), 0);
                    EXPECT_EQ(Update(OfPin("normal_map", Json::Value()), material_), 0);
                }),
                IsEmpty());
}

TEST_F(UpdateNodeTest, IgnoresWhatARecordSaysOfANodeThatIsNotThere) {
    const Json::Value record = Parse(R"({"type":-1,"name":"x","params":[{"type":6,"name":"value","value":1}],
                                         "nodes":[{"type":34,"info":{"name":"bump"}}]})");
    EXPECT_THAT(
        Operations([&] { EXPECT_EQ(NodeUtils::UpdateNode(record, nullptr, PIN_NORMAL_MAP, material_, false), 0); }),
        IsEmpty());
}

TEST_F(UpdateNodeTest, SkipsPinRecordsThatAreNullOrDoNotNameTheirPin) {
    EXPECT_EQ(Update(Parse(R"({"type":16,"nodes":[null, {"type":31}, {"type":31,"info":{"name":""}}]})"), material_),
              0);
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), image_);
}

// --- Structure: 1 ---

TEST_F(UpdateNodeTest, ReplacesAFreeNodeByAFreeNodeOfTheRootGraph) {
    const auto operations =
        Operations([this] { EXPECT_EQ(Update(OfPin("bump", OfType(NODE_FLOAT_IMAGE)), material_), 1); });
    EXPECT_THAT(operations, testing::ElementsAre(
                                "destroy VELMAR_IMAGE:I", "create VELMAR_FLOATIMAGE VELMAR_ROOTGRAPH:Scene true",
                                testing::MatchesRegex("connectTo VELMAR_GLOSSY:M 18 VELMAR_FLOATIMAGE:.* true false")));
    EXPECT_TRUE(ImageIsGone());
    ApiNode* const added = material_->connectedNode(PIN_BUMP);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->graphOwner(), Root());
}

TEST_F(UpdateNodeTest, ReplacesAPinOwnedNodeByAPinOwnedNode) {
    EXPECT_THAT(Operations([this] { EXPECT_EQ(Update(OfPin("diffuse", OfType(NODE_FLOAT)), material_), 1); }),
                testing::ElementsAre("createInternal VELMAR_GLOSSY:M 30 VELMAR_FLOAT true true"));
    ASSERT_NE(material_->connectedNode(PIN_DIFFUSE), nullptr);
    EXPECT_EQ(material_->connectedNode(PIN_DIFFUSE)->type(), NODE_FLOAT);
    EXPECT_TRUE(material_->connectedNode(PIN_DIFFUSE)->pinOwned());
}

TEST_F(UpdateNodeTest, FillsAnEmptyPinWithAPinOwnedNode) {
    EXPECT_EQ(Update(OfPin("normal_map", OfType(NODE_IMAGE)), material_), 1);
    ASSERT_NE(material_->connectedNode(PIN_NORMAL_MAP), nullptr);
    EXPECT_TRUE(material_->connectedNode(PIN_NORMAL_MAP)->pinOwned());
}

TEST_F(UpdateNodeTest, LeavesANewNodeAtItsDefaultsAndFillsItTheSecondTime) {
    Json::Value pin = Parse(R"({"type":31,"name":"New","params":[{"type":6,"name":"value","value":0.25}]})");
    const Json::Value record = OfPin("diffuse", pin);
    EXPECT_EQ(Update(record, material_), 1);
    ApiNode* const added = material_->connectedNode(PIN_DIFFUSE);
    EXPECT_STREQ(added->name(), added->info().default_name);
    EXPECT_NE(added->getFloat(ATTR_VALUE), 0.25F);
    EXPECT_EQ(Update(record, material_), 0);
    EXPECT_EQ(material_->connectedNode(PIN_DIFFUSE), added);
    EXPECT_STREQ(added->name(), "New");
    EXPECT_EQ(added->getFloat(ATTR_VALUE), 0.25F);
}

TEST_F(UpdateNodeTest, EmptiesThePinOfAFreeNodeAndDestroysIt) {
    for (const char* text : {R"({"type":-1})", R"({})"}) {
        SCOPED_TRACE(text);
        ApiNode* const node = Put(material_, PIN_NORMAL_MAP, NODE_IMAGE);
        EXPECT_EQ(Update(OfPin("normal_map", Json::Value(Parse(text))), material_), 1);
        EXPECT_EQ(material_->connectedNode(PIN_NORMAL_MAP), nullptr);
        EXPECT_EQ(node->type(), NODE_UNKNOWN);
    }
}

TEST_F(UpdateNodeTest, EmptiesThePinOfAPinOwnedNodeWithoutDestroyingItByItself) {
    EXPECT_THAT(Operations([this] { EXPECT_EQ(Update(OfPin("diffuse", OfType(-1)), material_), 1); }),
                testing::ElementsAre("connectTo VELMAR_GLOSSY:M 30 null true false"));
    EXPECT_EQ(material_->connectedNode(PIN_DIFFUSE), nullptr);
}

TEST_F(UpdateNodeTest, BelowAPinOwnedNodeLeavesAFreeNodeAlive) {
    ApiNode* const owned = PutInternal(material_, PIN_NORMAL_MAP, NODE_MULTIPLY_TEXTURE);
    ApiNode* const first = Put(owned, PIN_TEXTURE_1, NODE_IMAGE);
    ApiNode* const second = Put(owned, PIN_TEXTURE_2, NODE_IMAGE);
    Json::Value multiply = OfType(NODE_MULTIPLY_TEXTURE);
    multiply["nodes"] = Parse(R"([{"type":31,"info":{"name":"texture_1"}}, {"type":-1,"info":{"name":"texture_2"}}])");
    EXPECT_EQ(Update(OfPin("normal_map", multiply), material_), 1);
    EXPECT_EQ(first->type(), NODE_IMAGE);
    EXPECT_EQ(second->type(), NODE_IMAGE);
    ASSERT_NE(owned->connectedNode(PIN_TEXTURE_1), nullptr);
    EXPECT_TRUE(owned->connectedNode(PIN_TEXTURE_1)->pinOwned());
    EXPECT_EQ(owned->connectedNode(PIN_TEXTURE_2), nullptr);
}

TEST_F(UpdateNodeTest, TakesTheWordOfTheCallerThatANodeStandsBelowAPinOwnedOne) {
    EXPECT_EQ(NodeUtils::UpdateNode(OfType(-1), image_, PIN_BUMP, material_, true), 1);
    EXPECT_FALSE(ImageIsGone());
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), nullptr);
}

TEST_F(UpdateNodeTest, ReplacesALinkAndNotTheNodeBehindIt) {
    ApiNode* const link = Put(material_, PIN_NORMAL_MAP, Engine::NODE_LINK_TEXTURE);
    ApiNode* const linked = Put(link, PIN_TEXTURE, NODE_IMAGE);
    const Json::Value record = Record(material_);
    EXPECT_EQ(Update(record, material_), 1);
    EXPECT_EQ(link->type(), NODE_UNKNOWN);
    EXPECT_EQ(linked->type(), NODE_IMAGE);
    ASSERT_NE(material_->connectedNode(PIN_NORMAL_MAP), nullptr);
    EXPECT_EQ(material_->connectedNode(PIN_NORMAL_MAP)->type(), NODE_IMAGE);
}

TEST_F(UpdateNodeTest, EmptiesThePinOfAFreeNodeForATypeThatCannotBeMade) {
    EXPECT_EQ(Update(OfPin("bump", OfType(kNoSuchType)), material_), 1);
    EXPECT_TRUE(ImageIsGone());
    EXPECT_EQ(material_->connectedNode(PIN_BUMP), nullptr);
}

TEST_F(UpdateNodeTest, KeepsAPinOwnedNodeForATypeThatCannotBeMade) {
    ApiNode* const colour = material_->connectedNode(PIN_DIFFUSE);
    EXPECT_EQ(Update(OfPin("diffuse", OfType(kNoSuchType)), material_), 1);
    EXPECT_EQ(material_->connectedNode(PIN_DIFFUSE), colour);
}

TEST_F(UpdateNodeTest, AnswersOneWhenStructureChangedAnywhereBelow) {
    Json::Value record = Record(material_);
    PinRecord(PinRecord(record, "bump"), "power") = Parse(R"({"type":33,"info":{"name":"power"}})");
    EXPECT_EQ(Update(record, material_), 1);
    EXPECT_EQ(image_->connectedNode(PIN_POWER)->type(), NODE_COLOR);
}

TEST_F(UpdateNodeTest, GivesASecondImageThePlacementOfTheFirst) {
    Matrix<float> placement{{{2, 0, 0, 5}, {0, 3, 0, 6}, {0, 0, 1, 0}}};
    image_->connectedNode(PIN_UV_TRANSFORM)->set(ATTR_TRANSFORM, placement, true);
    EXPECT_EQ(Update(OfPin("diffuse", OfType(NODE_IMAGE)), material_), 1);
    Matrix<float> taken;
    ASSERT_TRUE(material_->connectedNode(PIN_DIFFUSE)->connectedNode(PIN_UV_TRANSFORM)->get(ATTR_TRANSFORM, taken));
    EXPECT_EQ(taken, placement);
}

// --- Faults ---

TEST_F(UpdateNodeTest, AppliesNothingOfARecordWithAFaultInItsLastCorner) {
    Json::Value record = Record(material_);
    record["name"] = "Other";
    PinRecord(record, "diffuse")["type"] = NODE_IMAGE;
    PinRecord(record, "smooth")["params"][0]["value"] = "yes";
    EXPECT_THAT(Operations([&] { EXPECT_EQ(Update(record, material_), -1); }), IsEmpty());
    PinRecord(record, "smooth")["params"][0]["value"] = true;
    EXPECT_EQ(Update(record, material_), 1);
    EXPECT_STREQ(material_->name(), "Other");
}

}  // namespace
}  // namespace Velmar
