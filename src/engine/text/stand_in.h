// Nodes of types that this engine does not know. Such a node becomes a stand-in: it renders as nothing, holds its
// element of the text as a text of its own, and has one pin for each connection that the element names, so that
// writing it gives the element back, with the connections under the numbers that the new text gives them.
#pragma once

#include "engine/graph/records.h"

#include <pugixml.hpp>

#include <functional>
#include <string>
#include <vector>

namespace Velmar::Engine {

/// The stand-in type.
const TypeEntry& standInType();
inline bool isStandIn(const NodeRecord& node) {
    return node.type == &standInType();
}

/// Parses what writer and reader share: a text that is in this engine's hands, without changing a letter of what
/// stands between tags.
pugi::xml_parse_result parseXml(pugi::xml_document& document, std::string_view text);

/// The element of a node of unknown type as a stand-in holds it: without what the stand-in's own record holds and with
/// the connections blank.
std::string standInElement(pugi::xml_node element);
/// All inputs within an element that name a node, at any depth, in the order of the text.
std::vector<pugi::xml_node> namedInputs(pugi::xml_node element);

/// The element that a stand-in holds, read once.
class HeldElement {
public:
    explicit HeldElement(const NodeRecord& stand_in);

    /// True when there is one: the text is that of a node of some other type. Nothing else may be asked otherwise; such
    /// a stand-in is written as the node that it is.
    bool exists() const;

    /// Elements that stand in each other, this one included.
    unsigned depth() const { return depth_; }
    /// Type and, when the element has one of its own, name, as they stand in XML.
    const char* type() const;
    bool isNamed() const;
    /// Copies everything else into `target`, with the inputs connected to what `id_on_pin` answers for each pin; inputs
    /// for which it answers 0 are left out.
    void copyTo(pugi::xml_node target, const std::function<unsigned(unsigned pin)>& id_on_pin);

private:
    pugi::xml_document document_;
    pugi::xml_node element_;
    unsigned depth_ = 0;
};

}  // namespace Velmar::Engine
