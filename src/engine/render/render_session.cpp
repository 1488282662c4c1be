#include "engine/render/render_session.h"

#include <velmar/node.h>

#include <cstdlib>
#include <exception>

#include <unistd.h>

#include "engine/graph/change_log.h"
#include "engine/graph/graph_walk.h"
#include "engine/graph/project.h"

namespace Velmar::Engine {

namespace {

pid_t process_of_session = 0;

// The threads must be gone before the libraries that they use take themselves down. A process that was forked off has
// no threads to end.
void endThreadsAtExit() {
    if (getpid() == process_of_session) RenderSession::instance().renderer().shutDown();
}

void endThreadsAtExitOnce() {
    process_of_session = getpid();
    [[maybe_unused]] static const int registered = std::atexit(endThreadsAtExit);
}

}  // namespace

RenderSession& RenderSession::instance() {
    static RenderSession* const session = new RenderSession;
    return *session;
}

bool RenderSession::start(const char*& reason) {
    if (running() || Project::running()) {
        reason = "the library runs already";
        return false;
    }
    try {
        auto compiler = std::make_unique<SceneCompiler>();
        if (!Project::start()) {
            reason = "the project does not start";
            return false;
        }
        compiler_ = std::move(compiler);
    } catch (const std::exception&) {
        reason = "the ray intersection library does not start";
        return false;
    }
    endThreadsAtExitOnce();
    return true;
}

void RenderSession::exit() {
    if (!running()) return;
    renderer_.shutDown();
    renderer_.setScene(nullptr);
    renderer_.clear();
    scene_.reset();
    resetCounts();
    compiler_.reset();
    target_ = nullptr;
    pending_ = false;
    Project::stop();
}

bool RenderSession::setRenderTarget(ApiNode* node) {
    if (!running() || node == nullptr || node->type() != NODE_RENDER_TARGET) return false;
    if (node == renderTarget()) return true;
    target_ = node;
    pending_ = true;
    if (renderer_.state() == RunState::Running) compileIfPending();
    return true;
}

ApiNode* RenderSession::renderTarget() {
    if (target_ != nullptr && !isAlive(target_)) {
        target_ = nullptr;
        pending_ = true;
    }
    return target_;
}

// The scene stays pending when compiling fails, so that the next call tries again.
void RenderSession::compileIfPending() {
    if (!ChangeLog::take().empty()) pending_ = true;
    const ApiNode* target = renderTarget();
    if (!pending_) return;
    scene_ = target != nullptr ? compiler_->compile(*target) : nullptr;
    pending_ = false;
    renderer_.setScene(scene_);
}

void RenderSession::update() {
    if (!running()) return;
    ++updates_;
    compileIfPending();
}

void RenderSession::restart() {
    if (!running()) return;
    compileIfPending();
    renderer_.restart();
}

void RenderSession::resume() {
    if (!running()) return;
    if (renderer_.state() == RunState::Stopped) compileIfPending();
    renderer_.resume();
}

void RenderSession::pause() {
    renderer_.pause();
}

void RenderSession::stop() {
    renderer_.stop();
}

void RenderSession::setPriority(int priority) {
    constexpr int kNiceness[] = {10, 5, 0};
    renderer_.setNiceness(kNiceness[std::clamp(priority, 0, 2)]);
}

SceneWork RenderSession::work() const {
    return running() ? compiler_->work() : SceneWork{};
}

void RenderSession::resetCounts() {
    updates_ = 0;
    renderer_.resetCounts();
    if (running()) compiler_->resetWork();
}

}  // namespace Velmar::Engine
