#include "engine/text/scene_writer.h"

#include "engine/graph/pin_values.h"
#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"
#include "engine/text/stand_in.h"
#include "engine/text/text_escape.h"
#include "engine/text/text_writer.h"
#include "engine/text/value_text.h"

#include <unordered_map>

namespace Velmar::Engine {
namespace {

using namespace SceneFormat;

const std::vector<Value>& defaultsOf(const TypeEntry& type) {
    static auto& defaults = *new std::unordered_map<const TypeEntry*, std::vector<Value>>;
    auto [found, fresh] = defaults.try_emplace(&type);
    if (fresh) {
        for (const ApiAttributeInfo& info : type.attributes) found->second.push_back(defaultValue(info));
    }
    return found->second;
}

/// Free nodes within a graph and the graphs inside it. Throws Refusal when those nest too deeply.
std::size_t countNodes(const GraphRecord& graph, unsigned depth) {
    if (depth > kDeepest) throw Refusal("the graph nests too deeply");
    std::size_t count = 0;
    for (const ItemRecord* item = graph.first; item != nullptr; item = item->next) {
        count += item->isNode() ? 1 : countNodes(static_cast<const GraphRecord&>(*item), depth + 1);
    }
    return count;
}

class SceneWriter {
public:
    SceneWriter(const GraphRecord& root, const WriteOptions& options) : root_(root), options_(options) {}

    std::string write() {
        pugi::xml_node declaration = document_.append_child(pugi::node_declaration);
        declaration.append_attribute(kVersion).set_value("1.0");
        declaration.append_attribute("encoding").set_value("UTF-8");
        pugi::xml_node scene = document_.append_child(kScene);
        if (root_.version > kNewestVersion) throw Refusal("the graph is of a newer version than this engine");
        scene.append_attribute(kVersion).set_value(root_.version == 0 ? kNewestVersion : root_.version);
        ids_.reserve(countNodes(root_, 1));
        numberNodes(root_);
        writeItems(scene, root_, 2);

        TextWriter out;
        document_.save(out, "  ", pugi::format_indent, pugi::encoding_utf8);
        if (slots_ > out.text.size() + kFreeSlots) throw Refusal("the graph has too many empty pins");
        return std::move(out.text);
    }

private:
    static void checkDepth(unsigned depth) {
        if (depth > kDeepest) throw Refusal("the graph nests too deeply");
    }

    // Numbers stand in the order of the text, so that a node that comes last leaves all others as they were.
    void numberNodes(const GraphRecord& graph) {
        for (const ItemRecord* item = graph.first; item != nullptr; item = item->next) {
            if (item->isNode()) {
                ids_.emplace(static_cast<const NodeRecord*>(item), static_cast<unsigned>(ids_.size() + 1));
            } else {
                numberNodes(static_cast<const GraphRecord&>(*item));
            }
        }
    }

    /// Number of a node in this text; 0 for one that stands outside.
    unsigned idOf(const NodeRecord* node) const {
        const auto found = ids_.find(node);
        return found == ids_.end() ? 0 : found->second;
    }

    void writeItems(pugi::xml_node parent, const GraphRecord& graph, unsigned depth) {
        for (const ItemRecord* item = graph.first; item != nullptr; item = item->next) {
            if (item->isNode()) {
                const auto& node = static_cast<const NodeRecord&>(*item);
                pugi::xml_node element = parent.append_child(kNode);
                element.append_attribute(kId).set_value(idOf(&node));
                writeNode(element, node, depth);
            } else {
                writeGraph(parent, static_cast<const GraphRecord&>(*item), depth);
            }
        }
    }

    void writeGraph(pugi::xml_node parent, const GraphRecord& graph, unsigned depth) {
        checkDepth(depth);
        pugi::xml_node element = parent.append_child(kGraph);
        writePlace(element, graph, graph.name != "Graph");
        writePair(element, kView, graph.view_offset);
        writeItems(element, graph, depth + 1);
    }

    void writeNode(pugi::xml_node element, const NodeRecord& node, unsigned depth) {
        checkDepth(depth);
        if (isStandIn(node) && writeStandIn(element, node, depth)) return;
        element.append_attribute(kType).set_value(node.type->row->type_name);
        writePlace(element, node, node.name != node.type->row->default_name);
        const std::vector<Value>& defaults = defaultsOf(*node.type);
        for (unsigned i = 0; i < node.attributes.size(); ++i) {
            const bool written = !isComputed(*node.type, i) && !sameValue(node.attributes[i].value, defaults[i]);
            if (written) writeAttribute(element, node, i, depth + 1);
        }
        unsigned last = 0;
        for (unsigned pin = 0; pin < node.pins.size(); ++pin) {
            if (writePin(element, node, pin, depth + 1)) last = pin + 1;
        }
        countSlots(node, last);
    }

