#include "engine/render/display.h"

#include <cmath>

namespace Velmar::Engine {

std::uint8_t encodeSrgb(float linear) {
    if (!(linear > 0.0f)) return 0;
    if (linear >= 1.0f) return 255;
    const float encoded = linear <= 0.0031308f ? 12.92f * linear : 1.055f * std::pow(linear, 1.0f / 2.4f) - 0.055f;
    return static_cast<std::uint8_t>(encoded * 255.0f + 0.5f);
}

std::vector<std::uint8_t> encodeSrgb(const LinearPicture& picture) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (Float3 pixel : picture.pixels)
        for (float channel : {pixel.x, pixel.y, pixel.z}) bytes.push_back(encodeSrgb(channel));
    return bytes;
}

}  // namespace Velmar::Engine
