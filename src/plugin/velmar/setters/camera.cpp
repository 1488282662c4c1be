#include "plugin/velmar/setters/camera.h"

#include <velmar/node.h>

#include <glog/logging.h>
#include <json/value.h>

#include <algorithm>
#include <cmath>

#include "plugin/utils/message.h"
#include "plugin/velmar/setters/camera_message.h"
#include "plugin/velmar/setters/setter_message.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

constexpr float kPi = 3.1415927f;
constexpr float kDefaultFov = 35.0f;
constexpr float kDefaultScale = 214.0f;
constexpr float kDefaultFovX = 35.0f;
constexpr float kDefaultFovY = 60.0f;

ApiNode* camera_ = nullptr;
Vec3<float> pos_{0.0f, 0.0f, -50.0f};
Vec3<float> target_{0.0f, 0.0f, 0.0f};
Vec3<float> up_{0.0f, 1.0f, 0.0f};
float fov_ = kDefaultFov;
float scale_ = kDefaultScale;
float fovx_ = kDefaultFovX;
float fovy_ = kDefaultFovY;
bool orthographic_ = false;

/// The last messages that were applied.
Json::Value thinlens_;
Json::Value panoramic_;

float Distance(const Vec3<float>& a, const Vec3<float>& b) {
    const float x = a.x - b.x;
    const float y = a.y - b.y;
    const float z = a.z - b.z;
    return std::sqrt(x * x + y * y + z * z);
}

/// Width and height of the film in pixels, as the film node has them, else the render target itself.
Vec2<float> FilmSize() {
    ApiNode* const target = VelmarManager::RenderTarget();
    if (target == nullptr) return {};
    const ApiNode* const film = target->connectedNode(PIN_FILM_SETTINGS);
    const Vec2<int> size = (film != nullptr ? film : target)->getPinInt2(PIN_RESOLUTION);
    return {static_cast<float>(size.x), static_cast<float>(size.y)};
}

bool CameraIs(NodeType type) {
    return camera_ != nullptr && camera_->type() == type;
}

void WriteView() {
    camera_->setPinValue(PIN_POSITION, pos_, true);
    camera_->setPinValue(PIN_TARGET, target_, true);
    camera_->setPinValue(PIN_UP, up_, true);
}

/// Takes the render target's camera, or gives the render target one of `type` with the current view.
void TakeCamera(NodeType type) {
    ApiNode* const target = VelmarManager::RenderTarget();
    camera_ = target != nullptr ? target->inputNode(PIN_CAMERA) : nullptr;
    if (target == nullptr || CameraIs(type)) return;
    camera_ = target->createInternal(PIN_CAMERA, type, true, true);
    if (camera_ != nullptr) WriteView();
}

void WriteLens(const ThinLensMessage& lens) {
    camera_->setPinValue(PIN_APERTURE, lens.aperture, true);
    camera_->setPinValue(PIN_DISTORTION, lens.distortion, true);
    camera_->setPinValue(PIN_APERTURE_EDGE, lens.aperture_edge, true);
    camera_->setPinValue(PIN_NEAR_CLIP_DEPTH, lens.clip_depth, true);
    camera_->setPinValue(PIN_PIXEL_ASPECT_RATIO, lens.pixel_aspect_ratio, true);
    camera_->setPinValue(PIN_APERTURE_ASPECT_RATIO, lens.aperture_aspect_ratio, true);
    camera_->setPinValue(PIN_PERSPECTIVE_CORRECTION, lens.perspective_correction, true);
    camera_->setPinValue(PIN_STEREO_MODE, lens.stereo_mode, true);
    camera_->setPinValue(PIN_STEREO_OUTPUT, lens.stereo_output, true);
    camera_->setPinValue(PIN_STEREO_DISTANCE, lens.stereo_distance, true);
    camera_->setPinValue(PIN_STEREO_FILTER_LEFT, lens.left_filter, true);
    camera_->setPinValue(PIN_STEREO_FILTER_RIGHT, lens.right_filter, true);
    camera_->setPinValue(PIN_LENS_SHIFT, lens.lens_shift, true);
}

void WriteFocus(const ThinLensMessage& lens) {
    const bool autofocus = lens.focus_type == ThinLensMessage::kAutofocus;
    camera_->setPinValue(PIN_AUTOFOCUS, autofocus, true);
    if (autofocus) return;
    const bool on_target = lens.focus_type == ThinLensMessage::kFocusOnTarget;
    camera_->setPinValue(PIN_FOCAL_DEPTH, on_target ? Distance(pos_, target_) : lens.focal_depth, true);
}

void WritePanorama(const PanoramicMessage& lens) {
    camera_->setPinValue(PIN_PANORAMA_MODE, lens.mode, true);
    camera_->setPinValue(PIN_NEAR_CLIP_DEPTH, lens.clip_depth, true);
    camera_->setPinValue(PIN_FOV_X, lens.fov_x, true);
    camera_->setPinValue(PIN_FOV_Y, lens.fov_y, true);
    camera_->setPinValue(PIN_STEREO_OUTPUT, lens.stereo_output, true);
    camera_->setPinValue(PIN_STEREO_DISTANCE, lens.eye_distance, true);
    camera_->setPinValue(PIN_STEREO_DISTANCE_FALLOFF, lens.eye_falloff, true);
    camera_->setPinValue(PIN_BLACKOUT_LATITUDE, lens.blackout_latitude, true);
    camera_->setPinValue(PIN_STEREO_FILTER_LEFT, lens.left_filter, true);
    camera_->setPinValue(PIN_STEREO_FILTER_RIGHT, lens.right_filter, true);
}

