// The engine of the process between start and exit of the library: the render target, the scene that is compiled from
// it, and the renderer. The SDK's calls of the run state end here. SDK thread only.
#pragma once

#include "engine/render/renderer.h"
#include "engine/scene/scene_compiler.h"

#include <memory>

namespace Velmar {
class ApiNode;
}

namespace Velmar::Engine {

class RenderSession {
public:
    /// The one session. It is never destroyed, so that no call finds it gone while the process ends.
    static RenderSession& instance();

    /// Starts graph and renderer. False, with a static text in `reason`, when that fails or the library runs already.
    bool start(const char*& reason);
    /// Ends renderer and graph. Does nothing when the library does not run.
    void exit();
    bool running() const { return compiler_ != nullptr; }

    /// As the calls of ApiRenderEngine and ApiChangeManager::update say. Without a start they do nothing.
    bool setRenderTarget(ApiNode* node);
    ApiNode* renderTarget();
    void update();
    void restart();
    void resume();
    void pause();
    void stop();
    void setPriority(int priority);

    Renderer& renderer() { return renderer_; }
    /// The scene that was compiled last; null when there is none.
    const RenderScene* scene() const { return scene_.get(); }
    SceneWork work() const;
    std::uint64_t updates() const { return updates_; }
    void resetCounts();

private:
    RenderSession() = default;
    void compileIfPending();

    Renderer renderer_;
    std::unique_ptr<SceneCompiler> compiler_;
    ApiNode* target_ = nullptr;
    bool pending_ = false;  // the scene is not the target's as the graph stands
    std::shared_ptr<const RenderScene> scene_;
    std::uint64_t updates_ = 0;
};

}  // namespace Velmar::Engine
