// The form of the text, what is left out, and what is refused.
#include "text_test.h"

#include "engine/catalog/engine_ids.h"
#include "engine/catalog/tables.h"
#include "engine/graph/operation_log.h"
#include "engine/text/scene_format.h"

#include <velmar/arrays.h>

#include <algorithm>
#include <set>
#include <string>

namespace Velmar::Engine {
namespace {

using testing::HasSubstr;
using testing::Not;

class SceneTextTest : public TextTest {
protected:
    /// Reads a text into a graph that holds something, and expects that it is refused for that reason, in one line, and
    /// leaves the graph as it was.
    void expectRefused(const std::string& text, const std::string& reason) {
        ApiRootNodeGraph* graph = newRoot();
        ApiNode::create(NODE_FLOAT, graph, true);
        const std::string before = exported(graph);
        EXPECT_FALSE(import(graph, text)) << text;
        EXPECT_THAT(log, HasSubstr(reason)) << text;
        EXPECT_EQ(std::ranges::count(log, '\n'), 1) << log;
        EXPECT_EQ(exported(graph), before);
        graph->destroy();
    }

    static std::string itemsOf(ApiRootNodeGraph* graph) {
        const std::string text = exported(graph);
        const std::size_t begin = text.find('\n', text.find("<velmar-scene")) + 1;
        return text.substr(begin, text.rfind("</velmar-scene>") - begin);
    }
};

TEST_F(SceneTextTest, HoldsOneNodeInEachElement) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, false);
    image->setName("Oak");
    image->set(ATTR_FILENAME, "/maps/oak & ash.png", true);
    ApiNode* mix = ApiNode::create(NODE_MULTIPLY_TEXTURE, graph, false);
    mix->setPosition({100, -0.5F});
    mix->setUIOperationFlags(4);
    mix->connectTo(PIN_TEXTURE_1, image, true, false);
    mix->createInternal(PIN_TEXTURE_2, NODE_COLOR, false, true)->set(ATTR_VALUE, Vec3<float>{0.1F, 0.2F, 0.3F}, true);
    EXPECT_EQ(itemsOf(graph), R"(  <node id="1" type="VELMAR_IMAGE" name="Oak">
    <attribute name="filename">/maps/oak &amp; ash.png</attribute>
  </node>
  <node id="2" type="VELMAR_MULTIPLY" position="100 -0.5" flags="4">
    <input pin="texture_1" node="1" />
    <node pin="texture_2" type="VELMAR_RGB" value="0.1 0.2 0.3" />
  </node>
)");
}

TEST_F(SceneTextTest, HoldsArraysAsElementTextAndNamesOneByOne) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* mesh = ApiNode::create(NODE_MESH, graph, false);
    const Vec3<float> vertices[] = {{0, 0, 0}, {1, 0, 0.5F}};
    const int indices[] = {0, 1, 0};
    const char* names[] = {"wood", "", " glass "};
    mesh->set(ATTR_VERTICES, vertices, 2, false);
    mesh->set(ATTR_VERTEX_INDICES, indices, 3, false);
    mesh->set(ATTR_MATERIAL_NAMES, names, 3, true);
    EXPECT_EQ(itemsOf(graph), R"(  <node id="1" type="VELMAR_MESH">
    <attribute name="vertices">
0 0 0
1 0 0.5
</attribute>
    <attribute name="vertex_indices">
0 1 0
</attribute>
    <attribute name="material_names">
      <text>wood</text>
      <text />
      <text> glass </text>
    </attribute>
  </node>
)");
}

TEST_F(SceneTextTest, WritesOnlyWhatDiffersFromTheDefault) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* mesh = ApiNode::create(NODE_MESH, graph, false);
    mesh->set(ATTR_SMOOTHING, false, true);
    mesh->set(ATTR_SMOOTHING, true, true);
    EXPECT_EQ(itemsOf(graph), "  <node id=\"1\" type=\"VELMAR_MESH\" />\n");
}

// A node that comes last leaves the text before it as it was, so that versions of a scene can be compared.
TEST_F(SceneTextTest, GrowsAtItsEnd) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
    ApiNode::create(NODE_IMAGE, inner, true);
    ApiNode::create(NODE_FLOAT, graph, true);
    const std::string before = itemsOf(graph);
    ApiNode::create(NODE_COLOR, graph, true);
    EXPECT_TRUE(itemsOf(graph).starts_with(before));
}

