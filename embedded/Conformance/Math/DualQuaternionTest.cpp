#include <type_traits>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::near;
using MathTest::Numbers;

namespace {

static_assert(sizeof(DualQuaternion) == 32 && std::is_trivially_copyable_v<DualQuaternion>);
static_assert(std::is_convertible_v<Quaternion, DualQuaternion>);
constexpr DualQuaternion Identity;
static_assert(Identity.real().scalar() == 1.0f && Identity.dual().scalar() == 0.0f);

const Quaternion Yaw = Quaternion::rotation(90.0_degf, Vector3::yAxis());
const DualQuaternion Some = DualQuaternion::from(Yaw, {1.0f, 2.0f, 3.0f});

DualQuaternion scaled(const DualQuaternion& q, Float by) { return {q.real() * by, q.dual() * by}; }

TEST(DualQuaternionTest, parts) {
    EXPECT_SAME(Some.rotation(), Yaw);
    EXPECT_SAME(Some.translation(), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_SAME(Some.real(), Yaw);
    // Half the translation times the rotation
    EXPECT_SAME(Some.dual(), (Quaternion{Vector3{0.5f, 1.0f, 1.5f}} * Yaw));
    EXPECT_SAME(DualQuaternion{}.translation(), Vector3{});
    EXPECT_SAME(DualQuaternion{Yaw}, DualQuaternion::rotation(90.0_degf, Vector3::yAxis()));
    EXPECT_SAME(DualQuaternion::translation({1.0f, 2.0f, 3.0f}),
        DualQuaternion(Quaternion{}, Quaternion{{0.5f, 1.0f, 1.5f}, 0.0f}));
    EXPECT_SAME(DualQuaternion{Math::DualQuaternion<Double>{Some}}, Some);
}

TEST(DualQuaternionTest, orderInMemory) {
    DualQuaternion q{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}};
    for(int i = 0; i != 8; ++i) EXPECT_EQ(q.data()[i], Float(i + 1));
    q.data()[3] = -4.0f;
    q.dual().vector().z() = -7.0f;
    q.real().vector().x() = -1.0f;
    EXPECT_EQ(q.real().scalar(), -4.0f);
    EXPECT_EQ(q.data()[6], -7.0f);
    EXPECT_EQ(q.data()[0], -1.0f);
}

TEST(DualQuaternionTest, products) {
    EXPECT_SAME((DualQuaternion{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}} *
                    DualQuaternion{{{9.0f, 10.0f, 11.0f}, 12.0f}, {{13.0f, 14.0f, 15.0f}, 16.0f}}),
        (DualQuaternion{{{40.0f, 80.0f, 72.0f}, -14.0f}, {{184.0f, 272.0f, 264.0f}, -108.0f}}));
    // Rotation first, translation then
    EXPECT_SAME((DualQuaternion::translation({1.0f, 2.0f, 3.0f}) * DualQuaternion{Yaw}), Some);
    EXPECT_TRUE(near(Some.transformPoint({0.0f, 0.0f, -1.0f}), Numbers<3>{0.0, 2.0, 3.0}, 1e-6));
    EXPECT_TRUE(near(Some.transformVector({0.0f, 0.0f, -1.0f}), Numbers<3>{-1.0, 0.0, 0.0}, 1e-6));
    EXPECT_SAME((Some * DualQuaternion{}), Some);
    EXPECT_SAME(-Some, scaled(Some, -1.0f));
    EXPECT_FALSE(Some == -Some);
    EXPECT_TRUE(Some != DualQuaternion{});
}

TEST(DualQuaternionTest, conjugates) {
    const DualQuaternion q{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}};
    EXPECT_SAME(
        q.quaternionConjugated(), (DualQuaternion{{{-1.0f, -2.0f, -3.0f}, 4.0f}, {{-5.0f, -6.0f, -7.0f}, 8.0f}}));
    EXPECT_SAME(q.dualConjugated(), (DualQuaternion{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{-5.0f, -6.0f, -7.0f}, -8.0f}}));
    EXPECT_SAME(q.conjugated(), (DualQuaternion{{{-1.0f, -2.0f, -3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, -8.0f}}));
}

