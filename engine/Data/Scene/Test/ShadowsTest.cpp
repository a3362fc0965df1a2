#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include <Vantrel/EngineData/LightManager.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/ViewManager.h>

#include "Data/Scene/ShadowFit.h"

namespace {

using namespace Magnum;
using namespace Math::Literals;
using namespace VantrelEngine;

void expectNear(const Vector3& actual, const Vector3& expected, Float tolerance = 1.0e-4f) {
    for(std::size_t i = 0; i != 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance)
            << "axis " << i << " of " << expected[0] << " " << expected[1] << " " << expected[2];
}

bool isInside(const Matrix4& matrix, const Vector3& point) {
    const Vector3 clip = matrix.transformPoint(point);
    for(std::size_t i = 0; i != 3; ++i)
        if(!(std::abs(clip[i]) <= 1.0001f)) return false;
    return true;
}

// The corners of what is seen between two distances.
std::vector<Vector3> corners(
    const DualQuaternion& camera, const Matrix4& projection, Float nearDistance, Float farDistance) {
    std::vector<Vector3> result;
    for(int i = 0; i != 8; ++i) {
        const Float distance = i & 4 ? farDistance : nearDistance;
        result.push_back(camera.transformPoint({(i & 1 ? distance : -distance) / projection[0][0],
            (i & 2 ? distance : -distance) / projection[1][1], -distance}));
    }
    return result;
}

TEST(ShadowFitTest, theSphereTouchesTheCornersOfWhatIsSeen) {
    // At (1, 2, 3), looking along the positive x axis.
    const DualQuaternion camera =
        DualQuaternion::translation({1.0f, 2.0f, 3.0f}) * DualQuaternion::rotation(-90.0_degf, Vector3::yAxis());
    const auto sphere = [&](Deg fov, Float nearDistance, Float farDistance) {
        const Matrix4 projection = Matrix4::perspectiveProjection(fov, 2.0f, 0.1f, 100.0f);
        const SliceSphere result = sliceSphere(camera.quaternionConjugated(), projection, nearDistance, farDistance);
        for(const Vector3& corner: corners(camera, projection, nearDistance, farDistance))
            EXPECT_LE((corner - result.center).length(), result.radius * 1.00001f);
        return result;
    };
    // Narrow: all corners are equally far. Twice 0.1 to the side and 0.05 upwards.
    const SliceSphere narrow = sphere(Deg{2.0f * Math::atan(0.1f)}, 2.0f, 4.0f);
    expectNear(narrow.center, {1.0f + 3.0f * 1.0125f, 2.0f, 3.0f});
    EXPECT_NEAR(narrow.radius, std::sqrt(1.0375f * 1.0375f + 0.0125f * 4.0f), 1.0e-4f);
    // Wide: the far corners alone.
    const SliceSphere wide = sphere(90.0_degf, 2.0f, 4.0f);
    expectNear(wide.center, {5.0f, 2.0f, 3.0f});
    EXPECT_NEAR(wide.radius, std::sqrt(20.0f), 1.0e-4f);
}

TEST(ShadowFitTest, slicesBecomeLonger) {
    EXPECT_FLOAT_EQ(sliceEnd(0, 1, 1.0f, 16.0f), 16.0f);
    // Half of 1 + 7.5 and of 4.
    EXPECT_FLOAT_EQ(sliceEnd(0, 2, 1.0f, 16.0f), 6.25f);
    EXPECT_FLOAT_EQ(sliceEnd(1, 2, 1.0f, 16.0f), 16.0f);
    EXPECT_FLOAT_EQ(sliceEnd(0, 4, 1.0f, 16.0f), 0.5f * (4.75f + 2.0f));
}

TEST(ShadowFitTest, aSunSeesABox) {
    // Straight down; what is nearer to the sun by 10 is seen, too. Steps of 1.
    const Matrix4 down = sunShadow(DualQuaternion{}, {{1.2f, 2.9f, -3.4f}, 7.5f}, 10.0f);
    // Its corner: -6.3, -4.6 and -4.1 in the directions of the map.
    expectNear(down.transformPoint({-7.0f, 21.0f, 5.0f}), {-1.0f, -1.0f, -1.0f});
    expectNear(down.transformPoint({9.0f, -5.0f, -11.0f}), {1.0f, 1.0f, 1.0f});
    EXPECT_EQ(down, sunShadow(DualQuaternion{}, {{1.49f, 2.51f, -3.49f}, 7.5f}, 10.0f)) << "moved within a step";
    EXPECT_NE(down, sunShadow(DualQuaternion{}, {{1.51f, 2.51f, -3.49f}, 7.5f}, 10.0f));
}

const DualQuaternion TurnedSun = DualQuaternion::rotation(50.0_degf, Vector3{0.6f, 0.0f, 0.8f});

TEST(ShadowFitTest, aTurnedSunSeesWhatTheViewSees) {
    const Matrix4 projection = Matrix4::perspectiveProjection(70.0_degf, 1.5f, 0.1f, 100.0f);
    const Vector3 towardsLight = TurnedSun.transformVector(Vector3::yAxis());
    for(int i = 0; i != 40; ++i) {
        const DualQuaternion camera = DualQuaternion::translation({0.37f * Float(i), 3.0f, 1.0f}) *
            DualQuaternion::rotation(Deg{9.0f * Float(i)}, Vector3{0.0f, 0.8f, 0.6f});
        const Matrix4 shadow =
            sunShadow(TurnedSun, sliceSphere(camera.quaternionConjugated(), projection, 5.0f, 30.0f), 7.0f);
        for(const Vector3& corner: corners(camera, projection, 5.0f, 30.0f)) {
            EXPECT_TRUE(isInside(shadow, corner));
            EXPECT_TRUE(isInside(shadow, corner + 7.0f * towardsLight));
            EXPECT_LT(shadow.transformPoint(corner + towardsLight).z(), shadow.transformPoint(corner).z());
        }
    }
}

// Whatever the view does, the edges of the texels, of any size, stay where they are.
TEST(ShadowFitTest, texelsOfASunStayWhereTheyAre) {
    const Matrix4 projection = Matrix4::perspectiveProjection(70.0_degf, 1.5f, 0.1f, 100.0f);
    const Vector3 place{1.3f, 0.4f, -2.0f};
    Matrix4 first;
    std::size_t others = 0;
    for(int i = 0; i != 200; ++i) {
        const DualQuaternion camera = DualQuaternion::translation({0.013f * Float(i), 1.0f + 0.007f * Float(i), 4.0f}) *
            DualQuaternion::rotation(Deg{0.5f * Float(i)}, Vector3::yAxis());
        const Matrix4 shadow =
            sunShadow(TurnedSun, sliceSphere(camera.quaternionConjugated(), projection, 0.1f, 12.0f), 20.0f);
        if(!i) first = shadow;
        others += shadow != first;
        EXPECT_TRUE(shadow.rotationScaling() == first.rotationScaling()) << i;
        // In texels of a map of 2048.
        const Vector3 moved = (shadow.transformPoint(place) - first.transformPoint(place)) * 1024.0f;
        for(const std::size_t axis: {0, 1}) EXPECT_NEAR(moved[axis], std::round(moved[axis]), 0.02f) << i;
    }
    EXPECT_GT(others, 0u) << "nothing moved";
}

TEST(ShadowFitTest, aSpotSeesItsCone) {
    const DualQuaternion light = DualQuaternion::translation({1.0f, 10.0f, 2.0f});
    const Matrix4 shadow = spotShadow(light, 45.0f, 8.0f);
    expectNear(shadow.transformPoint({1.0f, 2.0f, 2.0f}), {0.0f, 0.0f, 1.0f});
    expectNear(shadow.transformPoint({1.0f, 9.92f, 2.0f}), {0.0f, 0.0f, -1.0f}, 1.0e-3f);
    expectNear(shadow.transformPoint({5.0f, 6.0f, 2.0f}) * Vector3{1.0f, 1.0f, 0.0f}, {1.0f, 0.0f, 0.0f});
    for(const Float angle: {90.0f, 400.0f}) EXPECT_EQ(spotShadow(light, angle, 8.0f), spotShadow(light, 80.0f, 8.0f));
    for(const Float angle: {-5.0f, 0.0f, std::nanf("")})
        EXPECT_EQ(spotShadow(light, angle, 8.0f), spotShadow(light, 1.0f, 8.0f));
}

TEST(ShadowFitTest, aPointSeesEverythingAroundIt) {
    const Vector3 place{1.0f, 2.0f, 3.0f};
    for(std::size_t axis = 0; axis != 3; ++axis)
        for(const bool isNegative: {false, true}) {
            const Matrix4 face = pointShadow(place, UnsignedInt(2 * axis + isNegative), 8.0f);
            Vector3 ahead, aside;
            ahead[axis] = isNegative ? -1.0f : 1.0f;
            aside[(axis + 1) % 3] = 1.0f;
            expectNear(face.transformPoint(place + ahead * 8.0f), {0.0f, 0.0f, 1.0f});
            expectNear(face.transformPoint(place + ahead * 0.08f), {0.0f, 0.0f, -1.0f}, 1.0e-3f);
            // The edge of the cube's face, with a margin behind it.
            const Vector3 edge = face.transformPoint(place + (ahead + aside) * 4.0f);
            EXPECT_NEAR(edge.x() * edge.x() + edge.y() * edge.y(), 1.0f / (1.05f * 1.05f), 1.0e-4f);
            EXPECT_FALSE(isInside(face, place - ahead));
        }
}

struct LightShadowsTest: testing::Test {
    LightShadowsTest() {
        graph.setComponentManager(0, lights);
        cameras.setComponentManager(0, views);
        view = views.addComponent(cameras.addObject(RootObject));
        views.activate(view);
        views.projectionMatrix(view) = Matrix4::perspectiveProjection(90.0_degf, 1.0f, 0.1f, 1000.0f);
        update();
    }

