// Environments: the sky with its sun, and pictures or colours all around.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr PinRow power_pin = floatPin(PIN_POWER, "Power", 1.0F, {0.0, 1.0e6, 0.0, 10.0}, "Factor on all its light");
constexpr PinRow importance_pin =
    boolPin(PIN_IMPORTANCE_SAMPLING, "Importance sampling", true, "Sample bright parts more often");

constexpr PinRow sun_direction_pin = [] {
    PinRow row = float3Pin(PIN_SUN_DIRECTION, "Sun direction", {0.0F, 1.0F, 0.0F}, {-1.0, 1.0, -1.0, 1.0},
                           "A place and a time, or a direction towards the sun, Y up, X east");
    row.default_node = NODE_SUN_DIRECTION;
    return row;
}();

constexpr PinRow daylight_pins[] = {
    sun_direction_pin,
    floatPin(PIN_TURBIDITY, "Turbidity", 2.4F, {2.0, 15.0, 2.0, 15.0}, "Haze of the sky"),
    power_pin,
    floatPin(PIN_NORTH_OFFSET, "North offset", 0.0F, {-1.0, 1.0, -1.0, 1.0}, "Turn of north, in full turns"),
    intPin(PIN_DAYLIGHT_MODEL, "Model", 1, {0, 1, 0, 1},
           "0 the sky of the turbidity as it is, 1 tinted by the sky and sunset colours"),
    colorPin(PIN_SKY_COLOR, "Sky colour", {0.25F, 0.58F, 1.0F}, "Of the sky away from a low sun"),
    colorPin(PIN_SUNSET_COLOR, "Sunset colour", {0.79F, 0.38F, 0.17F}, "Of the sky near a low sun"),
    colorPin(PIN_GROUND_COLOR, "Ground colour", {0.2F, 0.18F, 0.16F}, "Below the horizon"),
    floatPin(PIN_SUN_SIZE, "Sun size", 1.0F, {0.1, 30.0, 0.1, 30.0}, "Diameter, 1 its natural size"),
    importance_pin,
    nodePin(PIN_TEXTURE, PIN_TYPE_TEXTURE, "Background texture", NODE_UNKNOWN,
            "All around in place of the sky; the sun stays"),
};

constexpr PinRow texture_environment_pins[] = {
    colorTexturePin(PIN_TEXTURE, "Texture", {1.0F, 1.0F, 1.0F}, "A panorama of 360 by 180 degrees, or a colour"),
    power_pin,
    importance_pin,
};

constexpr PinRow sun_direction_pins[] = {
    floatPin(PIN_LATITUDE, "Latitude", 50.7667F, {-90.0, 90.0, -90.0, 90.0}, "Degrees, north positive"),
    floatPin(PIN_LONGITUDE, "Longitude", 4.4667F, {-180.0, 180.0, -180.0, 180.0}, "Degrees, east positive"),
    intPin(PIN_MONTH, "Month", 3, {1, 12, 1, 12}),
    intPin(PIN_DAY, "Day", 1, {1, 31, 1, 31}),
    floatPin(PIN_HOUR, "Local time", 14.0F, {0.0, 24.0, 0.0, 24.0}, "Hours"),
    intPin(PIN_GMT_OFFSET, "GMT offset", 0, {-12, 14, -12, 14}, "Hours, east positive"),
};

constexpr AttributeRow sun_direction_attributes[] = {
    float3Attribute(ATTR_VALUE, {0.0F, 1.0F, 0.0F}, "Unit vector towards the sun; follows from the pins"),
};

constexpr NodeTypeRow rows[] = {
    {.type = NODE_DAYLIGHT_ENVIRONMENT,
     .output = PIN_TYPE_ENVIRONMENT,
     .type_name = "VELMAR_DAYLIGHT",
     .default_name = "Daylight environment",
     .description = "Sky and sun",
     .pins = daylight_pins},
    {.type = NODE_TEXTURE_ENVIRONMENT,
     .output = PIN_TYPE_ENVIRONMENT,
     .type_name = "VELMAR_ENVIRONMENT",
     .default_name = "Texture environment",
     .description = "A picture or a colour all around",
     .pins = texture_environment_pins},
    {.type = NODE_SUN_DIRECTION,
     .output = PIN_TYPE_FLOAT,
     .type_name = "VELMAR_SUNDIRECTION",
     .default_name = "Sun direction",
     .description = "Direction towards the sun at a place and a time",
     .pins = sun_direction_pins,
     .attributes = sun_direction_attributes,
     .value = ValueSource::SunDirection},
};

}  // namespace

std::span<const NodeTypeRow> environmentTypes() {
    return rows;
}

}  // namespace Velmar::Engine
