#include "plugin/nodes_alone/made_up_node.h"

#include <velmar/project.h>

#include <sstream>

namespace Velmar {

namespace {

template <typename... Parts>
void takeDown(const ApiItem& item, AttributeId id, bool evaluate, const Parts&... parts) {
    std::ostringstream line;
    line << std::boolalpha << id;
    ((line << ' ' << parts), ...);
    line << ' ' << evaluate;
    ItemRecord::of(item).writes.push_back(line.str());
}

constexpr NodeType kTextureTypes[] = {NODE_FLOAT, NODE_IMAGE, NODE_COLOR};
constexpr NodeGraphType kGraphTypes[] = {GRAPH_STANDARD};

}  // namespace

const MadeUpAttribute& ItemRecord::attribute(AttributeId id) const {
    static const MadeUpAttribute none{ATTR_UNKNOWN, ATTR_TYPE_UNKNOWN, ""};
    for (const MadeUpAttribute& attribute : attributes) {
        if (attribute.id == id) return attribute;
    }
    return none;
}

const char* ApiItem::name() const {
    return record_->name.c_str();
}
bool ApiItem::pinOwned() const {
    return record_->pin_owned;
}
NodeType ApiNode::type() const {
    return ItemRecord::of(*this).type;
}

unsigned ApiItem::attrCount() const {
    return static_cast<unsigned>(record_->attributes.size());
}
AttributeId ApiItem::attrIdIx(unsigned index) const {
    return record_->attributes.at(index).id;
}
AttributeType ApiItem::attrTypeIx(unsigned index) const {
    return record_->attributes.at(index).type;
}
const char* ApiItem::attrNameIx(unsigned index) const {
    return record_->attributes.at(index).name.c_str();
}
AttributeId ApiItem::attrId(const char* name) const {
    for (const MadeUpAttribute& attribute : record_->attributes) {
        if (attribute.name == name) return attribute.id;
    }
    return ATTR_UNKNOWN;
}

bool ApiItem::getBool(AttributeId id) const {
    return record_->attribute(id).ints[0] != 0;
}
int ApiItem::getInt(AttributeId id) const {
    return record_->attribute(id).ints[0];
}
Vec2<int> ApiItem::getInt2(AttributeId id) const {
    const auto& v = record_->attribute(id).ints;
    return {v[0], v[1]};
}
Vec3<int> ApiItem::getInt3(AttributeId id) const {
    const auto& v = record_->attribute(id).ints;
    return {v[0], v[1], v[2]};
}
float ApiItem::getFloat(AttributeId id) const {
    return record_->attribute(id).floats[0];
}
Vec2<float> ApiItem::getFloat2(AttributeId id) const {
    const auto& v = record_->attribute(id).floats;
    return {v[0], v[1]};
}
Vec3<float> ApiItem::getFloat3(AttributeId id) const {
    const auto& v = record_->attribute(id).floats;
    return {v[0], v[1], v[2]};
}
Vec4<float> ApiItem::getFloat4(AttributeId id) const {
    const auto& v = record_->attribute(id).floats;
    return {v[0], v[1], v[2], v[3]};
}
bool ApiItem::get(AttributeId id, const char*& out) const {
    out = record_->attribute(id).text.c_str();
    return true;
}

void ApiItem::set(AttributeId id, bool value, bool evaluate) {
    takeDown(*this, id, evaluate, "bool", value);
}
void ApiItem::set(AttributeId id, int value, bool evaluate) {
    takeDown(*this, id, evaluate, "int", value);
}
void ApiItem::set(AttributeId id, float value, bool evaluate) {
    takeDown(*this, id, evaluate, "float", value);
}
void ApiItem::set(AttributeId id, const char* value, bool evaluate) {
    takeDown(*this, id, evaluate, "text", value);
}
void ApiItem::set(AttributeId id, Vec2<int> v, bool evaluate) {
    takeDown(*this, id, evaluate, "int2", v.x, v.y);
}
void ApiItem::set(AttributeId id, Vec3<int> v, bool evaluate) {
    takeDown(*this, id, evaluate, "int3", v.x, v.y, v.z);
}
void ApiItem::set(AttributeId id, Vec2<float> v, bool evaluate) {
    takeDown(*this, id, evaluate, "float2", v.x, v.y);
}
void ApiItem::set(AttributeId id, Vec3<float> v, bool evaluate) {
    takeDown(*this, id, evaluate, "float3", v.x, v.y, v.z);
}
void ApiItem::set(AttributeId id, Vec4<float> v, bool evaluate) {
    takeDown(*this, id, evaluate, "float4", v.x, v.y, v.z, v.w);
}

unsigned ApiNode::pinCount() const {
    return static_cast<unsigned>(ItemRecord::of(*this).pins.size());
}
ApiNode* ApiNode::connectedNodeIx(unsigned index) const {
    return ItemRecord::of(*this).pins.at(index).node;
}
const char* ApiNode::pinNameIx(unsigned index) const {
    return ItemRecord::of(*this).pins.at(index).name.c_str();
}
NodePinType ApiNode::pinTypeIx(unsigned index) const {
    return ItemRecord::of(*this).pins.at(index).type;
}
const ApiNodePinInfo& ApiNode::pinInfoIx(unsigned index) const {
    return ItemRecord::of(*this).pins.at(index).info;
}

void ApiInfo::getCompatibleTypes(NodePinType type, const NodeGraphType*& graph_types, std::size_t& graph_count,
                                 const NodeType*& node_types, std::size_t& node_count) {
    const bool is_texture = type == PIN_TYPE_TEXTURE;
    graph_types = kGraphTypes;
    graph_count = std::size(kGraphTypes);
    node_types = is_texture ? kTextureTypes : nullptr;
    node_count = is_texture ? std::size(kTextureTypes) : 0;
}

// What makes and wires nodes is named by the sources under test, but no test here asks for it: there is nothing that
// could be made or wired.
ApiNode* ApiNode::create(NodeType, ApiNodeGraph*, bool) {
    return nullptr;
}
ApiNode* ApiNode::createInternal(PinId, NodeType, bool, bool) {
    return nullptr;
}
void ApiNode::connectTo(PinId, ApiNode*, bool, bool) {}
ApiNode* ApiNode::connectedNode(PinId) const {
    return nullptr;
}
PinId ApiNode::pinId(const char*) const {
    return PIN_UNKNOWN;
}
void ApiItem::setName(const char*) {}
void ApiItem::evaluate() {}
void ApiItem::destroy() {}
bool ApiItem::get(AttributeId, Matrix<float>&) const {
    return false;
}
void ApiItem::set(AttributeId, const Matrix<float>&, bool) {}
ApiRootNodeGraph* ApiProjectManager::rootNodeGraph() {
    return nullptr;
}

}  // namespace Velmar
