#include "plugin/utils/message.h"

#include <glog/logging.h>
#include <json/reader.h>
#include <json/writer.h>

// The script layer's texts are read and written in the dialect of these two classes: blanks, comments and line breaks
// as they have them. Their successors differ in detail.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace Velmar {

Json::Value Message::StringToJson(const std::string& text) {
    Json::Value value;
    bool parsed = false;
    try {
        parsed = Json::Reader().parse(text, value, true);
    } catch (const Json::Exception&) {
    }
    if (parsed) return value;
    LOG(ERROR) << "Failed to parse string: " << text;
    return Json::Value();
}

std::string Message::JsonToString(const Json::Value& value) {
    return Json::StyledWriter().write(value);
}

}  // namespace Velmar
