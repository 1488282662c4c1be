// The Ruby commands of the model mirror. Free of Ruby itself, so that the manager below the surface can ask for them.
#pragma once

namespace Velmar {

class SketchupManagerExt {
public:
    /// Defines the classes ExtStream and ExtUtils and the mirror's commands of VelmarExt.
    static void Init();
};

}  // namespace Velmar
