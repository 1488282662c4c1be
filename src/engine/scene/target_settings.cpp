#include "engine/scene/target_settings.h"

#include <velmar/node.h>

#include <algorithm>
#include <cmath>

namespace Velmar::Engine {

namespace {

/// Reads pins of one camera node; a value that is not finite leaves what stands.
class CameraReader {
public:
    explicit CameraReader(const ApiNode& camera) : camera_(camera) {}

    void read(PinId pin, float& value, float factor = 1.0f) const {
        const float read = camera_.getPinFloat(pin) * factor;
        if (camera_.hasPin(pin) && isFinite(read)) value = read;
    }
    void read(PinId pin, Float3& value) const {
        const Float3 read = camera_.getPinFloat3(pin);
        if (camera_.hasPin(pin) && isFinite(read)) value = read;
    }
    void read(PinId pin, bool& value) const {
        if (camera_.hasPin(pin)) value = camera_.getPinBool(pin);
    }
    void read(PinId pin, Float2& value) const {
        unsigned index = 0;
        while (index < camera_.pinCount() && camera_.pinIdIx(index) != pin) ++index;
        const Float2 read = camera_.getPinFloat2Ix(index);
        if (index < camera_.pinCount() && isFinite(read.x) && isFinite(read.y)) value = read;
    }

private:
    const ApiNode& camera_;
};

void readThinLens(const CameraReader& reader, CameraSettings& settings) {
    constexpr float kMetresPerCentimetre = 0.01f;
    bool parallel = false;
    reader.read(PIN_ORTHOGRAPHIC, parallel);
    settings.projection = parallel ? Projection::Parallel : Projection::Perspective;
    reader.read(PIN_FOV, settings.fov_degrees);
    reader.read(PIN_ORTHOGRAPHIC_SCALE, settings.parallel_width);
    reader.read(PIN_LENS_SHIFT, settings.lens_shift);
    reader.read(PIN_PIXEL_ASPECT_RATIO, settings.pixel_aspect);
    reader.read(PIN_APERTURE, settings.aperture_radius, kMetresPerCentimetre);
    reader.read(PIN_APERTURE_ASPECT_RATIO, settings.aperture_aspect);
    reader.read(PIN_FOCAL_DEPTH, settings.focal_depth);
    reader.read(PIN_AUTOFOCUS, settings.autofocus);
}

void readPanorama(const CameraReader& reader, CameraSettings& settings) {
    settings.projection = Projection::Spherical;
    reader.read(PIN_FOV_X, settings.fov_degrees);
    reader.read(PIN_FOV_Y, settings.vertical_fov_degrees);
}

}  // namespace

std::optional<CameraSettings> readCamera(const ApiNode& render_target) {
    const ApiNode* camera = render_target.inputNode(PIN_CAMERA);
    if (camera == nullptr) return std::nullopt;
    const CameraReader reader(*camera);
    CameraSettings settings;
    if (camera->type() == NODE_THIN_LENS_CAMERA)
        readThinLens(reader, settings);
    else if (camera->type() == NODE_PANORAMIC_CAMERA)
        readPanorama(reader, settings);
    else
        return std::nullopt;
    reader.read(PIN_POSITION, settings.position);
    reader.read(PIN_TARGET, settings.target);
    reader.read(PIN_UP, settings.up);
    reader.read(PIN_NEAR_CLIP_DEPTH, settings.near_clip);
    return settings;
}

FilmSize readFilmSize(const ApiNode& render_target) {
    // Film settings say; without them the render target's own resolution counts.
    const ApiNode* film = render_target.inputNode(PIN_FILM_SETTINGS);
    if (film == nullptr || !film->hasPin(PIN_RESOLUTION)) film = &render_target;
    const Vec2<int> wished = film->getPinInt2(PIN_RESOLUTION);
    if (wished.x <= 0 || wished.y <= 0) return {};
    const double width = wished.x, height = wished.y;
    const double scale =
        std::min({1.0, kLargestFilmSide / std::max(width, height), std::sqrt(kLargestFilmArea / (width * height))});
    return {std::max(1, static_cast<int>(width * scale)), std::max(1, static_cast<int>(height * scale))};
}

std::optional<int> readMaxSamples(const ApiNode& render_target) {
    const ApiNode* kernel = render_target.inputNode(PIN_KERNEL);
    if (kernel == nullptr || !kernel->hasPin(PIN_MAX_SAMPLES)) return std::nullopt;
    return std::max(1, kernel->getPinInt(PIN_MAX_SAMPLES));
}

}  // namespace Velmar::Engine
