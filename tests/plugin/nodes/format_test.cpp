#include "plugin/nodes/format.h"

#include <sstream>

#include "plugin/nodes/sdk_test.h"

namespace Velmar {
namespace {

using ChangeEvent = ApiChangeManager::ChangeEvent;

template <typename T>
std::string Text(const T& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

std::string Address(const void* pointer) {
    return Text(pointer);
}

template <typename T>
ApiArray<T> View(const std::vector<T>& elements) {
    return {elements.data(), elements.size()};
}

// --- Values and arrays ---

TEST(Format, PutsThePartsOfVectorsInBrackets) {
    EXPECT_EQ(Text(Vec2<int>{1, -2}), "[1,-2]");
    EXPECT_EQ(Text(Vec3<int>{1, -2, 3}), "[1,-2,3]");
    EXPECT_EQ(Text(Vec4<int>{1, -2, 3, 4}), "[1,-2,3,4]");
    EXPECT_EQ(Text(Vec2<float>{0.5F, -2}), "[0.5,-2]");
    EXPECT_EQ(Text(Vec3<float>{0.5F, -2, 3}), "[0.5,-2,3]");
    EXPECT_EQ(Text(Vec4<float>{0.5F, -2, 3, 4e10F}), "[0.5,-2,3,4e+10]");
}

TEST(Format, PrintsAMatrixAsFourRows) {
    EXPECT_EQ(Text(Matrix<float>{{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12.5F}}}),
              "[[1,2,3,4],[5,6,7,8],[9,10,11,12.5],[0,0,0,1]]");
}

TEST(Format, PrintsTheSizeOfAnArrayInBracketsBeforeItsElements) {
    const bool bools[] = {true, false};
    EXPECT_EQ(Text(ApiArray<bool>{bools, 2}), "[2] [1,0]");
    EXPECT_EQ(Text(ApiArray<int>{}), "[0] []");
    EXPECT_EQ(Text(View<int>({7})), "[1] [7]");
    EXPECT_EQ(Text(View<float>({0.5F, 2})), "[2] [0.5,2]");
    EXPECT_EQ(Text(View<Vec2<int>>({{1, 2}, {3, 4}})), "[2] [[1,2],[3,4]]");
    EXPECT_EQ(Text(View<Vec3<int>>({{1, 2, 3}})), "[1] [[1,2,3]]");
    EXPECT_EQ(Text(View<Vec4<int>>({{1, 2, 3, 4}})), "[1] [[1,2,3,4]]");
    EXPECT_EQ(Text(View<Vec2<float>>({{1, 2}})), "[1] [[1,2]]");
    EXPECT_EQ(Text(View<Vec3<float>>({{1, 2, 3}})), "[1] [[1,2,3]]");
    EXPECT_EQ(Text(View<Vec4<float>>({{1, 2, 3, 4}})), "[1] [[1,2,3,4]]");
    EXPECT_EQ(Text(View<const char*>({"a", "", nullptr})), "[3] [a,,<null>]");
    EXPECT_EQ(Text(View<Matrix<float>>({{}})), "[1] [[[0,0,0,0],[0,0,0,0],[0,0,0,0],[0,0,0,1]]]");
}

TEST(Format, PrintsTheSizeOfBytesBareAndBytesAsNumbers) {
    EXPECT_EQ(Text(View<unsigned char>({1, 65, 255})), "3 [1,65,255]");
    EXPECT_EQ(Text(ApiArray<unsigned char>{}), "0 []");
}

TEST(Format, ShowsTwentyElementsAndThatThereAreMore) {
    std::vector<const char*> texts(20, "x");
    std::string twenty = "x";
    for (int i = 1; i < 20; ++i) twenty += ",x";
    EXPECT_EQ(Text(View(texts)), "[20] [" + twenty + "]");
    texts.push_back("y");
    EXPECT_EQ(Text(View(texts)), "[21] [" + twenty + ",...]");
    const std::vector<unsigned char> bytes(300, 7);
    EXPECT_THAT(Text(View(bytes)), testing::MatchesRegex("300 \\[(7,){20}\\.\\.\\.\\]"));
}

// --- Items ---

class FormatItemsTest : public SdkTest {};

TEST_F(FormatItemsTest, HaveATextForNull) {
    EXPECT_EQ(Text(static_cast<const ApiNode*>(nullptr)), "0 [null ApiNode*]");
    EXPECT_EQ(Text(static_cast<const ApiNodeGraph*>(nullptr)), "0 [null ApiNodeGraph*]");
    EXPECT_EQ(Text(static_cast<const ApiItem*>(nullptr)), "0 [null ApiItem*]");
}

TEST_F(FormatItemsTest, TellTypeQuotedNamePinsAndUsersOfANode) {
    ApiNode* const number = Make(NODE_FLOAT, "A \"b\"\n");
    EXPECT_EQ(Text(static_cast<const ApiNode*>(number)),
              Address(number) + " VELMAR_FLOAT \"A \\\"b\\\"\\n\" in 0/0 out 0");
    ApiNode* const multiply = Make(NODE_MULTIPLY_TEXTURE, "M");
    multiply->connectTo(PIN_TEXTURE_1, number, true, false);
    multiply->connectTo(PIN_TEXTURE_2, nullptr, true, false);
    EXPECT_EQ(Text(multiply), Address(multiply) + " VELMAR_MULTIPLY \"M\" in 1/2 out 0");
    multiply->connectTo(PIN_TEXTURE_2, number, true, false);
    EXPECT_THAT(Text(number), testing::EndsWith(" in 0/0 out 2"));
    EXPECT_THAT(Text(multiply), testing::EndsWith(" in 2/2 out 0"));
}

TEST_F(FormatItemsTest, TellTypeAndQuotedNameOfAGraph) {
    ApiNodeGraph* const graph = ApiNodeGraph::create(GRAPH_STANDARD, Root());
    graph->setName("G");
    EXPECT_EQ(Text(graph), Address(graph) + " VELMAR_GRAPH \"G\"");
    EXPECT_EQ(Text(static_cast<const ApiItem*>(graph)), Text(graph));
    ApiNode* const node = Make(NODE_FLOAT);
    EXPECT_EQ(Text(static_cast<const ApiItem*>(node)), Text(node));
}

TEST_F(FormatItemsTest, TellThatADestroyedItemIsOfNoKind) {
    ApiNode* const node = Make(NODE_FLOAT);
    node->destroy();
    EXPECT_EQ(Text(static_cast<const ApiItem*>(node)), Address(node) + " [unknown ApiItem*]");
}

// --- Events ---

TEST_F(FormatItemsTest, NameEachChange) {
    const std::map<unsigned, const char*> names = {{1, "ITEM_ADDED"},
                                                   {2, "ITEM_DELETE"},
                                                   {4, "CONNECTION_CHANGED"},
                                                   {8, "DESTINATION_ADDED"},
                                                   {16, "PINS_CHANGED"},
                                                   {32, "ITEM_VALUE_CHANGED"},
                                                   {64, "ITEM_NAME_CHANGED"},
                                                   {128, "ITEM_MOVED"},
                                                   {256, "LINKER_ORDER_CHANGED"},
                                                   {512, "ITEM_UI_OPERATION_FLAG_CHANGED"}};
    for (const auto& [bit, name] : names) EXPECT_EQ(Text(ChangeEvent::Type{bit}), name);
}

TEST_F(FormatItemsTest, PrintChangesThatAreNoSingleBitAsNumbers) {
    EXPECT_EQ(Text(ChangeEvent::Type{3}), "3");
    EXPECT_EQ(Text(ChangeEvent::Type{0}), "0");
    EXPECT_EQ(Text(ChangeEvent::Type{1024}), "1024");
}

TEST_F(FormatItemsTest, TellOfAnEventWhatItsTypeHas) {
    ApiNode* const material = Make(NODE_MATERIAL_GLOSSY, "M");
    ApiNode* const image = PutInternal(material, PIN_BUMP, NODE_IMAGE);
    const std::string item = Text(image);
    const std::string user = Text(material);
    unsigned bump = 0;
    while (material->pinIdIx(bump) != PIN_BUMP) ++bump;
    const std::string pin = "pin " + std::to_string(bump) + " bump texture";
    const auto event = [&](unsigned type, ApiItem* changed, ApiItem* owner) {
        return Text(ChangeEvent{ChangeEvent::Type{type}, changed, owner, bump});
    };
    EXPECT_EQ(event(1, image, material), "ITEM_ADDED: " + item + " (owner " + user + ", " + pin + ")");
    EXPECT_EQ(event(2, image, material), "ITEM_DELETE: " + item + " (owner " + user + ", " + pin + ")");
    EXPECT_EQ(event(1, material, Root()), "ITEM_ADDED: " + user + " (owner " + Text(Root()) + ")");
    EXPECT_EQ(event(2, material, nullptr), "ITEM_DELETE: " + user + " (owner 0 [null ApiItem*])");
    EXPECT_EQ(event(4, material, Root()), "CONNECTION_CHANGED: " + user + "(" + pin + ")");
    EXPECT_EQ(event(4, Root(), nullptr), "CONNECTION_CHANGED: " + Text(Root()));
    EXPECT_EQ(event(4, nullptr, nullptr), "CONNECTION_CHANGED: 0 [null ApiItem*]");
    EXPECT_EQ(event(256, material, Root()), "LINKER_ORDER_CHANGED: " + user + " (owner " + Text(Root()) + ")");
    EXPECT_EQ(event(32, material, Root()), "ITEM_VALUE_CHANGED: " + user);
    EXPECT_EQ(event(3, image, material), "3: " + item);
}

}  // namespace
}  // namespace Velmar
