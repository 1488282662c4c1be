#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

constexpr Matrix<float> kPlacement{{{2, 0, 0, 5}, {0, 3, 0, 6}, {0, 0, 1, 0}}};
constexpr Matrix<float> kOther{{{4, 0, 0, 7}, {0, 4, 0, 8}, {0, 0, 1, 0}}};
constexpr Matrix<float> kIdentity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

class TextureScaleTest : public SdkTest {
protected:
    static ApiNode* TransformOf(const ApiNode* image) { return image->connectedNode(PIN_UV_TRANSFORM); }
    static Matrix<float> PlacementOf(const ApiNode* image) {
        Matrix<float> placement;
        EXPECT_TRUE(TransformOf(image)->get(ATTR_TRANSFORM, placement));
        return placement;
    }
    /// An image that stands differently from a new one.
    static ApiNode* PutImage(ApiNode* owner, PinId pin, const Matrix<float>& placement = kPlacement,
                             NodeType type = NODE_IMAGE) {
        ApiNode* const image = Put(owner, pin, type);
        TransformOf(image)->set(ATTR_TRANSFORM, placement, true);
        return image;
    }
    /// An image that is new on the normal pin.
    static ApiNode* AddImage(ApiNode* owner, NodeType type = NODE_IMAGE) { return Put(owner, PIN_NORMAL_MAP, type); }
};

// --- What is a source ---

struct SourceRow {
    NodeType material;
    PinId pin;
    bool is_source;
};

class SourcePins : public TextureScaleTest, public testing::WithParamInterface<SourceRow> {};

TEST_P(SourcePins, GiveTheirPlacementToANewImage) {
    const auto& [type, pin, is_source] = GetParam();
    ApiNode* const material = Make(type);
    ASSERT_TRUE(material->hasPin(pin));
    PutImage(material, pin);
    // The new image stands beside the source, on a pin that is looked at after all others.
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    displacement->connectTo(PIN_TEXTURE, nullptr, true, false);
    ApiNode* const added = Make(NODE_IMAGE);
    EXPECT_EQ(NodeUtils::TryToCorrectNewNodeScale(added, material), is_source);
    EXPECT_EQ(PlacementOf(added), is_source ? kPlacement : kIdentity);
}

INSTANTIATE_TEST_SUITE_P(
    Row, SourcePins,
    testing::Values(
        SourceRow{NODE_MATERIAL_GLOSSY, PIN_DIFFUSE, true}, SourceRow{NODE_MATERIAL_GLOSSY, PIN_BUMP, true},
        SourceRow{NODE_MATERIAL_GLOSSY, PIN_NORMAL_MAP, true}, SourceRow{NODE_MATERIAL_GLOSSY, PIN_SPECULAR, true},
        SourceRow{NODE_MATERIAL_GLOSSY, PIN_OPACITY, false}, SourceRow{NODE_MATERIAL_DIFFUSE, PIN_DIFFUSE, true},
        SourceRow{NODE_MATERIAL_DIFFUSE, PIN_OPACITY, false}, SourceRow{NODE_MATERIAL_SPECULAR, PIN_BUMP, true},
        SourceRow{NODE_MATERIAL_SPECULAR, PIN_REFLECTION, true},
        SourceRow{NODE_MATERIAL_SPECULAR, PIN_TRANSMISSION, true}, SourceRow{NODE_MATERIAL_METAL, PIN_DIFFUSE, true},
        SourceRow{NODE_MATERIAL_METAL, PIN_NORMAL_MAP, true}, SourceRow{NODE_MATERIAL_METAL, PIN_SPECULAR, false},
        SourceRow{NODE_MATERIAL_TOON, PIN_BUMP, true}, SourceRow{NODE_MATERIAL_TOON, PIN_SPECULAR, false}));

TEST_F(TextureScaleTest, TakesTheSourcesInTheirOrder) {
    ApiNode* const material = Make(NODE_MATERIAL_SPECULAR);
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    ApiNode* const added = Make(NODE_IMAGE);
    float mark = 2.0F;
    const auto expect_source = [&](ApiNode* owner, PinId pin) {
        mark += 1.0F;
        const Matrix<float> placement{{{mark, 0, 0, 0}, {0, mark, 0, 0}, {0, 0, 1, 0}}};
        PutImage(owner, pin, placement);
        EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(added, material));
        EXPECT_EQ(PlacementOf(added), placement) << pin;
    };
    expect_source(displacement, PIN_TEXTURE);
    expect_source(material, PIN_TRANSMISSION);
    expect_source(material, PIN_REFLECTION);
    expect_source(material, PIN_NORMAL_MAP);
    expect_source(material, PIN_BUMP);
}

TEST_F(TextureScaleTest, TakesTheFirstColourBeforeAllOthers) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_BUMP, kOther);
    PutImage(material, PIN_SPECULAR, kOther);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const added = Make(NODE_IMAGE);
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(added, material));
    EXPECT_EQ(PlacementOf(added), kPlacement);
}

