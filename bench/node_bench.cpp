// Node trees as JSON: writing a tree of 10,000 nodes as text and making it again from the text, against the JSON
// library alone printing and parsing the same bytes; and whether the cost of each grows with the size of the tree and
// no faster.
#include <json/reader.h>
#include <json/value.h>
#include <json/writer.h>
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>

#include "plugin/nodes/node_utils.h"
#include "plugin/utils/message.h"
#include "ratio_rounds.h"

// The bytes of the plug-in's texts are those of the library's older reader and writer.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

using namespace Velmar;
using Bench::Compare;

constexpr unsigned kVersion = 3080100;

bool failed = false;

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "node_bench: %s\n", what);
    failed = true;
}

/// Makes a tree of about `nodes` nodes, those that pins own among them: mix materials over mix materials, each level
/// filled before the next is begun, and below them glossy materials with a picture each. Its depth is the logarithm of
/// its size.
class Tree {
public:
    explicit Tree(unsigned nodes) : graph_(ApiRootNodeGraph::create(kVersion)) {
        top_ = Make(NODE_MATERIAL_MIX);
        std::deque<ApiNode*> open{top_};
        while (size_ < nodes && !open.empty()) {
            ApiNode* const mix = open.front();
            open.pop_front();
            const bool wide_enough = open.size() * 16 > nodes;
            for (unsigned pin = 0; pin < mix->pinCount(); ++pin) {
                if (mix->pinTypeIx(pin) != PIN_TYPE_MATERIAL) continue;
                ApiNode* const child = wide_enough ? MakePainted() : Make(NODE_MATERIAL_MIX);
                mix->connectToIx(pin, child, true, false);
                if (!wide_enough) open.push_back(child);
            }
        }
        const unsigned counted = Count(*top_);
        Expect(counted >= nodes && counted < nodes + 100, "a tree is not of the size that is wanted");
    }

    ApiNode* Top() const { return top_; }

private:
    static unsigned Count(const ApiNode& node) {
        unsigned count = 1;
        for (unsigned pin = 0; pin < node.pinCount(); ++pin) {
            const ApiNode* const input = node.connectedNodeIx(pin);
            if (input != nullptr) count += Count(*input);
        }
        return count;
    }

    /// A node with a name and values of its own.
    ApiNode* Make(NodeType type) {
        ApiNode* const node = ApiNode::create(type, graph_, true);
        node->setName(("Node " + std::to_string(++size_)).c_str());
        for (unsigned pin = 0; pin < node->pinCount(); ++pin) {
            ApiNode* const input = node->connectedNodeIx(pin);
            if (input != nullptr) input->set(ATTR_VALUE, static_cast<float>(++size_) * 0.013f, true);
        }
        return node;
    }

    ApiNode* MakePainted() {
        ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
        ApiNode* const image = Make(NODE_IMAGE);
        image->set(ATTR_FILENAME, ("/library/maps/" + std::to_string(size_) + ".png").c_str(), true);
        material->connectTo(PIN_DIFFUSE, image, true, false);
        --size_;  // the value whose place the image took
        return material;
    }

    ApiRootNodeGraph* graph_;
    ApiNode* top_ = nullptr;
    unsigned size_ = 0;
};

std::string Print(const Json::Value& json) {
    return Json::StyledWriter().write(json);
}

Json::Value Parse(const std::string& text) {
    Json::Value json;
    Expect(Json::Reader().parse(text, json, true), "a text was not parsed");
    return json;
}

std::string Write(const Tree& tree) {
    return Message::JsonToString(NodeUtils::NodeToStr(tree.Top(), true));
}

void Describe(const Tree& tree) {
    Expect(NodeUtils::NodeToStr(tree.Top(), false).isObject(), "nothing was described");
}

void Make(const Json::Value& record) {
    Expect(NodeUtils::StrToNode(record, 0, nullptr, PIN_UNKNOWN) != nullptr, "no tree was made");
    ApiProjectManager::rootNodeGraph()->clear();
    ApiChangeManager::update();
}

void Read(const std::string& text) {
    Make(Message::StringToJson(text));
}

void CompareWithJsonAlone(const Tree& tree, const std::string& text) {
    const Json::Value json = Parse(text);
    Expect(Print(json) == text, "the printed JSON is not the same");
    Compare(
        "node record and text, 10,000 nodes / printing the same JSON", 0.25,
        [&] { Expect(Print(json).size() == text.size(), "the printed JSON is not of the same size"); },
        [&] { Expect(Write(tree).size() == text.size(), "the text is not of the same size"); });
    Compare(
        "tree from text, 10,000 nodes / parsing the same JSON", 0.4,
        [&] { Expect(Parse(text).isObject(), "no record"); }, [&] { Read(text); });
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

void CompareText(const Tree& small, const Tree& large, const std::string& large_text) {
    const std::string small_text = Write(small);
    CompareGrowth(
        "record and text, ten of 1,000 / one of 10,000", 0.3, [&] { Write(small); }, [&] { Write(large); });
    CompareGrowth(
        "tree from text, ten of 1,000 / one of 10,000", 0.3, [&] { Read(small_text); }, [&] { Read(large_text); });
}

/// The largest tree would be a third of a gigabyte of text, so it is measured between nodes and JSON values, with pins
/// described by their names alone.
void CompareWithoutText(const Tree& small, const Tree& large) {
    const Json::Value small_record = NodeUtils::NodeToStr(small.Top(), false);
    const Json::Value large_record = NodeUtils::NodeToStr(large.Top(), false);
    CompareGrowth(
        "short record, no text, ten of 10,000 / one of 100,000", 0.3, [&] { Describe(small); },
        [&] { Describe(large); });
    CompareGrowth(
        "tree from short record, no text, ten of 10,000 / one of 100,000", 0.3, [&] { Make(small_record); },
        [&] { Make(large_record); });
}

}  // namespace

int main() {
    if (!apiMode_Shared_start("node_bench", false, nullptr, nullptr, nullptr)) return EXIT_FAILURE;
    const Tree trees[] = {Tree(1'000), Tree(10'000), Tree(100'000)};
    const std::string text = Write(trees[1]);

    CompareWithJsonAlone(trees[1], text);
    CompareText(trees[0], trees[1], text);
    CompareWithoutText(trees[1], trees[2]);

    ApiNode* const back = NodeUtils::StrToNode(Message::StringToJson(text), 0, nullptr, PIN_UNKNOWN);
    Expect(back != nullptr && Message::JsonToString(NodeUtils::NodeToStr(back, true)) == text,
           "what was read does not write the same text");
    apiMode_Shared_exit(nullptr);
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
