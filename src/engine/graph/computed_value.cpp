#include "engine/graph/computed_value.h"

#include "engine/graph/pin_values.h"
#include "engine/graph/sun_position.h"

namespace Velmar::Engine {
namespace {

Vec3<float> directionOf(const NodeRecord& node) {
    const auto number = [&node](PinId id) { return pinValue<float>(node, *pinIndex(node, id)); };
    const auto count = [&node](PinId id) { return pinValue<int>(node, *pinIndex(node, id)); };
    return sunDirection({number(PIN_LATITUDE), number(PIN_LONGITUDE), count(PIN_MONTH), count(PIN_DAY),
                         number(PIN_HOUR), static_cast<float>(count(PIN_GMT_OFFSET))});
}

}  // namespace

Value computedValue(const NodeRecord& node) {
    if (node.type->row->value == ValueSource::SunDirection) return directionOf(node);
    const auto scale = pinValue<Vec3<float>>(node, 0);
    return Matrix<float>{{{scale.x, 0, 0, 0}, {0, scale.y, 0, 0}, {0, 0, scale.z, 0}}};
}

}  // namespace Velmar::Engine
