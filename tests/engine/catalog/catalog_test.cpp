// Walks all rows of the catalog.
#include "engine/catalog/catalog.h"

#include "engine/catalog/engine_ids.h"
#include "engine/catalog/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>
#include <string>

namespace Velmar::Engine {
namespace {

using ::testing::MatchesRegex;

bool isOrdered(const Limits& limits) {
    return limits.minimum < limits.maximum && limits.slider_minimum < limits.slider_maximum &&
           limits.minimum <= limits.slider_minimum && limits.slider_maximum <= limits.maximum;
}

std::string where(const TypeEntry& type, const PinRow& pin) {
    return std::string(type.row->type_name) + " pin " + std::to_string(pin.id);
}

TEST(Catalog, HasEachNodeTypeOfTheSdkOnce) {
    const std::vector<int> numbers = {1,  2,  3,  5,  13, 14, 15, 16,  17,  18,  19,    20,   23,
                                      24, 25, 26, 27, 28, 29, 31, 33,  34,  35,  36,    37,   38,
                                      51, 56, 61, 62, 66, 67, 80, 100, 120, 121, 30001, 30007};
    for (const int number : numbers) {
        const TypeEntry* entry = Catalog::find(static_cast<NodeType>(number));
        ASSERT_NE(entry, nullptr) << number;
        EXPECT_EQ(entry->row->type, number);
    }
    std::set<NodeType> seen;
    for (const TypeEntry* entry : Catalog::types()) {
        EXPECT_TRUE(seen.insert(entry->row->type).second) << entry->row->type_name;
        EXPECT_EQ(Catalog::find(entry->row->type), entry);
    }
    EXPECT_EQ(Catalog::find(NODE_UNKNOWN), nullptr);
    EXPECT_EQ(Catalog::find(static_cast<NodeType>(4)), nullptr);
    EXPECT_EQ(Catalog::find(static_cast<NodeType>(-1)), nullptr);
}

TEST(Catalog, HasAPinOrAnAttributeForEachNumberThatHasAName) {
    std::set<PinId> pins;
    std::set<AttributeId> attributes;
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) pins.insert(row.id);
        for (const AttributeRow& row : entry->row->attributes) attributes.insert(row.id);
    }
    for (const PinName& name : pinNames()) EXPECT_TRUE(pins.contains(name.id)) << name.name;
    for (const AttributeName& name : attributeNames()) EXPECT_TRUE(attributes.contains(name.id)) << name.name;
}

TEST(Catalog, TypeNamesAreThePrefixAndAnUpperCaseWordAndNoTwoAreAlike) {
    std::set<std::string> names;
    std::set<std::string> default_names;
    for (const TypeEntry* entry : Catalog::types()) {
        const NodeTypeRow& row = *entry->row;
        EXPECT_THAT(row.type_name, MatchesRegex("VELMAR_[A-Z][A-Z0-9_]*"));
        EXPECT_TRUE(names.insert(row.type_name).second) << row.type_name;
        EXPECT_STRNE(row.default_name, "") << row.type_name;
        EXPECT_TRUE(default_names.insert(row.default_name).second) << row.default_name;
    }
    EXPECT_STREQ(Catalog::find(NODE_MATERIAL_GLOSSY)->row->type_name, "VELMAR_GLOSSY");
}

TEST(Catalog, EachPinAndAttributeHasANumberOfItsOwnAndANameOnItsNode) {
    for (const TypeEntry* entry : Catalog::types()) {
        std::set<PinId> pins;
        std::set<std::string> names;
        for (const auto& pin : entry->pins) {
            EXPECT_TRUE(pins.insert(pin->row->id).second) << where(*entry, *pin->row);
            EXPECT_STRNE(pin->info.name, "") << where(*entry, *pin->row);
            EXPECT_TRUE(names.insert(pin->info.name).second) << where(*entry, *pin->row);
            EXPECT_STRNE(pin->info.label, "") << where(*entry, *pin->row);
        }
        std::set<AttributeId> attributes;
        for (const ApiAttributeInfo& info : entry->attributes) {
            EXPECT_TRUE(attributes.insert(info.id).second) << entry->row->type_name << " " << info.id;
            EXPECT_STRNE(info.name, "") << entry->row->type_name << " " << info.id;
            EXPECT_NE(info.type, ATTR_TYPE_UNKNOWN);
        }
    }
}

