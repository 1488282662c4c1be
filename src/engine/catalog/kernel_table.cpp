// Kernels: how light is followed.
#include "engine/catalog/row_forms.h"
#include "engine/catalog/tables.h"

namespace Velmar::Engine {
namespace {

constexpr Limits depth = {1, 1024, 1, 24};

constexpr ApiEnumEntry gi_modes[] = {
    {0, "None"}, {1, "Ambient"}, {2, "Sample environment"}, {3, "Ambient occlusion"}, {4, "Diffuse"},
};

constexpr ApiEnumEntry info_channels[] = {
    {0, "Geometric normal"},   {1, "Shading normal"}, {2, "Position"},  {3, "Depth"},  {4, "Material"},
    {5, "UV coordinates"},     {6, "Tangent"},        {7, "Wireframe"}, {8, "Motion"}, {9, "Object"},
    {10, "Ambient occlusion"},
};

constexpr PinRow max_samples = intPin(PIN_MAX_SAMPLES, "Max samples", 16000, {1, 256000, 1, 64000}, "Per pixel");
constexpr PinRow diffuse_depth = intPin(PIN_DIFFUSE_DEPTH, "Diffuse depth", 8, depth, "Bounces at most");
constexpr PinRow specular_depth = intPin(PIN_SPECULAR_DEPTH, "Specular depth", 24, depth, "Bounces at most");
constexpr PinRow ao_distance =
    floatPin(PIN_AO_DISTANCE, "AO distance", 3.0F, {0.01, 1024.0, 0.01, 1024.0}, "Reach of ambient occlusion, metres");
constexpr PinRow caustic_blur = floatPin(PIN_CAUSTIC_BLUR, "Caustic blur", 0.0F, unit_limits,
                                         "Roughness that bright reflections of reflections get at least");
constexpr PinRow filter_size =
    floatPin(PIN_FILTER_SIZE, "Filter size", 1.2F, {1.0, 16.0, 1.0, 8.0}, "Width of the reconstruction filter, pixels");
constexpr PinRow gi_clamp =
    floatPin(PIN_GI_CLAMP, "GI clamp", 1.0e6F, {0.001, 1.0e6, 0.001, 1.0e6}, "Largest radiance of an indirect path");
constexpr PinRow coherent_ratio = floatPin(PIN_COHERENT_RATIO, "Coherent ratio", 0.0F, unit_limits,
                                           "Share of samples that neighbouring pixels have in common");
constexpr PinRow termination_power = floatPin(PIN_PATH_TERMINATION_POWER, "Path termination power", 0.3F, unit_limits,
                                              "How readily dim paths end by chance, 0 never");
constexpr PinRow ray_epsilon = floatPin(PIN_RAY_EPSILON, "Ray epsilon", 1.0e-4F, {0.0, 1.0e3, 1.0e-6, 0.1},
                                        "Distance at which a ray starts, metres");
constexpr PinRow alpha_channel = boolPin(PIN_ALPHA_CHANNEL, "Alpha channel", false, "The background is transparent");
constexpr PinRow alpha_shadows =
    boolPin(PIN_ALPHA_SHADOWS, "Alpha shadows", true, "Transparent surfaces cast lighter shadows");
constexpr PinRow static_noise = boolPin(PIN_STATIC_NOISE, "Static noise", false, "The same noise in each picture");

constexpr PinRow direct_light_pins[] = {
    max_samples,
    enumPin(PIN_GI_MODE, "GI mode", 3, gi_modes, "What stands in for light that comes by way of other surfaces"),
    intPin(PIN_SPECULAR_DEPTH_DIRECT, "Specular depth", 5, depth, "Bounces at most"),
    intPin(PIN_GLOSSY_DEPTH, "Glossy depth", 2, depth, "Bounces at most"),
    intPin(PIN_DIFFUSE_DEPTH_DIRECT, "Diffuse depth", 2, {1, 1024, 1, 8}, "Bounces at most"),
    ao_distance,
    filter_size,
    coherent_ratio,
    termination_power,
    ray_epsilon,
    alpha_channel,
    alpha_shadows,
    static_noise,
};

constexpr PinRow path_tracing_pins[] = {
    max_samples,    diffuse_depth,     specular_depth, caustic_blur,  filter_size,   gi_clamp,
    coherent_ratio, termination_power, ray_epsilon,    alpha_channel, alpha_shadows, static_noise,
};

constexpr PinRow pmc_pins[] = {
    max_samples,
    diffuse_depth,
    specular_depth,
    floatPin(PIN_EXPLORATION_STRENGTH, "Exploration strength", 0.7F, unit_limits,
             "Share of paths that vary the one before"),
    caustic_blur,
    floatPin(PIN_DIRECT_LIGHT_IMPORTANCE, "Direct light importance", 0.1F, unit_limits,
             "Share of the exploration that direct light gets"),
    intPin(PIN_MAX_REJECTS, "Max rejects", 500, {1, 10000, 100, 10000},
           "Variations of a path that may fail before a new one is begun"),
    intPin(PIN_PARALLELISM, "Parallelism", 4, {1, 8, 1, 8}, "Chains of paths for each thread"),
    filter_size,
    gi_clamp,
    termination_power,
    ray_epsilon,
    alpha_channel,
    alpha_shadows,
};

constexpr PinRow info_channel_pins[] = {
    max_samples,
    enumPin(PIN_INFO_CHANNEL_TYPE, "Channel", 0, info_channels, "What is shown"),
    boolPin(PIN_DISTRIBUTED_TRACING, "Distributed tracing", true, "With depth of field and antialiasing"),
    ray_epsilon,
    filter_size,
    alpha_channel,
    floatPin(PIN_Z_DEPTH_MAX, "Maximum depth", 5.0F, {0.001, 1.0e5, 0.001, 1000.0}, "Shown white, metres"),
    floatPin(PIN_UV_MAX, "UV maximum", 1.0F, {0.00001, 1000.0, 0.001, 1000.0}, "Shown white"),
    intPin(PIN_UV_SET, "UV set", 1, {1, 3, 1, 3}, "Which texture coordinates are shown"),
    floatPin(PIN_MAX_SPEED, "Maximum speed", 1.0F, {0.00001, 1.0e4, 0.01, 1.0e4}, "Shown at full strength, pixels"),
    boolPin(PIN_BUMP, "Bump and normal mapping", false, "In the shading normals"),
    boolPin(PIN_HIGHLIGHT_BACKFACES, "Highlight backfaces", false, "In the normals"),
    ao_distance,
    alpha_shadows,
    floatPin(PIN_WIREFRAME_WIDTH, "Wireframe width", 1.0F, {0.1, 32.0, 0.1, 8.0}, "Pixels"),
};

constexpr NodeTypeRow kernelRow(NodeType type, const char* type_name, const char* name, const char* description,
                                std::span<const PinRow> pins) {
    return {.type = type,
            .output = PIN_TYPE_KERNEL,
            .type_name = type_name,
            .default_name = name,
            .description = description,
            .pins = pins};
}

constexpr NodeTypeRow rows[] = {
    kernelRow(NODE_KERNEL_PMC, "VELMAR_PMC", "PMC kernel",
              "All light, by paths that explore the neighbourhood of bright ones", pmc_pins),
    kernelRow(NODE_KERNEL_DIRECT_LIGHT, "VELMAR_DIRECTLIGHT", "Direct lighting kernel",
              "Direct light, and a quick stand-in for the rest; biased and fast", direct_light_pins),
    kernelRow(NODE_KERNEL_PATH_TRACING, "VELMAR_PATHTRACING", "Path tracing kernel", "All light, sample by sample",
              path_tracing_pins),
    kernelRow(NODE_KERNEL_INFO_CHANNEL, "VELMAR_INFOCHANNEL", "Info channel kernel", "Facts in place of light",
              info_channel_pins),
};

}  // namespace

std::span<const NodeTypeRow> kernelTypes() {
    return rows;
}

}  // namespace Velmar::Engine
