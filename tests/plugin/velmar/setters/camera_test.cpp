#include "plugin/velmar/setters/camera.h"

#include <json/value.h>

#include <cmath>
#include <limits>

#include "plugin/utils/message.h"
#include "plugin/velmar/render_control_test.h"
#include "plugin/velmar/setters/camera_message.h"

namespace Velmar {
namespace {

using Lines = std::vector<std::string>;

class CameraTest : public RenderControlTest {
protected:
    static Json::Value ThinLens() {
        Json::Value message;
        message["type"] = 0;
        message["leftFilter"] = Json::Value(Json::objectValue);
        message["rightFilter"] = Json::Value(Json::objectValue);
        return message;
    }
    static Json::Value Panoramic() {
        Json::Value message;
        message["type"] = 1;
        message["panoLeftFilter"] = Json::Value(Json::objectValue);
        message["panoRightFilter"] = Json::Value(Json::objectValue);
        return message;
    }
    static void Apply(const Json::Value& message) { CameraSetter::Set(Message::JsonToString(message)); }
    static void ApplyWith(Json::Value message, const char* key, const Json::Value& value) {
        message[key] = value;
        Apply(message);
    }
    /// The camera in full, as the record of its pins: what a message that changes nothing must leave alone.
    static std::string Snapshot() {
        std::ostringstream out;
        ApiNode& camera = *Camera();
        out << camera.type();
        for (const PinId pin : {PIN_POSITION, PIN_TARGET, PIN_UP, PIN_STEREO_FILTER_LEFT, PIN_STEREO_FILTER_RIGHT}) {
            const Vec3<float> value = camera.getPinFloat3(pin);
            out << ' ' << value.x << ' ' << value.y << ' ' << value.z;
        }
        for (const PinId pin : {PIN_FOV, PIN_APERTURE, PIN_DISTORTION, PIN_NEAR_CLIP_DEPTH, PIN_FOCAL_DEPTH}) {
            out << ' ' << camera.getPinFloat(pin);
        }
        return out.str();
    }
};

// The messages, row by row.

struct FloatRow {
    const char* key;
    PinId pin;
    float fallback;
    double value;
};

TEST_F(CameraTest, ThinLensNumbersGoToTheirPins) {
    for (const FloatRow& row : {FloatRow{"distortion", PIN_DISTORTION, 0.0f, 0.25},
                                {"aperture", PIN_APERTURE, 0.0f, 1.5},
                                {"apertureEdge", PIN_APERTURE_EDGE, 1.0f, 2.5},
                                {"pixelAspectRatio", PIN_PIXEL_ASPECT_RATIO, 1.0f, 0.75},
                                {"apertureAspectRatio", PIN_APERTURE_ASPECT_RATIO, 1.0f, 1.25},
                                {"stereoDist", PIN_STEREO_DISTANCE, 0.02f, 0.5},
                                {"lensClipDepth", PIN_NEAR_CLIP_DEPTH, 0.0f, 0.125}}) {
        ApplyWith(ThinLens(), row.key, row.value);
        EXPECT_EQ(Camera()->getPinFloat(row.pin), static_cast<float>(row.value)) << row.key;
        Apply(ThinLens());
        EXPECT_EQ(Camera()->getPinFloat(row.pin), row.fallback) << row.key;
    }
}

TEST_F(CameraTest, ThinLensSwitchesGoToTheirPins) {
    ApplyWith(ThinLens(), "stereoMode", 2);
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_MODE), 2);
    ApplyWith(ThinLens(), "stereoOutput", 4);
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_OUTPUT), 4);
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_MODE), 1);
    ApplyWith(ThinLens(), "perspectiveCorrection", true);
    EXPECT_TRUE(Camera()->getPinBool(PIN_PERSPECTIVE_CORRECTION));
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_OUTPUT), 0);
    Apply(ThinLens());
    EXPECT_FALSE(Camera()->getPinBool(PIN_PERSPECTIVE_CORRECTION));
}

TEST_F(CameraTest, ThinLensFiltersGoToTheirPins) {
    Json::Value message = ThinLens();
    message["leftFilter"]["x"] = 0.5;
    message["leftFilter"]["z"] = 0.25;
    message["rightFilter"]["y"] = 0.75;
    Apply(message);
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_LEFT), (Vec3<float>{0.5f, 0.0f, 0.25f}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_RIGHT), (Vec3<float>{0.0f, 0.75f, 0.0f}));
}

