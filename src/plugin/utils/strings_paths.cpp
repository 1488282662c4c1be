// Folders and paths of Strings.
#include <limits.h>
#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>
#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

#include <cerrno>
#include <memory>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

constexpr char separators[] = "/\\";

std::string homeFromPasswordEntry() {
    std::string buffer(1024, '\0');
    passwd entry{};
    passwd* found = nullptr;
    int error = 0;
    while ((error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found)) == ERANGE) {
        buffer.resize(buffer.size() * 2);
    }
    return error != 0 || found == nullptr || found->pw_dir == nullptr ? std::string() : std::string(found->pw_dir);
}

#ifdef __APPLE__
std::string runningProgram() {
    std::uint32_t size = 1024;
    std::string buffer(size, '\0');
    while (_NSGetExecutablePath(buffer.data(), &size) != 0) buffer.resize(++size);
    return buffer.c_str();
}
#else
std::string runningProgram() {
    std::string buffer(1024, '\0');
    ssize_t length = 0;
    while ((length = readlink("/proc/self/exe", buffer.data(), buffer.size())) == static_cast<ssize_t>(buffer.size())) {
        buffer.resize(buffer.size() * 2);
    }
    return length < 0 ? std::string() : buffer.substr(0, static_cast<std::size_t>(length));
}
#endif

bool isSeparator(char character) {
    return character == '/' || character == '\\';
}

}  // namespace

std::string Strings::GetUserHome() {
    const char* home = std::getenv("HOME");
    return home != nullptr && *home != '\0' ? std::string(home) : homeFromPasswordEntry();
}

std::string Strings::GetMyDocumentsPath() {
    return GetUserHome() + "/Documents";
}

std::string Strings::GetVelmarAssetsPath() {
    return GetUserHome() + "/Documents/Velmar/SketchUp/temp/";
}

std::string Strings::GetCustomTexturesPath() {
    return GetUserHome() + "/Documents/Velmar/SketchUp/Textures/";
}

std::string Strings::GetPreviewTexturesPath() {
    return GetVelmarAssetsPath() + "previews/";
}

std::string Strings::GetWorkingTexturesPath() {
    return GetVelmarAssetsPath() + "textures/";
}

std::string Strings::GetExtensionPath() {
    return FolderFromFile(runningProgram());
}

std::string Strings::MakePath(const std::string& a, const std::string& b) {
    if (a.empty() || (!b.empty() && isSeparator(b.front()))) return b;
    if (b.empty()) return a;
    return isSeparator(a.back()) ? a + b : a + "/" + b;
}

std::string Strings::MakeCanonical(const std::string& path) {
    const std::unique_ptr<char, decltype(&free)> resolved(realpath(path.c_str(), nullptr), &free);
    return resolved == nullptr ? path : std::string(resolved.get());
}

std::string Strings::FolderFromFile(const std::string& path) {
    const std::string trimmed = TrimRight(path, "/");
    const std::size_t slash = trimmed.rfind('/');
    return slash == std::string::npos ? trimmed : trimmed.substr(0, slash);
}

std::pair<std::string, std::string> Strings::SplitPath(const std::string& path) {
    const std::size_t separator = path.find_last_of(separators);
    if (separator == std::string::npos) return {std::string(), path};
    return {path.substr(0, separator + 1), path.substr(separator + 1)};
}

std::pair<std::string, std::string> Strings::SplitFile(const std::string& path) {
    const std::string file = SplitPath(path).second;
    const std::size_t dot = file.rfind('.');
    if (dot == std::string::npos || dot == 0) return {file, std::string()};
    return {file.substr(0, dot), file.substr(dot)};
}

std::string Strings::UnqualifyName(const std::string& name) {
    const std::size_t last = name.find_last_of(":/\\");
    return last == std::string::npos ? name : name.substr(last + 1);
}

void Strings::CleanFilePath(std::string& path) {
    std::size_t run = path.find_first_not_of(separators);
    if (run == std::string::npos) run = path.size();
    if (run > 2) path.erase(0, run - 2);
}

}  // namespace Velmar
