// JSON text in and out. Everything that crosses the Ruby border as JSON goes through here.
#pragma once

#include <json/value.h>

#include <string>

namespace Velmar {

class Message {
public:
    /// Parses JSON, comments allowed. A text that does not parse, or nests too deep, is logged as an error and answers
    /// the null value.
    static Json::Value StringToJson(const std::string& text);
    /// The value as indented text, ending in a newline; strings that are not UTF-8 come out with replacement
    /// characters.
    static std::string JsonToString(const Json::Value& value);
};

}  // namespace Velmar
