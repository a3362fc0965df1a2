#include <type_traits>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::Inf;
using MathTest::near;
using MathTest::Numbers;

namespace {

constexpr Matrix4 Moved = Matrix4::translation({1.0f, 2.0f, 3.0f});
static_assert(Moved.translation()[0] == 1.0f && Moved.translation()[2] == 3.0f);
constexpr Matrix4 Scaled = Matrix4::scaling({1.0f, 2.0f, 3.0f});
static_assert(Scaled.rotationScaling()[1][1] == 2.0f);
constexpr Matrix4 Placed = Matrix4::from(Matrix3x3{}, {4.0f, 5.0f, 6.0f});
static_assert(Placed.translation()[1] == 5.0f);

const Matrix4 Transformation =
    Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationY(90.0_degf) * Matrix4::scaling({2.0f, 3.0f, 4.0f});

TEST(Matrix4Test, columnsAndParts) {
    EXPECT_TRUE(near(Transformation,
        Numbers<16>{0.0, 0.0, -2.0, 0.0, 0.0, 3.0, 0.0, 0.0, 4.0, 0.0, 0.0, 0.0, 1.0, 2.0, 3.0, 1.0}, 1e-6));
    EXPECT_SAME(Transformation.right(), (Vector3{0.0f, 0.0f, -2.0f}));
    EXPECT_SAME(Transformation.up(), (Vector3{0.0f, 3.0f, 0.0f}));
    EXPECT_SAME(Transformation.backward(), (Vector3{4.0f, 0.0f, 0.0f}));
    EXPECT_SAME(Transformation.translation(), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_SAME(Transformation[3], (Vector4{1.0f, 2.0f, 3.0f, 1.0f}));
    EXPECT_SAME(Transformation.row(1), (Vector4{0.0f, 3.0f, 0.0f, 2.0f}));
    EXPECT_SAME(Transformation.transposed()[1], Transformation.row(1));
    EXPECT_EQ(Transformation.diagonal().y(), 3.0f);
    EXPECT_EQ(Transformation.data()[14], 3.0f);
    EXPECT_SAME(Matrix4{Math::Matrix4<Double>{Transformation}}, Transformation);
}

TEST(Matrix4Test, partsAreReferences) {
    Matrix4 m;
    m.translation() += Vector3{1.0f, 2.0f, 3.0f};
    m.translation().x() = 7.0f;
    m[1].xyz() = Vector3{0.0f, 0.0f, 5.0f};
    m.right() *= 2.0f;
    m.backward() = Vector3{};
    m[3][3] = 9.0f;
    EXPECT_SAME(m,
        (Matrix4{
            {2.0f, 0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 5.0f, 0.0f}, {0.0f, 0.0f, 0.0f, 0.0f}, {7.0f, 2.0f, 3.0f, 9.0f}}));
    m.up().z() += 1.0f;
    EXPECT_EQ(m.data()[6], 6.0f);
}

TEST(Matrix4Test, productsKeepTheType) {
    static_assert(std::is_same_v<decltype(Matrix4{} * Matrix4{}), Matrix4>);
    static_assert(std::is_same_v<decltype(Matrix4{} * Vector4{}), Vector4>);
    EXPECT_EQ((Transformation * Vector4{1.0f, 1.0f, 1.0f, 1.0f}).xyz().y(), 5.0f);
    EXPECT_SAME((Transformation * 2.0f).translation(), (Vector3{2.0f, 4.0f, 6.0f}));
    EXPECT_SAME((Transformation * Transformation.inverted()), Matrix4{});
}

TEST(Matrix4Test, productOfRandomMatrices) {
    MathTest::Random random;
    for(int n = 0; n != 100; ++n) {
        Matrix4 a, b;
        for(Float& element: a.data()) element = Float(random.number(-10.0, 10.0));
        for(Float& element: b.data()) element = Float(random.number(-10.0, 10.0));
        Numbers<16> expected{};
        for(std::size_t c = 0; c != 4; ++c)
            for(std::size_t r = 0; r != 4; ++r)
                for(std::size_t i = 0; i != 4; ++i) expected[c * 4 + r] += double(a[i][r]) * double(b[c][i]);
        EXPECT_TRUE(near(a * b, expected, 1e-4));
        for(std::size_t c = 0; c != 4; ++c)
            EXPECT_TRUE(near(a * b[c],
                Numbers<4>{expected[c * 4], expected[c * 4 + 1], expected[c * 4 + 2], expected[c * 4 + 3]}, 1e-4));
    }
}

TEST(Matrix4Test, productInDoublePrecision) {
    const Math::Matrix4<Double> m{Transformation};
    EXPECT_NEAR((m * Math::Vector4<Double>{1.0, 1.0, 1.0, 1.0}).y(), 5.0, 1e-15);
    EXPECT_NEAR((m * m)[3][1], 8.0, 1e-15);
}

TEST(Matrix4Test, rotations) {
    MathTest::Random random;
    for(int i = 0; i != 200; ++i) {
        const Vector3 axis = random.direction();
        const Rad angle = random.angle();
        const Matrix4 m = Matrix4::rotation(angle, axis);
        EXPECT_TRUE(near(m.rotationScaling(), MathTest::rotationReference(Float(angle), axis), 2e-6));
        EXPECT_SAME(m[3], (Vector4{0.0f, 0.0f, 0.0f, 1.0f}));
        EXPECT_SAME(m.row(3), (Vector4{0.0f, 0.0f, 0.0f, 1.0f}));
        EXPECT_TRUE(near(Matrix4::rotationX(angle), Matrix4::rotation(angle, Vector3::xAxis()), 1e-6));
        EXPECT_TRUE(near(Matrix4::rotationY(angle), Matrix4::rotation(angle, Vector3::yAxis()), 1e-6));
        EXPECT_TRUE(near(Matrix4::rotationZ(angle), Matrix4::rotation(angle, Vector3::zAxis()), 1e-6));
    }
    // Counterclockwise
    EXPECT_SAME(Matrix4::rotationZ(90.0_degf).transformVector(Vector3::xAxis()), Vector3::yAxis());
    EXPECT_SAME(Matrix4::rotationX(90.0_degf).transformVector(Vector3::yAxis()), Vector3::zAxis());
    EXPECT_SAME(Matrix4::rotationY(90.0_degf).transformVector(Vector3::zAxis()), Vector3::xAxis());
}

TEST(Matrix4Test, reflection) {
    EXPECT_SAME(Matrix4::reflection(Vector3::xAxis()), Matrix4::scaling(Vector3::xScale(-1.0f)));
    const Vector3 normal = Vector3{1.0f, 2.0f, 3.0f}.normalized();
    const Matrix4 m = Matrix4::reflection(normal);
    EXPECT_SAME(m.transformVector(normal), -normal);
    const Vector3 inPlane = Math::cross(normal, Vector3::xAxis());
    EXPECT_SAME(m.transformVector(inPlane), inPlane);
    EXPECT_NEAR(m.determinant(), -1.0f, 1e-6f);
}

TEST(Matrix4Test, lookAt) {
    // Columns: right, up, backward, eye
    const Vector3 eye{1.0f, 2.0f, 3.0f}, target{4.0f, 5.0f, 0.0f};
    const Matrix4 m = Matrix4::lookAt(eye, target, Vector3::yAxis());
    EXPECT_TRUE(near(m,
        Numbers<16>{0.70710678, 0.0, 0.70710678, 0.0, -0.40824829, 0.81649658, 0.40824829, 0.0, -0.57735027,
            -0.57735027, 0.57735027, 0.0, 1.0, 2.0, 3.0, 1.0},
        1e-6));
    EXPECT_TRUE(m.isRigidTransformation());
    // The target lies straight ahead.
    EXPECT_TRUE(near(m.invertedRigid().transformPoint(target), Numbers<3>{0.0, 0.0, -std::sqrt(27.0)}, 1e-5));
    EXPECT_SAME(Matrix4::lookAt({}, -Vector3::zAxis(), Vector3::yAxis()), Matrix4{});
    // Up may lean anywhere but along the view.
    EXPECT_SAME(Matrix4::lookAt(eye, target, {1.0f, 3.0f, -1.0f}), m);
}

TEST(Matrix4Test, lookAlongUpIsUndefined) {
    const Matrix4 m = Matrix4::lookAt({}, Vector3::yAxis(), Vector3::yAxis());
    EXPECT_TRUE(std::isnan(m[0][0]) && std::isnan(m[1][0]));
    EXPECT_TRUE(std::isnan(Matrix4::lookAt({}, {}, Vector3::yAxis())[2][0]));
}

struct Perspective {
    Float fov, aspect, near, far;
};

class PerspectiveTest: public testing::TestWithParam<Perspective> {};

Numbers<16> perspectiveReference(double width, double height, double near, double far) {
    Numbers<16> m{};
    m[0] = 2 * near / width;
    m[5] = 2 * near / height;
    m[10] = std::isinf(far) ? -1.0 : (near + far) / (near - far);
    m[11] = -1.0;
    m[14] = std::isinf(far) ? -2 * near : 2 * near * far / (near - far);
    return m;
}

TEST_P(PerspectiveTest, byAngleAndSize) {
    const auto [fov, aspect, near, far] = GetParam();
    const double width = 2 * double(near) * std::tan(double(fov) / 2 * 3.14159265358979 / 180);
    const Numbers<16> expected = perspectiveReference(width, width / double(aspect), near, far);
    const Matrix4 byAngle = Matrix4::perspectiveProjection(Deg{fov}, aspect, near, far);
    EXPECT_TRUE(MathTest::near(byAngle, expected, 1e-5 * (1 + std::abs(expected[14]))));
    EXPECT_EQ(byAngle[2][3], -1.0f);
    const Matrix4 bySize = Matrix4::perspectiveProjection({Float(width), Float(width / double(aspect))}, near, far);
    EXPECT_TRUE(MathTest::near(bySize, expected, 1e-5 * (1 + std::abs(expected[14]))));
}

TEST_P(PerspectiveTest, nearAndFarAreRecovered) {
    const auto [fov, aspect, near, far] = GetParam();
    const Matrix4 m = Matrix4::perspectiveProjection(Deg{fov}, aspect, near, far);
    EXPECT_NEAR(m.perspectiveProjectionNear(), near, 1e-5f * near);
    if(std::isinf(far))
        EXPECT_EQ(m.perspectiveProjectionFar(), Inf);
    else
        EXPECT_NEAR(m.perspectiveProjectionFar(), far, 1e-3f * far);
}

TEST_P(PerspectiveTest, clipCoordinates) {
    const auto [fov, aspect, near, far] = GetParam();
    const Matrix4 m = Matrix4::perspectiveProjection(Deg{fov}, aspect, near, far);
    EXPECT_NEAR(m.transformPoint({0.0f, 0.0f, -near}).z(), -1.0f, 1e-5f);
    if(!std::isinf(far)) {
        EXPECT_NEAR(m.transformPoint({0.0f, 0.0f, -far}).z(), 1.0f, 1e-5f);
    }
    // The angle is the horizontal one.
    const Float half = std::tan(Float(Rad{Deg{fov}}) / 2.0f);
    EXPECT_NEAR(m.transformPoint({half * 5.0f, half / aspect * 5.0f, -5.0f}).x(), 1.0f, 1e-5f);
    EXPECT_NEAR(m.transformPoint({half * 5.0f, half / aspect * 5.0f, -5.0f}).y(), 1.0f, 1e-5f);
}

INSTANTIATE_TEST_SUITE_P(Values, PerspectiveTest,
    testing::Values(Perspective{90.0f, 16.0f / 9.0f, 0.1f, 100.0f}, Perspective{90.0f, 16.0f / 9.0f, 0.1f, Inf},
        Perspective{35.0f, 1.0f, 0.01f, 10.0f}, Perspective{60.0f, 0.5f, 1.0f, 3.0f},
        Perspective{120.0f, 2.35f, 2.0f, Inf}));

TEST(Matrix4Test, perspectiveByNumbers) {
    EXPECT_TRUE(near(Matrix4::perspectiveProjection(90.0_degf, 16.0f / 9.0f, 0.1f, 100.0f),
        Numbers<16>{1.0, 0.0, 0.0, 0.0, 0.0, 1.7777778, 0.0, 0.0, 0.0, 0.0, -1.002002, -1.0, 0.0, 0.0, -0.2002002, 0.0},
        1e-6));
}

TEST(Matrix4Test, perspectiveOffCenter) {
    for(const Float far: {100.0f, Inf}) {
        Numbers<16> expected = perspectiveReference(3.0, 1.5, 0.1, double(far));
        expected[8] = 1.0 / 3.0;
        expected[9] = 1.0 / 3.0;
        const Matrix4 m = Matrix4::perspectiveProjection({-1.0f, -0.5f}, {2.0f, 1.0f}, 0.1f, far);
        EXPECT_TRUE(near(m, expected, 1e-6));
        EXPECT_TRUE(near(m.transformPoint({-1.0f, -0.5f, -0.1f}), Numbers<3>{-1.0, -1.0, -1.0}, 1e-5));
        EXPECT_TRUE(near(m.transformPoint({2.0f, 1.0f, -0.1f}), Numbers<3>{1.0, 1.0, -1.0}, 1e-5));
    }
}

TEST(Matrix4Test, orthographic) {
    const Matrix4 m = Matrix4::orthographicProjection({4.0f, 2.0f}, 1.0f, 9.0f);
    EXPECT_TRUE(
        near(m, Numbers<16>{0.5, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, -0.25, 0.0, 0.0, 0.0, -1.25, 1.0}, 1e-6));
    EXPECT_FLOAT_EQ(m.orthographicProjectionNear(), 1.0f);
    EXPECT_FLOAT_EQ(m.orthographicProjectionFar(), 9.0f);
    const Matrix4 offCenter = Matrix4::orthographicProjection({-1.0f, -2.0f}, {4.0f, 3.0f}, -5.0f, 9.0f);
    EXPECT_TRUE(near(offCenter.transformPoint({-1.0f, -2.0f, 5.0f}), Numbers<3>{-1.0, -1.0, -1.0}, 1e-6));
    EXPECT_TRUE(near(offCenter.transformPoint({4.0f, 3.0f, -9.0f}), Numbers<3>{1.0, 1.0, 1.0}, 1e-6));
    EXPECT_FLOAT_EQ(offCenter.orthographicProjectionNear(), -5.0f);
    EXPECT_FLOAT_EQ(offCenter.orthographicProjectionFar(), 9.0f);
}

TEST(Matrix4Test, rotationAndScalingParts) {
    const Matrix3x3 rotation = Matrix4::rotationY(90.0_degf).rotationScaling();
    EXPECT_SAME(Transformation.rotation(), rotation);
    EXPECT_SAME(Transformation.rotationShear(), rotation);
    EXPECT_SAME(Matrix4::rotationY(90.0_degf).rotationNormalized(), rotation);
    EXPECT_SAME(Transformation.scaling(), (Vector3{2.0f, 3.0f, 4.0f}));
    EXPECT_SAME(Transformation.scalingSquared(), (Vector3{4.0f, 9.0f, 16.0f}));
    EXPECT_FLOAT_EQ((Matrix4::rotationX(30.0_degf) * Matrix4::scaling(Vector3{3.0f})).uniformScaling(), 3.0f);
    EXPECT_SAME(Matrix4::from(Transformation.rotationScaling(), Transformation.translation()), Transformation);
    // A reflection passes as a rotation here.
    EXPECT_SAME(Matrix4::reflection(Vector3::xAxis()).rotation()[0], -Vector3::xAxis());
    // Shear does not pass, its columns are normalized all the same where nothing is expected of them.
    const Matrix4 sheared{
        {2.0f, 0.0f, 0.0f, 0.0f}, {3.0f, 3.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 0.0f, 1.0f}};
    EXPECT_SAME(sheared.rotationShear()[1], (Vector3{1.0f, 1.0f, 0.0f}.normalized()));
}

TEST(Matrix4Test, normalMatrix) {
    EXPECT_TRUE(
        near(Transformation.normalMatrix(), Numbers<9>{0.0, 0.0, -0.5, 0.0, 1.0 / 3.0, 0.0, 0.25, 0.0, 0.0}, 1e-6));
    // Normals stay perpendicular to what they were perpendicular to.
    MathTest::Random random;
    for(int i = 0; i != 50; ++i) {
        const Matrix4 m = Matrix4::scaling({0.5f, 2.0f, 3.0f}) * Matrix4::rotation(random.angle(), random.direction());
        const Vector3 tangent = random.direction(), normal = Math::cross(tangent, random.direction());
        EXPECT_NEAR(Math::dot(m.transformVector(tangent), Vector3{m.normalMatrix() * normal}), 0.0f, 1e-5f);
    }
}

TEST(Matrix4Test, isRigidTransformation) {
    EXPECT_TRUE((Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationX(30.0_degf)).isRigidTransformation());
    EXPECT_TRUE(Matrix4::reflection(Vector3::yAxis()).isRigidTransformation());
    EXPECT_FALSE(Matrix4::scaling(Vector3{1.001f}).isRigidTransformation());
    EXPECT_FALSE(Transformation.isRigidTransformation());
    for(std::size_t column = 0; column != 4; ++column) {
        Matrix4 m;
        m[column][3] += 0.001f;
        EXPECT_FALSE(m.isRigidTransformation()) << column;
    }
    Matrix4 almost;
    almost[0][3] = 0.9e-5f;
    EXPECT_TRUE(almost.isRigidTransformation());
}

TEST(Matrix4Test, invertedRigid) {
    MathTest::Random random;
    for(int i = 0; i != 200; ++i) {
        const Matrix4 m =
            Matrix4::translation(random.vector(10.0)) * Matrix4::rotation(random.angle(), random.direction());
        const Matrix4 inverse = m.invertedRigid();
        EXPECT_TRUE(near(inverse * m, Matrix4{}, 1e-5));
        EXPECT_TRUE(near(inverse, m.inverted(), 1e-4));
        EXPECT_SAME(inverse.rotationScaling(), m.rotationScaling().transposed());
    }
}

TEST(Matrix4Test, transformation) {
    EXPECT_SAME(Transformation.transformVector(Vector3{1.0f}), (Vector3{4.0f, 3.0f, -2.0f}));
    EXPECT_SAME(Transformation.transformPoint(Vector3{1.0f}), (Vector3{5.0f, 5.0f, 1.0f}));
    // Translation after rotation
    const Matrix4 m = Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationY(90.0_degf);
    EXPECT_TRUE(near(m.transformPoint({0.0f, 0.0f, -1.0f}), Numbers<3>{0.0, 2.0, 3.0}, 1e-6));
    EXPECT_TRUE(near(m.transformVector({0.0f, 0.0f, -1.0f}), Numbers<3>{-1.0, 0.0, 0.0}, 1e-6));
    EXPECT_TRUE(near(m, Numbers<16>{0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 1, 2, 3, 1}, 1e-6));
    // Points are divided by w, vectors are not.
    Matrix4 twice;
    twice[3][3] = 2.0f;
    EXPECT_SAME(twice.transformPoint({2.0f, 4.0f, 6.0f}), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_SAME(twice.transformVector({2.0f, 4.0f, 6.0f}), (Vector3{2.0f, 4.0f, 6.0f}));
}

}