TEST(Catalog, NamesOfNumbersAreUniqueAndFollowOneForm) {
    std::set<PinId> pins;
    std::set<std::string> pin_names;
    for (const PinName& name : pinNames()) {
        EXPECT_TRUE(pins.insert(name.id).second) << name.name;
        EXPECT_TRUE(pin_names.insert(name.name).second) << name.name;
        EXPECT_THAT(name.name, MatchesRegex("[a-z][a-z0-9_]*"));
        EXPECT_STREQ(Catalog::pinName(name.id), name.name);
    }
    std::set<AttributeId> attributes;
    std::set<std::string> attribute_names;
    for (const AttributeName& name : attributeNames()) {
        EXPECT_TRUE(attributes.insert(name.id).second) << name.name;
        EXPECT_TRUE(attribute_names.insert(name.name).second) << name.name;
        EXPECT_THAT(name.name, MatchesRegex("[a-z][a-z0-9_]*"));
        EXPECT_STREQ(Catalog::attributeName(name.id), name.name);
    }
    EXPECT_STREQ(Catalog::pinName(PIN_UNKNOWN), "");
    EXPECT_STREQ(Catalog::attributeName(ATTR_UNKNOWN), "");
}

// A record of an attribute keeps its value under the attribute's name, beside these keys.
TEST(Catalog, NoAttributeIsCalledNameOrType) {
    for (const AttributeName& name : attributeNames()) {
        EXPECT_STRNE(name.name, "name");
        EXPECT_STRNE(name.name, "type");
    }
}

TEST(Catalog, NumbersOfTheEnginesOwnStartAt1000) {
    for (const NodeType type : {NODE_BOOL, NODE_INT, NODE_INT2, NODE_INT3, NODE_FLOAT2, NODE_FLOAT3, NODE_ENUM,
                                NODE_STRING, NODE_SUN_DIRECTION, NODE_PROJECT_SETTINGS, NODE_TEXTURE_EMISSION,
                                NODE_BLACKBODY_EMISSION, NODE_MIX_TEXTURE, NODE_CHECKER_TEXTURE, NODE_NOISE_TEXTURE}) {
        EXPECT_GE(type, 1000);
        EXPECT_LT(type, NODE_LINK_FIRST);
        EXPECT_NE(Catalog::find(type), nullptr);
    }
    for (const PinName& name : pinNames()) EXPECT_TRUE(name.id <= PIN_GROUND_COLOR || name.id >= 1000) << name.name;
}

TEST(Catalog, DefaultsOfNumberPinsLieWithinTheirLimits) {
    int float_pins = 0;
    int int_pins = 0;
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) {
            if (row.kind != PIN_TYPE_FLOAT && row.kind != PIN_TYPE_INT) continue;
            ASSERT_TRUE(row.dimension >= 1 && row.dimension <= 3) << where(*entry, row);
            EXPECT_TRUE(isOrdered(row.limits)) << where(*entry, row);
            for (unsigned i = 0; i < row.dimension; ++i) {
                const double value = row.kind == PIN_TYPE_INT ? row.int_defaults[i] : double{row.float_defaults[i]};
                EXPECT_GE(value, row.limits.minimum) << where(*entry, row);
                EXPECT_LE(value, row.limits.maximum) << where(*entry, row);
            }
            (row.kind == PIN_TYPE_INT ? int_pins : float_pins)++;
        }
    }
    EXPECT_GT(float_pins, 50);
    EXPECT_GT(int_pins, 10);
}

TEST(Catalog, TexturePinsWithAPlainNumberHaveItsLimitsAndOthersHaveNone) {
    int numbers = 0;
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) {
            if (row.kind != PIN_TYPE_TEXTURE) continue;
            if (row.default_node != NODE_FLOAT) {
                EXPECT_EQ(row.limits.minimum, row.limits.maximum) << where(*entry, row);
                continue;
            }
            ++numbers;
            EXPECT_TRUE(isOrdered(row.limits)) << where(*entry, row);
            EXPECT_GE(double{row.float_defaults[0]}, row.limits.minimum) << where(*entry, row);
            EXPECT_LE(double{row.float_defaults[0]}, row.limits.maximum) << where(*entry, row);
        }
    }
    EXPECT_GE(numbers, 8);
}

