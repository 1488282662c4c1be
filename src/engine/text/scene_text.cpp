#include "engine/text/scene_text.h"

#include "engine/catalog/engine_log.h"
#include "engine/text/refusal.h"
#include "engine/text/scene_builder.h"
#include "engine/text/scene_reader.h"

#include <algorithm>

namespace Velmar::Engine {
namespace {

void logRefusal(const Refusal& refusal, std::string_view text) {
    std::string place;
    if (refusal.offset() >= 0) {
        const std::size_t end = std::min(text.size(), static_cast<std::size_t>(refusal.offset()));
        const auto line = std::ranges::count(text.substr(0, end), '\n') + 1;
        place = " at line " + std::to_string(line);
    }
    logLine("scene text refused" + place + ": " + refusal.what());
}

}  // namespace

std::optional<std::string> exportScene(const GraphRecord& graph, const WriteOptions& options) {
    try {
        return writeScene(graph, options);
    } catch (const Refusal& refusal) {
        logLine("graph \"" + graph.name + "\" is not written as scene text: " + refusal.what());
        return {};
    }
}

bool importScene(GraphRecord& graph, std::string_view text, const AssetLookup& assets, unsigned& version) {
    SceneDraft draft;
    try {
        draft = readDraft(text, assets, version);
    } catch (const Refusal& refusal) {
        logRefusal(refusal, text);
        return false;
    }
    Edit edit;
    buildScene(edit, draft, graph);
    edit.finish();
    return true;
}

}  // namespace Velmar::Engine
