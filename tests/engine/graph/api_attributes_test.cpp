// Attributes: reading, writing, and what is no change.
#include <velmar/item.h>

#include "engine/catalog/catalog.h"
#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AttributeTest : public GraphTest {};

TEST_F(AttributeTest, EachStartsAtTheDefaultOfItsRow) {
    for (const TypeEntry* entry : Catalog::types()) {
        ApiNode* node = bare(entry->row->type);
        ASSERT_EQ(node->attrCount(), entry->attributes.size());
        for (unsigned i = 0; i < node->attrCount(); ++i) {
            const ApiAttributeInfo& info = node->attrInfoIx(i);
            const std::string where = std::string(entry->row->type_name) + " " + info.name;
            EXPECT_EQ(&info, &entry->attributes[i]);
            EXPECT_EQ(node->attrIdIx(i), info.id) << where;
            EXPECT_STREQ(node->attrNameIx(i), info.name) << where;
            EXPECT_EQ(node->attrTypeIx(i), info.type) << where;
            EXPECT_EQ(node->attrId(info.name), info.id) << where;
            EXPECT_TRUE(node->hasAttr(info.id)) << where;
            if (info.is_array) continue;
            if (info.type == ATTR_TYPE_BOOL) {
                EXPECT_EQ(node->getBool(info.id), info.default_bool) << where;
            } else if (info.type == ATTR_TYPE_INT) {
                EXPECT_EQ(node->getIntIx(i), info.default_ints[0]) << where;
            } else if (info.type == ATTR_TYPE_FLOAT) {
                EXPECT_EQ(node->getFloatIx(i), info.default_floats[0]) << where;
            }
        }
        node->destroy();
    }
}

TEST_F(AttributeTest, UnknownNumbersNamesAndIndicesAnswerEmpty) {
    ApiNode* mesh = make(NODE_MESH);
    EXPECT_FALSE(mesh->hasAttr(ATTR_UNKNOWN));
    EXPECT_FALSE(mesh->hasAttr(ATTR_TRANSFORMS));
    EXPECT_EQ(mesh->attrId("no such name"), ATTR_UNKNOWN);
    EXPECT_EQ(mesh->attrId(""), ATTR_UNKNOWN);
    EXPECT_EQ(mesh->attrId(nullptr), ATTR_UNKNOWN);
    EXPECT_EQ(mesh->attrIdIx(1000), ATTR_UNKNOWN);
    EXPECT_STREQ(mesh->attrNameIx(1000), "");
    EXPECT_EQ(mesh->attrTypeIx(1000), ATTR_TYPE_UNKNOWN);
    EXPECT_EQ(mesh->attrInfoIx(1000).type, ATTR_TYPE_UNKNOWN);
    EXPECT_EQ(mesh->getIntIx(1000), 0);
    EXPECT_EQ(mesh->getFloat3ArrayIx(1000).size, 0U);
}