TEST(Catalog, EnumPinsHaveEntriesWithLabelsAndTheDefaultIsOneOfThem) {
    int enum_pins = 0;
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) {
            if (row.kind != PIN_TYPE_ENUM) continue;
            ++enum_pins;
            std::set<std::int32_t> values;
            for (const ApiEnumEntry& choice : row.entries) {
                EXPECT_STRNE(choice.label, "") << where(*entry, row);
                EXPECT_TRUE(values.insert(choice.value).second) << where(*entry, row);
            }
            EXPECT_TRUE(values.contains(row.int_defaults[0])) << where(*entry, row);
        }
    }
    EXPECT_GE(enum_pins, 6);
}

TEST(Catalog, DefaultNodesExistAndFitOnTheirPins) {
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) {
            EXPECT_EQ(row.default_node == NODE_UNKNOWN, row.filled == Filled::Never) << where(*entry, row);
            if (row.default_node == NODE_UNKNOWN) continue;
            const TypeEntry* filler = Catalog::find(row.default_node);
            ASSERT_NE(filler, nullptr) << where(*entry, row);
            EXPECT_TRUE(Catalog::fits(filler->row->output, row.kind)) << where(*entry, row);
        }
    }
}

bool isValueKind(NodePinType kind) {
    return kind == PIN_TYPE_BOOL || kind == PIN_TYPE_FLOAT || kind == PIN_TYPE_INT || kind == PIN_TYPE_TRANSFORM ||
           kind == PIN_TYPE_ENUM || kind == PIN_TYPE_STRING;
}

AttributeType valueType(NodePinType kind, unsigned dimension) {
    static constexpr AttributeType ints[] = {ATTR_TYPE_INT, ATTR_TYPE_INT2, ATTR_TYPE_INT3};
    static constexpr AttributeType floats[] = {ATTR_TYPE_FLOAT, ATTR_TYPE_FLOAT2, ATTR_TYPE_FLOAT3};
    if (kind == PIN_TYPE_BOOL) return ATTR_TYPE_BOOL;
    if (kind == PIN_TYPE_ENUM) return ATTR_TYPE_INT;
    if (kind == PIN_TYPE_STRING) return ATTR_TYPE_STRING;
    if (kind == PIN_TYPE_TRANSFORM) return ATTR_TYPE_MATRIX;
    return kind == PIN_TYPE_INT ? ints[dimension - 1] : floats[dimension - 1];
}

TEST(Catalog, ValuePinsAreFilledAtCreationByANodeThatHoldsTheirKind) {
    for (const TypeEntry* entry : Catalog::types()) {
        for (const PinRow& row : entry->row->pins) {
            if (!isValueKind(row.kind)) continue;
            EXPECT_EQ(row.filled, Filled::WhenCreated) << where(*entry, row);
            const AttributeType wanted = valueType(row.kind, row.dimension);
            EXPECT_EQ(Catalog::find(row.default_node)->attributes.at(0).type, wanted) << where(*entry, row);
            const NodeType holder = Catalog::valueNode(row.kind, row.dimension);
            EXPECT_EQ(Catalog::find(holder)->attributes.at(0).type, wanted) << where(*entry, row);
            EXPECT_EQ(Catalog::find(holder)->row->value, ValueSource::Attribute);
        }
    }
}

TEST(Catalog, EachPlainValueNodeCarriesItsValueInItsFirstAttribute) {
    for (const NodeType type : {NODE_FLOAT, NODE_COLOR, NODE_BOOL, NODE_INT, NODE_INT2, NODE_INT3, NODE_FLOAT2,
                                NODE_FLOAT3, NODE_ENUM, NODE_STRING, NODE_SUN_DIRECTION}) {
        EXPECT_EQ(Catalog::find(type)->attributes.at(0).id, ATTR_VALUE) << type;
    }
    for (const NodeType type : {NODE_TRANSFORM_2D, NODE_TRANSFORM_SCALE, NODE_TRANSFORM_3D, NODE_TRANSFORM_MATRIX,
                                NODE_TRANSFORM_2D_ADVANCED}) {
        EXPECT_EQ(Catalog::find(type)->attributes.at(0).id, ATTR_TRANSFORM) << type;
    }
}

TEST(Catalog, ValueNodesExistForTheKindsThatCarryAValueAndNoOthers) {
    for (int kind = PIN_TYPE_UNKNOWN; kind <= PIN_TYPE_STRING + 1; ++kind) {
        const auto pin = static_cast<NodePinType>(kind);
        EXPECT_EQ(Catalog::valueNode(pin, 1) != NODE_UNKNOWN, isValueKind(pin)) << kind;
    }
    EXPECT_EQ(Catalog::valueNode(PIN_TYPE_FLOAT, 4), NODE_UNKNOWN);
    EXPECT_EQ(Catalog::valueNode(PIN_TYPE_INT, 0), NODE_UNKNOWN);
}

