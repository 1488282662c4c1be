#include "plugin/sketchup/float4x4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <type_traits>

#include "plugin/nodes/units.h"

namespace Velmar {
namespace {

Float4x4 Numbered() {
    Float4x4 m;
    for (std::size_t i = 0; i < 16; ++i) m[i] = static_cast<float>(i + 1);
    return m;
}

Float4x4 Random(std::mt19937& random) {
    std::uniform_real_distribution<float> number(-10.0f, 10.0f);
    Float4x4 m;
    for (std::size_t i = 0; i < 16; ++i) m[i] = number(random);
    return m;
}

void ExpectElements(const Float4x4& m, const std::array<float, 16>& expected, float tolerance = 0.0f) {
    for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(m[i], expected[i], tolerance) << "element " << i;
}

TEST(Float4x4, IsAPlainValueOfSixteenFloatsThatStartsAsTheIdentity) {
    static_assert(sizeof(Float4x4) == 16 * sizeof(float));
    static_assert(std::is_trivially_copyable_v<Float4x4>);
    static_assert(!std::is_polymorphic_v<Float4x4>);
    ExpectElements(Float4x4(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST(Float4x4, ConstantsHaveTheirBits) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(kInchesPerMetre), 0x421d7afbu);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(kRadiansPerDegree), 0x3c8efa36u);
    EXPECT_FLOAT_EQ(kInchesPerMetre, 39.3701f);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c) {
            EXPECT_EQ(gIdentityMatrixF.m[r][c], r == c ? 1.0f : 0.0f);
            EXPECT_EQ(gIdentityMatrixD.m[r][c], r == c ? 1.0 : 0.0);
        }
    }
}

TEST(Float4x4, EqualityIsExactAndElementByElement) {
    const Float4x4 m = Numbered();
    EXPECT_EQ(m, Numbered());
    for (std::size_t i = 0; i < 16; ++i) {
        Float4x4 other = m;
        other[i] = std::nextafter(other[i], 100.0f);
        EXPECT_NE(m, other) << "element " << i;
    }
}

TEST(Float4x4, ProductIsTheSumOverRowTimesColumn) {
    std::mt19937 random(1);
    for (int round = 0; round < 1000; ++round) {
        const Float4x4 a = Random(random), b = Random(random);
        const Float4x4 product = a * b;
        for (std::size_t i = 0; i < 4; ++i) {
            for (std::size_t j = 0; j < 4; ++j) {
                float sum = a[4 * i] * b[j];
                for (std::size_t k = 1; k < 4; ++k) sum += a[4 * i + k] * b[4 * k + j];
                EXPECT_EQ(product[4 * i + j], sum);
            }
        }
    }
}

TEST(Float4x4, TheLeftFactorOfAProductActsFirst) {
    Float4x4 shift, stretch;
    shift[12] = 1.0f;
    stretch[0] = 2.0f;
    EXPECT_EQ((shift * stretch)[12], 2.0f);
    EXPECT_EQ((stretch * shift)[12], 1.0f);
}

TEST(Float4x4, SwapYZTurnsHostAxesIntoRendererAxes) {
    Float4x4 m = Numbered();
    EXPECT_EQ(&m.SwapYZ(), &m);
    ExpectElements(m, {1, 3, -2, 4, 9, 11, -10, 12, -5, -7, 6, -8, 13, 15, -14, 16});
}

TEST(Float4x4, SwapYZIsTheConjugationWithTheAxisChange) {
    Float4x4 to_host, to_renderer;
    to_host[5] = to_host[10] = to_renderer[5] = to_renderer[10] = 0.0f;
    to_host[6] = to_renderer[9] = 1.0f;
    to_host[9] = to_renderer[6] = -1.0f;
    std::mt19937 random(2);
    for (int round = 0; round < 100; ++round) {
        const Float4x4 m = Random(random);
        Float4x4 swapped = m;
        EXPECT_EQ(swapped.SwapYZ(), to_host * m * to_renderer);
    }
}

TEST(Float4x4, SwapYZOfTheIdentityIsTheIdentity) {
    Float4x4 m;
    EXPECT_EQ(m.SwapYZ(), Float4x4());
}

