// What tests of the model mirror share: a running SDK with a render target, the managers' tables, small models.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "engine/graph/operation_log.h"
#include "plugin/materials/su_material.h"
#include "plugin/proxies/proxy.h"
#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/instance.h"
#include "plugin/sketchup/mesh_material_map.h"
#include "plugin/sketchup/su_manager.h"
#include "plugin/velmar/render_targets.h"
#include "plugin/velmar/vel_manager.h"
#include "support/embedded_ruby.h"

namespace Velmar::TestSupport {

/// A mirror between Init and Cleanup. The engine is never asked to render: the render manager's state is Running from
/// the start, so an update starts nothing.
class MirrorTest : public RubyTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(apiMode_Shared_start("test", false, nullptr, nullptr, nullptr));
        // Each test has an SDK life of its own; the nodes of the last one are gone.
        RenderTargets::Shared().nodes.clear();
        VelmarManager::CreateRenderTarget();
        ASSERT_TRUE(SketchupManager::Init());
    }

    void TearDown() override {
        SketchupManager::FlushGeometryLocal();
        SketchupManager::Cleanup();
        apiMode_Shared_exit(nullptr);
    }

    static Float4x4 shifted(float x, float y = 0, float z = 0) {
        Float4x4 placement;
        placement[12] = x;
        placement[13] = y;
        placement[14] = z;
        return placement;
    }

    static void addInstance(int id, int definition_id, const Float4x4& placement = {}, int material_id = -1,
                            std::vector<Float4x4> placements = {}) {
        SketchupManager::AddInstance(id, {definition_id, material_id, placement}, std::move(placements), false);
    }

    static std::shared_ptr<Definition> addDefinition(int id, std::vector<int> child_ids = {}) {
        EXPECT_TRUE(SketchupManager::AddDefinition(id, {}, std::move(child_ids)));
        return SketchupManager::GetDefinition(id);
    }

    /// A host material with a live node.
    static std::shared_ptr<SuMaterial> addMaterial(int id) {
        const auto material = std::make_shared<SuMaterial>(id);
        material->node = ApiNode::create(NODE_MATERIAL_DIFFUSE, ApiProjectManager::rootNodeGraph(), true);
        material->node->setName(("material" + std::to_string(id)).c_str());
        SketchupManager::SetMaterial(id, material);
        return material;
    }

    /// Streams `faces.size()` triangles, one for each material id; face ids count from 1.
    static bool stream(int definition_id, const std::vector<int>& face_materials, const std::string& settings = "",
                       const std::string& name = "mesh") {
        SketchupManager::SetGeometryStream(definition_id, name);
        GeometryStream& stream = SketchupManager::Geometry();
        for (std::size_t face = 0; face < face_materials.size(); ++face) {
            const int first = static_cast<int>(face);
            for (int corner = 0; corner < 3; ++corner) {
                const auto x = static_cast<float>(face) * 100.0f;
                stream.AddVertex(x + (corner == 1 ? 40.0f : 0.0f), corner == 2 ? 40.0f : 0.0f, 0.0f);
                stream.AddNormal(0, 0, 2, first);
                stream.AddUvw(static_cast<float>(corner), 0, 1);
                const auto number = static_cast<unsigned>(3 * first + corner + 1);
                stream.AddVertexIndex(number);
                stream.AddNormalIndex(number);
                stream.AddUvwIndex(static_cast<int>(number));
            }
            stream.AddFace({first + 1, face_materials[face], first, first + 1});
        }
        return SketchupManager::EvaluateStream(settings);
    }

    static ApiNode* group() { return VelmarManager::GeometryGroup(); }

    /// The operations of a piece of work, as the engine has noted them.
    template <typename Work>
    static std::vector<std::string> operationsOf(Work work) {
        Engine::OperationLog::begin();
        work();
        return Engine::OperationLog::end();
    }

    /// How the operation log writes a type, and an item of a name.
    static std::string typed(NodeType type) { return ApiInfo::getNodeTypeName(type); }
    static std::string typed(NodeType type, const std::string& name) { return typed(type) + ":" + name; }
    static std::string created(NodeType type) {
        const ApiRootNodeGraph* const root = ApiProjectManager::rootNodeGraph();
        return "create " + typed(type) + " " + ApiInfo::getGraphTypeName(GRAPH_ROOT) + ":" + root->name() + " true";
    }

    static unsigned indexOf(const ApiItem& item, AttributeId attribute) {
        for (unsigned i = 0; i < item.attrCount(); ++i) {
            if (item.attrIdIx(i) == attribute) return i;
        }
        ADD_FAILURE() << "the item has no attribute " << attribute;
        return 0;
    }

    static std::vector<int> ints(const ApiItem* item, AttributeId attribute) {
        const ApiArray<int> array = item->getIntArrayIx(indexOf(*item, attribute));
        return {array.data, array.data + array.size};
    }
    static std::vector<Vec3<float>> vectors(const ApiItem* item, AttributeId attribute) {
        const ApiArray<Vec3<float>> array = item->getFloat3ArrayIx(indexOf(*item, attribute));
        return {array.data, array.data + array.size};
    }
    static std::vector<Matrix<float>> matrices(const ApiItem* item, AttributeId attribute = ATTR_TRANSFORMS) {
        const ApiArray<Matrix<float>> array = item->getMatrixArrayIx(indexOf(*item, attribute));
        return {array.data, array.data + array.size};
    }
    static std::vector<std::string> texts(const ApiItem* item, AttributeId attribute) {
        const ApiArray<const char*> array = item->getStringArrayIx(indexOf(*item, attribute));
        return {array.data, array.data + array.size};
    }

    /// The x of each placement of a scatter, metres.
    static std::vector<float> shifts(const ApiItem* scatter) {
        std::vector<float> result;
        for (const Matrix<float>& matrix : matrices(scatter)) result.push_back(matrix.m[0][3]);
        return result;
    }
};

}  // namespace Velmar::TestSupport
