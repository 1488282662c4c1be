#include "engine/host/picture_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>

#include <dlfcn.h>
#include <unistd.h>

#include "engine/images/images.h"
#include "engine/render/display.h"

namespace Velmar::Engine {

namespace {

using WriteImage = decltype(&velmar_write_image);

// The image library lies beside this one and stays loaded: its own libraries do not bear being let go.
WriteImage loadWriter(std::string& error) {
    static WriteImage writer = nullptr;
    if (writer != nullptr) return writer;
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&loadWriter), &info) == 0) {
        error = "the image library cannot be found";
        return nullptr;
    }
    const auto path = std::filesystem::path(info.dli_fname).replace_filename("libvelmar_images.so");
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library != nullptr) writer = reinterpret_cast<WriteImage>(dlsym(library, "velmar_write_image"));
    if (writer == nullptr) {
        const char* const reason = dlerror();
        error = std::string("the image library cannot be loaded: ") + (reason != nullptr ? reason : path.c_str());
    }
    return writer;
}

enum class Format { Png, Exr };

std::optional<Format> formatOf(const std::filesystem::path& path) {
    std::string ending = path.extension();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ending == ".png") return Format::Png;
    if (ending == ".exr") return Format::Exr;
    return std::nullopt;
}

bool writeAs(Format format, const LinearPicture& picture, const std::string& path, WriteImage write,
             std::string& error) {
    std::vector<std::uint8_t> bytes;
    VelmarImage image{picture.width, picture.height, 3, VELMAR_PIXEL_FLOAT, picture.pixels.data()};
    if (format == Format::Png) {
        bytes = encodeSrgb(picture);
        image.type = VELMAR_PIXEL_BYTE;
        image.pixels = bytes.data();
    }
    std::array<char, 512> reason{};
    const char* const name = format == Format::Png ? "png" : "openexr";
    if (write(path.c_str(), name, &image, reason.data(), reason.size()) != 0) return true;
    error = reason.data();
    return false;
}

}  // namespace

bool writePicture(const LinearPicture& picture, const std::string& path, std::string& error) {
    const std::filesystem::path target(path);
    const auto format = formatOf(target);
    if (!format) {
        error = "the ending of \"" + path + "\" is neither .png nor .exr";
        return false;
    }
    std::error_code failure;
    const auto folder = target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
    if (!std::filesystem::is_directory(folder, failure)) {
        error = "there is no folder \"" + folder.string() + "\"";
        return false;
    }
    if (std::filesystem::is_directory(target, failure)) {
        error = "\"" + path + "\" is a folder";
        return false;
    }
    const WriteImage write = loadWriter(error);
    if (write == nullptr) return false;

    // Write beside the file and put the whole of it in its place at once.
    const auto part = folder / ("." + target.filename().string() + "." + std::to_string(getpid()) + ".part");
    if (writeAs(*format, picture, part.string(), write, error)) {
        std::filesystem::rename(part, target, failure);
        if (!failure) return true;
        error = failure.message();
    }
    error = "cannot write \"" + path + "\": " + error;
    std::filesystem::remove(part, failure);
    return false;
}

}  // namespace Velmar::Engine
