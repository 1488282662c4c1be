// A model file as plain numbers, in the host's units and axes: inches, Z up. It knows nothing of Ruby and nothing of
// the render engine. Whoever reads a scene owns it. One thread at a time may read.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace Velmar::Host {

struct ImportedMaterial {
    std::string name;
    std::array<double, 3> color = {255.0, 255.0, 255.0};  ///< display values, 0 to 255
    double opacity = 1.0;                                 ///< 0 to 1
    std::string texture;                                  ///< file name as the model gives it; empty for none
};

/// Triangles of one material. Lists are flat, three numbers each; points and normals run side by side.
struct ImportedMesh {
    std::string name;
    std::uint32_t material = 0;
    std::vector<float> points;             ///< inches, Z up
    std::vector<float> normals;            ///< unit length
    std::vector<float> uvs;                ///< u, v, 1; as many as points, or empty
    std::vector<std::uint32_t> triangles;  ///< three 0-based point numbers each
};

/// A place in the hierarchy. The transform has the row-vector form: 16 numbers, translation in elements 12 to 14.
struct ImportedNode {
    std::string name;
    std::array<double, 16> transform = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    std::vector<std::uint32_t> meshes;  ///< numbers in ImportedScene::meshes, of meshes that hold triangles
    std::vector<ImportedNode> children;
};

struct ImportedScene {
    std::vector<ImportedMaterial> materials;
    std::vector<ImportedMesh> meshes;
    ImportedNode root;
};

/// Reads a COLLADA, glTF or OBJ file. Throws std::runtime_error with a one-line reason that does not name the file.
ImportedScene readScene(const std::string& path);

}  // namespace Velmar::Host
