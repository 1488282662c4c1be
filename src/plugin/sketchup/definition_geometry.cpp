// How a definition's mesh node is filled: from the stream, by the mesh settings, and by a change of material alone.
#include <algorithm>
#include <cmath>
#include <string>

#include <velmar/graph.h>
#include <velmar/project.h>

#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

namespace {

/// Bakes a transform of renderer axes into points.
void TransformPoints(std::vector<Vec3<float>>& points, const Float4x4& t) {
    for (Vec3<float>& p : points) {
        p = {p.x * t[0] + p.y * t[4] + p.z * t[8] + t[12], p.x * t[1] + p.y * t[5] + p.z * t[9] + t[13],
             p.x * t[2] + p.y * t[6] + p.z * t[10] + t[14]};
    }
}

/// A vector of no length has no direction: its numbers become nan, and the renderer deals with it.
void Normalise(std::vector<Vec3<float>>& vectors) {
    for (Vec3<float>& v : vectors) {
        const float scale = 1.0f / std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
        v = {v.x * scale, v.y * scale, v.z * scale};
    }
}

void Write(ApiNode& node, AttributeId attribute, const std::vector<int>& values) {
    node.set(attribute, values.data(), values.size(), false);
}

void Write(ApiNode& node, AttributeId attribute, const std::vector<Vec3<float>>& values) {
    node.set(attribute, values.data(), values.size(), false);
}

}  // namespace

bool Definition::Evaluate() {
    if (!IsDefinition() || proxy != nullptr) return false;
    if (mesh == nullptr) mesh = ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    return mesh != nullptr;
}

void Definition::EvaluateFromStream() {
    if (mesh == nullptr) return;
    SetMeshName();
    SetNumVerticesPerPoly();
    SetVertices();
    SetVertexIndices();
    SetNormals();
    SetNormalIndices();
    SetUwvCoords();
    SetUwvIndices();
    SetMaterials();
    SetMaterialsNames();
    mesh->evaluate();
}

void Definition::SetMeshName() {
    mesh->setName(SketchupManager::Geometry().name.c_str());
}

void Definition::SetNumVerticesPerPoly() {
    const std::size_t triangles = SketchupManager::Geometry().vertex_indices.size() / 3;
    Write(*mesh, ATTR_VERTICES_PER_POLYGON, std::vector<int>(triangles, 3));
}

void Definition::SetVertices() {
    std::vector<Vec3<float>>& vertices = SketchupManager::Geometry().mesh_vertices;
    if (edit_mode) TransformPoints(vertices, SketchupManager::GetEditTransform().SwapYZ());
    Write(*mesh, ATTR_VERTICES, vertices);
}

void Definition::SetVertexIndices() {
    Write(*mesh, ATTR_VERTEX_INDICES, SketchupManager::Geometry().vertex_indices);
}

bool Definition::IsSmooth() const {
    bool smooth = true;
    mesh->get(ATTR_SMOOTHING, smooth);
    return smooth;
}

void Definition::SetNormals() {
    if (!IsSmooth()) return;
    std::vector<Vec3<float>>& normals = SketchupManager::Geometry().normals;
    Normalise(normals);
    Write(*mesh, ATTR_NORMALS, normals);
}

void Definition::SetNormalIndices() {
    if (IsSmooth()) Write(*mesh, ATTR_NORMAL_INDICES, SketchupManager::Geometry().normal_indices);
}

void Definition::SetUwvCoords() {
    Write(*mesh, ATTR_UVW, SketchupManager::Geometry().uvws);
}

void Definition::SetUwvIndices() {
    Write(*mesh, ATTR_UVW_INDICES, SketchupManager::Geometry().uvw_indices);
}

int Definition::SlotOf(const std::shared_ptr<SuMaterial>& material, int& next_slot) {
    const auto [slot, is_new] = material_slots.try_emplace(material, next_slot);
    if (is_new) ++next_slot;
    return slot->second;
}

