// Arguments of handlers, read by the interpreter's own conversions: a wrong type raises the interpreter's own TypeError
// or RangeError in the Ruby caller. All of these are safe wherever they stand, whatever C++ objects live around them:
// the usual forms (small integers, floats, plain strings) are read inline, everything else under protect(), so an
// exception unwinds our frames as a Jump. Texts and lists are copies; the argument may change or die afterwards.
#pragma once

#include <array>
#include <climits>
#include <string>
#include <vector>

#include "plugin/ruby/guard.h"

namespace Velmar::Ruby {

namespace Detail {

double convert_double(VALUE value);
int convert_int(VALUE value);
unsigned int convert_uint(VALUE value);
void require_type(VALUE value, int type);

}  // namespace Detail

/// A number as rb_num2dbl reads it.
inline double to_double(VALUE value) {
    if (RB_FLOAT_TYPE_P(value)) return float_value(value);
    if (FIXNUM_P(value)) return static_cast<double>(FIX2LONG(value));
    return Detail::convert_double(value);
}

inline float to_float(VALUE value) {
    return static_cast<float>(to_double(value));
}

/// A whole number of 32 bits as rb_num2int reads it: a fraction is cut off, more than 32 bits are a RangeError.
inline int to_int(VALUE value) {
    if (FIXNUM_P(value)) {
        const long number = FIX2LONG(value);
        if (number >= INT_MIN && number <= INT_MAX) return static_cast<int>(number);
    }
    return Detail::convert_int(value);
}

/// A whole number of 32 bits without sign as rb_num2uint reads it: negative ones down to -2**31 wrap around.
inline unsigned int to_uint(VALUE value) {
    if (FIXNUM_P(value)) {
        const long number = FIX2LONG(value);
        if (number >= 0 && number <= static_cast<long>(UINT_MAX)) return static_cast<unsigned int>(number);
    }
    return Detail::convert_uint(value);
}

/// Whether the value is the object `true`. Any other value, however true in Ruby, is not.
inline bool is_true(VALUE value) {
    return value == Qtrue;
}

/// TypeError unless the value is an Array, a String.
inline void check_array(VALUE value) {
    if (!RB_TYPE_P(value, T_ARRAY)) Detail::require_type(value, T_ARRAY);
}
inline void check_string(VALUE value) {
    if (!RB_TYPE_P(value, T_STRING)) Detail::require_type(value, T_STRING);
}

/// Bytes of a string, or of what converts to one by to_str; zero bytes are kept.
std::string to_text(VALUE value);
/// Text of a string as rb_string_value_cstr reads it: a zero byte in it is an ArgumentError.
std::string to_cstr(VALUE value);

/// How many elements an Array has. Neither this nor array_at raises; check_array comes first.
inline long array_size(VALUE array) {
    return RARRAY_LEN(array);
}
/// The element at `index`, nil beyond the end.
inline VALUE array_at(VALUE array, long index) {
    return rb_ary_entry(array, index);
}

/// The first N elements of an Array as numbers; TypeError for anything else than an Array and for missing elements.
template <std::size_t N>
std::array<double, N> to_doubles(VALUE array) {
    check_array(array);
    std::array<double, N> numbers;
    for (std::size_t i = 0; i < N; ++i) numbers[i] = to_double(array_at(array, static_cast<long>(i)));
    return numbers;
}
/// All elements of an Array, each as to_int reads it.
std::vector<int> to_ints(VALUE array);

}  // namespace Velmar::Ruby
