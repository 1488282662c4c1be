// Trees that go to text and come back.
#include <algorithm>
#include <cmath>

#include "plugin/nodes/random_tree.h"
#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

/// Succeeds for equal values, otherwise shows where their texts part.
testing::AssertionResult Same(const Json::Value& actual, const Json::Value& expected) {
    if (actual == expected) return testing::AssertionSuccess();
    const std::string a = Message::JsonToString(actual);
    const std::string e = Message::JsonToString(expected);
    const auto part = std::mismatch(a.begin(), a.end(), e.begin(), e.end());
    const auto around = [](const std::string& text, std::string::const_iterator at) {
        const auto index = static_cast<std::size_t>(at - text.begin());
        return text.substr(index < 300 ? 0 : index - 300, 400);
    };
    return testing::AssertionFailure() << around(a, part.first) << "\n--- expected ---\n" << around(e, part.second);
}

class RoundTripTest : public SdkTest {
protected:
    /// The tree as text and as a tree again.
    static ApiNode* ThroughText(ApiNode* node) {
        return FromRecord(Message::StringToJson(Message::JsonToString(Record(node))));
    }
};

TEST_F(RoundTripTest, GivesAnEqualTreeForEachNodeType) {
    const std::vector<NodeType> types = CreatableTypes();
    EXPECT_GE(types.size(), 40U);
    for (const NodeType type : types) {
        SCOPED_TRACE(ApiInfo::getNodeTypeName(type));
        ApiNode* const node = Make(type);
        const Json::Value record = Record(node);
        ASSERT_FALSE(record.isNull());
        ApiNode* const copy = ThroughText(node);
        ASSERT_NE(copy, nullptr);
        EXPECT_TRUE(Same(Record(copy), record));
        EXPECT_EQ(Update(record, copy), 0);
        EXPECT_TRUE(Same(Record(copy), record));
    }
}

TEST_F(RoundTripTest, GivesAnEqualTreeForTreesOfRandomShape) {
    const std::vector<NodeType> types = CreatableTypes();
    std::size_t largest = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        ApiNode* const node = RandomTree(seed, types).Grow();
        const Json::Value record = Record(node);
        ApiNode* const copy = ThroughText(node);
        ASSERT_NE(copy, nullptr);
        ASSERT_TRUE(Same(Record(copy), record));
        largest = std::max(largest, RootItems());
        Root()->clear();
    }
    EXPECT_GT(largest, 20U);
}

bool Holds(const Json::Value& record, NodeType type) {
    if (record["type"].asInt() == type) return true;
    const Json::Value& pins = record["nodes"];
    return std::any_of(pins.begin(), pins.end(), [&](const Json::Value& pin) { return Holds(pin, type); });
}

/// The record without what tells free nodes from those that a pin owns.
Json::Value WithoutOwnership(Json::Value record) {
    record.removeMember("pin_owned");
    if (!record.isMember("nodes")) return record;
    for (Json::Value& pin : record["nodes"]) pin = WithoutOwnership(pin);
    return record;
}

TEST_F(RoundTripTest, BringsAFreshTreeInLineWithARandomOneByUpdatesAlone) {
    const std::vector<NodeType> types = CreatableTypes();
    int compared = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        const Json::Value record = Record(RandomTree(seed, types).Grow());
        Root()->clear();
        // A displacement that comes to a material may get an image that the record does not have.
        if (Holds(record, NODE_DISPLACEMENT)) continue;
        ++compared;
        ApiNode* const node = Make(NodeType{record["type"].asInt()});
        // Each round fills the nodes that the one before it made, one level further down.
        int rounds = 0;
        while (Update(record, node) == 1) ASSERT_LT(++rounds, 12);
        ASSERT_TRUE(Same(WithoutOwnership(Record(node)), WithoutOwnership(record)));
        Root()->clear();
    }
    EXPECT_GT(compared, 200);
}

TEST_F(RoundTripTest, GivesFloatsBackToTheBit) {
    ApiNode* const node = Make(NODE_COLOR);
    for (const float value : {0.1F, 1.0F / 3.0F, 3.4028235e38F, 1e-45F, -0.0F, 16777217.0F}) {
        node->set(ATTR_VALUE, Vec3<float>{value, -value, value * 0.5F}, true);
        const Vec3<float> back = ThroughText(node)->getFloat3(ATTR_VALUE);
        EXPECT_EQ(std::signbit(back.x), std::signbit(value));
        EXPECT_EQ(back, node->getFloat3(ATTR_VALUE));
    }
}

}  // namespace
}  // namespace Velmar
