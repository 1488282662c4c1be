// Node trees of random shape, the same for the same seed.
#pragma once

#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <random>
#include <string>
#include <vector>

namespace Velmar {

class RandomTree {
public:
    RandomTree(unsigned seed, std::vector<NodeType> types) : random_(seed), types_(std::move(types)) {}

    /// A free node of the root graph with free, pin-owned, linked and shared nodes below it and random values.
    ApiNode* Grow() {
        ApiNode* const root = ApiNode::create(types_[Below(types_.size())], ApiProjectManager::rootNodeGraph(), true);
        Furnish(root, 0);
        return root;
    }

private:
    std::size_t Below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
    bool Chance(int percent) { return Below(100) < static_cast<std::size_t>(percent); }

    float Number() {
        switch (Below(5)) {
            case 0:
                return 0.0F;
            case 1:
                return -1.5F;
            case 2:
                return std::uniform_real_distribution<float>(-1, 1)(random_);
            case 3:
                return std::uniform_real_distribution<float>(-1e30F, 1e30F)(random_);
            default:
                return 1e-40F;
        }
    }
    int Integer() { return std::uniform_int_distribution<int>(-2147483647 - 1, 2147483647)(random_); }

    std::string Words() {
        static const char* const words[] = {"Oak", "\"quoted\"", "a/b", "\xc3\xa9", "two\nlines", "", "//", "\\"};
        std::string text;
        for (std::size_t i = Below(4); i > 0; --i) text += words[Below(std::size(words))];
        return text;
    }

    void Furnish(ApiNode* node, int depth) {
        if (Chance(50)) node->setName(("n" + Words()).c_str());
        for (unsigned i = 0; i < node->attrCount(); ++i) SetAttribute(node, i);
        node->evaluate();
        for (unsigned i = 0; i < node->pinCount() && depth < 6; ++i) FillPin(node, i, depth);
    }

    void SetAttribute(ApiNode* node, unsigned index) {
        const AttributeId id = node->attrIdIx(index);
        // Pins of a group have no name by which they could be found again.
        if (id == ATTR_PIN_COUNT || node->attrInfoIx(index).is_array || Chance(40)) return;
        switch (node->attrTypeIx(index)) {
            case ATTR_TYPE_BOOL:
                return node->set(id, Chance(50), false);
            case ATTR_TYPE_INT:
                return node->set(id, Integer(), false);
            case ATTR_TYPE_INT2:
                return node->set(id, Vec2<int>{Integer(), Integer()}, false);
            case ATTR_TYPE_INT3:
                return node->set(id, Vec3<int>{Integer(), Integer(), Integer()}, false);
            case ATTR_TYPE_FLOAT:
                return node->set(id, Number(), false);
            case ATTR_TYPE_FLOAT2:
                return node->set(id, Vec2<float>{Number(), Number()}, false);
            case ATTR_TYPE_FLOAT3:
                return node->set(id, Vec3<float>{Number(), Number(), Number()}, false);
            case ATTR_TYPE_FLOAT4:
                return node->set(id, Vec4<float>{Number(), Number(), Number(), Number()}, false);
            case ATTR_TYPE_FILENAME:
                return node->set(id, Words().c_str(), false);
            default:
                return;
        }
    }

    void FillPin(ApiNode* node, unsigned index, int depth) {
        const PinId pin = node->pinIdIx(index);
        if (pin == PIN_UNKNOWN || Chance(60)) return;
        if (Chance(15) && !made_.empty()) {  // a node that stands on another pin too
            node->connectToIx(index, made_[Below(made_.size())], true, false);
        } else if (ApiNode* child = NewNode(node, pin, node->pinTypeIx(index))) {
            Furnish(child, depth + 1);
            if (!child->pinOwned()) made_.push_back(child);
        }
    }

    /// A node of a type that fits, mostly, on the pin or behind a link on the pin. A link that held nothing would stand
    /// for an empty pin, and a fresh node may have something there.
    ApiNode* NewNode(ApiNode* node, PinId pin, NodePinType kind) {
        const NodeType type = TypeFor(kind);
        if (type == NODE_UNKNOWN || type >= NODE_LINK_FIRST) return nullptr;
        if (Chance(50)) return node->createInternal(pin, type, true, true);
        ApiNodeGraph* const root = ApiProjectManager::rootNodeGraph();
        ApiNode* const child = ApiNode::create(type, root, true);
        ApiNode* const link = Chance(15) ? ApiNode::create(NODE_LINK_MATERIAL, root, true) : nullptr;
        if (link != nullptr) link->connectToIx(0, child, true, false);
        node->connectTo(pin, link != nullptr ? link : child, true, Chance(20));
        return child;
    }

    NodeType TypeFor(NodePinType kind) {
        if (Chance(10)) return types_[Below(types_.size())];
        const NodeGraphType* graph_types = nullptr;
        const NodeType* node_types = nullptr;
        std::size_t graph_count = 0;
        std::size_t node_count = 0;
        ApiInfo::getCompatibleTypes(kind, graph_types, graph_count, node_types, node_count);
        return node_count == 0 ? NODE_UNKNOWN : node_types[Below(node_count)];
    }

    std::mt19937 random_;
    std::vector<NodeType> types_;
    std::vector<ApiNode*> made_;
};

}  // namespace Velmar
