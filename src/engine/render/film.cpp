#include "engine/render/film.h"

#include <algorithm>

namespace Velmar::Engine {

namespace {
int tilesAlong(int pixels) {
    return (pixels + Film::kTileSide - 1) / Film::kTileSide;
}
}  // namespace

Film::Film(FilmSize size, int max_samples)
    : size_(size),
      columns_(tilesAlong(size.width)),
      tiles_(columns_ * tilesAlong(size.height)),
      sums_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)),
      tile_passes_(static_cast<std::size_t>(tiles_)),
      max_samples_(max_samples) {}

bool Film::exhausted() const {
    return cancelled() || next_task_ >= static_cast<std::uint64_t>(max_samples_) * static_cast<std::uint64_t>(tiles_);
}

std::optional<Film::Task> Film::next() {
    std::unique_lock lock(mutex_);
    if (exhausted()) return std::nullopt;
    Task task;
    task.tile = static_cast<std::uint32_t>(next_task_ % static_cast<std::uint64_t>(tiles_));
    task.pass = static_cast<std::uint32_t>(next_task_ / static_cast<std::uint64_t>(tiles_));
    ++next_task_;
    tile_is_back_.wait(lock, [&] { return cancelled() || tile_passes_[task.tile] == task.pass; });
    if (cancelled()) return std::nullopt;

    task.x = static_cast<int>(task.tile) % columns_ * kTileSide;
    task.y = static_cast<int>(task.tile) / columns_ * kTileSide;
    task.width = std::min(kTileSide, size_.width - task.x);
    task.height = std::min(kTileSide, size_.height - task.y);
    return task;
}

bool Film::commit(const Task& task, const Float3* samples) {
    const std::lock_guard lock(mutex_);
    for (int row = 0; row < task.height; ++row) {
        Float3* sum = &sums_[static_cast<std::size_t>(task.y + row) * static_cast<std::size_t>(size_.width) +
                             static_cast<std::size_t>(task.x)];
        for (int column = 0; column < task.width; ++column, ++sum, ++samples)
            if (isFinite(*samples)) *sum += *samples;
    }
    ++tile_passes_[task.tile];

    // A pass is done when all its tiles are back.
    const auto pass = static_cast<std::size_t>(task.pass - static_cast<std::uint32_t>(samples_));
    while (tiles_left_.size() <= pass) tiles_left_.push_back(tiles_);
    --tiles_left_[pass];
    const int before = samples_;
    while (!tiles_left_.empty() && tiles_left_.front() == 0) {
        tiles_left_.pop_front();
        ++samples_;
    }
    tile_is_back_.notify_all();
    return samples_ != before;
}

void Film::cancel() {
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    tile_is_back_.notify_all();
}

void Film::setMaxSamples(int samples) {
    const std::lock_guard lock(mutex_);
    max_samples_ = samples;
}

int Film::maxSamples() const {
    const std::lock_guard lock(mutex_);
    return max_samples_;
}

int Film::samples() const {
    const std::lock_guard lock(mutex_);
    return samples_;
}

bool Film::complete() const {
    const std::lock_guard lock(mutex_);
    return samples_ >= max_samples_;
}

bool Film::empty() const {
    const std::lock_guard lock(mutex_);
    return samples_ == 0 && tiles_left_.empty();
}

LinearPicture Film::develop() const {
    const std::lock_guard lock(mutex_);
    LinearPicture picture{size_.width, size_.height, sums_};
    for (int y = 0; y < size_.height; ++y)
        for (int x = 0; x < size_.width; ++x) {
            const std::uint32_t passes =
                tile_passes_[static_cast<std::size_t>(y / kTileSide * columns_ + x / kTileSide)];
            const std::size_t pixel =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) + static_cast<std::size_t>(x);
            if (passes > 0) picture.pixels[pixel] *= 1.0f / static_cast<float>(passes);
        }
    return picture;
}

}  // namespace Velmar::Engine
