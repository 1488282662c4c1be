#include <json/value.h>

#include "plugin/nodes/node_utils.h"
#include "plugin/nodes_alone/made_up_node.h"
#include "plugin/utils/message.h"

namespace Velmar {
namespace {

TEST(NodeToStr, AnswersNullForANodeWithoutAttributesAndPins) {
    MadeUpNode node;
    EXPECT_TRUE(NodeUtils::NodeToStr(&node, true).isNull());
}

TEST(NodeToStr, LosesANodeWithoutAttributesAndPinsThatStandsOnAPin) {
    MadeUpNode child;
    child.record.name = "Child";
    MadeUpNode node;
    node.record.name = "Parent";
    node.record.type = NODE_MATERIAL_GLOSSY;
    node.record.pins = {{PIN_TYPE_TEXTURE, "p", {}, &child}};
    EXPECT_EQ(NodeUtils::NodeToStr(&node, false), Message::StringToJson(R"({"name":"Parent", "type":16,
        "pin_owned":false, "nodes":[{"name":"Parent", "type":0, "info":{"name":"p"}}]})"));
}

TEST(NodeToStr, WritesSuchANodeOnceItHasAnAttributeOfAKindThatDoesNotTravel) {
    MadeUpNode child;
    child.record.name = "Child";
    child.record.type = NODE_COLOR;
    child.record.pin_owned = true;
    child.record.attributes = {{AttributeId{5}, ATTR_TYPE_BYTE, "bytes"}};
    MadeUpNode node;
    node.record.pins = {{PIN_TYPE_TEXTURE, "p", {}, &child}};
    EXPECT_EQ(NodeUtils::NodeToStr(&node, false)["nodes"][0],
              Message::StringToJson(R"({"name":"Child", "type":33, "pin_owned":true,
                  "params":[{"type":12, "name":"bytes"}], "info":{"name":"p"}})"));
}

}  // namespace
}  // namespace Velmar
