// Ruby glue of MaterialManager: the class ExtMaterials.
#pragma once

namespace Velmar {

class MaterialManagerExt {
public:
    /// Defines ExtMaterials with its commands.
    static void Init();
};

}  // namespace Velmar
