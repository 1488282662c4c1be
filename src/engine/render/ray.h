// A ray in world space.
#pragma once

#include "engine/scene/vector_math.h"

namespace Velmar::Engine {

struct Ray {
    Float3 origin;
    Float3 direction;  ///< unit vector
    float near = 0.0f;
    float far = std::numeric_limits<float>::infinity();
};

}  // namespace Velmar::Engine
