#include "plugin/utils/debug_log.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "plugin/utils/logger.h"
#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

namespace fs = std::filesystem;

std::string logFile() {
    return Strings::GetUserHome() + "/Documents/Velmar/SketchUp/logs/debug-log.txt";
}

std::vector<std::string> linesAfter(std::size_t count) {
    std::ifstream file(logFile());
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(std::min(count, lines.size())));
    return lines;
}

/// The log's folder exists, whether or not the other log was ever set up.
class DebugLogTest : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(fs::path(logFile()).parent_path());
        before_ = linesAfter(0).size();
    }
    std::vector<std::string> lines() const { return linesAfter(before_); }
    std::string message() const {
        const auto all = lines();
        EXPECT_EQ(all.size(), 1U);
        // The prefix has a fixed length: 9 + 1 + 17 + 1 + 23 + 1.
        return all.empty() || all[0].size() < 52 ? "" : all[0].substr(52);
    }

private:
    std::size_t before_ = 0;
};

TEST_F(DebugLogTest, PrefixesALineWithProcessThreadAndTime) {
    const std::string before = Strings::Timestamp();
    DebugLog("Stopping server loop...");
    const std::string after = Strings::Timestamp();
    ASSERT_EQ(lines().size(), 1U);
    const std::string line = lines()[0];
    const std::string expected = "P" + Strings::Hex(static_cast<unsigned int>(getpid()), 8) + " T" +
                                 Strings::Hex(static_cast<unsigned long>(pthread_self()), 16) + " ";
    ASSERT_EQ(line.substr(0, expected.size()), expected);
    const std::string stamp = line.substr(expected.size(), 23);
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, after);
    EXPECT_EQ(line.substr(expected.size() + 23), " Stopping server loop...");
}

TEST_F(DebugLogTest, PutsOneBlankBetweenArguments) {
    DebugLog("one", 2, std::string("three"), 4.5);
    EXPECT_EQ(message(), "one 2 three 4.5");
}

TEST_F(DebugLogTest, AddsItsBlankToOneThatIsThere) {
    DebugLog("Ruby exception [protect_call]: ", std::string("TypeError"));
    EXPECT_EQ(message(), "Ruby exception [protect_call]:  TypeError");
}

TEST_F(DebugLogTest, TakesACharPointerAndANullOne) {
    char text[] = "plain";
    char* pointer = text;
    DebugLog(pointer);
    EXPECT_EQ(message(), "plain");
    DebugLog(static_cast<const char*>(nullptr));
    EXPECT_EQ(lines().size(), 2U);
}

TEST_F(DebugLogTest, BreaksALineAtANewlineWithoutAPrefix) {
    DebugLog("first\nsecond");
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[1], "second");
}

TEST_F(DebugLogTest, WritesBeforeTheMessageLogStartsAndAfterItEnds) {
    DebugLog("before");
    Logger::Init();
    DebugLog("during");
    Logger::Shutdown();
    DebugLog("after");
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_EQ(lines()[2].substr(52), "after");
}

TEST_F(DebugLogTest, KeepsLinesOfManyThreadsWhole) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int n = 0; n < 50; ++n) DebugLog("thread line", n);
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::map<std::string, int> per_thread;
    for (const std::string& line : lines()) {
        EXPECT_EQ(line.find("thread line "), 52U) << line;
        ++per_thread[line.substr(10, 17)];
    }
    EXPECT_EQ(per_thread.size(), 4U);
    for (const auto& [thread, count] : per_thread) EXPECT_EQ(count, 50) << thread;
}

TEST_F(DebugLogTest, IsQuietWhenTheFileDoesNotOpen) {
    fs::remove_all(fs::path(logFile()).parent_path());
    EXPECT_NO_THROW(DebugLog("lost"));
    EXPECT_FALSE(fs::exists(logFile()));
}

}  // namespace
}  // namespace Velmar
