// The engine for programs without a window: wait for samples, look at progress, save the picture, count the work done.
// It knows nothing of who builds the scene. Everything here is called from the thread that makes the SDK calls, while
// the render threads work on their own; only interrupt() may be called from any thread and from a signal handler.
#pragma once

#include <velmar/export.h>

#include <cstdint>
#include <string>

namespace Velmar::Engine {

/// How far the picture is.
struct RenderProgress {
    int width = 0;         ///< pixels
    int height = 0;        ///< pixels
    int samples = 0;       ///< whole passes over the film that are done, samples per pixel
    int max_samples = 0;   ///< samples per pixel at which rendering ends by itself
    double seconds = 0.0;  ///< time spent rendering since the film was cleared
    bool running = false;  ///< the render threads work
};

enum class WaitResult {
    SamplesReached,   ///< the film holds the samples asked for, or all that it will get
    TimeLimit,        ///< the time ran out first
    Interrupted,      ///< interrupt() was called
    NothingToRender,  ///< the engine does not run, or has no render target
};

/// Work since the last resetStatistics(), but for the counts that say how much there is now.
struct RenderStatistics {
    // How much there is now.
    std::uint64_t meshes = 0;                   ///< distinct meshes in the render scene
    std::uint64_t triangles = 0;                ///< triangles of all meshes, each mesh once
    std::uint64_t acceleration_structures = 0;  ///< one per mesh, however many placements
    std::uint64_t instance_lists = 0;           ///< lists of matrices, one per scatter
    std::uint64_t placements = 0;               ///< matrices in all lists
    // What was done.
    std::uint64_t meshes_built = 0;
    std::uint64_t meshes_kept = 0;
    std::uint64_t acceleration_structures_built = 0;
    std::uint64_t instance_lists_built = 0;
    std::uint64_t instance_lists_kept = 0;
    std::uint64_t top_levels_built = 0;
    std::uint64_t cameras_built = 0;
    std::uint64_t film_restarts = 0;
    std::uint64_t updates = 0;  ///< calls of ApiChangeManager::update
};

/// Static functions over the one engine of the process.
class VELMAR_SDK EngineHost {
public:
    static RenderProgress progress();
    /// Waits until the film holds `samples` samples per pixel or `seconds` have gone by; a limit of 0 or less is none.
    static WaitResult waitForSamples(int samples, double seconds);
    /// Ends a wait that is under way, or the next one.
    static void interrupt() noexcept;
    /// Writes the film as it is: 8-bit sRGB for ".png", linear 32-bit float for ".exr", whatever the case of the
    /// ending. The file is whole or not there. False with a reason in `error` when there is no picture, the ending is
    /// unknown, or the file cannot be written.
    static bool savePicture(const std::string& path, std::string& error);
    static RenderStatistics statistics();
    static void resetStatistics();
    /// Samples per pixel at which rendering ends when no kernel says otherwise.
    static void setMaxSamples(int samples);
    /// Gives the window, where there is one, its turn.
    static void pumpEvents();
};

}  // namespace Velmar::Engine
