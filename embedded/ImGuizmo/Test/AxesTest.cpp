#include <cmath>

#include <gtest/gtest.h>

#include "Cameras.h"
#include "Implementation/Axes.h"

using namespace Magnum;
using namespace GizmoTest;
using namespace ImGuizmo::Implementation;

namespace {

void expectOrthonormal(const Axes& axes) {
    for(std::size_t a = 0; a != 3; ++a)
        for(std::size_t b = 0; b != 3; ++b) EXPECT_NEAR(Math::dot(axes[a], axes[b]), a == b ? 1.0 : 0.0, 1.0e-9);
}

Axes localAxes(const Vector3d& x, const Vector3d& y, const Vector3d& z) {
    const Matrix4d matrix{{x, 0.0}, {y, 0.0}, {z, 0.0}, {7.0, 8.0, 9.0, 1.0}};
    const Axes out = axesOf(matrix, ImGuizmo::LOCAL);
    expectOrthonormal(out);
    return out;
}

const Vector3d X = Vector3d::xAxis(), Y = Vector3d::yAxis(), Z = Vector3d::zAxis();

TEST(AxesTest, worldAxes) {
    const Axes axes = axesOf(Matrix4d::scaling({0.0, 2.0, -3.0}), ImGuizmo::WORLD);
    EXPECT_EQ(axes[0], X);
    EXPECT_EQ(axes[1], Y);
    EXPECT_EQ(axes[2], Z);
}

TEST(AxesTest, lengthsDoNotMatter) {
    const Axes axes = localAxes(Y * 1.0e-20, Z * 1.0e20, X * 3.0);
    EXPECT_EQ(axes[0], Y);
    EXPECT_EQ(axes[1], Z);
    EXPECT_EQ(axes[2], X);
}

TEST(AxesTest, mirroredStaysMirrored) {
    EXPECT_EQ(localAxes(X, Y, -Z)[2], -Z);
    EXPECT_EQ(localAxes(-X, -Y, -Z)[0], -X);
}

TEST(AxesTest, missingAxes) {
    EXPECT_EQ(localAxes({}, Y, Z)[0], X);
    EXPECT_EQ(localAxes(X, {}, Z)[1], Y);
    EXPECT_EQ(localAxes(X, Y, {})[2], Z);
    EXPECT_EQ(localAxes({}, {}, {})[1], Y);
    const Vector3d slanted = Vector3d{1.0, 2.0, 3.0}.normalized();
    EXPECT_NEAR(Math::dot(localAxes({}, slanted, {})[1], slanted), 1.0, 1.0e-12);
}

TEST(AxesTest, axesInLine) {
    EXPECT_EQ(localAxes(X, X, Z)[0], X);
    EXPECT_EQ(localAxes(X, -X, X)[0], X);
    EXPECT_EQ(localAxes(X, X + Y * 1.0e-7, Y)[2], Y);
}

TEST(AxesTest, anyMatrix) {
    Random random;
    for(int i = 0; i != 500; ++i) {
        const Vector3d x = random.vector(5.0), y = random.vector(5.0), z = random.vector(5.0);
        const Axes axes = localAxes(x, y, z);
        EXPECT_NEAR(Math::dot(axes[0], x.normalized()), 1.0, 1.0e-9);
        EXPECT_GT(Math::dot(axes[1], y), 0.0);
    }
}

}
