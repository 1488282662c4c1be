// Scene texts and graphs, whole: what the SDK's calls and packages share. SDK thread only.
#pragma once

#include "engine/graph/records.h"
#include "engine/text/asset_names.h"
#include "engine/text/scene_writer.h"

#include <optional>
#include <string>
#include <string_view>

namespace Velmar::Engine {

/// The graph as scene text; none, and a line in the log, when it cannot be written.
std::optional<std::string> exportScene(const GraphRecord& graph, const WriteOptions& options);

/// Reads scene text into a graph, behind what stands there. False, a line in the log that says where and why, and an
/// unchanged graph, when the text is refused. `version` is written as soon as the text's version is known.
bool importScene(GraphRecord& graph, std::string_view text, const AssetLookup& assets, unsigned& version);

}  // namespace Velmar::Engine
