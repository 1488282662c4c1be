// Scene texts: writing a graph of 10,000 nodes and reading it back, against the XML library alone printing and parsing
// the same bytes; and whether the cost of each grows with the size of the graph and no faster.
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <cstdio>
#include <cstdlib>
#include <pugixml.hpp>
#include <string>

#include "ratio_rounds.h"

namespace {

using namespace Velmar;
using Bench::Compare;

constexpr unsigned kVersion = 3080100;

/// A graph of about `nodes` nodes, internal ones among them: materials with a picture each that stands on two pins, a
/// mesh with some points for every tenth, and graphs of a hundred.
ApiRootNodeGraph* MakeGraph(unsigned nodes) {
    ApiRootNodeGraph* root = ApiRootNodeGraph::create(kVersion);
    ApiNodeGraph* graph = root;
    unsigned made = 0;
    for (unsigned i = 0; made < nodes; ++i) {
        if (i % 100 == 0) graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
        const std::string name = "Material " + std::to_string(i);
        ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, graph, true);
        ApiNode* image = ApiNode::create(NODE_IMAGE, graph, true);
        material->setName(name.c_str());
        material->setPosition({static_cast<float>(i) * 0.37f, 100.0f});
        image->set(ATTR_FILENAME, ("/library/maps/" + name + ".png").c_str(), true);
        for (const unsigned pin : {0u, material->pinCount() - 1}) material->connectToIx(pin, image, true, false);
        made += 2;
        for (ApiNode* node : {material, image}) {
            for (unsigned pin = 0; pin < node->pinCount(); ++pin) {
                ApiNode* input = node->connectedNodeIx(pin);
                if (input == nullptr || !input->pinOwned()) continue;
                input->set(ATTR_VALUE, static_cast<float>(i + pin) * 0.013f, true);
                ++made;
            }
        }
        if (i % 10 != 0) continue;
        Vec3<float> points[30];
        for (int k = 0; k < 30; ++k) points[k] = {static_cast<float>(k) / 7.0f, static_cast<float>(i), -0.1f};
        ApiNode::create(NODE_MESH, graph, true)->set(ATTR_VERTICES, points, 30, true);
        ++made;
    }
    return root;
}

struct TextWriter final : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
};

bool failed = false;

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "text_bench: %s\n", what);
    failed = true;
}

void Export(ApiRootNodeGraph* graph) {
    Expect(*graph->exportToString(nullptr, true) != '\0', "nothing was written");
}

void Import(const std::string& text) {
    ApiRootNodeGraph* graph = ApiRootNodeGraph::create(kVersion);
    unsigned version = 0;
    Expect(graph->import(text.data(), text.size(), nullptr, version, nullptr, nullptr), "a text was refused");
    graph->destroy();
    ApiChangeManager::update();
}

void CompareWithXmlAlone(ApiRootNodeGraph* graph, const std::string& text) {
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    std::size_t printed = 0;
    Compare(
        "export 10,000 nodes / printing the same XML", 0.15,
        [&] {
            TextWriter writer;
            document.save(writer, "  ", pugi::format_indent, pugi::encoding_utf8);
            printed = writer.text.size();
        },
        [&] { Export(graph); });
    Expect(printed > text.size() * 9 / 10, "the printed XML is not of the same size");
    Compare(
        "import 10,000 nodes / parsing the same XML", 0.05,
        [&] {
            pugi::xml_document parsed;
            Expect(static_cast<bool>(parsed.load_buffer(text.data(), text.size())), "the XML was not parsed");
        },
        [&] { Import(text); });
}

/// The same items made by copying them, which is what an import costs beside its text.
void CompareWithCopying(ApiRootNodeGraph* graph, const std::string& text) {
    ApiItemArray items;
    graph->getOwnedItems(items);
    Compare(
        "import 10,000 nodes / copying the same nodes", 0.5,
        [&] {
            ApiRootNodeGraph* copy = ApiRootNodeGraph::create(kVersion);
            for (std::size_t i = 0; i < items.size(); ++i) copy->copyItemTree(items.get(i));
            copy->destroy();
            ApiChangeManager::update();
        },
        [&] { Import(text); });
}

/// Ten pieces of work against one of ten times the size: near 1 where the cost grows with the size, a tenth where it
/// grows with its square.
template <typename Small, typename Large>
void CompareGrowth(const char* name, double goal, const Small& small, const Large& large) {
    Compare(
        name, goal,
        [&small] {
            for (int i = 0; i < 10; ++i) small();
        },
        large);
}

}  // namespace

int main() {
    if (!apiMode_Shared_start("text_bench", false, nullptr, nullptr, nullptr)) return EXIT_FAILURE;
    ApiRootNodeGraph* graphs[] = {MakeGraph(1'000), MakeGraph(10'000), MakeGraph(100'000)};
    std::string texts[3];
    for (int i = 0; i < 3; ++i) texts[i] = graphs[i]->exportToString(nullptr, true);

    CompareWithXmlAlone(graphs[1], texts[1]);
    CompareWithCopying(graphs[1], texts[1]);
    CompareGrowth(
        "export, ten of 1,000 / one of 10,000", 0.5, [&] { Export(graphs[0]); }, [&] { Export(graphs[1]); });
    CompareGrowth(
        "export, ten of 10,000 / one of 100,000", 0.5, [&] { Export(graphs[1]); }, [&] { Export(graphs[2]); });
    CompareGrowth(
        "import, ten of 1,000 / one of 10,000", 0.5, [&] { Import(texts[0]); }, [&] { Import(texts[1]); });
    CompareGrowth(
        "import, ten of 10,000 / one of 100,000", 0.5, [&] { Import(texts[1]); }, [&] { Import(texts[2]); });
    CompareGrowth(
        "layout, ten of 10,000 / one of 100,000", 0.0, [&] { graphs[1]->unfold(true); },
        [&] { graphs[2]->unfold(true); });

    ApiRootNodeGraph* back = ApiRootNodeGraph::create(kVersion);
    unsigned version = 0;
    Expect(back->import(texts[1].data(), texts[1].size(), nullptr, version, nullptr, nullptr) &&
               back->exportToString(nullptr, true) == texts[1],
           "what was read does not write the same text");
    apiMode_Shared_exit(nullptr);
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
