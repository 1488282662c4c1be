// One mesh with one binding of materials, at all its places. A face without a material of its own takes that of the
// instance that places it, so a definition has one map for each inherited material; all of them share its mesh. The two
// nodes of a map stand in the root graph; the map destroys them when it goes. Ruby thread only.
#pragma once

#include <velmar/node.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "plugin/sketchup/float4x4.h"

namespace Velmar {

class Definition;

class MeshMaterialMap {
public:
    /// `definition` must be held by a shared reference, else std::bad_weak_ptr is thrown.
    explicit MeshMaterialMap(Definition& definition);
    MeshMaterialMap(const MeshMaterialMap&) = delete;
    MeshMaterialMap& operator=(const MeshMaterialMap&) = delete;
    ~MeshMaterialMap();

    /// Adds a placement: host axes, metres.
    void AddMatrix(const Float4x4& world_from_mesh);
    /// Adds the placement mesh_to_parent * parent_to_world for each of `mesh_to_parent`.
    void AddMatrices(std::span<const Float4x4* const> mesh_to_parent, const Float4x4& parent_to_world);
    /// Drops all placements; the memory stays for the next scene evaluation.
    void ClearMatrices() { matrix_count_ = 0; }
    /// Placements in renderer axes and form, metres.
    std::span<const Matrix<float>> Matrices() const { return {matrices_.data(), matrix_count_}; }

    /// Sets the node of the inherited material; null for none.
    void SetMaterial(ApiNode* material) { material_ = material; }
    ApiNode* Material() const { return material_; }

    /// Makes the two nodes where they are missing.
    void Evaluate();
    /// Wires the material map node: the mesh, then on each slot the material of the faces, or the inherited one where
    /// they have none. The mesh must come first, as the node learns its material pins from it.
    void MapMaterial();
    /// The scatter node, brought up to date with the mesh and the placements.
    ApiNode* GetGeometry();

    ApiNode* Scatter() const { return scatter_; }
    ApiNode* MaterialMap() const { return material_map_; }

private:
    Matrix<float>* MakeRoom(std::size_t count);
    void WriteInstanceIds(const ApiNode& source);

    std::size_t matrix_count_ = 0;
    std::vector<Matrix<float>> matrices_;   ///< the first matrix_count_ of them count
    std::weak_ptr<Definition> definition_;  ///< weak, as the definition holds the map
    ApiNode* scatter_ = nullptr;
    ApiNode* material_map_ = nullptr;
    ApiNode* material_ = nullptr;
};

}  // namespace Velmar
