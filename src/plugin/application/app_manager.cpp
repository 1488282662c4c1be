#include "plugin/application/app_manager.h"

#include <glog/logging.h>
#include <velmar/change.h>
#include <velmar/project.h>
#include <velmar/render.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "plugin/application/app_manager_ext.h"
#include "plugin/materials/mat_manager.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/utils/debug_log.h"
#include "plugin/utils/logger.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

constexpr char plugin_identity[] = "Velmar for SketchUp";
constexpr int low_priority = 0;
constexpr std::chrono::milliseconds poll_period(50);
constexpr std::chrono::milliseconds farewell(100);

/// GlobalInit has got so far that it cannot be repeated.
bool core_init = false;
/// This library has started the SDK and not stopped it yet.
bool sdk_running = false;
/// The background loop runs or is wanted.
std::atomic<bool> loop_active{false};
/// The background loop has seen the stop request and left.
std::atomic<bool> shutdown_complete{false};

bool startSdk() {
    const char* error = nullptr;
    sdk_running = apiMode_Shared_start(plugin_identity, false, &error, nullptr, nullptr);
    if (!sdk_running) LOG(ERROR) << "Velmar Shared Start: " << (error == nullptr ? "" : error);
    return sdk_running;
}

void stopSdk() {
    if (!sdk_running) return;
    sdk_running = false;
    apiMode_Shared_exit(nullptr);
}

/// Lowers the run flag and waits until the background loop has seen it, if there is one.
void stopLoop() {
    const bool was_active = loop_active.exchange(false);
    while (was_active && !shutdown_complete) std::this_thread::sleep_for(poll_period);
}

}  // namespace

bool AppManager::GlobalInit() {
    LOG(INFO) << "Init AppManager...";
    if (core_init) return false;
    if (!startSdk()) return false;
    LOG(INFO) << "Velmar dependencies sucessfully loaded.";
    ApiRenderEngine::setRenderPriority(low_priority);
    VelmarManager::SetRenderState(VelmarManager::StateType::Stopped);
    core_init = true;
    AppManagerExt::Init();
    if (!VelmarManager::Init() || !SketchupManager::Init() || !MaterialManager::Init()) return false;
    LOG(INFO) << "ApplicationManager Init Complete";
    return true;
}

void AppManager::StartServerLoop() {
    if (loop_active) return;
    loop_active.exchange(true);
    while (loop_active) std::this_thread::sleep_for(poll_period);
    shutdown_complete.exchange(true);
    std::this_thread::sleep_for(farewell);
}

// Each step uses what a later one takes away.
void AppManager::StopServerLoop() {
    DebugLog("Stopping server loop...");
    stopLoop();
    ApiChangeManager::stopObserving();
    SketchupManager::Cleanup();
    MaterialManager::Cleanup();
    VelmarManager::Cleanup();
    Logger::Shutdown();
    DebugLog("Stopping Velmar SDK...");
    stopSdk();
    DebugLog("Shutdown complete");
}

bool AppManager::LoopActive() {
    return loop_active;
}

void AppManager::InstallExceptionHandler() {}

void AppManager::UninstallExceptionHandler() {}

}  // namespace Velmar
