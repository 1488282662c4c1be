#include "engine/text/scene_reader.h"

#include "engine/catalog/engine_log.h"
#include "engine/text/draft_wiring.h"
#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"
#include "engine/text/stand_in.h"
#include "engine/text/text_escape.h"
#include "engine/text/text_scan.h"
#include "engine/text/value_text.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <unordered_map>

namespace Velmar::Engine {
namespace {

using namespace SceneFormat;

bool is(const char* name, const char* other) {
    return std::strcmp(name, other) == 0;
}

[[noreturn]] void refuse(pugi::xml_node element, const std::string& reason) {
    throw Refusal(reason, element.offset_debug());
}

std::string quoted(std::string_view text) {
    constexpr std::size_t most = 60;
    std::string storage;
    const std::string_view shown = escapeText(text.substr(0, most), storage);
    return "\"" + std::string(shown) + (text.size() > most ? "...\"" : "\"");
}

const TypeEntry* typeNamed(std::string_view name) {
    static const auto& types = *[] {
        auto* made = new std::unordered_map<std::string_view, const TypeEntry*>;
        for (const TypeEntry* type : Catalog::types()) made->emplace(type->row->type_name, type);
        return made;
    }();
    const auto found = types.find(name);
    return found == types.end() ? nullptr : found->second;
}

std::optional<unsigned> attributeNamed(const TypeEntry& type, const char* name) {
    for (unsigned i = 0; i < type.attributes.size(); ++i) {
        if (is(type.attributes[i].name, name) && !isComputed(type, i)) return i;
    }
    return {};
}

/// Texts are mostly written in the order of the pins, so the search begins behind the last one.
std::optional<unsigned> pinNamed(const TypeEntry& type, const char* name, unsigned from) {
    const auto count = static_cast<unsigned>(type.pins.size());
    for (unsigned i = 0; i < count; ++i) {
        const unsigned pin = (from + i) % count;
        if (is(type.pins[pin]->info.name, name)) return pin;
    }
    return {};
}

/// What stands between the tags of an element that holds nothing but text.
std::string textOf(pugi::xml_node element) {
    std::string text;
    for (const pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element) refuse(child, "an element within a text");
        text += child.value();
    }
    return unescapeText(text);
}

/// Calls `visit` for each element within `element`, which may hold nothing else.
template <typename Visit>
void forEachElement(pugi::xml_node element, Visit visit) {
    for (const pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element) {
            visit(child);
        } else if (std::string_view(child.value()).find_first_not_of(" \t\r\n") != std::string_view::npos) {
            refuse(element, "text between the elements of a " + std::string(element.name()));
        }
    }
}

class DraftReader {
public:
    DraftReader(std::string_view text, const AssetLookup& assets) : text_(text), assets_(assets) {}

    SceneDraft read(unsigned& version) {
        scanDepth(text_);
        pugi::xml_document document;
        const pugi::xml_parse_result parsed = parseXml(document, text_);
        if (!parsed) throw Refusal(parsed.description(), parsed.offset);

        const pugi::xml_node scene = document.document_element();
        if (!is(scene.name(), kScene)) refuse(scene, "no scene text: its root is " + quoted(scene.name()));
        readVersion(scene, version);
        readItems(scene, 0);
        connectInputs();
        orderNodes(draft_);
        countPins(draft_, text_.size() + kFreeSlots);
        logUnknown();
        return std::move(draft_);
    }

private:
    // An input that waits for its node to be known by its number.
    struct Pending {
        std::size_t wire;
        unsigned id;
        std::ptrdiff_t offset;
    };

    static void readVersion(pugi::xml_node scene, unsigned& version) {
        for (const pugi::xml_attribute attribute : scene.attributes()) {
            if (!is(attribute.name(), kVersion)) refuse(scene, "an unknown attribute " + quoted(attribute.name()));
        }
        unsigned number = 0;
        if (!readNumber(scene.attribute(kVersion).value(), number)) refuse(scene, "no version");
        version = number;
        if (number > kNewestVersion) {
            refuse(scene, "version " + std::to_string(number) + " is newer than " + std::to_string(kNewestVersion));
        }
    }

    void readItems(pugi::xml_node element, std::size_t graph) {
        forEachElement(element, [this, graph](pugi::xml_node child) {
            if (is(child.name(), kNode)) {
                const std::size_t index = draft_.nodes.size();
                draft_.items.push_back({true, index, graph});
                noteId(child, index);
                readNode(child);
            } else if (is(child.name(), kGraph)) {
                readGraph(child, graph);
            } else {
                refuse(child, "an element " + quoted(child.name()) + " where nodes and graphs stand");
            }
        });
    }

