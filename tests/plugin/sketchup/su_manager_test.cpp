// Identity, lookups, the commands on entities, and the stream's way into a definition.
#include "plugin/sketchup/su_manager.h"

#include "plugin/sketchup/mirror_test.h"

namespace Velmar {
namespace {

using SuManager = TestSupport::MirrorTest;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SuManager, InitMakesTheRootAndCleanupDropsIt) {
    ASSERT_NE(SketchupManager::GetRoot(), nullptr);
    EXPECT_EQ(SketchupManager::GetRoot()->id, -2);
    EXPECT_EQ(SketchupManager::GetDefinition(-2), SketchupManager::GetRoot());
    EXPECT_TRUE(SketchupManager::IsOpen());
    addDefinition(1);
    addMaterial(1);
    SketchupManager::Cleanup();
    EXPECT_FALSE(SketchupManager::IsOpen());
    EXPECT_EQ(SketchupManager::GetRoot(), nullptr);
    EXPECT_FALSE(SketchupManager::IsEntityValid(1));
    EXPECT_FALSE(SketchupManager::IsMaterialValid(1));
    EXPECT_EQ(SketchupManager::GetNumDefinitionMaps(), 0u);
}

TEST_F(SuManager, ANewMirrorStreamsIntoTheRoot) {
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    SketchupManager::Geometry().AddNormal(0, 0, 1, 0);
    EXPECT_TRUE(SketchupManager::EvaluateStream(""));
    EXPECT_NE(SketchupManager::GetRoot()->mesh, nullptr);
}

TEST_F(SuManager, CommandsOutsideItsLifeAnswerFalseAndLive) {
    SketchupManager::Cleanup();
    EXPECT_FALSE(SketchupManager::DefineModelEntity(1));
    EXPECT_FALSE(SketchupManager::FlushModelEntities());
    EXPECT_FALSE(SketchupManager::DeleteEntity(-2));
    EXPECT_FALSE(SketchupManager::EvaluateStream(""));
    EXPECT_FALSE(SketchupManager::UpdateAllMaterials(-2));
    SketchupManager::ApplyGeometryLocal();
    SketchupManager::ApplyRootGeometryLocal();
    SketchupManager::FlushGeometryLocal();
}

TEST_F(SuManager, TheSdkMayBeGoneWhenGeometryComes) {
    SketchupManager::FlushGeometryLocal();
    apiMode_Shared_exit(nullptr);
    addDefinition(1);
    addInstance(2, 1);
    SketchupManager::DefineModelEntity(2);
    EXPECT_FALSE(stream(1, {-1}));
    EXPECT_FALSE(stream(-2, {-1}));
    SketchupManager::ApplyGeometryLocal();
    SketchupManager::ApplyRootGeometryLocal();
    EXPECT_TRUE(SketchupManager::IsEntityValid(2));
}

TEST_F(SuManager, LookupsAnswerNothingForUnknownIdsEmptyEntriesAndOtherKinds) {
    addDefinition(1);
    addInstance(2, 1);
    SketchupManager::SetEntity(3, nullptr);
    SketchupManager::SetMaterial(4, nullptr);
    EXPECT_NE(SketchupManager::GetEntity(1), nullptr);
    EXPECT_NE(SketchupManager::GetDefinition(1), nullptr);
    EXPECT_EQ(SketchupManager::GetInstance(1), nullptr);
    EXPECT_EQ(SketchupManager::GetDefinition(2), nullptr);
    EXPECT_NE(SketchupManager::GetInstance(2), nullptr);
    for (const int id : {3, 99}) {
        EXPECT_EQ(SketchupManager::GetEntity(id), nullptr);
        EXPECT_EQ(SketchupManager::GetDefinition(id), nullptr);
        EXPECT_EQ(SketchupManager::GetInstance(id), nullptr);
        EXPECT_FALSE(SketchupManager::IsEntityValid(id));
    }
    for (const int id : {4, 99}) {
        EXPECT_EQ(SketchupManager::GetMaterial(id), nullptr);
        EXPECT_FALSE(SketchupManager::IsMaterialValid(id));
    }
}

TEST_F(SuManager, SetOverwritesAndEraseLeavesTheDefinitionTableAlone) {
    const auto definition = addDefinition(1);
    stream(1, {-1});
    SketchupManager::EraseEntity(1);
    EXPECT_FALSE(SketchupManager::IsEntityValid(1));
    definition->AddInstance({}, -1);
    EXPECT_EQ(SketchupManager::GetNumDefinitionMaps(), 1u);
    SketchupManager::EraseEntity(1);
    const auto other = std::make_shared<Instance>(1);
    SketchupManager::SetEntity(1, other);
    EXPECT_EQ(SketchupManager::GetEntity(1), other);
}

TEST_F(SuManager, AddDefinitionRefusesATakenIdOfAnyKind) {
    EXPECT_TRUE(SketchupManager::AddDefinition(1, {5, 6}, {7}));
    EXPECT_FALSE(SketchupManager::AddDefinition(1, {}, {}));
    EXPECT_THAT(SketchupManager::GetDefinition(1)->other_ids, ElementsAre(5, 6));
    EXPECT_THAT(SketchupManager::GetDefinition(1)->child_ids, ElementsAre(7));
    addInstance(2, 1);
    EXPECT_FALSE(SketchupManager::AddDefinition(2, {}, {}));
    EXPECT_FALSE(SketchupManager::AddDefinition(-2, {}, {}));
    EXPECT_NE(SketchupManager::GetInstance(2), nullptr);
}

TEST_F(SuManager, UpdateDefinitionReportsAChangeOfCountAndReplacesTheContent) {
    EXPECT_FALSE(SketchupManager::UpdateDefinition(1, {}, {}));
    const auto definition = addDefinition(1, {1, 2});
    EXPECT_FALSE(SketchupManager::UpdateDefinition(1, {}, {3, 4}));
    EXPECT_THAT(definition->child_ids, ElementsAre(3, 4));
    EXPECT_TRUE(SketchupManager::UpdateDefinition(1, {9}, {3, 4}));
    EXPECT_THAT(definition->other_ids, ElementsAre(9));
    EXPECT_TRUE(SketchupManager::UpdateDefinition(1, {9}, {3}));
    EXPECT_FALSE(SketchupManager::UpdateDefinition(1, {8}, {5}));
    EXPECT_THAT(definition->other_ids, ElementsAre(8));
    EXPECT_THAT(definition->child_ids, ElementsAre(5));
    addInstance(2, 1);
    EXPECT_FALSE(SketchupManager::UpdateDefinition(2, {1}, {1}));
}

TEST_F(SuManager, DefinitionEditModeNeedsADefinitionWithoutAProxy) {
    const auto definition = addDefinition(1);
    EXPECT_FALSE(SketchupManager::SetDefinitionEditMode(9, true));
    EXPECT_TRUE(SketchupManager::SetDefinitionEditMode(1, true));
    EXPECT_TRUE(definition->edit_mode);
    EXPECT_TRUE(SketchupManager::SetDefinitionEditMode(1, false));
    EXPECT_FALSE(definition->edit_mode);
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_FALSE(SketchupManager::SetDefinitionEditMode(1, true));
    EXPECT_FALSE(definition->edit_mode);
}

TEST_F(SuManager, DeleteTakesAnEntityOutOfTheTableAndOfTheRootsChildren) {
    addDefinition(1, {2});
    addInstance(2, 1);
    for (const int id : {3, 2, 4, 2}) SketchupManager::DefineModelEntity(id);
    EXPECT_TRUE(SketchupManager::DeleteEntity(2));
    EXPECT_FALSE(SketchupManager::DeleteEntity(2));
    EXPECT_FALSE(SketchupManager::IsEntityValid(2));
    EXPECT_THAT(SketchupManager::GetRoot()->child_ids, ElementsAre(3, 4, 2));
    EXPECT_THAT(SketchupManager::GetDefinition(1)->child_ids, ElementsAre(2));
    EXPECT_FALSE(SketchupManager::DeleteEntity(99));
}

TEST_F(SuManager, DeletingTheRootKeepsItAliveAndAStreamPutsItBack) {
    const auto root = SketchupManager::GetRoot();
    root->child_ids = {-2, 1};
    EXPECT_TRUE(SketchupManager::DeleteEntity(-2));
    EXPECT_FALSE(SketchupManager::IsEntityValid(-2));
    EXPECT_EQ(SketchupManager::GetRoot(), root);
    EXPECT_THAT(root->child_ids, ElementsAre(-2, 1));
    SketchupManager::SetGeometryStream(1, "other");
    EXPECT_FALSE(SketchupManager::IsEntityValid(-2));
    SketchupManager::SetGeometryStream(-2, "root");
    EXPECT_EQ(SketchupManager::GetDefinition(-2), root);
}

TEST_F(SuManager, AStreamForTheRootMakesOneWhenThereIsNone) {
    SketchupManager::Cleanup();
    SketchupManager::SetGeometryStream(-2, "root");
    ASSERT_NE(SketchupManager::GetRoot(), nullptr);
    EXPECT_TRUE(SketchupManager::GetRoot()->mesh_maps.empty());
    EXPECT_EQ(SketchupManager::GetDefinition(-2), SketchupManager::GetRoot());
}

TEST_F(SuManager, TheRootsIdMayHoldSomethingElse) {
    addInstance(-2, -2);
    EXPECT_NE(SketchupManager::GetInstance(-2), nullptr);
    SketchupManager::SetGeometryStream(-2, "root");
    EXPECT_NE(SketchupManager::GetInstance(-2), nullptr);
    EXPECT_FALSE(stream(-2, {-1}));
    SketchupManager::DefineModelEntity(-2);
    SketchupManager::ApplyGeometryLocal();
    EXPECT_TRUE(SketchupManager::DeleteEntity(-2));
    EXPECT_TRUE(SketchupManager::AddDefinition(-2, {}, {}));
    EXPECT_TRUE(stream(-2, {-1}));
    EXPECT_NE(SketchupManager::GetDefinition(-2), SketchupManager::GetRoot());
    SketchupManager::ApplyGeometryLocal();
}

TEST_F(SuManager, ModelEntitiesAreTheRootsChildren) {
    EXPECT_TRUE(SketchupManager::DefineModelEntity(5));
    EXPECT_TRUE(SketchupManager::DefineModelEntity(5));
    EXPECT_THAT(SketchupManager::GetRoot()->child_ids, ElementsAre(5, 5));
    EXPECT_TRUE(SketchupManager::FlushModelEntities());
    EXPECT_THAT(SketchupManager::GetRoot()->child_ids, IsEmpty());
}

TEST_F(SuManager, AnInstanceReplacesWhateverStandsUnderItsId) {
    addDefinition(1);
    addInstance(1, 7, shifted(2), 8, {shifted(3)});
    const auto instance = SketchupManager::GetInstance(1);
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance->definition_id, 7);
    EXPECT_EQ(instance->material_id, 8);
    EXPECT_EQ(instance->transform, shifted(2));
    EXPECT_THAT(instance->Matrices(), ElementsAre(shifted(3)));
    EXPECT_TRUE(instance->visible);
    EXPECT_FALSE(instance->edit_mode);
}

