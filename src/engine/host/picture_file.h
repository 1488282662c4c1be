// Writing a picture to a file, by way of the image library, which is loaded at the first call.
#pragma once

#include "engine/render/film.h"

#include <string>

namespace Velmar::Engine {

/// As EngineHost::savePicture() says: 8-bit sRGB for ".png", linear floats for ".exr"; whole or not there.
bool writePicture(const LinearPicture& picture, const std::string& path, std::string& error);

}  // namespace Velmar::Engine
