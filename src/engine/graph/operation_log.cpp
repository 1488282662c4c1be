#include "engine/graph/operation_log.h"

#include "engine/catalog/engine_log.h"
#include "engine/graph/records.h"

#include <velmar/info.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace Velmar::Engine {
namespace {

// Where lines go. Made when first needed and kept, so that a late line finds it whatever has ended already.
struct Sink {
    std::FILE* file = nullptr;
    std::string path;
    bool gathering = false;
    std::vector<std::string> lines;
};

Sink& sink() {
    static Sink& made = *new Sink;
    return made;
}

template <typename T>
void append(std::string& text, T number) {
    char digits[32];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), number);
    text.append(digits, result.ptr);
}

template <typename... T>
void appendTuple(std::string& text, T... numbers) {
    char before = '(';
    ((text += std::exchange(before, ','), append(text, numbers)), ...);
    text += ')';
}

void appendText(std::string& text, const char* value, bool quoted) {
    for (; *value != '\0'; ++value) {
        switch (*value) {
            case '\n':
                text += "\\n";
                break;
            case '\r':
                text += "\\r";
                break;
            case '\t':
                text += "\\t";
                break;
            case '"':
            case '\\':
                if (quoted) text += '\\';
                [[fallthrough]];
            default:
                text += *value;
        }
    }
}

const char* typeName(const ItemRecord& record) {
    switch (record.kind) {
        case ItemRecord::Kind::Node:
            return static_cast<const NodeRecord&>(record).type->row->type_name;
        case ItemRecord::Kind::Graph:
            return ApiInfo::getGraphTypeName(GRAPH_STANDARD);
        case ItemRecord::Kind::RootGraph:
            return ApiInfo::getGraphTypeName(GRAPH_ROOT);
    }
    return "";
}

}  // namespace

OperationLine::OperationLine(const char* operation) : text_(operation) {}

void OperationLine::add(const ApiItem* item) {
    const ItemRecord* record = ItemRecord::of(item);
    if (record == nullptr) {
        text_ += item == nullptr ? " null" : " destroyed";
        return;
    }
    text_ += ' ';
    text_ += typeName(*record);
    text_ += ':';
    appendText(text_, record->name.c_str(), false);
}

void OperationLine::add(const char* text) {
    if (text == nullptr) {
        text_ += " null";
        return;
    }
    text_ += " \"";
    appendText(text_, text, true);
    text_ += '"';
}

void OperationLine::add(bool value) {
    text_ += value ? " true" : " false";
}
void OperationLine::add(int value) {
    append(text_ += ' ', value);
}
void OperationLine::add(unsigned value) {
    append(text_ += ' ', value);
}
void OperationLine::add(float value) {
    append(text_ += ' ', value);
}
void OperationLine::add(Vec2<int> value) {
    appendTuple(text_ += ' ', value.x, value.y);
}
void OperationLine::add(Vec3<int> value) {
    appendTuple(text_ += ' ', value.x, value.y, value.z);
}
void OperationLine::add(Vec2<float> value) {
    appendTuple(text_ += ' ', value.x, value.y);
}
void OperationLine::add(Vec3<float> value) {
    appendTuple(text_ += ' ', value.x, value.y, value.z);
}
void OperationLine::add(Vec4<float> value) {
    appendTuple(text_ += ' ', value.x, value.y, value.z, value.w);
}

void OperationLine::add(const Matrix<float>& value) {
    text_ += " (";
    for (const auto& row : value.m) {
        if (&row != &value.m[0]) text_ += ',';
        appendTuple(text_, row[0], row[1], row[2], row[3]);
    }
    text_ += ')';
}

void OperationLine::add(ElementCount value) {
    append(text_ += " [", value.count);
    text_ += ']';
}

void OperationLine::add(NodeType type) {
    const char* name = ApiInfo::getNodeTypeName(type);
    if (*name == '\0') return add(static_cast<int>(type));
    (text_ += ' ') += name;
}

void OperationLine::add(NodeGraphType type) {
    const char* name = ApiInfo::getGraphTypeName(type);
    if (*name == '\0') return add(static_cast<int>(type));
    (text_ += ' ') += name;
}

const std::string& OperationLine::text() const {
    return text_;
}

constinit OperationLog::State OperationLog::state_ = OperationLog::State::Unread;

void OperationLog::begin() {
    if (state_ == State::Unread) readEnvironment();
    sink().lines.clear();
    sink().gathering = true;
    state_ = State::On;
}

std::vector<std::string> OperationLog::end() {
    sink().gathering = false;
    if (state_ == State::On && sink().file == nullptr) state_ = State::Off;
    return std::exchange(sink().lines, {});
}

void OperationLog::readEnvironment() {
    const char* value = std::getenv("VELMAR_OPERATION_LOG");
    const std::string path = value == nullptr ? "" : value;
    if (path != sink().path) {
        if (sink().file != nullptr) std::fclose(sink().file);
        sink().path = path;
        sink().file = path.empty() ? nullptr : std::fopen(path.c_str(), "w");
        if (!path.empty() && sink().file == nullptr) logLine("cannot write the operation log " + path);
    }
    state_ = sink().file != nullptr || sink().gathering ? State::On : State::Off;
}

bool OperationLog::isOn() {
    if (state_ == State::Unread) readEnvironment();
    return state_ == State::On;
}

void OperationLog::write(const std::string& line) {
    Sink& to = sink();
    if (to.gathering) to.lines.push_back(line);
    if (to.file == nullptr) return;
    std::fwrite(line.data(), 1, line.size(), to.file);
    std::fputc('\n', to.file);
    std::fflush(to.file);
}

}  // namespace Velmar::Engine
