// The entries of the library. Which one the interpreter calls depends on the name under which it loads the file; they
// are all one. Each returns when the plug-in runs, or when its start has failed, which the log tells and Ruby does not.
#include <glog/logging.h>

#include <chrono>
#include <thread>

#include "plugin/application/app_manager.h"
#include "plugin/ruby/handler.h"
#include "plugin/utils/logger.h"

namespace {

using Velmar::AppManager;
using Velmar::Logger;

void ThreadFunction() {
    AppManager::StartServerLoop();
}

void InitPlugin() {
    Logger::Init();
    if (!AppManager::GlobalInit()) {
        LOG(ERROR) << "Failed to initialize application. Exiting.";
        return;
    }
    std::thread(ThreadFunction).detach();
    while (!AppManager::LoopActive()) std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

}  // namespace

#define VELMAR_ENTRY extern "C" __attribute__((visibility("default")))

VELMAR_ENTRY void Init_velmarsu16() {
    Velmar::Ruby::run_entry<&InitPlugin>();
}
VELMAR_ENTRY void Init_velmarsu17() {
    Velmar::Ruby::run_entry<&InitPlugin>();
}
VELMAR_ENTRY void Init_velmarsu18() {
    Velmar::Ruby::run_entry<&InitPlugin>();
}
