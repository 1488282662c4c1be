// Records that are broken in every way one can think of, through the calls that read them from scripts and files: text
// to JSON, JSON to a new tree, JSON onto a tree that stands. None may end the process, hang, or leave anything behind.
#include <algorithm>
#include <array>
#include <limits>
#include <random>

#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

class BrokenRecordsTest : public SdkTest {
protected:
    void SetUp() override {
        SdkTest::SetUp();
        live_ = Make(NODE_MATERIAL_GLOSSY, "Live");
        Put(live_, PIN_BUMP, NODE_IMAGE)->set(ATTR_FILENAME, "bump.png", false);
        PutInternal(live_, PIN_NORMAL_MAP, NODE_MULTIPLY_TEXTURE);
        intact_ = Record(live_);
        // Descriptions of pins are of no account to the readers but for their names.
        text_ = Message::JsonToString(NodeUtils::NodeToStr(live_, false));
    }

    void TearDown() override {
        EXPECT_GT(cases_, 0U);
        SdkTest::TearDown();
    }

    /// Reads one text as everybody does, and takes away what came of it.
    void Try(const std::string& text) { TryJson(Message::StringToJson(text)); }

    void TryJson(const Json::Value& json) {
        ++cases_;
        ApiNode* const made = FromRecord(json);
        const int result = Update(json, live_);
        ASSERT_TRUE(result >= -1 && result <= 1);
        made_ += made != nullptr ? 1U : 0U;
        applied_ += result >= 0 ? 1U : 0U;
        if (made == nullptr && result < 1) return;
        // Destroyed items leave a trace until the library stops.
        if (++since_start_ % 2000 == 0) SdkTest::TearDown(), SdkTest::SetUp();
        Root()->clear();
        live_ = FromRecord(intact_);
        ASSERT_NE(live_, nullptr);
    }

    ApiNode* live_ = nullptr;
    Json::Value intact_;
    std::string text_;
    std::size_t cases_ = 0;
    std::size_t made_ = 0;
    std::size_t applied_ = 0;
    std::size_t since_start_ = 0;
    QuietLog quiet_;
};

TEST_F(BrokenRecordsTest, SurviveBeingCutOffAtEveryByte) {
    const std::array small = {std::string(R"({"type":31,"name":"x","params":[{"name":"value","type":6,"value":0.5}]})"),
                              Message::JsonToString(Record(Make(NODE_MATERIAL_PORTAL)))};
    for (const std::string& text : {text_, small[0], small[1]}) {
        for (std::size_t size = 0; size < text.size(); ++size) Try(text.substr(0, size));
        for (std::size_t start = 1; start < text.size(); ++start) Try(text.substr(start));
    }
    EXPECT_GT(cases_, 10000U);
}

TEST_F(BrokenRecordsTest, SurviveFlippedBits) {
    std::mt19937 random(1);
    for (std::size_t at = 0; at < text_.size(); ++at) {
        for (int bit = 0; bit < 8; bit += 1 + static_cast<int>(random() % 3)) {
            std::string text = text_;
            text[at] = static_cast<char>(text[at] ^ (1 << bit));
            Try(text);
        }
    }
    EXPECT_GT(cases_, 10000U);
    EXPECT_GT(made_, 500U);  // names and numbers take a flip and are still well-formed
}

TEST_F(BrokenRecordsTest, SurviveRunsOfRandomChanges) {
    std::mt19937 random(2);
    const auto below = [&](std::size_t count) { return random() % count; };
    static const char* const pieces[] = {"{",    "}",         "[",           "]",
                                         ":",    ",",         "\"",          "null",
                                         "-1",   "1e999",     "-0.0",        "99999999999999999999",
                                         "true", "\"type\":", "\"nodes\":[", "//",
                                         "/*",   "\\u0000",   "\xff",        "\"info\":{\"name\":\"bump\"}"};
    for (int round = 0; round < 4000; ++round) {
        std::string text = text_;
        for (std::size_t i = 1 + below(4); i > 0; --i) {
            const std::size_t at = below(text.size());
            text.replace(at, below(std::min<std::size_t>(40, text.size() - at)), pieces[below(std::size(pieces))]);
        }
        Try(text);
    }
}

/// Calls `visit` with each value inside `json`, the value itself first.
template <typename Visit>
void ForEachValue(Json::Value& json, const Visit& visit) {
    visit(json);
    if (!json.isArray() && !json.isObject()) return;
    for (Json::Value& value : json) ForEachValue(value, visit);
}

TEST_F(BrokenRecordsTest, SurviveEachValueBeingOfAnotherKind) {
    Json::Value nested;
    nested["type"] = 16;
    nested["nodes"].append(nested);
    const std::vector<Json::Value> others = {Json::Value(),
                                             Json::Value(true),
                                             Json::Value(-1),
                                             Json::Value(0),
                                             Json::Value(3000000000U),
                                             Json::Value(Json::Value::maxUInt64),
                                             Json::Value(Json::Value::minInt64),
                                             Json::Value(0.5),
                                             Json::Value(1e300),
                                             Json::Value(std::numeric_limits<double>::quiet_NaN()),
                                             Json::Value(std::numeric_limits<double>::infinity()),
                                             Json::Value(""),
                                             Json::Value("type"),
                                             Json::Value(std::string("a\0b", 3)),
                                             Json::Value(Json::arrayValue),
                                             Json::Value(Json::objectValue),
                                             nested};
    Json::Value record = Parse(text_);
    ForEachValue(record, [&](Json::Value& value) {
        if (&value == &record) return;
        const Json::Value good = value;
        for (const Json::Value& other : others) {
            value = other;
            TryJson(record);
        }
        value = good;
    });
    for (const Json::Value& other : others) TryJson(other);
    EXPECT_GT(cases_, 3000U);
    EXPECT_GT(made_, 1000U);
    EXPECT_GT(applied_, 1000U);
}

TEST_F(BrokenRecordsTest, SurviveEachKeyMissing) {
    Json::Value record = Parse(text_);
    ForEachValue(record, [&](Json::Value& value) {
        if (!value.isObject()) return;
        for (const std::string& key : value.getMemberNames()) {
            Json::Value taken;
            value.removeMember(key, &taken);
            TryJson(record);
            value[key] = taken;
        }
    });
    EXPECT_EQ(made_ + 1, cases_);  // one lacks the type at the top
}

TEST_F(BrokenRecordsTest, SurviveDeepNesting) {
    static const std::pair<const char*, const char*> shells[] = {
        {"[", "]"},
        {R"({"type":16,"nodes":[)", "]}"},
        {R"({"type":38,"info":{"name":"texture_1"},"nodes":[)", "]}"},
        {R"({"type":38,"pin_owned":true,"info":{"name":"texture_1"},"nodes":[)", "]}"},
        {R"({"type":16,"info":)", "}"},
        {R"({"type":16,"params":[{"type":8,"name":"x","x":)", "}]}"}};
    for (const auto& [open, close] : shells) {
        for (const int levels : {1, 2, 10, 100, 330, 400, 498, 499, 500, 501, 999, 1000, 1001, 20000, 200000}) {
            std::string text;
            for (int i = 0; i < levels; ++i) text += open;
            Try(text);
            text += "null";
            for (int i = 0; i < levels; ++i) text += close;
            Try(text);
        }
    }
    EXPECT_GT(made_, 0U);
}

}  // namespace
}  // namespace Velmar