TEST_F(SuManager, AnInstanceAddedInEditModeTakesTheEditTransform) {
    SketchupManager::SetEditTransform(shifted(4));
    SketchupManager::AddInstance(1, {7, -1, {}}, {}, true);
    const auto instance = SketchupManager::GetInstance(1);
    EXPECT_TRUE(instance->edit_mode);
    EXPECT_EQ(instance->GetEditTransform(), shifted(4));
    SketchupManager::ClearEditList();
    EXPECT_FALSE(instance->edit_mode) << "it stood on the edit list";
    EXPECT_EQ(instance->GetEditTransform(), shifted(4));
    EXPECT_EQ(SketchupManager::GetEditTransform(), shifted(4));
}

TEST_F(SuManager, UpdateInstanceAddsAnUnknownOneVisible) {
    EXPECT_TRUE(SketchupManager::UpdateInstance(1, {7, 8, shifted(2)}, {shifted(3)}, false));
    const auto instance = SketchupManager::GetInstance(1);
    EXPECT_TRUE(instance->visible);
    EXPECT_THAT(instance->Matrices(), ElementsAre(shifted(3)));
}

TEST_F(SuManager, UpdateInstanceReportsEachKindOfChange) {
    SketchupManager::Placing placing{7, 8, shifted(2)};
    addInstance(1, 7, shifted(2), 8);
    const auto instance = SketchupManager::GetInstance(1);
    const auto update = [&](bool visible) {
        return SketchupManager::UpdateInstance(1, placing, {shifted(9)}, visible);
    };
    EXPECT_FALSE(update(true));
    EXPECT_FALSE(instance->HasPlacements()) << "placements are read for a new instance alone";
    placing.material_id = 9;
    EXPECT_TRUE(update(true));
    EXPECT_FALSE(update(true));
    placing.definition_id = 6;
    EXPECT_TRUE(update(true));
    placing.transform = shifted(3);
    EXPECT_TRUE(update(true));
    EXPECT_TRUE(update(false));
    EXPECT_FALSE(update(false));
    EXPECT_EQ(instance->material_id, 9);
    EXPECT_EQ(instance->definition_id, 6);
    EXPECT_EQ(instance->transform, shifted(3));
    EXPECT_FALSE(instance->visible);
}