TEST(Catalog, LinksHaveOnePinOfTheKindThatTheyPassOn) {
    int links = 0;
    for (const TypeEntry* entry : Catalog::types()) {
        if (!Catalog::isLink(entry->row->type)) continue;
        ++links;
        ASSERT_EQ(entry->pins.size(), 1U) << entry->row->type_name;
        EXPECT_EQ(entry->pins[0]->row->kind, entry->row->output) << entry->row->type_name;
        EXPECT_EQ(entry->pins[0]->row->filled, Filled::Never);
    }
    EXPECT_GE(links, 2);
    EXPECT_EQ(Catalog::find(NODE_LINK_MATERIAL)->row->pins[0].id, PIN_MATERIAL);
    EXPECT_EQ(Catalog::find(NODE_LINK_FIRST)->row->output, PIN_TYPE_GEOMETRY);
}

// Readers take the descriptions apart by byte positions.
template <typename T>
T at(const void* record, std::size_t position) {
    T value;
    std::memcpy(&value, static_cast<const char*>(record) + position, sizeof value);
    return value;
}

template <typename T>
void expectNumberBytes(const void* info, const PinRow& row, const std::string& message) {
    EXPECT_EQ(at<std::uint8_t>(info, 0), row.dimension) << message;
    for (unsigned i = 0; i < 3; ++i) {
        const std::size_t first = 16 + 32 * i;
        EXPECT_EQ(at<T>(info, first), static_cast<T>(row.limits.minimum)) << message;
        EXPECT_EQ(at<T>(info, first + 4), static_cast<T>(row.limits.maximum)) << message;
        EXPECT_EQ(at<T>(info, first + 8), static_cast<T>(row.limits.slider_minimum)) << message;
        EXPECT_EQ(at<T>(info, first + 12), static_cast<T>(row.limits.slider_maximum)) << message;
    }
}

void expectEnumBytes(const void* info, const PinRow& row, const std::string& message) {
    const auto* entries = at<const char*>(info, 0);
    ASSERT_EQ(at<std::uint32_t>(info, 8), row.entries.size()) << message;
    for (std::size_t i = 0; i < row.entries.size(); ++i) {
        EXPECT_EQ(at<std::int32_t>(entries + 16 * i, 0), row.entries[i].value) << message;
        EXPECT_STREQ(at<const char*>(entries + 16 * i, 8), row.entries[i].label) << message;
    }
}

TEST(Catalog, DescriptionsOfPinsStandAtTheirBytePositions) {
    for (const TypeEntry* entry : Catalog::types()) {
        for (const auto& pin : entry->pins) {
            const PinRow& row = *pin->row;
            const std::string message = where(*entry, row);
            const void* info = &pin->info;
            EXPECT_STREQ(at<const char*>(info, 16), row.label) << message;
            const auto* floats = at<const void*>(info, 64);
            const auto* ints = at<const void*>(info, 72);
            const auto* choices = at<const void*>(info, 80);
            const auto* transform = at<const void*>(info, 96);
            EXPECT_EQ(floats != nullptr, row.kind == PIN_TYPE_FLOAT) << message;
            EXPECT_EQ(ints != nullptr, row.kind == PIN_TYPE_INT) << message;
            EXPECT_EQ(choices != nullptr, row.kind == PIN_TYPE_ENUM) << message;
            EXPECT_EQ(transform != nullptr, row.kind == PIN_TYPE_TRANSFORM) << message;
            if (floats != nullptr) expectNumberBytes<float>(floats, row, message);
            if (ints != nullptr) expectNumberBytes<std::int32_t>(ints, row, message);
            if (choices != nullptr) expectEnumBytes(choices, row, message);
            if (transform != nullptr) {
                EXPECT_EQ(at<std::uint8_t>(transform, 48), row.dimension) << message;
                EXPECT_TRUE(row.dimension == 2 || row.dimension == 3) << message;
            }
        }
    }
}