TEST(DualQuaternionTest, isNormalized) {
    EXPECT_TRUE(Some.isNormalized());
    EXPECT_TRUE((-Some).isNormalized());
    EXPECT_FALSE(scaled(Some, 2.0f).isNormalized());
    // The dual part has to be perpendicular to the real one, the more exactly the smaller it is.
    const struct {
        Vector3 dual;
        Float below, above;
    } limits[]{{{}, 0.4e-5f, 0.6e-5f}, {{0.5f, 0.0f, 0.0f}, 0.4e-5f, 0.6e-5f}, {{1.0f, 2.0f, -3.0f}, 2.9e-5f, 3.1e-5f},
        {{-100.0f, 0.0f, 0.0f}, 0.9e-3f, 1.1e-3f}};
    for(const auto& limit: limits)
        for(const Float sign: {-1.0f, 1.0f}) {
            EXPECT_TRUE((DualQuaternion{Quaternion{}, {limit.dual, sign * limit.below}}).isNormalized()) << limit.below;
            EXPECT_FALSE((DualQuaternion{Quaternion{}, {limit.dual, sign * limit.above}}).isNormalized())
                << limit.above;
        }
    EXPECT_FALSE((DualQuaternion{Quaternion{{}, 1.00002f}, Quaternion{{}, 0.0f}}).isNormalized());
}

TEST(DualQuaternionTest, normalized) {
    EXPECT_SAME(scaled(Some, 2.0f).normalized(), Some);
    const DualQuaternion q = DualQuaternion{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}}.normalized();
    EXPECT_TRUE(q.isNormalized());
    EXPECT_TRUE(near(
        q, Numbers<8>{0.18257419, 0.36514837, 0.54772256, 0.73029674, 0.48686450, 0.24343225, 0.0, -0.24343225}, 1e-6));
}

TEST(DualQuaternionTest, inverses) {
    EXPECT_SAME(Some.inverted(), Some.invertedNormalized());
    EXPECT_SAME((Some * Some.invertedNormalized()), DualQuaternion{});
    const DualQuaternion q{{{1.0f, 2.0f, 3.0f}, 4.0f}, {{5.0f, 6.0f, 7.0f}, 8.0f}};
    EXPECT_TRUE(near(q * q.inverted(), DualQuaternion{}, 1e-6));
    EXPECT_TRUE(near(scaled(Some, 2.0f).inverted() * scaled(Some, 2.0f), DualQuaternion{}, 1e-6));
}

TEST(DualQuaternionTest, thereAndBack) {
    MathTest::Random random;
    for(int i = 0; i != 300; ++i) {
        const Vector3 axis = random.direction(), translation = random.vector(20.0), point = random.vector(20.0);
        const Rad angle = random.angle();
        const Quaternion rotation = Quaternion::rotation(angle, axis);
        const DualQuaternion q = DualQuaternion::from(rotation, translation);
        EXPECT_TRUE(q.isNormalized());
        EXPECT_SAME(q.rotation(), rotation);
        EXPECT_TRUE(near(q.translation(), translation, 2e-5));

        const Numbers<9> reference = MathTest::rotationReference(Float(angle), axis);
        Numbers<3> expected = MathTest::rotated(reference, point);
        EXPECT_TRUE(near(q.transformVector(point), expected, 5e-5));
        EXPECT_TRUE(near(q.transformVectorNormalized(point), expected, 5e-5));
        for(std::size_t j = 0; j != 3; ++j) expected[j] += double(translation[j]);
        EXPECT_TRUE(near(q.transformPoint(point), expected, 5e-5));
        EXPECT_TRUE(near(q.transformPointNormalized(point), expected, 5e-5));
        // The length does not matter.
        EXPECT_TRUE(near(scaled(q, 3.0f).transformPoint(point), expected, 5e-5));
        EXPECT_TRUE(near(scaled(q, -0.5f).transformVector(point), MathTest::rotated(reference, point), 5e-5));

        const Matrix4 m = q.toMatrix();
        EXPECT_TRUE(near(m.transformPoint(point), expected, 5e-5));
        EXPECT_TRUE(near(DualQuaternion::fromMatrix(m).toMatrix(), m, 2e-5));
        EXPECT_TRUE(near(q.invertedNormalized().transformPoint(q.transformPoint(point)), point, 1e-4));
    }
}

