// Items: what a scene is made of. An item is a node or a graph. All items belong to the library: whoever uses them
// holds borrowed pointers and ends an item only with destroy(). An item's address is stable from creation to
// destruction; a destroyed item answers every call empty until the library stops. Every call comes from one thread, the
// one that runs the host's scripts.
#pragma once

#include <velmar/attribute_ids.h>
#include <velmar/export.h>
#include <velmar/kinds.h>
#include <velmar/values.h>

#include <cstddef>
#include <cstdint>

namespace Velmar {

class ApiNode;
class ApiNodeGraph;
struct ApiAttributeInfo;
struct ItemRecord;

/// What nodes and graphs have in common: identity, place, life and attributes.
///
/// Attributes are read and written by AttributeId or by index in the item's attribute list. Reading an attribute that
/// the item does not have, or as another type than its own, answers 0, false, an empty text or an empty array. Writing
/// one changes nothing. Writing the value that stands already, bit by bit, is no change and wakes no observer. The same
/// goes for an attribute that follows from a node's pins, the direction of a sun for instance.
class VELMAR_SDK ApiItem {
public:
    ApiItem(const ApiItem&) = delete;
    ApiItem& operator=(const ApiItem&) = delete;

    /// The item's name, UTF-8, never null; valid until the next call on the item.
    const char* name() const;
    /// Renames the item. Null counts as the empty text.
    void setName(const char* name);

    bool isNode() const;
    bool isGraph() const;
    /// The item as a node, or null when it is none.
    ApiNode* toNode();
    const ApiNode* toNode() const;
    /// The item as a graph, or null when it is none.
    ApiNodeGraph* toGraph();
    const ApiNodeGraph* toGraph() const;

    /// The graph that owns the item; null for a root graph and for a node that a pin owns.
    ApiNodeGraph* graphOwner() const;
    /// True for a node that a pin owns: it stands in no graph and goes when the pin is given another node.
    bool pinOwned() const;
    /// The item's place in the graph view, in view units, y downwards.
    Vec2<float> position() const;
    void setPosition(Vec2<float> position);

    /// Disconnects the item everywhere, ends it and what it owns, and leaves a tombstone. The project's root graph and
    /// settings stay.
    void destroy();
    /// Makes attributes that were written without evaluation take effect.
    void evaluate();

    /// Makes the item the selected one of the project.
    void select();
    /// Marks how the window may treat the item; 4 marks render targets and link nodes.
    void setUIOperationFlags(int flags);

    bool hasAttr(AttributeId id) const;
    bool getBool(AttributeId id) const;
    int getInt(AttributeId id) const;
    Vec2<int> getInt2(AttributeId id) const;
    Vec3<int> getInt3(AttributeId id) const;
    float getFloat(AttributeId id) const;
    Vec2<float> getFloat2(AttributeId id) const;
    Vec3<float> getFloat3(AttributeId id) const;
    Vec4<float> getFloat4(AttributeId id) const;
    /// Text of a string or file name attribute, never null; valid until the next call on the item.
    const char* getString(AttributeId id) const;

    /// Each reads an attribute into `out` and answers true; without such an attribute of that type `out` stays and the
    /// answer is false.
    bool get(AttributeId id, bool& out) const;
    bool get(AttributeId id, const char*& out) const;
    bool get(AttributeId id, Vec3<float>& out) const;
    bool get(AttributeId id, Matrix<float>& out) const;

    /// Each writes an attribute. `evaluate` false leaves the effect to a later evaluate(), for an item that is filled
    /// by several calls; what was not evaluated takes effect with the next ApiChangeManager::update().
    void set(AttributeId id, bool value, bool evaluate);
    void set(AttributeId id, int value, bool evaluate);
    void set(AttributeId id, float value, bool evaluate);
    void set(AttributeId id, const char* value, bool evaluate);
    void set(AttributeId id, Vec2<int> value, bool evaluate);
    void set(AttributeId id, Vec3<int> value, bool evaluate);
    void set(AttributeId id, Vec2<float> value, bool evaluate);
    void set(AttributeId id, Vec3<float> value, bool evaluate);
    void set(AttributeId id, Vec4<float> value, bool evaluate);
    void set(AttributeId id, const Matrix<float>& value, bool evaluate);

    /// Each replaces the elements of an array attribute by `count` elements, which are copied. A null array counts as
    /// empty.
    void set(AttributeId id, const int* values, std::size_t count, bool evaluate);
    void set(AttributeId id, const Vec3<float>* values, std::size_t count, bool evaluate);
    void set(AttributeId id, const Matrix<float>* values, std::size_t count, bool evaluate);
    void set(AttributeId id, const char* const* values, std::size_t count, bool evaluate);

    unsigned attrCount() const;
    /// The number of the attribute of that name on this item, or ATTR_UNKNOWN.
    AttributeId attrId(const char* name) const;
    AttributeId attrIdIx(unsigned index) const;
    /// Name of the attribute, never null.
    const char* attrNameIx(unsigned index) const;
    AttributeType attrTypeIx(unsigned index) const;
    /// Type, array flag and default values of the attribute; the record lives as long as the library. An index beyond
    /// the list answers a record of ATTR_TYPE_UNKNOWN.
    const ApiAttributeInfo& attrInfoIx(unsigned index) const;

    bool getBoolIx(unsigned index) const;
    int getIntIx(unsigned index) const;
    Vec2<int> getInt2Ix(unsigned index) const;
    Vec3<int> getInt3Ix(unsigned index) const;
    Vec4<int> getInt4Ix(unsigned index) const;
    float getFloatIx(unsigned index) const;
    Vec2<float> getFloat2Ix(unsigned index) const;
    Vec3<float> getFloat3Ix(unsigned index) const;
    Vec4<float> getFloat4Ix(unsigned index) const;
    const char* getStringIx(unsigned index) const;
    Matrix<float> getMatrixIx(unsigned index) const;

    ApiArray<bool> getBoolArrayIx(unsigned index) const;
    ApiArray<int> getIntArrayIx(unsigned index) const;
    ApiArray<Vec2<int>> getInt2ArrayIx(unsigned index) const;
    ApiArray<Vec3<int>> getInt3ArrayIx(unsigned index) const;
    ApiArray<Vec4<int>> getInt4ArrayIx(unsigned index) const;
    ApiArray<float> getFloatArrayIx(unsigned index) const;
    ApiArray<Vec2<float>> getFloat2ArrayIx(unsigned index) const;
    ApiArray<Vec3<float>> getFloat3ArrayIx(unsigned index) const;
    ApiArray<Vec4<float>> getFloat4ArrayIx(unsigned index) const;
    ApiArray<const char*> getStringArrayIx(unsigned index) const;
    ApiArray<Matrix<float>> getMatrixArrayIx(unsigned index) const;
    ApiArray<unsigned char> getByteArrayIx(unsigned index) const;

    void setIx(unsigned index, float value, bool evaluate);
    void setIx(unsigned index, Vec3<float> value, bool evaluate);

protected:
    ApiItem() = default;
    ~ApiItem() = default;

private:
    friend struct ItemRecord;
    ItemRecord* record_ = nullptr;
};

}  // namespace Velmar
