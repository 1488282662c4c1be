#include "plugin/nodes/pin_info.h"

#include <json/value.h>

#include "plugin/nodes_alone/made_up_node.h"
#include "plugin/utils/message.h"

namespace Velmar {
namespace {

using testing::ElementsAre;

template <typename T>
ApiNumberPinInfo<T> Numbers(std::uint8_t dimension) {
    ApiNumberPinInfo<T> info{};
    info.dimension = dimension;
    for (int i = 0; i < 3; ++i) {
        const T base = static_cast<T>(10 * i);
        info.ranges[i] = {base, static_cast<T>(base + 4), static_cast<T>(base + 1), static_cast<T>(base + 3), {}};
    }
    return info;
}

/// A node with one pin of that kind, called "p" and labelled "Label".
struct OnePin {
    explicit OnePin(NodePinType type) {
        node.record.pins.push_back({type, "p"});
        info().label = "Label";
    }
    ApiNodePinInfo& info() { return node.record.pins[0].info; }
    Json::Value Describe(bool full = true) { return GetPinInfo(&node, 0, full); }

    MadeUpNode node;
};

Json::Value Parse(const std::string& text) {
    return Message::StringToJson(text);
}

Json::Value Limits(std::uint8_t dimension) {
    const ApiNumberPinInfo<float> description = Numbers<float>(dimension);
    OnePin pin(PIN_TYPE_FLOAT);
    pin.info().float_info = &description;
    return pin.Describe();
}

TEST(PinInfo, HoldsTheNameAloneWhenItIsNotFull) {
    for (int kind = 0; kind <= 24; ++kind) {
        OnePin pin(NodePinType{kind});
        EXPECT_EQ(pin.Describe(false), Parse(R"({"name": "p"})")) << kind;
    }
}

TEST(PinInfo, OfANullNodeIsNull) {
    EXPECT_TRUE(GetPinInfo(nullptr, 0, true).isNull());
}

TEST(PinInfo, OfABoolHasOneDimension) {
    EXPECT_EQ(OnePin(PIN_TYPE_BOOL).Describe(),
              Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"bool", "dim":1})"));
}

TEST(PinInfo, OfAFloatHasTheLimitsOfFieldAndSliderForEachComponent) {
    EXPECT_EQ(Limits(1), Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"float", "dim":1,
        "min":{"x":0.0}, "max":{"x":4.0}, "sld_min":{"x":1.0}, "sld_max":{"x":3.0}})"));
    EXPECT_EQ(Limits(2), Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"float", "dim":2,
        "min":{"x":0.0, "y":10.0}, "max":{"x":4.0, "y":14.0},
        "sld_min":{"x":1.0, "y":11.0}, "sld_max":{"x":3.0, "y":13.0}})"));
    EXPECT_EQ(Limits(3), Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"float", "dim":3,
        "min":{"x":0.0, "y":10.0, "z":20.0}, "max":{"x":4.0, "y":14.0, "z":24.0},
        "sld_min":{"x":1.0, "y":11.0, "z":21.0}, "sld_max":{"x":3.0, "y":13.0, "z":23.0}})"));
}

TEST(PinInfo, OfMoreThanThreeDimensionsHasTheKeysOfThree) {
    for (const std::uint8_t dimension : {4, 255}) {
        const Json::Value info = Limits(dimension);
        EXPECT_EQ(info["dim"].asInt(), dimension);
        for (const char* limit : {"min", "max", "sld_min", "sld_max"}) {
            EXPECT_THAT(info[limit].getMemberNames(), ElementsAre("x", "y", "z"));
        }
    }
}

TEST(PinInfo, WidensFloatsToDouble) {
    ApiNumberPinInfo<float> description = Numbers<float>(1);
    description.ranges[0].slider_maximum = 0.1F;
    OnePin pin(PIN_TYPE_FLOAT);
    pin.info().float_info = &description;
    EXPECT_EQ(pin.Describe()["sld_max"]["x"].asDouble(), 0.10000000149011612);
}

TEST(PinInfo, OfAnIntHasItsLimitsAsIntegers) {
    ApiNumberPinInfo<std::int32_t> description = Numbers<std::int32_t>(2);
    description.ranges[1].minimum = -2147483647 - 1;
    OnePin pin(PIN_TYPE_INT);
    pin.info().int_info = &description;
    const Json::Value info = pin.Describe();
    EXPECT_EQ(info, Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"int", "dim":2,
        "min":{"x":0, "y":-2147483648}, "max":{"x":4, "y":14}, "sld_min":{"x":1, "y":11}, "sld_max":{"x":3, "y":13}})"));
    EXPECT_EQ(info["max"]["x"].type(), Json::intValue);
}

TEST(PinInfo, OfATransformHasItsDimensionAndNothingMore) {
    ApiTransformPinInfo description{};
    description.dimension = 2;
    OnePin pin(PIN_TYPE_TRANSFORM);
    pin.info().transform_info = &description;
    EXPECT_EQ(pin.Describe(), Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"transform", "dim":2})"));
}

TEST(PinInfo, OfATextureListsTheNodeTypesThatMayStandThereInTheOrderOfTheSdk) {
    EXPECT_EQ(OnePin(PIN_TYPE_TEXTURE).Describe(),
              Parse(R"({"name":"p", "label":"Label", "node_ids":[31, 34, 33], "type":"texture"})"));
}

TEST(PinInfo, OfAnEnumListsItsChoicesInTheOrderOfTheSdk) {
    const ApiEnumEntry entries[] = {{5, "Five"}, {-1, "None"}};
    const ApiEnumPinInfo description{entries, 2, 5};
    OnePin pin(PIN_TYPE_ENUM);
    pin.info().enum_info = &description;
    EXPECT_EQ(pin.Describe(), Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"enum",
        "values":[{"label":"Five", "value":5}, {"label":"None", "value":-1}]})"));
}

TEST(PinInfo, OfAnEnumWithoutChoicesKeepsTheKeyWithNull) {
    const ApiEnumPinInfo description{nullptr, 0, 0};
    OnePin pin(PIN_TYPE_ENUM);
    pin.info().enum_info = &description;
    const Json::Value info = pin.Describe();
    EXPECT_EQ(info, Parse(R"({"name":"p", "label":"Label", "node_ids":null, "type":"enum", "values":null})"));
    EXPECT_TRUE(info.isMember("values"));
}

TEST(PinInfo, OfAnyOtherKindHasNameLabelAndNodeTypesAlone) {
    for (const int kind : {-1, 0, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 17, 22, 23, 24}) {
        EXPECT_EQ(OnePin(NodePinType{kind}).Describe(), Parse(R"({"name":"p", "label":"Label", "node_ids":null})"))
            << kind;
    }
}

TEST(PinInfo, WithoutADescriptionForItsKindHasTheKindAlone) {
    for (const NodePinType kind : {PIN_TYPE_FLOAT, PIN_TYPE_INT, PIN_TYPE_TRANSFORM}) {
        EXPECT_FALSE(OnePin(kind).Describe().isMember("dim"));
        EXPECT_TRUE(OnePin(kind).Describe()["type"].isString());
    }
    EXPECT_TRUE(OnePin(PIN_TYPE_ENUM).Describe()["values"].isNull());
}

}  // namespace
}  // namespace Velmar