void expectDefaults(const ApiNodePinInfo& info, const PinRow& row) {
    if (info.bool_default != nullptr) {
        EXPECT_EQ(*info.bool_default, row.bool_default);
    }
    if (info.enum_info != nullptr) {
        EXPECT_EQ(info.enum_info->default_value, row.int_defaults[0]);
    }
    for (unsigned i = 0; i < 3; ++i) {
        if (info.float_info != nullptr) {
            EXPECT_EQ(info.float_info->defaults[i], row.float_defaults[i]);
        }
        if (info.int_info != nullptr) {
            EXPECT_EQ(info.int_info->defaults[i], row.int_defaults[i]);
        }
    }
}

TEST(Catalog, DescriptionsCarryTheDefaultsOfTheirRows) {
    for (const TypeEntry* entry : Catalog::types()) {
        for (const auto& pin : entry->pins) {
            const PinRow& row = *pin->row;
            EXPECT_EQ(pin->info.id, row.id);
            EXPECT_EQ(pin->info.type, row.kind);
            EXPECT_EQ(pin->info.default_node, row.default_node);
            expectDefaults(pin->info, row);
        }
        EXPECT_EQ(entry->info.pin_count, entry->pins.size());
        EXPECT_EQ(entry->info.attribute_count, entry->attributes.size());
        EXPECT_STREQ(at<const char*>(&entry->info, 24), entry->row->default_name);
    }
}

TEST(Catalog, MatricesStartAsTheIdentity) {
    const ApiAttributeInfo& info = Catalog::find(NODE_TRANSFORM_MATRIX)->attributes.at(0);
    for (int i = 0; i < 12; ++i) EXPECT_EQ(info.default_matrix[i], i % 5 == 0 ? 1.0F : 0.0F) << i;
}

bool hasPins(NodeType type, std::initializer_list<int> ids) {
    const auto& rows = Catalog::find(type)->row->pins;
    return std::ranges::all_of(ids, [&rows, type](int id) {
        const bool found = std::ranges::any_of(rows, [id](const PinRow& row) { return row.id == id; });
        EXPECT_TRUE(found) << "type " << type << " pin " << id;
        return found;
    });
}

TEST(Catalog, NodesHaveThePinsThatSettingsWrite) {
    EXPECT_TRUE(hasPins(NODE_RENDER_TARGET, {19, 43, 78, 136, 89, 311, 111, 303, 198}));
    EXPECT_TRUE(hasPins(NODE_THIN_LENS_CAMERA, {133, 235, 248, 93,  200, 116, 224, 228, 53,  35, 8,
                                                10,  132, 9,   130, 227, 95,  12,  51,  127, 209}));
    EXPECT_TRUE(hasPins(NODE_PANORAMIC_CAMERA, {133, 235, 248, 93, 200, 116, 224, 228, 54, 55, 20, 225, 226}));
    EXPECT_TRUE(hasPins(NODE_DAYLIGHT_ENVIRONMENT, {79, 114, 246, 138, 120, 217, 232, 233, 331, 231, 240}));
    EXPECT_TRUE(hasPins(NODE_SUN_DIRECTION, {91, 99, 115, 27, 75, 67}));
    EXPECT_TRUE(hasPins(NODE_TEXTURE_ENVIRONMENT, {79, 240}));
    EXPECT_TRUE(hasPins(NODE_IMAGE, {138, 57, 83, 243}));
    EXPECT_TRUE(hasPins(NODE_GAMMA_COLOR, {57, 240}));
    EXPECT_TRUE(hasPins(NODE_MULTIPLY_TEXTURE, {238, 239}));
    EXPECT_TRUE(hasPins(NODE_DISPLACEMENT, {240}));
    EXPECT_TRUE(hasPins(NODE_KERNEL_DIRECT_LIGHT, {221, 66, 29, 7, 61, 50, 25, 129, 144, 2, 3, 223, 108}));
    EXPECT_TRUE(hasPins(NODE_KERNEL_PATH_TRACING, {104, 105, 22, 50, 60, 25, 129, 144, 2, 3, 223, 108}));
    EXPECT_TRUE(hasPins(NODE_KERNEL_PMC, {104, 105, 44, 22, 32, 107, 128, 50, 60, 129, 144, 2, 3, 108}));
    EXPECT_TRUE(hasPins(NODE_KERNEL_INFO_CHANNEL, {81, 36, 144, 50, 2, 257, 250, 249, 109, 18, 72, 7, 3, 108}));
    EXPECT_TRUE(hasPins(NODE_FILM_SETTINGS, {198}));
    EXPECT_TRUE(hasPins(NODE_MATERIAL_GLOSSY, {30, 18, 119, 222, 34, 125, 218}));
    EXPECT_TRUE(hasPins(NODE_MATERIAL_SPECULAR, {145, 245, 18, 119, 34, 125, 218}));
    for (const NodeType type : {NODE_MATERIAL_DIFFUSE, NODE_MATERIAL_METAL, NODE_MATERIAL_TOON}) {
        EXPECT_TRUE(hasPins(type, {30, 18, 119, 34, 125, 218}));
    }
    EXPECT_TRUE(hasPins(NODE_MATERIAL_MAP, {59}));
    EXPECT_TRUE(hasPins(NODE_SCATTER, {59}));
    EXPECT_TRUE(hasPins(NODE_LINK_MATERIAL, {82}));
}

