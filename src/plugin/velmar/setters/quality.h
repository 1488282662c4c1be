// Owns the picture's size and the number of samples; the host's viewport size arrives here. The size stands on a film
// node of the render target, where the camera reads it back. Ruby thread only.
#pragma once

#include <string>

namespace Velmar {

/// Static functions over one process-wide state. Sizes are pixels, capped at 1000 by 600 from above only.
class QualitySetter {
public:
    /// Resets everything, the viewport size too, and applies the default settings.
    static void Init();
    /// Applies a message, JSON text. A text that cannot be parsed is logged and changes nothing.
    static void Set(const std::string& json);
    /// Records the size of the host's viewport, and follows it when the size type says so. True when the film changed.
    static bool SetSketchupExtents(int width, int height);
};

}  // namespace Velmar
