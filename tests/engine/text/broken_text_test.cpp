// Texts that are damaged in all ways: each is taken or refused, and what is taken is a graph like any other.
#include "random_graph.h"
#include "text_test.h"

#include "engine/catalog/engine_ids.h"

#include <random>
#include <string>

namespace Velmar::Engine {
namespace {

// The many refusals are not shown, but for a sanitizer's sake, which speaks on the same stream.
#ifdef __SANITIZE_ADDRESS__
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

class BrokenTextTest : public TextTest {
protected:
    BrokenTextTest() {
        if (!sanitized) testing::internal::CaptureStderr();
    }
    ~BrokenTextTest() override {
        if (!sanitized) testing::internal::GetCapturedStderr();
    }

    /// Reads a text; what is taken must write a text that is taken again and writes the same.
    bool tryText(std::string_view text) {
        ++tried_;
        ApiRootNodeGraph* graph = newRoot();
        const bool taken = graph->import(text.data(), text.size(), nullptr, version, nullptr, nullptr);
        if (taken) {
            const std::string once = exported(graph);
            ApiRootNodeGraph* again = newRoot();
            EXPECT_TRUE(again->import(once.data(), once.size(), nullptr, version, nullptr, nullptr)) << text << once;
            EXPECT_EQ(exported(again), once) << text;
            again->destroy();
            ++taken_;
        } else {
            EXPECT_EQ(GraphRecord::of(graph)->first, nullptr);
        }
        graph->destroy();
        return taken;
    }

    std::string randomText(unsigned seed, unsigned nodes) {
        ApiRootNodeGraph* graph = newRoot();
        RandomGraph(seed).fill(graph, nodes);
        const std::string text = exported(graph);
        graph->destroy();
        return text;
    }

    /// A text with all that the format has, small enough to be broken at every byte.
    std::string sample() {
        ApiRootNodeGraph* graph = newRoot();
        ApiNodeGraph* inner = ApiNodeGraph::create(GRAPH_STANDARD, graph);
        inner->setName("Sandbox");
        ApiNode* image = ApiNode::create(NODE_IMAGE, inner, false);
        image->set(ATTR_FILENAME, "/a & b/oak.png", true);
        ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, inner, false);
        material->connectTo(PIN_DIFFUSE, image, true, false);
        material->createInternal(PIN_BUMP, NODE_COLOR, false, true)->set(ATTR_VALUE, Vec3<float>{0.1F, 1e-8F, 2}, true);
        ApiNode* mesh = ApiNode::create(NODE_MESH, graph, false);
        const char* names[] = {"a", " b", ""};
        const Vec3<float> points[] = {{0, 0, 0}, {1, 0.25F, 0}};
        mesh->set(ATTR_MATERIAL_NAMES, names, 3, true);
        mesh->set(ATTR_VERTICES, points, 2, true);
        ApiNode* map = ApiNode::create(NODE_MATERIAL_MAP, graph, false);
        map->connectTo(PIN_GEOMETRY, mesh, true, false);
        map->connectToIx(2, material, true, false);
        ApiNode* group = ApiNode::create(NODE_GEOMETRY_GROUP, graph, false);
        group->set(ATTR_PIN_COUNT, 2, true);
        group->connectToIx(1, map, true, false);
        group->setPosition({1, 2});
        std::string text = exported(graph);
        text.insert(
            text.find("</velmar-scene>"),
            "  <node id=\"9\" type=\"VELMAR_TOMORROW\" power=\"3\">\n    <input pin=\"a\" node=\"1\" />\n  </node>\n");
        return text;
    }

    unsigned tried_ = 0;
    unsigned taken_ = 0;
};

TEST_F(BrokenTextTest, CutOffAtEveryByte) {
    const std::string text = sample();
    ASSERT_TRUE(tryText(text));
    const std::size_t end = text.rfind("</velmar-scene>") + 15;
    for (std::size_t length = 0; length < end; ++length) EXPECT_FALSE(tryText(text.substr(0, length))) << length;
    for (std::size_t begin = 1; begin < text.size(); ++begin) tryText(text.substr(begin));
    for (unsigned seed = 0; seed < 8; ++seed) {
        const std::string random = randomText(seed, 8);
        for (std::size_t length = 0; length + 16 < random.size(); ++length)
            EXPECT_FALSE(tryText(random.substr(0, length)));
    }
    EXPECT_GT(tried_, 8000U);
}

TEST_F(BrokenTextTest, WithEachBitFlipped) {
    const std::string text = sample();
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            std::string flipped = text;
            flipped[at] ^= static_cast<char>(1U << bit);
            tryText(flipped);
        }
    }
    EXPECT_GT(tried_, 7000U);
    EXPECT_GT(taken_, 100U);
    EXPECT_LT(taken_, tried_);
}

