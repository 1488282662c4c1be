#include <gtest/gtest.h>
#include <velmar/window.h>

#include "plugin/nodes/input_walk.h"

namespace Velmar {

// A pane of the window library, made for the test.
int ApiGuiComponent::width() const {
    return 640;
}
int ApiGuiComponent::height() const {
    return 480;
}
int ApiGuiComponent::xPosition() const {
    return -30;
}
int ApiGuiComponent::yPosition() const {
    return 20;
}

namespace {

using Extent = std::pair<Vec2<float>, Vec2<float>>;

class Pane : public ApiGuiComponent {
public:
    Pane() = default;
    ~Pane() = default;
};

TEST(PaneExtent, IsPlaceAndSize) {
    Pane pane;
    EXPECT_EQ(GetExtent(&pane), Extent({-30, 20}, {640, 480}));
}

TEST(PaneExtent, OfNoPaneIsAllZero) {
    EXPECT_EQ(GetExtent(static_cast<ApiGuiComponent*>(nullptr)), Extent());
}

}  // namespace
}  // namespace Velmar
