#include "Views/SceneView/Gizmo/GizmoMath.h"

#include <cmath>
#include <limits>

#include <Magnum/Math/Quaternion.h>
#include <gtest/gtest.h>

#include "Views/SceneView/Gizmo/TopmostObjects.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;
using testing::Test;

Containers::ArrayView<const Id> view(const std::vector<Id>& objects) { return {objects.data(), objects.size()}; }

TEST(GizmoMathTest, gestureKeys) {
    EXPECT_EQ(gestureKey({}), 0);
    EXPECT_EQ(gestureKey(view({5})), 0x500);
    EXPECT_EQ(gestureKey(view({5, 6, 7, 8})), 0x500 ^ 0x60000 ^ 0x7000000 ^ 8);
    EXPECT_EQ(gestureKey(view({5, 6, 7, 8, 0x1234})), 0x500 ^ 0x60000 ^ 0x7000000 ^ 8 ^ 0x123400);
    EXPECT_EQ(gestureKey(view({1, 2, 0xffff})), 0xffff000000ull ^ 0x20000 ^ 0x100);
}

TEST(GizmoMathTest, groupKeys) {
    EXPECT_EQ(groupKey(GizmoOperation::Translate, GizmoSpace::Local, 7), 7);
    EXPECT_EQ(groupKey(GizmoOperation::Translate, GizmoSpace::World, 7), 0x10000007);
    EXPECT_EQ(groupKey(GizmoOperation::Rotate, GizmoSpace::World, 0), 0x50000000);
    EXPECT_EQ(groupKey(GizmoOperation::Scale, GizmoSpace::Local, 0), 0x80000000);
    // Bits of both are joined by the exclusive or.
    EXPECT_EQ(groupKey(GizmoOperation::Scale, GizmoSpace::World, 0x90000000), 0);
}

TEST(GizmoMathTest, draggedBelowAParent) {
    const Matrix4 local = Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationX(30.0_degf);
    const ParentPlace parent{
        DualQuaternion::translation({5.0f, 0.0f, 0.0f}) * DualQuaternion::rotation(90.0_degf, Vector3::zAxis()),
        Vector3{2.0f}};
    // The parent's x axis is the world's y axis.
    const Matrix4 moved = draggedLocal(parent, Matrix4::translation({0.0f, 4.0f, 0.0f}), local);
    EXPECT_EQ(moved, Matrix4::translation({2.0f, 0.0f, 0.0f}) * local);
    // About the parent's place.
    const Matrix4 turn = Matrix4::translation({5.0f, 0.0f, 0.0f}) * Matrix4::rotationZ(90.0_degf) *
        Matrix4::translation({-5.0f, 0.0f, 0.0f});
    EXPECT_EQ(draggedLocal(parent, turn, local), Matrix4::rotationZ(90.0_degf) * local);
}

// The place is mirrored, the direction of turning is not.
TEST(GizmoMathTest, draggedBelowAMirror) {
    const ParentPlace parent{{}, {-2.0f, 2.0f, 2.0f}};
    EXPECT_EQ(
        draggedLocal(parent, Matrix4::translation({4.0f, 4.0f, 0.0f}), {}), Matrix4::translation({-2.0f, 2.0f, 0.0f}));
    EXPECT_EQ(draggedLocal(parent, Matrix4::rotationZ(30.0_degf), {}), Matrix4::rotationZ(30.0_degf));
}

TEST(GizmoMathTest, whatIsSkewed) {
    const Matrix4 turn = Matrix4::rotationZ(30.0_degf);
    EXPECT_TRUE(isWithoutShear(draggedLocal({{}, {2.0f, 2.0f, 5.0f}}, turn, {})));
    EXPECT_FALSE(isWithoutShear(draggedLocal({{}, {2.0f, 3.0f, 2.0f}}, turn, {})));
    // By a little in each frame, too.
    EXPECT_FALSE(isWithoutShear(draggedLocal({{}, {1.0f, 3.0f, 1.0f}}, Matrix4::rotationZ(0.1_degf), {})));
    EXPECT_TRUE(isWithoutShear(draggedLocal({{}, {2.0f, 3.0f, 4.0f}}, Matrix4::translation({1.0f, 2.0f, 3.0f}), {})));
    EXPECT_TRUE(isWithoutShear(Matrix4::scaling({1e-20f, -1.0f, 1e20f})));
    EXPECT_FALSE(isWithoutShear(draggedLocal({{}, {1.0f, 0.0f, 1.0f}}, turn, {})));
    EXPECT_FALSE(isWithoutShear(Matrix4::scaling({1.0f, 0.0f, 1.0f})));
    EXPECT_FALSE(isWithoutShear(Matrix4::translation({std::numeric_limits<Float>::quiet_NaN(), 0.0f, 0.0f})));
    EXPECT_FALSE(isWithoutShear(Matrix4::translation({0.0f, std::numeric_limits<Float>::infinity(), 0.0f})));
}

