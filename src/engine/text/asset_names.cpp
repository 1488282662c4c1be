#include "engine/text/asset_names.h"

namespace Velmar::Engine {
namespace {

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

bool isAbsolutePath(std::string_view name) {
    if (name.empty()) return false;
    return isSeparator(name[0]) || (name.size() > 1 && name[1] == ':' && isLetter(name[0]));
}

std::string_view folderOf(std::string_view path) {
    const std::size_t last = path.find_last_of("/\\");
    return last == std::string_view::npos ? std::string_view() : path.substr(0, last + 1);
}

std::string AssetLookup::find(const std::string& name) const {
    if (name.empty()) return name;
    if (resolver != nullptr) {
        if (const char* path = resolver(name.c_str(), user)) return path;
    }
    return isAbsolutePath(name) ? name : folder + name;
}

std::string_view relativeTo(std::string_view folder, std::string_view name) {
    if (folder.empty() || !name.starts_with(folder)) return name;
    const std::string_view below = name.substr(folder.size());
    return below.empty() || isAbsolutePath(below) ? name : below;
}

}  // namespace Velmar::Engine
