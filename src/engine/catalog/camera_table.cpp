// Cameras. Places and lengths in metres, angles in degrees.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr ApiEnumEntry stereo_modes[] = {{1, "Off-axis"}, {2, "Parallel"}};

constexpr ApiEnumEntry stereo_outputs[] = {
    {0, "Off"}, {1, "Left eye"}, {2, "Right eye"}, {3, "Side by side"}, {4, "Anaglyph"}, {5, "Over and under"},
};

constexpr ApiEnumEntry panorama_modes[] = {{0, "Spherical"}, {1, "Cylindrical"}, {2, "Cube"}};

constexpr Limits place = {-1.0e6, 1.0e6, -100.0, 100.0};

constexpr PinRow position_pin = float3Pin(PIN_POSITION, "Position", {0.0F, 1.0F, 8.0F}, place, "Metres");
constexpr PinRow target_pin = float3Pin(PIN_TARGET, "Target", {0.0F, 0.0F, 0.0F}, place, "Point looked at, metres");
constexpr PinRow up_pin =
    float3Pin(PIN_UP, "Up vector", {0.0F, 1.0F, 0.0F}, {-1.0, 1.0, -1.0, 1.0}, "What stands upright in the picture");
constexpr PinRow near_clip_pin = floatPin(PIN_NEAR_CLIP_DEPTH, "Near clip depth", 0.0F, {0.0, 1.0e6, 0.0, 10.0},
                                          "Metres; what is nearer is cut away");
constexpr PinRow stereo_output_pin =
    enumPin(PIN_STEREO_OUTPUT, "Stereo output", 0, stereo_outputs, "Which eyes see, and how two pictures make one");
constexpr PinRow left_filter_pin = colorPin(PIN_STEREO_FILTER_LEFT, "Left stereo filter", {1.0F, 0.0F, 0.812F},
                                            "Colour of the left eye in an anaglyph");
constexpr PinRow right_filter_pin = colorPin(PIN_STEREO_FILTER_RIGHT, "Right stereo filter", {0.0F, 1.0F, 0.188F},
                                             "Colour of the right eye in an anaglyph");

constexpr PinRow thin_lens_pins[] = {
    position_pin,
    target_pin,
    up_pin,
    floatPin(PIN_FOV, "Field of view", 45.0F, {0.01, 179.0, 1.0, 150.0}, "Horizontal, degrees"),
    boolPin(PIN_ORTHOGRAPHIC, "Orthographic", false, "Parallel projection"),
    floatPin(PIN_ORTHOGRAPHIC_SCALE, "Scale of view", 10.0F, {1.0e-6, 1.0e6, 0.1, 1000.0},
             "Width of the picture in parallel projection, metres"),
    float2Pin(PIN_LENS_SHIFT, "Lens shift", 0.0F, 0.0F, {-1.0e3, 1.0e3, -1.0, 1.0}, "In widths and heights"),
    boolPin(PIN_PERSPECTIVE_CORRECTION, "Perspective correction", false, "Verticals stay upright"),
    floatPin(PIN_PIXEL_ASPECT_RATIO, "Pixel aspect ratio", 1.0F, {0.1, 10.0, 0.1, 10.0}, "Height over width"),
    near_clip_pin,
    boolPin(PIN_AUTOFOCUS, "Autofocus", true, "Focus on what stands in the middle of the picture"),
    floatPin(PIN_FOCAL_DEPTH, "Focal depth", 10.0F, {1.0e-6, 1.0e6, 0.1, 100.0},
             "Distance of the plane in focus, metres"),
    floatPin(PIN_APERTURE, "Aperture", 0.0F, {0.0, 1.0e3, 0.0, 10.0}, "Radius of the lens opening, centimetres"),
    floatPin(PIN_APERTURE_ASPECT_RATIO, "Aperture aspect ratio", 1.0F, {0.1, 10.0, 0.1, 10.0}, "Width over height"),
    floatPin(PIN_APERTURE_EDGE, "Aperture edge", 1.0F, {1.0, 10.0, 1.0, 3.0}, "How much the rim is favoured, 1 even"),
    floatPin(PIN_DISTORTION, "Distortion", 0.0F, {-1.0, 1.0, -1.0, 1.0}, "Of straight lines: 1 barrel, -1 pincushion"),
    enumPin(PIN_STEREO_MODE, "Stereo mode", 1, stereo_modes, "How the eyes look: at the target, or side by side"),
    stereo_output_pin,
    floatPin(PIN_STEREO_DISTANCE, "Eye distance", 0.02F, {0.0, 1.0e3, 0.0, 1.0}, "Metres"),
    left_filter_pin,
    right_filter_pin,
};

constexpr PinRow panoramic_pins[] = {
    enumPin(PIN_PANORAMA_MODE, "Mode", 0, panorama_modes, "What the picture is wrapped on"),
    position_pin,
    target_pin,
    up_pin,
    floatPin(PIN_FOV_X, "Horizontal field of view", 360.0F, {1.0, 360.0, 1.0, 360.0}, "Degrees"),
    floatPin(PIN_FOV_Y, "Vertical field of view", 180.0F, {1.0, 180.0, 1.0, 180.0}, "Degrees"),
    near_clip_pin,
    stereo_output_pin,
    floatPin(PIN_STEREO_DISTANCE, "Eye distance", 0.065F, {0.0, 1.0e3, 0.0, 1.0}, "Metres"),
    floatPin(PIN_STEREO_DISTANCE_FALLOFF, "Eye distance falloff", 0.3F, {0.001, 100.0, 0.01, 1.0},
             "How the eye distance falls towards the poles"),
    floatPin(PIN_BLACKOUT_LATITUDE, "Blackout latitude", 90.0F, {1.0, 90.0, 1.0, 90.0},
             "Degrees; beyond it a stereo panorama is black"),
    left_filter_pin,
    right_filter_pin,
};

constexpr NodeTypeRow rows[] = {
    {.type = NODE_THIN_LENS_CAMERA,
     .output = PIN_TYPE_CAMERA,
     .type_name = "VELMAR_THINLENS",
     .default_name = "Thin lens camera",
     .description = "A camera with a lens, in perspective or parallel projection",
     .pins = thin_lens_pins},
    {.type = NODE_PANORAMIC_CAMERA,
     .output = PIN_TYPE_CAMERA,
     .type_name = "VELMAR_PANORAMIC",
     .default_name = "Panoramic camera",
     .description = "A camera that sees all around",
     .pins = panoramic_pins},
};

}  // namespace

std::span<const NodeTypeRow> cameraTypes() {
    return rows;
}

}  // namespace Velmar::Engine
