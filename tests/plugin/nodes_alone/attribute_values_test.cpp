#include <json/value.h>

#include <cmath>
#include <limits>

#include "plugin/nodes/node_utils.h"
#include "plugin/nodes_alone/made_up_node.h"
#include "plugin/utils/message.h"

namespace Velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr AttributeId kId{77};

Json::Value Parse(const std::string& text) {
    Json::Value json = Message::StringToJson(text);
    EXPECT_FALSE(json.isNull()) << text;
    return json;
}

/// What a record writes to a node that has an attribute called "v".
std::vector<std::string> Writes(const std::string& record) {
    MadeUpNode node;
    node.record.attributes = {{kId, ATTR_TYPE_INT, "v"}};
    NodeUtils::SetAttribute(Parse(record), &node);
    return node.record.writes;
}

// --- Reading a node ---

struct ValueRow {
    int type;
    const char* value;  ///< JSON, empty for none
};

class AttributeKinds : public testing::TestWithParam<ValueRow> {};

TEST_P(AttributeKinds, AreWrittenWithTypeNameAndTheValueInTheFormOfTheirKind) {
    MadeUpNode node;
    node.record.attributes = {
        {kId, AttributeType{GetParam().type}, "v", {7, -8, 9, 10}, {0.5F, -1.5F, 2.5F, 3.5F}, "a/b.png"}};
    Json::Value expected;
    expected["type"] = GetParam().type;
    expected["name"] = "v";
    if (*GetParam().value != 0) expected["v"] = Parse(std::string("[") + GetParam().value + "]")[0];
    EXPECT_EQ(NodeUtils::GetAttribute(&node, 0), expected);
}

INSTANTIATE_TEST_SUITE_P(Row, AttributeKinds,
                         testing::Values(ValueRow{0, ""}, ValueRow{1, "true"}, ValueRow{2, "7"},
                                         ValueRow{3, R"({"x":7,"y":-8})"}, ValueRow{4, R"({"x":7,"y":-8,"z":9})"},
                                         ValueRow{5, ""}, ValueRow{6, "0.5"}, ValueRow{7, R"({"x":0.5,"y":-1.5})"},
                                         ValueRow{8, R"({"x":0.5,"y":-1.5,"z":2.5})"},
                                         ValueRow{9, R"({"x":0.5,"y":-1.5,"z":2.5,"w":3.5})"}, ValueRow{10, ""},
                                         ValueRow{11, R"("a/b.png")"}, ValueRow{12, ""}, ValueRow{13, ""},
                                         ValueRow{14, ""}, ValueRow{-1, ""}),
                         [](const auto& test) { return "Type" + std::to_string(test.index); });

TEST(AttributeRecord, WidensFloatsToDouble) {
    MadeUpNode node;
    node.record.attributes = {{kId, ATTR_TYPE_FLOAT, "v", {}, {0.1F}}};
    EXPECT_EQ(NodeUtils::GetAttribute(&node, 0)["v"].asDouble(), 0.10000000149011612);
}

TEST(AttributeRecord, OfANullNodeIsNull) {
    EXPECT_TRUE(NodeUtils::GetAttribute(nullptr, 0).isNull());
}

TEST(AttributeRecord, OfAnAttributeCalledTypeHoldsItsValueInPlaceOfTheType) {
    MadeUpNode node;
    node.record.attributes = {{kId, ATTR_TYPE_INT, "type", {7}}};
    const Json::Value record = NodeUtils::GetAttribute(&node, 0);
    EXPECT_EQ(record, Parse(R"({"type": 7, "name": "type"})"));
    NodeUtils::SetAttribute(record, &node);
    EXPECT_THAT(node.record.writes, ElementsAre("77 int 7 false"));
}

// --- Writing to a node ---

struct WriteRow {
    const char* record;
    const char* write;
};

class AttributeWrites : public testing::TestWithParam<WriteRow> {};

TEST_P(AttributeWrites, GoToTheAttributeOfThatNameWithoutEvaluation) {
    EXPECT_THAT(Writes(GetParam().record), ElementsAre(GetParam().write));
}

INSTANTIATE_TEST_SUITE_P(
    Row, AttributeWrites,
    testing::Values(WriteRow{R"({"type":1,"name":"v","v":true})", "77 bool true false"},
                    WriteRow{R"({"type":2,"name":"v","v":-7})", "77 int -7 false"},
                    WriteRow{R"({"type":3,"name":"v","v":{"x":1,"y":2}})", "77 int2 1 2 false"},
                    WriteRow{R"({"type":4,"name":"v","v":{"x":1,"y":2,"z":3}})", "77 int3 1 2 3 false"},
                    WriteRow{R"({"type":6,"name":"v","v":0.25})", "77 float 0.25 false"},
                    WriteRow{R"({"type":7,"name":"v","v":{"x":0.5,"y":2}})", "77 float2 0.5 2 false"},
                    WriteRow{R"({"type":8,"name":"v","v":{"x":0.5,"y":2,"z":3}})", "77 float3 0.5 2 3 false"},
                    WriteRow{R"({"type":9,"name":"v","v":{"x":0.5,"y":2,"z":3,"w":4}})", "77 float4 0.5 2 3 4 false"},
                    // A missing value is the default of its kind, a missing part of a vector is zero.
                    WriteRow{R"({"type":1,"name":"v"})", "77 bool false false"},
                    WriteRow{R"({"type":2,"name":"v"})", "77 int 0 false"},
                    WriteRow{R"({"type":6,"name":"v"})", "77 float 0 false"},
                    WriteRow{R"({"type":4,"name":"v"})", "77 int3 0 0 0 false"},
                    WriteRow{R"({"type":8,"name":"v","v":null})", "77 float3 0 0 0 false"},
                    WriteRow{R"({"type":8,"name":"v","v":{"x":5,"z":3}})", "77 float3 5 0 3 false"},
                    WriteRow{R"({"type":3,"name":"v","v":{"x":5}})", "77 int2 5 0 false"},
                    // A number of any form does where a number is wanted.
                    WriteRow{R"({"type":2,"name":"v","v":7.9})", "77 int 7 false"},
                    WriteRow{R"({"type":2.0,"name":"v","v":true})", "77 int 1 false"},
                    WriteRow{R"({"type":6,"name":"v","v":3})", "77 float 3 false"},
                    WriteRow{R"({"type":1,"name":"v","v":2})", "77 bool true false"},
                    // A name that the node does not have goes to the SDK as the unknown attribute, which it ignores.
                    WriteRow{R"({"type":2,"name":"else","else":3})", "0 int 3 false"}));

