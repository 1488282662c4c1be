// Calling the interpreter from native frames. Ruby leaves its code by a jump that runs no destructor, so every call
// that can raise goes through protect(): the jump ends there and travels on as the C++ exception Jump, which unwinds
// our frames as usual.
#pragma once

#include "plugin/ruby/interpreter.h"

#if defined(__SANITIZE_ADDRESS__)
#define VELMAR_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELMAR_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef VELMAR_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace Velmar::Ruby {

namespace Detail {

template <typename Body>
struct ProtectedBody {
    Body& body;
    std::exception_ptr failure;
};

/// Runs the body of protect() with all C++ exceptions kept inside.
template <typename Body>
VALUE run_protected(VALUE data) {
    auto& context = *reinterpret_cast<ProtectedBody<Body>*>(data);
    try {
        if constexpr (std::is_void_v<decltype(context.body())>) {
            context.body();
        } else {
            return context.body();
        }
    } catch (...) {
        context.failure = std::current_exception();
    }
    return Qnil;
}

/// The address sanitizer does not see the interpreter's jumps: the guard zones of the frames that one skipped, right
/// below the frame that it ended in, are taken away here.
inline void forget_skipped_frames() {
#ifdef VELMAR_ADDRESS_SANITIZER
    constexpr std::size_t reach = 16384;
    char* const frame = static_cast<char*>(__builtin_frame_address(0));
    __asan_unpoison_memory_region(frame - reach, reach);
#endif
}

}  // namespace Detail

/// Runs `body`, which calls the interpreter and answers a Ruby value or nothing, and answers that value or nil. An
/// exception, throw or exit in it is thrown as a Jump; a C++ exception passes. A jump skips what `body` itself owns, so
/// it owns nothing: let it capture by reference and hold plain values only.
template <typename Body>
VALUE protect(Body body) {
    Detail::ProtectedBody<Body> context{body, nullptr};
    int tag = 0;
    const VALUE answer = rb_protect(&Detail::run_protected<Body>, reinterpret_cast<VALUE>(&context), &tag);
    Detail::forget_skipped_frames();
    if (tag != 0) throw Jump{tag};
    if (context.failure) std::rethrow_exception(context.failure);
    return answer;
}

}  // namespace Velmar::Ruby
