#include "plugin/velmar/setters/quality.h"

#include <velmar/change.h>
#include <velmar/node.h>

#include <json/value.h>

#include <algorithm>

#include "plugin/utils/message.h"
#include "plugin/velmar/setters/camera.h"
#include "plugin/velmar/setters/setter_message.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

constexpr Vec2<int> kLargestSize{1000, 600};
constexpr Vec2<int> kDefaultSize{1024, 600};
constexpr int kDefaultSamples = 16000;
/// The size type of a new scene.
constexpr int kDefaultSizeType = 1;
/// The size type that takes the picture's size from the host's viewport.
constexpr int kSizeOfViewport = 2;

int width_ = kDefaultSize.x;
int height_ = kDefaultSize.y;
int max_samples_ = kDefaultSamples;
int size_type_ = kDefaultSizeType;
bool update_ = true;
Vec2<int> su_resolution_ = kDefaultSize;

Vec2<int> Capped(int width, int height) {
    return {std::min(width, kLargestSize.x), std::min(height, kLargestSize.y)};
}

/// A message's values. Reading throws jsoncpp's logic error on a value of the wrong kind.
struct QualityMessage {
    explicit QualityMessage(const Json::Value& message)
        : size(Capped(ReadInt(message, "width", kDefaultSize.x), ReadInt(message, "height", kDefaultSize.y))),
          size_type(ReadInt(message, "sizeType", 0)),
          max_samples(ReadInt(message, "maxSamples", kDefaultSamples)),
          update(ReadBool(message, "update", true)) {
        if (size_type == kSizeOfViewport) size = su_resolution_;
    }

    Vec2<int> size;
    int size_type;
    int max_samples;
    bool update;
};

Json::Value DefaultQualityMessage() {
    Json::Value message(Json::objectValue);
    message["cmd"] = 31;
    message["width"] = width_;
    message["height"] = height_;
    message["sizeType"] = size_type_;
    message["maxSamples"] = max_samples_;
    message["update"] = update_;
    return message;
}

bool SizeIs(Vec2<int> size) {
    return size == Vec2<int>{width_, height_};
}

void WriteMaxSamples(int samples) {
    max_samples_ = samples;
    ApiNode* const target = VelmarManager::RenderTarget();
    ApiNode* const kernel = target != nullptr ? target->inputNode(PIN_KERNEL) : nullptr;
    if (kernel != nullptr) kernel->setPinValue(PIN_MAX_SAMPLES, samples, true);
}

/// Gives the render target a new film of this size, and the camera the field of view that goes with it.
void WriteFilm(Vec2<int> size) {
    width_ = size.x;
    height_ = size.y;
    ApiNode* const target = VelmarManager::RenderTarget();
    ApiNode* const film =
        target != nullptr ? target->createInternal(PIN_FILM_SETTINGS, NODE_FILM_SETTINGS, true, true) : nullptr;
    if (film != nullptr) film->setPinValue(PIN_RESOLUTION, size, true);
    CameraSetter::UpdateFov();
}

}  // namespace

void QualitySetter::Init() {
    width_ = kDefaultSize.x;
    height_ = kDefaultSize.y;
    max_samples_ = kDefaultSamples;
    size_type_ = kDefaultSizeType;
    update_ = true;
    su_resolution_ = kDefaultSize;
    Set(Message::JsonToString(DefaultQualityMessage()));
}

void QualitySetter::Set(const std::string& json) {
    Json::Value value;
    if (!ParseSetterMessage(json, value)) return;
    const QualityMessage message(value);

    // note the wishes, before anything is written
    const bool resized = !SizeIs(message.size);
    size_type_ = message.size_type;
    update_ = message.update || resized;

    // carry a new number of samples to the kernel
    if (message.max_samples != max_samples_) {
        WriteMaxSamples(message.max_samples);
        ApiChangeManager::update();
    }

    // bring a new size to the film
    if (resized) WriteFilm(message.size);
    if (update_) ApiChangeManager::update();
}

bool QualitySetter::SetSketchupExtents(int width, int height) {
    su_resolution_ = Capped(width, height);
    if (size_type_ != kSizeOfViewport || SizeIs(su_resolution_)) return false;
    WriteFilm(su_resolution_);
    ApiChangeManager::update();
    return true;
}

}  // namespace Velmar
