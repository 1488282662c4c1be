// Encodings of Strings: base64, quoting, hexadecimal.
#include <algorithm>
#include <array>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

constexpr char base64_alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char hex_digits[] = "0123456789abcdef";

/// Value of each byte as a base64 character, -1 for bytes to be skipped.
constexpr std::array<int, 256> makeBase64Values() {
    std::array<int, 256> values{};
    for (int& value : values) value = -1;
    for (int i = 0; i < 64; ++i) values[static_cast<unsigned char>(base64_alphabet[i])] = i;
    values['-'] = 62;
    values['_'] = 63;
    values['='] = 0;
    return values;
}

constexpr std::array<int, 256> base64_values = makeBase64Values();

/// Four base64 characters on their way to up to three bytes.
class Base64Group {
public:
    bool full() const { return count_ == 4; }
    bool empty() const { return count_ == 0; }

    void add(char character) {
        bits_ = bits_ << 6 | static_cast<std::uint32_t>(base64_values[static_cast<unsigned char>(character)]);
        if (character == '=') ++padding_;
        ++count_;
    }

    void flush(std::string& out) {
        for (int byte = 0; byte < 3 - padding_ && padding_ <= 2; ++byte) {
            out.push_back(static_cast<char>(bits_ >> (16 - 8 * byte) & 0xff));
        }
        *this = Base64Group();
    }

private:
    std::uint32_t bits_ = 0;
    int count_ = 0;
    int padding_ = 0;
};

/// The letter of a byte's short escape, 0 if it has none.
char escapeLetter(char character) {
    switch (character) {
        case '\0':
            return '0';
        case '\t':
            return 't';
        case '\n':
            return 'n';
        case '\f':
            return 'f';
        case '\r':
            return 'r';
        case '"':
            return '"';
        case '\\':
            return '\\';
        default:
            return 0;
    }
}

std::string quote(const std::string& text, bool keep_high_bytes) {
    std::string result = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (const char letter = escapeLetter(character)) {
            result += {'\\', letter};
        } else if (byte < 31 || byte == 127 || (byte >= 128 && !keep_high_bytes)) {
            result += "\\x" + Strings::Hex(byte, 2);
        } else {
            result += character;
        }
    }
    return result + "\"";
}

}  // namespace

void Strings::Base64Encode(const std::string& in, std::string& out) {
    out.clear();
    out.reserve((in.size() + 2) / 3 * 4);
    for (std::size_t start = 0; start < in.size(); start += 3) {
        const std::size_t count = std::min<std::size_t>(3, in.size() - start);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            bits = bits << 8 | (i < count ? static_cast<unsigned char>(in[start + i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            out.push_back(i <= count ? base64_alphabet[bits >> (18 - 6 * i) & 63] : '=');
        }
    }
}

void Strings::Base64Decode(const std::string& in, std::string& out) {
    out.clear();
    Base64Group group;
    for (const char character : in) {
        if (base64_values[static_cast<unsigned char>(character)] < 0) continue;
        group.add(character);
        if (group.full()) group.flush(out);
    }
    if (group.empty()) return;
    while (!group.full()) group.add('=');
    group.flush(out);
}

std::string Strings::Bquote(const std::string& text) {
    return quote(text, false);
}

std::string Strings::Bquote(const char* text) {
    return text == nullptr ? "<null>" : Bquote(std::string(text));
}

std::string Strings::Uquote(const std::string& text) {
    return quote(text, true);
}

std::string Strings::Uquote(const char* text) {
    return text == nullptr ? "<null>" : Uquote(std::string(text));
}

std::string Strings::HexDigits(std::uint64_t value, std::size_t width) {
    std::string reversed;
    for (; value != 0; value >>= 4) reversed.push_back(hex_digits[value & 15]);
    if (reversed.empty()) reversed = "0";
    if (reversed.size() < width) reversed.append(width - reversed.size(), '0');
    return {reversed.rbegin(), reversed.rend()};
}

std::string Strings::Hexdump(const void* data, std::size_t size) {
    if (data == nullptr) return "<null>";
    if (size == 0) return "<empty>";
    const auto* bytes = static_cast<const unsigned char*>(data);
    std::string result;
    result.reserve(size * 3);
    for (std::size_t i = 0; i < size; ++i) {
        if (i != 0) result.push_back(' ');
        result.push_back(hex_digits[bytes[i] >> 4]);
        result.push_back(hex_digits[bytes[i] & 15]);
    }
    return result;
}

}  // namespace Velmar