// Very different sizes cost nothing.
TEST(GizmoMathTest, draggedPrecisely) {
    const ParentPlace parent{DualQuaternion::rotation(20.0_degf, Vector3{1.0f}.normalized()), {1e-3f, 1e3f, 1.0f}};
    const Matrix4 local = Matrix4::rotationY(50.0_degf);
    const Matrix4 moved = draggedLocal(parent, Matrix4::translation({1.0f, 0.0f, 0.0f}), local);
    ASSERT_TRUE(isWithoutShear(moved));
    EXPECT_EQ(rigidPart(moved, Vector3{1.0f}).rotation(), Quaternion::rotation(50.0_degf, Vector3::yAxis()));
}

TEST(GizmoMathTest, rigidParts) {
    const DualQuaternion place = DualQuaternion::translation({1.0f, 2.0f, 3.0f}) *
        DualQuaternion::rotation(70.0_degf, Vector3{1.0f, 2.0f, -1.0f}.normalized());
    for(const Vector3 scaling: {Vector3{1.0f}, Vector3{-1.0f, 2.0f, 3.0f}, Vector3{-1.0f, -2.0f, 3.0f},
            Vector3{-0.5f, -2.0f, -3.0f}, Vector3{1e-22f, -1e-4f, 1e4f}})
        EXPECT_EQ(rigidPart(place.toMatrix() * Matrix4::scaling(scaling), scaling), place);
}

TEST(GizmoMathDeathTest, rigidPartsOfOthers) {
    const char* const message = "Math::Quaternion::fromMatrix\\(\\): the matrix is not a rotation:\nMatrix\\(";
    EXPECT_DEATH(rigidPart(Matrix4::scaling({-1.0f, 1.0f, 1.0f}), Vector3{1.0f}), message);
    EXPECT_DEATH(
        rigidPart(draggedLocal({{}, {1.0f, 3.0f, 1.0f}}, Matrix4::rotationZ(30.0_degf), {}), Vector3{1.0f}), message);
    EXPECT_DEATH(rigidPart(Matrix4::scaling(Vector3{0.0f}), Vector3{0.0f}), message);
}

struct TopmostTest: Test {
    std::vector<Id> find(const std::vector<Id>& selected) {
        words.fill(0);
        BitSetView set{{words.data(), words.size()}, MaxObjects + 1};
        for(const Id id: selected) set.set(id);
        return topmost.find(scene, set);
    }

    DynamicSceneGraph scene{1, 0, 0};
    std::array<UnsignedLong, BitSetView::wordCount(MaxObjects + 1)> words{};
    TopmostObjects topmost;
};

TEST_F(TopmostTest, passesOverWhatIsBelow) {
    const Id a = scene.addObject(RootObject), b = scene.addObject(RootObject), c = scene.addObject(a),
             d = scene.addObject(c), e = scene.addObject(b);
    EXPECT_EQ(find({a, b, c, d, e}), (std::vector<Id>{a, b}));
    EXPECT_EQ(find({c, d, e}), (std::vector<Id>{c, e}));
    EXPECT_EQ(find({a, d, e}), (std::vector<Id>{a, e}));
    EXPECT_EQ(find({}), std::vector<Id>{});
    EXPECT_EQ(find({RootObject, d, 600}), std::vector<Id>{d});
}

// Not the order of the ids.
TEST_F(TopmostTest, inTheOrderOfTheTree) {
    const Id a = scene.addObject(RootObject), b = scene.addObject(RootObject), c = scene.addObject(a);
    EXPECT_EQ(find({a, b, c}), (std::vector<Id>{a, b}));
    scene.reparent(a, b);
    EXPECT_EQ(find({a, b, c}), std::vector<Id>{b});
    EXPECT_EQ(find({a, c}), std::vector<Id>{a});
    const Id d = scene.addObject(RootObject);
    scene.reparent(c, d);
    EXPECT_EQ(find({c, b}), (std::vector<Id>{b, c}));
    scene.deleteObjects(d);
    EXPECT_EQ(find({c, b}), std::vector<Id>{b});
}

TEST_F(TopmostTest, many) {
    std::vector<Id> all, tops;
    for(int i = 0; i != 500; ++i) {
        const Id top = scene.addObject(RootObject), child = scene.addObject(top);
        tops.push_back(top);
        all.insert(all.end(), {top, child});
    }
    EXPECT_EQ(find(all), tops);
}

}
