#include "engine/render/renderer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "engine/render/test_scenes.h"

namespace Velmar::Engine {
namespace {

constexpr FilmSize kFilm{64, 40};

std::shared_ptr<const RenderScene> ballScene(float x = 0.0f, FilmSize film = kFilm) {
    SceneMaker maker;
    maker.add(square(10)).add(sphere(1.0f, 12, true), {translation({x, 1, 0})});
    return maker.make(film);
}

void waitUntil(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        ASSERT_LT(std::chrono::steady_clock::now(), limit);
        std::this_thread::yield();
    }
}

LinearPicture renderWith(unsigned threads, std::uint32_t seed) {
    Renderer renderer(threads);
    RenderSettings settings;
    settings.seed = seed;
    renderer.setSettings(settings);
    renderer.setDefaultMaxSamples(5);
    renderer.setScene(ballScene());
    renderer.restart();
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::SamplesReached);
    return *renderer.develop();
}

TEST(Renderer, MakesTheSamePictureWithAnyNumberOfThreads) {
    const LinearPicture one = renderWith(1, 1);
    EXPECT_EQ(one.pixels, renderWith(3, 1).pixels);
    EXPECT_EQ(one.pixels, renderWith(8, 1).pixels);
    EXPECT_NE(one.pixels, renderWith(1, 2).pixels);
}

TEST(Renderer, EndsAtItsNumberOfSamplesAndGoesOnWhenMoreAreWanted) {
    Renderer renderer(2);
    renderer.setDefaultMaxSamples(3);
    renderer.setScene(ballScene());
    renderer.restart();
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::SamplesReached);
    EXPECT_EQ(renderer.progress().samples, 3);
    EXPECT_FALSE(renderer.progress().working);
    renderer.setDefaultMaxSamples(6);
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::SamplesReached);
    EXPECT_EQ(renderer.progress().samples, 6);
    EXPECT_EQ(renderer.filmRestarts(), 1u);
}

TEST(Renderer, ASceneThatDiffersInItsSamplesAloneKeepsTheFilm) {
    Renderer renderer(2);
    auto scene = std::make_shared<RenderScene>(*ballScene());
    scene->max_samples = 2;
    renderer.setScene(scene);
    renderer.restart();
    renderer.wait(0, 0.0);
    auto longer = std::make_shared<RenderScene>(*scene);
    longer->max_samples = 4;
    renderer.setScene(longer);
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::SamplesReached);
    EXPECT_EQ(renderer.progress().samples, 4);
    EXPECT_EQ(renderer.filmRestarts(), 1u);
}

TEST(Renderer, PauseKeepsTheFilmAndResumeGoesOn) {
    Renderer renderer(2);
    renderer.setScene(ballScene());
    renderer.restart();
    EXPECT_EQ(renderer.wait(2, 0.0), WaitEnd::SamplesReached);
    renderer.pause();
    EXPECT_FALSE(renderer.progress().working);
    EXPECT_EQ(renderer.wait(1 << 20, 0.0), WaitEnd::NothingToRender);
    const double seconds = renderer.progress().seconds;
    EXPECT_GT(seconds, 0.0);
    EXPECT_EQ(renderer.progress().seconds, seconds);
    const int samples = renderer.progress().samples;
    renderer.resume();
    EXPECT_EQ(renderer.wait(samples + 2, 0.0), WaitEnd::SamplesReached);
    EXPECT_EQ(renderer.filmRestarts(), 1u);
}

TEST(Renderer, StopKeepsTheFilmAndResumeStartsAnew) {
    Renderer renderer(2);
    renderer.setScene(ballScene());
    renderer.restart();
    renderer.wait(2, 0.0);
    renderer.stop();
    EXPECT_TRUE(renderer.develop());
    renderer.resume();
    EXPECT_EQ(renderer.filmRestarts(), 2u);
    EXPECT_EQ(renderer.wait(1, 0.0), WaitEnd::SamplesReached);
}

TEST(Renderer, RunStatesThatStandAlreadyAreQuiet) {
    Renderer renderer(2);
    renderer.pause();
    renderer.stop();
    EXPECT_EQ(renderer.state(), RunState::Stopped);
    renderer.setScene(ballScene());
    renderer.restart();
    renderer.resume();
    EXPECT_EQ(renderer.filmRestarts(), 1u);
    renderer.pause();
    renderer.pause();
    EXPECT_EQ(renderer.state(), RunState::Paused);
}

TEST(Renderer, ANewSceneClearsARunningFilmAndWaitsOnAHeldOne) {
    Renderer renderer(2);
    renderer.setScene(ballScene(0.0f));
    renderer.restart();
    renderer.wait(1, 0.0);
    renderer.setScene(ballScene(1.0f));
    EXPECT_EQ(renderer.filmRestarts(), 2u);
    renderer.wait(1, 0.0);
    renderer.pause();
    renderer.setScene(ballScene(2.0f));
    EXPECT_EQ(renderer.filmRestarts(), 2u);
    renderer.resume();
    EXPECT_EQ(renderer.filmRestarts(), 3u);
}

