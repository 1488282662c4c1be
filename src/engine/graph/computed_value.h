// Values that follow from the pins of their node.
#pragma once

#include "engine/graph/records.h"

namespace Velmar::Engine {

/// What the first attribute of a computed node must be, as its pins stand.
Value computedValue(const NodeRecord& node);

}  // namespace Velmar::Engine