TEST_F(SceneTextTest, CarriesTheVersionOfItsGraph) {
    ApiRootNodeGraph* graph = ApiRootNodeGraph::create(3000000);
    EXPECT_THAT(exported(graph), HasSubstr("<velmar-scene version=\"3000000\""));
    ASSERT_TRUE(import(newRoot(), exported(graph)));
    EXPECT_EQ(version, 3000000U);
    EXPECT_THAT(exported(ApiProjectManager::rootNodeGraph()), HasSubstr("version=\"3080100\""));
}

TEST_F(SceneTextTest, IsNotWrittenForANewerVersion) {
    testing::internal::CaptureStderr();
    EXPECT_STREQ(ApiRootNodeGraph::create(SceneFormat::kNewestVersion + 1)->exportToString(nullptr, true), "");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("newer version"));
}

TEST_F(SceneTextTest, StaysValidUntilTheNextCallOnItsGraph) {
    ApiRootNodeGraph* graph = newRoot();
    ApiRootNodeGraph* other = newRoot();
    ApiNode::create(NODE_FLOAT, other, true);
    const char* text = graph->exportToString(nullptr, true);
    const std::string copy = text;
    other->exportToString(nullptr, true);
    EXPECT_EQ(text, copy);
}

TEST_F(SceneTextTest, IsEmptyForADestroyedGraph) {
    ApiRootNodeGraph* graph = newRoot();
    graph->destroy();
    EXPECT_STREQ(graph->exportToString(nullptr, true), "");
    EXPECT_FALSE(import(graph, scene("")));
    EXPECT_FALSE(graph->import(nullptr, 0, nullptr, version, nullptr, nullptr));
}

TEST_F(SceneTextTest, KeepsTextsThatXmlCannotHold) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* node = ApiNode::create(NODE_STRING, graph, false);
    const std::string odd = " \x01\x1F\t\r\n<&>\"']]>_x0041_\xFF\xC3\xA9 ";
    node->set(ATTR_VALUE, odd.c_str(), true);
    node->setName(odd.c_str());
    ApiNode* back = imported(exported(graph))->findFirstNode(NODE_STRING);
    EXPECT_EQ(back->getString(ATTR_VALUE), odd);
    EXPECT_EQ(back->name(), odd);
    for (const char* text : {" ", "\n", "  ", "x ", " x"}) {
        node->set(ATTR_VALUE, text, true);
        EXPECT_STREQ(imported(exported(graph))->findFirstNode(NODE_STRING)->getString(ATTR_VALUE), text);
    }
}

// A file name stands alone between two tags, as whoever rewrites the names in stored texts expects.
TEST_F(SceneTextTest, HoldsFileNamesBetweenTags) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, false);
    image->set(ATTR_FILENAME, "C:\\Users\\a\\Velmar\\SketchUp\\temp\\textures\\oak.png", true);
    std::string text = exported(graph);
    EXPECT_THAT(text, HasSubstr(">C:\\Users\\a\\Velmar\\SketchUp\\temp\\textures\\oak.png<"));
    const std::size_t at = text.find("C:\\");
    text.replace(at, text.find('<', at) - at, "/tmp/a & b/oak.png");  // as a rewriter that knows no XML would
    EXPECT_STREQ(imported(text)->findFirstNode(NODE_IMAGE)->getString(ATTR_FILENAME), "/tmp/a & b/oak.png");
}

TEST_F(SceneTextTest, WritesFileNamesRelativeToTheFileBesideThem) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, false);
    image->set(ATTR_FILENAME, "/scenes/maps/oak.png", true);
    const std::string text = graph->exportToString("/scenes/hall.vxs", true);
    EXPECT_THAT(text, HasSubstr(">maps/oak.png<"));
    ApiRootNodeGraph* back = newRoot();
    ASSERT_TRUE(back->import(text.data(), text.size(), "/elsewhere/hall.vxs", version, nullptr, nullptr));
    EXPECT_STREQ(back->findFirstNode(NODE_IMAGE)->getString(ATTR_FILENAME), "/elsewhere/maps/oak.png");
    EXPECT_EQ(back->exportToString("/elsewhere/hall.vxs", true), text);
}

