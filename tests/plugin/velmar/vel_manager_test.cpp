#include "plugin/velmar/vel_manager.h"

#include <velmar/render.h>

#include <sstream>

#include "plugin/velmar/render_control_test.h"

namespace Velmar {
namespace {

using StateType = VelmarManager::StateType;
using Lines = std::vector<std::string>;

class VelmarManagerTest : public RenderControlTest {
protected:
    /// Puts the run state there, from wherever it is.
    static void Enter(StateType state) {
        VelmarManager::SetRenderState(StateType::Stopped);
        if (state == StateType::Stopped) return;
        VelmarManager::SetRenderState(StateType::Running);
        VelmarManager::SetRenderState(state);
    }
    static ApiNode* AddPage(const std::string& page) {
        ApiNode* const node = ApiNode::create(NODE_RENDER_TARGET, ApiProjectManager::rootNodeGraph(), true);
        node->setName(page.c_str());
        RenderTargets::Shared().nodes[page] = node;
        return node;
    }
};

struct Transition {
    StateType from;
    StateType requested;
    Lines operations;
    StateType after;
};

class RunStateTest : public VelmarManagerTest, public testing::WithParamInterface<Transition> {};

TEST_P(RunStateTest, AWishForAStateMakesTheEngineCallsOfTheTable) {
    const Transition& row = GetParam();
    Enter(row.from);
    EXPECT_EQ(Steps([&] { VelmarManager::SetRenderState(row.requested); }), row.operations);
    EXPECT_EQ(VelmarManager::GetRenderState(), row.after);
}

constexpr StateType kStopped = StateType::Stopped;
constexpr StateType kPaused = StateType::Paused;
constexpr StateType kRunning = StateType::Running;

/// Read before any test has run.
const StateType state_at_load = VelmarManager::GetRenderState();

TEST(RunStateAtLoadTest, TheStateStartsAsRunningSoThatTheFirstStopReachesTheEngine) {
    EXPECT_EQ(state_at_load, kRunning);
}

INSTANTIATE_TEST_SUITE_P(
    AllPairs, RunStateTest,
    testing::Values(Transition{kStopped, kStopped, {}, kStopped}, Transition{kStopped, kPaused, {}, kStopped},
                    Transition{kStopped, kRunning, {"restartRendering"}, kRunning},
                    Transition{kPaused, kStopped, {"stopRendering"}, kStopped},
                    Transition{kPaused, kPaused, {}, kPaused},
                    Transition{kPaused, kRunning, {"continueRendering"}, kRunning},
                    Transition{kRunning, kStopped, {"stopRendering"}, kStopped},
                    Transition{kRunning, kPaused, {"pauseRendering"}, kPaused},
                    Transition{kRunning, kRunning, {}, kRunning}, Transition{kRunning, StateType(3), {}, kRunning},
                    Transition{kPaused, StateType(-1), {}, kPaused}, Transition{kStopped, StateType(7), {}, kStopped}));

TEST_F(VelmarManagerTest, StatesPrintAsWordsAndOthersAsIntegers) {
    std::ostringstream out;
    out << kStopped << ' ' << kPaused << ' ' << kRunning << ' ' << StateType(3) << ' ' << StateType(-1);
    EXPECT_EQ(out.str(), "Stopped Paused Running 3 -1");
}

TEST_F(VelmarManagerTest, CreateRenderTargetBuildsTheDefaultViewInOrder) {
    const Lines steps = Steps([] { VelmarManager::CreateRenderTarget(); });

    // the old one goes, the new one is made and shown to the engine
    ASSERT_GE(steps.size(), 5u);
    EXPECT_EQ(steps[0], "destroy");
    EXPECT_EQ(steps[1], "create");
    EXPECT_EQ(steps[2], "setUIOperationFlags 4");
    EXPECT_EQ(steps[3], "setName");
    EXPECT_EQ(steps[4], "setRenderTargetNode");

    // then the camera, the film and the field of view that goes with it
    const auto at = [&](const std::string& step) { return std::find(steps.begin(), steps.end(), step); };
    EXPECT_LT(at("createInternal 19"), at("createInternal 311"));
    EXPECT_LT(at("createInternal 311"), at("setPinValue 198"));
    EXPECT_EQ(Count(steps, "createInternal 19"), 1u);
    EXPECT_EQ(Count(steps, "createInternal 311"), 1u);
    EXPECT_EQ(Count(steps, "update"), 1u);
    EXPECT_EQ(steps[steps.size() - 2], "setPinValue 53");
    EXPECT_EQ(steps.back(), "select");
}

TEST_F(VelmarManagerTest, TheDefaultViewIsARenderTargetOfTheRootGraph) {
    EXPECT_EQ(Target()->type(), NODE_RENDER_TARGET);
    EXPECT_STREQ(Target()->name(), "Default View");
    EXPECT_EQ(Target()->graphOwner(), ApiProjectManager::rootNodeGraph());
    EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), Target());
    EXPECT_EQ(RenderTargets::Shared().current_page, "Default View");
    EXPECT_EQ(RenderTargets::Shared().nodes.size(), 1u);
    EXPECT_EQ(Camera()->type(), NODE_THIN_LENS_CAMERA);
    EXPECT_TRUE(Camera()->pinOwned());
    EXPECT_EQ(Film()->type(), NODE_FILM_SETTINGS);
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600}));
}

