// However a process ends while the engine renders, it ends with its own status.
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

#include "engine/host/scene_on_graph.h"

namespace Velmar::Engine {
namespace {

void startRendering() {
    const char* reason = nullptr;
    if (!apiMode_Shared_start("test", false, &reason, nullptr, nullptr)) std::abort();
    SceneOnGraph scene;
    ApiChangeManager::update();
    ApiRenderEngine::restartRendering();
    if (EngineHost::waitForSamples(1, 0.0) != WaitResult::SamplesReached) std::abort();
}

class ProcessEndTest : public testing::Test {
protected:
    ProcessEndTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ProcessEndTest, WithoutTheLibrarysEnd) {
    EXPECT_EXIT(
        {
            startRendering();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ProcessEndTest, AfterTheLibrarysEnd) {
    EXPECT_EXIT(
        {
            startRendering();
            apiMode_Shared_exit(nullptr);
            apiMode_Shared_exit(nullptr);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ProcessEndTest, WhilePaused) {
    EXPECT_EXIT(
        {
            startRendering();
            ApiRenderEngine::pauseRendering();
            std::exit(3);
        },
        testing::ExitedWithCode(3), "");
}

TEST_F(ProcessEndTest, OfAForkedProcessDoesNotWaitForThreadsThatItDoesNotHave) {
    EXPECT_EXIT(
        {
            startRendering();
            const pid_t child = fork();
            if (child == 0) std::exit(5);
            int status = 0;
            waitpid(child, &status, 0);
            std::exit(WIFEXITED(status) ? WEXITSTATUS(status) : 1);
        },
        testing::ExitedWithCode(5), "");
}

}  // namespace
}  // namespace Velmar::Engine
