// The render targets of the model's pages, by page name, and which of them is in use. Holds borrowed nodes; a node can
// be null. Knows nothing of what a render target is made of.
#pragma once

#include <map>
#include <string>

namespace Velmar {

class ApiItem;
class ApiNode;

/// The state behind VelmarManager::RenderTarget. A plain value without a lock: it belongs to the Ruby thread.
class RenderTargets {
public:
    /// The page whose render target is in use; it need not stand in the map.
    std::string current_page;
    /// One node for each page name, in ascending order of the names.
    std::map<std::string, ApiNode*> nodes;

    /// The node of the current page, else the first one, else null. Adds nothing.
    ApiNode* InUse() const;
    /// True when `item` is one of the nodes, by address.
    bool Contains(const ApiItem* item) const;

    /// The one table of the process.
    static RenderTargets& Shared();
};

}  // namespace Velmar
