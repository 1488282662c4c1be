#include "engine/text/package.h"

#include "engine/catalog/engine_log.h"
#include "engine/text/package_names.h"
#include "engine/text/refusal.h"
#include "engine/text/scene_text.h"

#include <zip.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <unordered_set>
#include <vector>

namespace Velmar::Engine {
namespace {

constexpr const char* scene_name = "scene.vxs";

struct DiscardZip {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Zip = std::unique_ptr<zip_t, DiscardZip>;

std::optional<std::string> readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return {};
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (file.bad()) return {};
    return bytes;
}

bool isRegularFile(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

std::string messageOf(zip_t* archive) {
    return zip_error_strerror(zip_get_error(archive));
}

// Adds a member, with the same date whenever it is written, so that one graph gives one package.
void addMember(zip_t* archive, const std::string& name, zip_source_t* source) {
    constexpr zip_uint16_t first_day = (1U << 5U) | 1U;  // of 1980
    const zip_int64_t index = source == nullptr ? -1 : zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        throw Refusal(name + ": " + messageOf(archive));
    }
    zip_file_set_dostime(archive, static_cast<zip_uint64_t>(index), 0, first_day, 0);
}

bool refused(const std::string& path, const std::string& reason) {
    logLine("scene file " + path + " refused: " + reason);
    return false;
}

void savePackage(const std::string& path, const std::string& text, const std::vector<std::string>& files,
                 MemberNames& names) {
    int code = 0;
    Zip archive(zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (archive == nullptr) throw Refusal("the file cannot be opened");
    addMember(archive.get(), scene_name, zip_source_buffer(archive.get(), text.data(), text.size(), 0));
    for (const std::string& file : files) {
        addMember(archive.get(), names.of(file), zip_source_file(archive.get(), file.c_str(), 0, -1));
    }
    if (zip_close(archive.get()) != 0) throw Refusal(messageOf(archive.get()));
    archive.release();
}

}  // namespace

bool importFile(GraphRecord& graph, const std::string& path, ApiRootNodeGraph::AssetResolver resolver, void* user,
                unsigned& version) {
    UnpackedPackage scene{std::string(folderOf(path)), path};
    std::optional<std::string> text = isRegularFile(path) ? readFile(path) : std::nullopt;
    const bool packed = text && text->starts_with("PK\x03\x04");
    if (packed) {
        try {
            scene = unpackPackage(path);
        } catch (const Refusal& refusal) {
            return refused(path, refusal.what());
        }
        text = readFile(scene.scene_path);
    }
    if (!text) return refused(path, "it cannot be read");
    const bool taken = importScene(graph, *text, {scene.folder, resolver, user}, version);
    if (packed && !taken) {
        std::error_code ignored;
        std::filesystem::remove_all(scene.folder, ignored);
    }
    return taken;
}

bool writePackage(const GraphRecord& graph, const std::string& path) {
    MemberNames names;
    std::vector<std::string> files;
    std::unordered_set<std::string> known;
    WriteOptions options;
    options.asset_name = [&](const std::string& name) {
        if (known.insert(name).second && isRegularFile(name)) files.push_back(name);
        return isRegularFile(name) ? names.of(name) : name;
    };
    const std::optional<std::string> text = exportScene(graph, options);
    if (!text) return false;
    for (const std::string& name : known) {
        if (!isRegularFile(name)) logLine("package " + path + " goes without " + name + ", which is not there");
    }
    try {
        savePackage(path, *text, files, names);
        return true;
    } catch (const Refusal& refusal) {
        logLine("package " + path + " is not written: " + refusal.what());
        return false;
    }
}

}  // namespace Velmar::Engine
