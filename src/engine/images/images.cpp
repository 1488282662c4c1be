#include "engine/images/images.h"

#include <OpenImageIO/imageio.h>

#include <cstdio>
#include <exception>
#include <string>

namespace {

std::string writeImage(const char* path, const char* format, const VelmarImage& image) {
    auto output = OIIO::ImageOutput::create(format);
    if (!output) return OIIO::geterror();

    const bool bytes = image.type == VELMAR_PIXEL_BYTE;
    const OIIO::TypeDesc type = bytes ? OIIO::TypeDesc::UINT8 : OIIO::TypeDesc::FLOAT;
    OIIO::ImageSpec spec(image.width, image.height, image.channels, type);
    spec.attribute("oiio:ColorSpace", bytes ? "sRGB" : "Linear");
    if (!bytes) spec.attribute("compression", "zip");

    if (!output->open(path, spec)) return output->geterror();
    if (!output->write_image(type, image.pixels)) return output->geterror();
    if (!output->close()) return output->geterror();
    return {};
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int velmar_write_image(const char* path, const char* format,
                                                                         const VelmarImage* image, char* error,
                                                                         unsigned error_size) {
    std::string reason;
    try {
        reason = writeImage(path, format, *image);
    } catch (const std::exception& failure) {
        reason = failure.what();
    }
    if (!reason.empty()) std::snprintf(error, error_size, "%s", reason.c_str());
    return reason.empty() ? 1 : 0;
}
