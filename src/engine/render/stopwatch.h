// Time that passed while it ran.
#pragma once

#include <chrono>

namespace Velmar::Engine {

class Stopwatch {
public:
    void run() {
        if (!running_) since_ = Clock::now();
        running_ = true;
    }
    void hold() {
        passed_ += sinceRun();
        running_ = false;
    }
    void reset() { *this = {}; }
    double seconds() const { return std::chrono::duration<double>(passed_ + sinceRun()).count(); }

private:
    using Clock = std::chrono::steady_clock;
    Clock::duration sinceRun() const { return running_ ? Clock::now() - since_ : Clock::duration::zero(); }

    Clock::duration passed_{};
    Clock::time_point since_{};
    bool running_ = false;
};

}  // namespace Velmar::Engine
