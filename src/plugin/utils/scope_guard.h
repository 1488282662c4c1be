// Work that is done at the end of a scope, however the scope is left. Knows nothing of what it guards.
#pragma once

#include <functional>
#include <utility>

namespace Velmar {

/// Calls its callback, if there is one, when it is destroyed. An exception of the callback is swallowed, as it would
/// come out of a destructor.
class ScopeGuard {
public:
    explicit ScopeGuard(std::function<void()> callback) : callback_(std::move(callback)) {}
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;
    ~ScopeGuard() {
        if (!callback_) return;
        try {
            callback_();
        } catch (...) {
        }
    }

private:
    std::function<void()> callback_;
};

/// Sets a bool for the length of a scope and puts the old value back. The bool must outlive it.
class ScopedValue {
public:
    ScopedValue(bool& target, bool value) : restore_([&target, old = target] { target = old; }) { target = value; }

private:
    ScopeGuard restore_;
};

}  // namespace Velmar
