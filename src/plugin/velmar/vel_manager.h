// The render target of the current page and the run state of the render engine: the one thing through which the
// mirrored scene reaches the renderer. Knows nothing of the model's tables and nothing of Ruby. Nodes that it hands out
// are borrowed from the SDK. Everything is called from the thread that runs the host's scripts; GetRenderState and
// SetRenderState may be called from any.
#pragma once

#include <velmar/values.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace Velmar {

class ApiItem;
class ApiNode;

/// Static functions over one process-wide state. No operation reports a failure but UpdateAndRestart.
class VelmarManager {
public:
    /// The run state of the render engine, as this class last set it. It starts as Running although nothing runs, so
    /// that the first wish for Stopped reaches the engine.
    enum class StateType : int {
        Stopped = 0,  ///< no render in progress
        Paused = 1,   ///< a render is held and can be continued
        Running = 2,  ///< a render is in progress
    };

    /// A page of the host's model, by its name.
    struct Page {
        std::string name;
    };

    /// Builds the render target with all default settings and defines the Ruby commands. Always true.
    static bool Init();
    /// Throws away all render targets and builds "Default View" anew. The geometry group stays as it is: who resets the
    /// scene flushes it as well.
    static void CreateRenderTarget();
    /// Only logs: nodes end with the SDK.
    static void Cleanup();

    /// Position and target in metres, renderer axes; `up` is a direction. Always true.
    static bool SetCameraPos(const Vec3<float>& pos, const Vec3<float>& target, const Vec3<float>& up);
    /// `value` is a vertical field of view in degrees, or in parallel projection an extent in metres. Always true.
    static bool SetCameraView(float value, bool orthographic);
    /// The size of the host's viewport in pixels. Always true.
    static bool SetViewExtents(int width, int height);
    /// Has no effect. Always true.
    static bool ExportScene(const std::string& path, const std::vector<Page>& pages);

    /// The node that holds the scene's geometry; null before InitGeometryGroup and after the SDK's stop.
    static ApiNode* GeometryGroup();
    /// Makes the geometry group and connects every render target to it, when there is a render target and no group yet.
    /// A render target that comes later is not connected.
    static void InitGeometryGroup();
    /// Forgets the geometry group; the node itself lives on.
    static void FlushGeometryGroup();

    /// Makes the engine see the current render target and all pending changes, and brings a stopped or paused render
    /// back to life. False, with nothing updated, when the engine refuses the render target.
    static bool UpdateAndRestart();

    /// The render target of the current page, else the first one by page name; null when there is none and after the
    /// SDK's stop.
    static ApiNode* RenderTarget();
    /// True when `item` is one of the render targets, by address.
    static bool IsRenderTarget(const ApiItem* item);

    /// Asks the engine for a state. A wish for the state that stands, for Paused unless the engine runs, or for a value
    /// beyond the three does nothing.
    static void SetRenderState(StateType requested);
    static StateType GetRenderState();

    /// Hands each section of a scene settings document to its setter and restarts. Text that is no such document is
    /// logged and changes nothing.
    static void SetSceneSettings(const char* json);
};

/// Prints "Stopped", "Paused" or "Running", any other value as a plain integer.
std::ostream& operator<<(std::ostream& out, VelmarManager::StateType state);

}  // namespace Velmar
