#include "engine/text/package.h"

#include "engine/text/package_names.h"
#include "engine/text/refusal.h"
#include "text_test.h"

#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace Velmar::Engine {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

TEST(PackageNames, TellsMembersThatStayInTheirFolder) {
    for (const char* name : {"a", "a.png", "a/b/c.png", "a/", "...", "a/..b", "caf\xC3\xA9.png", " "})
        EXPECT_TRUE(isSafeMember(name)) << name;
    for (const char* name : {"", "/", "/a", "../a", "a/../b", "a/..", "..", ".", "./a", "a//b", "a/./b", "a\\b", "C:a",
                             "C:/a", "a\nb", "\x7F", "//a", "a//"}) {
        EXPECT_FALSE(isSafeMember(name)) << name;
    }
}

TEST(PackageNames, GivesEachFileANameOfItsOwn) {
    MemberNames names;
    EXPECT_EQ(names.of("/a/oak.png"), "files/oak.png");
    EXPECT_EQ(names.of("/b/oak.png"), "files/oak-2.png");
    EXPECT_EQ(names.of("/a/oak.png"), "files/oak.png");
    EXPECT_EQ(names.of("/b/OAK.png"), "files/OAK-3.png");
    EXPECT_EQ(names.of("/c/oak-2.png"), "files/oak-2-2.png");
    EXPECT_EQ(names.of("C:\\maps\\a\x01:b"), "files/a__b");
    EXPECT_EQ(names.of("/a/"), "files/file");
    EXPECT_EQ(names.of("/a/.."), "files/file-2");
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(isSafeMember(names.of("/" + std::to_string(i) + "/oak")));
}

class PackageTest : public TextTest {
protected:
    PackageTest() {
        folder_ = fs::path(std::getenv("HOME")) / "package-test";
        fs::create_directories(folder_ / "tmp");
        setenv("TMPDIR", (folder_ / "tmp").c_str(), 1);
    }
    ~PackageTest() override {
        unsetenv("TMPDIR");
        fs::remove_all(folder_);
    }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    std::size_t unpackedFolders() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_ / "tmp"), fs::directory_iterator()));
    }

    std::string write(const std::string& name, const std::string& bytes) const {
        fs::create_directories(fs::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }
    static std::string read(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    struct Member {
        std::string name;
        std::string bytes;
        mode_t mode = 0;
    };
    std::string zip(const std::vector<Member>& members) const {
        const std::string file = path("made.vpkg");
        fs::remove(file);
        zip_t* archive = zip_open(file.c_str(), ZIP_CREATE, nullptr);
        for (const Member& member : members) {
            zip_source_t* source = zip_source_buffer(archive, member.bytes.data(), member.bytes.size(), 0);
            const auto index =
                static_cast<zip_uint64_t>(zip_file_add(archive, member.name.c_str(), source, ZIP_FL_ENC_UTF_8));
            if (member.mode != 0) {
                zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX,
                                                 static_cast<zip_uint32_t>(member.mode) << 16U);
            }
        }
        EXPECT_EQ(zip_close(archive), 0);
        return file;
    }

    bool importFile(ApiRootNodeGraph* graph, const std::string& file) {
        testing::internal::CaptureStderr();
        const bool taken = graph->import(file.c_str(), version, nullptr, nullptr);
        log = testing::internal::GetCapturedStderr();
        return taken;
    }
    void expectRefused(const std::string& file, const std::string& reason) {
        ApiRootNodeGraph* graph = newRoot();
        EXPECT_FALSE(importFile(graph, file));
        EXPECT_THAT(log, HasSubstr(reason));
        EXPECT_EQ(std::ranges::count(log, '\n'), 1) << log;
        EXPECT_EQ(exported(graph), exported(newRoot()));
        EXPECT_EQ(unpackedFolders(), 0U);
    }

    ApiRootNodeGraph* graphWithFiles() {
        ApiRootNodeGraph* graph = newRoot();
        const std::string files[] = {write("a/oak.png", "first"), write("b/oak.png", "second"),
                                     write("a/oak.png", "first")};
        for (const std::string& file : files) {
            ApiNode::create(NODE_IMAGE, graph, false)->set(ATTR_FILENAME, file.c_str(), true);
        }
        return graph;
    }

    fs::path folder_;
};

