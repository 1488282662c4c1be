// The page that tells the format shows a text that is written just so.
#include "text_test.h"

#include "engine/catalog/engine_ids.h"

#include <fstream>
#include <iterator>
#include <string>

namespace Velmar::Engine {
namespace {

class SceneTextPageTest : public TextTest {
protected:
    static std::string example() {
        std::ifstream page(VELMAR_SOURCE_DIR "/docs/scene-text.md");
        const std::string text{std::istreambuf_iterator<char>(page), {}};
        const std::size_t begin = text.find("```xml\n") + 7;
        return text.substr(begin, text.find("```", begin) - begin);
    }

    static ApiRootNodeGraph* floor() {
        ApiRootNodeGraph* scene = newRoot();
        ApiNode* image = ApiNode::create(NODE_IMAGE, scene, false);
        image->setName("Oak planks");
        image->setPosition({40, 0});
        image->set(ATTR_FILENAME, "/library/maps/oak.png", true);
        ApiNode* tiling = image->createInternal(PIN_UV_TRANSFORM, NODE_TRANSFORM_2D, false, true);
        tiling->set(ATTR_SCALE, Vec3<float>{2, 2, 1}, true);
        ApiNode* material = ApiNode::create(NODE_MATERIAL_GLOSSY, scene, false);
        material->setName("Floor");
        material->setPosition({40, 100});
        material->connectTo(PIN_DIFFUSE, image, true, false);
        material->connectTo(PIN_BUMP, image, true, false);
        material->createInternal(PIN_ROUGHNESS, NODE_FLOAT, false, true)->set(ATTR_VALUE, 0.25F, true);

        ApiNodeGraph* house = ApiNodeGraph::create(GRAPH_STANDARD, scene);
        house->setName("House");
        house->setPosition({200, 0});
        ApiNode* mesh = ApiNode::create(NODE_MESH, house, false);
        mesh->setName("Slab");
        const int corners = 4;
        const Vec3<float> vertices[] = {{0, 0, 0}, {2, 0, 0}, {2, 0, -1.5F}, {0, 0, -1.5F}};
        const int indices[] = {0, 1, 2, 3};
        const char* slots[] = {"floor"};
        mesh->set(ATTR_VERTICES_PER_POLYGON, &corners, 1, false);
        mesh->set(ATTR_VERTICES, vertices, 4, false);
        mesh->set(ATTR_VERTEX_INDICES, indices, 4, false);
        mesh->set(ATTR_MATERIAL_NAMES, slots, 1, true);
        ApiNode* map = ApiNode::create(NODE_MATERIAL_MAP, house, false);
        map->connectTo(PIN_GEOMETRY, mesh, true, false);
        map->connectToIx(1, material, true, false);
        return scene;
    }
};

TEST_F(SceneTextPageTest, ShowsATextAsItIsWritten) {
    EXPECT_EQ(exported(floor()), example());
}

TEST_F(SceneTextPageTest, ShowsATextThatIsRead) {
    ApiRootNodeGraph* scene = imported(example());
    EXPECT_EQ(log, "");
    EXPECT_TRUE(sameGraphs(floor(), scene));
}

}  // namespace
}  // namespace Velmar::Engine
