#include "engine/text/package_names.h"

#include <algorithm>

namespace Velmar::Engine {
namespace {

bool isForbidden(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || c == '\\' || c == ':';
}

std::string inSmallLetters(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return text;
}

/// The last part of a path, made safe.
std::string baseName(const std::string& path) {
    std::string name = path.substr(path.find_last_of("/\\") + 1);
    std::ranges::replace_if(name, isForbidden, '_');
    return name.empty() || name == "." || name == ".." ? "file" : name;
}

}  // namespace

bool isSafeMember(std::string_view name) {
    if (name.ends_with('/')) name.remove_suffix(1);
    if (name.empty() || std::ranges::any_of(name, isForbidden)) return false;
    while (true) {
        const std::size_t end = name.find('/');
        const std::string_view part = name.substr(0, end);
        if (part.empty() || part == "." || part == "..") return false;
        if (end == std::string_view::npos) return true;
        name.remove_prefix(end + 1);
    }
}

const std::string& MemberNames::of(const std::string& path) {
    auto [found, fresh] = by_path_.try_emplace(path);
    if (!fresh) return found->second;
    const std::string base = baseName(path);
    const std::size_t dot = std::min(base.rfind('.'), base.size());
    std::string name = base;
    unsigned& number = last_number_[inSmallLetters(base)];
    while (!taken_.insert(inSmallLetters(name)).second) {
        number = std::max(number, 1U) + 1;
        name = base.substr(0, dot) + "-" + std::to_string(number) + base.substr(dot);
    }
    found->second = "files/" + name;
    return found->second;
}

}  // namespace Velmar::Engine