TEST_F(TextureScaleTest, PassesOverTheAddedImageItself) {
    ApiNode* const material = Make(NODE_MATERIAL_SPECULAR);
    ApiNode* const added = PutImage(material, PIN_BUMP, kOther);
    for (const PinId pin : {PIN_NORMAL_MAP, PIN_REFLECTION, PIN_TRANSMISSION}) {
        material->connectTo(pin, added, true, false);
    }
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(added, material));
    EXPECT_EQ(PlacementOf(added), kOther);
}

TEST_F(TextureScaleTest, TakesTheDisplacementsImageEvenWhenItIsTheAddedOne) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    ApiNode* const image = PutImage(displacement, PIN_TEXTURE);
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(image, material));
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(displacement, material));
    EXPECT_EQ(PlacementOf(image), kPlacement);
}

TEST_F(TextureScaleTest, PassesOverAnImageWithoutATransform) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE, kOther)->connectTo(PIN_UV_TRANSFORM, nullptr, true, false);
    PutImage(material, PIN_BUMP);
    ApiNode* const added = AddImage(material);
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(added, material));
    EXPECT_EQ(PlacementOf(added), kPlacement);
}

TEST_F(TextureScaleTest, FindsNothingOnAMaterialWithoutAnotherImage) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    ApiNode* const added = AddImage(material);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(added, material));
    EXPECT_EQ(PlacementOf(added), kIdentity);
}

// --- What may be added, and where ---

TEST_F(TextureScaleTest, CorrectsEachKindOfImage) {
    for (const NodeType type : {NODE_IMAGE, NODE_ALPHA_IMAGE, NODE_FLOAT_IMAGE}) {
        ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
        PutImage(material, PIN_DIFFUSE, kPlacement, type);
        ApiNode* const added = AddImage(material, type);
        EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(added, material));
        EXPECT_EQ(PlacementOf(added), kPlacement);
    }
}

TEST_F(TextureScaleTest, RefusesNullsAndWhatIsNoImageOrNoMaterial) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const image = Make(NODE_IMAGE);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(nullptr, material));
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(image, nullptr));
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(Make(NODE_FLOAT), material));
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(Make(NODE_MULTIPLY_TEXTURE), material));
    ApiNode* const bare = Make(NODE_IMAGE);
    bare->connectTo(PIN_UV_TRANSFORM, nullptr, true, false);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(bare, material));
    ApiNode* const environment = Make(NODE_TEXTURE_ENVIRONMENT);
    PutImage(environment, PIN_TEXTURE);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(image, environment));
}

TEST_F(TextureScaleTest, TakesNoMultiplyTextureForAnOwner) {
    ApiNode* const multiply = Make(NODE_MULTIPLY_TEXTURE);
    PutImage(multiply, PIN_TEXTURE_1);
    ApiNode* const added = Put(multiply, PIN_TEXTURE_2, NODE_IMAGE);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(added, multiply));
    EXPECT_EQ(PlacementOf(added), kIdentity);
}

TEST_F(TextureScaleTest, CorrectsTheImageThatADisplacementHolds) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    ApiNode* const image = Put(displacement, PIN_TEXTURE, NODE_FLOAT_IMAGE);
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(displacement, material));
    EXPECT_EQ(displacement->connectedNode(PIN_TEXTURE), image);
    EXPECT_EQ(PlacementOf(image), kPlacement);
}

TEST_F(TextureScaleTest, GivesADisplacementWithoutAnImageOne) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    displacement->connectTo(PIN_TEXTURE, nullptr, true, false);
    EXPECT_TRUE(NodeUtils::TryToCorrectNewNodeScale(displacement, material));
    ApiNode* const image = displacement->connectedNode(PIN_TEXTURE);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->type(), NODE_IMAGE);
    EXPECT_TRUE(image->pinOwned());
    EXPECT_EQ(PlacementOf(image), kPlacement);
}

TEST_F(TextureScaleTest, FailsWhenTheDisplacementsImageHasNoTransform) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const displacement = Put(material, PIN_DISPLACEMENT, NODE_DISPLACEMENT);
    Put(displacement, PIN_TEXTURE, NODE_IMAGE)->connectTo(PIN_UV_TRANSFORM, nullptr, true, false);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(displacement, material));
    Put(displacement, PIN_TEXTURE, NODE_FLOAT);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(displacement, material));
}

TEST_F(TextureScaleTest, FailsWhenTheSourceIsPlacedByANodeWithoutAMatrix) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    Put(PutImage(material, PIN_DIFFUSE), PIN_UV_TRANSFORM, NODE_COLOR);
    ApiNode* const added = AddImage(material);
    EXPECT_FALSE(NodeUtils::TryToCorrectNewNodeScale(added, material));
    EXPECT_EQ(PlacementOf(added), kIdentity);
}

TEST_F(TextureScaleTest, WritesTheMatrixWithEvaluation) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    PutImage(material, PIN_DIFFUSE);
    ApiNode* const added = AddImage(material);
    EXPECT_THAT(Operations([&] { NodeUtils::TryToCorrectNewNodeScale(added, material); }),
                testing::ElementsAre(testing::MatchesRegex("set VELMAR_TRANSFORM2D:.* 171 .* true")));
}

}  // namespace
}  // namespace Velmar
