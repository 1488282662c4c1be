// The render target and what makes a picture of the light that arrives.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr ApiEnumEntry responses[] = {
    {0, "Linear"},
    {1, "Reinhard"},
    {2, "Filmic"},
};

constexpr PinRow resolution_pin =
    int2Pin(PIN_RESOLUTION, "Resolution", 1000, 600, {1, 65536, 16, 4096}, "Width and height, pixels");

constexpr PinRow render_target_pins[] = {
    nodePin(PIN_CAMERA, PIN_TYPE_CAMERA, "Camera", NODE_THIN_LENS_CAMERA),
    resolution_pin,
    nodePin(PIN_ENVIRONMENT, PIN_TYPE_ENVIRONMENT, "Environment", NODE_DAYLIGHT_ENVIRONMENT),
    nodePin(PIN_VISIBLE_ENVIRONMENT, PIN_TYPE_ENVIRONMENT, "Visible environment", NODE_UNKNOWN,
            "Seen behind the scene in place of the environment, which still lights it"),
    nodePin(PIN_RENDER_GEOMETRY, PIN_TYPE_GEOMETRY, "Geometry", NODE_LINK_FIRST, "What is rendered"),
    nodePin(PIN_FILM_SETTINGS, PIN_TYPE_FILM_SETTINGS, "Film settings", NODE_FILM_SETTINGS,
            "Its resolution goes before that of the render target"),
    nodePin(PIN_KERNEL, PIN_TYPE_KERNEL, "Kernel", NODE_KERNEL_PATH_TRACING),
    nodePin(PIN_IMAGER, PIN_TYPE_IMAGER, "Imager", NODE_IMAGER),
    nodePin(PIN_POSTPROC, PIN_TYPE_POSTPROC, "Post-processing", NODE_POSTPROC),
};

constexpr PinRow film_pins[] = {resolution_pin};

constexpr PinRow imager_pins[] = {
    floatPin(PIN_EXPOSURE, "Exposure", 1.0F, {0.001, 4096.0, 0.01, 20.0}, "Factor on all light"),
    floatPin(PIN_GAMMA, "Gamma", 1.0F, {0.1, 32.0, 0.1, 4.0}, "Beside that of the picture's encoding"),
    floatPin(PIN_SATURATION, "Saturation", 1.0F, {0.0, 4.0, 0.0, 4.0}, "0 grey, 1 as rendered"),
    enumPin(
        PIN_RESPONSE, "Response", 0, responses,
        "Curve from light to brightness: none, that of Reinhard and others (2002), or that of a film with a toe and a "
        "shoulder (Hable, 2010)"),
    floatPin(PIN_HIGHLIGHT_COMPRESSION, "Highlight compression", 0.2F, unit_limits,
             "Share of the brightness range, from the top, that is bent to hold what lies beyond white"),
    colorPin(PIN_WHITE_POINT, "White point", {1.0F, 1.0F, 1.0F}, "Light of this colour is shown white"),
    floatPin(PIN_VIGNETTING, "Vignetting", 0.0F, unit_limits, "Share of light that is lost in the corners"),
    floatPin(PIN_HOT_PIXEL_REMOVAL, "Hot pixel removal", 0.0F, unit_limits,
             "0 off; higher takes pixels for hot that stand out less from their neighbours"),
    boolPin(PIN_DITHERING, "Dithering", true, "Noise below one step of an 8-bit picture, against bands"),
    boolPin(PIN_PREMULTIPLIED_ALPHA, "Premultiplied alpha", false, "Colours are saved times alpha"),
};

constexpr PinRow postproc_pins[] = {
    boolPin(PIN_ENABLED, "Enable", false, "Bloom and glare take place"),
    floatPin(PIN_BLOOM_POWER, "Bloom power", 1.0F, {0.0, 1.0e5, 0.0, 100.0}, "Hundredths of the light that spread"),
    floatPin(PIN_GLARE_POWER, "Glare power", 0.01F, {0.0, 1.0e5, 0.0, 100.0},
             "Hundredths of the light that go into rays"),
    floatPin(PIN_CUTOFF, "Cutoff", 0.0F, {0.0, 1.0e6, 0.0, 100.0},
             "Brightness after exposure, 1 white, below which nothing blooms or glares"),
    floatPin(PIN_BLOOM_SIZE, "Bloom size", 0.05F, {0.001, 1.0, 0.001, 0.5}, "Radius, in heights of the picture"),
    intPin(PIN_GLARE_RAYS, "Glare rays", 6, {1, 16, 1, 16}),
    floatPin(PIN_GLARE_ANGLE, "Glare angle", 15.0F, {-360.0, 360.0, -90.0, 90.0}, "Turn of the rays, degrees"),
    floatPin(PIN_GLARE_LENGTH, "Glare length", 0.15F, {0.001, 1.0, 0.001, 1.0}, "In heights of the picture"),
    floatPin(PIN_GLARE_BLUR, "Glare blur", 0.05F, unit_limits, "0 sharp rays to 1 a disc"),
    floatPin(PIN_GLARE_DISPERSION, "Glare dispersion", 0.0F, unit_limits, "0 white to 1 rainbow"),
};

constexpr NodeTypeRow rows[] = {
    {.type = NODE_IMAGER,
     .output = PIN_TYPE_IMAGER,
     .type_name = "VELMAR_IMAGER",
     .default_name = "Imager",
     .description = "From light to the colours of a picture, without rendering anew",
     .pins = imager_pins},
    {.type = NODE_RENDER_TARGET,
     .output = PIN_TYPE_RENDER_TARGET,
     .type_name = "VELMAR_RENDERTARGET",
     .default_name = "Render target",
     .description = "All that makes one picture",
     .pins = render_target_pins},
    {.type = NODE_POSTPROC,
     .output = PIN_TYPE_POSTPROC,
     .type_name = "VELMAR_POSTPROC",
     .default_name = "Post-processing",
     .description = "Bloom and glare, without rendering anew",
     .pins = postproc_pins},
    {.type = NODE_FILM_SETTINGS,
     .output = PIN_TYPE_FILM_SETTINGS,
     .type_name = "VELMAR_FILMSETTINGS",
     .default_name = "Film settings",
     .description = "Size of the picture",
     .pins = film_pins},
};

}  // namespace

std::span<const NodeTypeRow> pictureTypes() {
    return rows;
}

}  // namespace Velmar::Engine
