#include "engine/render/test_scenes.h"

#include <cmath>

namespace Velmar::Engine {

MeshSource TestMesh::source() const {
    MeshSource source;
    source.corners_per_polygon = corners;
    source.vertices = vertices;
    source.vertex_indices = indices;
    source.normals = normals;
    if (!normals.empty()) source.normal_indices = indices;
    return source;
}

TestMesh square(float side) {
    const float h = side / 2;
    return {{{-h, 0, h}, {h, 0, h}, {h, 0, -h}, {-h, 0, -h}}, {4}, {0, 1, 2, 3}, {}};
}

TestMesh box(Float3 size) {
    TestMesh mesh;
    for (int i = 0; i < 8; ++i)
        mesh.vertices.push_back(
            {(i & 1 ? 0.5f : -0.5f) * size.x, (i & 2 ? 0.5f : -0.5f) * size.y, (i & 4 ? 0.5f : -0.5f) * size.z});
    mesh.corners = {4, 4, 4, 4, 4, 4};
    mesh.indices = {4, 5, 7, 6, 1, 0, 2, 3, 5, 1, 3, 7, 0, 4, 6, 2, 6, 7, 3, 2, 0, 1, 5, 4};
    return mesh;
}

TestMesh sphere(float radius, int steps, bool smooth) {
    TestMesh mesh;
    for (int i = 0; i <= steps; ++i)
        for (int j = 0; j <= 2 * steps; ++j) {
            const float theta = kPi * static_cast<float>(i) / static_cast<float>(steps);
            const float phi = kPi * static_cast<float>(j) / static_cast<float>(steps);
            const Float3 direction{std::sin(theta) * std::cos(phi), std::cos(theta), std::sin(theta) * std::sin(phi)};
            mesh.vertices.push_back(direction * radius);
            if (smooth) mesh.normals.push_back(direction);
        }
    for (int i = 0; i < steps; ++i)
        for (int j = 0; j < 2 * steps; ++j) {
            const int a = i * (2 * steps + 1) + j, b = a + 2 * steps + 1;
            mesh.corners.push_back(4);
            mesh.indices.insert(mesh.indices.end(), {a, a + 1, b + 1, b});
        }
    return mesh;
}

SceneMaker& SceneMaker::add(const TestMesh& mesh, std::vector<Affine> world_from_model) {
    auto list = std::make_shared<PlacementList>();
    list->mesh = RenderMesh::build(device_, mesh.source());
    list->world_from_model = std::make_shared<const std::vector<Affine>>(std::move(world_from_model));
    lists_.push_back(std::move(list));
    return *this;
}

std::shared_ptr<RenderScene> SceneMaker::makeScene(FilmSize film) const {
    auto scene = std::make_shared<RenderScene>();
    scene->geometry = RenderGeometry::build(device_, lists_);
    scene->film = film;
    return scene;
}

std::shared_ptr<const RenderScene> SceneMaker::make(FilmSize film, const CameraSettings& camera) const {
    auto scene = makeScene(film);
    scene->camera = std::make_shared<const std::optional<CameraSettings>>(camera);
    return scene;
}

std::shared_ptr<const RenderScene> SceneMaker::make(FilmSize film) const {
    auto scene = makeScene(film);
    scene->camera = std::make_shared<const std::optional<CameraSettings>>();
    return scene;
}

Lighting evenDome(float radiance) {
    Lighting lighting;
    lighting.zenith_radiance = lighting.horizon_radiance = lighting.ground_radiance = {radiance, radiance, radiance};
    lighting.sun_irradiance = {};
    return lighting;
}

Lighting onlySun(Float3 direction, float irradiance) {
    Lighting lighting = evenDome(0.0f);
    lighting.sun_direction = direction;
    lighting.sun_irradiance = {irradiance, irradiance, irradiance};
    return lighting;
}

Affine translation(Float3 offset) {
    return {{{1, 0, 0, offset.x}, {0, 1, 0, offset.y}, {0, 0, 1, offset.z}}};
}

Affine scaling(Float3 factors) {
    return {{{factors.x, 0, 0, 0}, {0, factors.y, 0, 0}, {0, 0, factors.z, 0}}};
}

Affine rotationX(float degrees) {
    const float c = std::cos(degrees * kPi / 180), s = std::sin(degrees * kPi / 180);
    return {{{1, 0, 0, 0}, {0, c, -s, 0}, {0, s, c, 0}}};
}

LinearPicture renderAll(const std::shared_ptr<const RenderScene>& scene, const RenderSettings& settings, int samples) {
    RenderJob job(scene, settings, samples);
    std::vector<Float3> tile(Film::kTileSide * Film::kTileSide);
    while (const auto task = job.film().next()) {
        job.render(*task, tile.data());
        job.film().commit(*task, tile.data());
    }
    return job.film().develop();
}

Float3 meanOf(const LinearPicture& picture) {
    Float3 sum{};
    for (Float3 pixel : picture.pixels) sum += pixel;
    return sum * (1.0f / static_cast<float>(picture.pixels.size()));
}

}  // namespace Velmar::Engine
