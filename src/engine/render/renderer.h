// The render threads and their run state: takes scenes, makes pictures. It knows nothing of nodes. Its members are for
// one thread, the one that makes the scenes; interrupt() alone may be called from anywhere, a signal handler too.
#pragma once

#include "engine/render/render_job.h"
#include "engine/render/stopwatch.h"

#include <atomic>
#include <thread>

#include <sys/types.h>

namespace Velmar::Engine {

enum class RunState { Stopped, Paused, Running };

struct Progress {
    FilmSize film;
    int samples = 0;       ///< whole passes over the film
    int max_samples = 0;   ///< samples per pixel at which rendering ends
    double seconds = 0.0;  ///< spent rendering since the film was cleared
    bool working = false;  ///< the threads have work
};

enum class WaitEnd { SamplesReached, TimeLimit, Interrupted, NothingToRender };

class Renderer {
public:
    /// With 0 threads there is one for each processor. They start when there is a first picture to render.
    explicit Renderer(unsigned threads = 0);
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    /// What is rendered from now on; null for nothing. While running, another scene than the one on the film clears the
    /// film, except for one that differs in its number of samples alone. Else it waits for restart() or resume().
    void setScene(std::shared_ptr<const RenderScene> scene);
    /// Takes effect at the next clearing of the film.
    void setSettings(const RenderSettings& settings) { settings_ = settings; }
    /// Samples per pixel of scenes that do not say how many, at least 1.
    void setDefaultMaxSamples(int samples);
    /// Nice value of the threads, 0 normal to 19 lowest.
    void setNiceness(int niceness);

    /// Clears the film and runs.
    void restart();
    /// From a pause: goes on with the film, if it shows the scene of now. Else as restart().
    void resume();
    /// Holds a run. Tiles under way are finished.
    void pause();
    /// Ends a run or a pause; the film stays. Tiles under way are dropped.
    void stop();
    RunState state() const { return state_; }
    /// Stops and ends the threads. They start again when they are needed.
    void shutDown();
    /// Drops the film.
    void clear() { dropJob(); }

    Progress progress() const;
    /// Waits until the film holds `samples` or all that it will get, or until `seconds` are over; 0 or less is no
    /// limit.
    WaitEnd wait(int samples, double seconds);
    void interrupt() noexcept { interrupted_ = true; }
    /// The picture so far; none when there is no film or it holds no sample.
    std::optional<LinearPicture> develop() const;
    std::uint64_t filmRestarts() const { return film_restarts_; }
    void resetCounts() { film_restarts_ = 0; }

private:
    void startJob();
    void dropJob();
    void setState(RunState state);
    void startThreads();
    void joinThreads();
    void work(const std::stop_token& stop);
    bool renderTasks(RenderJob& job, std::uint64_t order);
    void passIsWhole(const RenderJob& job);
    int maxSamples() const;

    const unsigned thread_count_;
    RenderSettings settings_;
    std::shared_ptr<const RenderScene> scene_;
    int default_max_samples_ = 16000;
    int niceness_ = 0;
    std::uint64_t film_restarts_ = 0;
    std::vector<std::jthread> threads_;
    pid_t threads_process_ = 0;

    // Shared with the threads, under the mutex. A change of the order number calls the threads back from their job.
    mutable std::mutex mutex_;
    std::condition_variable_any work_is_there_;
    std::condition_variable film_moved_;
    RunState state_ = RunState::Stopped;
    std::shared_ptr<RenderJob> job_;
    Stopwatch watch_;
    std::atomic<std::uint64_t> order_ = 1;
    std::atomic<bool> interrupted_ = false;
};

}  // namespace Velmar::Engine
