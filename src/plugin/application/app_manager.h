// Start and stop of the whole plug-in. Two threads meet here: the one that runs Ruby, which does all work, and one in
// the background, which keeps the run flag up and acknowledges the stop. They share two atomic flags and no lock.
#pragma once

namespace Velmar {

/// Static functions over the flags of the process. All but StartServerLoop and LoopActive belong to the Ruby thread.
class AppManager {
public:
    /// Starts the SDK and all managers, which define the Ruby methods. False when the SDK or a manager does not start,
    /// and when it was here before: a start cannot be repeated in one process.
    static bool GlobalInit();
    /// Body of the background thread: raises the run flag and stays until the stop. Returns at once if the flag is up.
    static void StartServerLoop();
    /// The ordered stop. Calling it again goes through the same steps and finds nothing left to stop.
    static void StopServerLoop();
    /// Whether the background loop runs or is wanted.
    static bool LoopActive();

    /// Places for a crash handler of the platform; there is none.
    static void InstallExceptionHandler();
    static void UninstallExceptionHandler();
};

}  // namespace Velmar
