// Nodes of unknown types go through unharmed.
#include "text_test.h"

#include "engine/catalog/engine_ids.h"
#include "engine/text/stand_in.h"

#include <velmar/arrays.h>

#include <string>

namespace Velmar::Engine {
namespace {

using testing::HasSubstr;
using testing::Not;

class StandInTest : public TextTest {};

const char* const newer_items = R"(  <node id="1" type="VELMAR_RGB" value="1 0 0" />
  <node id="2" type="VELMAR_FURTOMORROW" name="Fur" position="3 4" flags="1" curl="0.5" tint="a&amp;b&quot;_x0001_">
    <attribute name="strands">
0 0 0
1 0 0.5
</attribute>
    <attribute name="picture"> /maps/fur.png </attribute>
    <rules kind="soft">
      <rule> </rule>
      <rule>a &lt; b</rule>
      <input node="1" />
    </rules>
    <input pin="root" node="1" />
    <node pin="tip" type="VELMAR_COMBTOMORROW">
      <input pin="teeth" node="4" />
      <node pin="handle" type="VELMAR_MULTIPLY">
        <input pin="texture_1" node="1" />
      </node>
    </node>
  </node>
  <node id="3" type="VELMAR_MATERIAL_MAP">
    <input pin="geometry" node="2" />
    <node slot="1" type="VELMAR_DIFFUSE" />
  </node>
  <node id="4" type="VELMAR_FLOAT" />
  <node id="5" type="VELMAR_GLOSSY">
    <node pin="diffuse" type="VELMAR_DOTSTOMORROW" octaves="3">
      <input pin="colour" node="1" />
    </node>
  </node>
)";

TEST_F(StandInTest, ReExportsToTheSameBytes) {
    const std::string text = scene(newer_items);
    ApiRootNodeGraph* graph = imported(text);
    EXPECT_EQ(log, "");
    EXPECT_EQ(exported(graph), text);
    EXPECT_TRUE(sameGraphs(graph, imported(exported(graph))));
}

TEST_F(StandInTest, HasAPinForEachConnectionThatItsElementNames) {
    ApiRootNodeGraph* graph = imported(scene(newer_items));
    ApiNode* fur = graph->findFirstNode(NODE_STAND_IN);
    ASSERT_NE(fur, nullptr);
    EXPECT_STREQ(fur->name(), "Fur");
    EXPECT_EQ(fur->position(), (Vec2<float>{3, 4}));
    ASSERT_EQ(fur->pinCount(), 4U);
    ApiNode* red = graph->findFirstNode(NODE_COLOR);
    EXPECT_EQ(fur->connectedNodeIx(0), red);
    EXPECT_EQ(fur->connectedNodeIx(1), red);
    EXPECT_EQ(fur->connectedNodeIx(2), graph->findFirstNode(NODE_FLOAT));
    EXPECT_EQ(fur->connectedNodeIx(3), red);
    EXPECT_EQ(graph->findFirstNode(NODE_MATERIAL_MAP)->connectedNodeIx(0), fur);
    EXPECT_FALSE(graph->findFirstNode(NODE_MATERIAL_GLOSSY)->connectedNode(PIN_DIFFUSE) == nullptr);
}

TEST_F(StandInTest, FollowsWhatHappensAroundIt) {
    ApiRootNodeGraph* graph = imported(scene(newer_items));
    ApiNode* fur = graph->findFirstNode(NODE_STAND_IN);
    fur->setName("Wool");
    fur->setPosition({0, 0});
    fur->connectToIx(1, nullptr, true, false);
    fur->connectToIx(3, graph->findFirstNode(NODE_FLOAT), true, false);
    ApiNode::create(NODE_INT, graph, true);
    const std::string text = exported(graph);
    EXPECT_THAT(text, HasSubstr("type=\"VELMAR_FURTOMORROW\" name=\"Wool\" flags=\"1\" curl"));
    EXPECT_THAT(text, Not(HasSubstr("pin=\"root\"")));
    EXPECT_THAT(text, HasSubstr("<input pin=\"texture_1\" node=\"4\" />"));
    EXPECT_EQ(exported(imported(text)), text);
}

TEST_F(StandInTest, NumbersItsConnectionsAnewWithTheNodes) {
    ApiRootNodeGraph* graph = newRoot();
    for (int i = 0; i < 3; ++i) ApiNode::create(NODE_INT, graph, true);
    ASSERT_TRUE(import(
        graph, scene("  <node id=\"1\" type=\"VELMAR_TOMORROW\">\n    <input pin=\"a\" node=\"2\" />\n  </node>\n"
                     "  <node id=\"2\" type=\"VELMAR_FLOAT\" />\n")));
    EXPECT_THAT(exported(graph),
                HasSubstr("<node id=\"4\" type=\"VELMAR_TOMORROW\">\n    <input pin=\"a\" node=\"5\" />"));
}

TEST_F(StandInTest, IsCopiedWithWhatItUses) {
    ApiRootNodeGraph* graph = imported(scene(newer_items));
    ApiRootNodeGraph* copy = newRoot();
    copy->copyItemTree(graph->findFirstNode(NODE_MATERIAL_MAP));
    EXPECT_THAT(exported(copy), HasSubstr("VELMAR_FURTOMORROW"));
    EXPECT_EQ(exported(imported(exported(copy))), exported(copy));
}

TEST_F(StandInTest, KeepsANameThatIsThatOfItsType) {
    for (const char* item : {"  <node id=\"1\" type=\"VELMAR_TOMORROW\" name=\"VELMAR_TOMORROW\" />\n",
                             "  <node id=\"1\" type=\"VELMAR_TOMORROW\" />\n",
                             "  <node id=\"1\" type=\"VELMAR_TOMORROW\" name=\"\" />\n"}) {
        EXPECT_EQ(exported(imported(scene(item))), scene(item));
    }
}

TEST_F(StandInTest, RefusesConnectionsThatLeadNowhereAndCircles) {
    EXPECT_FALSE(
        import(newRoot(), scene("<node id=\"1\" type=\"VELMAR_TOMORROW\"><input pin=\"a\" node=\"2\"/></node>")));
    EXPECT_THAT(log, HasSubstr("not there"));
    EXPECT_FALSE(
        import(newRoot(), scene("<node id=\"1\" type=\"VELMAR_TOMORROW\"><input pin=\"a\" node=\"1\"/></node>")));
    EXPECT_THAT(log, HasSubstr("circle"));
    EXPECT_FALSE(
        import(newRoot(), scene("<node id=\"1\" type=\"VELMAR_TOMORROW\"><input pin=\"a\" node=\"x\"/></node>")));
    EXPECT_THAT(log, HasSubstr("no number"));
}

TEST_F(StandInTest, WhoseTextWasOverwrittenIsWrittenAsTheNodeThatItIs) {
    for (const char* text :
         {"", "<", "<a/>", "<node/>", "<node type=\"VELMAR_STANDIN\"/>", "text", "<!DOCTYPE a><node type=\"A\"/>"}) {
        ApiRootNodeGraph* graph = newRoot();
        ApiNode* node = ApiNode::create(NODE_STAND_IN, graph, true);
        node->set(ATTR_VALUE, text, true);
        node->set(ATTR_PIN_COUNT, 2, true);
        node->connectToIx(1, ApiNode::create(NODE_FLOAT, graph, true), true, false);
        EXPECT_TRUE(sameGraphs(graph, imported(exported(graph)))) << text;
    }
}

TEST_F(StandInTest, TakesInputsThatStandInEachOther) {
    const std::string items =
        "  <node id=\"1\" type=\"VELMAR_FLOAT\" />\n  <node id=\"2\" type=\"VELMAR_TOMORROW\">\n"
        "    <input node=\"1\">\n      <input node=\"1\">\n        <input node=\"1\" />\n"
        "      </input>\n    </input>\n  </node>\n";
    ApiRootNodeGraph* graph = imported(scene(items));
    EXPECT_EQ(exported(graph), scene(items));
    ApiNode* node = graph->findFirstNode(NODE_STAND_IN);
    node->connectToIx(0, nullptr, true, false);
    node->connectToIx(2, nullptr, true, false);
    EXPECT_EQ(exported(graph),
              scene("  <node id=\"1\" type=\"VELMAR_FLOAT\" />\n  <node id=\"2\" type=\"VELMAR_TOMORROW\" />\n"));
}

}  // namespace
}  // namespace Velmar::Engine
