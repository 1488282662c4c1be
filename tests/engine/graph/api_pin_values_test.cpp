// Values of pins.
#include <velmar/node.h>

#include "engine/catalog/catalog.h"
#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

#include <limits>

namespace Velmar::Engine {
namespace {

using ::testing::IsEmpty;

class PinValueTest : public GraphTest {};

void expectDefault(const ApiNode* node, unsigned index, const PinRow& row) {
    const std::string where = std::string(node->info().type_name) + " " + node->pinNameIx(index);
    if (row.kind == PIN_TYPE_BOOL) {
        EXPECT_EQ(node->getPinBoolIx(index), row.bool_default) << where;
        EXPECT_EQ(node->getPinBool(row.id), row.bool_default) << where;
    } else if (row.kind == PIN_TYPE_ENUM || (row.kind == PIN_TYPE_INT && row.dimension == 1)) {
        EXPECT_EQ(node->getPinIntIx(index), row.int_defaults[0]) << where;
        EXPECT_EQ(node->getPinInt(row.id), row.int_defaults[0]) << where;
    } else if (row.kind == PIN_TYPE_INT) {
        EXPECT_EQ(node->getPinInt2Ix(index), (Vec2<int>{row.int_defaults[0], row.int_defaults[1]})) << where;
        EXPECT_EQ(node->getPinInt2(row.id), node->getPinInt2Ix(index)) << where;
    } else if (row.kind == PIN_TYPE_TRANSFORM) {
        EXPECT_EQ(node->getPinMatrixIx(index), (Matrix<float>{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}})) << where;
        EXPECT_EQ(node->getPinMatrix(row.id), node->getPinMatrixIx(index)) << where;
    } else if (row.kind == PIN_TYPE_FLOAT && row.dimension == 1) {
        EXPECT_EQ(node->getPinFloatIx(index), row.float_defaults[0]) << where;
        EXPECT_EQ(node->getPinFloat(row.id), row.float_defaults[0]) << where;
    } else if (row.kind == PIN_TYPE_FLOAT && row.dimension == 2) {
        EXPECT_EQ(node->getPinFloat2Ix(index), (Vec2<float>{row.float_defaults[0], row.float_defaults[1]})) << where;
    } else if (row.kind == PIN_TYPE_FLOAT && row.default_node != NODE_SUN_DIRECTION) {
        EXPECT_EQ(node->getPinFloat3Ix(index),
                  (Vec3<float>{row.float_defaults[0], row.float_defaults[1], row.float_defaults[2]}))
            << where;
        EXPECT_EQ(node->getPinFloat3(row.id), node->getPinFloat3Ix(index)) << where;
    }
}

TEST_F(PinValueTest, EachPinAnswersTheDefaultOfItsRowWhetherFilledOrEmpty) {
    for (const TypeEntry* entry : Catalog::types()) {
        for (const bool configure : {true, false}) {
            ApiNode* node = ApiNode::create(entry->row->type, root, configure);
            for (unsigned i = 0; i < node->pinCount(); ++i) expectDefault(node, i, *entry->pins[i]->row);
            node->destroy();
        }
    }
}

TEST_F(PinValueTest, EachKindReadsBackAsWritten) {
    for (const bool configure : {true, false}) {
        ApiNode* camera = ApiNode::create(NODE_THIN_LENS_CAMERA, root, configure);
        camera->setPinValue(PIN_ORTHOGRAPHIC, true, true);
        EXPECT_TRUE(camera->getPinBool(PIN_ORTHOGRAPHIC));
        camera->setPinValue(PIN_STEREO_OUTPUT, 4, true);
        EXPECT_EQ(camera->getPinInt(PIN_STEREO_OUTPUT), 4);
        camera->setPinValue(PIN_FOV, 35.0F, true);
        EXPECT_EQ(camera->getPinFloat(PIN_FOV), 35.0F);
        camera->setPinValue(PIN_LENS_SHIFT, Vec2<float>{0.25F, -0.5F}, true);
        EXPECT_EQ(camera->getPinFloat2Ix(6), (Vec2<float>{0.25F, -0.5F}));
        camera->setPinValue(PIN_POSITION, Vec3<float>{1, 2, 3}, true);
        EXPECT_EQ(camera->getPinFloat3(PIN_POSITION), (Vec3<float>{1, 2, 3}));
        ApiNode* film = ApiNode::create(NODE_FILM_SETTINGS, root, configure);
        film->setPinValue(PIN_RESOLUTION, Vec2<int>{640, 480}, true);
        EXPECT_EQ(film->getPinInt2(PIN_RESOLUTION), (Vec2<int>{640, 480}));
        ApiNode* kernel = ApiNode::create(NODE_KERNEL_PATH_TRACING, root, configure);
        kernel->setPinValue(PIN_MAX_SAMPLES, 7, true);
        EXPECT_EQ(kernel->getPinInt(PIN_MAX_SAMPLES), 7);
        ApiNode* image = ApiNode::create(NODE_IMAGE, root, configure);
        const Matrix<float> matrix{{{2, 0, 0, 1}, {0, 3, 0, 1}, {0, 0, 1, 0}}};
        image->setPinValue(PIN_UV_TRANSFORM, matrix, true);
        EXPECT_EQ(image->getPinMatrix(PIN_UV_TRANSFORM), matrix);
    }
}

TEST_F(PinValueTest, ValuesBeyondTheLimitsStandAsTheyCome) {
    ApiNode* film = make(NODE_FILM_SETTINGS);
    film->setPinValue(PIN_RESOLUTION, Vec2<int>{0, -5}, true);
    EXPECT_EQ(film->getPinInt2(PIN_RESOLUTION), (Vec2<int>{0, -5}));
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    camera->setPinValue(PIN_FOV, std::numeric_limits<float>::quiet_NaN(), true);
    EXPECT_NE(camera->getPinFloat(PIN_FOV), camera->getPinFloat(PIN_FOV));
    camera->setPinValue(PIN_STEREO_MODE, 99, true);
    EXPECT_EQ(camera->getPinInt(PIN_STEREO_MODE), 99);
}

TEST_F(PinValueTest, AnIntServesAFloatPin) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    camera->setPinValue(PIN_FOV, 35, true);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV), 35.0F);
    EXPECT_EQ(camera->connectedNode(PIN_FOV)->type(), NODE_FLOAT);
}

