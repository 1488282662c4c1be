#include <json/value.h>

#include "plugin/velmar/render_control_test.h"

namespace Velmar {
namespace {

using Lines = std::vector<std::string>;
constexpr const char* kUnreadable = "Failed to read scene setting from .skp file";
const Lines kRestart{"setRenderTargetNode", "update", "restartRendering"};

class SceneSettingsTest : public RenderControlTest {};

TEST_F(SceneSettingsTest, AnUnreadableDocumentIsLoggedOnceAndChangesNothing) {
    for (const char* text : {"", "{", "{\"quality\": {\"width\": 10}", "[]", "7", "\"text\"", "true"}) {
        const ErrorLog errors;
        EXPECT_EQ(Steps([&] { VelmarManager::SetSceneSettings(text); }), Lines{}) << text;
        EXPECT_EQ(errors.lines, Lines{kUnreadable}) << text;
    }
    EXPECT_EQ(VelmarManager::GetRenderState(), VelmarManager::StateType::Stopped);
}

TEST_F(SceneSettingsTest, AnEmptyDocumentSetsDefaultQualityAndRestarts) {
    VelmarManager::SetSceneSettings(R"({"quality": {"width": 10, "height": 20}})");
    VelmarManager::SetRenderState(VelmarManager::StateType::Stopped);
    for (const char* text : {"{}", "null", R"({"camera": null, "quality": null})"}) {
        const ErrorLog errors;
        const Lines steps = Steps([&] { VelmarManager::SetSceneSettings(text); });
        EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600})) << text;
        EXPECT_EQ(Lines(steps.end() - 3, steps.end()), kRestart) << text;
        EXPECT_EQ(Count(steps, "createInternal 19"), 0u) << text;
        EXPECT_EQ(errors.lines, Lines{}) << text;
        VelmarManager::SetRenderState(VelmarManager::StateType::Stopped);
    }
}

TEST_F(SceneSettingsTest, TheCameraComesBeforeTheQualityAndTheRestartLast) {
    const Lines steps = Steps([] {
        VelmarManager::SetSceneSettings(R"(// of a page
            {"quality": {"width": 500, "height": 500},
             "camera": {"type": 1, "panoLeftFilter": {}, "panoRightFilter": {}}})");
    });
    const auto at = [&](const std::string& step) { return std::find(steps.begin(), steps.end(), step); };
    EXPECT_LT(at("createInternal 19"), at("createInternal 311"));
    EXPECT_EQ(Lines(steps.end() - 3, steps.end()), kRestart);
    EXPECT_EQ(Count(steps, "update"), 2u);
    EXPECT_EQ(Camera()->type(), NODE_PANORAMIC_CAMERA);
    EXPECT_EQ(FilmSize(), (Vec2<int>{500, 500}));
}

TEST_F(SceneSettingsTest, TheFieldOfViewFollowsTheSizeOfTheSameDocument) {
    VelmarManager::SetSceneSettings(R"({"quality": {"width": 500, "height": 500},
        "camera": {"fov": 50, "leftFilter": {}, "rightFilter": {}}})");
    EXPECT_NEAR(Camera()->getPinFloat(PIN_FOV), 50.0f, 1e-3f);
}

TEST_F(SceneSettingsTest, ASectionThatIsNoObjectIsLoggedAndLeftOut) {
    for (const char* section : {"[]", "3", "\"text\"", "true"}) {
        const ErrorLog errors;
        const std::string document =
            std::string("{\"camera\": ") + section + R"(, "quality": {"width": 321, "height": 123}})";
        const Lines steps = Steps([&] { VelmarManager::SetSceneSettings(document.c_str()); });
        EXPECT_EQ(errors.lines, Lines{"Failed to read scene setting from .skp file: camera"}) << section;
        EXPECT_EQ(FilmSize(), (Vec2<int>{321, 123})) << "the other section is applied";
        EXPECT_EQ(Lines(steps.end() - 3, steps.end()), kRestart) << section;
        VelmarManager::SetRenderState(VelmarManager::StateType::Stopped);
    }
    const ErrorLog errors;
    VelmarManager::SetSceneSettings(R"({"quality": 4})");
    EXPECT_EQ(errors.lines, Lines{"Failed to read scene setting from .skp file: quality"});
    EXPECT_EQ(FilmSize(), (Vec2<int>{321, 123}));
}

TEST_F(SceneSettingsTest, AnUnknownCameraTypeIsLoggedAndTheRestIsApplied) {
    const ErrorLog errors;
    VelmarManager::SetSceneSettings(R"({"camera": {"type": 9}, "quality": {"width": 77, "height": 66}})");
    EXPECT_EQ(errors.lines, Lines{"Error: Undefined Camera Type"});
    EXPECT_EQ(FilmSize(), (Vec2<int>{77, 66}));
}

TEST_F(SceneSettingsTest, AValueOfTheWrongKindEndsTheCommandWithoutARestart) {
    const Lines steps = Steps([] {
        EXPECT_THROW(VelmarManager::SetSceneSettings(R"({"camera": {"fov": "wide"}, "quality": {"width": 10}})"),
                     Json::LogicError);
    });
    EXPECT_EQ(steps, Lines{});
    EXPECT_EQ(VelmarManager::GetRenderState(), VelmarManager::StateType::Stopped);

    VelmarManager::SetSceneSettings("{}");
    EXPECT_EQ(VelmarManager::GetRenderState(), VelmarManager::StateType::Running) << "the next good document is right";
}

TEST_F(SceneSettingsTest, UnknownSectionsAndKeysAreIgnored) {
    const ErrorLog errors;
    VelmarManager::SetSceneSettings(R"({"colours": 3, "quality": {"width": 44, "height": 33, "name": []}})");
    EXPECT_EQ(FilmSize(), (Vec2<int>{44, 33}));
    EXPECT_EQ(errors.lines, Lines{});
}

}  // namespace
}  // namespace Velmar
