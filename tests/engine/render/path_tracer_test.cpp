#include "engine/render/path_tracer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/render/test_scenes.h"

namespace Velmar::Engine {
namespace {

constexpr FilmSize kFilm{48, 32};

CameraSettings from(Float3 position, Float3 target = {}) {
    CameraSettings camera;
    camera.position = position;
    camera.target = target;
    camera.fov_degrees = 50.0f;
    return camera;
}

RenderSettings furnace() {
    RenderSettings settings;
    settings.lighting = evenDome(1.0f);
    settings.transport = {{1.0f, 1.0f, 1.0f}, 100000};
    return settings;
}

void expectEveryPixel(const LinearPicture& picture, float value, float tolerance) {
    for (std::size_t i = 0; i < picture.pixels.size(); ++i)
        for (float channel : {picture.pixels[i].x, picture.pixels[i].y, picture.pixels[i].z})
            ASSERT_NEAR(channel, value, tolerance) << "pixel " << i;
}

TEST(PathTracer, WhiteBallVanishesInAWhiteFurnace) {
    for (bool smooth : {false, true}) {
        SceneMaker maker;
        maker.add(sphere(1.0f, 12, smooth));
        expectEveryPixel(renderAll(maker.make(kFilm, from({0, 1, 3})), furnace(), 4), 1.0f, 1e-4f);
    }
}

TEST(PathTracer, WhiteRoomWithAWindowHoldsTheRadianceOfTheDome) {
    // Six walls, one of them short of the ceiling: every path leaves in the end, and none has lost anything.
    SceneMaker maker;
    maker.add(square(4), {identity(), translation({0, 4, 0})})
        .add(box({0.1f, 4, 4}), {translation({-2, 2, 0}), translation({2, 2, 0})})
        .add(box({4, 4, 0.1f}), {translation({0, 2, 2})})
        .add(box({4, 2.5f, 0.1f}), {translation({0, 1.25f, -2})});
    expectEveryPixel(renderAll(maker.make(kFilm, from({1, 1, 1}, {-1, 2, 0})), furnace(), 4), 1.0f, 1e-3f);
}

TEST(PathTracer, ClosedRoomWithoutALampIsDark) {
    SceneMaker maker;
    maker.add(box({4, 3, 4}));
    RenderSettings settings;
    settings.transport.max_bounces = 50;
    expectEveryPixel(renderAll(maker.make(kFilm, from({1, 0, 1}, {-1, 0.5f, 0})), settings, 4), 0.0f, 1e-6f);
}

TEST(PathTracer, SurfaceReflectsItsAlbedoOfAnEvenDome) {
    SceneMaker maker;
    maker.add(sphere(1.0f, 24, true));
    RenderSettings settings = furnace();
    settings.transport.albedo = {0.5f, 0.5f, 0.5f};
    CameraSettings camera = from({0, 0, 2});
    camera.fov_degrees = 20.0f;  // the ball fills the picture
    // A convex body sees nothing but the dome.
    expectEveryPixel(renderAll(maker.make(kFilm, camera), settings, 16), 0.5f, 1e-4f);
}

// The radiance of a white plane that is tilted towards a sun overhead, seen from its front.
float radianceOfTiltedPlane(float degrees, float irradiance, Float3 albedo, const Affine& extra = identity()) {
    SceneMaker maker;
    maker.add(square(10), {multiply(rotationX(degrees), extra)});
    RenderSettings settings;
    settings.lighting = onlySun({0, 1, 0}, irradiance);
    settings.lighting.sun_radius_degrees = 0.25f;
    settings.transport.albedo = albedo;
    const Float3 normal = transformVector(rotationX(degrees), {0, 1, 0});
    CameraSettings camera = from(normal * 3.0f);
    camera.up = {1, 0, 0};
    return meanOf(renderAll(maker.make(kFilm, camera), settings, 16)).x;
}

TEST(PathTracer, TiltedPlaneReflectsTheCosineOfOneSun) {
    for (float degrees : {0.0f, 30.0f, 60.0f, 80.0f}) {
        const float expected = 0.6f / kPi * 3.0f * std::cos(degrees * kPi / 180);
        EXPECT_NEAR(radianceOfTiltedPlane(degrees, 3.0f, {0.6f, 0.6f, 0.6f}), expected, 1e-3f) << degrees;
    }
    EXPECT_EQ(radianceOfTiltedPlane(100.0f, 3.0f, {0.6f, 0.6f, 0.6f}), 0.0f) << "turned away from the sun";
}

TEST(PathTracer, MirroredAndUnevenlyScaledPlacementsShadeAlike) {
    const float expected = radianceOfTiltedPlane(40.0f, 2.0f, {0.8f, 0.8f, 0.8f});
    for (Float3 factors : {Float3{-1, 1, 1}, Float3{1, -1, 1}, Float3{5, 0.01f, 1}, Float3{-2, -3, -0.5f}})
        EXPECT_NEAR(radianceOfTiltedPlane(40.0f, 2.0f, {0.8f, 0.8f, 0.8f}, scaling(factors)), expected, 1e-3f);
}

TEST(PathTracer, NormalsOfASquashedBallAreThoseOfTheEllipsoid) {
    // A ball squashed along y and seen from above: at the point over (x, 0) of the ellipsoid x^2 + y^2 / b^2 = 1 the
    // normal's cosine to the vertical is known.
    const float b = 0.4f;
    SceneMaker maker;
    maker.add(sphere(1.0f, 128, true), {scaling({1, b, 1})});
    RenderSettings settings;
    settings.lighting = onlySun({0, 1, 0}, kPi);
    settings.transport = {{1, 1, 1}, 1};
    settings.filter_width = 0.2f;
    CameraSettings camera = from({0, 5, 0});
    camera.up = {0, 0, -1};
    camera.projection = Projection::Parallel;
    camera.parallel_width = 2.0f;
    const FilmSize film{101, 101};
    const LinearPicture picture = renderAll(maker.make(film, camera), settings, 16);
    for (float x : {0.0f, 0.4f, 0.8f}) {
        const float y = b * std::sqrt(1 - x * x);
        const float cosine = (y / (b * b)) / std::sqrt(x * x + y * y / (b * b * b * b));
        const auto column = static_cast<std::size_t>((x + 1) * 50.5f);
        EXPECT_NEAR(picture.pixels[50 * 101 + column].x, cosine, 0.02f) << x;
    }
}

TEST(PathTracer, BothSidesOfASurfaceAreSeen) {
    SceneMaker maker;
    maker.add(square(10));
    RenderSettings settings = furnace();
    settings.transport.albedo = {0.5f, 0.5f, 0.5f};
    for (float y : {2.0f, -2.0f}) {
        CameraSettings camera = from({0, y, 0});
        camera.up = {0, 0, 1};
        expectEveryPixel(renderAll(maker.make(kFilm, camera), settings, 4), 0.5f, 1e-4f);
    }
}

TEST(PathTracer, ShadowFallsWhereTheSunIsHidden) {
    SceneMaker maker;
    maker.add(square(20)).add(square(2), {translation({0, 1, 0})});
    RenderSettings settings;
    settings.lighting = onlySun({1, 1, 0}, kPi);
    settings.transport = {{1, 1, 1}, 1};
    settings.filter_width = 0.2f;
    CameraSettings camera = from({0, 0.5f, 0}, {0, 0, 0});  // below the blocker
    camera.up = {0, 0, -1};
    camera.projection = Projection::Parallel;
    camera.parallel_width = 8.0f;
    const FilmSize film{80, 20};
    const LinearPicture picture = renderAll(maker.make(film, camera), settings, 16);
    const auto at = [&](float x) { return picture.pixels[10 * 80 + static_cast<std::size_t>((x + 4) * 10)].x; };
    // The blocker reaches from -1 to 1, its shadow from -2 to 0.
    EXPECT_EQ(at(-1.5f), 0.0f);
    EXPECT_EQ(at(-0.5f), 0.0f);
    EXPECT_NEAR(at(0.5f), std::sqrt(0.5f), 1e-3f);
    EXPECT_NEAR(at(-2.5f), std::sqrt(0.5f), 1e-3f);
}

TEST(PathTracer, SurfacesFarFromTheOriginDoNotShadowThemselves) {
    // Single precision is coarse there; a ray must still leave the surface on its own side.
    SceneMaker maker;
    maker.add(square(10), {multiply(translation({30000, 1000, -50000}), rotationX(37))});
    RenderSettings settings = furnace();
    settings.transport.albedo = {0.5f, 0.5f, 0.5f};
    const Float3 normal = transformVector(rotationX(37), {0, 1, 0});
    const Float3 middle{30000, 1000, -50000};
    expectEveryPixel(renderAll(maker.make(kFilm, from(middle + normal * 4.0f, middle)), settings, 16), 0.5f, 1e-4f);
}

TEST(PathTracer, SmoothBallHasNoFacetsAtItsTerminator) {
    // The sun grazes a facet from behind: flat, it would be black, but the rounded surface that it stands for is lit.
    SceneMaker maker;
    maker.add(sphere(1.0f, 8, true));
    const float turn = 8.0f * kPi / 180.0f;
    RenderSettings settings;
    settings.lighting = onlySun({std::cos(turn), 0, std::sin(turn)}, kPi);
    settings.transport = {{1, 1, 1}, 1};
    settings.filter_width = 0.2f;
    CameraSettings camera = from({0, 0, 5});
    camera.projection = Projection::Parallel;
    camera.parallel_width = 2.0f;
    const LinearPicture picture = renderAll(maker.make({100, 100}, camera), settings, 16);
    for (int row = 40; row < 60; ++row)
        for (int column = 46; column < 70; ++column) {
            const float x = (static_cast<float>(column) + 0.5f) / 50 - 1;
            const float y = (static_cast<float>(row) + 0.5f) / 50 - 1;
            const float cosine = x * std::cos(turn) + std::sqrt(1 - x * x - y * y) * std::sin(turn);
            const float radiance = picture.pixels[static_cast<std::size_t>(row * 100 + column)].x;
            ASSERT_NEAR(radiance, cosine, 0.08f) << column << ", " << row;
            ASSERT_GT(radiance, cosine / 3) << column << ", " << row;
        }
}

}  // namespace
}  // namespace Velmar::Engine
