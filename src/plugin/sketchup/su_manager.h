// The mirror of the host's model: entities, materials and the geometry stream under the ids that the script layer gives
// them. Commands change the tables only; apply_geometry brings the scene up to date. The tables share ownership of
// entities and materials; nodes belong to the SDK. Everything is called from the thread that runs Ruby.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "plugin/sketchup/float4x4.h"
#include "plugin/sketchup/geometry_stream.h"

namespace Velmar {

class ApiNode;
class Definition;
class Entity;
class Instance;
class SuMaterial;

/// Static functions over tables that live from load to exit. Commands answer false, and change nothing, for ids that
/// they do not know.
class SketchupManager {
public:
    // --- Life. ---

    /// Makes the root definition and defines the Ruby commands. Always true.
    static bool Init();
    /// Empties the tables and drops the root.
    static void Cleanup();
    /// Between Init and Cleanup. Commands at other times answer false.
    static bool IsOpen();

    // --- Lookups. Each answers an empty reference for an unknown id, an empty entry, or an entity of another kind. ---

    static std::shared_ptr<Entity> GetEntity(int id);
    static std::shared_ptr<Definition> GetDefinition(int id);
    static std::shared_ptr<Instance> GetInstance(int id);
    static std::shared_ptr<SuMaterial> GetMaterial(int id);
    static std::shared_ptr<Definition> GetRoot();
    static bool IsEntityValid(int id);
    static bool IsMaterialValid(int id);

    // --- Table changes: each inserts or overwrites. ---

    static void SetEntity(int id, const std::shared_ptr<Entity>& entity);
    static void SetDefinition(int id, const std::shared_ptr<Definition>& definition);
    static void SetMaterial(int id, const std::shared_ptr<SuMaterial>& material);
    /// Takes the id out of the entities; `definitions` stays as it is.
    static void EraseEntity(int id);
    /// Takes the first entry of an instance out of the edit list. Anything else is ignored.
    static void DiscardEntity(const std::shared_ptr<Entity>& entity);

    // --- Commands on entities. ---

    /// False when the id is taken already, by whatever kind.
    static bool AddDefinition(int id, std::vector<int> other_ids, std::vector<int> child_ids);
    /// Replaces both lists. Answers whether one of them changed its length.
    static bool UpdateDefinition(int id, std::vector<int> other_ids, std::vector<int> child_ids);
    /// False too for a proxied definition.
    static bool SetDefinitionEditMode(int id, bool edit_mode);
    /// Takes an entity out of the tables and out of the root's children.
    static bool DeleteEntity(int id);
    /// The root's children.
    static bool DefineModelEntity(int id);
    static bool FlushModelEntities();

    /// An instance as the script layer describes it. Transforms are in host axes and metres.
    struct Placing {
        int definition_id;
        int material_id;
        Float4x4 transform;
    };
    /// Puts a new instance under the id, in the place of whatever stood there.
    static void AddInstance(int id, const Placing& placing, std::vector<Float4x4> placements, bool edit_mode);
    /// Brings an instance up to date, or adds it. Answers whether anything changed; placements are only read for a new
    /// instance, which is visible.
    static bool UpdateInstance(int id, const Placing& placing, std::vector<Float4x4> placements, bool visible);
    static bool SetInstanceEditMode(int id, bool edit_mode);
    /// Answers whether the value changed.
    static bool SetInstanceVisibility(int id, bool visible);

    /// Appends to the edit list.
    static void AddEditInstance(const std::shared_ptr<Instance>& instance);
    /// Ends edit mode for all instances on the edit list and empties it.
    static void ClearEditList();
    static Float4x4 GetEditTransform();
    static void SetEditTransform(const Float4x4& edit_transform);

    // --- Commands on a definition's geometry. ---

    /// Paints a face; material -1 and unknown ones count as none. `apply` brings the mesh up to date at once. False for
    /// an unknown face, and for a proxied definition.
    static bool SetFaceMaterial(int definition_id, int face_id, int material_id, bool apply);
    /// Material id of a face (`is_face`) or of an instance, -1 for none.
    static int GetMaterialId(int definition_id, int key, bool is_face);
    static bool UpdateAllMaterials(int definition_id);
    static bool SetProxy(int definition_id, const std::string& path);
    static bool ClearProxy(int definition_id);
    static bool UpdateProxy(int definition_id);

    // --- The geometry stream. ---

    static GeometryStream& Geometry();
    /// The same, but null outside the manager's life. Inline, as every number of a mesh asks for it.
    static GeometryStream* OpenStream() { return open_stream_; }
    /// Begins the geometry of a definition; whether that exists is asked at the end.
    static void SetGeometryStream(int definition_id, const std::string& mesh_name);
    /// Hands the stream to its definition and clears it, whatever comes of it. `settings` is JSON text or empty. False
    /// when there is no such definition, it has a proxy, or the stream is empty: then the definition has no geometry.
    static bool EvaluateStream(const std::string& settings);

    // --- Scene evaluation. ---

    /// Brings the scene up to date with the tables, restarts the render and drops what is not placed any more.
    static void ApplyGeometryLocal();
    /// Brings the root's own geometry alone up to date.
    static void ApplyRootGeometryLocal();
    /// Drops the placements of all definitions but the root.
    static void ClearDefinitionsMatrices();
    /// Walks all placements from the root's children downwards and adds each to its definition.
    static void EvaluateEntities();
    /// Walks the placements of one instance, which stands in `world_from_parent` (host axes, metres) and inherits a
    /// material. Does nothing for any other entity.
    static void EvaluateEntity(Entity& entity, const Float4x4& world_from_parent, int inherited_material_id);
    /// Maps of all definitions that have a mesh: the scene's scatters, without the root's.
    static std::size_t GetNumDefinitionMaps();
    /// Drops instances that neither the root nor a definition lists, and empty entries.
    static void CollectGarbage();

    // --- Flushes. ---

    /// Takes the mirror back to the start; the root lives on without geometry and outside the table.
    static void FlushGeometryLocal();
    static void FlushEntities();
    static void FlushMaterials();

    // --- Render materials. ---

    /// A render material goes away: host materials that stand on it leave the table.
    static void DiscardVelmarMaterial(ApiNode* node);
    /// A render material was swapped for another.
    static void ReplaceVelmarMaterial(ApiNode* old_node, ApiNode* new_node);

private:
    static inline GeometryStream* open_stream_ = nullptr;
};

}  // namespace Velmar
