// Apart from the walks over graphs: programs without a window do without the SDK's window classes.
#include <velmar/window.h>

#include "plugin/nodes/input_walk.h"

namespace Velmar {

std::pair<Vec2<float>, Vec2<float>> GetExtent(ApiGuiComponent* pane) {
    if (pane == nullptr) return {};
    return {{static_cast<float>(pane->xPosition()), static_cast<float>(pane->yPosition())},
            {static_cast<float>(pane->width()), static_cast<float>(pane->height())}};
}

}  // namespace Velmar
