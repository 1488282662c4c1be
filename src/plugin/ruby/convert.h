// Conversions between Ruby values and native ones in which a failure becomes a default value. For answers of the script
// layer, not for bulk data and not for the arguments of handlers, which raise instead (arguments.h). Ruby thread only.
#pragma once

#include <map>
#include <string>

#include "plugin/ruby/value.h"

namespace Velmar::Ruby {

/// Static functions for each type. from_ruby never raises for a value that does not convert: an exception of the
/// StandardError family is logged to the debug log and leaves the default. Other exceptions leave as a Jump, and native
/// ones (no memory) pass, to be raised in Ruby by the handler that is under way.
template <typename T>
struct Convert;

template <typename T>
struct ConvertNumber {
    static T from_ruby(Value value, T default_value);
};

// Numbers that the interpreter converts itself: what is no number, or does not fit, gives the default.
template <>
struct Convert<long> : ConvertNumber<long> {};
template <>
struct Convert<unsigned long> : ConvertNumber<unsigned long> {};
template <>
struct Convert<long long> : ConvertNumber<long long> {};
template <>
struct Convert<unsigned long long> : ConvertNumber<unsigned long long> {};
template <>
struct Convert<float> : ConvertNumber<float> {};
template <>
struct Convert<double> : ConvertNumber<double> {};

// Narrow integers: the default stands for a number out of range only. What is no number at all gives 0.
template <>
struct Convert<char> : ConvertNumber<char> {};
template <>
struct Convert<signed char> : ConvertNumber<signed char> {};
template <>
struct Convert<unsigned char> : ConvertNumber<unsigned char> {};
template <>
struct Convert<short> : ConvertNumber<short> {};
template <>
struct Convert<unsigned short> : ConvertNumber<unsigned short> {};
template <>
struct Convert<int> : ConvertNumber<int> {};
template <>
struct Convert<unsigned int> : ConvertNumber<unsigned int> {};

/// A truth test wider than Ruby's: zero and whatever is empty are false too. An object of another kind gives the
/// default.
template <>
struct Convert<bool> {
    static bool from_ruby(Value value, bool default_value);
};

/// Bytes of a string, name of a symbol; the default for anything else. To Ruby as UTF-8.
template <>
struct Convert<std::string> {
    static std::string from_ruby(Value value, const std::string& default_value);
    static Value to_ruby(const std::string& text);
};

/// A Hash of texts; what is no text is the empty text, and of keys that are one text the first stays.
template <>
struct Convert<std::map<std::string, std::string>> {
    using Map = std::map<std::string, std::string>;
    static Map from_ruby(Value value, const Map& default_value);
    static Value to_ruby(const Map& map);
};

}  // namespace Velmar::Ruby
