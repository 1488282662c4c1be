#include "plugin/velmar/render_targets.h"

#include <velmar/node.h>

#include <algorithm>

namespace Velmar {

ApiNode* RenderTargets::InUse() const {
    const auto found = nodes.find(current_page);
    if (found != nodes.end()) return found->second;
    return nodes.empty() ? nullptr : nodes.begin()->second;
}

bool RenderTargets::Contains(const ApiItem* item) const {
    return std::any_of(nodes.begin(), nodes.end(), [item](const auto& entry) { return entry.second == item; });
}

RenderTargets& RenderTargets::Shared() {
    static RenderTargets targets;
    return targets;
}

}  // namespace Velmar
