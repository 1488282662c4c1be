// Shared ownership of the array attributes of an item, for whoever must keep an array after the graph has moved on: the
// render scene hands these to its threads without copying a vertex. An array is never changed once it stands in an
// item; a write puts a new one in its place. Call from the SDK thread; the arrays themselves may be read and let go
// anywhere.
#pragma once

#include <velmar/attribute_ids.h>
#include <velmar/values.h>

#include <memory>
#include <string>
#include <vector>

namespace Velmar {
class ApiItem;
}

namespace Velmar::Engine {

template <typename T>
using SharedArray = std::shared_ptr<const std::vector<T>>;

/// Each answers the array attribute of that number and element type. Never null: an empty array when the item is null
/// or destroyed, or has no such attribute of that type. Two calls give the same array, by address, as long as the
/// attribute has not changed, so a comparison of pointers tells whether work can be kept.
SharedArray<int> intArray(const ApiItem* item, AttributeId id);
SharedArray<float> floatArray(const ApiItem* item, AttributeId id);
SharedArray<Vec2<float>> float2Array(const ApiItem* item, AttributeId id);
SharedArray<Vec3<float>> float3Array(const ApiItem* item, AttributeId id);
SharedArray<Matrix<float>> matrixArray(const ApiItem* item, AttributeId id);
SharedArray<std::string> stringArray(const ApiItem* item, AttributeId id);

}  // namespace Velmar::Engine