/// A panoramic camera has no parallel projection: it gives way to the last thin-lens camera, and otherwise keeps its
/// own angles. True when the camera was replaced.
bool SetPanoramicView(bool orthographic) {
    if (orthographic) {
        CameraSetter::SetThinLens(thinlens_);
        return true;
    }
    camera_->setPinValue(PIN_FOV_X, fovx_, true);
    camera_->setPinValue(PIN_FOV_Y, fovy_, true);
    return false;
}

/// True when the field of view changed.
bool SetThinLensView(float value, bool orthographic, bool projection_changed) {
    if (projection_changed) camera_->setPinValue(PIN_ORTHOGRAPHIC, orthographic, true);
    bool changed = false;
    if (orthographic) {
        scale_ = value;
    } else if (fov_ != value) {
        fov_ = value;
        changed = true;
    }
    CameraSetter::UpdateFov();
    return changed;
}

/// The angle that the ray epsilon grows with, in radians.
float EpsilonAngle(const ApiNode& camera) {
    switch (camera.type()) {
        case NODE_THIN_LENS_CAMERA:
            return camera.getPinFloat(PIN_FOV) * kPi / 180.0f;
        case NODE_PANORAMIC_CAMERA:
            return camera.getPinFloat(PIN_FOV_X) * kPi / 180.0f;
        default:
            return 1.57f;
    }
}

}  // namespace

void CameraSetter::Init() {
    SetDefaults();
}

void CameraSetter::SetDefaults() {
    orthographic_ = false;
    fov_ = kDefaultFov;
    scale_ = kDefaultScale;
    fovx_ = kDefaultFovX;
    fovy_ = kDefaultFovY;
    Set(Message::JsonToString(DefaultCameraMessage()));
}

void CameraSetter::Set(const std::string& json) {
    Json::Value message;
    if (!ParseSetterMessage(json, message)) return;
    switch (ReadInt(message, "type", 0)) {
        case 0:
            return SetThinLens(message);
        case 1:
            return SetPanoramic(message);
        default:
            LOG(ERROR) << "Error: Undefined Camera Type";
    }
}

void CameraSetter::SetThinLens(const Json::Value& message) {
    if (message.isNull()) return;
    const ThinLensMessage lens(message);
    TakeCamera(NODE_THIN_LENS_CAMERA);
    fov_ = lens.fov;
    if (camera_ != nullptr) {
        WriteLens(lens);
        WriteFocus(lens);
        camera_->setPinValue(PIN_ORTHOGRAPHIC, orthographic_, true);
    }
    thinlens_ = message;
    UpdateFov();
}

void CameraSetter::SetPanoramic(const Json::Value& message) {
    if (message.isNull()) return;
    const PanoramicMessage lens(message);
    TakeCamera(NODE_PANORAMIC_CAMERA);
    fovx_ = lens.fov_x;
    fovy_ = lens.fov_y;
    if (camera_ == nullptr) return;
    panoramic_ = message;
    WritePanorama(lens);
}

void CameraSetter::SetNode(ApiNode* camera) {
    camera_ = camera;
}

bool CameraSetter::SetPosition(const Vec3<float>& pos, const Vec3<float>& target, const Vec3<float>& up) {
    pos_ = pos;
    target_ = target;
    up_ = up;
    if (camera_ == nullptr) return false;
    WriteView();
    if (orthographic_ && CameraIs(NODE_THIN_LENS_CAMERA)) {
        camera_->setPinValue(PIN_ORTHOGRAPHIC_SCALE, FixScale(scale_), true);
    }
    return true;
}

bool CameraSetter::SetView(float value, bool orthographic) {
    const bool projection_changed = orthographic != orthographic_;
    orthographic_ = orthographic;
    bool view_changed = false;
    if (CameraIs(NODE_PANORAMIC_CAMERA)) {
        view_changed = SetPanoramicView(orthographic);
    } else if (CameraIs(NODE_THIN_LENS_CAMERA)) {
        view_changed = SetThinLensView(value, orthographic, projection_changed);
    }
    return projection_changed || view_changed;
}

void CameraSetter::UpdateFov() {
    if (!CameraIs(NODE_THIN_LENS_CAMERA)) return;
    if (orthographic_) {
        camera_->setPinValue(PIN_ORTHOGRAPHIC_SCALE, FixScale(scale_), true);
    } else {
        camera_->setPinValue(PIN_FOV, FixFov(fov_), true);
    }
}

float CameraSetter::FixFov(float fov) {
    const Vec2<float> film = FilmSize();
    const float half_angle = fov * 0.5f * kPi / 180.0f;
    const float half_width = std::tan(half_angle) * film.x / film.y;
    const float half_fov = std::atan(half_width) * 180.0f / kPi;
    return half_fov + half_fov;
}

float CameraSetter::FixScale(float scale) {
    const Vec2<float> film = FilmSize();
    return scale * film.x / film.y;
}

float CameraSetter::GetRayEpsilon(ApiNode* render_target) {
    const ApiNode* const camera = render_target != nullptr ? render_target->inputNode(PIN_CAMERA) : nullptr;
    if (camera == nullptr) return -1.0f;
    const float distance = Distance(camera->getPinFloat3(PIN_POSITION), camera->getPinFloat3(PIN_TARGET));
    return std::min(0.1f, std::max(1.0e-6f, distance * std::sqrt(EpsilonAngle(*camera)) * 1.0e-6f));
}

}  // namespace Velmar
