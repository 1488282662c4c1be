#include "engine/text/asset_names.h"

#include <gtest/gtest.h>

namespace Velmar::Engine {
namespace {

TEST(AssetNames, TellsAbsolutePaths) {
    for (const char* path : {"/a", "\\a", "\\\\server\\a", "C:\\a", "c:a", "/"})
        EXPECT_TRUE(isAbsolutePath(path)) << path;
    for (const char* path : {"", "a", "a/b", "../a", "1:a", "é:a"}) EXPECT_FALSE(isAbsolutePath(path)) << path;
}

TEST(AssetNames, TakesTheFolderWithItsSeparator) {
    EXPECT_EQ(folderOf("/scenes/a.vxs"), "/scenes/");
    EXPECT_EQ(folderOf("C:\\scenes\\a.vxs"), "C:\\scenes\\");
    EXPECT_EQ(folderOf("a.vxs"), "");
    EXPECT_EQ(folderOf(""), "");
}

TEST(AssetNames, WritesNamesUnderTheFolderRelativeToIt) {
    EXPECT_EQ(relativeTo("/scenes/", "/scenes/maps/a.png"), "maps/a.png");
    EXPECT_EQ(relativeTo("/scenes/", "/other/a.png"), "/other/a.png");
    EXPECT_EQ(relativeTo("/scenes/", "/scenes2/a.png"), "/scenes2/a.png");
    EXPECT_EQ(relativeTo("", "/scenes/a.png"), "/scenes/a.png");
    EXPECT_EQ(relativeTo("/", "/a.png"), "a.png");
}

TEST(AssetNames, KeepsNamesThatWouldNotBeFoundAgain) {
    for (const char* name : {"/scenes/", "/scenes//a.png", "/scenes/\\a.png", "/scenes/C:/a.png"}) {
        EXPECT_EQ(relativeTo("/scenes/", name), name);
    }
}

TEST(AssetNames, FindsEachNameAgain) {
    const AssetLookup assets{"/scenes/"};
    for (const char* name :
         {"", "/scenes/", "/scenes//a.png", "/scenes/a.png", "/scenes/../a.png", "/b.png", "C:\\c.png"}) {
        EXPECT_EQ(assets.find(std::string(relativeTo("/scenes/", name))), name);
    }
}

}  // namespace
}  // namespace Velmar::Engine
