// The record of SDK operations, in order, with their arguments, for tests and for whoever asks what a plug-in did. Off
// until asked for: VELMAR_OPERATION_LOG names a file to which each operation goes as a line, and begin() gathers them
// in memory. While it is off, an operation costs one test of a flag and formats no text. SDK thread only.
#pragma once

#include <velmar/export.h>
#include <velmar/item.h>
#include <velmar/node_types.h>

#include <string>
#include <vector>

namespace Velmar::Engine {

/// Stands for an array in a line: its number of elements.
struct ElementCount {
    std::size_t count;
};

/// One operation as text. Each argument goes behind a blank:
/// items as type name, colon and name ("null", "destroyed"); booleans as true and false; floats in shortest form;
/// vectors as (x,y,z); matrices as ((row),(row),(row)); texts in quotes with \" \\ \n \r \t escaped; arrays as their
/// count in brackets; node types by name; pins, attributes and other numbers as they are. An observer has no name:
/// stopObserving "observer" ends the observation of one, stopObserving alone that of all.
class OperationLine {
public:
    explicit OperationLine(const char* operation);
    void add(const ApiItem* item);
    void add(const char* text);
    void add(bool value);
    void add(int value);
    void add(unsigned value);
    void add(float value);
    void add(Vec2<int> value);
    void add(Vec3<int> value);
    void add(Vec2<float> value);
    void add(Vec3<float> value);
    void add(Vec4<float> value);
    void add(const Matrix<float>& value);
    void add(ElementCount value);
    void add(NodeType type);
    void add(NodeGraphType type);
    const std::string& text() const;

private:
    std::string text_;
};

/// One line per operation that a caller of the SDK asked for and that may change something, written when it begins;
/// what the engine does within it is not listed, what an observer asks for in a callback is:
///   connectTo VELMAR_SCATTER:Scatter 59 VELMAR_MATERIAL_MAP:Map true false
///   set VELMAR_SCATTER:Scatter 170 [12] true
class VELMAR_SDK OperationLog {
public:
    /// Starts to gather in memory, from empty.
    static void begin();
    /// Ends it and hands out the lines.
    static std::vector<std::string> end();

    /// Takes down one operation, for the rooms of the engine that implement SDK operations.
    template <typename... Arguments>
    static void record(const char* operation, const Arguments&... arguments) {
        if (!enabled()) return;
        OperationLine line(operation);
        (line.add(arguments), ...);
        write(line.text());
    }

    /// Looks at VELMAR_OPERATION_LOG again; a new file starts empty. Happens by itself at the first operation.
    static void readEnvironment();

private:
    enum class State : unsigned char { Unread, Off, On };
    static bool enabled() { return state_ != State::Off && isOn(); }
    static bool isOn();
    static void write(const std::string& line);
    static State state_;
};

}  // namespace Velmar::Engine
