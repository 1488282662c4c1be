// From the tables to the scene graph: the walk, the wiring of the geometry group, and what is dropped.
#include <glog/logging.h>
#include <velmar/render.h>

#include <climits>
#include <cmath>
#include <map>
#include <random>

#include "plugin/sketchup/mirror_test.h"
#include "plugin/sketchup/scene_walk.h"

namespace Velmar {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class SceneEvaluation : public TestSupport::MirrorTest {
protected:
    /// Ids of the root's children.
    static void setModel(std::vector<int> ids) { SketchupManager::GetRoot()->child_ids = std::move(ids); }

    /// Walks the model and answers the placements of a definition's map, by the x of each.
    static std::vector<float> walkedShifts(int definition_id, int material_id = -1) {
        SketchupManager::ClearDefinitionsMatrices();
        SketchupManager::EvaluateEntities();
        std::vector<float> result;
        const auto definition = SketchupManager::GetDefinition(definition_id);
        const auto found = definition->mesh_maps.find(material_id);
        if (found == definition->mesh_maps.end()) return result;
        for (const Matrix<float>& matrix : found->second->Matrices()) result.push_back(matrix.m[0][3]);
        return result;
    }

    static ApiNode* scatterOnPin(unsigned pin) { return group()->connectedNodeIx(pin); }

