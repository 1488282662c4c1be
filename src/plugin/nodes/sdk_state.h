// Whether there is an SDK to call at all.
#pragma once

#include <velmar/project.h>

namespace Velmar {

/// False before the SDK's start and after its stop. Then every node and graph that was borrowed from it is gone, and
/// nothing may be called on one.
inline bool SdkRuns() {
    return ApiProjectManager::rootNodeGraph() != nullptr;
}

}  // namespace Velmar
