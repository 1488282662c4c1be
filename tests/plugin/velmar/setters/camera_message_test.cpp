#include "plugin/velmar/setters/camera_message.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <map>
#include <string>

#include "plugin/utils/message.h"

namespace Velmar {
namespace {

TEST(CameraMessageTest, TheDefaultMessageHoldsTheseValuesAndNoOthers) {
    Json::Value expected;
    expected["cmd"] = 36;
    expected["type"] = 0;
    expected["fov"] = 35.0;
    expected["distortion"] = 0.0;
    expected["aperture"] = 0.0;
    expected["aperture_edge"] = 1.0;
    expected["stereoMode"] = 1;
    expected["stereoOutput"] = 0;
    expected["stereoDist"] = 0.019999999552965164;
    expected["leftFilter"]["x"] = 1.0;
    expected["leftFilter"]["y"] = 0.0;
    expected["leftFilter"]["z"] = 0.8119999766349792;
    expected["rightFilter"]["x"] = 0.0;
    expected["rightFilter"]["y"] = 1.0;
    expected["rightFilter"]["z"] = 0.18799999356269836;
    expected["lensShiftX"] = 0.0;
    expected["lensShiftY"] = 0.0;
    expected["focalDepth"] = 10.0;
    expected["focusType"] = 2;
    expected["nearClipDepth"] = 0.1;
    expected["scale"] = 0.0;
    EXPECT_EQ(DefaultCameraMessage(), expected);
}

TEST(CameraMessageTest, TheDefaultMessageComesBackUnchangedFromItsText) {
    EXPECT_EQ(Message::StringToJson(Message::JsonToString(DefaultCameraMessage())), DefaultCameraMessage());
}

Json::Value WithFilters(const char* left, const char* right) {
    Json::Value message;
    message[left] = Json::Value(Json::objectValue);
    message[right] = Json::Value(Json::objectValue);
    return message;
}

TEST(CameraMessageTest, AnEmptyThinLensMessageTakesAllFallbacks) {
    const ThinLensMessage lens(WithFilters("leftFilter", "rightFilter"));
    EXPECT_EQ(lens.fov, 35.0f);
    EXPECT_EQ(lens.distortion, 0.0f);
    EXPECT_EQ(lens.aperture, 0.0f);
    EXPECT_EQ(lens.aperture_edge, 1.0f);
    EXPECT_EQ(lens.pixel_aspect_ratio, 1.0f);
    EXPECT_EQ(lens.aperture_aspect_ratio, 1.0f);
    EXPECT_FALSE(lens.perspective_correction);
    EXPECT_EQ(lens.stereo_mode, 1);
    EXPECT_EQ(lens.stereo_output, 0);
    EXPECT_EQ(lens.stereo_distance, 0.02f);
    EXPECT_EQ(lens.left_filter, (Vec3<float>{}));
    EXPECT_EQ(lens.right_filter, (Vec3<float>{}));
    EXPECT_EQ(lens.lens_shift, (Vec2<float>{}));
    EXPECT_EQ(lens.focal_depth, 10.0f);
    EXPECT_EQ(lens.focus_type, ThinLensMessage::kFocusOnTarget);
    EXPECT_EQ(lens.clip_depth, 0.0f);
}

TEST(CameraMessageTest, AnEmptyPanoramicMessageTakesAllFallbacks) {
    const PanoramicMessage lens(WithFilters("panoLeftFilter", "panoRightFilter"));
    EXPECT_EQ(lens.fov_x, 35.0f);
    EXPECT_EQ(lens.fov_y, 60.0f);
    EXPECT_EQ(lens.mode, 0);
    EXPECT_EQ(lens.clip_depth, 0.001f);
    EXPECT_EQ(lens.stereo_output, 0);
    EXPECT_EQ(lens.eye_distance, 0.065f);
    EXPECT_EQ(lens.eye_falloff, 0.3f);
    EXPECT_EQ(lens.blackout_latitude, 90.0f);
    EXPECT_EQ(lens.left_filter, (Vec3<float>{}));
    EXPECT_EQ(lens.right_filter, (Vec3<float>{}));
}

TEST(CameraMessageTest, KeysThatOnlyTheScriptLayerKnowsAreNotRead) {
    Json::Value message = WithFilters("leftFilter", "rightFilter");
    message["nearClipDepth"] = 5.0;
    message["aperture_edge"] = 3.0;
    message["scale"] = "none";
    const ThinLensMessage lens(message);
    EXPECT_EQ(lens.clip_depth, 0.0f);
    EXPECT_EQ(lens.aperture_edge, 1.0f);
}

/// Every key of a message, with a text in its place where a number, a bool or an object belongs.
template <typename Message>
void ExpectEveryKeyToRefuseText(const Json::Value& good, const std::vector<std::string>& keys) {
    EXPECT_NO_THROW(Message{good});
    for (const std::string& key : keys) {
        Json::Value bad = good;
        bad[key] = "text";
        EXPECT_THROW(Message{bad}, Json::LogicError) << key;
    }
}

TEST(CameraMessageTest, AValueOfTheWrongKindIsALogicErrorAtEveryKey) {
    ExpectEveryKeyToRefuseText<ThinLensMessage>(
        WithFilters("leftFilter", "rightFilter"),
        {"fov", "distortion", "aperture", "apertureEdge", "pixelAspectRatio", "apertureAspectRatio",
         "perspectiveCorrection", "stereoMode", "stereoOutput", "stereoDist", "leftFilter", "rightFilter", "lensShiftX",
         "lensShiftY", "focalDepth", "focusType", "lensClipDepth"});
    ExpectEveryKeyToRefuseText<PanoramicMessage>(
        WithFilters("panoLeftFilter", "panoRightFilter"),
        {"fovx", "fovy", "mode", "panoClipDepth", "panoStereoOutput", "panoEyeDist", "panoEyeFalloff",
         "panoBlackoutLatitude", "panoLeftFilter", "panoRightFilter"});
}

TEST(CameraMessageTest, AMessageWithoutItsFiltersIsALogicError) {
    EXPECT_THROW(ThinLensMessage(Json::Value(Json::objectValue)), Json::LogicError);
    EXPECT_THROW(PanoramicMessage(Json::Value(Json::objectValue)), Json::LogicError);
}

}  // namespace
}  // namespace Velmar
