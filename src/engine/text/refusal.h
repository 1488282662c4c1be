// Why a scene text is not taken or cannot be written; thrown within the text room and caught at its doors.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Velmar::Engine {

class Refusal : public std::runtime_error {
public:
    /// `offset` is the place in the text, in bytes; negative when the reason has no place.
    explicit Refusal(const std::string& reason, std::ptrdiff_t offset = -1)
        : std::runtime_error(reason), offset_(offset) {}

    std::ptrdiff_t offset() const { return offset_; }

private:
    std::ptrdiff_t offset_;
};

}  // namespace Velmar::Engine