TEST_F(PackageTest, ReadsASceneFileWithTheFilesBesideIt) {
    ApiRootNodeGraph* graph = graphWithFiles();
    write("hall.vxs", graph->exportToString(path("hall.vxs").c_str(), true));
    EXPECT_THAT(read(path("hall.vxs")), HasSubstr(">a/oak.png<"));
    ApiRootNodeGraph* back = newRoot();
    ASSERT_TRUE(importFile(back, path("hall.vxs")));
    EXPECT_EQ(version, kVersion);
    EXPECT_TRUE(sameGraphs(graph, back));
}

TEST_F(PackageTest, BringsASceneWithItsFiles) {
    ApiRootNodeGraph* graph = graphWithFiles();
    ASSERT_TRUE(writePackage(*GraphRecord::of(graph), path("hall.vpkg")));
    fs::remove_all(folder_ / "a");
    fs::remove_all(folder_ / "b");
    ApiRootNodeGraph* back = newRoot();
    ASSERT_TRUE(importFile(back, path("hall.vpkg"))) << log;
    ApiNodeArray images;
    back->findNodes(NODE_IMAGE, images, false);
    ASSERT_EQ(images.size(), 3U);
    EXPECT_EQ(read(images.get(0)->getString(ATTR_FILENAME)), "first");
    EXPECT_EQ(read(images.get(1)->getString(ATTR_FILENAME)), "second");
    EXPECT_STREQ(images.get(2)->getString(ATTR_FILENAME), images.get(0)->getString(ATTR_FILENAME));
    EXPECT_TRUE(std::string(images.get(0)->getString(ATTR_FILENAME)).starts_with(path("tmp/")));
    EXPECT_EQ(unpackedFolders(), 1U);
    struct stat status;
    ASSERT_EQ(stat(fs::directory_iterator(folder_ / "tmp")->path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(PackageTest, IsTheSameWheneverItIsWritten) {
    ApiRootNodeGraph* graph = graphWithFiles();
    ASSERT_TRUE(writePackage(*GraphRecord::of(graph), path("one.vpkg")));
    fs::last_write_time(path("a/oak.png"), fs::file_time_type::clock::now() - std::chrono::hours(100));
    ASSERT_TRUE(writePackage(*GraphRecord::of(graph), path("two.vpkg")));
    EXPECT_EQ(read(path("one.vpkg")), read(path("two.vpkg")));
}

TEST_F(PackageTest, GoesWithoutFilesThatAreNotThere) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode::create(NODE_IMAGE, graph, false)->set(ATTR_FILENAME, "/nowhere/oak.png", true);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(writePackage(*GraphRecord::of(graph), path("hall.vpkg")));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("goes without /nowhere/oak.png"));
    ApiRootNodeGraph* back = newRoot();
    ASSERT_TRUE(importFile(back, path("hall.vpkg")));
    EXPECT_STREQ(back->findFirstNode(NODE_IMAGE)->getString(ATTR_FILENAME), "/nowhere/oak.png");
}

TEST_F(PackageTest, IsNotWrittenWhereNothingCanStand) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(writePackage(*GraphRecord::of(newRoot()), path("no/such/folder/hall.vpkg")));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("is not written"));
}

