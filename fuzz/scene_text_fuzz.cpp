// Feeds bytes to all that reads scene texts. What is taken must write a text that is taken again and writes
// the same, and can be laid out; what is refused must leave the graph empty.
#include <velmar/arrays.h>
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/project.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace Velmar;

namespace {

constexpr unsigned kVersion = 3080100;

void expect(bool holds) {
    if (!holds) std::abort();
}

bool read(ApiRootNodeGraph* graph, const std::string& text) {
    unsigned version = 0;
    return graph->import(text.data(), text.size(), "/scenes/hall.vxs", version, nullptr, nullptr);
}

void tryText(const std::string& text) {
    ApiRootNodeGraph* const graph = ApiRootNodeGraph::create(kVersion);
    if (read(graph, text)) {
        graph->unfold(true);
        const std::string once = graph->exportToString("/scenes/hall.vxs", true);
        ApiRootNodeGraph* const again = ApiRootNodeGraph::create(kVersion);
        expect(read(again, once) && again->exportToString("/scenes/hall.vxs", true) == once);
        again->destroy();
    } else {
        ApiItemArray items;
        graph->getOwnedItems(items);
        expect(items.size() == 0);
    }
    graph->destroy();
    ApiChangeManager::update();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Destroyed items leave a tombstone each until the library stops, so it starts anew now and then.
    static unsigned inputs = 0;
    if (inputs++ % 10000 == 0) {
        apiMode_Shared_exit(nullptr);
        expect(apiMode_Shared_start("scene_text_fuzz", false, nullptr, nullptr, nullptr));
    }
    tryText({reinterpret_cast<const char*>(data), size});
    return 0;
}
