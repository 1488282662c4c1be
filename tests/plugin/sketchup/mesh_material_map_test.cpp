#include "plugin/sketchup/mesh_material_map.h"

#include "plugin/sketchup/mirror_test.h"

namespace Velmar {
namespace {

using MeshMaterialMapTest = TestSupport::MirrorTest;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST_F(MeshMaterialMapTest, NeedsADefinitionThatIsShared) {
    Definition unshared(1);
    EXPECT_THROW(MeshMaterialMap map(unshared), std::bad_weak_ptr);
}

TEST_F(MeshMaterialMapTest, MatricesCrossIntoTheRenderersForm) {
    const auto definition = addDefinition(1);
    MeshMaterialMap map(*definition);
    Float4x4 placement;
    for (std::size_t i = 0; i < 16; ++i) placement[i] = static_cast<float>(i + 1);
    map.AddMatrix(placement);
    EXPECT_THAT(map.Matrices(), ElementsAre(Matrix<float>{{{1, 9, -5, 13}, {3, 11, -7, 15}, {-2, -10, 6, -14}}}));
    EXPECT_EQ(map.Matrices().size(), 1u);
    map.ClearMatrices();
    EXPECT_EQ(map.Matrices().size(), 0u);
}

TEST_F(MeshMaterialMapTest, AddInstanceNeedsAMeshOrAProxy) {
    const auto definition = addDefinition(1);
    definition->AddInstance({}, -1);
    EXPECT_TRUE(definition->mesh_maps.empty());
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    definition->AddInstance({}, -1);
    EXPECT_EQ(definition->mesh_maps.size(), 1u);
}

TEST_F(MeshMaterialMapTest, EachInheritedMaterialHasAMapOfItsOwn) {
    const auto definition = addDefinition(1);
    const auto red = addMaterial(10);
    ASSERT_TRUE(stream(1, {-1}));
    for (int i = 0; i < 10; ++i) definition->AddInstance(shifted(static_cast<float>(i)), i == 4 ? 10 : -1);
    ASSERT_EQ(definition->mesh_maps.size(), 2u);
    EXPECT_EQ(definition->mesh_maps.at(-1)->Matrices().size(), 9u);
    EXPECT_EQ(definition->mesh_maps.at(-1)->Material(), nullptr);
    EXPECT_EQ(definition->mesh_maps.at(10)->Matrices().size(), 1u);
    EXPECT_EQ(definition->mesh_maps.at(10)->Material(), red->node);
    definition->ClearMatrices();
    EXPECT_EQ(definition->mesh_maps.at(-1)->Matrices().size(), 0u);
    EXPECT_EQ(definition->mesh_maps.size(), 2u);
}

TEST_F(MeshMaterialMapTest, AddInstanceBringsTheMaterialsNodeUpToDate) {
    const auto definition = addDefinition(1);
    const auto red = addMaterial(10);
    ASSERT_TRUE(stream(1, {-1}));
    definition->AddInstance({}, 10);
    red->node = ApiNode::create(NODE_MATERIAL_GLOSSY, ApiProjectManager::rootNodeGraph(), true);
    definition->AddInstance({}, 10);
    EXPECT_EQ(definition->mesh_maps.at(10)->Material(), red->node);
    SketchupManager::FlushMaterials();
    definition->AddInstance({}, 10);
    EXPECT_EQ(definition->mesh_maps.at(10)->Material(), nullptr);
    definition->AddInstance({}, 77);
    EXPECT_EQ(definition->mesh_maps.at(77)->Material(), nullptr) << "an unknown material is none";
}

TEST_F(MeshMaterialMapTest, GetGeometryMakesAndFillsTheNodesInOrder) {
    const auto definition = addDefinition(1);
    addMaterial(10);
    ASSERT_TRUE(stream(1, {10, -1}, "", "chair"));
    addMaterial(20);
    definition->AddInstance(shifted(1), 20);
    definition->AddInstance(shifted(2), 20);
    MeshMaterialMap& map = *definition->mesh_maps.at(20);
    ApiNode* scatter = nullptr;
    const auto operations = operationsOf([&] { scatter = map.GetGeometry(); });
    // Slots come in the table's order, the one of no material first.
    const std::string map_name = typed(NODE_MATERIAL_MAP, "Material map");
    const std::string scatter_name = typed(NODE_SCATTER, "Scatter");
    const auto material = [](const char* name) { return " " + typed(NODE_MATERIAL_DIFFUSE, name) + " true false"; };
    EXPECT_THAT(operations,
                ElementsAre(created(NODE_SCATTER), created(NODE_MATERIAL_MAP),
                            "connectTo " + map_name + " 59 " + typed(NODE_MESH, "chair") + " true false",
                            "evaluate " + map_name, "connectToIx " + map_name + " 2" + material("material20"),
                            "connectToIx " + map_name + " 1" + material("material10"),
                            "connectTo " + scatter_name + " 59 " + map_name + " true false",
                            "set " + scatter_name + " 170 [2] true", "set " + scatter_name + " 279 [2] true"));
    EXPECT_EQ(scatter, map.Scatter());
    EXPECT_THAT(shifts(scatter), ElementsAre(1, 2));
    EXPECT_THAT(ints(scatter, ATTR_INSTANCE_IDS), ElementsAre(1, 2));
    EXPECT_EQ(scatter->graphOwner(), ApiProjectManager::rootNodeGraph());
}

TEST_F(MeshMaterialMapTest, InstanceIdsCountFromTheBaseOfTheSource) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    for (int i = 0; i < 3; ++i) definition->AddInstance({}, -1);
    MeshMaterialMap& map = *definition->mesh_maps.at(-1);
    map.Evaluate();
    for (const int base : {100, 7, 100, INT_MAX - 1}) {
        map.MaterialMap()->set(ATTR_INSTANCE_ID_BASE, base, true);
        const auto id = [base](unsigned step) { return static_cast<int>(static_cast<unsigned>(base) + step); };
        EXPECT_THAT(ints(map.GetGeometry(), ATTR_INSTANCE_IDS), ElementsAre(id(1), id(2), id(3)));
    }
    map.ClearMatrices();
    EXPECT_THAT(ints(map.GetGeometry(), ATTR_INSTANCE_IDS), IsEmpty());
    EXPECT_THAT(matrices(map.Scatter()), IsEmpty());
}

TEST_F(MeshMaterialMapTest, OnlyTheSlotWithoutAMaterialDiffersFromMapToMap) {
    const auto definition = addDefinition(1);
    const auto own = addMaterial(10), inherited = addMaterial(20);
    ASSERT_TRUE(stream(1, {10, -1}));
    for (const int material : {-1, 20}) definition->AddInstance({}, material);
    for (const auto& [material_id, map] : definition->mesh_maps) map->GetGeometry();
    const ApiNode* const bare = definition->mesh_maps.at(-1)->MaterialMap();
    const ApiNode* const painted = definition->mesh_maps.at(20)->MaterialMap();
    EXPECT_EQ(bare->connectedNode(PIN_GEOMETRY), definition->mesh);
    EXPECT_EQ(painted->connectedNode(PIN_GEOMETRY), definition->mesh);
    EXPECT_EQ(bare->connectedNodeIx(1), own->node);
    EXPECT_EQ(painted->connectedNodeIx(1), own->node);
    EXPECT_EQ(bare->connectedNodeIx(2), nullptr);
    EXPECT_EQ(painted->connectedNodeIx(2), inherited->node);
}

TEST_F(MeshMaterialMapTest, ASlotWhoseMaterialHasLostItsNodeTakesTheInheritedOne) {
    const auto definition = addDefinition(1);
    const auto own = addMaterial(10), inherited = addMaterial(20);
    ASSERT_TRUE(stream(1, {10}));
    definition->AddInstance({}, 20);
    definition->mesh_maps.at(20)->GetGeometry();
    own->node = nullptr;
    definition->RebuildMeshMaterialMaps();
    EXPECT_EQ(definition->mesh_maps.at(20)->MaterialMap()->connectedNodeIx(1), inherited->node);
}

TEST_F(MeshMaterialMapTest, MapMaterialBeforeTheNodesAreMadeDoesNothing) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    definition->AddInstance({}, -1);
    EXPECT_THAT(operationsOf([&] { definition->RebuildMeshMaterialMaps(); }), IsEmpty());
}

