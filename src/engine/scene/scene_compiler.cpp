#include "engine/scene/scene_compiler.h"

#include <velmar/node.h>

#include <unordered_set>

#include "engine/catalog/engine_log.h"
#include "engine/graph/graph_walk.h"
#include "engine/scene/placements.h"
#include "engine/scene/target_settings.h"

namespace Velmar::Engine {

namespace {

// Deeper nests of geometry nodes are cut off, and so are scenes of more lists or of more ways to a node: a few nodes
// wired to one another many times over could otherwise stand for more than any machine holds.
constexpr int kDeepestGeometry = 64;
constexpr std::size_t kMostLists = std::size_t{1} << 20;
constexpr std::size_t kMostVisits = std::size_t{1} << 24;

template <typename T>
std::span<const T> view(const SharedArray<T>& array) {
    return {array->data(), array->size()};
}

}  // namespace

SceneCompiler::SceneCompiler() : scene_(std::make_shared<RenderScene>()) {}

std::shared_ptr<const RenderScene> SceneCompiler::compile(const ApiNode& render_target) {
    RenderScene scene;
    scene.geometry = geometryOf(render_target);
    scene.camera = cameraOf(render_target);
    scene.film = readFilmSize(render_target);
    scene.max_samples = readMaxSamples(render_target);
    if (!(scene == *scene_)) scene_ = std::make_shared<const RenderScene>(std::move(scene));
    return scene_;
}

std::shared_ptr<const RenderGeometry> SceneCompiler::geometryOf(const ApiNode& render_target) {
    for (auto& [node, entry] : meshes_) entry.current = false;
    for (auto& [route, entry] : lists_) entry.current = false;
    collected_.clear();
    visits_ = 0;
    Route scatters;
    collect(render_target.inputNode(PIN_RENDER_GEOMETRY), scatters, 0);
    forgetWhatIsGone();
    if (scene_->geometry && scene_->geometry->lists() == collected_) return scene_->geometry;
    ++work_.top_levels_built;
    return RenderGeometry::build(device_, collected_);
}

std::shared_ptr<const std::optional<CameraSettings>> SceneCompiler::cameraOf(const ApiNode& render_target) {
    auto camera = readCamera(render_target);
    if (scene_->camera && *scene_->camera == camera) return scene_->camera;
    ++work_.cameras_built;
    return std::make_shared<const std::optional<CameraSettings>>(std::move(camera));
}

void SceneCompiler::collect(const ApiNode* node, Route& scatters, int depth) {
    if (node == nullptr || depth > kDeepestGeometry || collected_.size() >= kMostLists) return;
    if (++visits_ > kMostVisits) return;
    switch (node->type()) {
        case NODE_GEOMETRY_GROUP:
            for (unsigned pin = 0; pin < node->pinCount(); ++pin) collect(inputNodeIx(node, pin), scatters, depth + 1);
            break;
        case NODE_SCATTER:
            if (matrixArray(node, ATTR_TRANSFORMS)->empty()) break;
            scatters.push_back(node);
            collect(node->inputNode(PIN_GEOMETRY), scatters, depth + 1);
            scatters.pop_back();
            break;
        case NODE_MATERIAL_MAP:
            collect(node->inputNode(PIN_GEOMETRY), scatters, depth + 1);
            break;
        case NODE_MESH:
            addPlacements(*node, scatters);
            break;
        default:
            break;
    }
}

void SceneCompiler::addPlacements(const ApiNode& mesh_node, const Route& scatters) {
    Route route = scatters;
    route.push_back(&mesh_node);
    ListEntry& entry = lists_[route];
    if (!entry.current) {
        std::vector<SharedArray<Affine>> sources;
        for (const ApiNode* scatter : scatters) sources.push_back(matrixArray(scatter, ATTR_TRANSFORMS));
        const bool kept = entry.list != nullptr && entry.sources == sources;
        if (!kept) {
            Placements placements = combinePlacements(sources);
            if (placements.skipped > 0)
                logLine("skipped " + std::to_string(placements.skipped) + " placements of \"" + mesh_node.name() +
                        "\": they are not finite or have no volume");
            entry.sources = std::move(sources);
            entry.world_from_model = std::move(placements.world_from_model);
        }
        if (!scatters.empty()) ++(kept ? work_.instance_lists_kept : work_.instance_lists_built);

        auto mesh = meshOf(mesh_node);
        if (entry.list == nullptr || entry.list->mesh != mesh || entry.list->world_from_model != entry.world_from_model)
            entry.list = std::make_shared<const PlacementList>(
                PlacementList{std::move(mesh), entry.world_from_model, !scatters.empty()});
        entry.current = true;
    }
    collected_.push_back(entry.list);
}

std::shared_ptr<const RenderMesh> SceneCompiler::meshOf(const ApiNode& mesh_node) {
    MeshEntry& entry = meshes_[&mesh_node];
    if (entry.current) return entry.mesh;
    entry.current = true;
    MeshArrays arrays = readMesh(mesh_node);
    if (entry.mesh != nullptr && entry.arrays == arrays) {
        ++work_.meshes_kept;
        return entry.mesh;
    }
    entry.mesh = buildMesh(arrays);
    entry.arrays = std::move(arrays);
    return entry.mesh;
}

SceneCompiler::MeshArrays SceneCompiler::readMesh(const ApiNode& mesh_node) {
    MeshArrays arrays;
    arrays.corners = intArray(&mesh_node, ATTR_VERTICES_PER_POLYGON);
    arrays.vertices = float3Array(&mesh_node, ATTR_VERTICES);
    arrays.vertex_indices = intArray(&mesh_node, ATTR_VERTEX_INDICES);
    const bool smooth = mesh_node.getBool(ATTR_SMOOTHING);
    arrays.normals = float3Array(smooth ? &mesh_node : nullptr, ATTR_NORMALS);
    arrays.normal_indices = intArray(smooth ? &mesh_node : nullptr, ATTR_NORMAL_INDICES);
    arrays.uvws = float3Array(&mesh_node, ATTR_UVW);
    arrays.uvw_indices = intArray(&mesh_node, ATTR_UVW_INDICES);
    arrays.slots = intArray(&mesh_node, ATTR_POLYGON_MATERIAL_INDICES);
    return arrays;
}

std::shared_ptr<const RenderMesh> SceneCompiler::buildMesh(const MeshArrays& arrays) {
    MeshSource source;
    source.corners_per_polygon = view(arrays.corners);
    source.vertices = view(arrays.vertices);
    source.vertex_indices = view(arrays.vertex_indices);
    source.normals = view(arrays.normals);
    source.normal_indices = view(arrays.normal_indices);
    source.uvws = view(arrays.uvws);
    source.uvw_indices = view(arrays.uvw_indices);
    source.polygon_slots = view(arrays.slots);
    auto mesh = RenderMesh::build(device_, source);
    ++work_.meshes_built;
    if (mesh->accelerationStructure() != nullptr) ++work_.acceleration_structures_built;
    return mesh;
}

// What is not placed now may be shown again at the next edit, so it is kept as long as its nodes live.
void SceneCompiler::forgetWhatIsGone() {
    std::erase_if(meshes_, [](const auto& item) { return !item.second.current && !isAlive(item.first); });
    std::erase_if(lists_, [](const auto& item) {
        return !item.second.current &&
               !std::all_of(item.first.begin(), item.first.end(), [](const ApiNode* node) { return isAlive(node); });
    });
}

SceneContents contentsOf(const RenderScene& scene) {
    SceneContents contents;
    if (scene.geometry == nullptr) return contents;
    std::unordered_set<const RenderMesh*> seen;
    for (const auto& list : scene.geometry->lists()) {
        contents.instance_lists += list->scattered ? 1 : 0;
        contents.placements += list->world_from_model->size();
        if (!seen.insert(list->mesh.get()).second) continue;
        ++contents.meshes;
        contents.triangles += list->mesh->triangleCount();
        contents.acceleration_structures += list->mesh->accelerationStructure() != nullptr ? 1 : 0;
    }
    return contents;
}

}  // namespace Velmar::Engine
