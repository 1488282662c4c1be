// The record of SDK operations, in order, with their arguments, for tests and for whoever asks what a plug-in did. Off
// until asked for: VELMAR_OPERATION_LOG names a file to which each operation goes as a line, and begin() gathers them in
// memory. While it is off, an operation costs one test of a flag.
#pragma once

#include <velmar/export.h>

#include <string>
#include <vector>

namespace Velmar::Engine {

/// One line per operation that changes something: the operation's name, then its arguments, separated by blanks; items
/// as type name and name ("VELMAR_MESH:chair"), floats in shortest form, arrays as their count in brackets:
///   connectTo VELMAR_SCATTER:Scatter 59 VELMAR_MATERIAL_MAP:Map true false
///   set VELMAR_SCATTER:Scatter 170 [12] true
class VELMAR_SDK OperationLog {
public:
    /// Starts to gather in memory, from empty.
    static void begin();
    /// Ends it and hands out the lines.
    static std::vector<std::string> end();
};

}  // namespace Velmar::Engine