void Definition::FillTriangles(const Face& face, int slot, std::vector<int>& slot_of_triangle) {
    const auto count = static_cast<std::ptrdiff_t>(slot_of_triangle.size());
    const std::ptrdiff_t first = std::clamp<std::ptrdiff_t>(face.first_poly, 0, count);
    const std::ptrdiff_t end = std::clamp<std::ptrdiff_t>(face.end_poly, first, count);
    std::fill(slot_of_triangle.begin() + first, slot_of_triangle.begin() + end, slot);
}

void Definition::SetMaterials() {
    const GeometryStream& stream = SketchupManager::Geometry();
    num_polys = stream.vertex_indices.size() / 3;
    std::vector<int> slot_of_triangle(num_polys, 0);
    std::vector<std::pair<int, std::shared_ptr<SuMaterial>>> materials;
    materials.reserve(stream.faces.size());
    face_ids.reserve(stream.faces.size());

    // Faces in a row often have one material: it is looked up again when another one comes.
    int next_slot = 0, slot = 0;
    std::shared_ptr<SuMaterial> material;
    for (const Face& face : stream.faces) {
        if (&face == stream.faces.data() || face.face_material_id != (&face)[-1].face_material_id) {
            material = SketchupManager::GetMaterial(face.face_material_id);
            slot = SlotOf(material, next_slot);
        }
        materials.emplace_back(face.face_id, material);
        face_ids.push_back(face.face_id);
        FillTriangles(face, slot, slot_of_triangle);
    }
    face_materials.Assign(std::move(materials));
    faces.insert(faces.end(), stream.faces.begin(), stream.faces.end());
    Write(*mesh, ATTR_POLYGON_MATERIAL_INDICES, slot_of_triangle);
}

void Definition::SetMaterialsNames() {
    if (mesh == nullptr || material_slots.empty()) return;
    std::vector<std::string> names;
    for (std::size_t number = 1; number <= material_slots.size(); ++number) {
        names.push_back("mat_" + std::to_string(number));
    }
    std::vector<const char*> texts;
    for (const std::string& name : names) texts.push_back(name.c_str());
    mesh->set(ATTR_MATERIAL_NAMES, texts.data(), texts.size(), false);
}

bool Definition::TryToRebuildFaceMaterials() {
    if (!materials_dirty || mesh == nullptr) return false;
    int next_slot = 0;
    for (const auto& [material, slot] : material_slots) next_slot = std::max(next_slot, slot + 1);

    std::vector<int> slot_of_triangle(num_polys, 0);
    for (const Face& face : faces) {
        FillTriangles(face, SlotOf(GetMaterial(face.face_id), next_slot), slot_of_triangle);
    }
    Write(*mesh, ATTR_POLYGON_MATERIAL_INDICES, slot_of_triangle);
    SetMaterialsNames();
    mesh->evaluate();
    materials_dirty = false;
    return true;
}

bool Definition::SetGeometrySettings(const Json::Value& settings) {
    if (settings.isNull() || mesh == nullptr || proxy != nullptr) return false;
    // Read all before anything is written: a value of the wrong kind throws.
    const bool smoothing = settings.get("smoothing", true).asBool();
    const auto angle = static_cast<float>(settings.get("angle", 89.0).asDouble());
    const auto sharpness = static_cast<float>(settings.get("sharpness", 0.0).asDouble());
    const int level = settings.get("level", 0).asInt();
    const int interpolation = settings.get("interpolation", 2).asInt();
    const int scheme = settings.get("scheme", 0).asInt();

    mesh->set(ATTR_SMOOTHING, smoothing, false);
    mesh->set(ATTR_SMOOTHING_ANGLE, angle, false);
    mesh->set(ATTR_SUBDIVISION_SHARPNESS, sharpness, false);
    mesh->set(ATTR_SUBDIVISION_LEVEL, level, false);
    mesh->set(ATTR_SUBDIVISION_INTERPOLATION, interpolation, false);
    mesh->set(ATTR_SUBDIVISION_SCHEME, scheme, false);
    VelmarManager::UpdateAndRestart();
    return true;
}

}  // namespace Velmar
