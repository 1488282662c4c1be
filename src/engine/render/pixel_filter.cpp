#include "engine/render/pixel_filter.h"

#include <cmath>

namespace Velmar::Engine {

namespace {

constexpr int kSteps = 1024;
constexpr int kStepsOfIntegral = 16384;

// Integral of the window from its left end to the share `t` of its width, for a whole of 1.
double integral(double t) {
    constexpr double a0 = 0.35875, a1 = 0.48829, a2 = 0.14128, a3 = 0.01168;
    constexpr double pi = 3.14159265358979323846;
    const double terms = -a1 / (2 * pi) * std::sin(2 * pi * t) + a2 / (4 * pi) * std::sin(4 * pi * t) -
                         a3 / (6 * pi) * std::sin(6 * pi * t);
    return t + terms / a0;
}

}  // namespace

PixelFilter::PixelFilter(float width) : inverse_(kSteps + 1) {
    int step = 0;
    double before = 0.0;
    for (int i = 1; i <= kStepsOfIntegral; ++i) {
        const double after = integral(static_cast<double>(i) / kStepsOfIntegral);
        while (step <= kSteps && static_cast<double>(step) / kSteps <= after) {
            const double rest = (static_cast<double>(step) / kSteps - before) / (after - before);
            inverse_[step++] = width * static_cast<float>((i - 1 + rest) / kStepsOfIntegral - 0.5);
        }
        before = after;
    }
    while (step <= kSteps) inverse_[step++] = width * 0.5f;
}

float PixelFilter::offset(float u) const {
    const float place = u * kSteps;
    const int step = static_cast<int>(place);
    const float rest = place - static_cast<float>(step);
    return inverse_[step] + (inverse_[step + 1] - inverse_[step]) * rest;
}

}  // namespace Velmar::Engine