TEST_F(SceneTextTest, LeavesFileNamesOutWithoutAssets) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode* image = ApiNode::create(NODE_IMAGE, graph, false);
    image->set(ATTR_FILENAME, "/scenes/maps/oak.png", true);
    const std::string text = graph->exportToString(nullptr, false);
    EXPECT_THAT(text, Not(HasSubstr("oak.png")));
    EXPECT_STREQ(imported(text)->findFirstNode(NODE_IMAGE)->getString(ATTR_FILENAME), "");
}

TEST_F(SceneTextTest, AsksTheResolverForFileNames) {
    const std::string text =
        scene(R"(<node id="1" type="VELMAR_IMAGE"><attribute name="filename">oak.png</attribute></node>
<node id="2" type="VELMAR_ALPHAIMAGE"><attribute name="filename">ash.png</attribute></node>)");
    ApiRootNodeGraph* graph = newRoot();
    std::vector<std::string> asked;
    const auto resolver = [](const char* asset, void* user) -> const char* {
        static_cast<std::vector<std::string>*>(user)->push_back(asset);
        return std::string(asset) == "oak.png" ? "/library/oak.png" : nullptr;
    };
    ASSERT_TRUE(graph->import(text.data(), text.size(), "/scenes/a.vxs", version, resolver, &asked));
    EXPECT_THAT(asked, testing::ElementsAre("oak.png", "ash.png"));
    EXPECT_STREQ(graph->findFirstNode(NODE_IMAGE)->getString(ATTR_FILENAME), "/library/oak.png");
    EXPECT_STREQ(graph->findFirstNode(NODE_ALPHA_IMAGE)->getString(ATTR_FILENAME), "/scenes/ash.png");
}

TEST_F(SceneTextTest, StandsInTheOperationLog) {
    ApiRootNodeGraph* graph = newRoot();
    const std::string text = exported(graph);
    OperationLog::begin();
    ASSERT_TRUE(import(graph, text));
    graph->unfold(true);
    EXPECT_THAT(OperationLog::end(),
                testing::ElementsAre(testing::StartsWith("import VELMAR"), testing::StartsWith("unfold")))
        << "see the lines";
}

TEST_F(SceneTextTest, RefusesWhatIsNoSceneText) {
    expectRefused("", "refused");
    expectRefused("   ", "refused");
    expectRefused("{\"type\": 16}", "refused");
    expectRefused("<svg/>", "no scene text: its root is \"svg\"");
    expectRefused("<velmar-scene version=\"3080100\">", "refused");
    expectRefused("<velmar-scene version=\"3080100\"></velmar>", "refused");
    expectRefused(scene("").replace(60, 1, std::string(1, '\0')), "a zero byte");
    expectRefused("<velmar-scene/>", "no version");
    expectRefused("<velmar-scene version=\"new\"/>", "no version");
    expectRefused("<velmar-scene version=\"-1\"/>", "no version");
    expectRefused("<velmar-scene version=\"3080100\" form=\"2\"/>", "unknown attribute \"form\"");
}

TEST_F(SceneTextTest, RefusesANewerVersionAndSaysWhichItWas) {
    expectRefused("<velmar-scene version=\"3080101\"/>", "version 3080101 is newer than 3080100");
    EXPECT_EQ(version, 3080101U);
}

TEST_F(SceneTextTest, SaysInWhichLine) {
    expectRefused("<velmar-scene version=\"1\">\n\n  <node id=\"1\"/>\n</velmar-scene>",
                  "at line 3: a node without a type");
}

TEST_F(SceneTextTest, RefusesDocumentTypesAndEntities) {
    expectRefused("<!DOCTYPE velmar-scene>" + scene(""), "document type");
    expectRefused("<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY a \"b\"><!ENTITY c \"&a;&a;\">]>" + scene(""),
                  "document type");
    expectRefused(scene("<!ELEMENT a>"), "document type");
    // A reference that nothing declares stands for itself.
    EXPECT_STREQ(imported(scene("<node id=\"1\" type=\"VELMAR_FLOAT\" name=\"&lol; &amp;\"/>"))
                     ->findFirstNode(NODE_FLOAT)
                     ->name(),
                 "&lol; &");
}

