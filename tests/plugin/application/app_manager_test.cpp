#include "plugin/application/app_manager.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "plugin/utils/logger.h"
#include "plugin/utils/strings.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

/// Messages of the debug log.
std::vector<std::string> debugLog() {
    std::ifstream file(Strings::GetUserHome() + "/Documents/Velmar/SketchUp/logs/debug-log.txt");
    std::vector<std::string> messages;
    for (std::string line; std::getline(file, line);) messages.push_back(line.substr(52));
    return messages;
}

class AppManagerTest : public TestSupport::RubyTest {
protected:
    void SetUp() override {
        Logger::Init();
        before_ = debugLog().size();
    }

    std::vector<std::string> logged() const {
        const std::vector<std::string> all = debugLog();
        return {all.begin() + static_cast<std::ptrdiff_t>(before_), all.end()};
    }

private:
    std::size_t before_ = 0;
};

const std::vector<std::string> stop_steps = {"Stopping server loop...", "Stopping Velmar SDK...", "Shutdown complete"};

TEST_F(AppManagerTest, AStopWithoutAStartWaitsForNobody) {
    AppManager::StopServerLoop();
    EXPECT_EQ(logged(), stop_steps);
    EXPECT_FALSE(AppManager::LoopActive());
}

TEST_F(AppManagerTest, TheLoopStaysUntilTheStopAndHasNoSecond) {
    std::thread loop(&AppManager::StartServerLoop);
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!AppManager::LoopActive() && std::chrono::steady_clock::now() < limit) std::this_thread::yield();
    ASSERT_TRUE(AppManager::LoopActive());
    AppManager::StartServerLoop();
    EXPECT_TRUE(AppManager::LoopActive()) << "the second one has left and the first one runs";
    AppManager::StopServerLoop();
    EXPECT_FALSE(AppManager::LoopActive());
    EXPECT_EQ(logged(), stop_steps);
    loop.join();
}

TEST_F(AppManagerTest, TheStartHappensOnceInAProcess) {
    EXPECT_TRUE(AppManager::GlobalInit());
    EXPECT_EQ(evalText("VelmarExt.debug('x')"), "true");
    EXPECT_FALSE(AppManager::GlobalInit());
    AppManager::StopServerLoop();
    EXPECT_FALSE(AppManager::GlobalInit()) << "the stop does not make it anew";
}

}  // namespace
}  // namespace Velmar