TEST_F(CameraTest, ThinLensShiftIsOneVector) {
    Json::Value message = ThinLens();
    message["lensShiftX"] = 0.125;
    message["lensShiftY"] = -0.25;
    const Lines operations = Operations([&] { Apply(message); });
    EXPECT_THAT(operations, testing::Contains(testing::HasSubstr("0.125")));
    EXPECT_EQ(Count(Steps([&] { Apply(message); }), "setPinValue 95"), 1u);
    ApiNode* const shift = Camera()->inputNode(PIN_LENS_SHIFT);
    ASSERT_NE(shift, nullptr);
    EXPECT_EQ(shift->getFloat2(ATTR_VALUE), (Vec2<float>{0.125f, -0.25f}));
}

TEST_F(CameraTest, ThinLensFieldOfViewIsWidenedByTheFilm) {
    ApplyWith(ThinLens(), "fov", 50.0);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV), CameraSetter::FixFov(50.0f));
    Apply(ThinLens());
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV), CameraSetter::FixFov(35.0f));
}

TEST_F(CameraTest, ThinLensPinsAreWrittenInThisOrder) {
    Apply(ThinLens());
    EXPECT_EQ(Steps([&] { Apply(ThinLens()); }),
              (Lines{"setPinValue 8", "setPinValue 35", "setPinValue 10", "setPinValue 116", "setPinValue 132",
                     "setPinValue 9", "setPinValue 130", "setPinValue 227", "setPinValue 228", "setPinValue 224",
                     "setPinValue 93", "setPinValue 200", "setPinValue 95", "setPinValue 12", "setPinValue 51",
                     "setPinValue 127", "setPinValue 53"}));
}

TEST_F(CameraTest, PanoramicNumbersGoToTheirPins) {
    for (const FloatRow& row : {FloatRow{"fovx", PIN_FOV_X, 35.0f, 120.0},
                                {"fovy", PIN_FOV_Y, 60.0f, 90.0},
                                {"panoClipDepth", PIN_NEAR_CLIP_DEPTH, 0.001f, 0.125},
                                {"panoEyeDist", PIN_STEREO_DISTANCE, 0.065f, 0.5},
                                {"panoEyeFalloff", PIN_STEREO_DISTANCE_FALLOFF, 0.3f, 0.75},
                                {"panoBlackoutLatitude", PIN_BLACKOUT_LATITUDE, 90.0f, 45.0}}) {
        ApplyWith(Panoramic(), row.key, row.value);
        EXPECT_EQ(Camera()->getPinFloat(row.pin), static_cast<float>(row.value)) << row.key;
        Apply(Panoramic());
        EXPECT_EQ(Camera()->getPinFloat(row.pin), row.fallback) << row.key;
    }
}

TEST_F(CameraTest, PanoramicSwitchesAndFiltersGoToTheirPins) {
    Json::Value message = Panoramic();
    message["mode"] = 2;
    message["panoStereoOutput"] = 1;
    message["panoLeftFilter"]["y"] = 0.5;
    message["panoRightFilter"]["x"] = 0.25;
    Apply(message);
    EXPECT_EQ(Camera()->getPinInt(PIN_PANORAMA_MODE), 2);
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_OUTPUT), 1);
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_LEFT), (Vec3<float>{0.0f, 0.5f, 0.0f}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_RIGHT), (Vec3<float>{0.25f, 0.0f, 0.0f}));
    Apply(Panoramic());
    EXPECT_EQ(Camera()->getPinInt(PIN_PANORAMA_MODE), 0);
    EXPECT_EQ(Camera()->getPinInt(PIN_STEREO_OUTPUT), 0);
}

TEST_F(CameraTest, PanoramicPinsAreWrittenInThisOrder) {
    Apply(Panoramic());
    EXPECT_EQ(Steps([&] { Apply(Panoramic()); }),
              (Lines{"setPinValue 20", "setPinValue 116", "setPinValue 54", "setPinValue 55", "setPinValue 228",
                     "setPinValue 224", "setPinValue 225", "setPinValue 226", "setPinValue 93", "setPinValue 200"}));
}

