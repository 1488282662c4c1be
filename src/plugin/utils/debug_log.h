// The debug log: a text file of the plug-in's own under the user's documents. Each line opens, appends to and closes
// the file, so it stands on disk even when the host dies in the next moment, and it works before the other log is set
// up and after that is gone, on any thread. A line costs a file open: not for hot paths.
#pragma once

#include <cstddef>
#include <sstream>
#include <string>

namespace Velmar {

/// Appends one line: process id, thread id, time in UTC, message. A file that cannot be opened swallows the line.
void DebugLog(const std::string& message);
/// Likewise; a null pointer writes an empty message.
void DebugLog(const char* message);

/// Appends one line of all arguments as a stream prints them, with one blank between two of them.
template <typename... Args>
void DebugLog(const Args&... args) {
    std::ostringstream line;
    std::size_t position = 0;
    ((line << (position++ == 0 ? "" : " ") << args), ...);
    DebugLog(line.str());
}

}  // namespace Velmar
