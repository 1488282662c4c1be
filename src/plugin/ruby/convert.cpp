#include "plugin/ruby/convert.h"

#include <limits>
#include <type_traits>

#include "plugin/ruby/guard.h"
#include "plugin/ruby/protect.h"

namespace Velmar::Ruby {

namespace {

/// Whether the interpreter converts to T itself.
template <typename T>
constexpr bool is_base_type = std::is_floating_point_v<T> || sizeof(T) >= sizeof(long);

template <typename T>
T convert_base(VALUE value) {
    if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(rb_num2dbl(value));
    } else if constexpr (std::is_same_v<T, long>) {
        return rb_num2long(value);
    } else if constexpr (std::is_same_v<T, unsigned long>) {
        return rb_num2ulong(value);
    } else if constexpr (std::is_same_v<T, long long>) {
        return rb_num2ll(value);
    } else {
        return rb_num2ull(value);
    }
}

template <typename T>
T base_from_ruby(VALUE value, T default_value) {
    constexpr bool has_short_cut = std::is_integral_v<T> && !std::is_same_v<T, unsigned long long>;
    if (has_short_cut && FIXNUM_P(value)) return static_cast<T>(FIX2LONG(value));
    T result = default_value;
    protect_call([&] { result = convert_base<T>(value); }, {});
    return result;
}

template <typename T>
T narrow_from_ruby(VALUE value, T default_value) {
    using Base = std::conditional_t<std::is_signed_v<T>, long, unsigned long>;
    const Base number = base_from_ruby<Base>(value, 0);
    const bool fits = number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
    return fits ? static_cast<T>(number) : default_value;
}

}  // namespace

template <typename T>
T ConvertNumber<T>::from_ruby(Value value, T default_value) {
    if constexpr (is_base_type<T>) {
        return base_from_ruby<T>(value, default_value);
    } else {
        return narrow_from_ruby<T>(value, default_value);
    }
}

template struct ConvertNumber<long>;
template struct ConvertNumber<unsigned long>;
template struct ConvertNumber<long long>;
template struct ConvertNumber<unsigned long long>;
template struct ConvertNumber<float>;
template struct ConvertNumber<double>;
template struct ConvertNumber<char>;
template struct ConvertNumber<signed char>;
template struct ConvertNumber<unsigned char>;
template struct ConvertNumber<short>;
template struct ConvertNumber<unsigned short>;
template struct ConvertNumber<int>;
template struct ConvertNumber<unsigned int>;

bool Convert<bool>::from_ruby(Value value, bool default_value) {
    switch (rb_type(value)) {
        case T_TRUE:
            return true;
        case T_NONE:
        case T_NIL:
        case T_FALSE:
        case T_UNDEF:
            return false;
        case T_FIXNUM:
        // One that is too large to convert is not zero.
        case T_BIGNUM:
            return Convert<long>::from_ruby(value, 1) != 0;
        case T_FLOAT:
            return Convert<double>::from_ruby(value, 1.0) != 0.0;
        case T_SYMBOL:
        case T_STRING:
            return !Convert<std::string>::from_ruby(value, std::string()).empty();
        case T_ARRAY:
            return RARRAY_LEN(value) != 0;
        case T_HASH:
            return RHASH_SIZE(value) != 0;
        default:
            return default_value;
    }
}

std::string Convert<std::string>::from_ruby(Value value, const std::string& default_value) {
    if (RB_TYPE_P(value, T_STRING)) {
        std::string text(RSTRING_PTR(value), static_cast<std::size_t>(RSTRING_LEN(value)));
        RB_GC_GUARD(value);
        return text;
    }
    if (!RB_TYPE_P(value, T_SYMBOL)) return default_value;
    const char* name = nullptr;
    protect([&] { name = rb_id2name(rb_sym2id(value)); });
    return name == nullptr ? std::string() : std::string(name);
}

Value Convert<std::string>::to_ruby(const std::string& text) {
    return protect([&] { return rb_utf8_str_new(text.data(), static_cast<long>(text.size())); });
}

namespace {

using Map = Convert<std::map<std::string, std::string>>::Map;

struct HashReading {
    Map map;
    std::exception_ptr failure;
};

/// Takes one pair over. A C++ exception ends the walk and waits until the interpreter's frames are gone.
int hash_callback(VALUE key, VALUE value, VALUE data) {
    auto& reading = *reinterpret_cast<HashReading*>(data);
    try {
        using Text = Convert<std::string>;
        reading.map.emplace(Text::from_ruby(key, std::string()), Text::from_ruby(value, std::string()));
    } catch (...) {
        reading.failure = std::current_exception();
        return ST_STOP;
    }
    return ST_CONTINUE;
}

}  // namespace

Map Convert<Map>::from_ruby(Value value, const Map& default_value) {
    if (!RB_TYPE_P(value, T_HASH)) return default_value;
    HashReading reading;
    protect([&] { for_each_pair(value, hash_callback, reinterpret_cast<VALUE>(&reading)); });
    if (reading.failure) std::rethrow_exception(reading.failure);
    return std::move(reading.map);
}

Value Convert<Map>::to_ruby(const Map& map) {
    return protect([&] {
        const VALUE hash = rb_hash_new();
        for (const auto& [key, value] : map) {
            rb_hash_aset(hash, Convert<std::string>::to_ruby(key), Convert<std::string>::to_ruby(value));
        }
        return hash;
    });
}

}  // namespace Velmar::Ruby
