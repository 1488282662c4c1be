#include <assimp/config.h>
#include <assimp/material.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <assimp/Importer.hpp>
#include <cmath>
#include <optional>
#include <stdexcept>

#include "axes.h"
#include "imported_scene.h"

namespace Velmar::Host {
namespace {

constexpr int deepest_nesting = 500;
constexpr float smoothing_angle_degrees = 45.0F;  // for meshes that come without normals
constexpr double display_gamma = 2.2;
constexpr std::size_t longest_reason = 200;

std::string text(const aiString& s) {
    return {s.C_Str(), s.length};
}

/// The reason for a failure on one line, without the name of the file, which the caller knows.
std::string oneLine(std::string reason, const std::string& path) {
    if (const auto found = reason.find(path); found != std::string::npos) reason.erase(found, path.size());
    std::replace_if(
        reason.begin(), reason.end(), [](unsigned char c) { return c < ' '; }, ' ');
    const auto first = reason.find_first_not_of(" -:");
    reason.erase(0, first == std::string::npos ? reason.size() : first);
    if (reason.size() > longest_reason) reason.resize(longest_reason);
    return reason.empty() ? "the file cannot be read" : reason;
}

const aiScene& load(Assimp::Importer& importer, const std::string& path) {
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, smoothing_angle_degrees);
    importer.SetPropertyInteger(AI_CONFIG_PP_RVC_FLAGS,
                                aiComponent_COLORS | aiComponent_TANGENTS_AND_BITANGENTS | aiComponent_BONEWEIGHTS);
    // Nothing here may flatten the hierarchy or tear shared meshes apart.
    const aiScene* scene =
        importer.ReadFile(path, aiProcess_RemoveComponent | aiProcess_Triangulate | aiProcess_SortByPType |
                                    aiProcess_GenSmoothNormals | aiProcess_JoinIdenticalVertices);
    if (scene == nullptr || scene->mRootNode == nullptr)
        throw std::runtime_error(oneLine(importer.GetErrorString(), path));
    return *scene;
}

double displayValue(float value, bool linear) {
    const double bounded = std::isfinite(value) ? std::clamp(static_cast<double>(value), 0.0, 1.0) : 1.0;
    return 255.0 * (linear ? std::pow(bounded, 1.0 / display_gamma) : bounded);
}

std::string textureFile(const aiMaterial& source) {
    aiString file;
    if (source.GetTexture(aiTextureType_DIFFUSE, 0, &file) == aiReturn_SUCCESS ||
        source.GetTexture(aiTextureType_BASE_COLOR, 0, &file) == aiReturn_SUCCESS)
        return text(file);
    return {};
}

ImportedMaterial material(const aiMaterial& source, bool linear_colours) {
    ImportedMaterial result;
    aiString name;
    if (source.Get(AI_MATKEY_NAME, name) == aiReturn_SUCCESS) result.name = text(name);
    aiColor4D color;
    if (source.Get(AI_MATKEY_COLOR_DIFFUSE, color) == aiReturn_SUCCESS)
        result.color = {displayValue(color.r, linear_colours), displayValue(color.g, linear_colours),
                        displayValue(color.b, linear_colours)};
    float opacity = 1.0F;
    if (source.Get(AI_MATKEY_OPACITY, opacity) == aiReturn_SUCCESS && std::isfinite(opacity))
        result.opacity = std::clamp(static_cast<double>(opacity), 0.0, 1.0);
    result.texture = textureFile(source);
    return result;
}

void append(std::vector<float>& list, const aiVector3D& v) {
    list.insert(list.end(), {v.x, v.y, v.z});
}

bool isFinite(const aiVector3D& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

aiVector3D unitNormal(const aiMesh& source, unsigned index) {
    const aiVector3D upwards(0.0F, 1.0F, 0.0F);
    if (!source.HasNormals()) return upwards;
    const aiVector3D normal = source.mNormals[index];
    const float length = normal.Length();
    return std::isfinite(length) && length > 0.0F ? normal / length : upwards;
}

void copyTriangles(const aiMesh& source, std::vector<std::uint32_t>& triangles) {
    triangles.reserve(std::size_t{3} * source.mNumFaces);
    for (unsigned f = 0; f < source.mNumFaces; ++f) {
        const aiFace& face = source.mFaces[f];
        const bool whole = face.mNumIndices == 3 && std::all_of(face.mIndices, face.mIndices + 3, [&](unsigned i) {
                               return i < source.mNumVertices && isFinite(source.mVertices[i]);
                           });
        if (whole) triangles.insert(triangles.end(), face.mIndices, face.mIndices + 3);
    }
}

/// Nothing for lines and points: edges of a model are drawn by modelling applications, and never rendered.
std::optional<ImportedMesh> mesh(const aiMesh& source, const AxisChange& axes) {
    ImportedMesh result;
    copyTriangles(source, result.triangles);
    if (result.triangles.empty()) return std::nullopt;

    result.name = text(source.mName);
    result.material = source.mMaterialIndex;
    result.points.reserve(std::size_t{3} * source.mNumVertices);
    result.normals.reserve(std::size_t{3} * source.mNumVertices);
    for (unsigned v = 0; v < source.mNumVertices; ++v) {
        const aiVector3D point = isFinite(source.mVertices[v]) ? source.mVertices[v] : aiVector3D();
        append(result.points, axes.point(point));
        append(result.normals, axes.direction(unitNormal(source, v)));
    }
    if (source.HasTextureCoords(0)) {
        result.uvs.reserve(std::size_t{3} * source.mNumVertices);
        for (unsigned v = 0; v < source.mNumVertices; ++v) {
            const aiVector3D uv = isFinite(source.mTextureCoords[0][v]) ? source.mTextureCoords[0][v] : aiVector3D();
            append(result.uvs, {uv.x, uv.y, 1.0F});
        }
    }
    return result;
}

constexpr std::uint32_t dropped = UINT32_MAX;

bool isFinite(const aiMatrix4x4& m) {
    for (unsigned r = 0; r < 4; ++r)
        for (unsigned c = 0; c < 4; ++c)
            if (!std::isfinite(m[r][c])) return false;
    return true;
}

ImportedNode node(const aiNode& source, const AxisChange& axes, const std::vector<std::uint32_t>& kept, int depth) {
    if (depth > deepest_nesting) throw std::runtime_error("its parts are nested too deeply");
    ImportedNode result;
    result.name = text(source.mName);
    const bool is_root = depth == 0;
    if (!(is_root && axes.takesRoot()) && isFinite(source.mTransformation))
        result.transform = axes.transform(source.mTransformation);
    for (unsigned m = 0; m < source.mNumMeshes; ++m)
        if (kept.at(source.mMeshes[m]) != dropped) result.meshes.push_back(kept[source.mMeshes[m]]);
    for (unsigned c = 0; c < source.mNumChildren; ++c)
        result.children.push_back(node(*source.mChildren[c], axes, kept, depth + 1));
    return result;
}

bool hasLinearColours(const std::string& path) {
    const std::string ending = path.substr(path.find_last_of('.') + 1);
    return ending.size() > 2 && (ending[0] == 'g' || ending[0] == 'G');
}

}  // namespace

ImportedScene readScene(const std::string& path) {
    Assimp::Importer importer;
    const aiScene& source = load(importer, path);
    const AxisChange axes(source.mRootNode->mTransformation);

    ImportedScene result;
    for (unsigned m = 0; m < source.mNumMaterials; ++m)
        result.materials.push_back(material(*source.mMaterials[m], hasLinearColours(path)));
    std::vector<std::uint32_t> kept(source.mNumMeshes, dropped);
    for (unsigned m = 0; m < source.mNumMeshes; ++m) {
        auto converted = mesh(*source.mMeshes[m], axes);
        if (!converted) continue;
        kept[m] = static_cast<std::uint32_t>(result.meshes.size());
        result.meshes.push_back(std::move(*converted));
    }
    result.root = node(*source.mRootNode, axes, kept, 0);
    return result;
}

}  // namespace Velmar::Host
