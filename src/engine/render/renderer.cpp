#include "engine/render/renderer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <new>

#include <pmmintrin.h>
#include <sys/resource.h>
#include <unistd.h>
#include <xmmintrin.h>

#include "engine/catalog/engine_log.h"

namespace Velmar::Engine {

namespace {

// Numbers too small for the normal form cost hundreds of cycles and show in no picture; the intersection library asks
// for the same setting.
void ignoreDenormalNumbers() {
    _MM_SET_FLUSH_ZERO_MODE(_MM_FLUSH_ZERO_ON);
    _MM_SET_DENORMALS_ZERO_MODE(_MM_DENORMALS_ZERO_ON);
}

// On Linux a nice value belongs to a thread. It cannot be taken back without privilege, so threads that are to be less
// nice are made anew by a thread that is not nice.
void makeThreadNice(int niceness) {
    if (niceness > 0) setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), niceness);
}

bool isRenderable(const RenderScene* scene) {
    return scene != nullptr && scene->film.width > 0 && scene->film.height > 0;
}

// True when a film of one scene shows the other: all but the number of samples is the same.
bool looksTheSame(const RenderScene& a, const RenderScene& b) {
    return a.geometry == b.geometry && a.camera == b.camera && a.film == b.film;
}

}  // namespace

Renderer::Renderer(unsigned threads)
    : thread_count_(threads > 0 ? threads : std::max(1u, std::thread::hardware_concurrency())) {}

Renderer::~Renderer() {
    shutDown();
}

int Renderer::maxSamples() const {
    return scene_ != nullptr && scene_->max_samples ? std::max(1, *scene_->max_samples) : default_max_samples_;
}

void Renderer::setScene(std::shared_ptr<const RenderScene> scene) {
    scene_ = std::move(scene);
    if (!isRenderable(scene_.get())) {
        if (state_ == RunState::Running) dropJob();
        return;
    }
    if (job_ != nullptr && looksTheSame(job_->scene(), *scene_)) {
        setDefaultMaxSamples(default_max_samples_);
    } else if (state_ == RunState::Running) {
        startJob();
    }
}

void Renderer::setDefaultMaxSamples(int samples) {
    const std::lock_guard lock(mutex_);
    default_max_samples_ = std::max(1, samples);
    if (job_ == nullptr || job_->film().maxSamples() == maxSamples()) return;
    job_->film().setMaxSamples(maxSamples());
    if (state_ == RunState::Running && !job_->film().complete()) watch_.run();
    ++order_;
    work_is_there_.notify_all();
    film_moved_.notify_all();
}

void Renderer::setNiceness(int niceness) {
    if (niceness == niceness_) return;
    const bool had_threads = !threads_.empty();
    joinThreads();
    niceness_ = niceness;  // the threads read it, so not before they are gone
    if (had_threads) startThreads();
}

void Renderer::restart() {
    startJob();
    setState(RunState::Running);
}

void Renderer::resume() {
    if (state_ == RunState::Running) return;
    const bool film_fits = job_ != nullptr && scene_ != nullptr && looksTheSame(job_->scene(), *scene_);
    if (state_ == RunState::Stopped || !film_fits) startJob();
    setState(RunState::Running);
}

void Renderer::pause() {
    if (state_ == RunState::Running) setState(RunState::Paused);
}

void Renderer::stop() {
    if (state_ == RunState::Stopped) return;
    setState(RunState::Stopped);
    if (job_ != nullptr) job_->film().cancel();
}

void Renderer::shutDown() {
    stop();
    joinThreads();
}

void Renderer::setState(RunState state) {
    const std::lock_guard lock(mutex_);
    state_ = state;
    if (state == RunState::Running && job_ != nullptr && !job_->film().complete())
        watch_.run();
    else
        watch_.hold();
    ++order_;
    work_is_there_.notify_all();
    film_moved_.notify_all();
}

