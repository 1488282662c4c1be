#include "engine/host/engine_host.h"

#include <cmath>
#include <limits>

#include "engine/graph/operation_log.h"
#include "engine/host/scene_on_graph.h"

namespace Velmar::Engine {
namespace {

using EngineHostTest = EngineTest;

TEST_F(EngineHostTest, SaysHowFarThePictureIs) {
    SceneOnGraph scene;
    EngineHost::setMaxSamples(9);
    EXPECT_FALSE(EngineHost::progress().running);
    render(0);
    const RenderProgress progress = EngineHost::progress();
    EXPECT_EQ(progress.width, 48);
    EXPECT_EQ(progress.height, 32);
    EXPECT_EQ(progress.samples, 9);
    EXPECT_EQ(progress.max_samples, 9);
    EXPECT_GT(progress.seconds, 0.0);
    EXPECT_FALSE(progress.running) << "all samples are there";
}

TEST_F(EngineHostTest, KernelSaysTheSamplesWhenThereIsOne) {
    SceneOnGraph scene;
    EngineHost::setMaxSamples(9);
    ApiNode* kernel = scene.target->createInternal(PIN_KERNEL, NODE_KERNEL_DIRECT_LIGHT, true, true);
    kernel->setPinValue(PIN_MAX_SAMPLES, 4, true);
    render(0);
    EXPECT_EQ(EngineHost::progress().samples, 4);
    // More samples go on with the same film.
    kernel->setPinValue(PIN_MAX_SAMPLES, 6, true);
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::waitForSamples(0, 0.0), WaitResult::SamplesReached);
    EXPECT_EQ(EngineHost::progress().samples, 6);
    EXPECT_EQ(EngineHost::statistics().film_restarts, 1u);
}

TEST_F(EngineHostTest, WaitingEndsWhateverHappens) {
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender) << "no render target";
    SceneOnGraph scene;
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender) << "it does not run";
    ApiRenderEngine::restartRendering();
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::SamplesReached);
    EXPECT_EQ(EngineHost::waitForSamples(1 << 30, 0.01), WaitResult::TimeLimit);
    EngineHost::interrupt();
    EXPECT_EQ(EngineHost::waitForSamples(1 << 30, 0.0), WaitResult::Interrupted);
}

TEST_F(EngineHostTest, StatisticsCountWhatAnEditTouches) {
    SceneOnGraph scene;
    std::vector<Matrix<float>> places;
    for (int i = 0; i < 10000; ++i)
        places.push_back(movedBy(2.0f * static_cast<float>(i % 100), 0, 2.0f * static_cast<float>(i / 100)));
    scene.place(places);
    scene.lookFrom({-30, 50, -40});
    render(1);
    RenderStatistics statistics = EngineHost::statistics();
    EXPECT_EQ(statistics.meshes, 1u);
    EXPECT_EQ(statistics.triangles, 12u);
    EXPECT_EQ(statistics.acceleration_structures, 1u);
    EXPECT_EQ(statistics.instance_lists, 1u);
    EXPECT_EQ(statistics.placements, 10000u);
    EXPECT_EQ(statistics.meshes_built, 1u);

    // Move one placement while it renders.
    EngineHost::resetStatistics();
    places[1234] = movedBy(3, 8, 5);
    scene.place(places);
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::SamplesReached);
    statistics = EngineHost::statistics();
    EXPECT_EQ(statistics.meshes_built, 0u);
    EXPECT_EQ(statistics.meshes_kept, 1u);
    EXPECT_EQ(statistics.acceleration_structures_built, 0u);
    EXPECT_EQ(statistics.instance_lists_built, 1u);
    EXPECT_EQ(statistics.top_levels_built, 1u);
    EXPECT_EQ(statistics.cameras_built, 0u);
    EXPECT_EQ(statistics.film_restarts, 1u);
    EXPECT_EQ(statistics.updates, 1u);

    // Move the camera.
    EngineHost::resetStatistics();
    scene.lookFrom({-30, 60, -40});
    ApiChangeManager::update();
    statistics = EngineHost::statistics();
    EXPECT_EQ(statistics.cameras_built, 1u);
    EXPECT_EQ(statistics.top_levels_built, 0u);
    EXPECT_EQ(statistics.instance_lists_built, 0u);
    EXPECT_EQ(statistics.film_restarts, 1u);
}

