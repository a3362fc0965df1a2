#include "Renderer/Meshes/FrustumCulling.h"

#include <random>

#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Vector3.h>
#include <gmock/gmock.h>

using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Spheres spheres(std::initializer_list<Vector4> list) {
    Spheres result;
    result.resize(list.size());
    std::size_t i = 0;
    for(const Vector4& sphere: list) result.set(i++, sphere.xyz(), sphere.w());
    return result;
}

std::vector<Id> inside(const Matrix4& matrix, const Spheres& spheres) {
    std::vector<Id> result{7, 7};
    findInside(FrustumPlanes{matrix}, spheres, result);
    return result;
}

TEST(FrustumCullingTest, spheresThatReachInsideAreFound) {
    const Matrix4 box = Matrix4::orthographicProjection(Vector2{2.0f}, 1.0f, 5.0f);
    EXPECT_THAT(inside(box,
                    spheres({{0, 0, -2, 0.1f}, {1.5f, 0, -2, 0.4f}, {1.5f, 0, -2, 0.6f}, {0, -3, -2, 1.9f},
                        {0, -3, -2, 2.1f}, {0, 0, 0, 0.9f}, {0, 0, 0, 1.1f}, {0, 0, -6, 0.9f}, {0, 0, -6, 1.1f},
                        {-1.5f, 0, -2, 0.4f}, {0, 1.5f, -2, 0.4f}, {-1.5f, 0, -2, 0.6f}})),
        ElementsAre(0, 2, 4, 6, 8, 11));
}

TEST(FrustumCullingTest, distancesAreThoseOfThePlanesNotOfTheirLengths) {
    // Sides at 45 degrees.
    const Matrix4 matrix = Matrix4::perspectiveProjection(90.0_degf, 1.0f, 1.0f, 100.0f);
    EXPECT_THAT(
        inside(matrix, spheres({{20, 0, -10, 7.0f}, {20, 0, -10, 7.2f}, {0, -20, -10, 7.0f}, {0, 20, -10, 7.2f}})),
        ElementsAre(1, 3));
}

TEST(FrustumCullingTest, aFarPlaneAtInfinityHidesNothing) {
    const Matrix4 matrix = Matrix4::perspectiveProjection(90.0_degf, 1.0f, 1.0f, Constants::inf());
    EXPECT_THAT(
        inside(matrix, spheres({{0, 0, -1e20f, 1.0f}, {0, 0, 1, 0.5f}, {0, 0, -0.5f, 0.4f}, {0, 0, -0.5f, 0.6f}})),
        ElementsAre(0, 3));
}

TEST(FrustumCullingTest, whatIsNotThereIsNeverFound) {
    const Spheres list = spheres({{0, 0, -2, -1.0f}, {0, 0, -2, 0.0f}});
    EXPECT_THAT(inside(Matrix4::orthographicProjection(Vector2{2.0f}, 1.0f, 5.0f), list), ElementsAre(1));
    std::vector<Id> all{5};
    findAll(list, all);
    EXPECT_THAT(all, ElementsAre(1));
    EXPECT_THAT(inside(Matrix4{}, Spheres{}), IsEmpty());
}

TEST(FrustumCullingTest, whatCannotBeToldIsInside) {
    const Matrix4 matrix = Matrix4::orthographicProjection(Vector2{2.0f}, 1.0f, 5.0f);
    EXPECT_THAT(inside(matrix, spheres({{Constants::nan(), 0, 0, 1}, {9, 0, 0, Constants::inf()}})), ElementsAre(0, 1));
    EXPECT_THAT(inside(Matrix4{Math::ZeroInit}, spheres({{0, 0, 0, 1}})), ElementsAre(0));
}

// Against the plain definition, over more than one block.
TEST(FrustumCullingTest, agreesWithTheDefinition) {
    std::mt19937 random{3};
    std::uniform_real_distribution<Float> place{-50.0f, 50.0f}, size{0.0f, 5.0f};
    Spheres list;
    list.resize(5000);
    for(std::size_t i = 0; i != list.size(); ++i)
        list.set(i, {place(random), place(random), place(random)}, size(random));
    const Matrix4 matrix = Matrix4::perspectiveProjection(60.0_degf, 1.5f, 1.0f, 40.0f) *
        Matrix4::translation({3.0f, -4.0f, 2.0f}) * Matrix4::rotationY(40.0_degf);
    const FrustumPlanes frustum{matrix};
    std::vector<Id> expected;
    for(std::size_t i = 0; i != list.size(); ++i) {
        bool isInside = true;
        for(const Vector4& plane: frustum.planes) {
            EXPECT_NEAR(plane.xyz().length(), 1.0f, 1e-5f);
            isInside = isInside && Math::dot(plane.xyz(), list.center(i)) + plane.w() >= -list.radius[i];
        }
        if(isInside) expected.push_back(Id(i));
    }
    EXPECT_EQ(inside(matrix, list), expected);
    EXPECT_GT(expected.size(), 100u);
    EXPECT_LT(expected.size(), 2000u);
}

} // namespace