TEST_F(SceneTextTest, RefusesItemsThatAreNone) {
    expectRefused(scene("<light/>"), "an element \"light\"");
    expectRefused(scene("words"), "text between");
    expectRefused(scene("<node id=\"1\" type=\"\"/>"), "without a type");
    expectRefused(scene("<node type=\"VELMAR_FLOAT\"/>"), "an element \"node\" without id");
    expectRefused(scene("<node id=\"x\" type=\"VELMAR_FLOAT\"/>"), "id is no number");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_FLOAT\"/><node id=\"1\" type=\"VELMAR_FLOAT\"/>"),
                  "a second node with the id 1");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_FLOAT\" position=\"1\"/>"), "position");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_FLOAT\" flags=\"many\"/>"), "flags");
    expectRefused(scene("<graph view=\"1 2 3\"/>"), "the attribute \"view\" of a graph");
    expectRefused(scene("<graph mood=\"1\"/>"), "the attribute \"mood\" of a graph");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_FLOAT\"><light/></node>"), "an element \"light\" in a node");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_FLOAT\">words</node>"), "text between");
}

TEST_F(SceneTextTest, RefusesValuesOfAnotherKind) {
    const auto node = [](const char* type, const char* inside) {
        return scene(std::string("<node id=\"1\" type=\"") + type + "\"" + inside);
    };
    expectRefused(node("VELMAR_FLOAT", " value=\"much\"/>"), "\"value\" holds no value of its kind");
    expectRefused(node("VELMAR_FLOAT", " value=\"1 2\"/>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_RGB", " value=\"1 2\"/>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_BOOL", " value=\"1\"/>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_INT", " value=\"1e3\"/>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_FLOAT", " value=\"1\" value=\"2\"/>"), "an attribute twice: \"value\"");
    expectRefused(node("VELMAR_STRING", " value=\"text\"/>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_FLOAT", "><attribute name=\"value\">1</attribute></node>"), "\"value\" holds no value");
    expectRefused(node("VELMAR_MESH", " vertices=\"1 2 3\"/>"), "\"vertices\" holds no value");
    expectRefused(node("VELMAR_MESH", "><attribute name=\"vertices\">1 2</attribute></node>"),
                  "\"vertices\" holds no value");
    expectRefused(node("VELMAR_MESH", "><attribute name=\"vertices\"><text/></attribute></node>"),
                  "an element within a text");
    expectRefused(node("VELMAR_MESH", "><attribute name=\"material_names\">a</attribute></node>"), "text between");
    expectRefused(node("VELMAR_MESH", "><attribute name=\"material_names\"><a/></attribute></node>"),
                  "an element \"a\"");
    expectRefused(node("VELMAR_IMAGE", "><attribute name=\"filename\"><b/></attribute></node>"),
                  "an element within a text");
}

TEST_F(SceneTextTest, RefusesWiresThatLeadNowhere) {
    const auto wired = [](const std::string& inside) {
        return scene("<node id=\"1\" type=\"VELMAR_MULTIPLY\">" + inside + "</node>");
    };
    expectRefused(wired("<input pin=\"texture_1\" node=\"7\"/>"), "an input from a node that is not there, 7");
    expectRefused(wired("<input pin=\"texture_1\"/>"), "an element \"input\" without node");
    expectRefused(wired("<input node=\"1\"/>"), "an element \"input\" without slot");
    expectRefused(wired("<input slot=\"0\" node=\"1\"/>"), "the slot 0 of a node without it");
    expectRefused(wired("<input pin=\"texture_1\" node=\"1\"/>"), "in a circle");
    expectRefused(wired("<node pin=\"texture_1\" type=\"VELMAR_RGB\"/><node pin=\"texture_1\" type=\"VELMAR_RGB\"/>"),
                  "a pin that holds two things");
    expectRefused(
        wired("<node pin=\"texture_1\" type=\"VELMAR_MULTIPLY\"><input pin=\"texture_2\" node=\"1\"/></node>"),
        "in a circle");
    expectRefused(
        scene("<node id=\"1\" type=\"VELMAR_MULTIPLY\"><input pin=\"texture_1\" node=\"2\"/></node>"
              "<graph><node id=\"2\" type=\"VELMAR_MULTIPLY\"><input pin=\"texture_1\" node=\"1\"/></node></graph>"),
        "in a circle");
}

