#include "plugin/velmar/setters/setter_message.h"

#include <glog/logging.h>
#include <json/reader.h>
#include <json/value.h>

// The script layer's texts are read in the dialect of this reader.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace Velmar {

bool ParseJson(const std::string& text, Json::Value& value) {
    try {
        return Json::Reader().parse(text, value, true);
    } catch (const Json::Exception&) {  // the text nests too deep
        return false;
    }
}

bool ParseSetterMessage(const std::string& text, Json::Value& message) {
    if (ParseJson(text, message)) return true;
    LOG(ERROR) << "Failed to parse string " << text;
    return false;
}

float ReadFloat(const Json::Value& message, const char* key, double fallback) {
    return static_cast<float>(message.get(key, fallback).asDouble());
}

int ReadInt(const Json::Value& message, const char* key, int fallback) {
    return message.get(key, fallback).asInt();
}

bool ReadBool(const Json::Value& message, const char* key, bool fallback) {
    return message.get(key, fallback).asBool();
}

Vec3<float> ReadVector(const Json::Value& message, const char* key) {
    const Json::Value vector = message.get(key, "");
    return {ReadFloat(vector, "x", 0.0), ReadFloat(vector, "y", 0.0), ReadFloat(vector, "z", 0.0)};
}

Json::Value VectorMessage(double x, double y, double z) {
    Json::Value vector(Json::objectValue);
    vector["x"] = x;
    vector["y"] = y;
    vector["z"] = z;
    return vector;
}

}  // namespace Velmar