    void readGraph(pugi::xml_node element, std::size_t owner) {
        GraphDraft graph;
        graph.name = "Graph";
        for (const pugi::xml_attribute attribute : element.attributes()) {
            const bool known =
                is(attribute.name(), kView) ? readNumbers(attribute.value(), graph.view) : readCommon(attribute, graph);
            if (!known) refuse(element, "the attribute " + quoted(attribute.name()) + " of a graph");
        }
        const std::size_t index = draft_.graphs.size();
        draft_.graphs.push_back(std::move(graph));
        draft_.items.push_back({false, index, owner});
        readItems(element, index);
    }

    // What nodes and graphs have in common. False for another attribute and for a value that is none.
    template <typename Draft>
    static bool readCommon(pugi::xml_attribute attribute, Draft& draft) {
        if (is(attribute.name(), kName)) {
            draft.name = unescapeText(attribute.value());
            return true;
        }
        if (is(attribute.name(), kPosition)) return readNumbers(attribute.value(), draft.position);
        if (is(attribute.name(), kFlags)) return readNumber(attribute.value(), draft.flags);
        return false;
    }

    void noteId(pugi::xml_node element, std::size_t node) {
        const unsigned id = numberIn(element, kId);
        if (!nodes_by_id_.emplace(id, node).second) refuse(element, "a second node with the id " + std::to_string(id));
    }

    static unsigned numberIn(pugi::xml_node element, const char* name) {
        unsigned number = 0;
        const pugi::xml_attribute attribute = element.attribute(name);
        if (!attribute) refuse(element, "an element " + quoted(element.name()) + " without " + name);
        if (!readNumber(attribute.value(), number)) refuse(element, std::string(name) + " is no number");
        return number;
    }

    // Reads a node and what stands on its pins; it becomes the next one of the draft.
    void readNode(pugi::xml_node element) {
        const char* type_name = element.attribute(kType).value();
        if (*type_name == '\0') refuse(element, "a node without a type");
        const TypeEntry* type = typeNamed(type_name);
        const std::size_t index = draft_.nodes.size();
        NodeDraft& node = draft_.nodes.emplace_back();
        node.offset = element.offset_debug();
        node.type = type == nullptr ? &standInType() : type;
        node.name = type == nullptr ? unescapeText(type_name) : type->row->default_name;
        readAttributes(element, node, type != nullptr);
        if (type == nullptr) return readStandIn(element, index);
        readChildren(element, index);
    }

    void readAttributes(pugi::xml_node element, NodeDraft& node, bool known) {
        for (const pugi::xml_attribute attribute : element.attributes()) {
            const char* name = attribute.name();
            const bool placed = is(name, kPin) || is(name, kSlot) || is(name, kId) || is(name, kType);
            if (placed) continue;
            if (is(name, kName) || is(name, kPosition) || is(name, kFlags)) {
                if (!readCommon(attribute, node)) refuse(element, std::string(name) + " is none");
            } else if (known) {
                readSmall(element, attribute, node);
            }
        }
    }

    void readSmall(pugi::xml_node element, pugi::xml_attribute attribute, NodeDraft& node) {
        const auto index = attributeNamed(*node.type, attribute.name());
        if (!index) return noteUnknown(element, attribute.name());
        const ApiAttributeInfo& info = node.type->attributes[*index];
        Value& value = addValue(element, node, *index);
        if (!isSmall(info) || !readValue(attribute.value(), value)) refuseValue(element, info);
    }

    static Value& addValue(pugi::xml_node element, NodeDraft& node, unsigned index) {
        for (const auto& [held, value] : node.values) {
            if (held == index) refuse(element, "an attribute twice: " + quoted(node.type->attributes[index].name));
        }
        return node.values.emplace_back(index, defaultValue(node.type->attributes[index])).second;
    }

    [[noreturn]] static void refuseValue(pugi::xml_node element, const ApiAttributeInfo& info) {
        refuse(element, quoted(info.name) + " holds no value of its kind, " + ApiInfo::getAttributeTypeName(info.type));
    }

    void readChildren(pugi::xml_node element, std::size_t index) {
        std::vector<unsigned> pins;
        forEachElement(element, [&](pugi::xml_node child) {
            if (is(child.name(), kAttribute)) {
                readLarge(child, draft_.nodes[index]);
            } else if (is(child.name(), kNode) || is(child.name(), kInput)) {
                readPin(child, index, pins);
            } else {
                refuse(child, "an element " + quoted(child.name()) + " in a node");
            }
        });
        std::ranges::sort(pins);
        if (std::ranges::adjacent_find(pins) != pins.end()) refuse(element, "a pin that holds two things");
    }

