// Keeps the camera of the render target in step with the host: the lens comes in messages, position and field of view
// come live from the host's view. Holds the last of both, so that a new camera node takes the current view at once and
// a change of the camera's type loses nothing. Borrows the camera node from the SDK. Ruby thread only.
#pragma once

#include <velmar/values.h>

#include <json/forwards.h>

#include <string>

namespace Velmar {

class ApiNode;

/// Static functions over one process-wide state. Lengths are metres, axes the renderer's (Y up), angles degrees.
class CameraSetter {
public:
    /// Applies the default settings.
    static void Init();
    static void SetDefaults();
    /// Applies a message, JSON text; its "type" chooses the lens: 0 thin lens, 1 panoramic. A text that cannot be
    /// parsed or an unknown type is logged and changes nothing.
    static void Set(const std::string& json);
    /// Each applies a parsed message, replacing a camera of another type. A null message does nothing.
    static void SetThinLens(const Json::Value& message);
    static void SetPanoramic(const Json::Value& message);
    /// Takes `camera` for the render target's camera, for a render target that came with a camera of its own.
    static void SetNode(ApiNode* camera);

    /// Applies the host's view. False when there is no camera yet; then the next camera starts with this view.
    static bool SetPosition(const Vec3<float>& pos, const Vec3<float>& target, const Vec3<float>& up);
    /// Applies a vertical field of view, or in parallel projection an extent in metres. True when the projection or the
    /// field of view changed; a new extent alone does not count.
    static bool SetView(float value, bool orthographic);
    /// Writes the field of view or the extent to a thin-lens camera, as the film's size asks for.
    static void UpdateFov();

    /// The horizontal angle of a picture whose vertical angle is `fov`, by the film's aspect ratio.
    static float FixFov(float fov);
    /// `scale` times width over height of the film.
    static float FixScale(float scale);
    /// The distance at which rays start for this view, between 0.000001 and 0.1 metres; -1 without a camera.
    static float GetRayEpsilon(ApiNode* render_target);
};

}  // namespace Velmar