TEST_F(CameraTest, EveryPinIsWrittenWithEvaluation) {
    for (const Json::Value& message : {ThinLens(), Panoramic()}) {
        for (const std::string& line : Operations([&] { Apply(message); })) {
            if (line.starts_with("setPinValue")) {
                EXPECT_THAT(line, testing::EndsWith(" true"));
            }
        }
    }
}

// Focus.

TEST_F(CameraTest, FocusTypeZeroFocusesOnTheTarget) {
    CameraSetter::SetPosition({1, 2, 3}, {4, 6, 15}, {0, 1, 0});
    ApplyWith(ThinLens(), "focalDepth", 77.0);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOCAL_DEPTH), 13.0f);
    EXPECT_FALSE(Camera()->getPinBool(PIN_AUTOFOCUS));
}

TEST_F(CameraTest, FocusTypeOneFocusesAtTheDepth) {
    Json::Value message = ThinLens();
    message["focusType"] = 1;
    Apply(message);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOCAL_DEPTH), 10.0f) << "the fallback";
    ApplyWith(message, "focalDepth", 3.5);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOCAL_DEPTH), 3.5f);
    EXPECT_FALSE(Camera()->getPinBool(PIN_AUTOFOCUS));
}

TEST_F(CameraTest, FocusTypeTwoLeavesFocusToTheRenderer) {
    Json::Value message = ThinLens();
    message["focusType"] = 2;
    message["focalDepth"] = 3.5;
    const Lines steps = Steps([&] { Apply(message); });
    EXPECT_EQ(Count(steps, "setPinValue 12"), 1u);
    EXPECT_EQ(Count(steps, "setPinValue 51"), 0u);
    EXPECT_TRUE(Camera()->getPinBool(PIN_AUTOFOCUS));
}

TEST_F(CameraTest, DefaultsAskForAutofocusWhereAMissingKeyFocusesOnTheTarget) {
    CameraSetter::SetDefaults();
    EXPECT_TRUE(Camera()->getPinBool(PIN_AUTOFOCUS));
    Apply(ThinLens());
    EXPECT_FALSE(Camera()->getPinBool(PIN_AUTOFOCUS));
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOCAL_DEPTH), 50.0f);
}

// Life of the node.

TEST_F(CameraTest, ACameraOfTheRightTypeIsKept) {
    ApiNode* const camera = Camera();
    Apply(ThinLens());
    EXPECT_EQ(Camera(), camera);
}

TEST_F(CameraTest, ANewCameraTakesTheCurrentViewBeforeItsLens) {
    CameraSetter::SetPosition({1, 2, 3}, {4, 5, 6}, {0, 0, 1});
    const Lines to_panoramic = Steps([&] { Apply(Panoramic()); });
    ASSERT_GE(to_panoramic.size(), 5u);
    EXPECT_EQ(Lines(to_panoramic.begin(), to_panoramic.begin() + 5),
              (Lines{"createInternal 19", "setPinValue 133", "setPinValue 235", "setPinValue 248", "setPinValue 20"}));
    EXPECT_EQ(Camera()->type(), NODE_PANORAMIC_CAMERA);
    EXPECT_EQ(Camera()->getPinFloat3(PIN_POSITION), (Vec3<float>{1, 2, 3}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_TARGET), (Vec3<float>{4, 5, 6}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_UP), (Vec3<float>{0, 0, 1}));

    const Lines to_thin_lens = Steps([&] { Apply(ThinLens()); });
    ASSERT_GE(to_thin_lens.size(), 5u);
    EXPECT_EQ(Lines(to_thin_lens.begin(), to_thin_lens.begin() + 5),
              (Lines{"createInternal 19", "setPinValue 133", "setPinValue 235", "setPinValue 248", "setPinValue 8"}));
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
    EXPECT_EQ(Camera()->getPinFloat3(PIN_POSITION), (Vec3<float>{1, 2, 3}));
}

