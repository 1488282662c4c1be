// Start and stop of the library, and the one project that it holds.
#pragma once

#include <velmar/export.h>

namespace Velmar {

class ApiItem;
class ApiNode;
class ApiRootNodeGraph;

/// Loads and starts the library inside the host process. `identity` names the plug-in, `reserved` is false, `error_out`
/// receives a reason on failure (static text), `callback` is called with `user` when the library wants to end, null for
/// no call. False on failure and when the library runs already.
VELMAR_SDK bool apiMode_Shared_start(const char* identity, bool reserved, const char** error_out,
                                     void (*callback)(void* user), void* user);
/// Ends the library: stops the render threads, destroys all items, tombstones too. `error_out` may be null. A second
/// call, or one before the start, does nothing. The library may be started again afterwards.
VELMAR_SDK void apiMode_Shared_exit(const char** error_out);

/// The project. Between stop and start all answers are null.
class VELMAR_SDK ApiProjectManager {
public:
    /// The project's root graph, in which render targets and the geometry group live.
    static ApiRootNodeGraph* rootNodeGraph();
    /// The settings item of the project; it carries ATTR_PROJECT_FLAG.
    static ApiNode* projectSettings();
};

}  // namespace Velmar
