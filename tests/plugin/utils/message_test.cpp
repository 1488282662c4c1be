#include "plugin/utils/message.h"

#include <glog/logging.h>
#include <gtest/gtest.h>

namespace Velmar {
namespace {

/// Gathers what is logged while it lives.
class LogCapture : public google::LogSink {
public:
    LogCapture() { google::AddLogSink(this); }
    ~LogCapture() override { google::RemoveLogSink(this); }
    void send(google::LogSeverity severity, const char*, const char*, int, const google::LogMessageTime&,
              const char* message, size_t length) override {
        lines.emplace_back(severity, std::string(message, length));
    }

    std::vector<std::pair<int, std::string>> lines;
};

TEST(Message, ParsesJsonWithComments) {
    const Json::Value value = Message::StringToJson("{ \"a\": [1, 2.5, \"x\"], // a remark\n \"b\": null }");
    EXPECT_EQ(value["a"][0].asInt(), 1);
    EXPECT_EQ(value["a"][1].asDouble(), 2.5);
    EXPECT_EQ(value["a"][2].asString(), "x");
    EXPECT_TRUE(value.isMember("b"));
}

TEST(Message, LogsATextThatDoesNotParseAndAnswersNull) {
    LogCapture log;
    EXPECT_TRUE(Message::StringToJson("{ \"half\": ").isNull());
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0].first, google::GLOG_ERROR);
    EXPECT_EQ(log.lines[0].second, "Failed to parse string: { \"half\": ");
}

TEST(Message, LogsTheEmptyTextToo) {
    LogCapture log;
    EXPECT_TRUE(Message::StringToJson("").isNull());
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0].second, "Failed to parse string: ");
}

TEST(Message, SurvivesATextThatNestsTooDeep) {
    LogCapture log;
    EXPECT_TRUE(Message::StringToJson(std::string(2000, '[')).isNull());
    EXPECT_EQ(log.lines.size(), 1U);
}

TEST(Message, LogsNothingForAGoodText) {
    LogCapture log;
    EXPECT_EQ(Message::StringToJson("[]"), Json::Value(Json::arrayValue));
    EXPECT_TRUE(log.lines.empty());
}

TEST(Message, WritesStyledTextThatReadsBack) {
    Json::Value value;
    value["name"] = "cube \"1\"";
    value["list"].append(1);
    const std::string text = Message::JsonToString(value);
    EXPECT_EQ(text, "{\n   \"list\" : [ 1 ],\n   \"name\" : \"cube \\\"1\\\"\"\n}\n");
    EXPECT_EQ(Message::StringToJson(text), value);
}

TEST(Message, WritesNullAsAWord) {
    EXPECT_EQ(Message::JsonToString(Json::Value()), "null\n");
}

}  // namespace
}  // namespace Velmar
