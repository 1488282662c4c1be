// The ray intersection library, wrapped: the device, and shared ownership of what is built on it. Knows nothing of
// nodes. Building is for the thread that compiles the scene; a built scene may be traced from any thread.
#pragma once

#include <embree3/rtcore.h>

#include <memory>
#include <type_traits>

namespace Velmar::Engine {

/// Coordinates and matrix elements beyond this are no geometry: products of them would leave the range that the library
/// can sort, metres.
inline constexpr float kLargestCoordinate = 1.0e9f;

struct SceneRelease {
    void operator()(RTCScene scene) const { rtcReleaseScene(scene); }
};
using OwnedScene = std::unique_ptr<std::remove_pointer_t<RTCScene>, SceneRelease>;

struct GeometryRelease {
    void operator()(RTCGeometry geometry) const { rtcReleaseGeometry(geometry); }
};
using OwnedGeometry = std::unique_ptr<std::remove_pointer_t<RTCGeometry>, GeometryRelease>;

/// The device. Scenes made on it keep it alive.
class AccelerationDevice {
public:
    AccelerationDevice();
    ~AccelerationDevice();
    AccelerationDevice(const AccelerationDevice&) = delete;
    AccelerationDevice& operator=(const AccelerationDevice&) = delete;

    RTCDevice get() const { return device_; }
    /// Throws std::bad_alloc when memory has run out since the last call.
    void throwIfMemoryRanOut() const;

private:
    RTCDevice device_;
};

}  // namespace Velmar::Engine
