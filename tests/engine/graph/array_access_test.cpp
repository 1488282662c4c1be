#include "engine/graph/array_access.h"

#include "engine/graph/graph_test.h"

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ArrayAccessTest : public GraphTest {};

TEST_F(ArrayAccessTest, SharesTheArrayOfAnAttributeWithoutACopy) {
    ApiNode* mesh = make(NODE_MESH);
    const int counts[] = {3, 4};
    const Vec3<float> points[] = {{1, 2, 3}};
    const char* names[] = {"wood", "glass"};
    mesh->set(ATTR_VERTICES_PER_POLYGON, counts, 2, true);
    mesh->set(ATTR_VERTICES, points, 1, true);
    mesh->set(ATTR_MATERIAL_NAMES, names, 2, true);
    EXPECT_THAT(*intArray(mesh, ATTR_VERTICES_PER_POLYGON), ElementsAre(3, 4));
    EXPECT_THAT(*float3Array(mesh, ATTR_VERTICES), ElementsAre(points[0]));
    EXPECT_THAT(*stringArray(mesh, ATTR_MATERIAL_NAMES), ElementsAre("wood", "glass"));
    EXPECT_EQ(intArray(mesh, ATTR_VERTICES_PER_POLYGON), intArray(mesh, ATTR_VERTICES_PER_POLYGON));
    EXPECT_EQ(intArray(mesh, ATTR_VERTICES_PER_POLYGON)->data(), mesh->getIntArrayIx(8).data);
    EXPECT_EQ(stringArray(mesh, ATTR_MATERIAL_NAMES), stringArray(mesh, ATTR_MATERIAL_NAMES));
}

TEST_F(ArrayAccessTest, AnArrayOutlivesTheItemAndTheLibrary) {
    ApiNode* scatter = make(NODE_SCATTER);
    const Matrix<float> place{{{1, 0, 0, 7}}};
    scatter->set(ATTR_TRANSFORMS, &place, 1, true);
    const SharedArray<Matrix<float>> held = matrixArray(scatter, ATTR_TRANSFORMS);
    scatter->destroy();
    Project::stop();
    EXPECT_THAT(*held, ElementsAre(place));
    ASSERT_TRUE(Project::start());
}

TEST_F(ArrayAccessTest, AWritePutsANewArrayInThePlaceOfTheOld) {
    ApiNode* mesh = make(NODE_MESH);
    const int before[] = {3, 4};
    const int after[] = {5};
    mesh->set(ATTR_VERTICES_PER_POLYGON, before, 2, true);
    const SharedArray<int> held = intArray(mesh, ATTR_VERTICES_PER_POLYGON);
    mesh->set(ATTR_VERTICES_PER_POLYGON, after, 1, true);
    EXPECT_THAT(*held, ElementsAre(3, 4));
    EXPECT_THAT(*intArray(mesh, ATTR_VERTICES_PER_POLYGON), ElementsAre(5));
    const SharedArray<int> now = intArray(mesh, ATTR_VERTICES_PER_POLYGON);
    mesh->set(ATTR_VERTICES_PER_POLYGON, after, 1, true);
    EXPECT_EQ(intArray(mesh, ATTR_VERTICES_PER_POLYGON), now) << "equal elements are no change";
}

TEST_F(ArrayAccessTest, IsEmptyAndNeverNullWhereThereIsNone) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* gone = make(NODE_MESH);
    gone->destroy();
    for (const ApiItem* item : std::initializer_list<ApiItem*>{nullptr, gone, mesh, root}) {
        ASSERT_NE(intArray(item, ATTR_VERTICES_PER_POLYGON), nullptr);
        EXPECT_THAT(*intArray(item, ATTR_VERTICES_PER_POLYGON), IsEmpty());
        EXPECT_THAT(*intArray(item, ATTR_VERTICES), IsEmpty()) << "another type";
        EXPECT_THAT(*intArray(item, ATTR_UNKNOWN), IsEmpty());
        EXPECT_THAT(*floatArray(item, ATTR_VERTICES), IsEmpty());
        EXPECT_THAT(*float2Array(item, ATTR_VERTICES), IsEmpty());
        EXPECT_THAT(*float3Array(item, ATTR_VERTICES), IsEmpty());
        EXPECT_THAT(*matrixArray(item, ATTR_TRANSFORMS), IsEmpty());
        EXPECT_THAT(*stringArray(item, ATTR_MATERIAL_NAMES), IsEmpty());
    }
}

}  // namespace
}  // namespace Velmar::Engine
