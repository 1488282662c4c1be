// The Ruby class ExtDefinition. Free of Ruby itself, so that whoever starts the plug-in can ask for it.
#pragma once

namespace Velmar {

class DefinitionExt {
public:
    /// Defines the class with its commands.
    static void Init();
};

}  // namespace Velmar
