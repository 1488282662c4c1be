#include "plugin/ruby/arguments.h"

namespace Velmar::Ruby {

namespace Detail {

double convert_double(VALUE value) {
    double number = 0.0;
    protect([&] { number = rb_num2dbl(value); });
    return number;
}

int convert_int(VALUE value) {
    int number = 0;
    protect([&] { number = static_cast<int>(rb_num2int(value)); });
    return number;
}

unsigned int convert_uint(VALUE value) {
    unsigned int number = 0;
    protect([&] { number = static_cast<unsigned int>(rb_num2uint(value)); });
    return number;
}

void require_type(VALUE value, int type) {
    protect([&] { rb_check_type(value, type); });
}

namespace {

std::string copy_of(VALUE string) {
    std::string text(RSTRING_PTR(string), static_cast<std::size_t>(RSTRING_LEN(string)));
    RB_GC_GUARD(string);
    return text;
}

}  // namespace

}  // namespace Detail

std::string to_text(VALUE value) {
    if (RB_TYPE_P(value, T_STRING)) return Detail::copy_of(value);
    return Detail::copy_of(protect([&] { return rb_string_value(&value); }));
}

std::string to_cstr(VALUE value) {
    const char* text = nullptr;
    protect([&] { text = rb_string_value_cstr(&value); });
    std::string copy(text);
    RB_GC_GUARD(value);
    return copy;
}

std::vector<int> to_ints(VALUE array) {
    check_array(array);
    std::vector<int> numbers;
    numbers.reserve(static_cast<std::size_t>(array_size(array)));
    for (long i = 0; i < array_size(array); ++i) numbers.push_back(to_int(array_at(array, i)));
    return numbers;
}

}  // namespace Velmar::Ruby
