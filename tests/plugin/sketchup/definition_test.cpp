// What a definition writes to its mesh node, and how materials reach its triangles.
#include "plugin/sketchup/definition.h"

#include <json/json.h>

#include <climits>
#include <cmath>

#include "plugin/sketchup/mirror_test.h"
#include "plugin/utils/not_implemented.h"

namespace Velmar {
namespace {

using DefinitionTest = TestSupport::MirrorTest;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DefinitionTest, TheStreamBecomesTheMeshNodesAttributesInOrder) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    const auto operations = operationsOf([] { EXPECT_TRUE(stream(1, {10, -1}, "", "chair")); });
    const std::string chair = typed(NODE_MESH, "chair");
    EXPECT_THAT(operations, ElementsAre(created(NODE_MESH), "setName " + typed(NODE_MESH, "Mesh") + " \"chair\"",
                                        "set " + chair + " 189 [2] false", "set " + chair + " 190 [6] false",
                                        "set " + chair + " 120 [6] false", "set " + chair + " 80 [6] false",
                                        "set " + chair + " 115 [6] false", "set " + chair + " 184 [6] false",
                                        "set " + chair + " 119 [6] false", "set " + chair + " 114 [2] false",
                                        "set " + chair + " 63 [2] false", "evaluate " + chair));
    const ApiNode* const mesh = definition->mesh;
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ(mesh->type(), NODE_MESH);
    EXPECT_EQ(mesh->graphOwner(), ApiProjectManager::rootNodeGraph());
    EXPECT_THAT(ints(mesh, ATTR_VERTICES_PER_POLYGON), ElementsAre(3, 3));
    EXPECT_THAT(ints(mesh, ATTR_VERTEX_INDICES), ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_THAT(ints(mesh, ATTR_NORMAL_INDICES), ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_THAT(ints(mesh, ATTR_UVW_INDICES), ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_THAT(ints(mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(0, 1));
    EXPECT_THAT(texts(mesh, ATTR_MATERIAL_NAMES), ElementsAre("mat_1", "mat_2"));
    EXPECT_EQ(vectors(mesh, ATTR_VERTICES)[1], (Vec3<float>{40 / kInchesPerMetre, 0, 0}));
    EXPECT_EQ(vectors(mesh, ATTR_UVW)[2], (Vec3<float>{2, 0, 1}));
    EXPECT_THAT(vectors(mesh, ATTR_NORMALS), testing::Each(Vec3<float>{0, 1, 0})) << "unit length";
    EXPECT_EQ(definition->num_polys, 2u);
    EXPECT_THAT(definition->face_ids, ElementsAre(1, 2));
}

TEST_F(DefinitionTest, ACornerCountThatIsNoMultipleOfThreeIsCutToWholeTriangles) {
    const auto definition = addDefinition(1);
    SketchupManager::SetGeometryStream(1, "odd");
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    for (int corner = 0; corner < 5; ++corner) SketchupManager::Geometry().AddVertexIndex(1);
    SketchupManager::Geometry().AddFace({1, -1, 0, 2});
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    EXPECT_THAT(ints(definition->mesh, ATTR_VERTICES_PER_POLYGON), ElementsAre(3));
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(0));
    EXPECT_EQ(definition->num_polys, 1u);
}

TEST_F(DefinitionTest, FaceRangesOutsideTheTrianglesFillWhatIsValid) {
    const auto definition = addDefinition(1);
    for (int id = 10; id < 16; ++id) addMaterial(id);
    SketchupManager::SetGeometryStream(1, "ranges");
    GeometryStream& stream = SketchupManager::Geometry();
    stream.AddVertex(0, 0, 0);
    for (int corner = 0; corner < 12; ++corner) stream.AddVertexIndex(1);
    stream.AddFace({1, 10, 2, 2});
    stream.AddFace({2, 11, 3, 1});
    stream.AddFace({3, 12, -5, 1});
    stream.AddFace({4, 13, 3, 1'000'000});
    stream.AddFace({5, 14, INT_MIN, INT_MIN});
    stream.AddFace({6, 15, 4, INT_MAX});
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(2, 0, 0, 3));
    EXPECT_EQ(definition->material_slots.size(), 6u);
    definition->materials_dirty = true;
    EXPECT_TRUE(definition->TryToRebuildFaceMaterials());
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(2, 0, 0, 3));
}

TEST_F(DefinitionTest, FacesWithoutMaterialShareOneSlot) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1, 99, -1}));
    ASSERT_EQ(definition->material_slots.size(), 1u);
    EXPECT_EQ(definition->material_slots.at(nullptr), 0);
    EXPECT_THAT(texts(definition->mesh, ATTR_MATERIAL_NAMES), ElementsAre("mat_1"));
}