TEST(Float4x4, InchesToMetersDividesTheTranslationAlone) {
    Float4x4 m = Numbered();
    m.InchesToMeters();
    const Float4x4 before = Numbered();
    for (std::size_t i = 0; i < 16; ++i) {
        const bool translation = i >= 12 && i <= 14;
        EXPECT_EQ(m[i], translation ? before[i] / kInchesPerMetre : before[i]) << "element " << i;
    }
}

TEST(Float4x4, MetersToInchesMultipliesTheTranslationAlone) {
    Float4x4 m = Numbered();
    m.MetersToInches();
    const Float4x4 before = Numbered();
    for (std::size_t i = 0; i < 16; ++i) {
        const bool translation = i >= 12 && i <= 14;
        EXPECT_EQ(m[i], translation ? before[i] * kInchesPerMetre : before[i]) << "element " << i;
    }
}

TEST(Float4x4, TransposeSwapsRowsAndColumns) {
    Float4x4 m = Numbered();
    EXPECT_EQ(&m.Transpose(), &m);
    ExpectElements(m, {1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16});
}

TEST(Float4x4, CofactorIsTheDeterminantOfThreeRows) {
    EXPECT_EQ(Float4x4::Cofactor(1, 0, 0, 0, 1, 0, 0, 0, 1), 1.0f);
    EXPECT_EQ(Float4x4::Cofactor(2, 3, 5, 7, 11, 13, 17, 19, 23), -78.0f);
    EXPECT_EQ(Float4x4::Cofactor(0, 1, 0, 1, 0, 0, 0, 0, 1), -1.0f);
}

TEST(Float4x4, DeterminantTakesAllSixteenElements) {
    EXPECT_EQ(Float4x4().GetDeterminant(), 1.0f);
    EXPECT_EQ(Numbered().GetDeterminant(), 0.0f);
    Float4x4 m;
    m[0] = 2.0f;
    m[15] = 3.0f;
    EXPECT_EQ(m.GetDeterminant(), 6.0f);
    m[3] = 1.0f;
    m[12] = 1.0f;
    EXPECT_EQ(m.GetDeterminant(), 5.0f);
}

TEST(Float4x4, InverseTimesTheMatrixIsTheIdentity) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        Float4x4 m = Random(random);
        if (std::fabs(m.GetDeterminant()) < 100.0f) continue;
        Float4x4 inverse = m;
        EXPECT_EQ(&inverse.Invert(), &inverse);
        const Float4x4 product = inverse * m;
        for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(product[i], Float4x4()[i], 1e-3f);
    }
}

TEST(Float4x4, InverseOfTheZeroMatrixIsTheIdentity) {
    Float4x4 m;
    for (std::size_t i = 0; i < 16; ++i) m[i] = 0.0f;
    EXPECT_EQ(m.Invert(), Float4x4());
}

TEST(Float4x4, ADeterminantOfExactlyTheLimitCountsAsSingular) {
    const float limit = std::bit_cast<float>(std::uint32_t{0x3727c5ac});
    for (const float sign : {1.0f, -1.0f}) {
        Float4x4 m;
        m[0] = sign * limit;
        EXPECT_EQ(m.Invert(), Float4x4());
        m = Float4x4();
        m[0] = sign * std::nextafter(limit, 1.0f);
        EXPECT_NE(m.Invert(), Float4x4());
    }
}

TEST(Float4x4, TranslateAddsRowThreeToTheOthers) {
    Float4x4 m = Numbered();
    EXPECT_EQ(&m.Translate(1, 2, 3), &m);
    ExpectElements(m, {14, 16, 18, 20, 31, 34, 37, 40, 48, 52, 56, 60, 13, 14, 15, 16});
}

TEST(Float4x4, ScaleMultipliesTheFirstThreeRows) {
    Float4x4 m = Numbered();
    EXPECT_EQ(&m.Scale(2), &m);
    ExpectElements(m, {2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 13, 14, 15, 16});
    m = Numbered();
    EXPECT_EQ(&m.Scale(2, 3, 4), &m);
    ExpectElements(m, {2, 4, 6, 8, 15, 18, 21, 24, 36, 40, 44, 48, 13, 14, 15, 16});
}