TEST_F(CameraTest, DefaultsComeBackFromAnyState) {
    CameraSetter::SetView(12.0f, true);
    Apply(Panoramic());
    CameraSetter::SetDefaults();
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
    EXPECT_FALSE(Camera()->getPinBool(PIN_ORTHOGRAPHIC));
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV), CameraSetter::FixFov(35.0f));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_LEFT), (Vec3<float>{1.0f, 0.0f, 0.812f}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_STEREO_FILTER_RIGHT), (Vec3<float>{0.0f, 1.0f, 0.188f}));
    EXPECT_EQ(Camera()->getPinFloat(PIN_STEREO_DISTANCE), 0.02f);

    CameraSetter::SetView(1.0f, true);
    CameraSetter::SetDefaults();
    EXPECT_FALSE(CameraSetter::SetView(35.0f, false)) << "the projection is perspective again";
    Apply(Panoramic());
    CameraSetter::SetView(1.0f, false);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV_X), 35.0f);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV_Y), 60.0f);
}

TEST_F(CameraTest, DefaultsReachAPanoramicCameraThatComesWithItsRenderTarget) {
    Json::Value message = Panoramic();
    message["fovx"] = 120.0;
    message["fovy"] = 80.0;
    Apply(message);
    CameraSetter::SetDefaults();
    ApiNode* const camera = ApiNode::create(NODE_PANORAMIC_CAMERA, ApiProjectManager::rootNodeGraph(), true);
    camera->setPinValue(PIN_FOV_X, 11.0f, true);
    camera->setPinValue(PIN_FOV_Y, 12.0f, true);
    CameraSetter::SetNode(camera);
    CameraSetter::SetView(1.0f, false);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV_X), 35.0f);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV_Y), 60.0f);
}

TEST_F(CameraTest, SetNodeOnlyNotesThePointer) {
    EXPECT_EQ(Steps([] { CameraSetter::SetNode(nullptr); }), Lines{});
    EXPECT_FALSE(CameraSetter::SetPosition({0, 0, 0}, {1, 0, 0}, {0, 1, 0}));
    CameraSetter::SetNode(Camera());
    EXPECT_TRUE(CameraSetter::SetPosition({0, 0, 0}, {1, 0, 0}, {0, 1, 0}));
}

// Messages that say nothing or something wrong.

TEST_F(CameraTest, AnUnreadableTextChangesNothing) {
    const std::string before = Snapshot();
    const ErrorLog errors;
    EXPECT_EQ(Steps([] { CameraSetter::Set("{\"type\": 1"); }), Lines{});
    EXPECT_EQ(errors.lines, Lines{"Failed to parse string {\"type\": 1"});
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(CameraTest, AnUnknownTypeChangesNothing) {
    const ErrorLog errors;
    EXPECT_EQ(Steps([] { CameraSetter::Set(R"({"type": 2})"); }), Lines{});
    EXPECT_EQ(Steps([] { CameraSetter::Set(R"({"type": -1})"); }), Lines{});
    EXPECT_EQ(errors.lines, (Lines{"Error: Undefined Camera Type", "Error: Undefined Camera Type"}));
}

TEST_F(CameraTest, AMissingTypeIsAThinLens) {
    Json::Value message = ThinLens();
    message.removeMember("type");
    Apply(Panoramic());
    Apply(message);
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
}

TEST_F(CameraTest, TheCommandTagIsNeverRead) {
    ApplyWith(ThinLens(), "cmd", "anything");
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
}

TEST_F(CameraTest, ANullMessageDoesNothing) {
    EXPECT_EQ(Steps([] { CameraSetter::Set("null"); }), Lines{});
    EXPECT_EQ(Steps([] { CameraSetter::SetThinLens(Json::Value()); }), Lines{});
    EXPECT_EQ(Steps([] { CameraSetter::SetPanoramic(Json::Value()); }), Lines{});
}

TEST_F(CameraTest, AMessageThatFailsLeavesNoHalfWrittenCamera) {
    ApplyWith(ThinLens(), "fov", 44.0);
    const std::string before = Snapshot();
    ApiNode* const camera = Camera();

    Json::Value without_filter = Panoramic();
    without_filter.removeMember("panoRightFilter");
    without_filter["fovx"] = 99.0;
    EXPECT_EQ(Steps([&] { EXPECT_THROW(Apply(without_filter), Json::LogicError); }), Lines{});
    Json::Value wrong_kind = ThinLens();
    wrong_kind["fov"] = 99.0;
    wrong_kind["lensClipDepth"] = "near";
    EXPECT_EQ(Steps([&] { EXPECT_THROW(Apply(wrong_kind), Json::LogicError); }), Lines{});
    EXPECT_THROW(CameraSetter::Set(R"({"type": "thin"})"), Json::LogicError);
    EXPECT_THROW(CameraSetter::Set("[]"), Json::LogicError);

    EXPECT_EQ(Camera(), camera);
    EXPECT_EQ(Snapshot(), before);
    EXPECT_FALSE(CameraSetter::SetView(44.0f, false)) << "the field of view that was kept is still 44";
    Apply(Panoramic());
    CameraSetter::SetView(1.0f, false);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV_X), 35.0f);

    EXPECT_EQ(Steps([&] { EXPECT_THROW(Apply(wrong_kind), Json::LogicError); }), Lines{});
    EXPECT_EQ(Camera()->type(), NODE_PANORAMIC_CAMERA);
}

