// The render scene: a snapshot of everything that the render threads need, compiled from the node graph. A snapshot is
// immutable and shared; its parts are shared with the snapshots before and after it as far as they did not change. It
// knows nothing of nodes, so that rendering never reads the graph.
#pragma once

#include "engine/scene/camera_settings.h"
#include "engine/scene/render_mesh.h"

#include <memory>
#include <optional>
#include <vector>

namespace Velmar::Engine {

/// One mesh at many places.
struct PlacementList {
    std::shared_ptr<const RenderMesh> mesh;
    /// Finite, invertible, metres; shared with the graph where the graph's own list is all good.
    std::shared_ptr<const std::vector<Affine>> world_from_model;
    bool scattered = true;  ///< false for a mesh that stands in the scene without a scatter
};

/// All placements under one acceleration structure: one instance per matrix over the structure of its mesh.
class RenderGeometry {
public:
    /// Lists without a triangle or a matrix take part in the list but not in the structure.
    static std::shared_ptr<const RenderGeometry> build(const AccelerationDevice& device,
                                                       std::vector<std::shared_ptr<const PlacementList>> lists);

    /// Never null; empty when there is nothing to hit.
    RTCScene accelerationStructure() const { return scene_.get(); }
    const std::vector<std::shared_ptr<const PlacementList>>& lists() const { return lists_; }
    const Bounds& bounds() const { return bounds_; }

    struct Placement {
        const RenderMesh* mesh;
        const Affine* world_from_model;
    };
    /// What an instance number of a hit stands for.
    Placement placement(std::uint32_t instance) const {
        const Run& run = runs_[run_of_instance_[instance]];
        return {run.mesh, run.matrices + (instance - run.first)};
    }

private:
    struct Run {
        std::uint32_t first;
        const RenderMesh* mesh;
        const Affine* matrices;
    };

    RenderGeometry() = default;
    void addInstances(const AccelerationDevice& device, const PlacementList& list);

    std::vector<std::shared_ptr<const PlacementList>> lists_;
    std::vector<Run> runs_;
    std::vector<std::uint32_t> run_of_instance_;
    Bounds bounds_;
    OwnedScene scene_;
};

/// Film size in pixels; a size of 0 or less gives no picture.
struct FilmSize {
    int width = 0, height = 0;
    friend bool operator==(const FilmSize&, const FilmSize&) = default;
};

struct RenderScene {
    std::shared_ptr<const RenderGeometry> geometry;               ///< never null
    std::shared_ptr<const std::optional<CameraSettings>> camera;  ///< never null; empty when the scene has no camera
    FilmSize film;
    /// Samples per pixel that the kernel asks for; none when there is no kernel.
    std::optional<int> max_samples;

    /// True when both are made of the same parts, by address.
    friend bool operator==(const RenderScene&, const RenderScene&) = default;
};

}  // namespace Velmar::Engine
