#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A fresh folder for each test.
class Files : public testing::Test {
protected:
    std::string path(const std::string& name) const { return folder_ + "/" + name; }
    static void write(const std::string& file, const std::string& content) { std::ofstream(file) << content; }

    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }

    const std::string folder_ = Strings::GetUserHome() + "/files";
};

TEST_F(Files, MakeFolderMakesOneFolder) {
    EXPECT_EQ(Strings::MakeFolder(path("new"), false), 0);
    EXPECT_TRUE(fs::is_directory(path("new")));
}

TEST_F(Files, MakeFolderOfAnExistingFolderChangesNothing) {
    Strings::MakeFolder(path("new"), false);
    write(path("new/file"), "x");
    EXPECT_EQ(Strings::MakeFolder(path("new"), false), -1);
    EXPECT_EQ(Strings::MakeFolder(path("new"), true), -1);
    EXPECT_TRUE(fs::exists(path("new/file")));
}

TEST_F(Files, MakeFolderMakesTheParentOnlyWhenAskedTo) {
    EXPECT_EQ(Strings::MakeFolder(path("a/b"), false), -1);
    EXPECT_FALSE(fs::exists(path("a")));
    EXPECT_EQ(Strings::MakeFolder(path("a/b"), true), 0);
    EXPECT_TRUE(fs::is_directory(path("a/b")));
}

TEST_F(Files, MakeFolderMakesOneLevelOfParentsOnly) {
    EXPECT_EQ(Strings::MakeFolder(path("a/b/c"), true), -1);
    EXPECT_FALSE(fs::exists(path("a")));
}

TEST_F(Files, MakeFolderAsksForAllPermissions) {
    const mode_t old = umask(0);
    Strings::MakeFolder(path("open/inner"), true);
    umask(old);
    EXPECT_EQ(fs::status(path("open")).permissions(), fs::perms::all);
    EXPECT_EQ(fs::status(path("open/inner")).permissions(), fs::perms::all);
}

TEST_F(Files, DirectoryListGivesPathsWithoutTheDots) {
    write(path("one"), "");
    write(path(".two"), "");
    fs::create_directory(path("three"));
    EXPECT_THAT(Strings::DirectoryList(folder_), UnorderedElementsAre(path("one"), path(".two"), path("three")));
    EXPECT_THAT(Strings::DirectoryList(folder_ + "/"), UnorderedElementsAre(path("one"), path(".two"), path("three")));
}

TEST_F(Files, DirectoryListOfNoFolderIsEmpty) {
    write(path("file"), "");
    EXPECT_THAT(Strings::DirectoryList(path("none")), IsEmpty());
    EXPECT_THAT(Strings::DirectoryList(path("file")), IsEmpty());
}

TEST_F(Files, CleanUpFolderRemovesFilesAndEmptyFolders) {
    write(path("one"), "1");
    fs::create_directory(path("empty"));
    fs::create_directory(path("full"));
    write(path("full/inner"), "2");
    Strings::CleanUpFolder(folder_);
    EXPECT_THAT(Strings::DirectoryList(folder_), UnorderedElementsAre(path("full")));
    EXPECT_TRUE(fs::exists(path("full/inner")));
}

TEST_F(Files, CleanUpFolderIgnoresAMissingFolder) {
    Strings::CleanUpFolder(path("none"));
    EXPECT_FALSE(fs::exists(path("none")));
}

TEST_F(Files, RegisteredFoldersAreEmptiedAtTheExitOfTheProcess) {
    for (const char* name : {"first", "second", "other"}) {
        fs::create_directory(path(name));
        write(path(std::string(name) + "/file"), "x");
    }
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        Strings::RegisterFolderForCleanup(path("first"));
        Strings::RegisterFolderForCleanup(path("second"));
        Strings::RegisterFolderForCleanup(path("first"));
        std::exit(fs::exists(path("first/file")) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(fs::exists(path("first/file")));
    EXPECT_FALSE(fs::exists(path("second/file")));
    EXPECT_TRUE(fs::exists(path("first")));
    EXPECT_TRUE(fs::exists(path("other/file")));
}

TEST_F(Files, FileExistsTellsWhetherThePathOpens) {
    write(path("file"), "x");
    EXPECT_TRUE(Strings::FileExists(path("file")));
    EXPECT_TRUE(Strings::FileExists(folder_));
    EXPECT_FALSE(Strings::FileExists(path("none")));
    EXPECT_FALSE(Strings::FileExists(""));
}

TEST_F(Files, ContentComesBackByteForByte) {
    for (const std::size_t size : {0UL, 1UL, 65535UL, 65536UL, 65537UL, 200000UL}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7 + i / 256);
        ASSERT_TRUE(Strings::SaveFileContent(path("data"), content));
        std::string read = "left over";
        EXPECT_TRUE(Strings::LoadFileContent(path("data"), read));
        EXPECT_EQ(read, content);
    }
}

TEST_F(Files, SavingCutsAnOlderContent) {
    Strings::SaveFileContent(path("data"), "long content");
    Strings::SaveFileContent(path("data"), "short");
    std::string read;
    Strings::LoadFileContent(path("data"), read);
    EXPECT_EQ(read, "short");
}

TEST_F(Files, LoadingAMissingFileFailsAndEmptiesTheText) {
    std::string read = "left over";
    EXPECT_FALSE(Strings::LoadFileContent(path("none"), read));
    EXPECT_EQ(read, "");
}

TEST_F(Files, LoadingAFolderEndsWithAnEmptyText) {
    std::string read = "left over";
    EXPECT_TRUE(Strings::LoadFileContent(folder_, read));
    EXPECT_EQ(read, "");
}

TEST_F(Files, SavingIntoAMissingFolderFails) {
    EXPECT_FALSE(Strings::SaveFileContent(path("none/data"), "x"));
    EXPECT_FALSE(Strings::SaveFileContent(folder_, "x"));
}

}  // namespace
}  // namespace Velmar
