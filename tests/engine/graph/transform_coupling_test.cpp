#include "engine/graph/transform_coupling.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"

namespace Velmar::Engine {
namespace {

class TransformTest : public GraphTest, public ::testing::WithParamInterface<NodeType> {
protected:
    static Matrix<float> matrixOf(const ApiNode* node) { return node->getMatrixIx(0); }
};

INSTANTIATE_TEST_SUITE_P(EachTransformType, TransformTest,
                         ::testing::Values(NODE_TRANSFORM_2D, NODE_TRANSFORM_3D, NODE_TRANSFORM_MATRIX,
                                           NODE_TRANSFORM_2D_ADVANCED));

TEST_P(TransformTest, TheMatrixSetsScaleAndTranslation) {
    ApiNode* node = make(GetParam());
    const Matrix<float> matrix{{{2, 0, 0, 0.5F}, {0, 3, 0, 1.0F}, {0, 0, 1, 0}}};
    node->set(ATTR_TRANSFORM, matrix, true);
    EXPECT_EQ(matrixOf(node), matrix);
    EXPECT_EQ(node->getFloat3(ATTR_SCALE), (Vec3<float>{2, 3, 1}));
    EXPECT_EQ(node->getFloat3(ATTR_TRANSLATION), (Vec3<float>{0.5F, 1.0F, 0}));
}

TEST_P(TransformTest, ScaleAndTranslationChangeTheirPartOfTheMatrix) {
    ApiNode* node = make(GetParam());
    const Matrix<float> turned{{{0, -1, 0, 7}, {1, 0, 0, 8}, {0, 0, 1, 9}}};
    node->set(ATTR_TRANSFORM, turned, true);
    node->set(ATTR_SCALE, Vec3<float>{2, 4, 1}, true);
    EXPECT_EQ(matrixOf(node), (Matrix<float>{{{0, -4, 0, 7}, {2, 0, 0, 8}, {0, 0, 1, 9}}}));
    node->set(ATTR_TRANSLATION, Vec3<float>{-1, -2, 0}, true);
    EXPECT_EQ(matrixOf(node), (Matrix<float>{{{0, -4, 0, -1}, {2, 0, 0, -2}, {0, 0, 1, 0}}}));
    EXPECT_EQ(node->getFloat3(ATTR_SCALE), (Vec3<float>{2, 4, 1}));
}

TEST_P(TransformTest, WritingWithoutEvaluationCountsInAnyOrder) {
    ApiNode* node = make(GetParam());
    node->set(ATTR_SCALE, Vec3<float>{2, 2, 1}, false);
    node->set(ATTR_TRANSLATION, Vec3<float>{5, 6, 7}, false);
    node->evaluate();
    EXPECT_EQ(matrixOf(node), (Matrix<float>{{{2, 0, 0, 5}, {0, 2, 0, 6}, {0, 0, 1, 7}}}));
}

TEST_F(GraphTest, AScaleOfZeroDoesNotLoseTheAxis) {
    ApiNode* node = make(NODE_TRANSFORM_2D);
    node->set(ATTR_SCALE, Vec3<float>{0, 1, 1}, true);
    EXPECT_EQ(node->getMatrixIx(0).m[0][0], 0.0F);
    node->set(ATTR_SCALE, Vec3<float>{3, 1, 1}, true);
    EXPECT_EQ(node->getMatrixIx(0).m[0][0], 3.0F);
}

TEST_F(GraphTest, ANegativeScaleStaysWhereItWasWritten) {
    ApiNode* node = make(NODE_TRANSFORM_2D);
    node->set(ATTR_SCALE, Vec3<float>{1, -2, 1}, true);
    node->set(ATTR_TRANSLATION, Vec3<float>{1, 1, 0}, true);
    EXPECT_EQ(node->getFloat3(ATTR_SCALE), (Vec3<float>{1, -2, 1}));
    EXPECT_EQ(node->getMatrixIx(0), (Matrix<float>{{{1, 0, 0, 1}, {0, -2, 0, 1}, {0, 0, 1, 0}}}));
}

TEST(Transform, AMirroringMatrixHasANegativeScale) {
    EXPECT_EQ(scaleOf({{{-2, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}}}), (Vec3<float>{-2, 3, 4}));
    EXPECT_EQ(scaleOf({{{-2, 0, 0, 0}, {0, -3, 0, 0}, {0, 0, 4, 0}}}), (Vec3<float>{2, 3, 4}));
}

TEST_F(GraphTest, AScaleTransformFollowsItsPin) {
    ApiNode* scale = make(NODE_TRANSFORM_SCALE);
    ApiNode* holder = scale->connectedNodeIx(0);
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder->getFloat3Ix(0), (Vec3<float>{1, 1, 1}));
    holder->setIx(0, Vec3<float>{2, 3, 4}, true);
    const Matrix<float> matrix{{{2, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}}};
    EXPECT_EQ(scale->getMatrixIx(0), matrix);

    ApiNode* image = make(NODE_IMAGE);
    image->connectTo(PIN_UV_TRANSFORM, scale, true, false);
    EXPECT_EQ(image->getPinMatrix(PIN_UV_TRANSFORM), matrix);
}

TEST_F(GraphTest, AnImageGetsItsTransformThroughItsPin) {
    ApiNode* image = make(NODE_IMAGE);
    const Matrix<float> matrix{{{2, 0, 0, 0.5F}, {0, 2, 0, 0.5F}, {0, 0, 1, 0}}};
    image->setPinValue(PIN_UV_TRANSFORM, matrix, true);
    ApiNode* transform = image->connectedNode(PIN_UV_TRANSFORM);
    EXPECT_EQ(transform->type(), NODE_TRANSFORM_2D);
    EXPECT_TRUE(transform->pinOwned());
    Matrix<float> held{};
    EXPECT_TRUE(transform->get(ATTR_TRANSFORM, held));
    EXPECT_EQ(held, matrix);
    EXPECT_EQ(image->getPinMatrix(PIN_UV_TRANSFORM), matrix);
}

}  // namespace
}  // namespace Velmar::Engine
