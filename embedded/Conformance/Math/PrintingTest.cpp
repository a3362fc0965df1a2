#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix3.h>
#include <Magnum/Math/Range.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::printed;

namespace {

TEST(PrintingTest, angles) {
    EXPECT_EQ(printed(30.0_degf), "Deg(30)");
    EXPECT_EQ(printed(1.5_radf), "Rad(1.5)");
    EXPECT_EQ(printed(-30.0_degf * 0.5f), "Deg(-15)");
    EXPECT_EQ(printed(Rad{180.0_degf}), "Rad(3.14159)");
}

TEST(PrintingTest, vectors) {
    EXPECT_EQ(printed(Vector3{1.0f, 2.5f, -3.0f}), "Vector(1, 2.5, -3)");
    EXPECT_EQ(printed(Vector2i{1, -2}), "Vector(1, -2)");
    EXPECT_EQ(printed(Vector3ub{1, 20, 255}), "Vector(1, 20, 255)");
    EXPECT_EQ(printed(Vector2b{-1, 2}), "Vector(-1, 2)");
    EXPECT_EQ(printed(Vector4{0.1f, 1e10f, MathTest::Inf, 0.0f}), "Vector(0.1, 1e+10, inf, 0)");
    EXPECT_EQ(printed(Math::Vector<2, Double>{1.0 / 3.0, 2.0}), "Vector(0.333333333333333, 2)");
    EXPECT_EQ(printed(Vector3{} < Vector3{1.0f, 0.0f, 1.0f}), "BitVector(0b101)");
    EXPECT_EQ(printed(Math::Vector2<Rad>{1.5_radf, -2.0_radf}), "Vector(Rad(1.5), Rad(-2))");
}

TEST(PrintingTest, colours) {
    EXPECT_EQ(printed(0x01020304_rgba), "#01020304");
    EXPECT_EQ(printed(0xfedcba_rgb), "#fedcba");
    EXPECT_EQ(printed(Color3{1.0f, 0.5f, 0.0f}), "Vector(1, 0.5, 0)");
    EXPECT_EQ(printed(0xaaffaaff_rgbaf), "Vector(0.666667, 1, 0.666667, 1)");
}

TEST(PrintingTest, matricesRowByRow) {
    EXPECT_EQ(printed(Matrix4::translation({1.0f, 2.0f, 3.0f})),
        "Matrix(1, 0, 0, 1,\n       0, 1, 0, 2,\n       0, 0, 1, 3,\n       0, 0, 0, 1)");
    EXPECT_EQ(printed(Matrix2x2{Vector2{1.0f, 2.0f}, Vector2{3.5f, 4.0f}}), "Matrix(1, 3.5,\n       2, 4)");
    EXPECT_EQ(printed(Matrix3{}), "Matrix(1, 0, 0,\n       0, 1, 0,\n       0, 0, 1)");
    EXPECT_EQ(printed(Math::RectangularMatrix<2, 3, Int>{Math::Vector<3, Int>{1, 2, 3}, Math::Vector<3, Int>{4, 5, 6}}),
        "Matrix(1, 4,\n       2, 5,\n       3, 6)");
}

TEST(PrintingTest, quaternions) {
    EXPECT_EQ(printed(Quaternion{{1.0f, 2.5f, 3.0f}, -4.0f}), "Quaternion({1, 2.5, 3}, -4)");
    EXPECT_EQ(printed(DualQuaternion{}), "DualQuaternion({{0, 0, 0}, 1}, {{0, 0, 0}, 0})");
    EXPECT_EQ(printed(DualQuaternion{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}}),
        "DualQuaternion({{1, 2, 3}, 4}, {{5, 6, 7}, 8})");
}

TEST(PrintingTest, ranges) {
    EXPECT_EQ(printed(Range1D{1.0f, 2.5f}), "Range({1}, {2.5})");
    EXPECT_EQ(printed(Range2D{{0.0f, 1.0f}, {2.0f, 3.0f}}), "Range({0, 1}, {2, 3})");
    EXPECT_EQ(printed(Range3Di{{1, 2, 3}, {4, 5, 6}}), "Range({1, 2, 3}, {4, 5, 6})");
}

// In a row of values they are separated as any others.
TEST(PrintingTest, inARow) {
    Corrade::Containers::String out;
    Debug{&out} << "at" << Vector2i{1, 2} << "turned" << 30.0_degf << Quaternion{} << Debug::nospace << "." << Range1D{}
                << Matrix2x2{} << 0xff0000_rgb << 7;
    EXPECT_EQ(std::string(out.data()),
        "at Vector(1, 2) turned Deg(30) Quaternion({0, 0, 0}, 1). Range({0}, {0}) Matrix(1, 0,\n       0, 1) #ff0000 "
        "7\n");
}

}