    void update() {
        cameras.computeAbsoluteTransformations();
        views.update();
    }
    Id addLight(LightType type) {
        const Id light = lights.addComponent(graph.addObject(RootObject));
        lights.setLightType(light, type);
        lights.parameters(light) = {30.0f, 20.0f, 1.0f};
        lights.shadowRange(light) = 20.0f;
        lights.activate(light);
        return light;
    }
    std::vector<Id> shadows() {
        lights.setupShadows(graph, views, view);
        std::vector<Id> ids;
        for(const LightShadow& shadow: lights.shadows()) ids.push_back(shadow.light);
        return ids;
    }

    DynamicSceneGraph graph{1, 0, 1}, cameras{1, 0, 1};
    LightManager lights;
    ViewManager views;
    Id view;
};

TEST_F(LightShadowsTest, whichLightsHaveWhichMaps) {
    EXPECT_EQ(shadows(), std::vector<Id>{});
    const Id sun = addLight(LightType::Sun), spot = addLight(LightType::Spot);
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun}));
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun}));
    const Id point = addLight(LightType::Point);
    EXPECT_EQ(shadows(), (std::vector<Id>{point, point, point, point, point, point, spot, sun}));
    lights.parameters(point).z() = 0.0f;
    lights.shadowParameters(sun).w() = 3.0f;
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun, sun, sun}));
    lights.shadowParameters(sun).w() = 1.0e9f;
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun, sun, sun, sun}));
    lights.shadowParameters(sun).w() = 0.0f;
    lights.parameters(spot).z() = 0.0f;
    EXPECT_EQ(shadows(), std::vector<Id>{sun});
    lights.setActive(sun, false);
    EXPECT_EQ(shadows(), std::vector<Id>{});
}

