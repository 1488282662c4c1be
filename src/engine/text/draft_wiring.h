// Checks and works out what follows from the wiring of a draft.
#pragma once

#include "engine/text/scene_draft.h"

namespace Velmar::Engine {

/// Fills `order`. Throws Refusal when nodes depend on each other in a circle.
void orderNodes(SceneDraft& draft);

/// Gives each node as many pins as its attributes, or the geometry on its first pin, ask for, and at least those that
/// the text fills. Needs `order`. Throws Refusal when a node has more than SceneFormat::kMostSlots of them, or all
/// together more than `most`.
void countPins(SceneDraft& draft, std::size_t most);

}  // namespace Velmar::Engine