TEST_F(MeshMaterialMapTest, AProxyStandsOnTheScatterItself) {
    const auto definition = addDefinition(1);
    ApiNode* const node = ApiNode::create(NODE_MESH, ApiProjectManager::rootNodeGraph(), true);
    definition->proxy = std::make_shared<Proxy>(node, "a.obj");
    definition->AddInstance(shifted(1), -1);
    MeshMaterialMap& map = *definition->mesh_maps.at(-1);
    node->set(ATTR_INSTANCE_ID_BASE, 40, true);
    const auto operations = operationsOf([&] { map.GetGeometry(); });
    EXPECT_EQ(map.Scatter()->connectedNode(PIN_GEOMETRY), node);
    EXPECT_EQ(map.MaterialMap()->connectedNode(PIN_GEOMETRY), nullptr);
    EXPECT_THAT(ints(map.Scatter(), ATTR_INSTANCE_IDS), ElementsAre(41));
    EXPECT_THAT(operations, Not(Contains(HasSubstr(typed(NODE_MATERIAL_MAP) + ":"))));
}

TEST_F(MeshMaterialMapTest, AProxyWithoutANodeLeavesTheScatterUnconnected) {
    const auto definition = addDefinition(1);
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    definition->AddInstance(shifted(1), -1);
    MeshMaterialMap& map = *definition->mesh_maps.at(-1);
    const auto operations = operationsOf([&] { map.GetGeometry(); });
    EXPECT_EQ(map.Scatter()->connectedNode(PIN_GEOMETRY), nullptr);
    EXPECT_THAT(shifts(map.Scatter()), ElementsAre(1));
    EXPECT_THAT(operations, Not(Contains(HasSubstr(" 279 "))));
}