TEST(DualQuaternionTest, productsAgreeWithMatrices) {
    MathTest::Random random;
    for(int i = 0; i != 100; ++i) {
        const Quaternion r = random.rotation(), s = random.rotation();
        const DualQuaternion a = DualQuaternion::from(r, random.vector(5.0)),
                             b = DualQuaternion::from(s, random.vector(5.0));
        EXPECT_TRUE(near((a * b).toMatrix(), a.toMatrix() * b.toMatrix(), 2e-5));
    }
}

// About and along an axis through (1, 0, 0) in direction y
DualQuaternion screw(Deg angle, Float along) {
    return DualQuaternion::translation({1.0f, along, 0.0f}) * DualQuaternion::rotation(angle, Vector3::yAxis()) *
        DualQuaternion::translation({-1.0f, 0.0f, 0.0f});
}

TEST(DualQuaternionTest, sclerpIsAScrewMotion) {
    const DualQuaternion a = screw(10.0_degf, 1.0f), b = screw(130.0_degf, 5.0f);
    for(const Float t: {0.0f, 0.25f, 0.5f, 0.9f, 1.0f}) {
        const DualQuaternion expected = screw(Deg{10.0f + 120.0f * t}, 1.0f + 4.0f * t);
        EXPECT_TRUE(near(Math::sclerp(a, b, t), expected, 2e-6)) << t;
        EXPECT_TRUE(near(Math::sclerpShortestPath(a, b, t), expected, 2e-6)) << t;
        // To the negated end it is the long way; the shortest path starts at a nevertheless, not at its negative.
        EXPECT_TRUE(near(Math::sclerp(a, -b, t), screw(Deg{10.0f - 240.0f * t}, 1.0f + 4.0f * t), 2e-6)) << t;
        EXPECT_TRUE(near(Math::sclerpShortestPath(a, -b, t), expected, 2e-6)) << t;
    }
}

TEST(DualQuaternionTest, sclerpBetweenRandomOnes) {
    MathTest::Random random;
    for(int i = 0; i != 200; ++i) {
        const Quaternion r = random.rotation(), s = random.rotation();
        const DualQuaternion a = DualQuaternion::from(r, random.vector(5.0)),
                             b = DualQuaternion::from(s, random.vector(5.0));
        const DualQuaternion middle = Math::sclerp(a, b, 0.5f);
        EXPECT_TRUE(near(Math::sclerp(a, b, 0.0f).toMatrix(), a.toMatrix(), 1e-4));
        EXPECT_TRUE(near(Math::sclerp(a, b, 1.0f).toMatrix(), b.toMatrix(), 1e-4));
        EXPECT_TRUE(near(middle.rotation(), Math::slerp(r, s, 0.5f), 1e-4));
        // Twice half the way is the way.
        EXPECT_TRUE(near((middle * a.invertedNormalized() * middle).toMatrix(), b.toMatrix(), 1e-3));
    }
}

TEST(DualQuaternionTest, sclerpWithoutRotationMovesStraight) {
    const DualQuaternion a = DualQuaternion::translation({1.0f, 2.0f, 3.0f}),
                         b = DualQuaternion::translation({5.0f, 2.0f, 1.0f});
    const DualQuaternion expected = DualQuaternion::translation({2.0f, 2.0f, 2.5f});
    for(const DualQuaternion& end: {b, -b}) {
        EXPECT_SAME(Math::sclerp(a, end, 0.25f), expected);
        EXPECT_SAME(Math::sclerpShortestPath(a, end, 0.25f), expected);
    }
    const DualQuaternion moved = DualQuaternion::translation({4.0f, 0.0f, 0.0f}) * Some;
    EXPECT_SAME(Math::sclerp(Some, moved, 0.25f), (DualQuaternion::translation({1.0f, 0.0f, 0.0f}) * Some));
    EXPECT_SAME(Math::sclerp(Some, Some, 0.25f), Some);
    EXPECT_SAME(Math::sclerpShortestPath(Some, -Some, 0.25f), Some);
}

}
