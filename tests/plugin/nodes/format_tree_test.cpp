#include <sstream>

#include "plugin/nodes/format.h"
#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using testing::HasSubstr;
using testing::Not;

template <typename T>
std::string Text(const T& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

class FormatTreeTest : public SdkTest {};

TEST_F(FormatTreeTest, HasALineForNull) {
    EXPECT_EQ(NodeUtils::FormatItem(nullptr, 0, "", ""), "nullptr\n");
    EXPECT_EQ(NodeUtils::FormatItem(nullptr, 2, "label", "value"), "        label <- nullptr\n");
    EXPECT_EQ(NodeUtils::FormatGraph(nullptr, 1), "0 [null ApiNodeGraph*]\n");
    EXPECT_EQ(NodeUtils::FormatNode(nullptr, 1, ""), "0 [null ApiNode*]\n");
    EXPECT_EQ(NodeUtils::FormatOutputNodes(nullptr, 3, 1, "x "), "    x 0 [null ApiNode*]\n");
}

TEST_F(FormatTreeTest, TellsThatADestroyedItemIsOfUnknownType) {
    ApiNode* const node = Make(NODE_FLOAT);
    node->destroy();
    EXPECT_EQ(NodeUtils::FormatItem(node, 1, "", ""), "    : unknown type\n");
}

TEST_F(FormatTreeTest, PutsIndentLabelAndNameBeforeANodeAndItsValueBehind) {
    ApiNode* const node = Make(NODE_FLOAT, "F");
    EXPECT_EQ(NodeUtils::FormatItem(node, 0, "", ""), "F: VELMAR_FLOAT\n");
    EXPECT_EQ(NodeUtils::FormatItem(node, 1, "pin", "0.5"), "    pin <- F: VELMAR_FLOAT = 0.5\n");
    EXPECT_EQ(NodeUtils::FormatNode(node, 3, "0.5"), "VELMAR_FLOAT = 0.5\n");
}

TEST_F(FormatTreeTest, ListsAttributesThatDifferFromTheirDefaultsOneLevelBelowTheNode) {
    ApiNode* const node = Make(NODE_FLOAT);
    EXPECT_EQ(NodeUtils::FormatNode(node, 0, ""), "VELMAR_FLOAT\n");
    node->set(ATTR_VALUE, 0.25F, true);
    EXPECT_EQ(NodeUtils::FormatNode(node, 0, ""), "VELMAR_FLOAT\n    value: float = 0.25\n");
    EXPECT_EQ(NodeUtils::FormatNode(node, 2, ""), "VELMAR_FLOAT\n            value: float = 0.25\n");
}

TEST_F(FormatTreeTest, PrintsEachKindOfAttribute) {
    const auto line = [](NodeType type, const auto& value) {
        ApiNode* const node = Make(type);
        node->set(ATTR_VALUE, value, true);
        return NodeUtils::FormatNode(node, 0, "");
    };
    EXPECT_THAT(line(Engine::NODE_BOOL, true), HasSubstr("\n    value: bool = true\n"));
    EXPECT_THAT(line(Engine::NODE_INT, 7), HasSubstr("\n    value: int = 7\n"));
    EXPECT_THAT(line(Engine::NODE_INT2, Vec2<int>{1, 2}), HasSubstr("\n    value: int2 = [1,2]\n"));
    EXPECT_THAT(line(Engine::NODE_INT3, Vec3<int>{1, 2, 3}), HasSubstr("\n    value: int3 = [1,2,3]\n"));
    EXPECT_THAT(line(Engine::NODE_FLOAT2, Vec2<float>{1, 2.5F}), HasSubstr("\n    value: float2 = [1,2.5]\n"));
    EXPECT_THAT(line(NODE_COLOR, Vec3<float>{1, 0, 0.5F}), HasSubstr("\n    value: float3 = [1,0,0.5]\n"));
    EXPECT_THAT(line(Engine::NODE_STRING, "a b"), HasSubstr("\n    value: string = a b\n"));
}

TEST_F(FormatTreeTest, PrintsAMatrixAsFourRows) {
    ApiNode* const node = Make(NODE_TRANSFORM_3D);
    EXPECT_EQ(NodeUtils::FormatNode(node, 0, ""), "VELMAR_TRANSFORM3D\n");
    node->set(ATTR_TRANSFORM, Matrix<float>{{{1, 0, 0, 2}, {0, 1, 0, 3}, {0, 0, 1, 4}}}, true);
    EXPECT_EQ(NodeUtils::FormatNode(node, 0, ""),
              "VELMAR_TRANSFORM3D\n"
              "    transform: matrix = [[1,0,0,2],[0,1,0,3],[0,0,1,4],[0,0,0,1]]\n"
              "    translation: float3 = [2,3,4]\n");
}

TEST_F(FormatTreeTest, PrintsFileNamesAndBoolsThatAreNoLongerTrue) {
    ApiNode* const image = Make(NODE_IMAGE);
    image->set(ATTR_FILENAME, "/a/b.png", false);
    EXPECT_THAT(NodeUtils::FormatNode(image, 0, ""), HasSubstr("\n    filename: filename = /a/b.png\n"));
    ApiNode* const mesh = Make(NODE_MESH);
    mesh->set(ATTR_SMOOTHING, false, true);
    EXPECT_THAT(NodeUtils::FormatNode(mesh, 0, ""), HasSubstr("\n    smoothing: bool = false\n"));
}

TEST_F(FormatTreeTest, ComparesAnArrayOfOneElementAndTakesAllOthersForChanged) {
    ApiNode* const mesh = Make(NODE_MESH);
    const auto line = [&](const char* start) {
        const std::string text = NodeUtils::FormatNode(mesh, 0, "");
        const std::size_t at = text.find(start);
        return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
    };
    EXPECT_EQ(line("    vertex_indices:"), "    vertex_indices: int = [0] []");
    const int zero = 0;
    mesh->set(ATTR_VERTEX_INDICES, &zero, 1, false);
    EXPECT_EQ(line("    vertex_indices:"), "");
    const int numbers[] = {3, 4};
    mesh->set(ATTR_VERTEX_INDICES, numbers, 1, false);
    EXPECT_EQ(line("    vertex_indices:"), "    vertex_indices: int = [1] [3]");
    mesh->set(ATTR_VERTEX_INDICES, numbers, 2, false);
    EXPECT_EQ(line("    vertex_indices:"), "    vertex_indices: int = [2] [3,4]");
    const Vec3<float> point{1, 2, 3};
    mesh->set(ATTR_VERTICES, &point, 1, false);
    EXPECT_EQ(line("    vertices:"), "    vertices: float3 = [1] [[1,2,3]]");
    const char* const name = "Oak";
    mesh->set(ATTR_MATERIAL_NAMES, &name, 1, false);
    EXPECT_EQ(line("    material_names:"), "    material_names: string = [1] [Oak]");
    const char* const no_name = "";
    mesh->set(ATTR_MATERIAL_NAMES, &no_name, 1, false);
    EXPECT_EQ(line("    material_names:"), "");
}

TEST_F(FormatTreeTest, TakesAnArrayOfOneIdentityForTheDefault) {
    ApiNode* const scatter = Make(NODE_SCATTER);
    const Matrix<float> identity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
    scatter->set(ATTR_TRANSFORMS, &identity, 1, false);
    EXPECT_THAT(NodeUtils::FormatNode(scatter, 0, ""), Not(HasSubstr("transforms")));
    const Matrix<float> moved{{{1, 0, 0, 5}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
    scatter->set(ATTR_TRANSFORMS, &moved, 1, false);
    EXPECT_THAT(NodeUtils::FormatNode(scatter, 0, ""),
                HasSubstr("\n    transforms: matrix = [1] [[[1,0,0,5],[0,1,0,0],[0,0,1,0],[0,0,0,1]]]\n"));
}

/// The line of what stands on a pin.
std::string PinLine(ApiNode* node, const char* pin_name) {
    std::istringstream text(NodeUtils::FormatNode(node, 0, ""));
    for (std::string line; std::getline(text, line);) {
        if (line.rfind(std::string("    ") + pin_name + ":", 0) == 0) return line;
    }
    return "";
}

TEST_F(FormatTreeTest, ListsConnectedPinsWithTheirKindAndValue) {
    ApiNode* const image = Make(NODE_IMAGE);
    image->setPinValue(PIN_POWER, 0.5F, true);
    EXPECT_EQ(PinLine(image, "power"), "    power: float <- Float value: VELMAR_FLOAT = 0.5");
    EXPECT_EQ(PinLine(image, "invert"), "    invert: bool <- Bool value: VELMAR_BOOL = false");
    EXPECT_EQ(PinLine(image, "uv_transform"),
              "    uv_transform: transform <- 2D transform: VELMAR_TRANSFORM2D = "
              "[[1,0,0,0],[0,1,0,0],[0,0,1,0],[0,0,0,1]]");
    image->connectTo(PIN_INVERT, nullptr, true, false);
    EXPECT_EQ(PinLine(image, "invert"), "");
}

TEST_F(FormatTreeTest, PrintsAsManyPartsAsAPinHas) {
    ApiNode* const camera = Make(NODE_THIN_LENS_CAMERA);
    camera->setPinValue(PIN_LENS_SHIFT, Vec2<float>{0.5F, -1}, true);
    camera->setPinValue(PIN_POSITION, Vec3<float>{1, 2, 3}, true);
    EXPECT_THAT(PinLine(camera, "lens_shift"), testing::EndsWith(" = [0.5,-1]"));
    EXPECT_THAT(PinLine(camera, "position"), testing::EndsWith(" = [1,2,3]"));
    ApiNode* const film = Make(NODE_FILM_SETTINGS);
    film->setPinValue(PIN_RESOLUTION, Vec2<int>{640, 480}, true);
    EXPECT_THAT(PinLine(film, "resolution"), testing::EndsWith(" = [640,480]"));
    ApiNode* const sun = Make(Engine::NODE_SUN_DIRECTION);
    sun->setPinValue(PIN_MONTH, 7, true);
    EXPECT_THAT(PinLine(sun, "month"), testing::EndsWith(" = 7"));
    ApiNode* const kernel = Make(NODE_KERNEL_INFO_CHANNEL);
    kernel->setPinValue(PIN_INFO_CHANNEL_TYPE, 3, true);
    EXPECT_THAT(PinLine(kernel, "info_channel_type"), testing::EndsWith(" = 3"));
}

TEST_F(FormatTreeTest, PrintsNoValueForPinsOnWhichANodeStandsForItself) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY);
    Put(material, PIN_BUMP, NODE_IMAGE);
    EXPECT_EQ(PinLine(material, "bump"), "    bump: texture <- RGB image: VELMAR_IMAGE");
    EXPECT_EQ(PinLine(material, "diffuse"), "    diffuse: texture <- RGB colour: VELMAR_RGB");
}

TEST_F(FormatTreeTest, ListsAGraphsItemsInOrderAndNodesThatAreUsedBelowTheirUsersAlone) {
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    graph->setName("Scene");
    const auto make = [&](NodeType type, const char* name) {
        ApiNode* const node = ApiNode::create(type, graph, false);
        node->setName(name);
        return node;
    };
    ApiNode* const number = make(NODE_FLOAT, "z");
    make(NODE_FLOAT, "a");
    ApiNode* const multiply = make(NODE_MULTIPLY_TEXTURE, "M");
    multiply->connectTo(PIN_TEXTURE_2, number, true, false);
    ApiNodeGraph* const inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    inner->setName("Inner");
    ApiNode::create(NODE_COLOR, inner, false)->setName("C");
    EXPECT_EQ(NodeUtils::FormatGraph(graph, 0), Text(graph) + "\n" + "    Inner: " + Text(inner) + "\n" +
                                                    "        C: VELMAR_RGB\n"
                                                    "    a: VELMAR_FLOAT\n"
                                                    "    M: VELMAR_MULTIPLY\n"
                                                    "        texture_2: texture <- z: VELMAR_FLOAT\n");
    EXPECT_EQ(NodeUtils::FormatItem(inner, 1, "", "ignored"),
              "    Inner: " + Text(inner) + "\n        C: VELMAR_RGB\n");
}

TEST_F(FormatTreeTest, FollowsTheUsersOfANodeDownToALevel) {
    ApiNode* const image = Make(NODE_IMAGE, "I");
    ApiNode* const lower = Make(NODE_MULTIPLY_TEXTURE, "L");
    ApiNode* const upper = Make(NODE_MULTIPLY_TEXTURE, "U");
    lower->connectTo(PIN_TEXTURE_1, image, true, false);
    upper->connectTo(PIN_TEXTURE_1, image, true, false);
    upper->connectTo(PIN_TEXTURE_2, lower, true, false);
    const std::string first = "of " + Text(image) + "\n";
    const std::string second = "    => texture_1:" + Text(lower) + "\n";
    const std::string third = "        => texture_2:" + Text(upper) + "\n";
    const std::string last = "    => texture_1:" + Text(upper) + "\n";
    EXPECT_EQ(NodeUtils::FormatOutputNodes(image, 0, 0, "of "), first);
    EXPECT_EQ(NodeUtils::FormatOutputNodes(image, 1, 0, "of "), first + second + last);
    EXPECT_EQ(NodeUtils::FormatOutputNodes(image, 9, 0, "of "), first + second + third + last);
    EXPECT_EQ(NodeUtils::FormatOutputNodes(image, 1, 1, "of "), "    " + first);
}

}  // namespace
}  // namespace Velmar
