#include "Renderer/Lights/ShadowOrder.h"

#include <Magnum/Math/Angle.h>
#include <gtest/gtest.h>

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

// From (0, 0, 10) along the negative z axis, as far to each side as ahead.
const ShadowViewer Viewer{
    Matrix4::perspectiveProjection(90.0_degf, 1.0f, 0.1f, 100.0f) * Matrix4::translation({0.0f, 0.0f, -10.0f}),
    {0.0f, 0.0f, 10.0f}};

TEST(ShadowOrderTest, lessWithTheSquareOfTheDistance) {
    EXPECT_FLOAT_EQ(seenPart({}, 2.0f, Viewer), 0.04f);
    EXPECT_FLOAT_EQ(seenPart({0.0f, 0.0f, -10.0f}, 2.0f, Viewer), 0.01f);
    EXPECT_EQ(seenPart({}, 10.0f, Viewer), 1.0f);
    EXPECT_EQ(seenPart({0.0f, 0.0f, 15.0f}, 6.0f, Viewer), 1.0f) << "behind the viewer, who is within its range";
}

TEST(ShadowOrderTest, nothingOutside) {
    // The planes at the sides go through the viewer at 45 degrees.
    for(const Vector3& side: {Vector3::xAxis(), Vector3::yAxis(), -Vector3::xAxis(), -Vector3::yAxis()}) {
        EXPECT_EQ(seenPart(side * 12.0f, 1.4f, Viewer), 0.0f);
        EXPECT_GT(seenPart(side * 12.0f, 1.5f, Viewer), 0.0f);
    }
    EXPECT_EQ(seenPart({0.0f, 0.0f, 15.0f}, 4.0f, Viewer), 0.0f) << "behind the viewer";
}

TEST(ShadowOrderTest, everyoneHasTheirTurn) {
    std::vector<WaitingLight> lights{{0, 1, 0.1f, 0}, {1, 4, 1.0f, 0}, {4, 5, 0.1f, 0}, {5, 6, 0.1f, 20}};
    sortByWeight(lights);
    std::vector<std::size_t> order;
    for(const WaitingLight& light: lights) order.push_back(light.first);
    EXPECT_EQ(order, (std::vector<std::size_t>{5, 1, 0, 4}));
}

} // namespace
