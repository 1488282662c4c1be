// The exception of a command that exists but does nothing yet. The Ruby bridge turns it into Ruby's
// NotImplementedError.
#pragma once

#include <stdexcept>
#include <string>

namespace Velmar {

/// Thrown by an operation that has no body yet; `what()` names the command.
class NotImplemented : public std::runtime_error {
public:
    explicit NotImplemented(const std::string& command) : std::runtime_error(command + " is not implemented") {}
};

}  // namespace Velmar
