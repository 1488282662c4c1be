// apply_geometry of a million placements against the bare matrix products: once as a thousand groups of a thousand, as
// nested components are, and once as a million instances side by side.
#include <velmar/project.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "plugin/sketchup/instance.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/velmar/render_targets.h"
#include "plugin/velmar/vel_manager.h"
#include "ratio_rounds.h"

namespace {

using namespace Velmar;

constexpr int kMesh = 1, kGroup = 2, kFirstInstance = 1000;
constexpr int kPlacements = 1'000'000;

Float4x4 Turned(int number) {
    Float4x4 placement;
    placement.RotateZ(static_cast<float>(number % 360));
    placement[12] = static_cast<float>(number);
    return placement;
}

void AddInstance(int id, int definition_id, const Float4x4& placement) {
    SketchupManager::AddInstance(id, {definition_id, kNoId, placement}, {}, false);
}

/// An empty model with one meshed definition.
void BeginModel() {
    SketchupManager::FlushGeometryLocal();
    SketchupManager::SetGeometryStream(kRootDefinitionId, "root");
    SketchupManager::AddDefinition(kMesh, {}, {});
    SketchupManager::SetGeometryStream(kMesh, "triangle");
    for (unsigned number = 1; number <= 3; ++number) {
        SketchupManager::Geometry().AddVertex(static_cast<float>(number), static_cast<float>(number * number), 0);
        SketchupManager::Geometry().AddNormal(0, 0, 1, 0);
        SketchupManager::Geometry().AddVertexIndex(number);
        SketchupManager::Geometry().AddNormalIndex(number);
    }
    SketchupManager::EvaluateStream("");
}

void BuildNested() {
    BeginModel();
    std::vector<int> children;
    for (int i = 0; i < 1000; ++i) {
        AddInstance(kFirstInstance + i, kMesh, Turned(i));
        children.push_back(kFirstInstance + i);
    }
    SketchupManager::AddDefinition(kGroup, {}, children);
    for (int i = 0; i < 1000; ++i) {
        AddInstance(kFirstInstance + 1000 + i, kGroup, Turned(7 * i));
        SketchupManager::DefineModelEntity(kFirstInstance + 1000 + i);
    }
}

void BuildFlat() {
    BeginModel();
    for (int i = 0; i < kPlacements; ++i) {
        AddInstance(kFirstInstance + i, kMesh, Turned(i));
        SketchupManager::DefineModelEntity(kFirstInstance + i);
    }
}

/// The products that such an evaluation cannot do without: one for each placement, from an array into an array.
class Products {
public:
    Products() : local_(kPlacements), world_(kPlacements) {
        for (int i = 0; i < kPlacements; ++i) local_[static_cast<std::size_t>(i)] = Turned(i);
    }
    void operator()() {
        for (std::size_t i = 0; i < local_.size(); ++i) world_[i] = local_[i] * parent_;
    }

private:
    Float4x4 parent_ = Turned(30);
    std::vector<Float4x4> local_, world_;
};

void Walk() {
    SketchupManager::ClearDefinitionsMatrices();
    SketchupManager::EvaluateEntities();
}

/// The whole call, and the part of it that walks over the placements. The scene stands, so the engine has nothing to
/// do.
void MeasureModel(const std::string& model, double goal, Products& products) {
    const auto bare = [&products] { products(); };
    Bench::Compare(("apply_geometry, " + model + " / bare products").c_str(), goal, bare,
                   SketchupManager::ApplyGeometryLocal);
    Bench::Compare("  of that, the walk over the placements", 0.0, bare, Walk);
}

/// The same after an instance was moved, up to the scene graph: without a render target the engine is not asked.
void MeasureMove(Products& products) {
    RenderTargets::Shared().nodes.clear();
    VelmarManager::FlushGeometryGroup();
    float position = 0.0f;
    Bench::Compare(
        "  after a move, with the scene graph's copy of all matrices", 0.0, [&products] { products(); },
        [&position] {
            SketchupManager::GetInstance(kFirstInstance)->transform[12] = ++position;
            SketchupManager::ApplyGeometryLocal();
        });
}

}  // namespace

int main() {
    if (!apiMode_Shared_start("bench", false, nullptr, nullptr, nullptr)) return EXIT_FAILURE;
    VelmarManager::CreateRenderTarget();
    Products products;
    BuildNested();
    MeasureModel("1000 x 1000 nested placements", 1.0 / 3, products);
    BuildFlat();
    MeasureModel("a million instances side by side", 0.0, products);
    BuildNested();
    MeasureMove(products);
    SketchupManager::FlushGeometryLocal();
    SketchupManager::Cleanup();
    apiMode_Shared_exit(nullptr);
    return EXIT_SUCCESS;
}
