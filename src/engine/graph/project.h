// The one project that the library holds: its root graph, its settings and the selected item. Start and stop of the
// graph room stand here; whoever starts the library calls them. SDK thread only.
#pragma once

namespace Velmar {
class ApiItem;
}

namespace Velmar::Engine {

class Project {
public:
    /// Makes the root graph and the settings. False, and no change, when the project runs already.
    static bool start();
    /// Ends all items, tombstones too, all observation and the change log. Does nothing when the project does not run.
    /// No pointer to an item may be used afterwards.
    static void stop();
    static bool running();

    /// The item that was selected last; null when there is none or it is gone.
    static ApiItem* selectedItem();
};

}  // namespace Velmar::Engine