TEST_F(AttributeTest, AGraphHasNone) {
    EXPECT_EQ(root->attrCount(), 0U);
    EXPECT_FALSE(root->hasAttr(ATTR_VALUE));
    root->set(ATTR_VALUE, 1.0F, true);
    EXPECT_EQ(root->getFloat(ATTR_VALUE), 0.0F);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(AttributeTest, ScalarsReadBackAsWritten) {
    ApiNode* mesh = make(NODE_MESH);
    mesh->set(ATTR_SMOOTHING, false, true);
    EXPECT_FALSE(mesh->getBool(ATTR_SMOOTHING));
    mesh->set(ATTR_SUBDIVISION_LEVEL, 3, true);
    EXPECT_EQ(mesh->getInt(ATTR_SUBDIVISION_LEVEL), 3);
    mesh->set(ATTR_SMOOTHING_ANGLE, 12.5F, true);
    EXPECT_EQ(mesh->getFloat(ATTR_SMOOTHING_ANGLE), 12.5F);
    mesh->set(ATTR_FILENAME, "/a/b.obj", true);
    EXPECT_STREQ(mesh->getString(ATTR_FILENAME), "/a/b.obj");
    mesh->set(ATTR_FILENAME, static_cast<const char*>(nullptr), true);
    EXPECT_STREQ(mesh->getString(ATTR_FILENAME), "");
}

TEST_F(AttributeTest, VectorsReadBackAsWritten) {
    ApiNode* color = make(NODE_COLOR);
    color->set(ATTR_VALUE, Vec3<float>{0.1F, 0.2F, 0.3F}, true);
    EXPECT_EQ(color->getFloat3(ATTR_VALUE), (Vec3<float>{0.1F, 0.2F, 0.3F}));
    EXPECT_EQ(color->getFloat3Ix(0), (Vec3<float>{0.1F, 0.2F, 0.3F}));
    ApiNode* pair = make(NODE_INT2);
    pair->set(ATTR_VALUE, Vec2<int>{640, 480}, true);
    EXPECT_EQ(pair->getInt2(ATTR_VALUE), (Vec2<int>{640, 480}));
    EXPECT_EQ(pair->getInt2Ix(0), (Vec2<int>{640, 480}));
    ApiNode* triple = make(NODE_INT3);
    triple->set(ATTR_VALUE, Vec3<int>{1, 2, 3}, true);
    EXPECT_EQ(triple->getInt3(ATTR_VALUE), (Vec3<int>{1, 2, 3}));
    EXPECT_EQ(triple->getInt3Ix(0), (Vec3<int>{1, 2, 3}));
    ApiNode* floats = make(NODE_FLOAT2);
    floats->set(ATTR_VALUE, Vec2<float>{1.5F, 2.5F}, true);
    EXPECT_EQ(floats->getFloat2(ATTR_VALUE), (Vec2<float>{1.5F, 2.5F}));
    EXPECT_EQ(floats->getFloat2Ix(0), (Vec2<float>{1.5F, 2.5F}));
    ApiNode* matrix = make(NODE_TRANSFORM_MATRIX);
    const Matrix<float> value{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}};
    matrix->set(ATTR_TRANSFORM, value, true);
    EXPECT_EQ(matrix->getMatrixIx(0), value);
}

TEST_F(AttributeTest, AreWrittenByIndexToo) {
    ApiNode* number = make(NODE_FLOAT);
    number->setIx(0, 0.25F, true);
    EXPECT_EQ(number->getFloatIx(0), 0.25F);
    ApiNode* color = make(NODE_COLOR);
    color->setIx(0, Vec3<float>{1, 0, 0}, true);
    EXPECT_EQ(color->getFloat3(ATTR_VALUE), (Vec3<float>{1, 0, 0}));
    color->setIx(0, 0.5F, true);
    number->setIx(7, 0.5F, true);
    EXPECT_EQ(color->getFloat3(ATTR_VALUE), (Vec3<float>{1, 0, 0}));
    EXPECT_EQ(number->getFloatIx(0), 0.25F);
}

TEST_F(AttributeTest, GetAnswersWhetherThereIsOne) {
    ApiNode* mesh = make(NODE_MESH);
    mesh->set(ATTR_FILENAME, "x.obj", true);
    bool flag = false;
    EXPECT_TRUE(mesh->get(ATTR_SMOOTHING, flag));
    EXPECT_TRUE(flag);
    const char* text = "unchanged";
    EXPECT_FALSE(mesh->get(ATTR_SMOOTHING, text));
    EXPECT_STREQ(text, "unchanged");
    EXPECT_TRUE(mesh->get(ATTR_FILENAME, text));
    EXPECT_STREQ(text, "x.obj");
    ApiNode* transform = make(NODE_TRANSFORM_2D);
    Vec3<float> scale{};
    Matrix<float> matrix{};
    EXPECT_TRUE(transform->get(ATTR_SCALE, scale));
    EXPECT_EQ(scale, (Vec3<float>{1, 1, 1}));
    EXPECT_TRUE(transform->get(ATTR_TRANSFORM, matrix));
    EXPECT_EQ(matrix.m[2][2], 1.0F);
    EXPECT_FALSE(transform->get(ATTR_SCALE, matrix));
    EXPECT_FALSE(mesh->get(ATTR_TRANSFORM, matrix));
    EXPECT_EQ(matrix.m[2][2], 1.0F);
}