TEST_F(DefinitionTest, AMeshWithoutFacesGetsNoNames) {
    const auto definition = addDefinition(1);
    SketchupManager::SetGeometryStream(1, "bare");
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    EXPECT_THAT(texts(definition->mesh, ATTR_MATERIAL_NAMES), IsEmpty());
}

TEST_F(DefinitionTest, EditModeBakesTheEditTransformIntoThePositionsAlone) {
    const auto definition = addDefinition(1);
    Float4x4 edit = shifted(1, 2, 3);
    edit.RotateZ(90);
    SketchupManager::SetEditTransform(edit);
    SketchupManager::SetDefinitionEditMode(1, true);
    SketchupManager::SetGeometryStream(1, "edited");
    SketchupManager::Geometry().AddVertex(kInchesPerMetre, 2 * kInchesPerMetre, 3 * kInchesPerMetre);
    SketchupManager::Geometry().AddNormal(1, 0, 0, 0);
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    // The host's point (1, 2, 3) turned and moved, in renderer axes.
    float host[3];
    for (std::size_t c = 0; c < 3; ++c) host[c] = edit[c] * 1 + edit[4 + c] * 2 + edit[8 + c] * 3 + edit[12 + c];
    const Vec3<float> vertex = vectors(definition->mesh, ATTR_VERTICES).at(0);
    EXPECT_FLOAT_EQ(vertex.x, host[0]);
    EXPECT_FLOAT_EQ(vertex.y, host[2]);
    EXPECT_FLOAT_EQ(vertex.z, -host[1]);
    EXPECT_EQ(vectors(definition->mesh, ATTR_NORMALS).at(0), (Vec3<float>{1, 0, 0}));
}

TEST_F(DefinitionTest, SettingsAreWrittenInOrderBeforeTheMeshAndRestartTheRender) {
    const auto definition = addDefinition(1);
    const auto operations = operationsOf([] {
        EXPECT_TRUE(stream(
            1, {-1}, R"({"smoothing":true,"angle":30.5,"sharpness":2.5,"level":2,"interpolation":1,"scheme":1})"));
    });
    ASSERT_GE(operations.size(), 10u);
    EXPECT_THAT(std::vector(operations.begin() + 1, operations.begin() + 7),
                ElementsAre("set VELMAR_MESH:Mesh 40 true false", "set VELMAR_MESH:Mesh 41 30.5 false",
                            "set VELMAR_MESH:Mesh 163 2.5 false", "set VELMAR_MESH:Mesh 161 2 false",
                            "set VELMAR_MESH:Mesh 153 1 false", "set VELMAR_MESH:Mesh 162 1 false"));
    EXPECT_THAT(operations[7], testing::StartsWith("setRenderTargetNode"));
    EXPECT_EQ(operations[8], "update");
    EXPECT_EQ(operations[9], "setName VELMAR_MESH:Mesh \"mesh\"");
    EXPECT_EQ(definition->mesh->getFloat(ATTR_SMOOTHING_ANGLE), 30.5f);
}

TEST_F(DefinitionTest, EmptySettingsSetAllDefaultsAndNoSettingsSetNothing) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(
        stream(1, {-1}, R"({"smoothing":false,"angle":10,"sharpness":1,"level":1,"interpolation":0,"scheme":1})"));
    const ApiNode* const mesh = definition->mesh;
    EXPECT_TRUE(definition->SetGeometrySettings(Json::Value(Json::objectValue)));
    EXPECT_TRUE(mesh->getBool(ATTR_SMOOTHING));
    EXPECT_EQ(mesh->getFloat(ATTR_SMOOTHING_ANGLE), 89.0f);
    EXPECT_EQ(mesh->getFloat(ATTR_SUBDIVISION_SHARPNESS), 0.0f);
    EXPECT_EQ(mesh->getInt(ATTR_SUBDIVISION_LEVEL), 0);
    EXPECT_EQ(mesh->getInt(ATTR_SUBDIVISION_INTERPOLATION), 2);
    EXPECT_EQ(mesh->getInt(ATTR_SUBDIVISION_SCHEME), 0);

    const auto operations = operationsOf([] { EXPECT_TRUE(stream(1, {-1}, "")); });
    EXPECT_THAT(operations, testing::Not(testing::Contains(testing::HasSubstr(" 40 "))));
}

