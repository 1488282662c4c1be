// Owner of the render-side material tables. Ruby thread only.
#pragma once

namespace Velmar {

class MaterialManager {
public:
    /// Defines the Ruby class of material commands. Always true.
    static bool Init();
    /// Forgets all materials; their nodes end with the SDK.
    static void Cleanup();
};

}  // namespace Velmar
