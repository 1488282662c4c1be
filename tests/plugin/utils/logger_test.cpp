#include "plugin/utils/logger.h"

#include <glog/logging.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

namespace fs = std::filesystem;

std::string base() {
    return Strings::GetUserHome() + "/Documents/Velmar";
}

std::vector<std::string> messageLogs() {
    std::vector<std::string> found;
    for (const std::string& file : Strings::DirectoryList(base() + "/SketchUp/logs")) {
        if (Strings::SplitPath(file).second.starts_with("VelmarSketchup")) found.push_back(file);
    }
    return found;
}

std::string messages() {
    std::string all;
    for (const std::string& file : messageLogs()) {
        std::string content;
        Strings::LoadFileContent(file, content);
        all += content;
    }
    return all;
}

std::size_t filesInTemporaryFolder() {
    const auto list = fs::directory_iterator(fs::temp_directory_path());
    return static_cast<std::size_t>(std::count_if(begin(list), end(list), [](const fs::directory_entry& entry) {
        return entry.path().filename().string().find("VelmarPlugin") != std::string::npos;
    }));
}

class LoggerTest : public testing::Test {
protected:
    void SetUp() override { fs::remove_all(Strings::GetUserHome() + "/Documents"); }
    void TearDown() override {
        Logger::Shutdown();
        fs::remove_all(Strings::GetUserHome() + "/Documents");
    }
};

TEST_F(LoggerTest, MakesTheFolderTreeFromNothing) {
    ASSERT_FALSE(fs::exists(Strings::GetUserHome() + "/Documents"));
    Logger::Init();
    for (const char* folder :
         {"", "/SketchUp", "/SketchUp/temp", "/SketchUp/logs", "/SketchUp/temp/previews", "/SketchUp/temp/textures"}) {
        EXPECT_TRUE(fs::is_directory(base() + folder)) << folder;
    }
}

TEST_F(LoggerTest, WritesEachLineAtOnceIntoOneFile) {
    Logger::Init();
    LOG(INFO) << "an info line";
    EXPECT_NE(messages().find("an info line"), std::string::npos);
    LOG(ERROR) << "an error line";
    EXPECT_NE(messages().find("an error line"), std::string::npos);
    EXPECT_EQ(messageLogs().size(), 1U);
}

TEST_F(LoggerTest, NamesTheSourceFile) {
    Logger::Init();
    LOG(INFO) << "where from";
    EXPECT_NE(messages().find("logger_test.cpp:"), std::string::npos);
}

TEST_F(LoggerTest, LeavesStderrAndTheTemporaryFolderAlone) {
    const std::size_t before = filesInTemporaryFolder();
    testing::internal::CaptureStderr();
    Logger::Init();
    LOG(INFO) << "info";
    LOG(WARNING) << "warning";
    LOG(ERROR) << "error";
    Logger::Shutdown();
    LOG(INFO) << "late";
    LOG(ERROR) << "late error";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(filesInTemporaryFolder(), before);
}

TEST_F(LoggerTest, SetsTheVerboseLevelToZero) {
    FLAGS_v = 3;
    Logger::Init();
    EXPECT_EQ(FLAGS_v, 0);
    EXPECT_EQ(FLAGS_logbuflevel, -1);
}

TEST_F(LoggerTest, StartsAndEndsAsOftenAsAsked) {
    Logger::Init();
    Logger::Init();
    LOG(INFO) << "first life";
    EXPECT_TRUE(google::IsGoogleLoggingInitialized());
    EXPECT_EQ(messageLogs().size(), 1U);
    Logger::Shutdown();
    Logger::Shutdown();
    EXPECT_FALSE(google::IsGoogleLoggingInitialized());
    Logger::Init();
    LOG(INFO) << "second life";
    EXPECT_NE(messages().find("second life"), std::string::npos) << "within the same second";
    EXPECT_EQ(messageLogs().size(), 2U);
}

TEST_F(LoggerTest, NeitherStartsNorEndsTheLogOfAnotherExtension) {
    google::InitGoogleLogging("another extension");
    Logger::Init();
    LOG(INFO) << "shared";
    Logger::Shutdown();
    EXPECT_TRUE(google::IsGoogleLoggingInitialized());
    google::ShutdownGoogleLogging();
}

TEST_F(LoggerTest, ToleratesThatAnotherExtensionEndedIt) {
    Logger::Init();
    google::ShutdownGoogleLogging();
    Logger::Shutdown();
    EXPECT_FALSE(google::IsGoogleLoggingInitialized());
}

}  // namespace
}  // namespace Velmar
