// The film: sums of radiance for each pixel, filled tile by tile and pass by pass. It hands out the work and takes it
// back, so that the sum in a pixel does not depend on how many threads work. All members may be called from any thread.
#pragma once

#include "engine/scene/render_scene.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

namespace Velmar::Engine {

/// A picture in linear RGB, rows from the top.
struct LinearPicture {
    int width = 0, height = 0;
    std::vector<Float3> pixels;
};

class Film {
public:
    /// One pass over one tile: one sample for each pixel of it.
    struct Task {
        std::uint32_t tile = 0;
        std::uint32_t pass = 0;  ///< number of the sample in each pixel
        int x = 0, y = 0, width = 0, height = 0;
    };
    static constexpr int kTileSide = 16;

    /// `size` is above 0 both ways.
    Film(FilmSize size, int max_samples);

    FilmSize size() const { return size_; }

    /// The next task; none when all are given out. Waits while another thread still has the pass before on that tile,
    /// so a task that is given out must be committed, or the film cancelled.
    std::optional<Task> next();
    /// Adds what a task gathered, `task.width * task.height` pixels, row after row. Pixels that are not finite add
    /// nothing. True when a pass over the film became whole.
    bool commit(const Task& task, const Float3* samples);
    /// Gives out no task any more and wakes who waits for one.
    void cancel();
    bool cancelled() const { return cancelled_.load(std::memory_order_relaxed); }

    /// Samples per pixel at which next() ends; tasks given out before are still taken.
    void setMaxSamples(int samples);
    int maxSamples() const;
    /// Passes that are done in every pixel.
    int samples() const;
    /// Every pixel holds the samples that it will get.
    bool complete() const;

    /// No sample has come in yet.
    bool empty() const;
    /// The mean of each pixel's samples so far.
    LinearPicture develop() const;

private:
    bool exhausted() const;

    const FilmSize size_;
    const int columns_, tiles_;
    mutable std::mutex mutex_;
    std::condition_variable tile_is_back_;
    std::vector<Float3> sums_;
    std::vector<std::uint32_t> tile_passes_;  // done
    std::deque<int> tiles_left_;              // in each pass from the first that is not done
    std::uint64_t next_task_ = 0;
    int max_samples_, samples_ = 0;
    std::atomic<bool> cancelled_ = false;
};

}  // namespace Velmar::Engine
