#include "engine/render/film.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <set>
#include <thread>

namespace Velmar::Engine {
namespace {

std::vector<Float3> filled(const Film::Task& task, float value) {
    return std::vector<Float3>(static_cast<std::size_t>(task.width * task.height), {value, value, value});
}

TEST(Film, HandsOutEachTileOfEachPassOnce) {
    Film film({40, 20}, 2);
    std::set<std::pair<unsigned, unsigned>> tasks;
    int pixels = 0;
    while (const auto task = film.next()) {
        tasks.emplace(task->pass, task->tile);
        pixels += task->width * task->height;
        film.commit(*task, filled(*task, 1.0f).data());
    }
    EXPECT_EQ(tasks.size(), 2u * 3 * 2);
    EXPECT_EQ(pixels, 2 * 40 * 20);
    EXPECT_TRUE(film.complete());
    EXPECT_EQ(film.samples(), 2);
}

TEST(Film, DevelopsTheMeanOfWhatEachTileHas) {
    Film film({32, 16}, 10);
    const auto first = film.next(), second = film.next();
    EXPECT_TRUE(film.empty());
    EXPECT_FALSE(film.commit(*first, filled(*first, 4.0f).data()));
    EXPECT_FALSE(film.empty());
    EXPECT_EQ(film.samples(), 0);
    EXPECT_TRUE(film.commit(*second, filled(*second, 6.0f).data())) << "the pass is whole";
    const auto third = film.next();
    film.commit(*third, filled(*third, 8.0f).data());
    const LinearPicture picture = film.develop();
    EXPECT_EQ(picture.pixels[0].x, 6.0f);
    EXPECT_EQ(picture.pixels[16].x, 6.0f);
    EXPECT_EQ(film.samples(), 1);
}

TEST(Film, TakesNothingFromSamplesThatAreNoNumbers) {
    Film film({1, 1}, 2);
    const Float3 bad{1.0f, std::numeric_limits<float>::quiet_NaN(), 1.0f}, good{2.0f, 2.0f, 2.0f};
    film.commit(*film.next(), &bad);
    film.commit(*film.next(), &good);
    EXPECT_EQ(film.develop().pixels[0], (Float3{1.0f, 1.0f, 1.0f}));
}

TEST(Film, GoesOnWhenMoreSamplesAreWanted) {
    Film film({8, 8}, 1);
    const auto task = film.next();
    film.commit(*task, filled(*task, 1.0f).data());
    EXPECT_FALSE(film.next());
    film.setMaxSamples(2);
    EXPECT_FALSE(film.complete());
    const auto more = film.next();
    ASSERT_TRUE(more);
    EXPECT_EQ(more->pass, 1u);
}

TEST(Film, APassOverATileWaitsForThePassBefore) {
    Film film({8, 8}, 5);
    const auto first = film.next();
    std::atomic<bool> given = false;
    std::jthread other([&] { given = film.next().has_value(); });
    const auto look_until = std::chrono::steady_clock::now() + std::chrono::milliseconds(50);
    while (std::chrono::steady_clock::now() < look_until) {
        ASSERT_FALSE(given);
        std::this_thread::yield();
    }
    film.commit(*first, filled(*first, 1.0f).data());
    other.join();
    EXPECT_TRUE(given);
}

TEST(Film, CancelWakesWhoWaitsForATile) {
    Film film({8, 8}, 5);
    const auto held = film.next();
    ASSERT_TRUE(held);
    bool got_one = true;
    std::jthread waiting([&] { got_one = film.next().has_value(); });  // needs the tile that is held
    film.cancel();
    waiting.join();
    EXPECT_FALSE(got_one);
    EXPECT_FALSE(film.next());
}

}  // namespace
}  // namespace Velmar::Engine
