// Ruby glue of AppManager: the core methods of VelmarExt. Ruby thread only.
#pragma once

#include "plugin/ruby/value.h"

namespace Velmar {

class AppManagerExt {
public:
    /// Defines VelmarExt with debug, log and shutdown.
    static void Init();

    /// VelmarExt.debug: the message goes to the debug log. True.
    static Ruby::Value Debug(Ruby::Value self, Ruby::Value message);
    /// VelmarExt.log: the message goes to the log if messages of its level do. The level is read first, the message
    /// only when it will be written. True.
    static Ruby::Value Log(Ruby::Value self, Ruby::Value message, Ruby::Value level);
    /// VelmarExt.shutdown: the ordered stop. True.
    static Ruby::Value Shutdown(Ruby::Value self);
};

}  // namespace Velmar
