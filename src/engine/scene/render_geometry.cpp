#include "engine/scene/render_scene.h"

namespace Velmar::Engine {

std::shared_ptr<const RenderGeometry> RenderGeometry::build(const AccelerationDevice& device,
                                                            std::vector<std::shared_ptr<const PlacementList>> lists) {
    std::shared_ptr<RenderGeometry> geometry(new RenderGeometry);
    geometry->lists_ = std::move(lists);
    geometry->scene_.reset(rtcNewScene(device.get()));
    rtcSetSceneFlags(geometry->scene_.get(), RTC_SCENE_FLAG_ROBUST);
    for (const auto& list : geometry->lists_)
        if (list->mesh->accelerationStructure() != nullptr) geometry->addInstances(device, *list);
    rtcCommitScene(geometry->scene_.get());
    device.throwIfMemoryRanOut();
    return geometry;
}

void RenderGeometry::addInstances(const AccelerationDevice& device, const PlacementList& list) {
    const auto& matrices = *list.world_from_model;
    if (matrices.empty()) return;
    const auto run = static_cast<std::uint32_t>(runs_.size());
    runs_.push_back({static_cast<std::uint32_t>(run_of_instance_.size()), list.mesh.get(), matrices.data()});
    for (const Affine& world_from_model : matrices) {
        const OwnedGeometry instance(rtcNewGeometry(device.get(), RTC_GEOMETRY_TYPE_INSTANCE));
        rtcSetGeometryInstancedScene(instance.get(), list.mesh->accelerationStructure());
        rtcSetGeometryTransform(instance.get(), 0, RTC_FORMAT_FLOAT3X4_ROW_MAJOR, world_from_model.m);
        rtcCommitGeometry(instance.get());
        rtcAttachGeometryByID(scene_.get(), instance.get(), static_cast<unsigned>(run_of_instance_.size()));
        run_of_instance_.push_back(run);
        bounds_.include(transformBounds(world_from_model, list.mesh->bounds()));
    }
}

}  // namespace Velmar::Engine
