// Reads a scene text into a draft. Touches no graph.
#pragma once

#include "engine/text/asset_names.h"
#include "engine/text/scene_draft.h"

#include <string_view>

namespace Velmar::Engine {

/// All of the text, checked. `version` receives the text's version as soon as it is known, also when the text is then
/// refused. Throws Refusal for a text that is no scene text, or says what no scene can be.
SceneDraft readDraft(std::string_view text, const AssetLookup& assets, unsigned& version);

}  // namespace Velmar::Engine
