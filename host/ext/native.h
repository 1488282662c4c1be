// The groups of native functions that the Ruby half of the host finds in VelmarHost::Native. A Ruby exception leaves a
// frame without running destructors and a C++ exception must never reach Ruby, so every function here is built the same
// way: an outer function checks the arguments, which may raise, and holds nothing; the WORK function that it calls does
// the work inside attempt() and then answers or raises.
#pragma once

#include <cstring>
#include <exception>
#include <new>
#include <string_view>

#include <ruby.h>

/// A function of its own frame, which only raise() and rb_jump_tag() leave by a jump.
#define WORK __attribute__((noinline))

namespace Velmar::Host {

/// Adds read_scene, surface_numbers and outermost_points.
void defineModelFunctions(VALUE native);
/// Adds progress, wait, interrupt, save_picture, statistics, reset_statistics, max_samples= and pump_events.
void defineEngineFunctions(VALUE native);

/// `value` as it is when it is a text without zero bytes; raises TypeError or ArgumentError when not.
inline VALUE textArgument(VALUE value) {
    Check_Type(value, T_STRING);
    if (memchr(RSTRING_PTR(value), 0, RSTRING_LEN(value)) != nullptr)
        rb_raise(rb_eArgError, "string contains null byte");
    return value;
}

/// Why a piece of work failed; a plain record, so that it may be jumped over.
struct Failure {
    char reason[512] = "";
    bool out_of_memory = false;

    void because(std::string_view text) { reason[text.copy(reason, sizeof reason - 1)] = '\0'; }
};

/// Runs `work` and keeps every exception from getting out; false when there was one.
template <typename Work>
bool attempt(Failure& failure, Work&& work) noexcept {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        failure.out_of_memory = true;
        failure.because("out of memory");
    } catch (const std::exception& error) {
        failure.because(error.what());
    } catch (...) {
        failure.because("unknown failure");
    }
    return false;
}

/// Raises the Ruby exception that stands for `failure`. Only where nothing with a destructor lives.
[[noreturn]] inline void raise(const Failure& failure) {
    rb_raise(failure.out_of_memory ? rb_eNoMemError : rb_eRuntimeError, "%s", failure.reason);
}

}  // namespace Velmar::Host