TEST_F(CameraTest, WithoutARenderTargetAMessageIsRememberedAndWrittenNowhere) {
    const auto nodes = RenderTargets::Shared().nodes;
    RenderTargets::Shared().nodes.clear();
    EXPECT_EQ(Steps([] { ApplyWith(ThinLens(), "fov", 20.0); }), Lines{});
    EXPECT_EQ(Steps([] { Apply(Panoramic()); }), Lines{});
    RenderTargets::Shared().nodes = nodes;
}

// The host's view.

TEST_F(CameraTest, APositionGoesToTheCamera) {
    EXPECT_EQ(Steps([] {
                  EXPECT_TRUE(CameraSetter::SetPosition({1, 2, 3}, {4, 5, 6}, {0, 0, 1}));
              }),
              (Lines{"setPinValue 133", "setPinValue 235", "setPinValue 248"}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_POSITION), (Vec3<float>{1, 2, 3}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_TARGET), (Vec3<float>{4, 5, 6}));
    EXPECT_EQ(Camera()->getPinFloat3(PIN_UP), (Vec3<float>{0, 0, 1}));
}

TEST_F(CameraTest, APositionWithoutCameraComesThroughWithTheNextOne) {
    CameraSetter::SetNode(nullptr);
    EXPECT_EQ(Steps([] { EXPECT_FALSE(CameraSetter::SetPosition({7, 8, 9}, {1, 1, 1}, {1, 0, 0})); }), Lines{});
    Apply(Panoramic());
    EXPECT_EQ(Camera()->getPinFloat3(PIN_POSITION), (Vec3<float>{7, 8, 9}));
}

TEST_F(CameraTest, AMovingParallelCameraRefreshesItsScale) {
    CameraSetter::SetView(30.0f, true);
    SetFilm(400, 200);
    EXPECT_EQ(Steps([] {
                  CameraSetter::SetPosition({1, 2, 3}, {4, 5, 6}, {0, 1, 0});
              }),
              (Lines{"setPinValue 133", "setPinValue 235", "setPinValue 248", "setPinValue 209"}));
    EXPECT_EQ(Camera()->getPinFloat(PIN_ORTHOGRAPHIC_SCALE), 60.0f);
}

TEST_F(CameraTest, AMovingPanoramicCameraHasNoScale) {
    CameraSetter::SetView(30.0f, true);
    Apply(Panoramic());
    EXPECT_EQ(Steps([] { CameraSetter::SetPosition({1, 2, 3}, {4, 5, 6}, {0, 1, 0}); }).size(), 3u);
}

TEST_F(CameraTest, ANewFieldOfViewCountsAsChange) {
    EXPECT_EQ(Steps([] { EXPECT_TRUE(CameraSetter::SetView(50.0f, false)); }), Lines{"setPinValue 53"});
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV), CameraSetter::FixFov(50.0f));
}

TEST_F(CameraTest, TheSameFieldOfViewIsNoChangeAndIsWrittenAllTheSame) {
    EXPECT_EQ(Steps([] { EXPECT_FALSE(CameraSetter::SetView(35.0f, false)); }), Lines{"setPinValue 53"});
}

