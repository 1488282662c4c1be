#include "engine/scene/acceleration.h"

#include <new>
#include <stdexcept>
#include <string>

#include "engine/catalog/engine_log.h"

namespace Velmar::Engine {

namespace {
void logError(void*, RTCError, const char* text) {
    logLine(std::string("ray intersection: ") + text);
}
}  // namespace

AccelerationDevice::AccelerationDevice() : device_(rtcNewDevice(nullptr)) {
    if (device_ == nullptr) throw std::runtime_error("the ray intersection library does not start");
    rtcSetDeviceErrorFunction(device_, logError, nullptr);
}

AccelerationDevice::~AccelerationDevice() {
    rtcReleaseDevice(device_);
}

void AccelerationDevice::throwIfMemoryRanOut() const {
    if (rtcGetDeviceError(device_) == RTC_ERROR_OUT_OF_MEMORY) throw std::bad_alloc();
}

}  // namespace Velmar::Engine
