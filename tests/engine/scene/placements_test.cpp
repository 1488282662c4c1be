#include "engine/scene/placements.h"

#include <gtest/gtest.h>

#include <limits>

namespace Velmar::Engine {
namespace {

Affine moved(float x) {
    return {{{1, 0, 0, x}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
}
Affine scaled(float s) {
    return {{{s, 0, 0, 0}, {0, s, 0, 0}, {0, 0, s, 0}}};
}

SharedArray<Affine> list(std::vector<Affine> matrices) {
    return std::make_shared<const std::vector<Affine>>(std::move(matrices));
}

TEST(Placements, WithoutAListStandAtTheOrigin) {
    const Placements placements = combinePlacements({});
    EXPECT_EQ(*placements.world_from_model, std::vector{identity()});
}

TEST(Placements, OfOneGoodListAreThatListItself) {
    const auto matrices = list({moved(1), scaled(-2)});
    const Placements placements = combinePlacements({matrices});
    EXPECT_EQ(placements.world_from_model, matrices);
    EXPECT_EQ(placements.skipped, 0u);
}

TEST(Placements, OfTwoListsAreAllProductsTheFirstOutermost) {
    const Placements placements = combinePlacements({list({scaled(2), moved(5)}), list({moved(1), moved(3)})});
    ASSERT_EQ(placements.world_from_model->size(), 4u);
    EXPECT_EQ((*placements.world_from_model)[1], multiply(scaled(2), moved(3)));
    EXPECT_EQ((*placements.world_from_model)[1].m[0][3], 6.0f);
    EXPECT_EQ((*placements.world_from_model)[2], moved(6));
}

TEST(Placements, LeaveOutWhatIsNoPlace) {
    Affine not_a_number = moved(1), infinite = moved(2), far_off = moved(1e20f), flat = moved(3);
    not_a_number.m[1][2] = std::numeric_limits<float>::quiet_NaN();
    infinite.m[2][3] = std::numeric_limits<float>::infinity();
    flat.m[1][1] = 0.0f;
    const Placements placements =
        combinePlacements({list({not_a_number, moved(7), infinite, Affine{}, far_off, flat, scaled(-1)})});
    EXPECT_EQ(*placements.world_from_model, (std::vector{moved(7), scaled(-1)}));
    EXPECT_EQ(placements.skipped, 5u);
}

TEST(TransformNormal, StaysPerpendicularUnderShearAndUnevenScale) {
    const Affine shear{{{3, 1, 0, 9}, {0, 0.5f, 2, 9}, {-1, 0, 1, 9}}};
    const Float3 along{1, 2, -1}, across{0.5f, 0, 0.5f}, normal = cross(along, across);
    const Float3 moved_normal = transformNormal(shear, normal);
    EXPECT_NEAR(dot(moved_normal, transformVector(shear, along)), 0.0f, 1e-5f);
    EXPECT_NEAR(dot(moved_normal, transformVector(shear, across)), 0.0f, 1e-5f);
}

TEST(Normalised, TakesWhatIsTinyHugeAndNothing) {
    EXPECT_NEAR(length(normalised({1e-30f, 1e-30f, 0})), 1.0f, 1e-6f);
    EXPECT_NEAR(length(normalised({1e30f, -1e30f, 1e30f})), 1.0f, 1e-6f);
    EXPECT_EQ(normalised({0, 0, 0}), (Float3{}));
    EXPECT_EQ(normalised({0, std::numeric_limits<float>::quiet_NaN(), 1}), (Float3{}));
    EXPECT_EQ(normalised({std::numeric_limits<float>::infinity(), 0, 1}), (Float3{}));
}

}  // namespace
}  // namespace Velmar::Engine