TEST_F(PinValueTest, AnotherKindChangesNothingAndReadsEmpty) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ApiNode* material = make(NODE_MATERIAL_GLOSSY);
    ChangeLog::take();
    camera->setPinValue(PIN_FOV, true, true);
    camera->setPinValue(PIN_FOV, Vec3<float>{1, 1, 1}, true);
    camera->setPinValue(PIN_FOV, Matrix<float>{}, true);
    camera->setPinValue(PIN_POSITION, 1.0F, true);
    camera->setPinValue(PIN_POSITION, 1, true);
    camera->setPinValue(PIN_ORTHOGRAPHIC, 1, true);
    camera->setPinValue(PIN_STEREO_MODE, 2.0F, true);
    camera->setPinValue(PIN_GEOMETRY, 1.0F, true);
    camera->setPinValue(PIN_UNKNOWN, 1.0F, true);
    material->setPinValue(PIN_DIFFUSE, Vec3<float>{1, 0, 0}, true);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    EXPECT_EQ(camera->getPinInt(PIN_FOV), 0);
    EXPECT_FALSE(camera->getPinBool(PIN_FOV));
    EXPECT_EQ(camera->getPinFloat3(PIN_FOV), (Vec3<float>{}));
    EXPECT_EQ(camera->getPinMatrix(PIN_FOV), (Matrix<float>{}));
    EXPECT_EQ(camera->getPinFloat(PIN_STEREO_MODE), 0.0F);
    EXPECT_EQ(camera->getPinFloat(PIN_GEOMETRY), 0.0F);
    EXPECT_EQ(camera->getPinFloatIx(1000), 0.0F);
    EXPECT_STREQ(camera->getPinStringIx(0), "");
    EXPECT_EQ(material->getPinFloat3(PIN_DIFFUSE), (Vec3<float>{})) << "a texture is no value";
}