TEST_F(BrokenTextTest, WithBytesTakenOutDoubledAndExchanged) {
    const std::string text = sample();
    const std::string marks = "<>/\"'&;=! 0-\xFF";
    std::mt19937 random(4);
    for (int i = 0; i < 20000; ++i) {
        std::string broken = text;
        for (unsigned count = 1 + random() % 4; count > 0; --count) {
            const std::size_t at = random() % broken.size();
            const std::size_t length = std::min<std::size_t>(random() % 30, broken.size() - at);
            const std::size_t from = random() % broken.size();
            switch (random() % 4) {
                case 0:
                    broken.erase(at, length);
                    break;
                case 1:
                    broken.insert(at, broken.substr(at, length));
                    break;
                case 2:
                    broken.insert(at, broken.substr(from, length));
                    break;
                default:
                    broken[at] = marks[random() % marks.size()];
            }
        }
        tryText(broken);
    }
    EXPECT_GT(taken_, 200U);
}

// Whole elements and values in places where they do not belong: well-formed, and wrong.
TEST_F(BrokenTextTest, WithPiecesInWrongPlaces) {
    const std::vector<std::string> pieces = {"<node ",
                                             "</node>",
                                             "<graph>",
                                             "</graph>",
                                             "<input ",
                                             "/>",
                                             ">",
                                             "id=\"1\" ",
                                             "id=\"2\" ",
                                             "type=\"VELMAR_MULTIPLY\" ",
                                             "type=\"VELMAR_MESH\" ",
                                             "type=\"VELMAR_TOMORROW\" ",
                                             "type=\"VELMAR_MATERIAL_MAP\" ",
                                             "type=\"VELMAR_GEOMETRY_GROUP\" ",
                                             "type=\"VELMAR_GEOMETRYLINK\" ",
                                             "type=\"VELMAR_STANDIN\" ",
                                             "pin=\"texture_1\" ",
                                             "pin=\"geometry\" ",
                                             "slot=\"0\" ",
                                             "slot=\"70000\" ",
                                             "node=\"1\" ",
                                             "node=\"2\" ",
                                             "pin_count=\"3\" ",
                                             "value=\"1\" ",
                                             "<attribute name=\"material_names\">",
                                             "<attribute name=\"value\">",
                                             "<attribute name=\"vertices\">",
                                             "</attribute>",
                                             "<text>",
                                             "</text>",
                                             "1 2 3",
                                             "nan",
                                             " "};
    std::mt19937 random(5);
    for (int i = 0; i < 30000; ++i) {
        std::string items;
        for (unsigned count = random() % 25; count > 0; --count) items += pieces[random() % pieces.size()];
        tryText(scene(items));
    }
    EXPECT_GT(taken_, 300U);
}

// Well-formed trees of elements with attributes drawn from the format's words.
TEST_F(BrokenTextTest, MadeOfTheFormatsWordsAtRandom) {
    std::mt19937 random(6);
    const auto pick = [&random](std::initializer_list<const char*> words) {
        return std::string(words.begin()[random() % words.size()]);
    };
    const auto element = [&](const auto& self, unsigned depth) -> std::string {
        const std::string name = pick({"node", "node", "node", "graph", "input", "attribute", "text"});
        std::string text = "<" + name;
        if (random() % 8 != 0) text += " id=\"" + std::to_string(random() % 6) + "\"";
        if (random() % 8 != 0) {
            text += " type=\"" +
                    pick({"VELMAR_MULTIPLY", "VELMAR_MESH", "VELMAR_TOMORROW", "VELMAR_MATERIAL_MAP", "VELMAR_MIX",
                          "VELMAR_GEOMETRY_GROUP", "VELMAR_MATERIALLINK", "VELMAR_FLOAT"}) +
                    "\"";
        }
        if (random() % 2 == 0)
            text += " " + pick({"pin", "name"}) + "=\"" +
                    pick({"texture_1", "texture_2", "material_1", "geometry", "vertices", "value"}) + "\"";
        if (random() % 3 == 0) text += " slot=\"" + std::to_string(random() % 4) + "\"";
        if (random() % 3 == 0) text += " node=\"" + std::to_string(random() % 6) + "\"";
        text += ">";
        for (unsigned count = depth < 5 ? random() % 4 : 0; count > 0; --count) text += self(self, depth + 1);
        return text + "</" + name + ">";
    };
    for (int i = 0; i < 20000; ++i) {
        std::string items;
        for (unsigned count = random() % 4; count > 0; --count) items += element(element, 0);
        tryText(scene(items));
    }
    EXPECT_GT(taken_, 200U);
}

}  // namespace
}  // namespace Velmar::Engine