TEST(Float4x4, RotationsMixTwoRowsByTheAngleInDegrees) {
    Float4x4 m = Numbered();
    EXPECT_EQ(&m.RotateX(90), &m);
    ExpectElements(m, {1, 2, 3, 4, -9, -10, -11, -12, 5, 6, 7, 8, 13, 14, 15, 16}, 1e-5f);
    m = Numbered();
    EXPECT_EQ(&m.RotateY(90), &m);
    ExpectElements(m, {9, 10, 11, 12, 5, 6, 7, 8, -1, -2, -3, -4, 13, 14, 15, 16}, 1e-5f);
    m = Numbered();
    EXPECT_EQ(&m.RotateZ(90), &m);
    ExpectElements(m, {-5, -6, -7, -8, 1, 2, 3, 4, 9, 10, 11, 12, 13, 14, 15, 16}, 1e-5f);

    m = Float4x4();
    m.RotateZ(30);
    ExpectElements(m, {0.8660254f, -0.5f, 0, 0, 0.5f, 0.8660254f, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 1e-6f);
}

TEST(Float4x4, RotateAboutAnAxisMatchesTheRotationsAboutTheThreeAxes) {
    for (const float angle : {-200.0f, -30.0f, 0.0f, 45.0f, 123.0f}) {
        Float4x4 about, direct;
        const auto expect_same = [&] {
            for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(about[i], direct[i], 1e-5f);
            about = direct = Numbered();
        };
        about.Rotate(angle, 1, 0, 0), direct.RotateX(angle), expect_same();
        about.Rotate(angle, 0, 1, 0), direct.RotateY(angle), expect_same();
        about.Rotate(angle, 0, 0, 1), direct.RotateZ(angle), expect_same();
    }
}

TEST(Float4x4, RotateTakesTheAxisAsItIsGiven) {
    Float4x4 m;
    EXPECT_EQ(&m.Rotate(90, 2, 3, 5), &m);
    ExpectElements(m, {4, 1, 13, 0, 11, 9, 13, 0, 7, 17, 25, 0, 0, 0, 0, 1}, 1e-5f);
}

TEST(Float4x4, TheRendererFormIsTheTransposeOfTheSwappedMatrix) {
    std::mt19937 random(4);
    for (int round = 0; round < 100; ++round) {
        const Float4x4 m = Random(random);
        Float4x4 swapped = m;
        swapped.SwapYZ().Transpose();
        const Matrix<float> renderer = m.ToRenderer();
        for (std::size_t r = 0; r < 3; ++r) {
            for (std::size_t c = 0; c < 4; ++c) EXPECT_EQ(renderer.m[r][c], swapped[4 * r + c]);
        }
    }
    const Matrix<float> numbered = Numbered().ToRenderer();
    EXPECT_EQ(numbered, (Matrix<float>{{{1, 9, -5, 13}, {3, 11, -7, 15}, {-2, -10, 6, -14}}}));
}

TEST(Float4x4, TheRendererFormDropsTheWeightWithoutDividing) {
    Float4x4 m;
    m[12] = 6.0f;
    m[15] = 2.0f;
    EXPECT_EQ(m.ToRenderer().m[0][3], 6.0f);
    EXPECT_EQ(m.ToRenderer().m[0][0], 1.0f);
}

TEST(Units, APointOfTheHostCrossesInMetresWithYUp) {
    const Vec3<float> point = PointFromHost(39.3701f, 2 * 39.3701f, 3 * 39.3701f);
    EXPECT_EQ(point, (Vec3<float>{1, 3, -2}));
    EXPECT_EQ(PointFromHost(1, 0, 0).x, 1.0f / kInchesPerMetre);
    EXPECT_TRUE(std::signbit(PointFromHost(1, 0, 0).z));
    EXPECT_EQ(DirectionFromHost(1, 2, 3), (Vec3<float>{1, 3, -2}));
}

}  // namespace
}  // namespace Velmar