TEST_F(DefinitionTest, SettingsNeedAValueAMeshAndNoProxy) {
    const auto definition = addDefinition(1);
    const Json::Value settings(Json::objectValue);
    EXPECT_FALSE(definition->SetGeometrySettings(settings)) << "no mesh";
    ASSERT_TRUE(stream(1, {-1}));
    EXPECT_FALSE(definition->SetGeometrySettings(Json::Value()));
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_FALSE(definition->SetGeometrySettings(settings));
    definition->proxy.reset();
    EXPECT_TRUE(definition->SetGeometrySettings(settings));
}

TEST_F(DefinitionTest, AMeshWithoutSmoothingGetsNoNormals) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}, R"({"smoothing":false})"));
    EXPECT_THAT(vectors(definition->mesh, ATTR_NORMALS), IsEmpty());
    EXPECT_THAT(ints(definition->mesh, ATTR_NORMAL_INDICES), IsEmpty());
}

TEST_F(DefinitionTest, ANormalWithoutLengthIsWrittenAsNoNumber) {
    const auto definition = addDefinition(1);
    SketchupManager::SetGeometryStream(1, "flat");
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    SketchupManager::Geometry().AddNormal(0, 0, 0, 0);
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    EXPECT_TRUE(std::isnan(vectors(definition->mesh, ATTR_NORMALS).at(0).x));
}

TEST_F(DefinitionTest, ANewStreamReplacesTheMeshAndForgetsItsSlots) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    ASSERT_TRUE(stream(1, {10, -1}));
    definition->AddInstance({}, -1);
    definition->mesh_maps.at(-1)->GetGeometry();
    ApiNode* const old_mesh = definition->mesh;
    ASSERT_TRUE(stream(1, {-1}));
    EXPECT_NE(definition->mesh, old_mesh);
    EXPECT_EQ(definition->material_slots.size(), 1u);
    EXPECT_EQ(definition->faces.size(), 1u);
    EXPECT_EQ(definition->face_materials.Size(), 1u);
    EXPECT_THAT(definition->face_ids, ElementsAre(1));
    EXPECT_TRUE(definition->mesh_maps.empty());
    EXPECT_EQ(ApiProjectManager::rootNodeGraph()->findFirstNode(NODE_SCATTER), nullptr);
}

TEST_F(DefinitionTest, ClearGeometryKeepsWhatIsNotGeometry) {
    const auto definition = addDefinition(1, {5});
    ASSERT_TRUE(stream(1, {-1, -1}));
    definition->materials_dirty = true;
    definition->edit_mode = true;
    definition->ClearGeometry();
    EXPECT_EQ(definition->num_polys, 2u);
    EXPECT_TRUE(definition->materials_dirty);
    EXPECT_TRUE(definition->edit_mode);
    EXPECT_THAT(definition->child_ids, ElementsAre(5));
    EXPECT_EQ(definition->mesh, nullptr);
    EXPECT_FALSE(definition->TryToRebuildFaceMaterials()) << "there is no mesh to write to";
}

TEST_F(DefinitionTest, ADefinitionThatGoesTakesItsNodesAlong) {
    addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    SketchupManager::GetDefinition(1)->AddInstance({}, -1);
    SketchupManager::GetDefinition(1)->mesh_maps.at(-1)->GetGeometry();
    const ApiNodeGraph* const graph = ApiProjectManager::rootNodeGraph();
    ASSERT_NE(graph->findFirstNode(NODE_MESH), nullptr);
    SketchupManager::FlushGeometryLocal();
    for (const NodeType type : {NODE_MESH, NODE_MATERIAL_MAP, NODE_SCATTER}) {
        EXPECT_EQ(graph->findFirstNode(type), nullptr) << type;
    }
}

// --- Repainting. ---

