#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "plugin/utils/strings.h"

namespace Velmar {
namespace {

using Pair = std::pair<std::string, std::string>;

/// Sets HOME for the length of a scope.
class HomeSetting {
public:
    explicit HomeSetting(const char* home) { setenv("HOME", home, 1); }
    ~HomeSetting() { setenv("HOME", old_.c_str(), 1); }

private:
    std::string old_ = std::getenv("HOME");
};

TEST(UserHome, IsTheEnvironmentVariable) {
    const HomeSetting home("/somewhere/else");
    EXPECT_EQ(Strings::GetUserHome(), "/somewhere/else");
}

TEST(UserHome, IsThePasswordEntryWhenTheVariableIsEmptyOrUnset) {
    const HomeSetting home("");
    const std::string expected = getpwuid(getuid())->pw_dir;
    EXPECT_EQ(Strings::GetUserHome(), expected);
    unsetenv("HOME");
    EXPECT_EQ(Strings::GetUserHome(), expected);
}

TEST(Folders, StandUnderTheHomeFolder) {
    const HomeSetting home("/h");
    EXPECT_EQ(Strings::GetMyDocumentsPath(), "/h/Documents");
    EXPECT_EQ(Strings::GetVelmarAssetsPath(), "/h/Documents/Velmar/SketchUp/temp/");
    EXPECT_EQ(Strings::GetCustomTexturesPath(), "/h/Documents/Velmar/SketchUp/Textures/");
    EXPECT_EQ(Strings::GetPreviewTexturesPath(), "/h/Documents/Velmar/SketchUp/temp/previews/");
    EXPECT_EQ(Strings::GetWorkingTexturesPath(), "/h/Documents/Velmar/SketchUp/temp/textures/");
}

TEST(Folders, AreNotMadeByAskingForThem) {
    const std::string home = Strings::GetUserHome() + "/asked";
    const HomeSetting setting(home.c_str());
    Strings::GetWorkingTexturesPath();
    Strings::GetMyDocumentsPath();
    EXPECT_FALSE(std::filesystem::exists(home));
}

TEST(Folders, TheExtensionFolderIsThatOfTheRunningProgram) {
    EXPECT_EQ(Strings::GetExtensionPath(), std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

TEST(MakePath, JoinsWithOneSeparator) {
    EXPECT_EQ(Strings::MakePath("a", "b"), "a/b");
    EXPECT_EQ(Strings::MakePath("a/", "b"), "a/b");
    EXPECT_EQ(Strings::MakePath("a\\", "b"), "a\\b");
    EXPECT_EQ(Strings::MakePath("", "b"), "b");
    EXPECT_EQ(Strings::MakePath("a", ""), "a");
    EXPECT_EQ(Strings::MakePath("", ""), "");
}

TEST(MakePath, ARootedSecondPathStandsAlone) {
    EXPECT_EQ(Strings::MakePath("a", "/b"), "/b");
    EXPECT_EQ(Strings::MakePath("a", "\\b"), "\\b");
}

TEST(FolderFromFile, IsTheTextBeforeTheLastSlash) {
    EXPECT_EQ(Strings::FolderFromFile("/a/b/c.png"), "/a/b");
    EXPECT_EQ(Strings::FolderFromFile("/a/b/"), "/a");
    EXPECT_EQ(Strings::FolderFromFile("/a/b///"), "/a");
    EXPECT_EQ(Strings::FolderFromFile("/a"), "");
    EXPECT_EQ(Strings::FolderFromFile("c.png"), "c.png");
    EXPECT_EQ(Strings::FolderFromFile("///"), "");
    EXPECT_EQ(Strings::FolderFromFile(""), "");
    EXPECT_EQ(Strings::FolderFromFile("a\\b"), "a\\b");
}

TEST(SplitPath, CutsAfterTheLastSeparator) {
    EXPECT_EQ(Strings::SplitPath("/a/b.c"), Pair("/a/", "b.c"));
    EXPECT_EQ(Strings::SplitPath("a\\b/c\\d"), Pair("a\\b/c\\", "d"));
    EXPECT_EQ(Strings::SplitPath("/a/"), Pair("/a/", ""));
    EXPECT_EQ(Strings::SplitPath("plain"), Pair("", "plain"));
}

TEST(SplitFile, CutsBeforeTheLastDotOfTheFile) {
    EXPECT_EQ(Strings::SplitFile("/x/a.b.c"), Pair("a.b", ".c"));
    EXPECT_EQ(Strings::SplitFile("/x/.hidden"), Pair(".hidden", ""));
    EXPECT_EQ(Strings::SplitFile("/x.y/plain"), Pair("plain", ""));
    EXPECT_EQ(Strings::SplitFile("/x/.a.b"), Pair(".a", ".b"));
    EXPECT_EQ(Strings::SplitFile("/x/end."), Pair("end", "."));
    EXPECT_EQ(Strings::SplitFile("/x/"), Pair("", ""));
}

TEST(UnqualifyName, IsTheTextAfterTheLastMark) {
    EXPECT_EQ(Strings::UnqualifyName("A::B"), "B");
    EXPECT_EQ(Strings::UnqualifyName("a/b:c\\d"), "d");
    EXPECT_EQ(Strings::UnqualifyName("plain"), "plain");
    EXPECT_EQ(Strings::UnqualifyName("a/"), "");
}

TEST(CleanFilePath, KeepsTheLastTwoOfALeadingRun) {
    const std::map<std::string, std::string> cases = {{"////x", "//x"}, {"//x", "//x"},    {"/x", "/x"},
                                                      {"x//y", "x//y"}, {"/\\/x", "\\/x"}, {"\\\\\\", "\\\\"},
                                                      {"", ""}};
    for (const auto& [path, expected] : cases) {
        std::string cleaned = path;
        Strings::CleanFilePath(cleaned);
        EXPECT_EQ(cleaned, expected) << path;
    }
}

TEST(MakeCanonical, ResolvesWhatExistsAndLeavesWhatDoesNot) {
    const std::string home = std::filesystem::canonical(Strings::GetUserHome());
    EXPECT_EQ(Strings::MakeCanonical(home + "/./../" + std::filesystem::path(home).filename().string()), home);
    EXPECT_EQ(Strings::MakeCanonical("/no/such/../thing"), "/no/such/../thing");
}

}  // namespace
}  // namespace Velmar
