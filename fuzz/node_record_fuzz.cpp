// Feeds bytes to all that reads node records: text to JSON, JSON to a new tree, JSON onto a tree that stands. What was
// read must also be written, and read back to the same.
#include <glog/logging.h>
#include <json/value.h>
#include <velmar/graph.h>
#include <velmar/project.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "plugin/nodes/node_utils.h"
#include "plugin/utils/message.h"

using namespace Velmar;

namespace {

/// A material with an image, a free texture and a pin-owned one.
ApiNode* liveTree() {
    ApiNodeGraph* const root = ApiProjectManager::rootNodeGraph();
    ApiNode* const material = ApiNode::create(NODE_MATERIAL_GLOSSY, root, true);
    material->connectTo(PIN_BUMP, ApiNode::create(NODE_IMAGE, root, true), true, false);
    material->createInternal(PIN_NORMAL_MAP, NODE_MULTIPLY_TEXTURE, true, true);
    return material;
}

void expect(bool holds) {
    if (!holds) std::abort();
}

void readAndWrite(const Json::Value& json) {
    const int result = NodeUtils::UpdateNode(json, liveTree(), PIN_UNKNOWN, nullptr, false);
    expect(result >= -1 && result <= 1);
    ApiNode* const made = NodeUtils::StrToNode(json, 0, nullptr, PIN_UNKNOWN);
    if (made == nullptr) return;
    const Json::Value record = NodeUtils::NodeToStr(made, true);
    const Json::Value parsed = Message::StringToJson(Message::JsonToString(record));
    expect(NodeUtils::UpdateNode(parsed, made, PIN_UNKNOWN, nullptr, false) >= 0 || parsed.isNull());
    ApiNode* again = NodeUtils::StrToNode(parsed, 0, nullptr, PIN_UNKNOWN);
    NodeUtils::SafeRecursiveDestroy(again);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FLAGS_minloglevel = google::GLOG_FATAL;
    // Destroyed items leave a trace until the library stops, so each input has the library to itself.
    expect(apiMode_Shared_start("Velmar fuzz", false, nullptr, nullptr, nullptr));
    readAndWrite(Message::StringToJson(std::string(reinterpret_cast<const char*>(data), size)));
    apiMode_Shared_exit(nullptr);
    return 0;
}
