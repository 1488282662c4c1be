#include "plugin/velmar/setters/camera_message.h"

#include <json/value.h>

#include "plugin/velmar/setters/setter_message.h"

namespace Velmar {

ThinLensMessage::ThinLensMessage(const Json::Value& message)
    : fov(ReadFloat(message, "fov", 35.0)),
      distortion(ReadFloat(message, "distortion", 0.0)),
      aperture(ReadFloat(message, "aperture", 0.0)),
      aperture_edge(ReadFloat(message, "apertureEdge", 1.0)),
      pixel_aspect_ratio(ReadFloat(message, "pixelAspectRatio", 1.0)),
      aperture_aspect_ratio(ReadFloat(message, "apertureAspectRatio", 1.0)),
      perspective_correction(ReadBool(message, "perspectiveCorrection", false)),
      stereo_mode(ReadInt(message, "stereoMode", 1)),
      stereo_output(ReadInt(message, "stereoOutput", 0)),
      stereo_distance(ReadFloat(message, "stereoDist", 0.02)),
      left_filter(ReadVector(message, "leftFilter")),
      right_filter(ReadVector(message, "rightFilter")),
      lens_shift{ReadFloat(message, "lensShiftX", 0.0), ReadFloat(message, "lensShiftY", 0.0)},
      focal_depth(ReadFloat(message, "focalDepth", 10.0)),
      focus_type(ReadInt(message, "focusType", kFocusOnTarget)),
      clip_depth(ReadFloat(message, "lensClipDepth", 0.0)) {}

PanoramicMessage::PanoramicMessage(const Json::Value& message)
    : fov_x(ReadFloat(message, "fovx", 35.0)),
      fov_y(ReadFloat(message, "fovy", 60.0)),
      mode(ReadInt(message, "mode", 0)),
      clip_depth(ReadFloat(message, "panoClipDepth", 0.001)),
      stereo_output(ReadInt(message, "panoStereoOutput", 0)),
      eye_distance(ReadFloat(message, "panoEyeDist", 0.065)),
      eye_falloff(ReadFloat(message, "panoEyeFalloff", 0.3)),
      blackout_latitude(ReadFloat(message, "panoBlackoutLatitude", 90.0)),
      left_filter(ReadVector(message, "panoLeftFilter")),
      right_filter(ReadVector(message, "panoRightFilter")) {}

Json::Value DefaultCameraMessage() {
    Json::Value message(Json::objectValue);
    message["cmd"] = 36;
    message["type"] = 0;
    message["fov"] = 35.0;
    message["distortion"] = 0.0;
    message["aperture"] = 0.0;
    message["aperture_edge"] = 1.0;
    message["stereoMode"] = 1;
    message["stereoOutput"] = 0;
    message["stereoDist"] = double{0.02f};
    message["leftFilter"] = VectorMessage(1.0, 0.0, double{0.812f});
    message["rightFilter"] = VectorMessage(0.0, 1.0, double{0.188f});
    message["lensShiftX"] = 0.0;
    message["lensShiftY"] = 0.0;
    message["focalDepth"] = 10.0;
    message["focusType"] = ThinLensMessage::kAutofocus;
    message["nearClipDepth"] = 0.1;
    message["scale"] = 0.0;
    return message;
}

}  // namespace Velmar
