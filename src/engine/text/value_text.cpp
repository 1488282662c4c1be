#include "engine/text/value_text.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace Velmar::Engine {
namespace {

constexpr std::uint32_t common_nan = 0x7FC00000;
constexpr std::size_t numbers_per_line = 16;
constexpr std::size_t bytes_per_line = 32;

template <typename T>
constexpr bool is_array = false;
template <typename T>
constexpr bool is_array<SharedArray<T>> = true;

bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

void appendOther(std::string& out, float number) {
    const auto bits = std::bit_cast<std::uint32_t>(number);
    if (std::isinf(number)) {
        out += number < 0.0F ? "-inf" : "inf";
    } else if (bits == common_nan) {
        out += "nan";
    } else {
        char text[16];
        std::snprintf(text, sizeof text, "nan:%08x", static_cast<unsigned>(bits));
        out += text;
    }
}

template <typename T>
void appendPlain(std::string& out, T number) {
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, number);
    out.append(text, end);
}

void append(std::string& out, int number) {
    appendPlain(out, number);
}
void append(std::string& out, float number) {
    if (std::isfinite(number)) {
        appendPlain(out, number);
    } else {
        appendOther(out, number);
    }
}
void append(std::string& out, bool value) {
    out += value ? "true" : "false";
}
void append(std::string& out, unsigned char byte) {
    constexpr char digits[] = "0123456789abcdef";
    out += digits[byte >> 4U];
    out += digits[byte & 15U];
}
template <typename T>
void append(std::string& out, const Vec2<T>& value) {
    append(out, value.x);
    out += ' ';
    append(out, value.y);
}
template <typename T>
void append(std::string& out, const Vec3<T>& value) {
    append(out, Vec2<T>{value.x, value.y});
    out += ' ';
    append(out, value.z);
}
template <typename T>
void append(std::string& out, const Vec4<T>& value) {
    append(out, Vec3<T>{value.x, value.y, value.z});
    out += ' ';
    append(out, value.w);
}
void append(std::string& out, const Matrix<float>& value) {
    for (unsigned i = 0; i < 12; ++i) {
        if (i > 0) out += ' ';
        append(out, value.m[i / 4][i % 4]);
    }
}

template <typename T>
constexpr std::size_t per_line = 1;
template <>
constexpr std::size_t per_line<int> = numbers_per_line;
template <>
constexpr std::size_t per_line<float> = numbers_per_line;
template <>
constexpr std::size_t per_line<unsigned char> = bytes_per_line;

template <typename T>
void appendArray(std::string& out, const std::vector<T>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i % per_line<T> == 0) {
            out += '\n';
        } else if constexpr (!std::is_same_v<T, unsigned char>) {
            out += ' ';
        }
        append(out, values[i]);
    }
    if (!values.empty()) out += '\n';
}

// Reads one word after the other.
class Words {
public:
    explicit Words(std::string_view text) : at_(text.data()), end_(at_ + text.size()) { skip(); }

    bool atEnd() const { return at_ == end_; }

    bool take(int& number) { return takePlain(number); }
    bool take(unsigned& number) { return takePlain(number); }
    bool take(float& number) { return takePlain(number) || takeNan(number); }
    bool take(bool& value) {
        value = takeWord("true");
        return value || takeWord("false");
    }
    // Two digits; a byte needs no blank behind it.
    bool take(unsigned char& byte) {
        if (end_ - at_ < 2) return false;
        const auto [stop, error] = std::from_chars(at_, at_ + 2, byte, 16);
        if (error != std::errc() || stop != at_ + 2) return false;
        at_ = stop;
        skip();
        return true;
    }
    template <typename T>
    bool take(Vec2<T>& value) {
        return take(value.x) && take(value.y);
    }
    template <typename T>
    bool take(Vec3<T>& value) {
        return take(value.x) && take(value.y) && take(value.z);
    }
    template <typename T>
    bool take(Vec4<T>& value) {
        return take(value.x) && take(value.y) && take(value.z) && take(value.w);
    }
    bool take(Matrix<float>& value) {
        for (unsigned i = 0; i < 12; ++i) {
            if (!take(value.m[i / 4][i % 4])) return false;
        }
        return true;
    }

private:
    void skip() {
        while (at_ != end_ && isBlank(*at_)) ++at_;
    }

