// A component of the host's model: what is placed inside it, and its own mesh, which is uploaded once however many
// instances place it. The mesh node stands in the root graph; the definition destroys it when its geometry goes. Ruby
// thread only.
#pragma once

#include <velmar/node.h>

#include <json/value.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "plugin/sketchup/child_plan.h"
#include "plugin/sketchup/entity.h"
#include "plugin/sketchup/face_materials.h"
#include "plugin/sketchup/float4x4.h"
#include "plugin/sketchup/geometry_stream.h"

namespace Velmar {

class EntityTable;
class Instance;
class MeshMaterialMap;
class Proxy;
class SuMaterial;

/// A definition is empty (no mesh), meshed, or proxied: then a file's mesh stands in for its own, its children are not
/// shown, and commands on geometry and materials refuse.
class Definition : public Entity {
public:
    explicit Definition(int entity_id) : Entity(entity_id, kDefinition) {}
    ~Definition() override;

    /// Makes the mesh node if there is none. False, with nothing made, for a proxied definition or without a root
    /// graph.
    bool Evaluate();
    /// Uploads the stream to the mesh node, which must be there.
    void EvaluateFromStream();
    /// Destroys the mesh with its maps and forgets faces and slots. A proxy stays.
    void ClearGeometry();
    /// Drops the placements of all maps.
    void ClearMatrices();

    /// Writes the mesh settings "smoothing", "angle" (degrees), "sharpness", "level", "interpolation" and "scheme", a
    /// missing one with its default, and restarts the render. False, with nothing written, for the null value, without
    /// a mesh, or for a proxied definition.
    bool SetGeometrySettings(const Json::Value& settings);

    /// The proxy's node where there is one, else the mesh; may be null.
    ApiNode* GetMesh() const;

    /// Paints a face; null takes its material away. The mesh learns of it when it is rebuilt.
    void SetMaterial(const std::shared_ptr<SuMaterial>& material, int face_id);
    /// The material of a face; null for an unknown face.
    std::shared_ptr<SuMaterial> GetMaterial(int face_id) const;
    /// Writes the slots of the triangles anew when a face was painted since. Slots once given stay, so that pins wired
    /// before keep their meaning. Whoever calls this wires the maps next. False when there was nothing to do.
    bool TryToRebuildFaceMaterials();
    /// Wires the materials of all maps anew.
    void RebuildMeshMaterialMaps();
    /// Both of the above, when the definition has a mesh and no proxy.
    void UpdateMaterials();
    /// Writes "mat_1", "mat_2" and so on, one name for each slot.
    void SetMaterialsNames();

    /// Puts the mesh of a file in the place of the geometry. The old mesh stays when the file has none.
    void SetProxy(const char* path);
    /// Loads the proxy's file again.
    void UpdateProxy();
    /// Drops the proxy. A mesh that it replaced does not come back before the next stream.
    void ClearProxy();

    /// Places the mesh once more: host axes, metres. Does nothing for a definition that only has children.
    void AddInstance(const Float4x4& world_from_definition, int material_id);
    /// The map of an inherited material, ready to take placements; null for a definition that only has children. Within
    /// one walk, which has a number of its own, repeated calls are cheap.
    MeshMaterialMap* PlacementMap(int material_id, std::uint64_t walk) {
        const bool known = placement_walk_ == walk && placement_material_id_ == material_id;
        return known ? placement_map_ : FindPlacementMap(material_id, walk);
    }
    /// The instances among the children, in order. Valid until the table or the children change.
    const std::vector<Instance*>& ChildInstances(const EntityTable& entities);
    /// How often any definition's ChildInstances had to look them up anew.
    static std::uint64_t ChildChanges() { return child_changes_; }

    // The tree.
    bool edit_mode = false;      ///< the next stream is baked with the edit transform
    std::vector<int> child_ids;  ///< entities placed inside, in order
    std::vector<int> other_ids;  ///< kept for the script layer
    int num_entities = 0;        ///< kept for the script layer

    // The scene evaluation.
    bool on_path = false;  ///< it stands inside this definition
    ChildPlan child_plan;  ///< what it does with the children

    // Geometry and materials.
    ApiNode* mesh = nullptr;
    std::shared_ptr<Proxy> proxy;
    FaceMaterials face_materials;
    std::map<std::shared_ptr<SuMaterial>, int> material_slots;  ///< numbers from 0 without gaps; null has one too
    std::vector<int> face_ids;                                  ///< in stream order
    std::vector<Face> faces;                                    ///< as the stream gave them
    std::uint64_t num_polys = 0;                                ///< triangles of the mesh
    bool materials_dirty = false;                               ///< a face was painted since the last rebuild
    std::map<int, std::shared_ptr<MeshMaterialMap>> mesh_maps;  ///< by inherited material id

private:
    MeshMaterialMap* FindOrMakeMap(int material_id);
    MeshMaterialMap* FindPlacementMap(int material_id, std::uint64_t walk);
    void SetNumVerticesPerPoly();
    void SetVertices();
    void SetVertexIndices();
    void SetNormals();
    void SetNormalIndices();
    void SetUwvCoords();
    void SetUwvIndices();
    void SetMaterials();
    void SetMeshName();
    bool IsSmooth() const;
    int SlotOf(const std::shared_ptr<SuMaterial>& material, int& next_slot);
    static void FillTriangles(const Face& face, int slot, std::vector<int>& slot_of_triangle);

    // The map that the running walk has asked for last.
    std::uint64_t placement_walk_ = 0;
    int placement_material_id_ = kNoId;
    MeshMaterialMap* placement_map_ = nullptr;
    // What ChildInstances has answered, and for which ids and which version of the table.
    std::vector<Instance*> child_instances_;
    std::vector<int> found_ids_;
    std::uint64_t found_version_ = 0;
    static inline std::uint64_t child_changes_ = 0;
};

}  // namespace Velmar