TEST_F(PinValueTest, AnInternalNodeOfTheRightKindKeepsItsPlace) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ApiNode* holder = camera->connectedNode(PIN_FOV);
    camera->setPinValue(PIN_FOV, 60.0F, true);
    EXPECT_EQ(camera->connectedNode(PIN_FOV), holder);
    EXPECT_EQ(holder->getFloat(ATTR_VALUE), 60.0F);
    holder->setIx(0, 70.0F, true);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV), 70.0F);
}

TEST_F(PinValueTest, AnEmptyPinGetsAnInternalNode) {
    ApiNode* camera = bare(NODE_THIN_LENS_CAMERA);
    camera->setPinValue(PIN_FOV, 60.0F, true);
    ASSERT_NE(camera->connectedNode(PIN_FOV), nullptr);
    EXPECT_TRUE(camera->connectedNode(PIN_FOV)->pinOwned());
    camera->setPinValue(PIN_STEREO_FILTER_LEFT, Vec3<float>{0, 1, 0}, true);
    EXPECT_EQ(camera->connectedNode(PIN_STEREO_FILTER_LEFT)->type(), NODE_COLOR);
}

TEST_F(PinValueTest, ANodeFromOutsideTakesAFittingValueItself) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ApiNode* number = make(NODE_FLOAT);
    camera->connectTo(PIN_FOV, number, true, false);
    camera->setPinValue(PIN_FOV, 20.0F, true);
    EXPECT_EQ(camera->connectedNode(PIN_FOV), number);
    EXPECT_EQ(number->getFloatIx(0), 20.0F);
    ApiNode* place = make(NODE_COLOR);
    camera->connectTo(PIN_TARGET, place, true, false);
    camera->setPinValue(PIN_TARGET, Vec3<float>{4, 5, 6}, true);
    EXPECT_EQ(place->getFloat3Ix(0), (Vec3<float>{4, 5, 6}));
}

TEST_F(PinValueTest, ANodeFromOutsideOfAnotherKindIsReplaced) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    ApiNode* color = make(NODE_COLOR);
    camera->connectTo(PIN_FOV, color, true, false);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV), 0.0F) << "kinds differ";
    camera->setPinValue(PIN_FOV, 20.0F, true);
    EXPECT_EQ(camera->getPinFloat(PIN_FOV), 20.0F);
    EXPECT_TRUE(camera->connectedNode(PIN_FOV)->pinOwned());
    EXPECT_TRUE(isAlive(color));
    EXPECT_THAT(users(color), IsEmpty());
}

TEST_F(PinValueTest, AreReadThroughLinks) {
    ApiNode* image = make(NODE_IMAGE);
    ApiNode* link = make(NODE_LINK_TEXTURE);
    ApiNode* number = make(NODE_FLOAT);
    number->setIx(0, 0.5F, true);
    image->connectTo(PIN_POWER, link, true, false);
    EXPECT_EQ(image->getPinFloat(PIN_POWER), 1.0F) << "a link that passes on nothing leaves the default";
    link->connectTo(PIN_TEXTURE, number, true, false);
    EXPECT_EQ(image->getPinFloat(PIN_POWER), 0.5F);
    image->setPinValue(PIN_POWER, 0.75F, true);
    EXPECT_EQ(number->getFloatIx(0), 0.75F);
    EXPECT_EQ(image->connectedNode(PIN_POWER), link);
}

TEST_F(PinValueTest, WritingTheValueThatStandsIsNoChange) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    camera->setPinValue(PIN_FOV, 35.0F, true);
    camera->setPinValue(PIN_POSITION, Vec3<float>{1, 2, 3}, true);
    ChangeLog::take();
    Listener listener;
    listener.listen(camera);
    listener.listen(camera->connectedNode(PIN_FOV));
    camera->setPinValue(PIN_FOV, 35.0F, true);
    camera->setPinValue(PIN_FOV, 35, true);
    camera->setPinValue(PIN_POSITION, Vec3<float>{1, 2, 3}, true);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    EXPECT_THAT(listener.events, IsEmpty());
}

}  // namespace
}  // namespace Velmar::Engine