TEST_F(SuManager, UpdateInstanceRefusesADefinition) {
    addDefinition(1);
    EXPECT_FALSE(SketchupManager::UpdateInstance(1, {7, 8, {}}, {}, true));
}

TEST_F(SuManager, UpdateInstanceTakesTheEditTransformInEditModeOnly) {
    addInstance(1, 7);
    SketchupManager::SetEditTransform(shifted(4));
    EXPECT_FALSE(SketchupManager::UpdateInstance(1, {7, -1, {}}, {}, true));
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    EXPECT_TRUE(SketchupManager::UpdateInstance(1, {7, -1, {}}, {}, true));
    EXPECT_EQ(SketchupManager::GetInstance(1)->GetEditTransform(), shifted(4));
    EXPECT_FALSE(SketchupManager::UpdateInstance(1, {7, -1, {}}, {}, true));
    // A scene evaluation folds it in, so that the next update finds a difference again.
    SketchupManager::GetInstance(1)->UpdateTransform();
    EXPECT_TRUE(SketchupManager::UpdateInstance(1, {7, -1, shifted(4)}, {}, true));
}

TEST_F(SuManager, EditModeTwiceLeavesTwoEntriesAndDiscardTakesOne) {
    addInstance(1, 7);
    const auto instance = SketchupManager::GetInstance(1);
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    SketchupManager::DiscardEntity(instance);
    SketchupManager::ClearEditList();
    EXPECT_FALSE(instance->edit_mode) << "the second entry was still there";

    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    SketchupManager::DiscardEntity(instance);
    SketchupManager::DiscardEntity(instance);
    SketchupManager::DiscardEntity(instance);
    SketchupManager::DiscardEntity(nullptr);
    SketchupManager::DiscardEntity(addDefinition(5));
    SketchupManager::ClearEditList();
    EXPECT_TRUE(instance->edit_mode) << "no entry was left";
}

