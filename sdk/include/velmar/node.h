// Nodes: items with a type, numbered pins and numbered attributes. A pin is connected to a node, or owns an internal
// node, or is empty.
#pragma once

#include <velmar/item.h>
#include <velmar/node_types.h>
#include <velmar/pin_ids.h>

namespace Velmar {

class ApiNodeArray;
class ApiStringArray;
struct ApiNodeInfo;
struct ApiNodePinInfo;

/// A node of a scene.
///
/// Pins are named by PinId or by index in the node's pin list. A pin that the node does not have answers 0, false, null
/// or empty text when read, and nothing changes when it is written. Where the node on a pin is of a link type, the
/// value calls read through it.
class VELMAR_SDK ApiNode : public ApiItem {
public:
    /// Makes a node of `type` in `graph`, named after its type. `configure` gives its value pins their default nodes,
    /// as internal nodes, and evaluates it. Null for an unknown type or when `graph` is null.
    static ApiNode* create(NodeType type, ApiNodeGraph* graph, bool configure);
    /// Makes a node of `type` that `pin` owns, in place of what the pin held; it is connected on return. `configure` is
    /// as in create(), `evaluate` makes the change take effect at once. Null when pin or type are unknown; then the pin
    /// keeps what it has.
    ApiNode* createInternal(PinId pin, NodeType type, bool configure, bool evaluate);

    NodeType type() const;
    /// Description of the node's type; lives as long as the library.
    const ApiNodeInfo& info() const;

    unsigned pinCount() const;
    bool hasPin(PinId id) const;
    /// The number of the pin of that name, or PIN_UNKNOWN. Dynamic pins, which only have an index, answer PIN_UNKNOWN.
    PinId pinId(const char* name) const;
    PinId pinIdIx(unsigned index) const;
    /// Name of the pin, never null.
    const char* pinNameIx(unsigned index) const;
    NodePinType pinTypeIx(unsigned index) const;
    /// Description of the pin; lives as long as the library. An index beyond the list answers a record of
    /// PIN_TYPE_UNKNOWN.
    const ApiNodePinInfo& pinInfoIx(unsigned index) const;

    /// Each puts `node` on a pin; null empties it. An internal node of the pin is destroyed. `evaluate` makes the
    /// change take effect at once, `configure` gives the empty pins of `node` their default nodes. Nothing changes when
    /// the pin does not exist, when `node` is owned by another pin, or when the connection would close a cycle (logged
    /// once).
    void connectTo(PinId id, ApiNode* node, bool evaluate, bool configure);
    void connectTo(const char* pin_name, ApiNode* node, bool evaluate, bool configure);
    void connectToIx(unsigned index, ApiNode* node, bool evaluate, bool configure);

    /// The node that stands on a pin in the end: links are followed. Null for an empty pin.
    ApiNode* inputNode(PinId id) const;
    /// The node on the pin itself, a link node too. Null for an empty pin.
    ApiNode* connectedNode(PinId id) const;
    ApiNode* connectedNodeIx(unsigned index) const;

    /// Replaces the contents of both lists by the nodes that use this node and, in parallel, the names of the pins on
    /// which they use it. A user with two such pins is listed twice. For an internal node that is its owner.
    void destinationNodes(ApiNodeArray& nodes, ApiStringArray& pin_names) const;

    /// Each reads the value of the node on a pin; an empty value pin answers its default. Kinds that differ answer 0.
    bool getPinBool(PinId id) const;
    int getPinInt(PinId id) const;
    Vec2<int> getPinInt2(PinId id) const;
    float getPinFloat(PinId id) const;
    Vec3<float> getPinFloat3(PinId id) const;
    Matrix<float> getPinMatrix(PinId id) const;
    bool getPinBoolIx(unsigned index) const;
    int getPinIntIx(unsigned index) const;
    Vec2<int> getPinInt2Ix(unsigned index) const;
    Vec3<int> getPinInt3Ix(unsigned index) const;
    float getPinFloatIx(unsigned index) const;
    Vec2<float> getPinFloat2Ix(unsigned index) const;
    Vec3<float> getPinFloat3Ix(unsigned index) const;
    Matrix<float> getPinMatrixIx(unsigned index) const;
    /// Never null; valid until the next call on the node.
    const char* getPinStringIx(unsigned index) const;

    /// Each gives a pin a value through its internal node, which is made when the pin is empty; a node connected from
    /// outside takes the value itself when it is of a fitting value type and is replaced otherwise. A value of another
    /// kind than the pin's changes nothing, but that an int serves a float pin and an enum pin.
    void setPinValue(PinId id, bool value, bool evaluate);
    void setPinValue(PinId id, int value, bool evaluate);
    void setPinValue(PinId id, float value, bool evaluate);
    void setPinValue(PinId id, Vec2<int> value, bool evaluate);
    void setPinValue(PinId id, Vec2<float> value, bool evaluate);
    void setPinValue(PinId id, Vec3<float> value, bool evaluate);
    void setPinValue(PinId id, const Matrix<float>& value, bool evaluate);

    /// Copies `item` and what it depends on into the pin, as an internal node; a graph counts with its first node. Free
    /// nodes among what it depends on are copied into the graph of this node. `evaluate` makes the change take effect
    /// at once. Null items and those of another kind than the pin's change nothing.
    void copyFromIx(unsigned index, const ApiItem* item, bool evaluate);
    /// Gives the node's empty pins their default nodes.
    void configureEmptyPins();

protected:
    ApiNode() = default;
    ~ApiNode() = default;

private:
    friend struct ItemRecord;
};

}  // namespace Velmar
