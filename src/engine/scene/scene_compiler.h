// Compiles what hangs on a render target into a render scene, and keeps what it made: the next compilation builds only
// what the graph holds anew. Array attributes are compared by address, everything else by value. SDK thread only; the
// scenes that it hands out may go anywhere.
#pragma once

#include "engine/graph/array_access.h"
#include "engine/scene/render_scene.h"
#include "engine/scene/work_counts.h"

#include <map>
#include <unordered_map>

namespace Velmar {
class ApiNode;
}

namespace Velmar::Engine {

class SceneCompiler {
public:
    SceneCompiler();

    /// The scene of `render_target` as the graph stands now; the scene of the last call, by address, when nothing in it
    /// has changed. Never null.
    std::shared_ptr<const RenderScene> compile(const ApiNode& render_target);

    const SceneWork& work() const { return work_; }
    void resetWork() { work_ = {}; }

private:
    // The scatters from the outermost to the innermost, then the mesh.
    using Route = std::vector<const ApiNode*>;

    struct MeshArrays {
        SharedArray<int> corners, vertex_indices, normal_indices, uvw_indices, slots;
        SharedArray<Float3> vertices, normals, uvws;
        bool operator==(const MeshArrays&) const = default;
    };
    struct MeshEntry {
        MeshArrays arrays;
        std::shared_ptr<const RenderMesh> mesh;
        bool current = false;  // looked at in the compilation under way
    };
    struct ListEntry {
        std::vector<SharedArray<Affine>> sources;
        SharedArray<Affine> world_from_model;
        std::shared_ptr<const PlacementList> list;
        bool current = false;
    };

    void collect(const ApiNode* node, Route& scatters, int depth);
    void addPlacements(const ApiNode& mesh_node, const Route& scatters);
    std::shared_ptr<const RenderMesh> meshOf(const ApiNode& mesh_node);
    static MeshArrays readMesh(const ApiNode& mesh_node);
    std::shared_ptr<const RenderMesh> buildMesh(const MeshArrays& arrays);
    void forgetWhatIsGone();
    std::shared_ptr<const RenderGeometry> geometryOf(const ApiNode& render_target);
    std::shared_ptr<const std::optional<CameraSettings>> cameraOf(const ApiNode& render_target);

    AccelerationDevice device_;
    std::unordered_map<const ApiNode*, MeshEntry> meshes_;
    std::map<Route, ListEntry> lists_;
    std::vector<std::shared_ptr<const PlacementList>> collected_;
    std::size_t visits_ = 0;  ///< nodes looked at in this collection, once for each way to them
    std::shared_ptr<const RenderScene> scene_;
    SceneWork work_;
};

/// Counts what `scene` holds.
SceneContents contentsOf(const RenderScene& scene);

}  // namespace Velmar::Engine
