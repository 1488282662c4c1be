#include <glog/logging.h>

#include <climits>

#include "plugin/application/app_manager.h"
#include "plugin/application/app_manager_ext.h"
#include "plugin/ruby/arguments.h"
#include "plugin/ruby/handler.h"
#include "plugin/utils/debug_log.h"

namespace Velmar {

namespace {

/// Messages of Ruby stand one level above the level that they are given; the largest one has none above it.
bool isLogged(int level) {
    return level != INT_MAX && VLOG_IS_ON(level + 1);
}

}  // namespace

void AppManagerExt::Init() {
    LOG(INFO) << "Ruby extension init...";
    AppManager::InstallExceptionHandler();
    const VALUE klass = Ruby::open_class("VelmarExt");
    Ruby::define<&AppManagerExt::Debug>(klass, "debug");
    Ruby::define<&AppManagerExt::Log>(klass, "log");
    Ruby::define<&AppManagerExt::Shutdown>(klass, "shutdown");
    LOG(INFO) << "Ruby extension init complete";
}

Ruby::Value AppManagerExt::Debug(Ruby::Value, Ruby::Value message) {
    DebugLog(Ruby::to_cstr(message));
    return Qtrue;
}

Ruby::Value AppManagerExt::Log(Ruby::Value, Ruby::Value message, Ruby::Value level) {
    if (!isLogged(Ruby::to_int(level))) return Qtrue;
    const std::string text = Ruby::to_cstr(message);
    LOG(INFO) << "Ruby: " << text;
    return Qtrue;
}

Ruby::Value AppManagerExt::Shutdown(Ruby::Value) {
    AppManager::StopServerLoop();
    AppManager::UninstallExceptionHandler();
    return Qtrue;
}

}  // namespace Velmar
