#include "plugin/sketchup/mesh_material_map.h"

#include <velmar/graph.h>
#include <velmar/project.h>

#include <algorithm>

#include "plugin/materials/su_material.h"
#include "plugin/nodes/node_utils.h"
#include "plugin/proxies/proxy.h"
#include "plugin/sketchup/definition.h"

namespace Velmar {

namespace {

/// `count` numbers from `first` upwards; valid until the next call.
const int* NumbersFrom(int first, std::size_t count) {
    static auto& numbers = *new std::vector<int>();
    if (!numbers.empty() && numbers.front() != first) numbers.clear();
    auto next = static_cast<unsigned>(first) + static_cast<unsigned>(numbers.size());
    while (numbers.size() < count) numbers.push_back(static_cast<int>(next++));
    return numbers.data();
}

}  // namespace

MeshMaterialMap::MeshMaterialMap(Definition& definition)
    : definition_(std::static_pointer_cast<Definition>(definition.shared_from_this())) {}

MeshMaterialMap::~MeshMaterialMap() {
    NodeUtils::SafeDestroy(scatter_);
    NodeUtils::SafeDestroy(material_map_);
}

/// Room for `count` further matrices; whoever fills it counts them.
Matrix<float>* MeshMaterialMap::MakeRoom(std::size_t count) {
    const std::size_t wanted = matrix_count_ + count;
    if (wanted > matrices_.size()) matrices_.resize(std::max(wanted, 2 * matrices_.size()));
    return matrices_.data() + matrix_count_;
}

void MeshMaterialMap::AddMatrix(const Float4x4& world_from_mesh) {
    *MakeRoom(1) = world_from_mesh.ToRenderer();
    ++matrix_count_;
}

void MeshMaterialMap::AddMatrices(std::span<const Float4x4* const> mesh_to_parent, const Float4x4& parent_to_world) {
    const Float4x4 parent = parent_to_world;
    Matrix<float>* next = MakeRoom(mesh_to_parent.size());
    for (const Float4x4* const placement : mesh_to_parent) *next++ = Float4x4::ProductToRenderer(*placement, parent);
    matrix_count_ += mesh_to_parent.size();
}

void MeshMaterialMap::Evaluate() {
    ApiNodeGraph* root = ApiProjectManager::rootNodeGraph();
    if (scatter_ == nullptr) scatter_ = ApiNode::create(NODE_SCATTER, root, true);
    if (material_map_ == nullptr) material_map_ = ApiNode::create(NODE_MATERIAL_MAP, root, true);
}

void MeshMaterialMap::MapMaterial() {
    const std::shared_ptr<Definition> definition = definition_.lock();
    if (definition == nullptr || material_map_ == nullptr) return;

    material_map_->connectTo(PIN_GEOMETRY, definition->GetMesh(), true, false);
    material_map_->evaluate();
    for (const auto& [material, slot] : definition->material_slots) {
        ApiNode* own = material != nullptr ? material->node : nullptr;
        material_map_->connectToIx(static_cast<unsigned>(slot) + 1, own != nullptr ? own : material_, true, false);
    }
}

ApiNode* MeshMaterialMap::GetGeometry() {
    Evaluate();
    ApiNode* source = material_map_;
    const std::shared_ptr<Definition> definition = definition_.lock();
    if (definition != nullptr && definition->proxy != nullptr) {
        source = definition->proxy->node;
    } else {
        MapMaterial();
    }
    if (scatter_ == nullptr) return nullptr;

    scatter_->connectTo(PIN_GEOMETRY, source, true, false);
    scatter_->set(ATTR_TRANSFORMS, matrices_.data(), matrix_count_, true);
    if (source != nullptr) WriteInstanceIds(*source);
    return scatter_;
}

void MeshMaterialMap::WriteInstanceIds(const ApiNode& source) {
    const unsigned base = static_cast<unsigned>(source.getInt(ATTR_INSTANCE_ID_BASE));
    scatter_->set(ATTR_INSTANCE_IDS, NumbersFrom(static_cast<int>(base + 1), matrix_count_), matrix_count_, true);
}

}  // namespace Velmar
