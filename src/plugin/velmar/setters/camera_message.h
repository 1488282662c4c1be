// The camera messages as plain values. Reading one throws jsoncpp's logic error on a value of the wrong kind.
#pragma once

#include <velmar/values.h>

#include <json/forwards.h>

namespace Velmar {

/// A message of "type" 0, in single precision as the camera's pins take it.
struct ThinLensMessage {
    explicit ThinLensMessage(const Json::Value& message);

    float fov;  ///< degrees, vertical
    float distortion;
    float aperture;  ///< centimetres
    float aperture_edge;
    float pixel_aspect_ratio;
    float aperture_aspect_ratio;
    bool perspective_correction;
    int stereo_mode;
    int stereo_output;
    float stereo_distance;  ///< metres
    Vec3<float> left_filter;
    Vec3<float> right_filter;
    Vec2<float> lens_shift;
    float focal_depth;  ///< metres
    int focus_type;     ///< kFocusOnTarget, kAutofocus, or any other value for the fixed depth
    float clip_depth;   ///< metres

    static constexpr int kFocusOnTarget = 0;
    static constexpr int kAutofocus = 2;
};

/// A message of "type" 1.
struct PanoramicMessage {
    explicit PanoramicMessage(const Json::Value& message);

    float fov_x;  ///< degrees
    float fov_y;  ///< degrees
    int mode;
    float clip_depth;  ///< metres
    int stereo_output;
    float eye_distance;  ///< metres
    float eye_falloff;
    float blackout_latitude;  ///< degrees
    Vec3<float> left_filter;
    Vec3<float> right_filter;
};

/// The thin-lens message that stands for all default settings. Its values differ on purpose from the fallbacks of a
/// missing key, and it holds keys that the script layer knows and no reader looks at.
Json::Value DefaultCameraMessage();

}  // namespace Velmar