TEST_F(AttributeTest, AnotherTypeThanItsOwnReadsEmptyAndWritesNothing) {
    ApiNode* mesh = make(NODE_MESH);
    mesh->set(ATTR_SUBDIVISION_LEVEL, 2, true);
    ChangeLog::take();
    EXPECT_EQ(mesh->getFloat(ATTR_SUBDIVISION_LEVEL), 0.0F);
    EXPECT_FALSE(mesh->getBool(ATTR_SUBDIVISION_LEVEL));
    EXPECT_STREQ(mesh->getString(ATTR_SUBDIVISION_LEVEL), "");
    EXPECT_EQ(mesh->getFloat4(ATTR_SUBDIVISION_LEVEL), (Vec4<float>{}));
    const int index = 3;
    mesh->set(ATTR_SUBDIVISION_LEVEL, true, true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, 4.0F, true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, "4", true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, Vec2<int>{4, 4}, true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, Vec4<float>{}, true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, Matrix<float>{}, true);
    mesh->set(ATTR_SUBDIVISION_LEVEL, &index, 1, true);
    mesh->set(ATTR_VERTICES, &index, 1, true);
    mesh->set(ATTR_VERTICES, 4, true);
    mesh->set(ATTR_UNKNOWN, 4, true);
    mesh->set(ATTR_TRANSFORMS, 4, true);
    EXPECT_EQ(mesh->getInt(ATTR_SUBDIVISION_LEVEL), 2);
    EXPECT_EQ(mesh->getInt(ATTR_VERTICES), 0);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

unsigned indexOf(const ApiItem* item, AttributeId id) {
    for (unsigned i = 0; i < item->attrCount(); ++i) {
        if (item->attrIdIx(i) == id) return i;
    }
    return item->attrCount();
}

TEST_F(AttributeTest, ArraysReadBackAsWritten) {
    ApiNode* mesh = make(NODE_MESH);
    const int corners[] = {3, 4, 5};
    const Vec3<float> points[] = {{1, 2, 3}, {4, 5, 6}};
    const char* names[] = {"wood", nullptr, "glass"};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 3, true);
    mesh->set(ATTR_VERTICES, points, 2, true);
    mesh->set(ATTR_MATERIAL_NAMES, names, 3, true);
    const ApiArray<int> read_corners = mesh->getIntArrayIx(indexOf(mesh, ATTR_VERTICES_PER_POLYGON));
    EXPECT_EQ(std::vector<int>(read_corners.data, read_corners.data + read_corners.size), (std::vector{3, 4, 5}));
    const ApiArray<Vec3<float>> read_points = mesh->getFloat3ArrayIx(indexOf(mesh, ATTR_VERTICES));
    ASSERT_EQ(read_points.size, 2U);
    EXPECT_EQ(read_points.data[1], (Vec3<float>{4, 5, 6}));
    const ApiArray<const char*> read_names = mesh->getStringArrayIx(indexOf(mesh, ATTR_MATERIAL_NAMES));
    ASSERT_EQ(read_names.size, 3U);
    EXPECT_STREQ(read_names.data[0], "wood");
    EXPECT_STREQ(read_names.data[1], "");
    EXPECT_STREQ(read_names.data[2], "glass");

    ApiNode* scatter = make(NODE_SCATTER);
    const Matrix<float> places[] = {{}, {{{1, 0, 0, 5}}}};
    scatter->set(ATTR_TRANSFORMS, places, 2, true);
    const ApiArray<Matrix<float>> read_places = scatter->getMatrixArrayIx(indexOf(scatter, ATTR_TRANSFORMS));
    ASSERT_EQ(read_places.size, 2U);
    EXPECT_EQ(read_places.data[1], places[1]);
}

TEST_F(AttributeTest, ArraysOfAnotherTypeAndScalarsAnswerAnEmptyView) {
    ApiNode* mesh = make(NODE_MESH);
    const int corners[] = {3};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 1, true);
    const unsigned index = indexOf(mesh, ATTR_VERTICES_PER_POLYGON);
    EXPECT_EQ(mesh->getFloatArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getFloatArrayIx(index).data, nullptr);
    EXPECT_EQ(mesh->getBoolArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getByteArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getStringArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getInt2ArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getInt3ArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getInt4ArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getFloat2ArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getFloat4ArrayIx(index).size, 0U);
    EXPECT_EQ(mesh->getIntArrayIx(indexOf(mesh, ATTR_SUBDIVISION_LEVEL)).size, 0U);
    EXPECT_EQ(mesh->getIntIx(index), 0);
}

TEST_F(AttributeTest, ANullArrayCountsAsEmpty) {
    ApiNode* mesh = make(NODE_MESH);
    const int corners[] = {3};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 1, true);
    mesh->set(ATTR_VERTICES_PER_POLYGON, static_cast<const int*>(nullptr), 5, true);
    EXPECT_EQ(mesh->getIntArrayIx(indexOf(mesh, ATTR_VERTICES_PER_POLYGON)).size, 0U);
    mesh->set(ATTR_MATERIAL_NAMES, static_cast<const char* const*>(nullptr), 2, true);
    EXPECT_EQ(mesh->getStringArrayIx(indexOf(mesh, ATTR_MATERIAL_NAMES)).size, 0U);
}