TEST_F(DefinitionTest, RepaintingWritesTheSlotsAloneAndOldSlotsStay) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    const auto red = addMaterial(11);
    ASSERT_TRUE(stream(1, {10, 10}));
    const auto operations = operationsOf([] { EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 2, 11, true)); });
    EXPECT_THAT(operations, ElementsAre("set VELMAR_MESH:mesh 114 [2] false", "set VELMAR_MESH:mesh 63 [2] false",
                                        "evaluate VELMAR_MESH:mesh"));
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(0, 1));
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 2, 10, true));
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(0, 0));
    EXPECT_THAT(texts(definition->mesh, ATTR_MATERIAL_NAMES), ElementsAre("mat_1", "mat_2"));
    EXPECT_EQ(definition->material_slots.at(red), 1);
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, 11, true));
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(1, 0))
        << "the old slot is used again";
}

TEST_F(DefinitionTest, RepaintingWiresTheMapsAnew) {
    const auto definition = addDefinition(1);
    const auto red = addMaterial(11);
    ASSERT_TRUE(stream(1, {-1}));
    definition->AddInstance({}, -1);
    definition->mesh_maps.at(-1)->GetGeometry();
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, 11, true));
    EXPECT_EQ(definition->mesh_maps.at(-1)->MaterialMap()->connectedNodeIx(2), red->node);
}

TEST_F(DefinitionTest, ManyFacesGoInOneRebuild) {
    const auto definition = addDefinition(1);
    addMaterial(11);
    ASSERT_TRUE(stream(1, {-1, -1, -1}));
    const auto repaint = operationsOf([] {
        for (int face = 1; face <= 3; ++face) EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, face, 11, false));
    });
    EXPECT_THAT(repaint, IsEmpty());
    EXPECT_TRUE(definition->materials_dirty);
    const auto rebuild = operationsOf([] { EXPECT_TRUE(SketchupManager::UpdateAllMaterials(1)); });
    EXPECT_THAT(rebuild, ElementsAre("set VELMAR_MESH:mesh 114 [3] false", "set VELMAR_MESH:mesh 63 [2] false",
                                     "evaluate VELMAR_MESH:mesh"));
    EXPECT_FALSE(definition->materials_dirty);
    EXPECT_THAT(ints(definition->mesh, ATTR_POLYGON_MATERIAL_INDICES), ElementsAre(1, 1, 1));
}

TEST_F(DefinitionTest, PaintingWithTheSameMaterialLeavesNothingToRebuild) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    ASSERT_TRUE(stream(1, {10}));
    EXPECT_THAT(operationsOf([] { EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, 10, true)); }), IsEmpty());
    EXPECT_FALSE(definition->TryToRebuildFaceMaterials());
}

TEST_F(DefinitionTest, PaintingNeedsAKnownFaceAndTreatsUnknownMaterialsAsNone) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    EXPECT_FALSE(SketchupManager::SetFaceMaterial(9, 1, 10, true));
    EXPECT_FALSE(SketchupManager::SetFaceMaterial(1, 1, 10, true)) << "no faces yet";
    ASSERT_TRUE(stream(1, {10}));
    EXPECT_FALSE(SketchupManager::SetFaceMaterial(1, 2, 10, true));
    EXPECT_EQ(definition->face_materials.Size(), 1u);
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, 99, false));
    EXPECT_EQ(definition->GetMaterial(1), nullptr);
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, 10, false));
    EXPECT_NE(definition->GetMaterial(1), nullptr);
    EXPECT_TRUE(SketchupManager::SetFaceMaterial(1, 1, -1, false));
    EXPECT_EQ(definition->GetMaterial(1), nullptr);
}

TEST_F(DefinitionTest, SetMaterialInsertsAndLookingUpDoesNot) {
    const auto definition = addDefinition(1);
    EXPECT_EQ(definition->GetMaterial(5), nullptr);
    EXPECT_EQ(definition->face_materials.Size(), 0u);
    definition->SetMaterial(nullptr, 5);
    EXPECT_FALSE(definition->materials_dirty) << "no material replaced none";
    EXPECT_EQ(definition->face_materials.Size(), 1u);
    definition->SetMaterial(std::make_shared<SuMaterial>(1), 5);
    EXPECT_TRUE(definition->materials_dirty);
}