TEST_F(SuManager, LeavingEditModeLeavesTheInstanceOnTheList) {
    addInstance(1, 7);
    const auto instance = SketchupManager::GetInstance(1);
    EXPECT_FALSE(SketchupManager::SetInstanceEditMode(9, true));
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, true));
    EXPECT_TRUE(SketchupManager::SetInstanceEditMode(1, false));
    EXPECT_FALSE(instance->edit_mode);
    instance->edit_mode = true;
    SketchupManager::ClearEditList();
    EXPECT_FALSE(instance->edit_mode);
    addDefinition(2);
    EXPECT_FALSE(SketchupManager::SetInstanceEditMode(2, true));
}

TEST_F(SuManager, VisibilityReportsAChange) {
    addInstance(1, 7);
    EXPECT_FALSE(SketchupManager::SetInstanceVisibility(1, true));
    EXPECT_TRUE(SketchupManager::SetInstanceVisibility(1, false));
    EXPECT_FALSE(SketchupManager::SetInstanceVisibility(1, false));
    EXPECT_FALSE(SketchupManager::SetInstanceVisibility(9, false));
}

// --- The stream. ---

TEST_F(SuManager, AStreamForAnUnknownDefinitionIsClearedAndRefused) {
    EXPECT_FALSE(stream(42, {-1, -1}));
    EXPECT_TRUE(SketchupManager::Geometry().IsEmpty());
    EXPECT_TRUE(SketchupManager::Geometry().faces.empty());
}

