// The engine's own words to whoever runs it, on the standard error stream. May be called from any thread.
#pragma once

#include <string>

namespace Velmar::Engine {

/// Writes one line, "velmar: " and `text`, as a whole.
void logLine(const std::string& text);

}  // namespace Velmar::Engine
