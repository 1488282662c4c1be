// The render target and what makes a picture of the light that arrives.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr PinRow resolution_pin =
    int2Pin(PIN_RESOLUTION, "Resolution", 1000, 600, {1, 65536, 16, 4096}, "Width and height, pixels");

constexpr PinRow render_target_pins[] = {
    nodePin(PIN_CAMERA, PIN_TYPE_CAMERA, "Camera", NODE_THIN_LENS_CAMERA),
    resolution_pin,
    nodePin(PIN_ENVIRONMENT, PIN_TYPE_ENVIRONMENT, "Environment", NODE_DAYLIGHT_ENVIRONMENT),
    nodePin(PIN_VISIBLE_ENVIRONMENT, PIN_TYPE_ENVIRONMENT, "Visible environment", NODE_UNKNOWN,
            "Seen in place of the environment"),
    nodePin(PIN_RENDER_GEOMETRY, PIN_TYPE_GEOMETRY, "Geometry", NODE_LINK_FIRST),
    nodePin(PIN_FILM_SETTINGS, PIN_TYPE_FILM_SETTINGS, "Film settings", NODE_FILM_SETTINGS),
    nodePin(PIN_KERNEL, PIN_TYPE_KERNEL, "Kernel", NODE_KERNEL_PATH_TRACING),
    nodePin(PIN_IMAGER, PIN_TYPE_IMAGER, "Imager", NODE_IMAGER),
    nodePin(PIN_POSTPROC, PIN_TYPE_POSTPROC, "Post-processing", NODE_POSTPROC),
};

constexpr PinRow film_pins[] = {resolution_pin};

constexpr PinRow imager_pins[] = {
    floatPin(PIN_EXPOSURE, "Exposure", 1.0F, {0.001, 4096.0, 0.01, 20.0}, "Factor on all light"),
    floatPin(PIN_GAMMA, "Gamma", 1.0F, {0.1, 32.0, 0.1, 4.0}, "Beside that of the picture's encoding"),
    floatPin(PIN_SATURATION, "Saturation", 1.0F, {0.0, 4.0, 0.0, 4.0}, "0 grey, 1 as rendered"),
};

constexpr PinRow postproc_pins[] = {
    boolPin(PIN_ENABLED, "Enable", false),
    floatPin(PIN_BLOOM_POWER, "Bloom power", 1.0F, {0.0, 1.0e5, 0.0, 100.0}),
    floatPin(PIN_GLARE_POWER, "Glare power", 0.01F, {0.0, 1.0e5, 0.0, 100.0}),
};

constexpr NodeTypeRow rows[] = {
    {.type = NODE_IMAGER,
     .output = PIN_TYPE_IMAGER,
     .type_name = "VELMAR_IMAGER",
     .default_name = "Imager",
     .description = "From light to colours",
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
     .description = "Bloom and glare",
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