TEST_F(VelmarManagerTest, CreateRenderTargetThrowsAwayAllPagesInOrderOfTheirNames) {
    AddPage("Zenith");
    AddPage("Attic");
    const Lines operations = Operations([] { VelmarManager::CreateRenderTarget(); });
    ASSERT_GE(operations.size(), 3u);
    EXPECT_THAT(operations[0], testing::AllOf(testing::StartsWith("destroy"), testing::HasSubstr("Attic")));
    EXPECT_THAT(operations[1], testing::AllOf(testing::StartsWith("destroy"), testing::HasSubstr("Default View")));
    EXPECT_THAT(operations[2], testing::AllOf(testing::StartsWith("destroy"), testing::HasSubstr("Zenith")));
    EXPECT_EQ(RenderTargets::Shared().nodes.size(), 1u);
}

TEST_F(VelmarManagerTest, CreateRenderTargetSparesNothingButTheGeometryGroup) {
    VelmarManager::InitGeometryGroup();
    ApiNode* const group = VelmarManager::GeometryGroup();
    ApiNode* const old_target = Target();
    VelmarManager::CreateRenderTarget();
    EXPECT_EQ(VelmarManager::GeometryGroup(), group);
    EXPECT_NE(Target(), old_target);
    EXPECT_EQ(Target()->inputNode(PIN_RENDER_GEOMETRY), nullptr);
}

TEST_F(VelmarManagerTest, ARenderTargetWithoutNodeIsThrownAwayQuietly) {
    RenderTargets::Shared().nodes["Nothing"] = nullptr;
    VelmarManager::CreateRenderTarget();
    EXPECT_EQ(RenderTargets::Shared().nodes.size(), 1u);
}

TEST_F(VelmarManagerTest, CleanupReleasesNothing) {
    ApiNode* const target = Target();
    EXPECT_EQ(Steps([] { VelmarManager::Cleanup(); }), Lines{});
    EXPECT_EQ(Target(), target);
}

TEST_F(VelmarManagerTest, TheGeometryGroupIsMadeOnceAndConnected) {
    EXPECT_EQ(VelmarManager::GeometryGroup(), nullptr);
    EXPECT_EQ(Steps([] { VelmarManager::InitGeometryGroup(); }), (Lines{"create", "connectTo 111"}));
    ApiNode* const group = VelmarManager::GeometryGroup();
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->type(), NODE_GEOMETRY_GROUP);
    EXPECT_EQ(group->graphOwner(), ApiProjectManager::rootNodeGraph());
    EXPECT_EQ(Target()->inputNode(PIN_RENDER_GEOMETRY), group);

    EXPECT_EQ(Steps([] { VelmarManager::InitGeometryGroup(); }), Lines{});
    EXPECT_EQ(VelmarManager::GeometryGroup(), group);
}

TEST_F(VelmarManagerTest, TheGeometryGroupIsConnectedWithEvaluationAndUnconfigured) {
    const Lines operations = Operations([] { VelmarManager::InitGeometryGroup(); });
    ASSERT_EQ(operations.size(), 2u);
    EXPECT_THAT(operations[1], testing::EndsWith(" true false"));
}

TEST_F(VelmarManagerTest, AFlushedGroupIsMadeAnewForAllPages) {
    VelmarManager::InitGeometryGroup();
    ApiNode* const old_group = VelmarManager::GeometryGroup();
    ApiNode* const other = AddPage("Other");
    RenderTargets::Shared().nodes["Nothing"] = nullptr;
    VelmarManager::InitGeometryGroup();
    EXPECT_EQ(other->inputNode(PIN_RENDER_GEOMETRY), nullptr) << "a page that comes later is not connected";

    VelmarManager::FlushGeometryGroup();
    EXPECT_EQ(VelmarManager::GeometryGroup(), nullptr);
    EXPECT_EQ(old_group->type(), NODE_GEOMETRY_GROUP) << "the node itself lives on";
    VelmarManager::InitGeometryGroup();
    EXPECT_NE(VelmarManager::GeometryGroup(), old_group);
    EXPECT_EQ(Target()->inputNode(PIN_RENDER_GEOMETRY), VelmarManager::GeometryGroup());
    EXPECT_EQ(other->inputNode(PIN_RENDER_GEOMETRY), VelmarManager::GeometryGroup());
}