TEST_F(SceneTextTest, RefusesAbsurdCounts) {
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_GEOMETRY_GROUP\"><input slot=\"4294967296\" node=\"1\"/></node>"),
                  "slot");
    expectRefused(
        scene("<node id=\"1\" type=\"VELMAR_GEOMETRY_GROUP\"><node slot=\"4194303\" type=\"VELMAR_MESH\"/></node>"),
        "more pins than a scene can have");
    expectRefused(scene("<node id=\"1\" type=\"VELMAR_GEOMETRY_GROUP\" pin_count=\"2147483647\"/>"), "more pins");
    std::string many;
    for (int i = 1; i <= 40; ++i) {
        many += "<node id=\"" + std::to_string(i) + "\" type=\"VELMAR_GEOMETRY_GROUP\" pin_count=\"30000\"/>\n";
    }
    expectRefused(scene(many), "more pins");
}

TEST_F(SceneTextTest, BoundsThePinsThatManyMapsTakeFromOneMesh) {
    std::string items = "<node id=\"1\" type=\"VELMAR_MESH\"><attribute name=\"material_names\">";
    for (int i = 0; i < 20000; ++i) items += "<text/>";
    items +=
        "</attribute></node>\n<node id=\"2\" type=\"VELMAR_GEOMETRYLINK\"><input pin=\"geometry\" node=\"1\"/></node>";
    for (int i = 3; i < 200; ++i) {
        items += "<node id=\"" + std::to_string(i) +
                 "\" type=\"VELMAR_MATERIAL_MAP\"><input pin=\"geometry\" node=\"2\"/></node>\n";
    }
    expectRefused(scene(items), "more pins");
}

TEST_F(SceneTextTest, TakesAPinCountBelowZeroAsNone) {
    ApiRootNodeGraph* graph = imported(scene("<node id=\"1\" type=\"VELMAR_GEOMETRY_GROUP\" pin_count=\"-5\"/>"));
    EXPECT_EQ(graph->findFirstNode(NODE_GEOMETRY_GROUP)->pinCount(), 0U);
}

TEST_F(SceneTextTest, WritesNoMorePinsThanItReads) {
    ApiRootNodeGraph* graph = newRoot();
    ApiNode::create(NODE_GEOMETRY_GROUP, graph, false)->set(ATTR_PIN_COUNT, 1000000, true);
    EXPECT_TRUE(import(newRoot(), exported(graph)));
    ApiNode::create(NODE_GEOMETRY_GROUP, graph, false)->set(ATTR_PIN_COUNT, 1000000, true);
    testing::internal::CaptureStderr();
    EXPECT_EQ(exported(graph), "");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("too many empty pins"));
}