    bool endsWord(const char* stop) {
        if (stop != end_ && !isBlank(*stop)) return false;
        at_ = stop;
        skip();
        return true;
    }

    bool takeWord(std::string_view word) {
        return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(word) &&
               endsWord(at_ + word.size());
    }

    template <typename T>
    bool takePlain(T& number) {
        if constexpr (std::is_floating_point_v<T>) {
            if (end_ - at_ >= 3 && (*at_ == 'n' || *at_ == 'N')) return false;
        }
        const auto [stop, error] = std::from_chars(at_, end_, number);
        return error == std::errc() && endsWord(stop);
    }

    bool takeNan(float& number) {
        constexpr std::string_view prefix = "nan:";
        if (takeWord("nan")) {
            number = std::bit_cast<float>(common_nan);
            return true;
        }
        if (!std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(prefix)) return false;
        std::uint32_t bits = 0;
        const auto [stop, error] = std::from_chars(at_ + prefix.size(), end_, bits, 16);
        number = std::bit_cast<float>(bits);
        return error == std::errc() && std::isnan(number) && endsWord(stop);
    }

    const char* at_;
    const char* end_;
};

template <typename T>
bool readWhole(std::string_view text, T& value) {
    Words words(text);
    return words.take(value) && words.atEnd();
}

template <typename T>
bool readArray(std::string_view text, SharedArray<T>& held) {
    std::vector<T> values;
    for (Words words(text); !words.atEnd();) {
        if (!words.take(values.emplace_back())) return false;
    }
    values.shrink_to_fit();
    held = std::make_shared<const std::vector<T>>(std::move(values));
    return true;
}

bool sameTexts(const SharedTexts& a, const SharedTexts& b) {
    return b == nullptr ? a == nullptr || a->texts.empty() : same(a, b->pointers.data(), b->pointers.size());
}

}  // namespace

bool sameValue(const Value& a, const Value& b) {
    return std::visit(
        [&b](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            const T& other = std::get<T>(b);
            if constexpr (std::is_same_v<T, SharedTexts>) {
                return sameTexts(held, other);
            } else if constexpr (is_array<T>) {
                return other == nullptr ? held == nullptr || held->empty() : same(held, other->data(), other->size());
            } else {
                return same(held, other);
            }
        },
        a);
}

void appendValue(std::string& out, const Value& value) {
    std::visit(
        [&out](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (is_array<T>) {
                if (held != nullptr) appendArray(out, *held);
            } else if constexpr (!std::is_same_v<T, std::string> && !std::is_same_v<T, SharedTexts>) {
                append(out, held);
            }
        },
        value);
}

bool readValue(std::string_view text, Value& value) {
    return std::visit(
        [text](auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (is_array<T>) {
                return readArray(text, held);
            } else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, SharedTexts>) {
                return false;
            } else {
                return readWhole(text, held);
            }
        },
        value);
}

void appendNumber(std::string& out, int number) {
    append(out, number);
}
void appendNumber(std::string& out, float number) {
    append(out, number);
}
void appendNumbers(std::string& out, Vec2<float> numbers) {
    append(out, numbers);
}

bool readNumber(std::string_view text, int& number) {
    return readWhole(text, number);
}
bool readNumber(std::string_view text, unsigned& number) {
    return readWhole(text, number);
}
bool readNumbers(std::string_view text, Vec2<float>& numbers) {
    return readWhole(text, numbers);
}

}  // namespace Velmar::Engine
