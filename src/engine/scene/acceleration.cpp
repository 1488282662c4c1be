#include "engine/scene/acceleration.h"

#include <stdexcept>

namespace Velmar::Engine {

AccelerationDevice::AccelerationDevice() : device_(rtcNewDevice(nullptr)) {
    if (device_ == nullptr) throw std::runtime_error("the ray intersection library does not start");
}

AccelerationDevice::~AccelerationDevice() {
    rtcReleaseDevice(device_);
}

}  // namespace Velmar::Engine
