#include "engine/text/stand_in.h"

#include "engine/catalog/engine_ids.h"
#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"
#include "engine/text/text_scan.h"
#include "engine/text/text_writer.h"

#include <cstring>

namespace Velmar::Engine {
namespace {

constexpr const char* recorded[] = {SceneFormat::kPin, SceneFormat::kSlot, SceneFormat::kId, SceneFormat::kPosition,
                                    SceneFormat::kFlags};

class InputFinder : public pugi::xml_tree_walker {
public:
    std::vector<pugi::xml_node> found;

    bool for_each(pugi::xml_node& element) override {
        const bool is_input = std::strcmp(element.name(), SceneFormat::kInput) == 0;
        if (is_input && element.attribute(SceneFormat::kNode)) found.push_back(element);
        return true;
    }
};

bool isOwn(const char* attribute) {
    return std::strcmp(attribute, SceneFormat::kType) == 0 || std::strcmp(attribute, SceneFormat::kName) == 0;
}

}  // namespace

const TypeEntry& standInType() {
    static const TypeEntry& type = *Catalog::find(NODE_STAND_IN);
    return type;
}

// Comments and instructions are left out; blanks are kept where they are all that an element holds.
pugi::xml_parse_result parseXml(pugi::xml_document& document, std::string_view text) {
    constexpr unsigned flags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata_single;
    return document.load_buffer(text.data(), text.size(), flags, pugi::encoding_utf8);
}

std::vector<pugi::xml_node> namedInputs(pugi::xml_node element) {
    InputFinder finder;
    element.traverse(finder);
    return std::move(finder.found);
}

std::string standInElement(pugi::xml_node element) {
    pugi::xml_document held;
    pugi::xml_node copy = held.append_copy(element);
    for (const char* name : recorded) copy.remove_attribute(name);
    for (pugi::xml_node input : namedInputs(copy)) input.attribute(SceneFormat::kNode).set_value("");
    TextWriter writer;
    copy.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return std::move(writer.text);
}

HeldElement::HeldElement(const NodeRecord& stand_in) {
    const auto& text = std::get<std::string>(stand_in.attributes[0].value);
    try {
        depth_ = scanDepth(text);
        if (parseXml(document_, text)) element_ = document_.child(SceneFormat::kNode);
    } catch (const Refusal&) {
        // Someone has written another text into the attribute.
    }
}

bool HeldElement::exists() const {
    return *type() != '\0' && std::strcmp(type(), standInType().row->type_name) != 0;
}

const char* HeldElement::type() const {
    return element_.attribute(SceneFormat::kType).value();
}

bool HeldElement::isNamed() const {
    return !element_.attribute(SceneFormat::kName).empty();
}

void HeldElement::copyTo(pugi::xml_node target, const std::function<unsigned(unsigned pin)>& id_on_pin) {
    // From the last to the first, so that an input goes before one that it stands in.
    const std::vector<pugi::xml_node> inputs = namedInputs(element_);
    for (std::size_t pin = inputs.size(); pin-- > 0;) {
        pugi::xml_node input = inputs[pin];
        const unsigned id = id_on_pin(static_cast<unsigned>(pin));
        if (id == 0) {
            input.parent().remove_child(input);
        } else {
            input.attribute(SceneFormat::kNode).set_value(id);
        }
    }
    for (const pugi::xml_attribute attribute : element_.attributes()) {
        if (!isOwn(attribute.name())) target.append_copy(attribute);
    }
    for (const pugi::xml_node child : element_.children()) target.append_copy(child);
}

}  // namespace Velmar::Engine
