// Names of numbers, and what fits where.
#include <velmar/info.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace Velmar {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

std::vector<int> compatible(NodePinType type) {
    const NodeGraphType* graphs = nullptr;
    const NodeType* nodes = nullptr;
    std::size_t graph_count = 7;
    std::size_t node_count = 7;
    ApiInfo::getCompatibleTypes(type, graphs, graph_count, nodes, node_count);
    EXPECT_EQ(graphs, nullptr);
    EXPECT_EQ(graph_count, 0U);
    EXPECT_EQ(nodes == nullptr, node_count == 0);
    return {nodes, nodes + node_count};
}

TEST(ApiInfo, NamesNodeTypesWithAPrefixOfSevenCharacters) {
    EXPECT_STREQ(ApiInfo::getNodeTypeName(NODE_MATERIAL_GLOSSY), "VELMAR_GLOSSY");
    EXPECT_STREQ(ApiInfo::getNodeTypeName(NODE_MESH), "VELMAR_MESH");
    EXPECT_EQ(std::string(ApiInfo::getNodeTypeName(NODE_LINK_MATERIAL)).substr(0, 7), "VELMAR_");
}

TEST(ApiInfo, NamesEachKindOnce) {
    std::set<std::string> names;
    for (const int type : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 23}) {
        const std::string name = ApiInfo::getPinTypeName(static_cast<NodePinType>(type));
        EXPECT_NE(name, "") << type;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
    names.clear();
    for (int type = 1; type <= 13; ++type) {
        const std::string name = ApiInfo::getAttributeTypeName(static_cast<AttributeType>(type));
        EXPECT_NE(name, "") << type;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
    EXPECT_STRNE(ApiInfo::getGraphTypeName(GRAPH_STANDARD), ApiInfo::getGraphTypeName(GRAPH_ROOT));
}

TEST(ApiInfo, NamesPinsAndAttributesAsNodesDo) {
    EXPECT_STREQ(ApiInfo::getPinIdName(PIN_FOCAL_DEPTH), "focal_depth");
    EXPECT_STREQ(ApiInfo::getAttributeIdName(ATTR_VALUE), "value");
    EXPECT_STREQ(ApiInfo::getAttributeIdName(ATTR_FILENAME), "filename");
}

TEST(ApiInfo, AnswersTheEmptyTextForUnknownNumbers) {
    for (const int number : {0, -1, 4, 999999}) {
        EXPECT_STREQ(ApiInfo::getNodeTypeName(static_cast<NodeType>(number)), "") << number;
        EXPECT_STREQ(ApiInfo::getAttributeIdName(static_cast<AttributeId>(number)), "") << number;
    }
    for (const int number : {0, -1, 4, 999999}) {
        EXPECT_STREQ(ApiInfo::getPinIdName(static_cast<PinId>(number)), "") << number;
    }
    for (const int number : {0, -1, 18, 99}) {
        EXPECT_STREQ(ApiInfo::getPinTypeName(static_cast<NodePinType>(number)), "") << number;
        EXPECT_STREQ(ApiInfo::getAttributeTypeName(static_cast<AttributeType>(number)), "") << number;
        EXPECT_STREQ(ApiInfo::getGraphTypeName(static_cast<NodeGraphType>(number)), "") << number;
    }
}

TEST(ApiInfo, ListsWhatMayStandOnAPin) {
    EXPECT_THAT(compatible(PIN_TYPE_MATERIAL), ElementsAre(16, 17, 18, 19, 20, 120, 121));
    EXPECT_THAT(compatible(PIN_TYPE_CAMERA), ElementsAre(13, 62));
    EXPECT_THAT(compatible(PIN_TYPE_ENVIRONMENT), ElementsAre(14, 37));
    EXPECT_THAT(compatible(PIN_TYPE_KERNEL), ElementsAre(23, 24, 25, 26));
    EXPECT_THAT(compatible(PIN_TYPE_GEOMETRY), ElementsAre(1, 2, 3, 5));
    EXPECT_THAT(compatible(PIN_TYPE_EMISSION), ElementsAre(1010, 1011));
    EXPECT_THAT(compatible(PIN_TYPE_TRANSFORM), ElementsAre(27, 28, 29, 66, 67));
    EXPECT_THAT(compatible(PIN_TYPE_TEXTURE), AllOf(Contains(34), Contains(33), Contains(31), Not(Contains(16))));
    EXPECT_THAT(compatible(PIN_TYPE_FLOAT), AllOf(Contains(31), Contains(33), Not(Contains(34))));
}

TEST(ApiInfo, ListsNothingForKindsWithoutNodes) {
    EXPECT_THAT(compatible(PIN_TYPE_MEDIUM), ElementsAre());
    EXPECT_THAT(compatible(PIN_TYPE_UNKNOWN), ElementsAre());
    EXPECT_THAT(compatible(static_cast<NodePinType>(77)), ElementsAre());
}

}  // namespace
}  // namespace Velmar