TEST(Catalog, NodesHaveThePinsThatTheRendererReads) {
    const int emission = PIN_EMISSION;
    for (const NodeType type : {NODE_MATERIAL_GLOSSY, NODE_MATERIAL_DIFFUSE, NODE_MATERIAL_SPECULAR,
                                NODE_MATERIAL_METAL, NODE_MATERIAL_TOON}) {
        EXPECT_TRUE(hasPins(type, {emission, PIN_ROUGHNESS, PIN_OPACITY, PIN_BUMP_HEIGHT}));
    }
    EXPECT_TRUE(hasPins(NODE_MATERIAL_GLOSSY, {PIN_INDEX, PIN_FILM_WIDTH, PIN_FILM_INDEX}));
    EXPECT_TRUE(hasPins(NODE_MATERIAL_SPECULAR, {PIN_INDEX, PIN_FILM_WIDTH, PIN_DISPERSION, PIN_THIN}));
    EXPECT_TRUE(hasPins(NODE_MATERIAL_MIX, {PIN_AMOUNT, PIN_MATERIAL_1, PIN_MATERIAL_2}));
    EXPECT_TRUE(hasPins(NODE_TEXTURE_EMISSION, {PIN_TEXTURE, PIN_POWER, PIN_SURFACE_BRIGHTNESS}));
    EXPECT_TRUE(hasPins(NODE_BLACKBODY_EMISSION, {PIN_TEMPERATURE, PIN_POWER, PIN_NORMALIZE}));
    for (const NodeType type : {NODE_IMAGE, NODE_ALPHA_IMAGE, NODE_FLOAT_IMAGE}) {
        EXPECT_TRUE(hasPins(type, {PIN_POWER, PIN_GAMMA, PIN_INVERT, PIN_UV_TRANSFORM, PIN_WRAP_U, PIN_WRAP_V}));
    }
    EXPECT_TRUE(hasPins(NODE_IMAGER, {PIN_EXPOSURE, PIN_GAMMA, PIN_SATURATION, PIN_RESPONSE, PIN_WHITE_POINT,
                                      PIN_VIGNETTING, PIN_HOT_PIXEL_REMOVAL, PIN_DITHERING}));
    EXPECT_TRUE(hasPins(NODE_POSTPROC, {PIN_ENABLED, PIN_BLOOM_POWER, PIN_BLOOM_SIZE, PIN_GLARE_POWER, PIN_GLARE_RAYS,
                                        PIN_GLARE_LENGTH, PIN_CUTOFF}));
}

// Pins are told apart by their index too, so what came later stands behind.
TEST(Catalog, PinsKeepTheirPlaces) {
    struct Row {
        NodeType type;
        std::vector<int> first_pins;
    };
    const Row rows[] = {
        {NODE_MATERIAL_GLOSSY, {30, 222, 1004, 1005, 18, 119, 34, 125, 218}},
        {NODE_MATERIAL_DIFFUSE, {30, 18, 119, 34, 125, 218}},
        {NODE_MATERIAL_SPECULAR, {145, 245, 1004, 1005, 18, 119, 34, 125, 218}},
        {NODE_MATERIAL_MIX, {1003, 1001, 1002, 34}},
        {NODE_MATERIAL_PORTAL, {1009}},
        {NODE_MATERIAL_METAL, {30, 222, 1004, 18, 119, 34, 125, 218}},
        {NODE_MATERIAL_TOON, {30, 222, 1004, 18, 119, 34, 125, 218}},
        {NODE_IMAGE, {138, 57, 83, 243}},
        {NODE_ALPHA_IMAGE, {138, 57, 83, 243}},
        {NODE_FLOAT_IMAGE, {138, 57, 83, 243}},
        {NODE_DISPLACEMENT, {240, 1006}},
        {NODE_IMAGER, {1007, 57, 1008}},
        {NODE_POSTPROC, {1009, 1010, 1011}},
        {NODE_KERNEL_INFO_CHANNEL, {108, 81, 36, 144, 50, 2, 257, 250, 249, 109, 18, 72, 7, 3}},
    };
    for (const Row& row : rows) {
        const std::span<const PinRow> pins = Catalog::find(row.type)->row->pins;
        ASSERT_GE(pins.size(), row.first_pins.size()) << row.type;
        for (std::size_t i = 0; i < row.first_pins.size(); ++i) {
            EXPECT_EQ(pins[i].id, row.first_pins[i]) << "type " << row.type << " index " << i;
        }
    }
}

