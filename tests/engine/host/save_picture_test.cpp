#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <png.h>

#include "engine/host/scene_on_graph.h"

namespace Velmar::Engine {
namespace {

namespace fs = std::filesystem;

class SavePictureTest : public EngineTest {
protected:
    SavePictureTest() {
        scene.lookFrom({2, 1, 3});
        EngineHost::setMaxSamples(2);
        render(0);
    }
    // The folder holds nothing but these.
    static std::vector<std::string> namesIn(const fs::path& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
        return names;
    }
    std::string failureOf(const std::string& path) {
        std::string error;
        EXPECT_FALSE(EngineHost::savePicture(path, error)) << path;
        return error;
    }

    SceneOnGraph scene;
};

struct DecodedPng {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;
};

DecodedPng decodePng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
    EXPECT_EQ(image.format & PNG_FORMAT_FLAG_LINEAR, 0u) << "8 bits a channel";
    image.format = PNG_FORMAT_RGB;
    DecodedPng decoded{static_cast<int>(image.width), static_cast<int>(image.height), {}};
    decoded.rgb.resize(PNG_IMAGE_SIZE(image));
    EXPECT_NE(png_image_finish_read(&image, nullptr, decoded.rgb.data(), 0, nullptr), 0) << image.message;
    return decoded;
}

TEST_F(SavePictureTest, WritesAPngThatReadsBack) {
    const fs::path folder = file("png");
    fs::create_directory(folder);
    std::string error;
    ASSERT_TRUE(EngineHost::savePicture(folder / "picture.png", error)) << error;
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{"picture.png"}) << "no part of a file is left";
    const DecodedPng png = decodePng(folder / "picture.png");
    EXPECT_EQ(png.width, 48);
    EXPECT_EQ(png.height, 32);
    // The box stands in the middle, lighter than black and darker than white; the background is no box.
    const std::uint8_t* const middle = &png.rgb[(16 * 48 + 24) * 3];
    EXPECT_GT(middle[0], 60);
    EXPECT_LT(middle[0], 250);
    EXPECT_NE(0, std::memcmp(middle, png.rgb.data(), 3));
}

TEST_F(SavePictureTest, WritesAnExrWhateverTheCaseOfItsEnding) {
    const std::string path = file("picture.eXr");
    std::string error;
    ASSERT_TRUE(EngineHost::savePicture(path, error)) << error;
    const std::string bytes = contentsOfFile(path);
    ASSERT_GT(bytes.size(), 100u);
    EXPECT_EQ(bytes.substr(0, 4), "\x76\x2f\x31\x01");
    fs::remove(path);
}

TEST_F(SavePictureTest, ReplacesAFileAsAWhole) {
    const std::string path = file("twice.png");
    std::ofstream(path) << "not a picture";
    std::string error;
    ASSERT_TRUE(EngineHost::savePicture(path, error)) << error;
    EXPECT_EQ(contentsOfFile(path).substr(1, 3), "PNG");
}

TEST_F(SavePictureTest, WritesTheSameFileForTheSameFilm) {
    std::string error;
    ASSERT_TRUE(EngineHost::savePicture(file("a.png"), error)) << error;
    ASSERT_TRUE(EngineHost::savePicture(file("b.png"), error)) << error;
    EXPECT_EQ(contentsOfFile(file("a.png")), contentsOfFile(file("b.png")));
    EXPECT_FALSE(contentsOfFile(file("a.png")).empty());
}

TEST_F(SavePictureTest, TakesAPathRelativeToTheWorkingFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(file(""));
    std::string error;
    EXPECT_TRUE(EngineHost::savePicture("here.png", error)) << error;
    fs::current_path(before);
    EXPECT_TRUE(fs::exists(file("here.png")));
}

TEST_F(SavePictureTest, SaysWhyItCannotSave) {
    EXPECT_EQ(failureOf(file("picture.bmp")), "the ending of \"" + file("picture.bmp") + "\" is neither .png nor .exr");
    EXPECT_EQ(failureOf(file("picture")), "the ending of \"" + file("picture") + "\" is neither .png nor .exr");
    EXPECT_EQ(failureOf(file("nowhere/picture.png")), "there is no folder \"" + file("nowhere") + "\"");
    fs::create_directory(file("folder.png"));
    EXPECT_EQ(failureOf(file("folder.png")), "\"" + file("folder.png") + "\" is a folder");
}

TEST_F(SavePictureTest, LeavesTheOldFileWhenItCannotWrite) {
    // A name that fits, while the name of the part beside it does not: writing fails after all checks.
    std::string name(249, 'n');
    name.replace(245, 4, ".png");
    const fs::path folder = file("full");
    fs::create_directory(folder);
    std::ofstream(folder / name) << "old";
    const std::string error = failureOf(folder / name);
    EXPECT_EQ(error.find("cannot write \""), 0u) << error;
    EXPECT_EQ(contentsOfFile(folder / name), "old");
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{name});
}

TEST_F(SavePictureTest, SavesWhileItRenders) {
    EngineHost::setMaxSamples(16000);
    for (int i = 0; i < 5; ++i) {
        std::string error;
        EXPECT_TRUE(EngineHost::savePicture(file("moving.png"), error)) << error;
    }
    EXPECT_TRUE(EngineHost::progress().running);
}

}  // namespace
}  // namespace Velmar::Engine