TEST_F(VelmarManagerTest, WithoutRenderTargetsThereIsNoGeometryGroup) {
    RenderTargets::Shared().nodes.clear();
    EXPECT_EQ(Steps([] { VelmarManager::InitGeometryGroup(); }), Lines{});
    EXPECT_EQ(VelmarManager::GeometryGroup(), nullptr);
}

TEST_F(VelmarManagerTest, UpdateAndRestartWakesAStoppedRender) {
    Enter(kStopped);
    EXPECT_EQ(Steps([] { EXPECT_TRUE(VelmarManager::UpdateAndRestart()); }),
              (Lines{"setRenderTargetNode", "update", "restartRendering"}));
    EXPECT_EQ(VelmarManager::GetRenderState(), kRunning);
}

TEST_F(VelmarManagerTest, UpdateAndRestartContinuesAPausedRender) {
    Enter(kPaused);
    EXPECT_EQ(Steps([] { EXPECT_TRUE(VelmarManager::UpdateAndRestart()); }),
              (Lines{"setRenderTargetNode", "update", "continueRendering"}));
    EXPECT_EQ(VelmarManager::GetRenderState(), kRunning);
}

TEST_F(VelmarManagerTest, UpdateAndRestartOnlyUpdatesARunningRender) {
    Enter(kRunning);
    EXPECT_EQ(Steps([] { EXPECT_TRUE(VelmarManager::UpdateAndRestart()); }), (Lines{"setRenderTargetNode", "update"}));
    EXPECT_EQ(VelmarManager::GetRenderState(), kRunning);
}

TEST_F(VelmarManagerTest, UpdateAndRestartStopsAtARenderTargetThatIsRefused) {
    Enter(kStopped);
    RenderTargets::Shared().nodes.clear();
    const Lines steps = Steps([] { EXPECT_FALSE(VelmarManager::UpdateAndRestart()); });
    EXPECT_EQ(Count(steps, "update"), 0u);
    EXPECT_EQ(Count(steps, "restartRendering"), 0u);
    EXPECT_EQ(VelmarManager::GetRenderState(), kStopped);
}

TEST_F(VelmarManagerTest, ARenderTargetOfAnotherPageIsFoundByTheOrderOfNames) {
    ApiNode* const attic = AddPage("Attic");
    RenderTargets::Shared().current_page = "Gone";
    EXPECT_EQ(VelmarManager::RenderTarget(), attic);
    EXPECT_EQ(RenderTargets::Shared().nodes.size(), 2u);
}

TEST_F(VelmarManagerTest, OnlyRenderTargetsAreRenderTargets) {
    ApiNode* const target = Target();
    EXPECT_TRUE(VelmarManager::IsRenderTarget(target));
    EXPECT_FALSE(VelmarManager::IsRenderTarget(Camera()));
    VelmarManager::CreateRenderTarget();
    EXPECT_FALSE(VelmarManager::IsRenderTarget(target));
    RenderTargets::Shared().nodes.clear();
    EXPECT_FALSE(VelmarManager::IsRenderTarget(target));
}

TEST_F(VelmarManagerTest, ExportSceneHasNoEffect) {
    EXPECT_EQ(Steps([] { EXPECT_TRUE(VelmarManager::ExportScene("out", {{"Front"}})); }), Lines{});
}

TEST_F(VelmarManagerTest, ViewCommandsAnswerTrueWhateverTheSettersSay) {
    EXPECT_TRUE(VelmarManager::SetCameraView(35.0f, false)) << "the field of view that stands already";
    EXPECT_TRUE(VelmarManager::SetViewExtents(10, 10)) << "a viewport that is not followed";
    CameraSetter::SetNode(nullptr);
    EXPECT_TRUE(VelmarManager::SetCameraPos({1, 2, 3}, {4, 5, 6}, {0, 0, 1})) << "no camera";
}

TEST_F(VelmarManagerTest, WithoutAnyRenderTargetEverythingAnswersAndLives) {
    RenderTargets::Shared().nodes.clear();
    CameraSetter::Init();
    EXPECT_TRUE(VelmarManager::SetCameraView(50.0f, false));
    EXPECT_TRUE(VelmarManager::SetCameraPos({1, 2, 3}, {4, 5, 6}, {0, 0, 1}));
    VelmarManager::SetSceneSettings(R"({"quality": {"width": 10, "height": 20, "maxSamples": 5}})");
    EXPECT_EQ(VelmarManager::RenderTarget(), nullptr);
    EXPECT_EQ(CameraSetter::GetRayEpsilon(nullptr), -1.0f);
}

}  // namespace
}  // namespace Velmar
