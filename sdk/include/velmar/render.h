// The render engine: what is rendered and whether it runs.
#pragma once

#include <velmar/export.h>

#include <cstdint>

namespace Velmar {

class ApiNode;

/// The one render engine. Each call of the run state is quiet when the engine is in that state already.
class VELMAR_SDK ApiRenderEngine {
public:
    /// Priority of the render threads among the process's threads: 0 low, 1 medium, 2 high.
    static void setRenderPriority(int priority);
    /// Chooses what is rendered. False when the node is null or no render target; then nothing changes.
    static bool setRenderTargetNode(ApiNode* node);
    /// The node in use; null when none was chosen or it was destroyed.
    static ApiNode* getRenderTargetNode();

    /// Clears the film and renders.
    static void restartRendering();
    /// Goes on after a pause; a stopped engine restarts.
    static void continueRendering();
    /// Holds the render and keeps the film.
    static void pauseRendering();
    /// Ends the render; the film stays to be looked at.
    static void stopRendering();

    enum PreviewType : std::int32_t { PREVIEW_NONE = 0, PREVIEW_BALL = 1, PREVIEW_PLANE = 2 };
    /// Renders a small image of a material into `buffer`: width * height pixels of 4 bytes, top row first, in the order
    /// red, green, blue, alpha, sRGB. `scale` is the size of the object in metres. False, and an untouched buffer, when
    /// the node is no material or a size is not positive.
    static bool previewMaterial(ApiNode* node, int width, int height, int samples, float scale,
                                PreviewType preview_type, unsigned char* buffer);
};

}  // namespace Velmar
