#include "engine/catalog/engine_log.h"

#include <cstdio>

namespace Velmar::Engine {

void logLine(const std::string& text) {
    const std::string line = "velmar: " + text + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace Velmar::Engine
