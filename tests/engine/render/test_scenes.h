// Render scenes made by hand, without a node graph, for tests with known answers.
#pragma once

#include "engine/render/render_job.h"

#include <memory>
#include <vector>

namespace Velmar::Engine {

/// Triangles or quads with shared corners, and normals if they are smooth.
struct TestMesh {
    std::vector<Float3> vertices;
    std::vector<int> corners, indices;
    std::vector<Float3> normals;  ///< one for each vertex, or none

    MeshSource source() const;
};

/// A square in the plane y = 0 about the origin.
TestMesh square(float side);
/// A box about the origin, its faces turned outwards.
TestMesh box(Float3 size);
/// A sphere about the origin; `smooth` gives it normals.
TestMesh sphere(float radius, int steps, bool smooth);

/// Builds scenes on a device of its own.
class SceneMaker {
public:
    SceneMaker& add(const TestMesh& mesh, std::vector<Affine> world_from_model = {identity()});
    std::shared_ptr<const RenderScene> make(FilmSize film, const CameraSettings& camera) const;
    /// Without a camera.
    std::shared_ptr<const RenderScene> make(FilmSize film) const;

private:
    std::shared_ptr<RenderScene> makeScene(FilmSize film) const;
    AccelerationDevice device_;
    std::vector<std::shared_ptr<const PlacementList>> lists_;
};

/// A dome that shines evenly with `radiance` and has no sun.
Lighting evenDome(float radiance);
/// No sky, only a sun of that irradiance.
Lighting onlySun(Float3 direction, float irradiance);

Affine translation(Float3 offset);
Affine scaling(Float3 factors);
/// About the x axis.
Affine rotationX(float degrees);

/// Renders `samples` samples for each pixel on the calling thread.
LinearPicture renderAll(const std::shared_ptr<const RenderScene>& scene, const RenderSettings& settings, int samples);
/// The mean over all pixels.
Float3 meanOf(const LinearPicture& picture);

}  // namespace Velmar::Engine
