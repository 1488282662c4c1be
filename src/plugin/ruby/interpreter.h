// The interpreter's own headers, for interpreters from 2.2 to today. All that changed between them is known here alone:
// include this instead of ruby.h, and only in the bridge and in sources of the Ruby surface.
#pragma once

// The interpreter's headers define macros that break these when they come later.
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include <ruby/version.h>
#if RUBY_API_VERSION_MAJOR == 2 && RUBY_API_VERSION_MINOR < 7
#define register  // a keyword of older C++ in the older headers
#endif
#include <ruby.h>
#undef register
#undef snprintf
#undef vsnprintf

#include <type_traits>

#include "plugin/ruby/value.h"

namespace Velmar::Ruby {

static_assert(std::is_same_v<VALUE, Value>, "a Ruby value is one word");

/// rb_rescue: before 2.7 it took functions of any arguments, now it takes exact ones.
inline VALUE rescue_standard_error(VALUE (*body)(VALUE), VALUE body_data, VALUE (*handler)(VALUE, VALUE),
                                   VALUE handler_data) {
#if RUBY_API_VERSION_MAJOR == 2 && RUBY_API_VERSION_MINOR < 7
    return rb_rescue(RUBY_METHOD_FUNC(body), body_data, RUBY_METHOD_FUNC(handler), handler_data);
#else
    return rb_rescue(body, body_data, handler, handler_data);
#endif
}

/// rb_hash_foreach, likewise.
inline void for_each_pair(VALUE hash, int (*visit)(VALUE key, VALUE value, VALUE data), VALUE data) {
#if RUBY_API_VERSION_MAJOR == 2 && RUBY_API_VERSION_MINOR < 7
    rb_hash_foreach(hash, reinterpret_cast<int (*)(ANYARGS)>(visit), data);
#else
    rb_hash_foreach(hash, visit, data);
#endif
}

/// rb_float_value, inline for the floats that stand in the reference itself: their exponent's three upper bits are
/// folded into one and the word is turned left by three. That form has been the same since 2.0.
inline double float_value(VALUE value) {
#if USE_FLONUM && RUBY_API_VERSION_MAJOR < 4
    constexpr VALUE zero = 0x8000000000000002;
    if (RB_FLONUM_P(value) && value != zero) {
        const VALUE turned = (2 - (value >> 63)) | (value & ~VALUE{3});
        return std::bit_cast<double>(turned >> 3 | turned << 61);
    }
#endif
    return rb_float_value(value);
}

/// rb_define_singleton_method. The name in parentheses is the function itself: newer headers cover it with a macro.
inline void define_singleton_method(VALUE klass, const char* name, VALUE (*function)(ANYARGS), int arity) {
    (::rb_define_singleton_method)(klass, name, function, arity);
}

}  // namespace Velmar::Ruby