TEST_F(MeshMaterialMapTest, AMapThatOutlivesItsDefinitionAnswersItsScatter) {
    auto definition = std::make_shared<Definition>(1);
    MeshMaterialMap map(*definition);
    map.AddMatrix({});
    definition.reset();
    ApiNode* const scatter = map.GetGeometry();
    ASSERT_NE(scatter, nullptr);
    EXPECT_EQ(scatter->connectedNode(PIN_GEOMETRY), map.MaterialMap());
    EXPECT_THAT(matrices(scatter), testing::SizeIs(1));
}

TEST_F(MeshMaterialMapTest, ItsNodesGoWithItUnlessAPinOwnsThem) {
    const auto definition = addDefinition(1);
    const ApiNodeGraph* const graph = ApiProjectManager::rootNodeGraph();
    {
        MeshMaterialMap map(*definition);
        map.Evaluate();
        ASSERT_NE(graph->findFirstNode(NODE_SCATTER), nullptr);
        ASSERT_NE(graph->findFirstNode(NODE_MATERIAL_MAP), nullptr);
        ApiNode* const scatter = map.Scatter();
        map.Evaluate();
        EXPECT_EQ(map.Scatter(), scatter) << "made once";
    }
    EXPECT_EQ(graph->findFirstNode(NODE_SCATTER), nullptr);
    EXPECT_EQ(graph->findFirstNode(NODE_MATERIAL_MAP), nullptr);
}

}  // namespace
}  // namespace Velmar
