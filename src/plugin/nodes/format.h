// SDK items, events and values as text, for the log and for an engineer at a debugger. A null item has a text too, and
// nothing here fails. Pointers, numbers and truth values follow the stream's own flags.
#pragma once

#include <velmar/change.h>
#include <velmar/values.h>

#include <ostream>

namespace Velmar {

class ApiItem;
class ApiNode;
class ApiNodeGraph;

/// Address, type name, quoted name, pins in use out of all pins, number of users:
/// 0x55d0 VELMAR_GLOSSY "Oak" in 3/12 out 1
std::ostream& operator<<(std::ostream& out, const ApiNode* node);
/// Address, type name, quoted name.
std::ostream& operator<<(std::ostream& out, const ApiNodeGraph* graph);
/// As the node or the graph that it is.
std::ostream& operator<<(std::ostream& out, const ApiItem* item);

/// The name of a single bit, the number of all else.
std::ostream& operator<<(std::ostream& out, ApiChangeManager::ChangeEvent::Type type);
/// The type, the item, and what else the event tells for its type.
std::ostream& operator<<(std::ostream& out, const ApiChangeManager::ChangeEvent& event);

/// Parts in brackets: [1,2,3]. Defined for T int and float.
template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec2<T>& vector);
template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec3<T>& vector);
template <typename T>
std::ostream& operator<<(std::ostream& out, const Vec4<T>& vector);
/// Four rows, the last one the one that is not stored: [[1,0,0,0],[0,1,0,0],[0,0,1,0],[0,0,0,1]].
std::ostream& operator<<(std::ostream& out, const Matrix<float>& matrix);

/// Size and, of the elements, the first 20: [21] [1,2, and so on ,20,...]. Defined for the kinds of attributes: bool,
/// int, float, vectors of int and float, const char*, Matrix<float>.
template <typename T>
std::ostream& operator<<(std::ostream& out, const ApiArray<T>& array);
/// Bytes as numbers, and the size without brackets: 3 [1,2,255].
std::ostream& operator<<(std::ostream& out, const ApiArray<unsigned char>& bytes);

}  // namespace Velmar
