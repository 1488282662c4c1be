// Ruby glue of SuMaterial: the class ExtMaterial.
#pragma once

namespace Velmar {

class SuMaterialExt {
public:
    /// Defines ExtMaterial with its commands.
    static void Init();
};

}  // namespace Velmar