TEST_F(SuManager, AStreamForAnInstanceIsRefused) {
    addInstance(1, 7);
    EXPECT_FALSE(stream(1, {-1}));
}

TEST_F(SuManager, AStreamForAProxiedDefinitionIsRefusedAndLeavesItAlone) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    definition->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    EXPECT_FALSE(stream(1, {-1, -1}));
    EXPECT_NE(definition->mesh, nullptr);
    EXPECT_EQ(definition->faces.size(), 1u);
}

TEST_F(SuManager, AnEmptyStreamEmptiesItsDefinition) {
    const auto definition = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    ApiNode* const mesh = definition->mesh;
    const auto operations = operationsOf([] { EXPECT_FALSE(stream(1, {})); });
    EXPECT_THAT(operations, ElementsAre("destroy VELMAR_MESH:mesh"));
    EXPECT_EQ(definition->mesh, nullptr);
    EXPECT_STREQ(mesh->name(), "");
}

TEST_F(SuManager, TheRootsMeshHasItsOnePlacementAtOnce) {
    ASSERT_TRUE(stream(-2, {-1}));
    const auto root = SketchupManager::GetRoot();
    ASSERT_EQ(root->mesh_maps.size(), 1u);
    EXPECT_THAT(root->mesh_maps.at(-1)->Matrices(), ElementsAre(Float4x4().ToRenderer()));
    const auto other = addDefinition(1);
    ASSERT_TRUE(stream(1, {-1}));
    EXPECT_TRUE(other->mesh_maps.empty());
}

TEST_F(SuManager, WhatAnAbandonedStreamLeftIsCarriedIntoTheNext) {
    addDefinition(1);
    SketchupManager::SetGeometryStream(1, "first");
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    SketchupManager::SetGeometryStream(1, "second");
    EXPECT_FALSE(SketchupManager::Geometry().IsEmpty());
    EXPECT_EQ(SketchupManager::Geometry().name, "second");
}

TEST_F(SuManager, BadSettingsTextCountsAsNone) {
    addDefinition(1);
    EXPECT_TRUE(stream(1, {-1}, "{ this is no JSON"));
    EXPECT_TRUE(stream(1, {-1}, "null"));
}

TEST_F(SuManager, SettingsOfTheWrongKindThrowAndLeaveTheStreamCleared) {
    addDefinition(1);
    for (const char* settings : {"[1]", "\"text\"", R"({"level":"many"})", R"({"level":1e300})"}) {
        EXPECT_THROW(stream(1, {-1}, settings), std::exception) << settings;
        EXPECT_TRUE(SketchupManager::Geometry().IsEmpty());
    }
    EXPECT_TRUE(stream(1, {-1}, "{}"));
    EXPECT_EQ(SketchupManager::GetDefinition(1)->faces.size(), 1u);
}