TEST(Renderer, HasNoPictureWithoutASceneOrWithAFilmOfNoSize) {
    Renderer renderer(2);
    renderer.restart();
    EXPECT_EQ(renderer.wait(1, 0.0), WaitEnd::NothingToRender);
    EXPECT_FALSE(renderer.develop());
    for (FilmSize film : {FilmSize{0, 10}, FilmSize{10, -1}}) {
        renderer.setScene(ballScene(0.0f, film));
        renderer.restart();
        EXPECT_EQ(renderer.wait(1, 0.0), WaitEnd::NothingToRender);
        EXPECT_FALSE(renderer.develop());
    }
    renderer.setScene(ballScene());
    EXPECT_EQ(renderer.wait(1, 0.0), WaitEnd::SamplesReached) << "it runs, so a scene is taken up at once";
    renderer.setScene(nullptr);
    EXPECT_FALSE(renderer.develop());
}

TEST(Renderer, FramesASceneThatHasNoCamera) {
    SceneMaker maker;
    maker.add(sphere(3.0f, 24, true), {translation({100, -20, 50})});
    RenderSettings settings;
    settings.lighting = evenDome(0.0f);
    settings.lighting.sun_direction = {-0.5f, 0.5f, 1.0f};
    settings.lighting.sun_irradiance = {3, 3, 3};
    const LinearPicture picture = renderAll(maker.make(kFilm), settings, 4);
    const auto lit = [&](int x, int y) { return picture.pixels[static_cast<std::size_t>(y * 64 + x)].x > 0.01f; };
    EXPECT_TRUE(lit(32, 20));
    EXPECT_FALSE(lit(0, 0));
    EXPECT_FALSE(lit(63, 39));
    int count = 0;
    for (int y = 0; y < 40; ++y) count += lit(32, y) ? 1 : 0;
    EXPECT_GE(count, 20) << "it fills most of the height that its bounds fill";
    EXPECT_LT(count, 40) << "and no more than the height";
}

TEST(Renderer, WaitEndsAtItsTimeLimitAndWhenInterrupted) {
    Renderer renderer(2);
    renderer.setScene(ballScene());
    renderer.restart();
    EXPECT_EQ(renderer.wait(0, 0.05), WaitEnd::TimeLimit);
    renderer.interrupt();
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::Interrupted);
    std::jthread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        renderer.interrupt();
    });
    EXPECT_EQ(renderer.wait(0, 0.0), WaitEnd::Interrupted);
}

TEST(Renderer, StartsAndStopsAThousandTimes) {
    Renderer renderer(4);
    const auto scene = ballScene();
    renderer.setScene(scene);
    for (int i = 0; i < 1000; ++i) {
        renderer.restart();
        if (i % 3 == 0) renderer.pause();
        if (i % 7 == 0) renderer.resume();
        if (i % 2 == 0) renderer.stop();
    }
    renderer.resume();
    EXPECT_EQ(renderer.wait(2, 0.0), WaitEnd::SamplesReached);
}

TEST(Renderer, TakesNewScenesAndPicturesWhileItWorks) {
    Renderer renderer(4);
    const std::vector scenes = {ballScene(0.0f), ballScene(1.0f, {50, 70}), ballScene(-1.0f)};
    renderer.setScene(scenes[0]);
    renderer.restart();
    for (int i = 0; i < 300; ++i) {
        renderer.setScene(scenes[static_cast<std::size_t>(i) % scenes.size()]);
        if (i % 10 == 0) waitUntil([&] { return renderer.develop().has_value(); });
        renderer.setDefaultMaxSamples(1 + i);
    }
    EXPECT_EQ(renderer.wait(2, 0.0), WaitEnd::SamplesReached);
}

TEST(Renderer, ChangesTheNicenessOfItsThreadsWhileTheyWork) {
    Renderer renderer(2);
    renderer.setScene(ballScene());
    renderer.restart();
    for (int niceness : {10, 0, 5, 5, 10}) {
        renderer.setNiceness(niceness);
        const int samples = renderer.progress().samples;
        EXPECT_EQ(renderer.wait(samples + 1, 0.0), WaitEnd::SamplesReached);
    }
    EXPECT_EQ(renderer.filmRestarts(), 1u);
}

TEST(Renderer, ShutsDownWhileItWorksAndStartsAgain) {
    Renderer renderer(4);
    renderer.setScene(ballScene());
    for (int i = 0; i < 20; ++i) {
        renderer.restart();
        renderer.shutDown();
    }
    renderer.restart();
    EXPECT_EQ(renderer.wait(1, 0.0), WaitEnd::SamplesReached);
}

}  // namespace
}  // namespace Velmar::Engine