TEST_F(LightShadowsTest, lightsAndViewsThatHaveNoSense) {
    const Float inf = std::numeric_limits<Float>::infinity();
    const Id sun = addLight(LightType::Sun), spot = addLight(LightType::Spot);
    for(const Float range: {0.0f, -1.0f, inf, std::nanf("")}) {
        lights.shadowRange(sun) = lights.shadowRange(spot) = range;
        EXPECT_EQ(shadows(), std::vector<Id>{}) << range;
    }
    lights.shadowRange(spot) = 0.0f;
    lights.shadowRange(sun) = 0.1f;
    EXPECT_EQ(shadows(), std::vector<Id>{}) << "nothing is seen as near as that";
    lights.shadowRange(sun) = 20.0f;
    for(const Float near: {0.0f, -1.0f, inf, std::nanf("")}) {
        views.near(view) = near;
        EXPECT_EQ(shadows(), std::vector<Id>{}) << near;
    }
    views.near(view) = 0.1f;
    views.far(view) = std::nanf("");
    EXPECT_EQ(shadows(), std::vector<Id>{});
    views.far(view) = inf;
    EXPECT_EQ(shadows(), std::vector<Id>{sun});
    views.projectionMatrix(view) = Matrix4{Math::ZeroInit};
    EXPECT_EQ(shadows(), std::vector<Id>{});
}

