// The Ruby commands of render control. Free of Ruby itself, so that the manager below the surface can ask for them.
#pragma once

namespace Velmar {

class VelmarManagerExt {
public:
    /// Defines the render commands of VelmarExt and the classes ExtDefinition, ExtEntity, ExtInstance and ExtMaterial.
    static void Init();
};

}  // namespace Velmar