TEST_F(AttributeTest, AnArrayMayBeWrittenFromItsOwnView) {
    ApiNode* mesh = make(NODE_MESH);
    const int corners[] = {3, 4, 5};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 3, true);
    const ApiArray<int> view = mesh->getIntArrayIx(indexOf(mesh, ATTR_VERTICES_PER_POLYGON));
    mesh->set(ATTR_VERTICES_PER_POLYGON, view.data + 1, 2, true);
    const ApiArray<int> now = mesh->getIntArrayIx(indexOf(mesh, ATTR_VERTICES_PER_POLYGON));
    EXPECT_EQ(std::vector<int>(now.data, now.data + now.size), (std::vector{4, 5}));
}

TEST_F(AttributeTest, WritingTheValueThatStandsIsNoChange) {
    ApiNode* mesh = meshWithSlots(2);
    const int corners[] = {3, 3};
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 2, true);
    mesh->set(ATTR_FILENAME, "x", true);
    Listener listener;
    listener.listen(mesh);
    ChangeLog::take();
    mesh->set(ATTR_SMOOTHING, true, true);
    mesh->set(ATTR_SMOOTHING_ANGLE, 89.0F, true);
    mesh->set(ATTR_FILENAME, "x", true);
    mesh->set(ATTR_VERTICES_PER_POLYGON, corners, 2, true);
    mesh->set(ATTR_NORMALS, static_cast<const Vec3<float>*>(nullptr), 0, true);
    setSlots(mesh, 2);
    mesh->setName(mesh->name());
    mesh->setPosition(mesh->position());
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    EXPECT_THAT(listener.events, IsEmpty());
}

TEST_F(AttributeTest, EqualityIsBitByBit) {
    ApiNode* number = make(NODE_FLOAT);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    number->set(ATTR_VALUE, nan, true);
    ChangeLog::take();
    number->set(ATTR_VALUE, nan, true);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
    number->set(ATTR_VALUE, 0.0F, true);
    ChangeLog::take();
    number->set(ATTR_VALUE, -0.0F, true);
    EXPECT_TRUE(std::signbit(number->getFloat(ATTR_VALUE)));
    EXPECT_EQ(ChangeLog::take().size(), 2U);
}

TEST_F(AttributeTest, TheReloadFlagIsADemandEachTimeItIsWrittenFalse) {
    ApiNode* image = make(NODE_IMAGE);
    image->set(ATTR_RELOAD, false, true);
    ChangeLog::take();
    Listener listener;
    listener.listen(image);
    image->set(ATTR_RELOAD, false, true);
    EXPECT_THAT(ChangeLog::take(), ElementsAre(Change{Change::Kind::Attribute, image, ATTR_RELOAD},
                                               Change{Change::Kind::Evaluated, image}));
    EXPECT_THAT(listener.events, IsEmpty()) << "its value did not change";
    image->set(ATTR_RELOAD, true, true);
    ChangeLog::take();
    image->set(ATTR_RELOAD, true, true);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(AttributeTest, OfAComputedValueCannotBeWritten) {
    ApiNode* environment = make(NODE_DAYLIGHT_ENVIRONMENT);
    ApiNode* sun = environment->inputNode(PIN_SUN_DIRECTION);
    const Vec3<float> direction = sun->getFloat3Ix(0);
    ChangeLog::take();
    sun->set(ATTR_VALUE, Vec3<float>{1, 0, 0}, true);
    sun->setIx(0, Vec3<float>{1, 0, 0}, true);
    EXPECT_EQ(sun->getFloat3Ix(0), direction);
    EXPECT_THAT(ChangeLog::take(), IsEmpty());
}

TEST_F(AttributeTest, AMillionPlacementsAreWrittenAndReadBack) {
    ApiNode* scatter = make(NODE_SCATTER);
    std::vector<Matrix<float>> places(1000000);
    for (std::size_t i = 0; i < places.size(); ++i) places[i].m[0][3] = static_cast<float>(i);
    scatter->set(ATTR_TRANSFORMS, places.data(), places.size(), true);
    const ApiArray<Matrix<float>> view = scatter->getMatrixArrayIx(0);
    ASSERT_EQ(view.size, places.size());
    EXPECT_NE(view.data, places.data());
    EXPECT_EQ(std::memcmp(view.data, places.data(), view.size * sizeof(Matrix<float>)), 0);
}

}  // namespace
}  // namespace Velmar::Engine
