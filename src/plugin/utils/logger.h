// Start and end of the plug-in's message log, and the folder tree under the user's documents. The log's state is shared
// by all extensions of the host process: what another extension has started is neither started again nor ended here.
#pragma once

namespace Velmar {

class Logger {
public:
    /// Starts the log if the process has none yet, makes the folders, registers "previews" and "textures" for clean-up
    /// at exit, and sends the log to the logs folder. May be called again.
    static void Init();
    /// Ends the log if Init has started it. Messages after that are dropped.
    static void Shutdown();
};

}  // namespace Velmar
