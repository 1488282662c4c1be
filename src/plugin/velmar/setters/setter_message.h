// The text of a setter's message, and what is read from it. Every setter takes JSON text, reads each key with a
// fallback and ignores keys that it does not know.
//
// A value of the wrong kind makes jsoncpp throw its logic error. So a setter reads its whole message before it changes
// anything, and a bad message leaves everything as it was.
#pragma once

#include <velmar/values.h>

#include <json/forwards.h>

#include <string>

namespace Velmar {

/// The value in `text`, comments kept. False when the text is no JSON or nests too deep.
bool ParseJson(const std::string& text, Json::Value& value);
/// As ParseJson, with one line in the log when it fails.
bool ParseSetterMessage(const std::string& text, Json::Value& message);

/// Each reads the value at `key`, or `fallback` when the key is missing.
float ReadFloat(const Json::Value& message, const char* key, double fallback);
int ReadInt(const Json::Value& message, const char* key, int fallback);
bool ReadBool(const Json::Value& message, const char* key, bool fallback);

/// Reads an object of "x", "y" and "z", each 0 when missing. A key that holds no object, or is missing itself, is an
/// error: jsoncpp's logic error.
Vec3<float> ReadVector(const Json::Value& message, const char* key);
/// The JSON form that ReadVector reads.
Json::Value VectorMessage(double x, double y, double z);

}  // namespace Velmar
