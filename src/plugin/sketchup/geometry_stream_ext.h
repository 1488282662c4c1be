// The Ruby class ExtStream. Free of Ruby itself, so that whoever starts the plug-in can ask for it.
#pragma once

namespace Velmar {

class GeometryStreamExt {
public:
    /// Defines the class with its commands.
    static void Init();
};

}  // namespace Velmar
