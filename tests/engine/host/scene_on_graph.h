// A small scene in the node graph, made with the SDK's calls alone, as a plug-in makes it.
#pragma once

#include <velmar/velmar.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/host/engine_host.h"

namespace Velmar::Engine {

inline Matrix<float> movedBy(float x, float y, float z) {
    return {{{1, 0, 0, x}, {0, 1, 0, y}, {0, 0, 1, z}}};
}

/// A render target with a geometry group, in which one scatter places one box.
struct SceneOnGraph {
    ApiNode* target;
    ApiNode* group;
    ApiNode* mesh;
    ApiNode* scatter;

    SceneOnGraph();
    void place(const std::vector<Matrix<float>>& places) const;
    void setFilm(int width, int height) const;
    /// Makes the camera node when there is none, and looks from a point to the origin.
    ApiNode* lookFrom(Vec3<float> position) const;
};

/// The library runs while a test of this kind does.
class EngineTest : public testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;
    /// Takes the pending changes, renders `samples` and waits for them.
    static void render(int samples);
    /// A path in the process's home folder.
    static std::string file(const std::string& name);
};

/// What the file holds; empty when it cannot be read.
std::string contentsOfFile(const std::string& path);

}  // namespace Velmar::Engine