TEST_F(CameraTest, AFieldOfViewThatIsNoNumberCountsAsChangeEachTime) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(CameraSetter::SetView(nan, false));
    EXPECT_TRUE(CameraSetter::SetView(nan, false));
    EXPECT_TRUE(CameraSetter::SetView(35.0f, false));
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV), CameraSetter::FixFov(35.0f));
}

TEST_F(CameraTest, AChangeOfProjectionIsWrittenOnce) {
    EXPECT_EQ(Steps([] { EXPECT_TRUE(CameraSetter::SetView(30.0f, true)); }),
              (Lines{"setPinValue 127", "setPinValue 209"}));
    EXPECT_TRUE(Camera()->getPinBool(PIN_ORTHOGRAPHIC));
    EXPECT_EQ(Camera()->getPinFloat(PIN_ORTHOGRAPHIC_SCALE), CameraSetter::FixScale(30.0f));

    EXPECT_EQ(Steps([] { EXPECT_FALSE(CameraSetter::SetView(40.0f, true)); }), Lines{"setPinValue 209"})
        << "an extent alone is no change, and is written";
    EXPECT_EQ(Camera()->getPinFloat(PIN_ORTHOGRAPHIC_SCALE), CameraSetter::FixScale(40.0f));

    EXPECT_EQ(Steps([] { EXPECT_TRUE(CameraSetter::SetView(35.0f, false)); }),
              (Lines{"setPinValue 127", "setPinValue 53"}));
    EXPECT_FALSE(Camera()->getPinBool(PIN_ORTHOGRAPHIC));
}

TEST_F(CameraTest, APanoramicCameraKeepsItsOwnAngles) {
    Json::Value message = Panoramic();
    message["fovx"] = 120.0;
    message["fovy"] = 80.0;
    Apply(message);
    EXPECT_EQ(Steps([] { EXPECT_FALSE(CameraSetter::SetView(50.0f, false)); }),
              (Lines{"setPinValue 54", "setPinValue 55"}));
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV_X), 120.0f);
    EXPECT_EQ(Camera()->getPinFloat(PIN_FOV_Y), 80.0f);
}

TEST_F(CameraTest, ParallelProjectionTurnsAPanoramicCameraIntoTheLastThinLens) {
    ApplyWith(ThinLens(), "distortion", 0.5);
    Apply(Panoramic());
    EXPECT_TRUE(CameraSetter::SetView(99.0f, true));
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
    EXPECT_EQ(Camera()->getPinFloat(PIN_DISTORTION), 0.5f);
    EXPECT_TRUE(Camera()->getPinBool(PIN_ORTHOGRAPHIC));
    EXPECT_EQ(Camera()->getPinFloat(PIN_ORTHOGRAPHIC_SCALE), CameraSetter::FixScale(214.0f)) << "99 is dropped";

    EXPECT_TRUE(CameraSetter::SetView(35.0f, false));
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA) << "the panoramic camera comes back only with a message";

    Apply(Panoramic());
    CameraSetter::SetView(1.0f, true);
    Apply(Panoramic());
    EXPECT_TRUE(CameraSetter::SetView(1.0f, true)) << "a change, though the projection was parallel already";
}

TEST_F(CameraTest, ACameraOfAnotherTypeOnlyNotesTheProjection) {
    for (ApiNode* const other : {static_cast<ApiNode*>(nullptr), Target()}) {
        CameraSetter::Init();
        CameraSetter::SetNode(other);
        EXPECT_EQ(Steps([] {
                      EXPECT_TRUE(CameraSetter::SetView(10.0f, true));
                      EXPECT_FALSE(CameraSetter::SetView(20.0f, true));
                      CameraSetter::UpdateFov();
                  }),
                  Lines{});
    }
}

// Film and angles.

TEST_F(CameraTest, TheFieldOfViewIsWidenedByTheAspectRatio) {
    SetFilm(1000, 500);
    const float half_tangent = std::tan(CameraSetter::FixFov(35.0f) * 0.5f * 3.1415927f / 180.0f);
    EXPECT_NEAR(half_tangent, 2.0f * std::tan(17.5f * 3.1415927f / 180.0f), 1e-5f);
    EXPECT_NEAR(CameraSetter::FixFov(35.0f), 64.47f, 0.01f);
}

