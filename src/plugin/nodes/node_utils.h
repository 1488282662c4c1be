// Small tools on nodes of the render graph that all managers share. They hold no state and own nothing; every call
// comes from the thread that runs Ruby.
#pragma once

#include <velmar/node.h>

namespace Velmar {

/// Static functions on borrowed nodes and items.
class NodeUtils {
public:
    /// Destroys `node` and nulls the pointer. A node that a pin owns goes with its pin: it is left alone, and the
    /// pointer keeps its value. Null is fine.
    static void SafeDestroy(ApiNode*& node);
    /// Destroys `item`; null is fine. Serves as deleter of shared pointers to graphs.
    static void DestroyItem(ApiItem* item);
};

}  // namespace Velmar