TEST_F(SceneTextTest, LeavesOutWhatItDoesNotKnowOfAKnownType) {
    ApiRootNodeGraph* graph = newRoot();
    ASSERT_TRUE(import(graph, scene(R"(<node id="1" type="VELMAR_FLOAT" value="2" spin="3">
  <attribute name="mood">blue</attribute><node pin="top" type="VELMAR_FLOAT"/><input pin="side" node="9"/>
</node>)")));
    EXPECT_EQ(
        log, "velmar: scene text: left out what this version does not know, \"spin\" of \"VELMAR_FLOAT\" and 3 more\n");
    EXPECT_EQ(itemsOf(graph), "  <node id=\"1\" type=\"VELMAR_FLOAT\" value=\"2\" />\n");
}

TEST_F(SceneTextTest, ReadsWhatPeopleWrite) {
    ApiRootNodeGraph* graph = imported(
        "\xEF\xBB\xBF<velmar-scene version='3080100'><!-- a comment with <node> -->\r\n"
        "\t<node type='VELMAR_RGB' id='17' value='1\t0\n0'><!-- none --></node>\r\n"
        "<node id='3' type='VELMAR_STRING'><attribute name='value'>a<!-- x -->b<![CDATA[<c>]]></attribute></node>"
        "</velmar-scene>\n<!-- end -->");
    EXPECT_EQ(graph->findFirstNode(NODE_COLOR)->getFloat3(ATTR_VALUE), (Vec3<float>{1, 0, 0}));
    EXPECT_STREQ(graph->findFirstNode(NODE_STRING)->getString(ATTR_VALUE), "ab<c>");
}

TEST_F(SceneTextTest, NoAttributeHasANameOfTheFormat) {
    for (const AttributeName& attribute : attributeNames()) {
        EXPECT_THAT(SceneFormat::kReserved, Not(testing::Contains(std::string_view(attribute.name))));
    }
}

TEST_F(SceneTextTest, NodesNameTheirPinsAndAttributesOnce) {
    for (const TypeEntry* type : Catalog::types()) {
        std::set<std::string> pins, attributes;
        for (const auto& pin : type->pins) {
            EXPECT_TRUE(*pin->info.name != '\0' && pins.insert(pin->info.name).second) << type->row->type_name;
        }
        for (const auto& attribute : type->attributes) {
            EXPECT_TRUE(*attribute.name != '\0' && attributes.insert(attribute.name).second) << type->row->type_name;
        }
    }
}

class DeepTextTest : public SceneTextTest {
protected:
    static std::string nested(const std::string& open, const std::string& close, std::size_t depth) {
        std::string text;
        text.reserve((open.size() + close.size()) * depth + 100);
        text += "<velmar-scene version=\"3080100\">";
        for (std::size_t i = 0; i < depth; ++i) text += open;
        for (std::size_t i = 0; i < depth; ++i) text += close;
        return text + "</velmar-scene>";
    }
};

TEST_F(DeepTextTest, ReadsGraphsAndNodesUpToTheLimit) {
    const std::string text = nested("<graph>", "</graph>", SceneFormat::kDeepest - 1);
    ApiRootNodeGraph* graph = imported(text);
    EXPECT_TRUE(import(newRoot(), exported(graph)));
    expectRefused(nested("<graph>", "</graph>", SceneFormat::kDeepest), "nested too deeply");

    const std::string inner = "<node pin=\"material_1\" type=\"VELMAR_MIX\">";
    std::string nodes = nested(inner, "</node>", SceneFormat::kDeepest - 1);
    nodes.replace(nodes.find("pin=\"material_1\""), 16, "id=\"1\"");
    EXPECT_TRUE(import(newRoot(), exported(imported(nodes))));
}

TEST_F(DeepTextTest, WritesNothingDeeperThanItReads) {
    for (const unsigned depth : {SceneFormat::kDeepest - 1, SceneFormat::kDeepest, SceneFormat::kDeepest + 50}) {
        ApiRootNodeGraph* nodes = newRoot();
        ApiNode* node = ApiNode::create(NODE_MATERIAL_MIX, nodes, false);
        for (unsigned i = 1; i < depth; ++i)
            node = node->createInternal(PIN_MATERIAL_1, NODE_MATERIAL_MIX, false, true);
        ApiRootNodeGraph* graphs = newRoot();
        ApiNodeGraph* graph = graphs;
        for (unsigned i = 0; i < depth; ++i) graph = ApiNodeGraph::create(GRAPH_STANDARD, graph);
        testing::internal::CaptureStderr();
        const std::string node_text = exported(nodes);
        const std::string graph_text = exported(graphs);
        const std::string said = testing::internal::GetCapturedStderr();
        const bool fits = depth < SceneFormat::kDeepest;
        EXPECT_EQ(node_text != "", fits);
        EXPECT_EQ(graph_text != "", fits);
        EXPECT_EQ(said.find("nests too deeply") == std::string::npos, fits);
        if (fits) {
            EXPECT_TRUE(import(newRoot(), node_text)) << log;
            EXPECT_TRUE(import(newRoot(), graph_text)) << log;
        }
    }
}

TEST_F(DeepTextTest, RefusesAHundredMegabytesOfNesting) {
    constexpr std::size_t size = 100'000'000;
    const std::string open = "<graph>";
    std::string text = "<velmar-scene version=\"3080100\">";
    text.reserve(size + open.size());
    while (text.size() < size) text += open;
    expectRefused(text, "nested too deeply");
    std::string stand_in = scene("<node id=\"1\" type=\"VELMAR_TOMORROW\">");
    stand_in.reserve(size + 10);
    while (stand_in.size() < size) stand_in += "<a>";
    expectRefused(stand_in, "");
}

}  // namespace
}  // namespace Velmar::Engine
