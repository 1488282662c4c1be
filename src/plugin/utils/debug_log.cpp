#include "plugin/utils/debug_log.h"

#include <pthread.h>
#include <unistd.h>

#include <cstdint>
#include <fstream>
#include <mutex>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

std::string threadField() {
    return " T" + Strings::Hex(static_cast<unsigned long>(
                                   reinterpret_cast<std::uintptr_t>(reinterpret_cast<void*>(pthread_self()))),
                               16);
}

void appendLine(const std::string& message) {
    // These live as long as the process: a line may still come from a destructor at exit.
    static const std::string& logfile =
        *new std::string(Strings::GetUserHome() + "/Documents/Velmar/SketchUp/logs/debug-log.txt");
    static const std::string& pid = *new std::string("P" + Strings::Hex(static_cast<unsigned int>(getpid()), 8));
    static std::mutex& mtx = *new std::mutex;
    const std::lock_guard<std::mutex> lock(mtx);
    std::ofstream file(logfile, std::ios::app);
    file << pid << threadField() << " " << Strings::Timestamp() << " " << message << "\n";
}

}  // namespace

void DebugLog(const std::string& message) {
    try {
        appendLine(message);
    } catch (...) {  // no failure of a log reaches its caller
    }
}

void DebugLog(const char* message) {
    DebugLog(std::string(message == nullptr ? "" : message));
}

}  // namespace Velmar