    void readLarge(pugi::xml_node element, NodeDraft& node) {
        const char* name = element.attribute(kName).value();
        const auto index = attributeNamed(*node.type, name);
        if (!index) return noteUnknown(element, name);
        const ApiAttributeInfo& info = node.type->attributes[*index];
        Value& value = addValue(element, node, *index);
        if (isSmall(info)) refuseValue(element, info);
        const bool names_file = info.type == ATTR_TYPE_FILENAME;
        if (auto* text = std::get_if<std::string>(&value)) {
            *text = names_file ? assets_.find(textOf(element)) : textOf(element);
        } else if (auto* texts = std::get_if<SharedTexts>(&value)) {
            *texts = readTexts(element, names_file);
        } else if (!readValue(textOf(element), value)) {
            refuseValue(element, info);
        }
    }

    SharedTexts readTexts(pugi::xml_node element, bool names_files) const {
        std::vector<std::string> texts;
        forEachElement(element, [&](pugi::xml_node child) {
            if (!is(child.name(), kText)) refuse(child, "an element " + quoted(child.name()) + " in a list of texts");
            texts.push_back(names_files ? assets_.find(textOf(child)) : textOf(child));
        });
        std::vector<const char*> pointers;
        pointers.reserve(texts.size());
        for (const std::string& text : texts) pointers.push_back(text.c_str());
        return makeTexts(pointers.data(), pointers.size());
    }

    // An internal node, or an input that names a node.
    void readPin(pugi::xml_node element, std::size_t user, std::vector<unsigned>& pins) {
        const TypeEntry& type = *draft_.nodes[user].type;
        std::optional<unsigned> pin;
        if (const pugi::xml_attribute name = element.attribute(kPin)) {
            pin = pinNamed(type, name.value(), pins.empty() ? 0 : pins.back() + 1);
            if (!pin) return noteUnknown(element, name.value());
        } else {
            const unsigned slot = numberIn(element, kSlot);
            if (type.row->dynamic_pins == DynamicPins::None || slot >= kMostSlots) {
                refuse(element, "the slot " + std::to_string(slot) + " of a node without it");
            }
            pin = static_cast<unsigned>(type.pins.size()) + slot;
        }
        pins.push_back(*pin);
        if (is(element.name(), kInput)) return readInput(element, user, *pin);
        draft_.wires.push_back({user, *pin, draft_.nodes.size(), true});
        readNode(element);
    }

    void readInput(pugi::xml_node element, std::size_t user, unsigned pin) {
        pending_.push_back({draft_.wires.size(), numberIn(element, kNode), element.offset_debug()});
        draft_.wires.push_back({user, pin, 0, false});
    }

    void readStandIn(pugi::xml_node element, std::size_t index) {
        unsigned pin = 0;
        for (const pugi::xml_node input : namedInputs(element)) readInput(input, index, pin++);
        NodeDraft& node = draft_.nodes[index];
        node.values.emplace_back(0U, standInElement(element));
        node.values.emplace_back(1U, static_cast<int>(pin));
    }

    void connectInputs() {
        for (const Pending& input : pending_) {
            const auto found = nodes_by_id_.find(input.id);
            if (found == nodes_by_id_.end()) {
                throw Refusal("an input from a node that is not there, " + std::to_string(input.id), input.offset);
            }
            draft_.wires[input.wire].node = found->second;
        }
    }

    void noteUnknown(pugi::xml_node element, const char* name) {
        if (unknown_++ == 0) first_unknown_ = quoted(name) + " of " + quoted(ownerType(element));
    }

    static const char* ownerType(pugi::xml_node element) {
        const bool own = is(element.name(), kNode) && !element.attribute(kPin);
        return (own ? element : element.parent()).attribute(kType).value();
    }

    void logUnknown() const {
        if (unknown_ == 0) return;
        std::string line = "scene text: left out what this version does not know, " + first_unknown_;
        if (unknown_ > 1) line += " and " + std::to_string(unknown_ - 1) + " more";
        logLine(line);
    }

    std::string_view text_;
    const AssetLookup& assets_;
    SceneDraft draft_;
    std::unordered_map<unsigned, std::size_t> nodes_by_id_;
    std::vector<Pending> pending_;
    std::size_t unknown_ = 0;
    std::string first_unknown_;
};

}  // namespace

SceneDraft readDraft(std::string_view text, const AssetLookup& assets, unsigned& version) {
    return DraftReader(text, assets).read(version);
}

}  // namespace Velmar::Engine
