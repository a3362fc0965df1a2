#include <type_traits>

#include <Magnum/Math/Range.h>

#include "Expect.h"

using namespace Magnum;

namespace {

static_assert(sizeof(Range1D) == 8 && sizeof(Range2D) == 16 && sizeof(Range3D) == 24);
static_assert(std::is_trivially_copyable_v<Range3D>);
static_assert(!std::is_convertible_v<Range2Di, Range2D> && std::is_constructible_v<Range2D, Range2Di>);
constexpr Range2D Constant{{1.0f, 2.0f}, {3.0f, 6.0f}};
static_assert(
    Constant.left() == 1.0f && Constant.right() == 3.0f && Constant.bottom() == 2.0f && Constant.top() == 6.0f);
static_assert(Range1D(1.0f, 2.0f).max() == 2.0f);

const Range1D A{1.0f, 3.0f};
const Range2D B{{1.0f, 2.0f}, {3.0f, 6.0f}};
const Range3D C{{1.0f, 2.0f, 3.0f}, {4.0f, 6.0f, 8.0f}};

TEST(RangeTest, construction) {
    EXPECT_SAME(Range1D{}, Range1D(0.0f, 0.0f));
    EXPECT_SAME(Range1D::fromSize(2.0f, 3.0f), Range1D(2.0f, 5.0f));
    EXPECT_SAME(Range1D::fromCenter(2.0f, 3.0f), Range1D(-1.0f, 5.0f));
    EXPECT_SAME(Range2D::fromSize({1.0f, 2.0f}, {2.0f, 4.0f}), B);
    EXPECT_SAME(Range2Di::fromCenter({3, 3}, {1, 2}), Range2Di({2, 1}, {4, 5}));
    EXPECT_SAME(Range3D::fromSize({1.0f, 2.0f, 3.0f}, {3.0f, 4.0f, 5.0f}), C);
    EXPECT_SAME(Range3D::fromCenter({}, Vector3{1.0f}), Range3D(Vector3{-1.0f}, Vector3{1.0f}));
    const Range2Di viewport{{}, {640, 480}};
    EXPECT_SAME(viewport.size(), Vector2i(640, 480));
    EXPECT_SAME(Range2Di{Range2D({1.9f, -1.9f}, {3.0f, 4.5f})}, Range2Di({1, -1}, {3, 4}));
}

TEST(RangeTest, limitsAreReferences) {
    Range2D r = B;
    r.min().x() = 0.0f;
    r.max() = Vector2{9.0f};
    EXPECT_SAME(r, Range2D({0.0f, 2.0f}, {9.0f, 9.0f}));
    Range1D s = A;
    s.max() = 4.0f;
    EXPECT_SAME(s, Range1D(1.0f, 4.0f));
}

TEST(RangeTest, sizeAndCenter) {
    EXPECT_EQ(A.size(), 2.0f);
    EXPECT_EQ(A.center(), 2.0f);
    EXPECT_SAME(B.size(), Vector2(2.0f, 4.0f));
    EXPECT_SAME(B.center(), Vector2(2.0f, 4.0f));
    EXPECT_SAME(C.size(), Vector3(3.0f, 4.0f, 5.0f));
    EXPECT_SAME(C.center(), Vector3(2.5f, 4.0f, 5.5f));
    EXPECT_SAME(Range2Di({0, 0}, {3, 5}).center(), Vector2i(1, 2));
}

TEST(RangeTest, edges) {
    EXPECT_SAME(B.bottomLeft(), Vector2(1.0f, 2.0f));
    EXPECT_SAME(B.bottomRight(), Vector2(3.0f, 2.0f));
    EXPECT_SAME(B.topLeft(), Vector2(1.0f, 6.0f));
    EXPECT_SAME(B.topRight(), Vector2(3.0f, 6.0f));
    EXPECT_SAME(B.x(), Range1D(1.0f, 3.0f));
    EXPECT_SAME(B.y(), Range1D(2.0f, 6.0f));
    EXPECT_EQ(B.sizeX(), 2.0f);
    EXPECT_EQ(B.sizeY(), 4.0f);
    EXPECT_EQ(C.left(), 1.0f);
    EXPECT_EQ(C.right(), 4.0f);
    EXPECT_EQ(C.bottom(), 2.0f);
    EXPECT_EQ(C.top(), 6.0f);
    EXPECT_EQ(C.back(), 3.0f);
    EXPECT_EQ(C.front(), 8.0f);
    EXPECT_SAME(C.x(), Range1D(1.0f, 4.0f));
    EXPECT_SAME(C.y(), Range1D(2.0f, 6.0f));
    EXPECT_SAME(C.z(), Range1D(3.0f, 8.0f));
    EXPECT_EQ(C.sizeX(), 3.0f);
    EXPECT_EQ(C.sizeY(), 4.0f);
    EXPECT_EQ(C.sizeZ(), 5.0f);
}

// The upper end belongs to it as the end of a range, not as a point.
TEST(RangeTest, contains) {
    EXPECT_TRUE(A.contains(1.0f));
    EXPECT_TRUE(A.contains(2.999f));
    EXPECT_FALSE(A.contains(3.0f));
    EXPECT_FALSE(A.contains(0.999f));
    EXPECT_FALSE(A.contains(MathTest::NaN));
    EXPECT_TRUE(A.contains(A));
    EXPECT_TRUE(A.contains(Range1D(3.0f, 3.0f)));
    EXPECT_FALSE(A.contains(Range1D(2.0f, 3.1f)));
    EXPECT_TRUE(B.contains(Vector2{1.0f, 2.0f}));
    EXPECT_FALSE(B.contains(Vector2{3.0f, 2.0f}));
    EXPECT_FALSE(B.contains(Vector2{1.0f, 6.0f}));
    EXPECT_TRUE(C.contains(Range3D(Vector3{3.0f}, Vector3{4.0f})));
    EXPECT_FALSE(C.contains(Range3D(Vector3{3.0f}, Vector3{5.0f})));
    EXPECT_FALSE(Range1D{}.contains(0.0f));
}

TEST(RangeTest, movedAndScaled) {
    EXPECT_SAME(A.translated(2.0f), Range1D(3.0f, 5.0f));
    EXPECT_SAME(A.padded(0.5f), Range1D(0.5f, 3.5f));
    EXPECT_SAME(A.scaled(2.0f), Range1D(2.0f, 6.0f));
    EXPECT_EQ(B.translated({1.0f, 2.0f}).left(), 2.0f);
    EXPECT_SAME(B.translated({1.0f, 2.0f}), Range2D({2.0f, 4.0f}, {4.0f, 8.0f}));
    EXPECT_SAME(B.padded({1.0f, 2.0f}), Range2D({0.0f, 0.0f}, {4.0f, 8.0f}));
    EXPECT_SAME(B.scaled({2.0f, 3.0f}), Range2D({2.0f, 6.0f}, {6.0f, 18.0f}));
    EXPECT_EQ(C.padded(Vector3{1.0f}).front(), 9.0f);
    EXPECT_SAME(C.translated({0.0f, 0.0f, 1.0f}).z(), Range1D(4.0f, 9.0f));
    EXPECT_SAME(C.scaled(Vector3{2.0f}), Range3D({2.0f, 4.0f, 6.0f}, {8.0f, 12.0f, 16.0f}));
}

TEST(RangeTest, comparesWithTolerance) {
    EXPECT_TRUE(A == Range1D(1.000001f, 3.0f));
    EXPECT_FALSE(A == Range1D(1.001f, 3.0f));
    EXPECT_TRUE(A != Range1D(1.0f, 3.001f));
    EXPECT_TRUE(B != Range2D({1.0f, 2.0f}, {3.0f, 7.0f}));
}

struct Pair {
    Range1D a, b;
    bool intersects;
    Range1D intersection, joined;
};

class RangePairTest: public testing::TestWithParam<Pair> {};

TEST_P(RangePairTest, intersectAndJoin) {
    const Pair& p = GetParam();
    EXPECT_EQ(Math::intersects(p.a, p.b), p.intersects);
    EXPECT_EQ(Math::intersects(p.b, p.a), p.intersects);
    EXPECT_SAME(Math::intersect(p.a, p.b), p.intersection);
    EXPECT_SAME(Math::intersect(p.b, p.a), p.intersection);
    EXPECT_SAME(Math::join(p.a, p.b), p.joined);
    EXPECT_SAME(Math::join(p.b, p.a), p.joined);
}

INSTANTIATE_TEST_SUITE_P(Pairs, RangePairTest,
    testing::Values(Pair{{1.0f, 3.0f}, {2.0f, 5.0f}, true, {2.0f, 3.0f}, {1.0f, 5.0f}},
        Pair{{1.0f, 3.0f}, {4.0f, 6.0f}, false, {}, {1.0f, 6.0f}},
        Pair{{1.0f, 9.0f}, {4.0f, 6.0f}, true, {4.0f, 6.0f}, {1.0f, 9.0f}},
        // Touching is not intersecting.
        Pair{{1.0f, 3.0f}, {3.0f, 4.0f}, false, {}, {1.0f, 4.0f}},
        // An empty range inside of another intersects it, but wherever it is it adds nothing to it.
        Pair{{1.0f, 3.0f}, {2.0f, 2.0f}, true, {2.0f, 2.0f}, {1.0f, 3.0f}},
        Pair{{1.0f, 3.0f}, {9.0f, 9.0f}, false, {}, {1.0f, 3.0f}}, Pair{{1.0f, 3.0f}, {}, false, {}, {1.0f, 3.0f}},
        Pair{{2.0f, 2.0f}, {2.0f, 2.0f}, false, {}, {2.0f, 2.0f}}));

TEST(RangeTest, joinOfEmptyOnes) {
    EXPECT_SAME(Math::join(Range1D{}, Range1D(9.0f, 9.0f)), Range1D(9.0f, 9.0f));
    // Empty is what has no size in any direction.
    EXPECT_SAME(Math::join(Range2D({0.0f, 1.0f}, {0.0f, 9.0f}), B), Range2D({0.0f, 1.0f}, {3.0f, 9.0f}));
    EXPECT_SAME(Math::join(Range2D({9.0f, 9.0f}, {9.0f, 9.0f}), B), B);
}

TEST(RangeTest, inMoreDimensions) {
    const Range2D other{{2.0f, 3.0f}, {8.0f, 4.0f}};
    EXPECT_SAME(Math::join(B, other), Range2D({1.0f, 2.0f}, {8.0f, 6.0f}));
    EXPECT_SAME(Math::intersect(B, other), Range2D({2.0f, 3.0f}, {3.0f, 4.0f}));
    EXPECT_TRUE(Math::intersects(B, other));
    // In all dimensions at once
    EXPECT_FALSE(Math::intersects(B, Range2D({2.0f, 6.0f}, {3.0f, 7.0f})));
    EXPECT_SAME(Math::join(C, Range3D(Vector3{}, Vector3{5.0f})), Range3D(Vector3{}, {5.0f, 6.0f, 8.0f}));
}

}
