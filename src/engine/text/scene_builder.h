// Puts a draft into a graph.
#pragma once

#include "engine/graph/edit.h"
#include "engine/text/scene_draft.h"

namespace Velmar::Engine {

/// Makes all of the draft in `target`, behind what stands there. The draft must have been checked; its values are moved
/// out of it. As for a copied tree, the change log and the observers hear of each item as a whole.
void buildScene(Edit& edit, SceneDraft& draft, GraphRecord& target);

}  // namespace Velmar::Engine
