// Files and folders on disk of Strings.
#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

struct DirCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

File openFile(const std::string& path, const char* mode) {
    return File(std::fopen(path.c_str(), mode));
}

/// Folders that are emptied when the process ends.
class TempFolders {
public:
    ~TempFolders() {
        for (const std::string& folder : folders_) Strings::CleanUpFolder(folder);
    }

    void add(const std::string& folder) {
        if (std::find(folders_.begin(), folders_.end(), folder) == folders_.end()) folders_.push_back(folder);
    }

private:
    std::vector<std::string> folders_;
};

}  // namespace

int Strings::MakeFolder(const std::string& path, bool with_parent) {
    constexpr mode_t everyone = 0777;
    if (with_parent) {
        const std::string parent = FolderFromFile(path);
        if (!FileExists(parent)) mkdir(parent.c_str(), everyone);
    }
    return mkdir(path.c_str(), everyone);
}

std::vector<std::string> Strings::DirectoryList(const std::string& path) {
    std::vector<std::string> entries;
    const std::unique_ptr<DIR, DirCloser> folder(opendir(path.c_str()));
    if (folder == nullptr) return entries;
    while (const dirent* entry = readdir(folder.get())) {
        if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
        entries.push_back(MakePath(path, entry->d_name));
    }
    return entries;
}

void Strings::RegisterFolderForCleanup(const std::string& path) {
    static TempFolders tf;
    tf.add(path);
}

void Strings::CleanUpFolder(const std::string& path) {
    for (const std::string& entry : DirectoryList(path)) std::remove(entry.c_str());
}

bool Strings::FileExists(const std::string& path) {
    return openFile(path, "r") != nullptr;
}

bool Strings::LoadFileContent(const std::string& path, std::string& out) {
    out.clear();
    const File file = openFile(path, "rb");
    if (file == nullptr) return false;
    std::vector<char> chunk(65536);
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), file.get())) {
        out.append(chunk.data(), count);
    }
    if (std::ferror(file.get()) != 0) out.clear();
    return true;
}

bool Strings::SaveFileContent(const std::string& path, const std::string& content) {
    const File file = openFile(path, "wb");
    if (file == nullptr) return false;
    std::fwrite(content.data(), 1, content.size(), file.get());
    return true;
}

}  // namespace Velmar
