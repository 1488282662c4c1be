// Values of attributes as text: whole numbers and floats with blanks between them, "true" and "false", bytes as
// hexadecimal digits. A float is written in the shortest form that reads back to the same bits; the numbers that are
// none are inf, -inf, nan and, for one of other bits than the common one, nan:XXXXXXXX with its bits. Texts are not
// numbers and stand elsewhere.
#pragma once

#include "engine/graph/value.h"

#include <string>
#include <string_view>

namespace Velmar::Engine {

/// True when two values of one kind are equal, floats bit by bit.
bool sameValue(const Value& a, const Value& b);

/// Appends a value that holds no text; arrays with a line break before each vector, matrix or group of numbers, and
/// behind the last. An empty array appends nothing.
void appendValue(std::string& out, const Value& value);

/// Gives `value` what `text` says, keeping its kind. False, and an unspecified value of that kind, when the text does
/// not say exactly that: too few or too many numbers, a number out of range, other words. Not for texts.
bool readValue(std::string_view text, Value& value);

void appendNumber(std::string& out, int number);
void appendNumber(std::string& out, float number);
void appendNumbers(std::string& out, Vec2<float> numbers);
/// False when the text is not exactly one number, or two.
bool readNumber(std::string_view text, int& number);
bool readNumber(std::string_view text, unsigned& number);
bool readNumbers(std::string_view text, Vec2<float>& numbers);

}  // namespace Velmar::Engine
