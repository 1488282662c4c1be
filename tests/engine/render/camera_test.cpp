#include "engine/render/camera.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/render/sampler.h"
#include "engine/render/test_scenes.h"

namespace Velmar::Engine {
namespace {

constexpr FilmSize kFilm{400, 200};
constexpr Float2 kMiddleOfLens{0.5f, 0.5f};

CameraSettings lookingNorth() {
    CameraSettings settings;
    settings.position = {1, 2, 3};
    settings.target = {1, 2, -7};
    return settings;
}

// Where the ray through a point of the film meets the plane that stands `depth` before the camera of lookingNorth().
Float3 pointAtDepth(const Camera& camera, Float2 pixel, float depth) {
    const Ray ray = camera.ray(pixel, kMiddleOfLens);
    const float along = dot(ray.direction, camera.forward());
    const float start = dot(ray.origin - Float3{1, 2, 3}, camera.forward());
    return ray.origin + ray.direction * ((depth - start) / along);
}

void expectNear(Float3 a, Float3 b, float tolerance) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

TEST(Camera, SpansTheHorizontalFieldOfView) {
    CameraSettings settings = lookingNorth();
    settings.fov_degrees = 60.0f;
    const Camera camera(settings, kFilm);
    const float half = 10.0f * std::tan(30.0f * kPi / 180.0f);
    expectNear(pointAtDepth(camera, {0, 100}, 10), {1 - half, 2, -7}, 1e-4f);
    expectNear(pointAtDepth(camera, {400, 100}, 10), {1 + half, 2, -7}, 1e-4f);
    expectNear(pointAtDepth(camera, {200, 0}, 10), {1, 2 + half / 2, -7}, 1e-4f);
    expectNear(pointAtDepth(camera, {200, 200}, 10), {1, 2 - half / 2, -7}, 1e-4f);
}

TEST(Camera, SpansTheWidthOfAParallelProjection) {
    CameraSettings settings = lookingNorth();
    settings.projection = Projection::Parallel;
    settings.parallel_width = 8.0f;
    const Camera camera(settings, kFilm);
    for (float depth : {1.0f, 10.0f}) {
        expectNear(pointAtDepth(camera, {0, 0}, depth), {1 - 4, 2 + 2, 3 - depth}, 1e-5f);
        expectNear(pointAtDepth(camera, {400, 200}, depth), {1 + 4, 2 - 2, 3 - depth}, 1e-5f);
    }
}

TEST(Camera, ShiftsThePictureByItsOwnWidthAndHeight) {
    CameraSettings settings = lookingNorth();
    const Camera plain(settings, kFilm);
    settings.lens_shift = {0.25f, 0.5f};
    const Camera shifted(settings, kFilm);
    expectNear(pointAtDepth(shifted, {200, 100}, 10), pointAtDepth(plain, {300, 0}, 10), 1e-5f);
}

TEST(Camera, MakesPixelsTallerThanWide) {
    CameraSettings settings = lookingNorth();
    const float height = pointAtDepth(Camera(settings, kFilm), {200, 0}, 10).y - 2;
    settings.pixel_aspect = 1.5f;
    EXPECT_NEAR(pointAtDepth(Camera(settings, kFilm), {200, 0}, 10).y - 2, 1.5f * height, 1e-4f);
}

TEST(Camera, KeepsThePlaneInFocusSharpAndBlursTheRestByTheAperture) {
    CameraSettings settings = lookingNorth();
    settings.aperture_radius = 0.1f;
    settings.focal_depth = 5.0f;
    const Camera camera(settings, kFilm);
    const Camera pinhole(lookingNorth(), kFilm);
    float blur = 0.0f;
    for (std::uint32_t sample = 0; sample < 64; ++sample) {
        const Float2 lens = PathSampler(1, sample, 1).pair(0);
        const Ray ray = camera.ray({300, 50}, lens);
        const float along = dot(ray.direction, camera.forward());
        expectNear(ray.origin + ray.direction * (5.0f / along), pointAtDepth(pinhole, {300, 50}, 5), 1e-4f);
        const Float3 behind = ray.origin + ray.direction * (10.0f / along);
        blur = std::max(blur, length(behind - pointAtDepth(pinhole, {300, 50}, 10)));
    }
    // At twice the focal depth the circle of confusion is as large as the lens.
    EXPECT_LE(blur, 0.1f + 1e-4f);
    EXPECT_GE(blur, 0.09f);
}

TEST(Camera, ClipsWhatStandsBeforeTheNearPlane) {
    CameraSettings settings = lookingNorth();
    settings.near_clip = 2.0f;
    const Ray ray = Camera(settings, kFilm).ray({10, 10}, kMiddleOfLens);
    EXPECT_NEAR(-(ray.direction * ray.near).z, 2.0f, 1e-5f);
}

TEST(Camera, SeesAllRoundAsAPanorama) {
    CameraSettings settings = lookingNorth();
    settings.projection = Projection::Spherical;
    settings.fov_degrees = 360.0f;
    settings.vertical_fov_degrees = 180.0f;
    const Camera camera(settings, kFilm);
    expectNear(camera.ray({200, 100}, kMiddleOfLens).direction, {0, 0, -1}, 1e-5f);
    expectNear(camera.ray({300, 100}, kMiddleOfLens).direction, {1, 0, 0}, 1e-5f);
    expectNear(camera.ray({0, 100}, kMiddleOfLens).direction, {0, 0, 1}, 1e-5f);
    expectNear(camera.ray({200, 0}, kMiddleOfLens).direction, {0, 1, 0}, 1e-5f);
}

TEST(Camera, MendsSettingsThatMakeNoCamera) {
    std::vector<CameraSettings> all(8, lookingNorth());
    all[0].target = all[0].position;
    all[1].up = {0, 0, -3};
    all[2].up = {0, 0, 0};
    all[3].fov_degrees = 0.0f;
    all[4].fov_degrees = 1e30f;
    all[5].projection = Projection::Parallel;
    all[5].parallel_width = -4.0f;
    all[6].pixel_aspect = 0.0f;
    all[7].aperture_radius = 1.0f;
    all[7].focal_depth = 0.0f;
    for (const CameraSettings& settings : all) {
        const Camera camera(settings, kFilm);
        const Ray ray = camera.ray({17, 150}, {0.3f, 0.8f});
        EXPECT_TRUE(isFinite(ray.origin));
        EXPECT_NEAR(length(ray.direction), 1.0f, 1e-4f);
        EXPECT_NEAR(dot(camera.right(), camera.up()), 0.0f, 1e-5f);
        EXPECT_NEAR(dot(camera.up(), camera.forward()), 0.0f, 1e-5f);
    }
}

// The share of a row of the picture that is brighter than the black sky.
Float2 middleOfWhatIsLit(const LinearPicture& picture) {
    Float2 sum{};
    int count = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.pixels[static_cast<std::size_t>(y * picture.width + x)].x > 0.01f) {
                sum = {sum.x + static_cast<float>(x) + 0.5f, sum.y + static_cast<float>(y) + 0.5f};
                ++count;
            }
    EXPECT_GT(count, 0);
    return {sum.x / static_cast<float>(count), sum.y / static_cast<float>(count)};
}

TEST(Camera, MakesPicturesThatAreUprightAndNotMirrored) {
    // A ball to the right of and above the middle, 10 m off.
    CameraSettings camera;
    camera.position = {0, 0, 10};
    camera.target = {0, 0, 0};
    camera.fov_degrees = 40.0f;
    RenderSettings settings;
    settings.lighting = onlySun({0, 0, 1}, 1.0f);
    SceneMaker maker;
    maker.add(sphere(0.2f, 16, true), {translation({2.0f, 1.0f, 0.0f})});
    const FilmSize film{120, 80};
    const Float2 middle = middleOfWhatIsLit(renderAll(maker.make(film, camera), settings, 4));
    const float pixels_per_metre = 120 / (20.0f * std::tan(20.0f * kPi / 180.0f));
    EXPECT_NEAR(middle.x, 60 + 2.0f * pixels_per_metre, 0.7f);
    EXPECT_NEAR(middle.y, 40 - 1.0f * pixels_per_metre, 0.7f);
}

TEST(Camera, AutofocusFindsWhatStandsInTheMiddle) {
    // A box whose front stands 7 m before the camera, its edges in the picture.
    SceneMaker maker;
    maker.add(box({1, 1, 2}));
    CameraSettings camera;
    camera.position = {0, 0, 8};
    camera.fov_degrees = 20.0f;
    camera.aperture_radius = 0.3f;
    camera.focal_depth = 1.0f;
    camera.autofocus = true;
    const LinearPicture found = renderAll(maker.make({60, 40}, camera), {}, 4);
    camera.autofocus = false;
    EXPECT_NE(found.pixels, renderAll(maker.make({60, 40}, camera), {}, 4).pixels);
    camera.focal_depth = 7.0f;
    EXPECT_EQ(found.pixels, renderAll(maker.make({60, 40}, camera), {}, 4).pixels);
}

TEST(Frame, PutsTheWholeBoundsIntoThePicture) {
    const Bounds bounds{{-3, 10, 2}, {40, 12, 5}};
    for (FilmSize film : {FilmSize{400, 200}, FilmSize{100, 300}}) {
        const Camera camera(frame(bounds, film), film);
        const Ray first = camera.ray({0, 0}, kMiddleOfLens);
        const Ray last = camera.ray({static_cast<float>(film.width), static_cast<float>(film.height)}, kMiddleOfLens);
        const auto across = [&](Float3 d) { return dot(d, camera.right()) / dot(d, camera.forward()); };
        const auto along = [&](Float3 d) { return dot(d, camera.up()) / dot(d, camera.forward()); };
        float widest = 0.0f;
        for (int corner = 0; corner < 8; ++corner) {
            const Float3 direction = bounds.corner(corner) - first.origin;
            ASSERT_GT(dot(direction, camera.forward()), 0.0f);
            EXPECT_GT(across(direction), across(first.direction));
            EXPECT_LT(across(direction), across(last.direction));
            EXPECT_LT(along(direction), along(first.direction));
            EXPECT_GT(along(direction), along(last.direction));
            widest = std::max({widest, std::fabs(across(direction) / across(last.direction)),
                               std::fabs(along(direction) / along(last.direction))});
        }
        EXPECT_GT(widest, 0.85f) << "it fills the picture";
    }
}

TEST(Frame, LooksAtSomethingEvenWhenThereIsNothing) {
    const CameraSettings settings = frame(Bounds{}, kFilm);
    EXPECT_TRUE(isFinite(settings.position));
    EXPECT_GT(length(settings.target - settings.position), 0.1f);
}

}  // namespace
}  // namespace Velmar::Engine