TEST_F(LightShadowsTest, resolutionsFollowTheSizeOfTexels) {
    const Id sun = addLight(LightType::Sun), spot = addLight(LightType::Spot), point = addLight(LightType::Point);
    const auto expectResolutions = [&](Float texelSize, Int ofPoint, Int ofSpot, Int ofSun) {
        for(const Id light: {sun, spot, point}) lights.shadowParameters(light).z() = texelSize;
        ASSERT_EQ(shadows().size(), 8u);
        EXPECT_EQ(lights.shadows()[0].resolution, ofPoint) << texelSize;
        EXPECT_EQ(lights.shadows()[6].resolution, ofSpot) << texelSize;
        EXPECT_EQ(lights.shadows()[7].resolution, ofSun) << texelSize;
    };
    for(const Float none: {0.0f, -1.0f, std::nanf("")}) expectResolutions(none, 256, 512, 1024);
    expectResolutions(1.0e-6f, 512, 1024, 2048);
    // Twice 20 at the end of a point's range, 2 * 20 * tan(30 degrees) of the spot, 16/15 of twice 20 * sqrt(2) of the sun.
    expectResolutions(0.1f, 512, 256, 1024);
    expectResolutions(0.16f, 256, 256, 512);
    expectResolutions(1.0f, 128, 128, 128);
}

TEST_F(LightShadowsTest, followLightsAndTheView) {
    const Id spot = addLight(LightType::Spot), sun = addLight(LightType::Sun);
    lights.shadowParameters(sun).w() = 2.0f;
    for(const Float x: {0.0f, 50.0f}) {
        // Not computed yet.
        graph.localTransformation(lights.object(spot)) = DualQuaternion::translation({x, 5.0f, 0.0f});
        graph.setDirty(lights.object(spot));
        cameras.localTransformation(views.object(view)) = DualQuaternion::translation({x, 0.0f, 0.0f});
        cameras.setDirty(views.object(view));
        update();
        ASSERT_EQ(shadows().size(), 3u);
        EXPECT_TRUE(isInside(lights.shadows()[0].matrix, {x, 0.0f, 0.0f}));
        EXPECT_FALSE(isInside(lights.shadows()[0].matrix, {x + 10.0f, 0.0f, 0.0f}));
        // Half of the way by equal steps, and by equal factors.
        const Float middle = 0.5f * (10.05f + std::sqrt(2.0f));
        for(const Float distance: {0.2f, middle - 0.1f})
            EXPECT_TRUE(isInside(lights.shadows()[1].matrix, {x, 0.0f, -distance})) << distance;
        for(const Float distance: {middle + 0.1f, 19.9f})
            EXPECT_TRUE(isInside(lights.shadows()[2].matrix, {x, 0.0f, -distance})) << distance;
        // The first one ends with its sphere, whose centre is at its far end.
        const Float beyond = middle + std::sqrt(2.0f) * middle * 17.0f / 15.0f;
        EXPECT_FALSE(isInside(lights.shadows()[1].matrix, {x, 0.0f, -beyond - 0.1f}));
    }
}

} // namespace
