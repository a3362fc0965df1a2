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

TEST(ShadowFitTest, theCornersOfWhatIsSeen) {
    // At (1, 2, 3), looking along the positive x axis.
    const DualQuaternion transformation =
        DualQuaternion::translation({1.0f, 2.0f, 3.0f}) * DualQuaternion::rotation(-90.0_degf, Vector3::yAxis());
    const Matrix4 projection = Matrix4::perspectiveProjection(90.0_degf, 2.0f, 0.1f, 100.0f);
    const FrustumCorners corners = frustumCorners(transformation.quaternionConjugated(), projection, 2.0f, 4.0f);
    expectNear(corners[0], {3.0f, 1.0f, 1.0f});
    expectNear(corners[3], {3.0f, 3.0f, 5.0f});
    expectNear(corners[4], {5.0f, 0.0f, -1.0f});
    expectNear(corners[7], {5.0f, 4.0f, 7.0f});
}

TEST(ShadowFitTest, slicesBecomeLonger) {
    EXPECT_FLOAT_EQ(sliceEnd(0, 1, 1.0f, 16.0f), 16.0f);
    // Half of 1 + 7.5 and of 4.
    EXPECT_FLOAT_EQ(sliceEnd(0, 2, 1.0f, 16.0f), 6.25f);
    EXPECT_FLOAT_EQ(sliceEnd(1, 2, 1.0f, 16.0f), 16.0f);
    EXPECT_FLOAT_EQ(sliceEnd(0, 4, 1.0f, 16.0f), 0.5f * (4.75f + 2.0f));
}

TEST(ShadowFitTest, aSunSeesABox) {
    FrustumCorners corners;
    for(std::size_t i = 0; i != 8; ++i) corners[i] = {i & 1 ? 3.1f : -1.1f, i & 2 ? 2.0f : 1.0f, i & 4 ? 5.2f : 0.3f};
    // Straight down; what is nearer to the sun by 10 is seen, too.
    const Matrix4 down = sunShadow(DualQuaternion{}, corners, 10.0f, 0.0f);
    expectNear(down.transformPoint({-1.1f, 12.0f, 0.3f}), {-1.0f, 1.0f, -1.0f});
    expectNear(down.transformPoint({3.1f, 1.0f, 5.2f}), {1.0f, -1.0f, 1.0f});
    expectNear(down.transformPoint({1.0f, 6.5f, 2.75f}), {0.0f, 0.0f, 0.0f});
    // At whole texels of a half.
    const Matrix4 snapped = sunShadow(DualQuaternion{}, corners, 10.0f, 0.5f);
    expectNear(snapped.transformPoint({-1.5f, 12.0f, 0.0f}), {-1.0f, 1.0f, -1.0f});
    expectNear(snapped.transformPoint({3.5f, 1.0f, 5.5f}), {1.0f, -1.0f, 1.0f});
}

TEST(ShadowFitTest, aTurnedSunSeesEveryCorner) {
    const FrustumCorners corners = frustumCorners(DualQuaternion::rotation(20.0_degf, Vector3::xAxis()),
        Matrix4::perspectiveProjection(70.0_degf, 1.5f, 0.1f, 100.0f), 0.1f, 30.0f);
    const DualQuaternion light = DualQuaternion::rotation(50.0_degf, Vector3{0.6f, 0.0f, 0.8f});
    const Vector3 towardsLight = light.transformVector(Vector3::yAxis());
    for(const Float texel: {0.0f, 0.3f}) {
        const Matrix4 shadow = sunShadow(light, corners, 7.0f, texel);
        for(const Vector3& corner: corners) {
            EXPECT_TRUE(isInside(shadow, corner));
            EXPECT_TRUE(isInside(shadow, corner + 7.0f * towardsLight));
            EXPECT_LT(shadow.transformPoint(corner + towardsLight).z(), shadow.transformPoint(corner).z());
        }
    }
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
    addLight(LightType::Point);
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun}));
    EXPECT_EQ(shadows(), (std::vector<Id>{spot, sun}));
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
        for(const auto& [distance, first, second]: {std::make_tuple(0.2f, true, false),
                std::make_tuple(middle - 0.1f, true, false), std::make_tuple(middle + 0.1f, false, true),
                std::make_tuple(19.9f, false, true), std::make_tuple(20.1f, false, false)}) {
            EXPECT_EQ(isInside(lights.shadows()[1].matrix, {x, 0.0f, -distance}), first) << distance;
            EXPECT_EQ(isInside(lights.shadows()[2].matrix, {x, 0.0f, -distance}), second) << distance;
        }
    }
}

} // namespace
