// Graphs to text and back, and their layout, as the SDK knows them.
#include "engine/graph/operation_log.h"
#include "engine/text/layout.h"
#include "engine/text/package.h"
#include "engine/text/scene_text.h"

#include <velmar/graph.h>

namespace Velmar {

using Engine::AssetLookup;
using Engine::Edit;
using Engine::ElementCount;
using Engine::GraphRecord;
using Engine::OperationLog;

namespace {

std::string folderOfFile(const char* path) {
    return std::string(Engine::folderOf(path == nullptr ? "" : path));
}

}  // namespace

void ApiNodeGraph::unfold(bool recurse) {
    OperationLog::record("unfold", this, recurse);
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    std::vector<GraphRecord*> open{record};
    while (!open.empty()) {
        GraphRecord& graph = *open.back();
        open.pop_back();
        Engine::layOut(edit, graph);
        for (ItemRecord* item = graph.first; recurse && item != nullptr; item = item->next) {
            if (!item->isNode()) open.push_back(static_cast<GraphRecord*>(item));
        }
    }
    edit.finish();
}

const char* ApiRootNodeGraph::exportToString(const char* path, bool with_assets) {
    GraphRecord* record = GraphRecord::of(this);
    if (record == nullptr) return "";
    Engine::WriteOptions options;
    const std::string folder = folderOfFile(path);
    options.asset_name = [&folder, with_assets](const std::string& name) {
        return with_assets ? std::string(Engine::relativeTo(folder, name)) : std::string();
    };
    record->text = Engine::exportScene(*record, options).value_or("");
    return record->text.c_str();
}

bool ApiRootNodeGraph::import(const char* text, std::size_t size, const char* path, unsigned& version_out,
                              AssetResolver resolver, void* user) {
    OperationLog::record("import", this, ElementCount{size}, path);
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr || text == nullptr) return false;
    const AssetLookup assets{folderOfFile(path), resolver, user};
    return Engine::importScene(*record, {text, size}, assets, version_out);
}

bool ApiRootNodeGraph::import(const char* path, unsigned& version_out, AssetResolver resolver, void* user) {
    OperationLog::record("import", this, path);
    GraphRecord* record = GraphRecord::alive(this);
    if (record == nullptr || path == nullptr) return false;
    return Engine::importFile(*record, path, resolver, user, version_out);
}

}  // namespace Velmar
