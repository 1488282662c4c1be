// Tools on nodes of the render graph that all managers share: node trees as JSON, walks over the graph, texts for
// people. They hold no state and own nothing: all nodes and items are borrowed from the SDK, and what is created
// belongs to the root graph or to a pin. Every call comes from the thread that runs Ruby.
//
// A node record is a JSON object that describes a node and all that stands on its pins:
//   "name", "type" (NodeType), "pin_owned", "params" (attribute records, when there are attributes) and "nodes" (one
//   pin record for each pin, when there are pins).
// A pin record is the node record of the node on the pin, or "name" (of the pin's node) and "type" 0 for an empty pin;
// with "info", the description of the pin (see pin_info.h), by whose "name" the pin is found again.
// An attribute record is an object with "name", "type" (AttributeType) and, under the attribute's own name, the value;
// a vector is an object with "x", "y", "z", "w".
#pragma once

#include <json/forwards.h>
#include <velmar/node.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Velmar {

class ApiItemArray;

/// Static functions on borrowed nodes and items. A null node is nothing found and nothing done.
class NodeUtils {
public:
    // --- Node trees as JSON ---

    /// The tree below `node` as a node record; null for a node that has neither attributes nor pins. A node on several
    /// pins is written at each, a link node gives way to the node behind it. With `full` false the pin descriptions
    /// hold the name alone. The last parameter is not used.
    static Json::Value NodeToStr(ApiNode* node, bool full, ApiNode* = nullptr);
    /// Makes the tree that a node record describes: on `pin` of `owner` when the record is pin-owned and `depth` is not
    /// 0, else as a free node of the root graph. Null for the null value, for a type that cannot be made, and for a
    /// record with values of the wrong kind, of which nothing is made. Pins and attributes that the SDK does not know
    /// are skipped.
    static ApiNode* StrToNode(const Json::Value& json, int depth, ApiNode* owner, PinId pin);
    /// Brings the node on `pin` of `owner` (or a node at the top, with 0 and null) in line with a node record: in place
    /// where the types agree, by a new node with default values where they do not, by an empty pin where the record has
    /// no type or type -1. `internal` says that `node` stands somewhere below a pin-owned node. Answers 1 when a node
    /// was made, replaced or removed, 0 when only values changed, -1 when nothing was done: for the null value, type 0,
    /// another type at the top, and a record with values of the wrong kind.
    static int UpdateNode(Json::Value json, ApiNode* node, PinId pin, ApiNode* owner, bool internal);
    /// One attribute as an attribute record, without a value for the kinds that do not travel: four ints, plain
    /// strings, bytes and matrices.
    static Json::Value GetAttribute(ApiNode* node, unsigned index);
    /// Writes an attribute from an attribute record, without evaluation; a file name also has the node read the file.
    /// A record without type, name or usable value changes nothing; an empty file name neither.
    static void SetAttribute(const Json::Value& record, ApiNode* node);
    /// Gives a new image texture of a material the placement of an image texture that the material has. `added` is the
    /// image, or a node that holds it, `owner` the material. True when a matrix was copied.
    static bool TryToCorrectNewNodeScale(ApiNode* added, ApiNode* owner);

    // --- Kinds of nodes ---

    /// True for an image texture that has a transform.
    static bool IsImage(const ApiNode* node);
    /// The node types that are materials, in their order of search.
    static std::vector<NodeType> MaterialTypes();
    static bool IsMaterialType(NodeType type);

    // --- Ends of nodes ---

    /// Destroys `node` and nulls the pointer. A node that a pin owns goes with its pin: it is left alone, and the
    /// pointer keeps its value. Null is fine.
    static void SafeDestroy(ApiNode*& node);
    /// Likewise, with everything below the node first.
    static void SafeRecursiveDestroy(ApiNode*& node);
    /// Destroys `item`; null is fine. Serves as deleter of shared pointers to graphs.
    static void DestroyItem(ApiItem* item);

    // --- Walks down the pins: depth first, in pin order ---

    /// Always null.
    static ApiNode* FindNode(ApiNode* node, const std::string& name);
    /// The first value that is not empty of a string or file name attribute called `name`; empty if there is none.
    static std::string FindStringParam(ApiNode* node, const std::string& name);
    /// The first node with a string or file name attribute called `name`, whatever its value.
    static ApiNode* FindStringParamOwner(ApiNode* node, const std::string& name);
    /// Appends each node that stands on a pin called `pin_name`, a node that is reached twice twice.
    static void FindAllPinNodes(ApiNode* node, const std::string& pin_name, std::vector<ApiNode*>& out);
    /// Sets `out[n]` for each transform n among the node and what stands below it.
    static void FindAllTransformNodes(ApiNode* node, std::map<ApiNode*, bool>& out);

    // --- Neighbours ---

    /// What stands on the pins; holds null too if a pin is empty.
    static std::set<ApiNode*> AllInputNodes(ApiNode* node);
    static std::set<ApiNode*> AllOutputNodes(ApiNode* node);
    /// The number of pins that use the node.
    static std::size_t CountOutputs(const ApiNode* node);
    /// True for a node that no pin uses, and for null.
    static bool IsOrphanNode(const ApiNode* node);
    /// The number of pins on which a node stands that a graph owns.
    static unsigned VisibleInputs(const ApiNode* node);

    // --- Names and order ---

    /// True for a node whose name is not the one that its type starts with.
    static bool HasBeenNamed(const ApiNode* node);
    /// True for a graph whose name starts with "Velmar Sandbox", in upper or lower case: the current sandbox, and each
    /// that came with an imported scene.
    static bool IsSandbox(const ApiItem* item);
    /// Strict order for lists: by graph before node, type, name, address; null last.
    static bool CompareItems(const ApiItem* a, const ApiItem* b);

    // --- Whole graphs ---

    /// The graph's own items for which `keep` is true.
    static std::set<ApiItem*> GetOwnedItems(const ApiNodeGraph* graph, const std::function<bool(const ApiItem*)>& keep);
    /// The geometry of the first render target of the list that has one; null without.
    static ApiNode* FindMainMesh(const ApiItemArray& items);
    /// The node records of the materials in the list and of those directly on pins of these, each once, in address
    /// order; null for none.
    static Json::Value FindAllMaterials(const ApiItemArray& items);

    // --- Texts for people ---

    /// A line for the item and, below it, four blanks deeper, what FormatGraph or FormatNode tell of it. `depth` counts
    /// the indents of the first line; `label` and `value` may be empty.
    static std::string FormatItem(const ApiItem* item, unsigned long depth, const std::string& label,
                                  const std::string& value);
    /// The graph and, in the order of CompareItems, its graphs and those nodes that no pin uses.
    static std::string FormatGraph(const ApiNodeGraph* graph, unsigned long depth);
    /// The node, its attributes that differ from their defaults, and what stands on its pins.
    static std::string FormatNode(const ApiNode* node, unsigned long depth, const std::string& value);
    /// The node and its users, up to `max_depth` levels of them.
    static std::string FormatOutputNodes(const ApiNode* node, unsigned long max_depth, unsigned long depth,
                                         const std::string& label);

    /// Debugging aid: has the debug log tell when the item is destroyed, or no longer.
    static void WatchForDelete(const ApiItem* item, bool watch);
};

}  // namespace Velmar
