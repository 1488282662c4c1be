#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using testing::ElementsAre;

class NodeToStrTest : public SdkTest {};

TEST_F(NodeToStrTest, AnswersNullForANullAndForADestroyedNode) {
    EXPECT_TRUE(Record(nullptr).isNull());
    ApiNode* const node = Make(NODE_FLOAT);
    node->destroy();
    EXPECT_TRUE(Record(node).isNull());
}

TEST_F(NodeToStrTest, WritesAttributesAndNoPinListForANodeWithoutPins) {
    ApiNode* const node = Make(NODE_FLOAT, "Half \"so\"");
    node->set(ATTR_VALUE, 0.5F, true);
    EXPECT_EQ(Record(node), Parse(R"({"name":"Half \"so\"", "type":31, "pin_owned":false,
                                      "params":[{"name":"value", "type":6, "value":0.5}]})"));
}

TEST_F(NodeToStrTest, WritesPinsAndNoAttributeListForANodeWithoutAttributes) {
    const Json::Value record = Record(Make(NODE_MATERIAL_PORTAL));
    EXPECT_THAT(record.getMemberNames(), ElementsAre("name", "nodes", "pin_owned", "type"));
    ASSERT_EQ(record["nodes"].size(), 1U);
    const Json::Value& pin = record["nodes"][0];
    EXPECT_EQ(pin["pin_owned"].asBool(), true);
    EXPECT_EQ(pin["params"], Parse(R"([{"name":"value", "type":1, "value":true}])"));
    EXPECT_EQ(pin["info"]["name"].asString(), "enabled");
    EXPECT_THAT(pin.getMemberNames(), ElementsAre("info", "name", "params", "pin_owned", "type"));
}

TEST_F(NodeToStrTest, WritesOneRecordForEachPinInOrderOfTheirIndex) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    const Json::Value record = Record(material);
    ASSERT_EQ(record["nodes"].size(), material->pinCount());
    for (unsigned i = 0; i < material->pinCount(); ++i) {
        EXPECT_EQ(record["nodes"][i]["info"]["name"].asString(), material->pinNameIx(i));
        EXPECT_EQ(record["nodes"][i]["info"]["label"].asString(), material->pinInfoIx(i).label);
    }
}

TEST_F(NodeToStrTest, WritesAttributesInOrderOfTheirIndex) {
    ApiNode* const mesh = Make(NODE_MESH);
    const Json::Value params = Record(mesh)["params"];
    ASSERT_EQ(params.size(), mesh->attrCount());
    for (unsigned i = 0; i < mesh->attrCount(); ++i) {
        EXPECT_EQ(params[i]["name"].asString(), mesh->attrNameIx(i));
        EXPECT_EQ(params[i]["type"].asInt(), mesh->attrTypeIx(i));
    }
}

TEST_F(NodeToStrTest, WritesAnEmptyPinWithTheNameOfItsNodeAndTypeZero) {
    Json::Value record = Record(Make(NODE_MATERIAL_GLOSSY, "Oak"));
    const Json::Value& bump = PinRecord(record, "bump");
    EXPECT_THAT(bump.getMemberNames(), ElementsAre("info", "name", "type"));
    EXPECT_EQ(bump["name"].asString(), "Oak");
    EXPECT_EQ(bump["type"].asInt(), 0);
}

TEST_F(NodeToStrTest, HasInfoAtEveryLevelButTheTop) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    Put(material, PIN_BUMP, NODE_IMAGE);
    Json::Value record = Record(material);
    EXPECT_FALSE(record.isMember("info"));
    Json::Value& image = PinRecord(record, "bump");
    EXPECT_TRUE(image.isMember("info"));
    EXPECT_TRUE(PinRecord(image, "uv_transform").isMember("info"));
}

TEST_F(NodeToStrTest, HandsDownWhetherDescriptionsAreFull) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    Put(material, PIN_BUMP, NODE_IMAGE);
    Json::Value record = NodeUtils::NodeToStr(material, false);
    EXPECT_THAT(PinRecord(record, "bump")["info"].getMemberNames(), ElementsAre("name"));
    EXPECT_THAT(PinRecord(PinRecord(record, "bump"), "power")["info"].getMemberNames(), ElementsAre("name"));
    record = NodeUtils::NodeToStr(material, true);
    EXPECT_TRUE(PinRecord(PinRecord(record, "bump"), "power")["info"].isMember("node_ids"));
}

TEST_F(NodeToStrTest, WritesTheNodeBehindALinkWithoutATraceOfTheLink) {
    ApiNode* const mix = Make(NODE_MATERIAL_MIX);
    ApiNode* const link = Put(mix, Engine::PIN_MATERIAL_1, NODE_LINK_MATERIAL);
    ApiNode* const linked = Put(link, PIN_MATERIAL, NODE_MATERIAL_METAL);
    linked->setName("Behind");
    Json::Value record = Record(mix);
    Json::Value pin = PinRecord(record, "material_1");
    pin.removeMember("info");
    EXPECT_EQ(pin, Record(linked));
}

TEST_F(NodeToStrTest, FollowsOneLinkAndWritesTheSecondAsItIs) {
    ApiNode* const mix = Make(NODE_MATERIAL_MIX);
    ApiNode* const first = Put(mix, Engine::PIN_MATERIAL_1, NODE_LINK_MATERIAL);
    ApiNode* const second = Put(first, PIN_MATERIAL, NODE_LINK_MATERIAL);
    Put(second, PIN_MATERIAL, NODE_MATERIAL_METAL);
    Json::Value record = Record(mix);
    EXPECT_EQ(PinRecord(record, "material_1")["type"].asInt(), NODE_LINK_MATERIAL);
}

TEST_F(NodeToStrTest, WritesALinkThatHoldsNothingAsAnEmptyPin) {
    ApiNode* const mix = Make(NODE_MATERIAL_MIX);
    Put(mix, Engine::PIN_MATERIAL_1, NODE_LINK_MATERIAL);
    Json::Value record = Record(mix);
    EXPECT_EQ(PinRecord(record, "material_1")["type"].asInt(), 0);
}

TEST_F(NodeToStrTest, WritesANodeOnTwoPinsAtEach) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    ApiNode* const image = Put(material, PIN_BUMP, NODE_IMAGE);
    material->connectTo(PIN_NORMAL_MAP, image, true, false);
    Json::Value record = Record(material);
    Json::Value first = PinRecord(record, "bump");
    Json::Value second = PinRecord(record, "normal_map");
    first.removeMember("info");
    second.removeMember("info");
    EXPECT_EQ(first, second);
    EXPECT_EQ(first, Record(image));
}

TEST_F(NodeToStrTest, ChangesNothing) {
    ApiNode* const target = Make(NODE_RENDER_TARGET);
    EXPECT_THAT(Operations([&] { Record(target); }), testing::IsEmpty());
}

}  // namespace
}  // namespace Velmar