TEST_F(EngineHostTest, AnUpdateWithoutAChangeKeepsTheFilm) {
    SceneOnGraph scene;
    render(3);
    EngineHost::resetStatistics();
    scene.target->setName("renamed");
    scene.place({movedBy(0, 0, 0)});
    ApiChangeManager::update();
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::statistics().film_restarts, 0u);
    EXPECT_EQ(EngineHost::statistics().updates, 2u);
    EXPECT_GE(EngineHost::progress().samples, 3);
}

TEST_F(EngineHostTest, EditsOfEveryKindWhileRendering) {
    SceneOnGraph scene;
    ApiNode* camera = scene.lookFrom({3, 2, 5});
    render(1);
    for (int i = 0; i < 60; ++i) {
        const auto f = static_cast<float>(i);
        switch (i % 6) {
            case 0:
                scene.place({movedBy(0, 0, 0), movedBy(f / 30, 1, 0)});
                break;
            case 1:
                camera->setPinValue(PIN_FOV, 20.0f + f, true);
                break;
            case 2:
                scene.setFilm(40 + i, 30);
                break;
            case 3:
                scene.target->connectTo(PIN_RENDER_GEOMETRY, i % 12 == 3 ? nullptr : scene.group, true, false);
                break;
            case 4:
                scene.mesh->set(ATTR_SMOOTHING, i % 12 == 4, true);
                break;
            default:
                scene.group->set(ATTR_PIN_COUNT, 1 + i % 3, true);
                break;
        }
        ApiChangeManager::update();
        if (i % 5 == 0) {
            EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::SamplesReached);
        }
    }
}

TEST_F(EngineHostTest, DegenerateCamerasAndFilmsDoNoHarm) {
    SceneOnGraph scene;
    ApiNode* camera = scene.lookFrom({0, 0, 0});  // on its target
    render(1);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (float fov : {nan, 0.0f, -10.0f, 180.0f, 1e30f, std::numeric_limits<float>::infinity()}) {
        camera->setPinValue(PIN_FOV, fov, true);
        render(1);
    }
    camera->setPinValue(PIN_UP, Vec3<float>{0, 0, 0}, true);
    camera->setPinValue(PIN_POSITION, Vec3<float>{nan, 1, 1}, true);
    render(1);
    for (Vec2<int> size : {Vec2<int>{0, 0}, Vec2<int>{-5, 10}, Vec2<int>{10, 0}}) {
        scene.setFilm(size.x, size.y);
        ApiChangeManager::update();
        ApiRenderEngine::restartRendering();
        EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender);
        std::string error;
        EXPECT_FALSE(EngineHost::savePicture(file("none.png"), error));
        EXPECT_EQ(error, "there is no picture to save");
    }
    scene.setFilm(30, 20);
    render(1);
}

TEST_F(EngineHostTest, ThePanoramicCameraRenders) {
    SceneOnGraph scene;
    scene.target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true);
    render(2);
}

TEST_F(EngineHostTest, RefusesWhatIsNoRenderTarget) {
    SceneOnGraph scene;
    EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), scene.target);
    EXPECT_FALSE(ApiRenderEngine::setRenderTargetNode(nullptr));
    EXPECT_FALSE(ApiRenderEngine::setRenderTargetNode(scene.mesh));
    EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), scene.target);
    EXPECT_TRUE(ApiRenderEngine::setRenderTargetNode(scene.target));
}

TEST_F(EngineHostTest, ForgetsADestroyedRenderTarget) {
    SceneOnGraph scene;
    render(1);
    scene.target->destroy();
    EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), nullptr);
    EXPECT_FALSE(ApiRenderEngine::setRenderTargetNode(scene.target));
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender);
    EXPECT_EQ(EngineHost::statistics().meshes, 0u);
    // Another one is taken up at once, since the engine runs.
    SceneOnGraph other;
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::SamplesReached);
}

