#include "engine/text/text_escape.h"

#include <charconv>
#include <cstdio>

namespace Velmar::Engine {
namespace {

constexpr std::size_t group_length = 7;  // _xHHHH_
constexpr unsigned byte_base = 0xDC00;   // above it stand single bytes, where UTF-8 has no characters

// Number of the group that begins at the start of `text`, whether or not an underscore ends it; -1 when none does.
int groupAt(std::string_view text) {
    if (text.size() < group_length - 1 || text[0] != '_' || text[1] != 'x') return -1;
    int number = -1;
    const char* end = text.data() + group_length - 1;
    const auto [stop, error] = std::from_chars(text.data() + 2, end, number, 16);
    return error == std::errc() && stop == end && number >= 0 ? number : -1;
}

// Length in bytes of the UTF-8 character at the start of `text`, whose first byte is not ASCII; 0 for bytes that are
// none or that XML excludes (surrogates, U+FFFE, U+FFFF). After the table of well-formed sequences of the Unicode
// Standard, chapter 3.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&text](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const auto follows = [&byte](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    if (first < 0xC2 || first > 0xF4 || !follows(1)) return 0;
    if (first < 0xE0) return 2;
    if (!follows(2)) return 0;
    if (first < 0xF0) {
        if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
        return first == 0xEF && second == 0xBF && byte(2) >= 0xBE ? 0 : 3;
    }
    if (!follows(3) || (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F)) return 0;
    return 4;
}

void appendGroup(std::string& out, unsigned number) {
    char group[group_length + 1];
    std::snprintf(group, sizeof group, "_x%04X_", number & 0xFFFFU);
    out.append(group, group_length);
}

bool isPlain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x80 && c != '_';
}

// Appends what stands at the start of `text` and answers how many bytes of it that was.
std::size_t appendEscaped(std::string& out, std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first == 0) {
        out += ' ';
        return 1;
    }
    // What follows an underscore may be escaped itself and end the group, so its end is not looked at.
    if (first < 0x20 || groupAt(text) >= 0) {
        appendGroup(out, first);
        return 1;
    }
    if (first < 0x80) {
        out += text[0];
        return 1;
    }
    const std::size_t length = characterLength(text);
    if (length > 0) {
        out.append(text, 0, length);
        return length;
    }
    if (text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF")) {
        appendGroup(out, 0xFF00U | (static_cast<unsigned char>(text[2]) | 0x40U));
        return 3;
    }
    appendGroup(out, byte_base + first);
    return 1;
}

void appendCharacter(std::string& out, unsigned number) {
    if (number < 0x80) {
        out += static_cast<char>(number);
    } else if (number > byte_base) {
        if (number < 0xFF00U) {
            out += static_cast<char>(number - byte_base);
        } else {
            out += number == 0xFFFEU ? "\xEF\xBF\xBE" : "\xEF\xBF\xBF";
        }
    }
}

bool isWritten(int number) {
    return (number > 0 && number < 0x20) || number == '_' || (number >= 0xDC80 && number <= 0xDCFF) ||
           number == 0xFFFE || number == 0xFFFF;
}

}  // namespace

std::string_view escapeText(std::string_view text, std::string& storage) {
    std::size_t at = 0;
    while (at < text.size() && isPlain(text[at])) ++at;
    if (at == text.size()) return text;
    storage.assign(text, 0, at);
    while (at < text.size()) at += appendEscaped(storage, text.substr(at));
    return storage;
}

std::string unescapeText(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (true) {
        const std::size_t group = text.find("_x");
        if (group == std::string_view::npos) break;
        out.append(text, 0, group);
        text.remove_prefix(group);
        const int number = groupAt(text);
        if (isWritten(number) && text.size() >= group_length && text[group_length - 1] == '_') {
            appendCharacter(out, static_cast<unsigned>(number));
            text.remove_prefix(group_length);
        } else {
            out += text[0];
            text.remove_prefix(1);
        }
    }
    out += text;
    return out;
}

}  // namespace Velmar::Engine
