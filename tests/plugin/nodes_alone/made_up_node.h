// A render SDK of one node, made for the test: it has whatever pins and attributes a test declares, and takes down what
// is written to it. It shows what no type of the engine has, an attribute called "type" for instance.
#pragma once

#include <velmar/info.h>
#include <velmar/node.h>

#include <string>
#include <vector>

namespace Velmar {

struct MadeUpAttribute {
    AttributeId id;
    AttributeType type;
    std::string name;
    int ints[4] = {0, 0, 0, 0};
    float floats[4] = {0.0F, 0.0F, 0.0F, 0.0F};
    std::string text = {};
};

struct MadeUpPin {
    NodePinType type;
    std::string name;
    ApiNodePinInfo info{};
    ApiNode* node = nullptr;
};

/// What stands behind the node.
struct ItemRecord {
    std::string name;
    NodeType type = NODE_UNKNOWN;
    bool pin_owned = false;
    std::vector<MadeUpAttribute> attributes;
    std::vector<MadeUpPin> pins;
    /// One line for each write: id, values, and the flag that asks for evaluation.
    std::vector<std::string> writes;

    const MadeUpAttribute& attribute(AttributeId id) const;
    static ItemRecord& of(const ApiItem& item) { return *item.record_; }
    static void attach(ApiItem& item, ItemRecord& record) { item.record_ = &record; }
};

class MadeUpNode : public ApiNode {
public:
    MadeUpNode() { ItemRecord::attach(*this, record); }
    ~MadeUpNode() = default;

    ItemRecord record;
};

}  // namespace Velmar