class RecordsWithoutEffect : public testing::TestWithParam<const char*> {};

TEST_P(RecordsWithoutEffect, ChangeNothing) {
    EXPECT_THAT(Writes(GetParam()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Row, RecordsWithoutEffect,
    testing::Values(
        // No type or no name.
        R"({"type":0,"name":"v","v":1})", R"({"name":"v","v":1})", R"({"type":2,"v":1})",
        R"({"type":2,"name":"","v":1})", R"({"type":null,"name":"v","v":1})", R"({"type":0,"name":"type"})", R"({})",
        // Kinds that do not travel.
        R"({"type":5,"name":"v","v":1})", R"({"type":10,"name":"v","v":"x"})", R"({"type":12,"name":"v","v":1})",
        R"({"type":13,"name":"v","v":1})", R"({"type":14,"name":"v","v":1})", R"({"type":-5,"name":"v","v":1})",
        // An empty file name.
        R"({"type":11,"name":"v","v":""})", R"({"type":11,"name":"v"})", R"({"type":11,"name":"v","v":null})"));

class RecordsOfTheWrongKind : public testing::TestWithParam<const char*> {};

TEST_P(RecordsOfTheWrongKind, ChangeNothing) {
    EXPECT_THAT(Writes(GetParam()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Row, RecordsOfTheWrongKind,
    testing::Values(R"(["type", 2])", R"({"type":"2","name":"v","v":1})", R"({"type":[],"name":"v","v":1})",
                    R"({"type":3000000000,"name":"v","v":1})", R"({"type":1e300,"name":"v","v":1})",
                    R"({"type":2,"name":["v"],"v":1})", R"({"type":2,"name":{"v":1},"v":1})",
                    R"({"type":1,"name":"v","v":"true"})", R"({"type":1,"name":"v","v":[]})",
                    R"({"type":2,"name":"v","v":"1"})", R"({"type":2,"name":"v","v":3000000000})",
                    R"({"type":2,"name":"v","v":{"x":1}})", R"({"type":6,"name":"v","v":"1"})",
                    R"({"type":6,"name":"v","v":[1]})", R"({"type":3,"name":"v","v":[1,2]})",
                    R"({"type":4,"name":"v","v":1})", R"({"type":8,"name":"v","v":"1"})",
                    R"({"type":8,"name":"v","v":{"x":1,"y":"2","z":3}})", R"({"type":8,"name":"v","v":{"x":1,"y":[]}})",
                    R"({"type":11,"name":"v","v":["a"]})", R"({"type":11,"name":"v","v":{"a":1}})"));

TEST(SetAttribute, WithTheNullValueOrANullNodeDoesNothing) {
    MadeUpNode node;
    NodeUtils::SetAttribute(Json::Value(), &node);
    EXPECT_THAT(node.record.writes, IsEmpty());
    NodeUtils::SetAttribute(Parse(R"({"type":2,"name":"v","v":1})"), nullptr);
}

TEST(SetAttribute, WithAFileNameHasTheNodeTakeUpTheFile) {
    EXPECT_THAT(Writes(R"({"type":11,"name":"v","v":"/a b.png"})"),
                ElementsAre("77 text /a b.png false", "124 bool false true"));
}

TEST(SetAttribute, KeepsNumbersBeyondAFloatsRangeFinite) {
    EXPECT_THAT(Writes(R"({"type":7,"name":"v","v":{"x":1e300,"y":-1e300}})"),
                ElementsAre("77 float2 3.40282e+38 -3.40282e+38 false"));
}

TEST(AttributeRecord, ReadsBackToTheSameFloatForEveryMagnitude) {
    for (float value = std::numeric_limits<float>::denorm_min(); std::isfinite(value); value *= 1.9F) {
        MadeUpNode node;
        node.record.attributes = {{kId, ATTR_TYPE_FLOAT, "v", {}, {-value}}};
        const Json::Value record = NodeUtils::GetAttribute(&node, 0);
        const Json::Value parsed = Message::StringToJson(Message::JsonToString(record));
        ASSERT_EQ(parsed["v"].asDouble(), static_cast<double>(-value));
    }
}

}  // namespace
}  // namespace Velmar