// Puts a fresh film in place of the old one.
void Renderer::startJob() {
    dropJob();
    if (!isRenderable(scene_.get())) return;
    std::shared_ptr<RenderJob> job;
    try {
        job = std::make_shared<RenderJob>(scene_, settings_, maxSamples());
    } catch (const std::bad_alloc&) {
        logLine("there is not enough memory for a film of " + std::to_string(scene_->film.width) + " by " +
                std::to_string(scene_->film.height) + " pixels");
        return;
    }
    if (threads_.empty()) startThreads();
    ++film_restarts_;
    const std::lock_guard lock(mutex_);
    job_ = std::move(job);
    if (state_ == RunState::Running) watch_.run();
    ++order_;
    work_is_there_.notify_all();
}

void Renderer::dropJob() {
    const std::lock_guard lock(mutex_);
    if (job_ != nullptr) job_->film().cancel();
    job_.reset();
    watch_.reset();
    ++order_;
    film_moved_.notify_all();
}

void Renderer::startThreads() {
    threads_process_ = getpid();
    for (unsigned i = 0; i < thread_count_; ++i)
        threads_.emplace_back([this](const std::stop_token& stop) { work(stop); });
}

void Renderer::joinThreads() {
    // A process that was forked off has the handles of the threads and not the threads.
    if (threads_process_ != getpid())
        for (std::jthread& thread : threads_) thread.detach();
    for (std::jthread& thread : threads_) thread.request_stop();
    ++order_;
    threads_.clear();
}

void Renderer::work(const std::stop_token& stop) {
    ignoreDenormalNumbers();
    makeThreadNice(niceness_);
    std::uint64_t done_order = 0;
    std::unique_lock lock(mutex_);
    const auto has_work = [&] { return state_ == RunState::Running && job_ != nullptr && order_ != done_order; };
    while (work_is_there_.wait(lock, stop, has_work) && !stop.stop_requested()) {
        const std::shared_ptr<RenderJob> job = job_;
        const std::uint64_t order = order_;
        lock.unlock();
        if (renderTasks(*job, order)) done_order = order;
        lock.lock();
    }
}

// True when the job has no task left, false when the thread was called back.
bool Renderer::renderTasks(RenderJob& job, std::uint64_t order) {
    std::array<Float3, Film::kTileSide * Film::kTileSide> samples;
    while (order_.load(std::memory_order_relaxed) == order) {
        const auto task = job.film().next();
        if (!task || !job.render(*task, samples.data())) return true;
        if (job.film().commit(*task, samples.data())) passIsWhole(job);
    }
    return false;
}

void Renderer::passIsWhole(const RenderJob& job) {
    const std::lock_guard lock(mutex_);
    if (job_.get() == &job && job.film().complete()) watch_.hold();
    film_moved_.notify_all();
}

Progress Renderer::progress() const {
    const std::lock_guard lock(mutex_);
    Progress progress;
    progress.max_samples = maxSamples();
    progress.seconds = watch_.seconds();
    if (job_ == nullptr) return progress;
    progress.film = job_->film().size();
    progress.samples = job_->film().samples();
    progress.max_samples = job_->film().maxSamples();
    progress.working = state_ == RunState::Running && !job_->film().complete();
    return progress;
}

WaitEnd Renderer::wait(int samples, double seconds) {
    using Clock = std::chrono::steady_clock;
    // A signal handler can set a flag but wake nobody, so the flag is looked at this often.
    constexpr auto kLook = std::chrono::milliseconds(20);
    const auto start = Clock::now();
    std::unique_lock lock(mutex_);
    while (true) {
        if (interrupted_.exchange(false)) return WaitEnd::Interrupted;
        if (job_ != nullptr && (job_->film().complete() || (samples > 0 && job_->film().samples() >= samples)))
            return WaitEnd::SamplesReached;
        if (job_ == nullptr || state_ != RunState::Running) return WaitEnd::NothingToRender;
        const double left = seconds - std::chrono::duration<double>(Clock::now() - start).count();
        if (seconds > 0.0 && left <= 0.0) return WaitEnd::TimeLimit;
        std::chrono::duration<double> look = kLook;
        if (seconds > 0.0) look = std::min(look, std::chrono::duration<double>(left));
        film_moved_.wait_for(lock, look);
    }
}

std::optional<LinearPicture> Renderer::develop() const {
    std::shared_ptr<const RenderJob> job;
    {
        const std::lock_guard lock(mutex_);
        job = job_;
    }
    if (job == nullptr || job->film().empty()) return std::nullopt;
    return job->film().develop();
}

}  // namespace Velmar::Engine