TEST_F(DefinitionTest, MaterialIdsAreAnsweredForFacesAndInstances) {
    addDefinition(1);
    addMaterial(10);
    ASSERT_TRUE(stream(1, {10, -1}));
    addInstance(5, 1, {}, 10);
    addInstance(6, 1, {}, 99);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 1, true), 10);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 2, true), -1);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 3, true), -1);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 5, false), 10);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 6, false), -1);
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 1, false), -1) << "a definition has no material";
    EXPECT_EQ(SketchupManager::GetMaterialId(9, 1, true), -1);
    EXPECT_EQ(SketchupManager::GetDefinition(1)->face_materials.Size(), 2u) << "asking inserts nothing";
    SketchupManager::GetDefinition(1)->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_EQ(SketchupManager::GetMaterialId(1, 1, true), -1);
}

TEST_F(DefinitionTest, UpdateAllMaterialsRebuildsUnconditionally) {
    const auto definition = addDefinition(1);
    EXPECT_FALSE(SketchupManager::UpdateAllMaterials(9));
    EXPECT_TRUE(SketchupManager::UpdateAllMaterials(1));
    EXPECT_TRUE(definition->materials_dirty) << "there was no mesh to rebuild";
    ASSERT_TRUE(stream(1, {-1}));
    definition->materials_dirty = false;
    EXPECT_THAT(operationsOf([] { SketchupManager::UpdateAllMaterials(1); }), testing::SizeIs(3));
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_FALSE(SketchupManager::UpdateAllMaterials(1));
    EXPECT_FALSE(SketchupManager::SetFaceMaterial(1, 1, -1, true));
    EXPECT_THAT(operationsOf([&] { definition->UpdateMaterials(); }), IsEmpty());
}

// --- Proxies. ---

TEST_F(DefinitionTest, AProxysNodeStandsInForTheMesh) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    ApiNode* const own = definition->mesh;
    ApiNode* const node = ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_EQ(definition->GetMesh(), own) << "a proxy without a node has no mesh to show";
    definition->proxy = std::make_shared<Proxy>(node, "a.obj");
    EXPECT_EQ(definition->GetMesh(), node);
    EXPECT_FALSE(definition->Evaluate());
    definition->ClearGeometry();
    EXPECT_NE(definition->proxy, nullptr);
    definition->ClearProxy();
    EXPECT_EQ(definition->GetMesh(), nullptr) << "the old mesh does not come back";
    EXPECT_EQ(ApiProjectManager::rootNodeGraph()->findFirstNode(NODE_MESH), nullptr);
}

TEST_F(DefinitionTest, ProxyCommandsRefuseUnknownDefinitionsEmptyPathsAndTheSamePath) {
    const auto definition = addDefinition(1);
    EXPECT_FALSE(SketchupManager::SetProxy(9, "a.obj"));
    EXPECT_FALSE(SketchupManager::SetProxy(1, ""));
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_FALSE(SketchupManager::SetProxy(1, "a.obj"));
    EXPECT_FALSE(SketchupManager::UpdateProxy(9));
    EXPECT_TRUE(SketchupManager::UpdateProxy(1)) << "a proxy without a node is not loaded again";
    EXPECT_NE(definition->proxy, nullptr);
    EXPECT_FALSE(SketchupManager::ClearProxy(9));
    EXPECT_TRUE(SketchupManager::ClearProxy(1));
    EXPECT_EQ(definition->proxy, nullptr);
    EXPECT_TRUE(SketchupManager::ClearProxy(1));
    EXPECT_TRUE(SketchupManager::UpdateProxy(1));
}

TEST_F(DefinitionTest, AFileThatCannotBeLoadedYetChangesNothing) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    EXPECT_THROW(SketchupManager::SetProxy(1, "b.obj"), NotImplemented);
    EXPECT_EQ(definition->proxy, nullptr);
    EXPECT_NE(definition->mesh, nullptr);
}

TEST_F(DefinitionTest, AProxySharedByTwoDefinitionsGoesWithTheLast) {
    const auto first = addDefinition(1), second = addDefinition(2);
    ApiNode* const node = ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    first->proxy = second->proxy = std::make_shared<Proxy>(node, "a.obj");
    first->ClearProxy();
    EXPECT_NE(ApiProjectManager::rootNodeGraph()->findFirstNode(NODE_MESH), nullptr);
    second->ClearProxy();
    EXPECT_EQ(ApiProjectManager::rootNodeGraph()->findFirstNode(NODE_MESH), nullptr);
}

}  // namespace
}  // namespace Velmar
