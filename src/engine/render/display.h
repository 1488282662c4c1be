// From linear radiance to the numbers of a screen.
#pragma once

#include "engine/render/film.h"

#include <cstdint>
#include <vector>

namespace Velmar::Engine {

/// One channel in sRGB (IEC 61966-2-1), rounded to the nearest of 256 steps; what is no number is black.
std::uint8_t encodeSrgb(float linear);

/// Three bytes for each pixel, rows from the top.
std::vector<std::uint8_t> encodeSrgb(const LinearPicture& picture);

}  // namespace Velmar::Engine