bool hasAttribute(NodeType type, int id, AttributeType kind, bool is_array) {
    for (const ApiAttributeInfo& info : Catalog::find(type)->attributes) {
        if (info.id == id) return info.type == kind && info.is_array == is_array;
    }
    return false;
}

TEST(Catalog, NodesHaveTheAttributesThatTheMirrorWrites) {
    struct Row {
        NodeType node;
        int id;
        AttributeType type;
        bool is_array;
    };
    const Row rows[] = {
        {NODE_MESH, 34, ATTR_TYPE_FILENAME, false},
        {NODE_MESH, 124, ATTR_TYPE_BOOL, false},
        {NODE_MESH, 40, ATTR_TYPE_BOOL, false},
        {NODE_MESH, 41, ATTR_TYPE_FLOAT, false},
        {NODE_MESH, 161, ATTR_TYPE_INT, false},
        {NODE_MESH, 163, ATTR_TYPE_FLOAT, false},
        {NODE_MESH, 153, ATTR_TYPE_INT, false},
        {NODE_MESH, 162, ATTR_TYPE_INT, false},
        {NODE_MESH, 189, ATTR_TYPE_INT, true},
        {NODE_MESH, 190, ATTR_TYPE_FLOAT3, true},
        {NODE_MESH, 120, ATTR_TYPE_INT, true},
        {NODE_MESH, 80, ATTR_TYPE_FLOAT3, true},
        {NODE_MESH, 115, ATTR_TYPE_INT, true},
        {NODE_MESH, 184, ATTR_TYPE_FLOAT3, true},
        {NODE_MESH, 119, ATTR_TYPE_INT, true},
        {NODE_MESH, 114, ATTR_TYPE_INT, true},
        {NODE_MESH, 63, ATTR_TYPE_STRING, true},
        {NODE_MESH, 280, ATTR_TYPE_INT, false},
        {NODE_MATERIAL_MAP, 280, ATTR_TYPE_INT, false},
        {NODE_GEOMETRY_GROUP, 113, ATTR_TYPE_INT, false},
        {NODE_SCATTER, 170, ATTR_TYPE_MATRIX, true},
        {NODE_SCATTER, 279, ATTR_TYPE_INT, true},
        {NODE_IMAGE, 34, ATTR_TYPE_FILENAME, false},
        {NODE_IMAGE, 124, ATTR_TYPE_BOOL, false},
        {NODE_ALPHA_IMAGE, 34, ATTR_TYPE_FILENAME, false},
        {NODE_FLOAT_IMAGE, 34, ATTR_TYPE_FILENAME, false},
        {NODE_FLOAT, 185, ATTR_TYPE_FLOAT, false},
        {NODE_COLOR, 185, ATTR_TYPE_FLOAT3, false},
        {NODE_PROJECT_SETTINGS, 35, ATTR_TYPE_BOOL, false},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(hasAttribute(row.node, row.id, row.type, row.is_array)) << row.node << " " << row.id;
    }
    for (const NodeType type :
         {NODE_TRANSFORM_2D, NODE_TRANSFORM_3D, NODE_TRANSFORM_MATRIX, NODE_TRANSFORM_2D_ADVANCED}) {
        EXPECT_TRUE(hasAttribute(type, 171, ATTR_TYPE_MATRIX, false)) << type;
        EXPECT_TRUE(hasAttribute(type, 139, ATTR_TYPE_FLOAT3, false)) << type;
        EXPECT_TRUE(hasAttribute(type, 172, ATTR_TYPE_FLOAT3, false)) << type;
    }
}

}  // namespace
}  // namespace Velmar::Engine
