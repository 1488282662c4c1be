#include "plugin/ruby/answers.h"

namespace Velmar::Ruby {

VALUE to_utf8(const std::string& text) {
    return protect([&] { return rb_utf8_str_new(text.data(), static_cast<long>(text.size())); });
}

VALUE to_binary(const std::string& text) {
    return protect([&] { return (rb_str_new_cstr)(text.c_str()); });
}

}  // namespace Velmar::Ruby