TEST_F(EngineHostTest, RunStatesFollowTheSdksCalls) {
    SceneOnGraph scene;
    ApiRenderEngine::continueRendering();  // stopped: restarts
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::SamplesReached);
    ApiRenderEngine::pauseRendering();
    EXPECT_FALSE(EngineHost::progress().running);
    const int samples = EngineHost::progress().samples;
    ApiRenderEngine::continueRendering();
    EXPECT_EQ(EngineHost::waitForSamples(samples + 1, 0.0), WaitResult::SamplesReached);
    EXPECT_EQ(EngineHost::statistics().film_restarts, 1u);
    ApiRenderEngine::stopRendering();
    EXPECT_FALSE(EngineHost::progress().running);
    EXPECT_GT(EngineHost::progress().samples, samples) << "the film stays";
    ApiRenderEngine::restartRendering();
    EXPECT_EQ(EngineHost::statistics().film_restarts, 2u);
}

TEST_F(EngineHostTest, OperationsStandInTheLogInTheirOrder) {
    SceneOnGraph scene;
    OperationLog::begin();
    ApiRenderEngine::setRenderPriority(1);
    ApiRenderEngine::setRenderTargetNode(nullptr);
    ApiChangeManager::update();
    ApiRenderEngine::restartRendering();
    ApiRenderEngine::pauseRendering();
    ApiRenderEngine::continueRendering();
    ApiRenderEngine::stopRendering();
    EXPECT_EQ(OperationLog::end(),
              (std::vector<std::string>{"setRenderPriority 1", "setRenderTargetNode null", "update", "restartRendering",
                                        "pauseRendering", "continueRendering", "stopRendering"}));
}

TEST_F(EngineHostTest, NoMaterialIsNoPreview) {
    SceneOnGraph scene;
    unsigned char buffer[4] = {1, 2, 3, 4};
    EXPECT_FALSE(ApiRenderEngine::previewMaterial(nullptr, 1, 1, 1, 1.0f, ApiRenderEngine::PREVIEW_BALL, buffer));
    EXPECT_FALSE(ApiRenderEngine::previewMaterial(scene.mesh, 1, 1, 1, 1.0f, ApiRenderEngine::PREVIEW_BALL, buffer));
    EXPECT_EQ(buffer[0], 1);
    EXPECT_EQ(buffer[3], 4);
}

TEST_F(EngineHostTest, ASecondStartIsRefusedWithAReason) {
    const char* reason = nullptr;
    EXPECT_FALSE(apiMode_Shared_start("test", false, &reason, nullptr, nullptr));
    EXPECT_STREQ(reason, "the library runs already");
    EXPECT_FALSE(apiMode_Shared_start("test", false, nullptr, nullptr, nullptr));
}

TEST_F(EngineHostTest, StartsAgainAfterItsEnd) {
    for (int i = 0; i < 5; ++i) {
        SceneOnGraph scene;
        render(1);
        apiMode_Shared_exit(nullptr);
        EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), nullptr);
        EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender);
        EXPECT_EQ(EngineHost::statistics().meshes, 0u);
        const char* reason = nullptr;
        ASSERT_TRUE(apiMode_Shared_start("test", false, &reason, nullptr, nullptr)) << reason;
    }
}

TEST(EngineHostWithoutAStart, AnswersEmpty) {
    apiMode_Shared_exit(nullptr);
    EXPECT_FALSE(ApiRenderEngine::setRenderTargetNode(nullptr));
    EXPECT_EQ(ApiRenderEngine::getRenderTargetNode(), nullptr);
    ApiRenderEngine::setRenderPriority(-7);
    ApiRenderEngine::restartRendering();
    ApiRenderEngine::continueRendering();
    ApiRenderEngine::pauseRendering();
    ApiRenderEngine::stopRendering();
    ApiChangeManager::update();
    EXPECT_EQ(EngineHost::waitForSamples(1, 0.0), WaitResult::NothingToRender);
    EXPECT_EQ(EngineHost::progress().samples, 0);
    std::string error;
    EXPECT_FALSE(EngineHost::savePicture("nothing.png", error));
    EXPECT_EQ(EngineHost::statistics().updates, 0u);
    EngineHost::pumpEvents();
}

}  // namespace
}  // namespace Velmar::Engine
