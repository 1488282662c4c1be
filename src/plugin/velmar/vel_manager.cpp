#include "plugin/velmar/vel_manager.h"

#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>
#include <velmar/render.h>

#include <glog/logging.h>

#include <mutex>
#include <ostream>

#include "plugin/nodes/node_utils.h"
#include "plugin/nodes/sdk_state.h"
#include "plugin/velmar/render_targets.h"
#include "plugin/velmar/setters/camera.h"
#include "plugin/velmar/setters/quality.h"
#include "plugin/velmar/vel_manager_ext.h"

namespace Velmar {

namespace {

constexpr const char* kDefaultPage = "Default View";
/// Marks a node that the window treats as a render target.
constexpr int kRenderTargetFlags = 4;

ApiNode* geometry_group = nullptr;
/// Held across the engine's state calls, so that call and recorded state cannot part.
std::mutex state_mutex;
VelmarManager::StateType current_state = VelmarManager::StateType::Running;

/// Fills the inputs of the render target in use: the camera first, its field of view once the film has its size.
void ApplyDefaultSettings() {
    CameraSetter::Init();
    QualitySetter::Init();
    CameraSetter::UpdateFov();
}

ApiNode* NewRenderTarget() {
    ApiNode* const target = ApiNode::create(NODE_RENDER_TARGET, ApiProjectManager::rootNodeGraph(), true);
    if (target == nullptr) return nullptr;
    target->setUIOperationFlags(kRenderTargetFlags);
    target->setName(kDefaultPage);
    return target;
}

/// Restarts a stopped render and continues a paused one. The state is written after the engine call, so that it stays
/// when the call throws. Needs the state's lock.
void Resume() {
    using StateType = VelmarManager::StateType;
    if (current_state == StateType::Stopped) {
        ApiRenderEngine::restartRendering();
    } else if (current_state == StateType::Paused) {
        ApiRenderEngine::continueRendering();
    }
    current_state = StateType::Running;
}

/// Holds a render that runs; the rest as Resume.
void Pause() {
    if (current_state != VelmarManager::StateType::Running) return;
    ApiRenderEngine::pauseRendering();
    current_state = VelmarManager::StateType::Paused;
}

/// Ends a render that runs or is held; the rest as Resume.
void Stop() {
    if (current_state == VelmarManager::StateType::Stopped) return;
    ApiRenderEngine::stopRendering();
    current_state = VelmarManager::StateType::Stopped;
}

}  // namespace

bool VelmarManager::Init() {
    LOG(INFO) << "Creating VelmarManager...";
    CreateRenderTarget();
    ApplyDefaultSettings();  // again, which is harmless and keeps the order of operations at start
    VelmarManagerExt::Init();
    LOG(INFO) << "VelmarManager Created";
    return true;
}

void VelmarManager::CreateRenderTarget() {
    RenderTargets& targets = RenderTargets::Shared();

    // throw away the old render targets
    for (auto& [page, node] : targets.nodes) NodeUtils::SafeDestroy(node);
    targets.nodes.clear();

    // make the new one known to the engine and to the setters
    ApiNode* const target = NewRenderTarget();
    ApiRenderEngine::setRenderTargetNode(target);
    targets.current_page = kDefaultPage;
    targets.nodes[kDefaultPage] = target;

    // fill its inputs and show it
    ApplyDefaultSettings();
    ApiNode* const filled = targets.nodes[kDefaultPage];
    if (filled != nullptr) filled->select();
}

void VelmarManager::Cleanup() {
    LOG(INFO) << "VelmarManager Destroyed";
}

bool VelmarManager::SetCameraPos(const Vec3<float>& pos, const Vec3<float>& target, const Vec3<float>& up) {
    CameraSetter::SetPosition(pos, target, up);
    return true;
}

bool VelmarManager::SetCameraView(float value, bool orthographic) {
    CameraSetter::SetView(value, orthographic);
    return true;
}

bool VelmarManager::SetViewExtents(int width, int height) {
    QualitySetter::SetSketchupExtents(width, height);
    return true;
}

bool VelmarManager::ExportScene(const std::string&, const std::vector<Page>&) {
    return true;
}

ApiNode* VelmarManager::GeometryGroup() {
    return SdkRuns() ? geometry_group : nullptr;
}

void VelmarManager::InitGeometryGroup() {
    const RenderTargets& targets = RenderTargets::Shared();
    if (!SdkRuns() || targets.nodes.empty() || geometry_group != nullptr) return;
    geometry_group = ApiNode::create(NODE_GEOMETRY_GROUP, ApiProjectManager::rootNodeGraph(), true);
    for (const auto& [page, node] : targets.nodes) {
        if (node != nullptr) node->connectTo(PIN_RENDER_GEOMETRY, geometry_group, true, false);
    }
}

void VelmarManager::FlushGeometryGroup() {
    geometry_group = nullptr;
}

bool VelmarManager::UpdateAndRestart() {
    if (!ApiRenderEngine::setRenderTargetNode(RenderTarget())) return false;
    ApiChangeManager::update();
    const std::scoped_lock lock(state_mutex);
    Resume();
    return true;
}

ApiNode* VelmarManager::RenderTarget() {
    return SdkRuns() ? RenderTargets::Shared().InUse() : nullptr;
}

bool VelmarManager::IsRenderTarget(const ApiItem* item) {
    return RenderTargets::Shared().Contains(item);
}

void VelmarManager::SetRenderState(StateType requested) {
    const std::scoped_lock lock(state_mutex);
    switch (requested) {
        case StateType::Stopped:
            return Stop();
        case StateType::Paused:
            return Pause();
        case StateType::Running:
            return Resume();
    }
}

VelmarManager::StateType VelmarManager::GetRenderState() {
    const std::scoped_lock lock(state_mutex);
    return current_state;
}

std::ostream& operator<<(std::ostream& out, VelmarManager::StateType state) {
    switch (state) {
        case VelmarManager::StateType::Stopped:
            return out << "Stopped";
        case VelmarManager::StateType::Paused:
            return out << "Paused";
        case VelmarManager::StateType::Running:
            return out << "Running";
    }
    return out << static_cast<int>(state);
}

}  // namespace Velmar
