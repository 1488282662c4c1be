// Answers of handlers: native values as Ruby ones. Safe wherever they stand, as the conversions of arguments.h are. A
// fresh value lives as long as it stands in a local variable; one that several calls build is kept in locals until the
// whole is made.
#pragma once

#include <string>

#include "plugin/ruby/guard.h"

namespace Velmar::Ruby {

/// Ruby's true and false.
inline VALUE to_value(bool value) {
    return value ? Qtrue : Qfalse;
}
inline VALUE to_value(int value) {
    return INT2FIX(value);
}
/// A pointer is no bool: say to_utf8 or to_binary.
VALUE to_value(const void*) = delete;

/// A string marked as UTF-8, of the text's exact length.
VALUE to_utf8(const std::string& text);
/// A string of the bytes up to the first zero byte, with the binary encoding of rb_str_new_cstr.
VALUE to_binary(const std::string& text);

}  // namespace Velmar::Ruby
