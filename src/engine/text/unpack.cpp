// Takes packages apart, trusting nothing that they say of themselves.
#include "engine/text/package.h"
#include "engine/text/package_names.h"
#include "engine/text/refusal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include <array>
#include <filesystem>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Velmar::Engine {
namespace {

namespace fs = std::filesystem;

constexpr zip_int64_t most_members = 1 << 16;
// Bytes of all members together: for each byte of the package, and beyond that.
constexpr std::uintmax_t bytes_per_byte = 100;
constexpr std::uintmax_t free_bytes = std::uintmax_t{256} << 20;

struct CloseZip {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseMember {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// Folders that packages were unpacked to; they go when the process ends.
class Folders {
public:
    static Folders& all() {
        static Folders folders;
        return folders;
    }
    ~Folders() {
        for (const std::string& folder : folders_) remove(folder);
    }

    std::string make() {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "velmar-package-XXXXXX").string();
        if (error || mkdtemp(name.data()) == nullptr) throw Refusal("no folder to unpack it to");
        folders_.push_back(name);
        return name + "/";
    }

    static void remove(const std::string& folder) {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

private:
    std::vector<std::string> folders_;
};

class OutputFile {
public:
    /// Makes the file; one that is there already, a link included, is a failure.
    explicit OutputFile(const std::string& path)
        : descriptor_(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600)) {}
    ~OutputFile() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    bool write(const char* bytes, std::size_t count) {
        while (count > 0) {
            const ssize_t written = ::write(descriptor_, bytes, count);
            if (written <= 0) return false;
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
        return true;
    }

private:
    int descriptor_;
};

class Unpacking {
public:
    explicit Unpacking(const std::string& path) {
        int code = 0;
        archive_.reset(zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code));
        if (archive_ == nullptr) throw Refusal("it is no whole ZIP file");
        std::error_code error;
        const std::uintmax_t size = fs::file_size(path, error);
        left_ = free_bytes + (error ? 0 : size * bytes_per_byte);
        listMembers();
    }

    UnpackedPackage into(const std::string& folder) {
        for (zip_uint64_t i = 0; i < members_.size(); ++i) unpackMember(i, folder);
        return {folder, folder + scene_};
    }

private:
    void listMembers() {
        const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
        if (count < 0 || count > most_members) throw Refusal("it has too many members");
        std::unordered_set<std::string> names;
        for (zip_int64_t i = 0; i < count; ++i) {
            const char* name = zip_get_name(archive_.get(), static_cast<zip_uint64_t>(i), ZIP_FL_ENC_GUESS);
            members_.emplace_back(name == nullptr ? "" : name);
            if (!isSafeMember(members_.back())) throw Refusal("a member would leave its folder: " + members_.back());
            if (!names.insert(members_.back()).second) throw Refusal("a member stands there twice: " + members_.back());
            checkKind(static_cast<zip_uint64_t>(i));
            noteScene(members_.back());
        }
        if (scene_.empty()) throw Refusal("it has no scene text at its top");
    }

    void checkKind(zip_uint64_t index) {
        zip_uint8_t system = 0;
        zip_uint32_t attributes = 0;
        zip_file_get_external_attributes(archive_.get(), index, 0, &system, &attributes);
        const auto mode = static_cast<mode_t>(attributes >> 16U) & static_cast<mode_t>(S_IFMT);
        const bool plain = system != ZIP_OPSYS_UNIX || mode == 0 || mode == S_IFREG || mode == S_IFDIR;
        if (!plain) throw Refusal("a member is a link or a device: " + members_.back());
        zip_stat_t status;
        if (zip_stat_index(archive_.get(), index, 0, &status) != 0) throw Refusal("a member has no description");
        const bool encrypted =
            (status.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && status.encryption_method != ZIP_EM_NONE;
        if (encrypted) throw Refusal("a member is encrypted: " + members_.back());
    }

    void noteScene(const std::string& name) {
        if (name.find('/') != std::string::npos || !name.ends_with(".vxs")) return;
        if (!scene_.empty()) throw Refusal("it has more than one scene text at its top");
        scene_ = name;
    }

    void unpackMember(zip_uint64_t index, const std::string& folder) {
        const std::string& name = members_[index];
        const fs::path path = folder + name;
        std::error_code error;
        fs::create_directories(name.ends_with('/') ? path : path.parent_path(), error);
        if (error) throw Refusal("no folder for the member " + name);
        if (name.ends_with('/')) return;
        const std::unique_ptr<zip_file_t, CloseMember> member(zip_fopen_index(archive_.get(), index, 0));
        OutputFile file(path.string());
        if (member == nullptr || !file.isOpen()) throw Refusal("the member cannot be unpacked: " + name);
        copy(*member, file, name);
    }

    // Counts what comes out and not what the package promises.
    void copy(zip_file_t& member, OutputFile& file, const std::string& name) {
        std::array<char, 65536> bytes;
        while (true) {
            const zip_int64_t count = zip_fread(&member, bytes.data(), bytes.size());
            if (count == 0) return;
            if (count < 0) throw Refusal("the member is damaged: " + name);
            if (static_cast<std::uintmax_t>(count) > left_) throw Refusal("it unpacks to too many bytes");
            left_ -= static_cast<std::uintmax_t>(count);
            if (!file.write(bytes.data(), static_cast<std::size_t>(count))) throw Refusal("no room for " + name);
        }
    }

    std::unique_ptr<zip_t, CloseZip> archive_;
    std::vector<std::string> members_;
    std::string scene_;
    std::uintmax_t left_ = 0;
};

}  // namespace

UnpackedPackage unpackPackage(const std::string& path) {
    Unpacking unpacking(path);
    const std::string folder = Folders::all().make();
    try {
        return unpacking.into(folder);
    } catch (const Refusal&) {
        Folders::remove(folder);
        throw;
    }
}

}  // namespace Velmar::Engine
