// The SDK's calls that start and stop the library and its renders.
#include <velmar/change.h>
#include <velmar/node.h>
#include <velmar/project.h>
#include <velmar/render.h>

#include "engine/graph/operation_log.h"
#include "engine/render/render_session.h"

namespace Velmar {

using Engine::OperationLog;
using Engine::RenderSession;

bool apiMode_Shared_start(const char* identity, bool reserved, const char** error_out, void (*)(void*), void*) {
    OperationLog::record("apiMode_Shared_start", identity, reserved);
    const char* reason = nullptr;
    if (RenderSession::instance().start(reason)) return true;
    if (error_out != nullptr) *error_out = reason;
    return false;
}

void apiMode_Shared_exit(const char**) {
    OperationLog::record("apiMode_Shared_exit");
    RenderSession::instance().exit();
}

void ApiChangeManager::update() {
    OperationLog::record("update");
    RenderSession::instance().update();
}

void ApiRenderEngine::setRenderPriority(int priority) {
    OperationLog::record("setRenderPriority", priority);
    RenderSession::instance().setPriority(priority);
}

bool ApiRenderEngine::setRenderTargetNode(ApiNode* node) {
    OperationLog::record("setRenderTargetNode", static_cast<const ApiItem*>(node));
    return RenderSession::instance().setRenderTarget(node);
}

ApiNode* ApiRenderEngine::getRenderTargetNode() {
    return RenderSession::instance().renderTarget();
}

void ApiRenderEngine::restartRendering() {
    OperationLog::record("restartRendering");
    RenderSession::instance().restart();
}

void ApiRenderEngine::continueRendering() {
    OperationLog::record("continueRendering");
    RenderSession::instance().resume();
}

void ApiRenderEngine::pauseRendering() {
    OperationLog::record("pauseRendering");
    RenderSession::instance().pause();
}

void ApiRenderEngine::stopRendering() {
    OperationLog::record("stopRendering");
    RenderSession::instance().stop();
}

// The renderer knows no materials yet, so there is none that it could show.
bool ApiRenderEngine::previewMaterial(ApiNode*, int, int, int, float, PreviewType, unsigned char*) {
    return false;
}

}  // namespace Velmar