    // The pins that this node will have when it is read: those that its attributes or its geometry ask for, and those
    // that hold something.
    void countSlots(const NodeRecord& node, unsigned last_used) {
        std::size_t asked = 0;
        if (node.type->row->dynamic_pins == DynamicPins::CountedByAttribute) {
            const int count = std::get<int>(node.attributes[*attributeIndex(node, ATTR_PIN_COUNT)].value);
            asked = static_cast<std::size_t>(std::max(count, 0));
        } else if (node.type->row->dynamic_pins == DynamicPins::NamedByGeometry) {
            asked = node.pins.size() - node.fixedPins();
        }
        const std::size_t used = last_used - std::min(last_used, node.fixedPins());
        slots_ += std::max<std::size_t>(std::min<std::size_t>(asked, kMostSlots), used);
    }

    // False for one that holds no element.
    bool writeStandIn(pugi::xml_node element, const NodeRecord& node, unsigned depth) {
        HeldElement held(node);
        if (!held.exists()) return false;
        checkDepth(depth + held.depth() - 1);
        element.append_attribute(kType).set_value(held.type());
        writePlace(element, node, held.isNamed() || node.name != unescapeText(held.type()));
        held.copyTo(element, [&](unsigned pin) { return pin < node.pins.size() ? idOf(node.pins[pin].node) : 0; });
        return true;
    }

    void writePlace(pugi::xml_node element, const ItemRecord& item, bool named) {
        if (named) appendAttribute(element, kName, escapeText(item.name, buffer_));
        writePair(element, kPosition, item.position);
        if (item.ui_flags != 0) element.append_attribute(kFlags).set_value(item.ui_flags);
    }

    void writePair(pugi::xml_node element, const char* name, Vec2<float> pair) {
        if (same(pair, Vec2<float>())) return;
        buffer_.clear();
        appendNumbers(buffer_, pair);
        appendAttribute(element, name, buffer_);
    }

    static void appendAttribute(pugi::xml_node element, const char* name, std::string_view value) {
        element.append_attribute(name).set_value(value.data(), value.size());
    }

    void writeAttribute(pugi::xml_node element, const NodeRecord& node, unsigned index, unsigned depth) {
        const Value& value = node.attributes[index].value;
        const ApiAttributeInfo& info = node.type->attributes[index];
        if (isSmall(info)) {
            buffer_.clear();
            appendValue(buffer_, value);
            return appendAttribute(element, info.name, buffer_);
        }
        const bool names_files = info.type == ATTR_TYPE_FILENAME;
        if (const auto* text = std::get_if<std::string>(&value)) return writeText(element, info, *text, depth);
        checkDepth(depth + 1);
        pugi::xml_node child = element.append_child(kAttribute);
        child.append_attribute(kName).set_value(info.name);
        if (const auto* texts = std::get_if<SharedTexts>(&value)) {
            for (const std::string& text : (*texts)->texts) {
                appendText(child.append_child(kText), names_files ? assetName(text) : text);
            }
        } else {
            buffer_.clear();
            appendValue(buffer_, value);
            child.append_child(pugi::node_pcdata).set_value(buffer_.data(), buffer_.size());
        }
    }

    void writeText(pugi::xml_node element, const ApiAttributeInfo& info, const std::string& text, unsigned depth) {
        checkDepth(depth);
        const std::string written = info.type == ATTR_TYPE_FILENAME ? assetName(text) : text;
        if (written.empty() && !text.empty()) return;
        pugi::xml_node child = element.append_child(kAttribute);
        child.append_attribute(kName).set_value(info.name);
        appendText(child, written);
    }

    void appendText(pugi::xml_node element, const std::string& text) {
        if (text.empty()) return;
        const std::string_view escaped = escapeText(text, buffer_);
        element.append_child(pugi::node_pcdata).set_value(escaped.data(), escaped.size());
    }

    std::string assetName(const std::string& name) const {
        return options_.asset_name == nullptr || name.empty() ? name : options_.asset_name(name);
    }

    // True when there is something on the pin that this text holds.
    bool writePin(pugi::xml_node parent, const NodeRecord& user, unsigned pin, unsigned depth) {
        const NodeRecord* node = user.pins[pin].node;
        if (node == nullptr || (!node->pin_owned && idOf(node) == 0)) return false;
        checkDepth(depth);
        pugi::xml_node element = parent.append_child(node->pin_owned ? kNode : kInput);
        if (pin < user.fixedPins()) {
            element.append_attribute(kPin).set_value(pinName(user, pin));
        } else {
            element.append_attribute(kSlot).set_value(pin - user.fixedPins());
        }
        if (node->pin_owned) {
            writeNode(element, *node, depth);
        } else {
            element.append_attribute(kNode).set_value(idOf(node));
        }
        return true;
    }

    const GraphRecord& root_;
    const WriteOptions& options_;
    pugi::xml_document document_;
    std::unordered_map<const NodeRecord*, unsigned> ids_;
    std::string buffer_;
    std::size_t slots_ = 0;
};

}  // namespace

std::string writeScene(const GraphRecord& root, const WriteOptions& options) {
    return SceneWriter(root, options).write();
}

}  // namespace Velmar::Engine