TEST_F(PackageTest, RefusesFilesThatAreNeither) {
    expectRefused(path("missing.vxs"), "it cannot be read");
    expectRefused(folder_.string(), "it cannot be read");
    expectRefused(write("words.vxs", "some words"), "scene text refused");
    expectRefused(write("empty.vxs", ""), "scene text refused");
    expectRefused(write("cut.vpkg", "PK\x03\x04 and no more"), "no whole ZIP file");
    EXPECT_FALSE(newRoot()->import(nullptr, version, nullptr, nullptr));
}

TEST_F(PackageTest, LeavesNothingOfARefusedSceneBehind) {
    expectRefused(zip({{"scene.vxs", "<svg/>"}}), "no scene text");
}

TEST_F(PackageTest, RefusesMembersThatWouldLeaveTheFolder) {
    for (const char* name : {"../out.png", "/out.png", "a/../../out.png", "C:out.png", "a\\..\\..\\out.png"}) {
        expectRefused(zip({{"scene.vxs", scene("")}, {name, "x"}}), "would leave its folder");
    }
    EXPECT_FALSE(fs::exists(path("out.png")));
    EXPECT_FALSE(fs::exists(path("tmp/out.png")));
}

TEST_F(PackageTest, RefusesLinksAndDevices) {
    expectRefused(zip({{"scene.vxs", scene("")}, {"link", "/etc", S_IFLNK | 0777}}), "a link or a device");
    expectRefused(zip({{"scene.vxs", scene("")}, {"pipe", "", S_IFIFO | 0666}}), "a link or a device");
    ApiRootNodeGraph* graph = newRoot();
    EXPECT_TRUE(importFile(graph, zip({{"scene.vxs", scene(""), S_IFREG | 0644}, {"a/", "", S_IFDIR | 0755}}))) << log;
}

// libzip writes no name twice, so it is done afterwards.
TEST_F(PackageTest, RefusesNamesThatStandThereTwice) {
    const std::string file = zip({{"scene.vxs", scene("")}, {"one.png", "x"}, {"two.png", "y"}});
    std::string bytes = read(file);
    for (std::size_t at = 0; (at = bytes.find("two.png", at)) != std::string::npos;) bytes.replace(at, 7, "one.png");
    expectRefused(write("twice.vpkg", bytes), "refused");
    expectRefused(zip({{"scene.vxs", scene("")}, {"a", "x"}, {"a/b", "y"}}), "refused");
}

TEST_F(PackageTest, RefusesAllButOneSceneText) {
    expectRefused(zip({{"readme.txt", "x"}}), "no scene text at its top");
    expectRefused(zip({{"a/scene.vxs", scene("")}}), "no scene text at its top");
    expectRefused(zip({{"a.vxs", scene("")}, {"b.vxs", scene("")}}), "more than one scene text");
}

TEST_F(PackageTest, BoundsWhatItUnpacks) {
    const std::string zeros(400'000'000, '\0');
    const std::string file = zip({{"scene.vxs", scene("")}, {"zeros", zeros}});
    EXPECT_LT(fs::file_size(file), 1'000'000U);
    expectRefused(file, "too many bytes");
}

TEST_F(PackageTest, SurvivesDamage) {
    const std::string whole = read(zip({{"scene.vxs", scene("")}, {"files/a.png", std::string(300, 'x')}}));
    std::mt19937 random(9);
    testing::internal::CaptureStderr();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(newRoot()->import(write("cut.vpkg", whole.substr(0, length)).c_str(), version, nullptr, nullptr))
            << length;
    }
    for (int i = 0; i < 1000; ++i) {
        std::string flipped = whole;
        flipped[random() % flipped.size()] ^= static_cast<char>(1U << random() % 8);
        newRoot()->import(write("flipped.vpkg", flipped).c_str(), version, nullptr, nullptr);
    }
    testing::internal::GetCapturedStderr();
    for (const auto& entry : fs::directory_iterator(folder_)) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(name == "tmp" || name == "cut.vpkg" || name == "flipped.vpkg" || name == "made.vpkg") << name;
    }
}

}  // namespace
}  // namespace Velmar::Engine