TEST_F(CameraTest, TheFieldOfViewIsComputedInSinglePrecisionInThisOrder) {
    SetFilm(853, 479);
    for (float fov = 1.0f; fov < 179.0f; fov += 0.37f) {
        const float a = fov * 0.5f * 3.1415927f / 180.0f;
        const float t = tanf(a) * 853.0f / 479.0f;
        const float d = atanf(t) * 180.0f / 3.1415927f;
        ASSERT_EQ(CameraSetter::FixFov(fov), d + d) << fov;
    }
}

TEST_F(CameraTest, ASquareFilmKeepsTheFieldOfView) {
    SetFilm(512, 512);
    for (const float fov : {1.0f, 20.0f, 35.0f, 90.0f, 150.0f})
        EXPECT_NEAR(CameraSetter::FixFov(fov), fov, 1e-4f * fov);
}

TEST_F(CameraTest, ScaleIsTheExtentTimesTheAspectRatio) {
    SetFilm(1000, 500);
    EXPECT_EQ(CameraSetter::FixScale(3.0f), 6.0f);
    SetFilm(300, 600);
    EXPECT_EQ(CameraSetter::FixScale(3.0f), 1.5f);
}

TEST_F(CameraTest, FilmsOfNoOrNegativeSizeDoNoHarm) {
    for (const Vec2<int> size : {Vec2<int>{0, 0}, {100, 0}, {0, 100}, {-10, 20}}) {
        SetFilm(size.x, size.y);
        CameraSetter::UpdateFov();
        CameraSetter::SetView(10.0f, true);
        CameraSetter::SetView(10.0f, false);
    }
    SetFilm(100, 100);
    CameraSetter::SetView(35.0f, false);
    EXPECT_NEAR(Camera()->getPinFloat(PIN_FOV), 35.0f, 1e-3f);
}

TEST_F(CameraTest, AFilmNodeThatIsConnectedFromOutsideCounts) {
    ApiNode* const film = ApiNode::create(NODE_FILM_SETTINGS, ApiProjectManager::rootNodeGraph(), true);
    film->setPinValue(PIN_RESOLUTION, Vec2<int>{300, 100}, true);
    Target()->connectTo(PIN_FILM_SETTINGS, film, true, false);
    EXPECT_EQ(CameraSetter::FixScale(2.0f), 6.0f);
}

// Ray epsilon.

TEST_F(CameraTest, RayEpsilonGrowsWithDistanceAndFieldOfView) {
    SetFilm(512, 512);
    CameraSetter::SetPosition({0, 0, 0}, {0, 0, 1000}, {0, 1, 0});
    CameraSetter::SetView(90.0f, false);
    const float fov = Camera()->getPinFloat(PIN_FOV);
    EXPECT_FLOAT_EQ(CameraSetter::GetRayEpsilon(Target()), 1000.0f * std::sqrt(fov * 3.1415927f / 180.0f) * 1e-6f);

    ApplyWith(Panoramic(), "fovx", 180.0);
    EXPECT_FLOAT_EQ(CameraSetter::GetRayEpsilon(Target()), 1000.0f * std::sqrt(3.1415927f) * 1e-6f);
}

TEST_F(CameraTest, WithoutCameraThereIsNoRayEpsilon) {
    ApiNode* const target = ApiNode::create(NODE_RENDER_TARGET, ApiProjectManager::rootNodeGraph(), true);
    target->connectTo(PIN_CAMERA, nullptr, true, false);
    EXPECT_EQ(CameraSetter::GetRayEpsilon(target), -1.0f);
    EXPECT_EQ(CameraSetter::GetRayEpsilon(nullptr), -1.0f);
}

TEST_F(CameraTest, RayEpsilonHasLimits) {
    CameraSetter::SetPosition({5, 5, 5}, {5, 5, 5}, {0, 1, 0});
    EXPECT_EQ(CameraSetter::GetRayEpsilon(Target()), 0.000001f);
    CameraSetter::SetPosition({0, 0, 0}, {1000000, 0, 0}, {0, 1, 0});
    EXPECT_EQ(CameraSetter::GetRayEpsilon(Target()), 0.1f);
}

}  // namespace
}  // namespace Velmar
