#include <glog/logging.h>
#include <json/value.h>

#include "plugin/utils/message.h"
#include "plugin/velmar/setters/camera.h"
#include "plugin/velmar/setters/quality.h"
#include "plugin/velmar/setters/setter_message.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

constexpr const char* kUnreadable = "Failed to read scene setting from .skp file";

using Setter = void (*)(const std::string& json);

/// A section that is missing counts as null, which has a meaning to each setter. One that is neither that nor an object
/// is logged and left out.
void ApplySection(const Json::Value& root, const char* name, Setter set) {
    const Json::Value section = root[name];
    if (!section.isNull() && !section.isObject()) {
        LOG(ERROR) << kUnreadable << ": " << name;
        return;
    }
    set(Message::JsonToString(section));
}

}  // namespace

void VelmarManager::SetSceneSettings(const char* json) {
    Json::Value root;
    const bool readable = ParseJson(json, root) && (root.isNull() || root.isObject());
    if (!readable) {
        LOG(ERROR) << kUnreadable;
        return;
    }

    // quality comes last: it may change the film's size, on which the field of view depends
    ApplySection(root, "camera", CameraSetter::Set);
    ApplySection(root, "quality", QualitySetter::Set);
    UpdateAndRestart();
}

}  // namespace Velmar
