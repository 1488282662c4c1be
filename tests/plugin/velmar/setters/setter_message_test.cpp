#include "plugin/velmar/setters/setter_message.h"

#include <json/value.h>

#include "plugin/velmar/render_control_test.h"

namespace Velmar {
namespace {

using Lines = std::vector<std::string>;

TEST(SetterMessageTest, CommentsAreAllowed) {
    Json::Value message;
    EXPECT_TRUE(ParseSetterMessage("// a view\n{\"fov\": 20 /* degrees */}", message));
    EXPECT_EQ(ReadFloat(message, "fov", 0.0), 20.0f);
}

TEST(SetterMessageTest, AnUnreadableTextIsLoggedWhole) {
    const ErrorLog errors;
    Json::Value message;
    EXPECT_FALSE(ParseSetterMessage("{\"fov\": ", message));
    EXPECT_EQ(errors.lines, Lines{"Failed to parse string {\"fov\": "});
}

TEST(SetterMessageTest, ATextThatNestsTooDeepIsUnreadable) {
    const ErrorLog errors;
    Json::Value message;
    EXPECT_FALSE(ParseSetterMessage(std::string(1200, '['), message));
    EXPECT_EQ(errors.lines.size(), 1u);
}

TEST(SetterMessageTest, MissingKeysTakeTheirFallback) {
    for (const Json::Value& message : {Json::Value(), Json::Value(Json::objectValue)}) {
        EXPECT_EQ(ReadFloat(message, "a", 0.1), 0.1f);
        EXPECT_EQ(ReadInt(message, "a", 7), 7);
        EXPECT_TRUE(ReadBool(message, "a", true));
    }
}

TEST(SetterMessageTest, NumbersServeForEachOther) {
    Json::Value message;
    message["whole"] = 2;
    message["fraction"] = 2.75;
    EXPECT_EQ(ReadFloat(message, "whole", 0.0), 2.0f);
    EXPECT_EQ(ReadInt(message, "fraction", 0), 2);
    EXPECT_TRUE(ReadBool(message, "whole", false));
}

TEST(SetterMessageTest, AVectorReadsWhatItMade) {
    Json::Value message;
    message["filter"] = VectorMessage(0.5, -1.0, 0.25);
    EXPECT_EQ(ReadVector(message, "filter"), (Vec3<float>{0.5f, -1.0f, 0.25f}));
}

TEST(SetterMessageTest, MissingComponentsOfAVectorAreZero) {
    Json::Value message;
    message["filter"]["y"] = 3;
    EXPECT_EQ(ReadVector(message, "filter"), (Vec3<float>{0.0f, 3.0f, 0.0f}));
    message["filter"] = Json::Value();
    EXPECT_EQ(ReadVector(message, "filter"), (Vec3<float>{}));
}

TEST(SetterMessageTest, AVectorThatIsNoObjectIsALogicError) {
    Json::Value message;
    EXPECT_THROW(ReadVector(message, "filter"), Json::LogicError) << "missing";
    for (const Json::Value& filter : {Json::Value("red"), Json::Value(1.0), Json::Value(Json::arrayValue)}) {
        message["filter"] = filter;
        EXPECT_THROW(ReadVector(message, "filter"), Json::LogicError) << filter.toStyledString();
    }
}

}  // namespace
}  // namespace Velmar