// --- Flushes. ---

TEST_F(SuManager, AFlushTakesTheMirrorBackToTheStart) {
    const auto definition = addDefinition(1, {2});
    addMaterial(1);
    addInstance(2, 1);
    SketchupManager::SetInstanceEditMode(2, true);
    const auto instance = SketchupManager::GetInstance(2);
    instance->SetEditTransform(shifted(1));
    SketchupManager::SetEditTransform(shifted(2));
    SketchupManager::DefineModelEntity(2);
    ASSERT_TRUE(stream(1, {-1}));
    ASSERT_TRUE(stream(-2, {-1}));
    SketchupManager::ApplyGeometryLocal();
    SketchupManager::Geometry().AddVertex(0, 0, 0);
    const auto root = SketchupManager::GetRoot();

    SketchupManager::FlushGeometryLocal();
    EXPECT_TRUE(SketchupManager::Geometry().IsEmpty());
    EXPECT_FALSE(instance->edit_mode);
    EXPECT_EQ(instance->GetEditTransform(), Float4x4());
    EXPECT_EQ(SketchupManager::GetEditTransform(), Float4x4());
    EXPECT_EQ(SketchupManager::GetRoot(), root);
    EXPECT_EQ(root->mesh, nullptr);
    EXPECT_TRUE(root->mesh_maps.empty());
    for (const int id : {-2, 1, 2}) EXPECT_FALSE(SketchupManager::IsEntityValid(id)) << id;
    EXPECT_FALSE(SketchupManager::IsMaterialValid(1));
    EXPECT_EQ(VelmarManager::GeometryGroup(), nullptr);
    EXPECT_EQ(definition.use_count(), 1);
    EXPECT_FALSE(SketchupManager::EvaluateStream("")) << "the stream has no target any more";
    SketchupManager::SetGeometryStream(-2, "root");
    EXPECT_EQ(SketchupManager::GetDefinition(-2), root);
}

TEST_F(SuManager, EntitiesAndMaterialsCanBeFlushedAlone) {
    addDefinition(1);
    addMaterial(1);
    SketchupManager::FlushEntities();
    EXPECT_FALSE(SketchupManager::IsEntityValid(1));
    EXPECT_TRUE(SketchupManager::IsMaterialValid(1));
    SketchupManager::FlushMaterials();
    EXPECT_FALSE(SketchupManager::IsMaterialValid(1));
}

TEST_F(SuManager, ADiscardedRenderMaterialTakesItsHostMaterialsAlong) {
    const auto first = addMaterial(1);
    const auto second = addMaterial(2);
    const auto third = addMaterial(3);
    third->node = first->node;
    SketchupManager::SetMaterial(4, nullptr);
    SketchupManager::DiscardVelmarMaterial(first->node);
    EXPECT_EQ(first->node, nullptr);
    EXPECT_FALSE(SketchupManager::IsMaterialValid(1));
    EXPECT_TRUE(SketchupManager::IsMaterialValid(2));
    EXPECT_FALSE(SketchupManager::IsMaterialValid(3));
}

TEST_F(SuManager, AReplacedRenderMaterialIsFollowed) {
    const auto first = addMaterial(1);
    const auto second = addMaterial(2);
    ApiNode* const kept = second->node;
    ApiNode* const fresh = ApiNode::create(NODE_MATERIAL_GLOSSY, ApiProjectManager::rootNodeGraph(), true);
    SketchupManager::ReplaceVelmarMaterial(first->node, fresh);
    EXPECT_EQ(first->node, fresh);
    EXPECT_EQ(second->node, kept);
}

}  // namespace
}  // namespace Velmar