    /// A definition with a mesh of one triangle.
    static std::shared_ptr<Definition> addMeshed(int id, std::vector<int> child_ids = {},
                                                 const std::string& name = "mesh") {
        const auto definition = addDefinition(id, std::move(child_ids));
        EXPECT_TRUE(stream(id, {-1}, "", name));
        return definition;
    }
};

/// Counts the log lines that hold a text.
class LineCounter : public google::LogSink {
public:
    explicit LineCounter(std::string text) : text_(std::move(text)) { google::AddLogSink(this); }
    ~LineCounter() override { google::RemoveLogSink(this); }
    void send(google::LogSeverity, const char*, const char*, int, const struct ::tm*, const char* message,
              std::size_t length) override {
        if (std::string(message, length).find(text_) != std::string::npos) ++count;
    }
    int count = 0;

private:
    std::string text_;
};

// --- The walk. ---

TEST_F(SceneEvaluation, NestedPlacementsAreComposedFromTheInside) {
    addMeshed(1);
    Float4x4 turned;
    turned.RotateZ(-90);
    addInstance(10, 1, shifted(2));
    addDefinition(2, {10});
    addInstance(11, 2, turned * shifted(100));
    setModel({11});
    SketchupManager::EvaluateEntities();
    const Matrix<float> world = SketchupManager::GetDefinition(1)->mesh_maps.at(-1)->Matrices()[0];
    EXPECT_EQ(world, (shifted(2) * (turned * shifted(100))).ToRenderer());
    EXPECT_NEAR(world.m[0][3], 100.0f, 1e-4f);
    EXPECT_NEAR(world.m[2][3], -2.0f, 1e-4f) << "the host's y";
}

TEST_F(SceneEvaluation, TheWalkIsDepthFirstInTheOrderOfTheChildren) {
    addMeshed(1);
    for (int i = 0; i < 2; ++i) addInstance(10 + i, 1, shifted(static_cast<float>(i)));
    addMeshed(2, {11, 10});
    addInstance(20, 2, shifted(100));
    addInstance(21, 1, shifted(5));
    addInstance(22, 2, shifted(200));
    setModel({20, 21, 22});
    EXPECT_THAT(walkedShifts(1), ElementsAre(101, 100, 5, 201, 200));
    EXPECT_THAT(walkedShifts(2), ElementsAre(100, 200));
}

TEST_F(SceneEvaluation, PlacementsStandInForTheTransformAndAreNotStoppedByTheFlag) {
    addMeshed(1);
    addInstance(10, 1, shifted(9), -1, {shifted(1), shifted(2)});
    addInstance(11, 1, shifted(3));
    setModel({10, 11});
    EXPECT_THAT(walkedShifts(1), ElementsAre(1, 2, 3));
    SketchupManager::SetInstanceVisibility(10, false);
    SketchupManager::SetInstanceVisibility(11, false);
    EXPECT_THAT(walkedShifts(1), ElementsAre(1, 2));
}

TEST_F(SceneEvaluation, EachPlacementBringsItsChildren) {
    addMeshed(1);
    addInstance(10, 1, shifted(1));
    addDefinition(2, {10});
    addInstance(20, 2, {}, -1, {shifted(100), shifted(200)});
    setModel({20});
    EXPECT_THAT(walkedShifts(1), ElementsAre(101, 201));
}

TEST_F(SceneEvaluation, TheNearerMaterialWins) {
    addMeshed(1);
    addInstance(10, 1, shifted(1));
    addInstance(11, 1, shifted(2), 7);
    addDefinition(2, {10, 11});
    addInstance(20, 2, {}, 8);
    addDefinition(3, {20});
    addInstance(30, 3, {}, 9);
    setModel({30});
    EXPECT_THAT(walkedShifts(1, 8), ElementsAre(1));
    EXPECT_THAT(walkedShifts(1, 7), ElementsAre(2));
    EXPECT_FALSE(SketchupManager::GetDefinition(1)->mesh_maps.contains(9));
    EXPECT_FALSE(SketchupManager::GetDefinition(1)->mesh_maps.contains(-1));
}

TEST_F(SceneEvaluation, BranchesThatLeadNowhereEndQuietly) {
    addMeshed(1);
    addInstance(10, 99);
    addInstance(11, 1, shifted(1));
    addInstance(12, 11);
    setModel({10, 77, 1, -2, 12, 11});
    EXPECT_THAT(walkedShifts(1), ElementsAre(1));
    SketchupManager::EvaluateEntity(*SketchupManager::GetDefinition(1), {}, -1);
    SketchupManager::EvaluateEntity(*SketchupManager::GetInstance(11), shifted(10), -1);
    EXPECT_EQ(SketchupManager::GetDefinition(1)->mesh_maps.at(-1)->Matrices().size(), 2u);
}

TEST_F(SceneEvaluation, ChildrenOfAProxiedDefinitionAreNotWalked) {
    addMeshed(1);
    addInstance(10, 1);
    const auto outer = addDefinition(2, {10});
    outer->proxy = std::make_shared<Proxy>(nullptr, "a.obj");
    addInstance(20, 2, shifted(4));
    setModel({20});
    EXPECT_THAT(walkedShifts(1), IsEmpty());
    EXPECT_THAT(walkedShifts(2), ElementsAre(4));
}

TEST_F(SceneEvaluation, EditTransformsAreFoldedInOnce) {
    addMeshed(1);
    addInstance(10, 1, shifted(1));
    SketchupManager::SetInstanceEditMode(10, true);
    SketchupManager::SetEditTransform(shifted(5));
    SketchupManager::UpdateInstance(10, {1, -1, shifted(1)}, {}, true);
    setModel({10, 10});
    EXPECT_THAT(walkedShifts(1), ElementsAre(6, 6));
    EXPECT_THAT(walkedShifts(1), ElementsAre(6, 6));
}

TEST_F(SceneEvaluation, ADefinitionInsideItselfIsNotEnteredAgain) {
    LineCounter lines("contains itself");
    addMeshed(1, {10, 11});
    addInstance(10, 1, shifted(10));
    addMeshed(2, {12});
    addInstance(11, 2, shifted(1));
    addInstance(12, 1, shifted(100));
    addInstance(13, -2, shifted(1000));
    addInstance(20, 1);
    setModel({20, 13, 20});
    EXPECT_THAT(walkedShifts(1), ElementsAre(0, 0));
    EXPECT_THAT(walkedShifts(2), ElementsAre(1, 1));
    EXPECT_EQ(lines.count, 2) << "one for each walk";
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(lines.count, 3);
    EXPECT_TRUE(SketchupManager::IsEntityValid(13)) << "it was reached";
    EXPECT_FALSE(SketchupManager::GetDefinition(1)->on_path);
    EXPECT_FALSE(SketchupManager::GetRoot()->on_path);
}

TEST_F(SceneEvaluation, MoreChildrenThanOnePlanHoldsAreAllPlaced) {
    addMeshed(1);
    constexpr int count = 5000;
    std::vector<int> children;
    for (int i = 0; i < count; ++i) {
        addInstance(100 + i, i % 700 == 3 ? 3 : 1, shifted(static_cast<float>(i)));
        children.push_back(100 + i);
    }
    addMeshed(3, {50});
    addInstance(50, 1, shifted(0.5f));
    addDefinition(2, children);
    addInstance(10, 2);
    addInstance(11, 2, shifted(10'000));
    setModel({10, 11});
    std::vector<float> expected;
    for (const float group : {0.0f, 10'000.0f}) {
        for (int i = 0; i < count; ++i) {
            expected.push_back(group + static_cast<float>(i) + (i % 700 == 3 ? 0.5f : 0.0f));
        }
    }
    EXPECT_EQ(walkedShifts(1), expected);
    EXPECT_EQ(walkedShifts(1), expected) << "a second walk";
    EXPECT_THAT(walkedShifts(3), testing::SizeIs(2 * 8));
}

TEST_F(SceneEvaluation, AModelMayBeNestedVeryDeep) {
    constexpr int depth = 100'000;
    addMeshed(1);
    addInstance(1'000'000, 1, shifted(1));
    for (int level = 0; level < depth; ++level) {
        addDefinition(10 + level, {1'000'000 + level});
        addInstance(1'000'001 + level, 10 + level);
    }
    setModel({1'000'000 + depth});
    EXPECT_THAT(walkedShifts(1), ElementsAre(1));
}

TEST_F(SceneEvaluation, AWalkThatIsCutShortLeavesNoDefinitionMarked) {
    const auto outer = addDefinition(2, {10});
    addInstance(10, 1);
    addInstance(20, 2);
    {
        EntityTable entities;
        entities.Set(2, outer);
        SceneWalk walk(entities, 1);
        walk.Visit(*SketchupManager::GetInstance(20), {}, -1);
    }
    EXPECT_FALSE(outer->on_path);
}

/// The walk in the plainest words, to compare with.
void PlainWalk(const Instance& instance, const Float4x4& parent, int inherited,
               std::map<std::pair<int, int>, std::vector<Matrix<float>>>& placed) {
    if (!instance.visible && !instance.HasPlacements()) return;
    const auto definition = SketchupManager::GetDefinition(instance.definition_id);
    if (definition == nullptr) return;
    const int material = instance.material_id != -1 ? instance.material_id : inherited;
    for (const Float4x4& local : instance.Matrices()) {
        const Float4x4 world = local * parent;
        if (definition->mesh != nullptr) placed[{definition->id, material}].push_back(world.ToRenderer());
        for (const int id : definition->child_ids) {
            if (const auto child = SketchupManager::GetInstance(id)) PlainWalk(*child, world, material, placed);
        }
    }
}

TEST_F(SceneEvaluation, AgreesWithThePlainWalkOnRandomModels) {
    std::mt19937 random(11);
    const auto pick = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (int round = 0; round < 30; ++round) {
        SketchupManager::FlushGeometryLocal();
        SketchupManager::SetGeometryStream(-2, "root");
        constexpr int definitions = 6;
        // Definitions hold instances of those with a smaller number only, so that there is no cycle.
        int next_instance = 100;
        for (int d = 0; d < definitions; ++d) {
            std::vector<int> children;
            for (int child = 0; d > 0 && child < pick(5); ++child) {
                Float4x4 placement = shifted(static_cast<float>(pick(10)), static_cast<float>(pick(10)));
                placement.RotateX(static_cast<float>(pick(360)));
                std::vector<Float4x4> placements(static_cast<std::size_t>(pick(4) == 0 ? 2 : 0), shifted(3));
                addInstance(next_instance, pick(d), placement, pick(3) == 0 ? pick(3) : -1, placements);
                if (pick(5) == 0) SketchupManager::SetInstanceVisibility(next_instance, false);
                children.push_back(next_instance++);
            }
            addDefinition(d, children);
            if (pick(3) == 0) continue;
            ASSERT_TRUE(stream(d, {-1}));
        }
        std::vector<int> model;
        for (int i = 0; i < 4; ++i) {
            addInstance(next_instance, definitions - 1 - pick(2), shifted(static_cast<float>(i)), pick(3) - 1);
            model.push_back(next_instance++);
        }
        setModel(model);
        std::map<std::pair<int, int>, std::vector<Matrix<float>>> expected;
        for (const int id : model) {
            const auto instance = SketchupManager::GetInstance(id);
            PlainWalk(*instance, {}, instance->material_id, expected);
        }
        SketchupManager::EvaluateEntities();
        std::map<std::pair<int, int>, std::vector<Matrix<float>>> placed;
        for (int d = 0; d < definitions; ++d) {
            for (const auto& [material, map] : SketchupManager::GetDefinition(d)->mesh_maps) {
                placed[{d, material}].assign(map->Matrices().begin(), map->Matrices().end());
            }
        }
        ASSERT_EQ(placed, expected) << "round " << round;
    }
}

// --- The geometry group. ---

TEST_F(SceneEvaluation, ApplyGeometryCallsTheSdkInOrder) {
    addMeshed(1, {}, "chair");
    addMeshed(2, {}, "table");
    addMaterial(10);
    ASSERT_TRUE(stream(-2, {-1}, "", "root"));
    addInstance(20, 1, shifted(1));
    addInstance(21, 1, shifted(2), 10);
    addInstance(22, 2, shifted(3));
    setModel({20, 21, 22});

    const std::string map = typed(NODE_MATERIAL_MAP, "Material map"), scatter = typed(NODE_SCATTER, "Scatter");
    const std::string group_name = typed(NODE_GEOMETRY_GROUP, "Geometry group");
    const std::string target = typed(NODE_RENDER_TARGET, "Default View");
    std::vector<std::string> expected = {created(NODE_GEOMETRY_GROUP),
                                         "connectTo " + target + " 111 " + group_name + " true false",
                                         "set " + group_name + " 113 4 true"};
    const auto expect_map = [&](const std::string& mesh, const std::string& material, const std::string& pin) {
        expected.insert(expected.end(), {created(NODE_SCATTER), created(NODE_MATERIAL_MAP),
                                         "connectTo " + map + " 59 " + typed(NODE_MESH, mesh) + " true false",
                                         "evaluate " + map, "connectToIx " + map + " 1 " + material + " true false",
                                         "connectTo " + scatter + " 59 " + map + " true false",
                                         "set " + scatter + " 170 [1] true", "set " + scatter + " 279 [1] true",
                                         "connectToIx " + group_name + " " + pin + " " + scatter + " true false"});
    };
    expect_map("root", "null", "0");
    expect_map("chair", "null", "1");
    expect_map("chair", typed(NODE_MATERIAL_DIFFUSE, "material10"), "2");
    expect_map("table", "null", "3");
    expected.insert(expected.end(), {"setRenderTargetNode " + target, "update"});

    EXPECT_EQ(operationsOf(&SketchupManager::ApplyGeometryLocal), expected);
    ASSERT_EQ(group()->pinCount(), 4u);
    EXPECT_THAT(shifts(scatterOnPin(0)), ElementsAre(0));
    EXPECT_THAT(shifts(scatterOnPin(1)), ElementsAre(1));
    EXPECT_THAT(shifts(scatterOnPin(2)), ElementsAre(2));
    EXPECT_THAT(shifts(scatterOnPin(3)), ElementsAre(3));
    EXPECT_EQ(VelmarManager::RenderTarget()->connectedNode(PIN_RENDER_GEOMETRY), group());
}

TEST_F(SceneEvaluation, AMovedInstanceRewritesOneListAndKeepsTheNodes) {
    addMeshed(1, {}, "chair");
    addMeshed(2, {}, "table");
    addInstance(20, 1, shifted(1));
    addInstance(21, 2, shifted(2));
    setModel({20, 21});
    SketchupManager::ApplyGeometryLocal();
    const ApiNode* const chair = scatterOnPin(1);
    const ApiNode* const table = scatterOnPin(2);
    SketchupManager::UpdateInstance(20, {1, -1, shifted(7)}, {}, true);
    const auto operations = operationsOf(&SketchupManager::ApplyGeometryLocal);
    EXPECT_EQ(scatterOnPin(1), chair);
    EXPECT_EQ(scatterOnPin(2), table);
    EXPECT_THAT(shifts(chair), ElementsAre(7));
    EXPECT_THAT(operations, Not(Contains(StartsWith("create"))));
    EXPECT_THAT(operations, Not(Contains(HasSubstr("set " + typed(NODE_MESH)))));
}

TEST_F(SceneEvaluation, MatricesExistOnlyDuringAnApplyButForTheRoots) {
    const auto definition = addMeshed(1);
    ASSERT_TRUE(stream(-2, {-1}));
    addInstance(20, 1);
    setModel({20});
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(definition->mesh_maps.at(-1)->Matrices().size(), 0u);
    EXPECT_EQ(SketchupManager::GetRoot()->mesh_maps.at(-1)->Matrices().size(), 1u);
    SketchupManager::ApplyGeometryLocal();
    EXPECT_THAT(matrices(scatterOnPin(0)), testing::SizeIs(1));
    EXPECT_THAT(matrices(scatterOnPin(1)), testing::SizeIs(1));
}

TEST_F(SceneEvaluation, AnEmptyModelHasOneEmptyPin) {
    SketchupManager::ApplyGeometryLocal();
    ASSERT_NE(group(), nullptr);
    EXPECT_EQ(group()->getInt(ATTR_PIN_COUNT), 1);
    EXPECT_EQ(scatterOnPin(0), nullptr);
}

TEST_F(SceneEvaluation, ARootWithoutAMeshLeavesItsPinEmptyAndItsChildrenRender) {
    addMeshed(1);
    addInstance(20, 1, shifted(3));
    setModel({20});
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(scatterOnPin(0), nullptr);
    EXPECT_THAT(shifts(scatterOnPin(1)), ElementsAre(3));
}

TEST_F(SceneEvaluation, PinsOfMapsThatHoldNoNodeAreEmptied) {
    const auto definition = addMeshed(1);
    addInstance(20, 1);
    setModel({20});
    definition->mesh_maps[55] = nullptr;
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(SketchupManager::GetNumDefinitionMaps(), 2u);
    EXPECT_EQ(group()->getInt(ATTR_PIN_COUNT), 3);
    EXPECT_NE(scatterOnPin(1), nullptr);
    EXPECT_EQ(scatterOnPin(2), nullptr);
}

TEST_F(SceneEvaluation, AMapWithoutPlacementsStaysWiredAndShowsNothing) {
    addMeshed(1);
    addInstance(20, 1);
    setModel({20});
    SketchupManager::ApplyGeometryLocal();
    SketchupManager::SetInstanceVisibility(20, false);
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(group()->getInt(ATTR_PIN_COUNT), 2);
    EXPECT_THAT(matrices(scatterOnPin(1)), IsEmpty());
    EXPECT_THAT(ints(scatterOnPin(1), ATTR_INSTANCE_IDS), IsEmpty());
}

TEST_F(SceneEvaluation, ADeletedDefinitionStaysWiredWithoutPlacements) {
    addMeshed(1);
    addInstance(20, 1);
    setModel({20});
    SketchupManager::ApplyGeometryLocal();
    EXPECT_TRUE(SketchupManager::DeleteEntity(1));
    SketchupManager::ApplyGeometryLocal();
    EXPECT_EQ(SketchupManager::GetNumDefinitionMaps(), 1u);
    EXPECT_THAT(matrices(scatterOnPin(1)), IsEmpty());
}

TEST_F(SceneEvaluation, ApplyRootGeometryWiresPinZeroAndRestartsNothing) {
    ASSERT_TRUE(stream(-2, {-1}));
    const auto operations = operationsOf(&SketchupManager::ApplyRootGeometryLocal);
    EXPECT_THAT(operations, Not(Contains("update")));
    EXPECT_THAT(operations, Not(Contains(StartsWith("setRenderTargetNode"))));
    group()->set(ATTR_PIN_COUNT, 1, true);
    SketchupManager::ApplyRootGeometryLocal();
    EXPECT_THAT(shifts(scatterOnPin(0)), ElementsAre(0));
}

TEST_F(SceneEvaluation, TheRootsMapIsMadeWhenItIsMissing) {
    ASSERT_TRUE(stream(-2, {-1}));
    const auto root = SketchupManager::GetRoot();
    root->mesh_maps.clear();
    SketchupManager::ApplyGeometryLocal();
    ASSERT_EQ(root->mesh_maps.size(), 1u);
    EXPECT_THAT(shifts(scatterOnPin(0)), ElementsAre(0));
}

TEST_F(SceneEvaluation, WithoutARenderTargetTheWalkStillRuns) {
    addMeshed(1);
    addInstance(20, 1);
    addInstance(21, 1);
    setModel({20});
    apiMode_Shared_exit(nullptr);
    SketchupManager::GetDefinition(1)->mesh = nullptr;
    SketchupManager::ApplyGeometryLocal();
    EXPECT_TRUE(SketchupManager::IsEntityValid(20));
    EXPECT_FALSE(SketchupManager::IsEntityValid(21));
}

// --- Garbage. ---

TEST_F(SceneEvaluation, InstancesThatAreNeitherReachedNorListedDisappear) {
    addMeshed(1);
    addDefinition(2, {10});
    addInstance(10, 1);
    addInstance(20, 1);
    addInstance(21, 1);
    setModel({20});
    SketchupManager::SetEntity(33, nullptr);
    SketchupManager::SetInstanceEditMode(21, true);
    const auto gone = SketchupManager::GetInstance(21);
    SketchupManager::ApplyGeometryLocal();
    EXPECT_TRUE(SketchupManager::IsEntityValid(10)) << "a definition lists it";
    EXPECT_TRUE(SketchupManager::IsEntityValid(20));
    EXPECT_FALSE(SketchupManager::IsEntityValid(21));
    EXPECT_TRUE(SketchupManager::IsEntityValid(1) && SketchupManager::IsEntityValid(2));
    EXPECT_TRUE(SketchupManager::IsEntityValid(-2));
    EXPECT_EQ(gone.use_count(), 1) << "it has left the edit list too";
    EXPECT_THAT(SketchupManager::GetRoot()->child_ids, ElementsAre(20));
}

TEST_F(SceneEvaluation, HiddenInstancesAndTheirChildrenStay) {
    addMeshed(1);
    addInstance(10, 1);
    addDefinition(2, {10});
    addInstance(20, 2);
    setModel({20});
    SketchupManager::SetInstanceVisibility(20, false);
    for (int round = 0; round < 2; ++round) {
        SketchupManager::ApplyGeometryLocal();
        EXPECT_TRUE(SketchupManager::IsEntityValid(20));
        EXPECT_TRUE(SketchupManager::IsEntityValid(10));
    }
    setModel({});
    SketchupManager::ApplyGeometryLocal();
    EXPECT_FALSE(SketchupManager::IsEntityValid(20));
    EXPECT_TRUE(SketchupManager::IsEntityValid(10));
}

TEST_F(SceneEvaluation, ChildrenOfADeletedDefinitionAreStillListed) {
    addMeshed(1);
    addInstance(10, 1);
    addDefinition(2, {10});
    SketchupManager::DeleteEntity(2);
    SketchupManager::ApplyGeometryLocal();
    EXPECT_TRUE(SketchupManager::IsEntityValid(10));
    SketchupManager::AddDefinition(2, {}, {});
    SketchupManager::ApplyGeometryLocal();
    EXPECT_FALSE(SketchupManager::IsEntityValid(10));
}

TEST_F(SceneEvaluation, GarbageIsLookedForAfterEveryKindOfChange) {
    addMeshed(1);
    const auto outer = addDefinition(2, {10});
    addInstance(10, 1);
    addInstance(20, 1);
    setModel({20});
    const auto kept = [](std::initializer_list<int> ids) {
        SketchupManager::ApplyGeometryLocal();
        SketchupManager::ApplyGeometryLocal();
        std::vector<int> result;
        for (const int id : ids) {
            if (SketchupManager::IsEntityValid(id)) result.push_back(id);
        }
        return result;
    };
    EXPECT_THAT(kept({10, 20}), ElementsAre(10, 20));
    addInstance(21, 1);
    EXPECT_THAT(kept({10, 20, 21}), ElementsAre(10, 20)) << "a new instance that nothing places";
    outer->child_ids = {};
    EXPECT_THAT(kept({10, 20}), ElementsAre(20)) << "a shorter list";
    addInstance(10, 1);
    outer->child_ids = {10};
    EXPECT_THAT(kept({10, 20}), ElementsAre(10, 20));
    SketchupManager::UpdateDefinition(2, {}, {11});
    EXPECT_THAT(kept({10, 20}), ElementsAre(20)) << "a list of the same length";
    setModel({});
    EXPECT_THAT(kept({10, 20}), IsEmpty());
    addInstance(30, 1);
    SketchupManager::SetDefinition(3, std::make_shared<Definition>(3));
    setModel({30});
    EXPECT_THAT(kept({30}), ElementsAre(30));
    SketchupManager::SetEntity(40, nullptr);
    kept({});
    SketchupManager::FlushModelEntities();
    EXPECT_THAT(kept({30}), IsEmpty());
}

TEST_F(SceneEvaluation, EmptyEntriesDisappearWhenAllElseIsReached) {
    addMeshed(1);
    addInstance(20, 1);
    setModel({20});
    SketchupManager::SetEntity(33, nullptr);
    SketchupManager::EvaluateEntities();
    SketchupManager::CollectGarbage();
    SketchupManager::EvaluateEntities();
    const auto kept = SketchupManager::GetEntity(20);
    SketchupManager::CollectGarbage();
    EXPECT_EQ(SketchupManager::GetEntity(20), kept);
    EXPECT_FALSE(SketchupManager::IsEntityValid(33));
}

}  // namespace
}  // namespace Velmar
