#include <algorithm>
#include <cstring>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Magnum/Math/Functions.h>

#include "SceneTestSupport.h"

namespace {

using namespace Magnum;
using namespace Math::Literals;
using namespace VantrelEngine;
using namespace VantrelTest;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::KilledBySignal;

constexpr Float Inf = std::numeric_limits<Float>::infinity();
constexpr Float NaN = std::numeric_limits<Float>::quiet_NaN();

std::vector<Id> idsByIndex(const DynamicSceneGraph& graph) {
    std::vector<Id> ids;
    for(std::size_t i = 0; i != graph.size(); ++i) ids.push_back(graph.toId(i));
    return ids;
}

std::vector<std::size_t> changedIds(const DynamicSceneGraph& graph) {
    std::vector<std::size_t> ids;
    const BitSetView changed = graph.changed();
    for(std::size_t i = changed.findFirstSet(); i != changed.size(); i = changed.findFirstSet(i + 1)) ids.push_back(i);
    return ids;
}

void setLocal(DynamicSceneGraph& graph, Id id, const Quaternion& rotation, const Vector3& translation,
    const Vector3& scaling = Vector3{1.0f}) {
    graph.localTransformation(id) = DualQuaternion::from(rotation, translation);
    graph.localScaling(id) = scaling;
    graph.setDirty(id);
}

TEST(DynamicSceneGraphTest, startsWithTheRoot) {
    DynamicSceneGraph graph{3, 2, 2};
    EXPECT_EQ(graph.size(), 1u);
    EXPECT_EQ(graph.capacity(), 3u);
    EXPECT_EQ(graph.unusedCapacity(), 2u);
    EXPECT_EQ(graph.componentsSize(), 0u);
    EXPECT_EQ(graph.componentsCapacity(), 2u);
    EXPECT_TRUE(graph.isValid(0));
    EXPECT_FALSE(graph.isValid(1));
    EXPECT_FALSE(graph.isValid(NoObject));
    EXPECT_EQ(graph.parent(0), NoObject);
    EXPECT_EQ(graph.toId(0), 0);
    EXPECT_EQ(graph.toIndex(0), 0);
    EXPECT_EQ(graph.objectData(0).descendants, 0);
    EXPECT_EQ(graph.absoluteTransformation(0), DualQuaternion{});
    EXPECT_EQ(graph.absoluteScaling(0), Vector3{1.0f});
    EXPECT_EQ(graph.components(0).size(), 0u);
    EXPECT_EQ(DynamicSceneGraph(0, 0, 0).capacity(), 1u);
}

TEST(DynamicSceneGraphTest, descendantsFollowTheirAncestor) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), b = graph.addObject(0), a1 = graph.addObject(a), b1 = graph.addObject(b),
             a2 = graph.addObject(a), a11 = graph.addObject(a1);
    EXPECT_THAT((std::vector<Id>{a, b, a1, b1, a2, a11}), ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, a, a1, a11, a2, b, b1));
    EXPECT_EQ(graph.objectData(0).descendants, 6);
    EXPECT_EQ(graph.objectData(a).descendants, 3);
    EXPECT_EQ(graph.objectData(a1).descendants, 1);
    EXPECT_EQ(graph.objectData(a11).descendants, 0);
    EXPECT_EQ(graph.objectData(a11).parent, a1);
    EXPECT_EQ(graph.toIndex(b1), 6);
    EXPECT_EQ(graph.parent(a), RootObject);
    expectSoundOrder(graph);
    // What comes under the root goes to the end, also when the order is there already.
    const Id c = graph.addObject(0);
    EXPECT_EQ(graph.toIndex(c), 7);
    EXPECT_EQ(graph.objectData(0).descendants, 7);
    expectSoundOrder(graph);
}

TEST(DynamicSceneGraphTest, theThirdFieldIsTheNumberOfDescendants) {
    DynamicSceneGraph graph{1, 0, 0};
    graph.addObject(graph.addObject(0));
    const ObjectData data = graph.objectData(0);
    UnsignedShort fields[3];
    static_assert(sizeof(data) == sizeof(fields), "");
    std::memcpy(fields, &data, sizeof(data));
    EXPECT_EQ(fields[2], 2);
}

TEST(DynamicSceneGraphTest, deletesTheSubtreeAndNothingElse) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), a1 = graph.addObject(a), a11 = graph.addObject(a1), a2 = graph.addObject(a),
             b = graph.addObject(0);
    graph.deleteObjects(a1);
    EXPECT_FALSE(graph.isValid(a1));
    EXPECT_FALSE(graph.isValid(a11));
    EXPECT_EQ(graph.size(), 4u);
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, a, a2, b));
    EXPECT_EQ(graph.objectData(a).descendants, 1);
    graph.deleteObjects(b);
    graph.deleteObjects(a);
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0));
    EXPECT_EQ(graph.objectData(0).descendants, 0);
}

TEST(DynamicSceneGraphTest, idsAreUsedAgainTheOldestFirstAndBeforeFreshOnes) {
    DynamicSceneGraph graph{1, 0, 0};
    for(int i = 0; i != 5; ++i) graph.addObject(0);
    graph.deleteObjects(4);
    graph.deleteObjects(2);
    EXPECT_EQ(graph.addObject(0), 4);
    graph.deleteObjects(1);
    EXPECT_EQ(graph.addObject(0), 2);
    EXPECT_EQ(graph.addObject(0), 1);
    EXPECT_EQ(graph.addObject(0), 6);
}

TEST(DynamicSceneGraphTest, anIdThatIsUsedAgainStartsAfresh) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), child = graph.addObject(a);
    setLocal(graph, a, Quaternion::rotation(90.0_degf, Vector3::xAxis()), {1, 2, 3}, Vector3{2.0f});
    graph.computeAbsoluteTransformations();
    graph.deleteObjects(a);
    EXPECT_THAT(changedIds(graph), ElementsAre(0));
    EXPECT_EQ(graph.addObject(0), a);
    EXPECT_EQ(graph.objectData(a).descendants, 0);
    EXPECT_FALSE(graph.isValid(child));
    EXPECT_EQ(graph.localTransformation(a), DualQuaternion{});
    EXPECT_EQ(graph.localScaling(a), Vector3{1.0f});
    EXPECT_EQ(graph.absoluteTransformation(a), DualQuaternion{});
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 1u);
}

TEST(DynamicSceneGraphTest, reparentingMovesTheSubtreeToTheEnd) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), a1 = graph.addObject(a), a11 = graph.addObject(a1), b = graph.addObject(0),
             b1 = graph.addObject(b);
    EXPECT_TRUE(graph.reparent(a1, b));
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, a, b, b1, a1, a11));
    EXPECT_EQ(graph.parent(a1), b);
    // Down into what was below its brother.
    EXPECT_TRUE(graph.reparent(a, a11));
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, b, b1, a1, a11, a));
    EXPECT_TRUE(graph.reparent(b1, 0));
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, b, a1, a11, a, b1));
    EXPECT_EQ(graph.objectData(b).descendants, 3);
}

TEST(DynamicSceneGraphTest, reparentingToTheSameParentMovesNothing) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), b = graph.addObject(0);
    graph.computeAbsoluteTransformations();
    EXPECT_TRUE(graph.reparent(a, 0));
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, a, b));
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 0u);
}

TEST(DynamicSceneGraphTest, reparentingIntoItselfIsRefused) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), a1 = graph.addObject(a), a11 = graph.addObject(a1);
    graph.computeAbsoluteTransformations();
    for(const Id parent: {a, a1, a11}) {
        bool done = true;
        EXPECT_EQ(errorsOf([&] { done = graph.reparent(a, parent); }),
            "DynamicSceneGraph::reparent(): object 1 cannot become a child of object " + std::to_string(parent) +
                ", which is itself or a descendant of it\n");
        EXPECT_FALSE(done);
    }
    EXPECT_THAT(idsByIndex(graph), ElementsAre(0, a, a1, a11));
    EXPECT_EQ(graph.parent(a), RootObject);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 0u);
}

TEST(DynamicSceneGraphTest, capacityIsWhatWasAskedForOrIsInUse) {
    DynamicSceneGraph graph{3, 2, 0};
    graph.addObject(0);
    graph.addObject(0);
    EXPECT_EQ(graph.unusedCapacity(), 0u);
    graph.addObject(0);
    EXPECT_EQ(graph.capacity(), 4u);
    EXPECT_TRUE(graph.reallocateCapacity(10, 20));
    EXPECT_EQ(graph.capacity(), 10u);
    EXPECT_EQ(graph.unusedCapacity(), 6u);
    EXPECT_EQ(graph.componentsCapacity(), 20u);
    EXPECT_TRUE(graph.reallocateCapacity(1, 1));
    EXPECT_EQ(graph.capacity(), 10u);
    EXPECT_EQ(graph.componentsCapacity(), 20u);
    graph.deleteObjects(1);
    EXPECT_EQ(graph.unusedCapacity(), 7u);
}

TEST(DynamicSceneGraphTest, whatIsThereSurvivesGrowing) {
    DynamicSceneGraph graph{1, 0, 0};
    Id last = 0;
    for(int i = 0; i != 1000; ++i) {
        last = graph.addObject(i % 10 ? last : RootObject);
        setLocal(graph, last, {}, {1.0f, 0.0f, 0.0f});
        if(i % 7 == 0) graph.computeAbsoluteTransformations();
    }
    graph.computeAbsoluteTransformations();
    expectSoundOrder(graph);
    for(std::size_t id = 1; id != 1001; ++id)
        ASSERT_EQ(graph.absoluteTransformation(Id(id)).translation(), Vector3::xAxis(Float((id - 1) % 10 + 1)));
}

TEST(DynamicSceneGraphTest, referencesStayWhileThereIsCapacity) {
    DynamicSceneGraph graph{100, 0, 0};
    const Id a = graph.addObject(0);
    DualQuaternion& transformation = graph.localTransformation(a);
    for(int i = 0; i != 98; ++i) graph.addObject(a);
    graph.deleteObjects(50);
    graph.reparent(20, 30);
    graph.computeAbsoluteTransformations();
    EXPECT_EQ(&graph.localTransformation(a), &transformation);
}

TEST(DynamicSceneGraphTest, holdsSixtyFiveThousandFiveHundredAndThirtyFour) {
    DynamicSceneGraph graph{65535, 0, 0};
    EXPECT_EQ(graph.unusedCapacity(), 65534u);
    for(std::size_t i = 1; i != 65535; ++i) ASSERT_EQ(graph.addObject(0), i);
    Id refused = 1;
    EXPECT_EQ(errorsOf([&] { refused = graph.addObject(5); }),
        "DynamicSceneGraph::addObject(): a scene holds at most 65534 objects\n");
    EXPECT_EQ(refused, RootObject);
    EXPECT_FALSE(graph.isValid(NoObject));
    EXPECT_EQ(graph.size(), 65535u);
    EXPECT_EQ(graph.objectData(5).descendants, 0);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 65535u);
    expectSoundOrder(graph);

    graph.deleteObjects(40000);
    EXPECT_EQ(graph.addObject(65534), 40000);
    EXPECT_EQ(graph.toIndex(40000), 65534);
}

TEST(DynamicSceneGraphTest, moreThanTheLimitCannotBeReserved) {
    DynamicSceneGraph graph{1, 0, 0};
    bool done = true;
    EXPECT_EQ(errorsOf([&] { done = graph.reallocateCapacity(65536, 7); }),
        "DynamicSceneGraph::reallocateCapacity(): a scene holds at most 65534 objects, not 65535\n");
    EXPECT_FALSE(done);
    EXPECT_EQ(graph.capacity(), 1u);
    EXPECT_EQ(graph.componentsCapacity(), 0u);
    EXPECT_TRUE(graph.reallocateCapacity(65535, 0));
}

// Each built in the way in which it is worst, in one batch, and checked whole.
TEST(DynamicSceneGraphTest, everyTopologyOfFullSizeIsOrderedAndComputed) {
    constexpr std::size_t count = 65534;
    for(const char* topology: {"flat", "chain", "reverse", "tree", "random", "comb"}) {
        SCOPED_TRACE(topology);
        const std::string name = topology;
        std::mt19937 random{4};
        DynamicSceneGraph graph{1, 0, 0};
        for(std::size_t i = 1; i <= count; ++i) {
            Id parent = 0;
            if(name == "chain" || name == "comb") parent = Id(i % 2 || name == "chain" ? i - 1 : i - 2);
            if(name == "tree") parent = Id((i - 1) / 4);
            if(name == "random") parent = Id(random() % i);
            const Id id = graph.addObject(parent);
            ASSERT_EQ(id, i);
            graph.localTransformation(id) = DualQuaternion::translation({1.0f, 0.0f, 0.0f});
            graph.setDirty(id);
        }
        // The later object is the parent of the earlier one.
        if(name == "reverse") {
            for(std::size_t i = 1; i != count; ++i) ASSERT_TRUE(graph.reparent(Id(i), Id(i + 1)));
        }

        ASSERT_EQ(graph.computeAbsoluteTransformations(), count + 1);
        expectSoundOrder(graph);
        std::vector<std::size_t> depths(count + 1);
        for(std::size_t i = 1; i <= count; ++i) {
            const Id id = graph.toId(i);
            depths[id] = depths[graph.parent(id)] + 1;
            ASSERT_EQ(graph.absoluteTransformation(id).translation().x(), Float(depths[id]));
        }
        EXPECT_EQ(depths[count] == count, name == "chain");
        EXPECT_EQ(depths[1], name == "reverse" ? count : 1);

        // Taken down one by one, leaves first.
        std::vector<Id> leavesFirst;
        for(std::size_t i = count; i != 0; --i) leavesFirst.push_back(graph.toId(i));
        for(std::size_t i = 0; i != count / 2; ++i) graph.deleteObjects(leavesFirst[i]);
        ASSERT_EQ(graph.size(), count / 2 + 1);
        expectSoundOrder(graph);
        // And the rest by whole subtrees.
        for(const Id id: leavesFirst)
            if(graph.isValid(id) && graph.parent(id) == RootObject) graph.deleteObjects(id);
        ASSERT_EQ(graph.size(), 1u);
    }
}

TEST(DynamicSceneGraphTest, aChainIsTurnedRoundAndTornApart) {
    constexpr std::size_t count = 65534;
    DynamicSceneGraph graph{65535, 0, 0};
    for(std::size_t i = 1; i <= count; ++i) graph.addObject(Id(i - 1));
    // From the bottom: each goes to the root, and under the one that was below it.
    for(std::size_t i = count; i != 0; --i) {
        ASSERT_TRUE(graph.reparent(Id(i), 0));
        if(i != count) {
            ASSERT_TRUE(graph.reparent(Id(i), Id(i + 1)));
        }
    }
    expectSoundOrder(graph);
    EXPECT_EQ(graph.toIndex(1), count);
    // Pieces of it to other places, deep in it at first.
    std::mt19937 random{5};
    std::size_t refused = 0;
    const std::string errors = errorsOf([&] {
        for(int i = 0; i != 50000; ++i)
            refused += !graph.reparent(Id(1 + random() % count), Id(random() % (count + 1)));
    });
    EXPECT_EQ(std::size_t(std::count(errors.begin(), errors.end(), '\n')), refused);
    EXPECT_GT(refused, 20u);
    expectSoundOrder(graph);
}

// Transformations.

TEST(DynamicSceneGraphTest, aChildIsMovedRotatedAndScaledByItsParent) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id parent = graph.addObject(0), child = graph.addObject(parent), grandchild = graph.addObject(child);
    // A quarter turn to the left about y maps x to -z.
    setLocal(graph, parent, Quaternion::rotation(90.0_degf, Vector3::yAxis()), {10, 0, 0}, {2, 3, 4});
    setLocal(graph, child, Quaternion::rotation(90.0_degf, Vector3::zAxis()), {1, 1, 1}, {1, 0.5f, -1});
    setLocal(graph, grandchild, {}, {1, 0, 0});
    graph.computeAbsoluteTransformations();

    EXPECT_EQ(graph.absoluteScaling(child), (Vector3{2, 1.5f, -4}));
    EXPECT_EQ(graph.absoluteScaling(grandchild), (Vector3{2, 1.5f, -4}));
    // (1, 1, 1) scaled is (2, 3, 4), turned is (4, 3, -2).
    EXPECT_EQ(graph.absoluteTransformation(child).translation(), (Vector3{14, 3, -2}));
    EXPECT_EQ(graph.absoluteTransformation(child).rotation(),
        Quaternion::rotation(90.0_degf, Vector3::yAxis()) * Quaternion::rotation(90.0_degf, Vector3::zAxis()));
    // (1, 0, 0) scaled is (2, 0, 0), which z turns to (0, 2, 0), and y leaves.
    EXPECT_EQ(graph.absoluteTransformation(grandchild).translation(), (Vector3{14, 5, -2}));

    EXPECT_EQ(graph.absoluteTransformationAsMatrix(child),
        Matrix4::translation({14, 3, -2}) * Matrix4::rotationY(90.0_degf) * Matrix4::rotationZ(90.0_degf) *
            Matrix4::scaling({2, 1.5f, -4}));
    EXPECT_EQ(graph.localTransformationAsMatrix(child),
        Matrix4::translation({1, 1, 1}) * Matrix4::rotationZ(90.0_degf) * Matrix4::scaling({1, 0.5f, -1}));
}

TEST(DynamicSceneGraphTest, theRootCanBeMovedToo) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0);
    graph.computeAbsoluteTransformations();
    setLocal(graph, RootObject, {}, {0, 5, 0});
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 2u);
    EXPECT_EQ(graph.absoluteTransformation(a).translation(), (Vector3{0, 5, 0}));
}

TEST(DynamicSceneGraphTest, onlyDirtySubtreesAreComputedAndEachObjectOnce) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), a1 = graph.addObject(a), a11 = graph.addObject(a1), a2 = graph.addObject(a),
             b = graph.addObject(0), b1 = graph.addObject(b);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 7u);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 0u);
    graph.setDirty(a11);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 1u);
    graph.setDirty(b);
    graph.setDirty(a1);
    graph.setDirty(b);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 4u);
    // Below one that is dirty already, marked before it and after it.
    graph.setDirty(a11);
    graph.setDirty(a);
    graph.setDirty(a1);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 4u);
    graph.setDirty(RootObject);
    graph.setDirty(b1);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 7u);
    // What comes, moves or is gone.
    graph.addObject(a2);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 1u);
    graph.reparent(a1, b1);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 2u);
    graph.setDirty(a11);
    graph.deleteObjects(a1);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 0u);
    graph.setDirty(b);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 2u);
}

TEST(DynamicSceneGraphTest, withoutSetDirtyNothingIsTakenOver) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0);
    graph.computeAbsoluteTransformations();
    graph.localTransformation(a) = DualQuaternion::translation({1, 2, 3});
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 0u);
    EXPECT_EQ(graph.absoluteTransformationSafe(a), DualQuaternion{});
    graph.setDirty(a);
    EXPECT_EQ(graph.absoluteTransformation(a), DualQuaternion{});
    EXPECT_EQ(graph.absoluteTransformationSafe(a).translation(), (Vector3{1, 2, 3}));
}

TEST(DynamicSceneGraphTest, theSafeVariantsAreUpToDateAtAnyDepth) {
    // Deeper than what is looked at on the way up, too.
    for(const std::size_t depth: {2, 5, 31, 32, 33, 40, 1000}) {
        SCOPED_TRACE(depth);
        DynamicSceneGraph graph{1, 0, 0};
        Id leaf = 0;
        for(std::size_t i = 0; i != depth; ++i) leaf = graph.addObject(leaf);
        const Id bystander = graph.addObject(0);
        graph.computeAbsoluteTransformations();
        setLocal(graph, 1, {}, {3, 0, 0}, Vector3{2.0f});
        EXPECT_EQ(graph.absoluteTransformationSafe(leaf).translation(), (Vector3{3, 0, 0}));
        setLocal(graph, leaf, {}, {0, 1, 0});
        EXPECT_EQ(graph.absoluteTransformationAsMatrixSafe(leaf),
            Matrix4::translation({3, 2, 0}) * Matrix4::scaling(Vector3{2.0f}));
        setLocal(graph, bystander, {}, {7, 7, 7});
        EXPECT_EQ(graph.absoluteTransformationSafe(leaf).translation(), (Vector3{3, 2, 0}));
        graph.computeAbsoluteTransformation(bystander);
        EXPECT_EQ(graph.absoluteTransformation(bystander).translation(), Vector3{7.0f});
    }
}

TEST(DynamicSceneGraphTest, askingForWhatIsCleanLeavesTheRestDirty) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), b = graph.addObject(0);
    graph.computeAbsoluteTransformations();
    graph.setDirty(a);
    graph.absoluteTransformationSafe(b);
    EXPECT_EQ(graph.computeAbsoluteTransformations(), 1u);
}

TEST(DynamicSceneGraphTest, changedSaysWhatWasComputedSinceTheReset) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), a1 = graph.addObject(a), b = graph.addObject(0);
    EXPECT_THAT(changedIds(graph), ElementsAre());
    graph.computeAbsoluteTransformations();
    EXPECT_THAT(changedIds(graph), ElementsAre(0, a, a1, b));
    graph.resetChanged();
    EXPECT_THAT(changedIds(graph), ElementsAre());
    graph.setDirty(a);
    graph.computeAbsoluteTransformations();
    graph.setDirty(b);
    EXPECT_THAT(changedIds(graph), ElementsAre(a, a1));
    graph.absoluteTransformationSafe(b);
    EXPECT_THAT(changedIds(graph), ElementsAre(a, a1, b));
    graph.deleteObjects(a);
    EXPECT_THAT(changedIds(graph), ElementsAre(b));
}

TEST(DynamicSceneGraphTest, theAbsoluteOneIsAUnitDualQuaternionAtTheEndOfAnyChain) {
    constexpr std::size_t count = 65534;
    DynamicSceneGraph graph{65535, 0, 0};
    Id last = 0;
    for(std::size_t i = 0; i != count; ++i) {
        last = graph.addObject(last);
        // A little off, as it gets by being written again and again.
        const Quaternion rotation = Quaternion::rotation(7.3_degf, Vector3{1, 2, 3}.normalized());
        graph.localTransformation(last) = DualQuaternion::from(rotation * 1.00002f, {0.01f, 0.0f, 0.0f});
    }
    graph.computeAbsoluteTransformations();
    for(std::size_t id = 1; id <= count; id += 97) {
        const DualQuaternion absolute = graph.absoluteTransformation(Id(id));
        ASSERT_TRUE(absolute.isNormalized());
        ASSERT_NEAR(absolute.real().length(), 1.0f, 1.0e-6f);
    }
    // 7.3 degrees a step: a whole turn of 3600 steps is none.
    EXPECT_NEAR(Math::abs(Math::dot(graph.absoluteTransformation(3600).rotation(), Quaternion{})), 1.0f, 1.0e-3f);
}

TEST(DynamicSceneGraphTest, aTransformationThatIsNoUnitOneCountsAsNormalised) {
    const Quaternion rotation = Quaternion::rotation(50.0_degf, Vector3{1, -2, 0.5f}.normalized());
    const DualQuaternion unit = DualQuaternion::from(rotation, {1, 2, 3});
    for(const Float factor: {2.0f, 1.0004f, 0.9996f, 0.001f, 1.0e-18f, 1.0e+30f, -1.0f}) {
        SCOPED_TRACE(factor);
        DynamicSceneGraph graph{1, 0, 0};
        const Id a = graph.addObject(0);
        graph.localTransformation(a) = {unit.real() * factor, unit.dual() * factor};
        graph.computeAbsoluteTransformations();
        EXPECT_EQ(graph.absoluteTransformationAsMatrix(a), unit.toMatrix());
        EXPECT_EQ(graph.localTransformationAsMatrix(a), unit.toMatrix());
        EXPECT_TRUE(graph.absoluteTransformation(a).isNormalized());
    }
}

TEST(DynamicSceneGraphTest, whatIsNotANumberDoesNotSpread) {
    const Quaternion rotation = Quaternion::rotation(90.0_degf, Vector3::yAxis());
    const Vector3 parentPosition{1, 2, 3}, position{4, 5, 6};
    const struct {
        DualQuaternion transformation;
        Vector3 scaling;
        Vector3 expectedPosition;
        Quaternion expectedRotation;
        Vector3 expectedScaling;
    } table[]{{DualQuaternion::from(rotation, position), Vector3{2.0f}, Vector3{5, 7, 9}, rotation, Vector3{2.0f}},
        // No direction: as identity.
        {DualQuaternion{{{}, 0.0f}, {{}, 0.0f}}, Vector3{2.0f}, parentPosition, {}, Vector3{2.0f}},
        {DualQuaternion{{{}, 0.0f}, {{1, 2, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, {}, Vector3{2.0f}},
        {DualQuaternion{{{NaN, 0, 0}, 1.0f}, {{1, 2, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, {}, Vector3{2.0f}},
        {DualQuaternion{{{Inf, 0, 0}, 1.0f}, {{1, 2, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, {}, Vector3{2.0f}},
        {DualQuaternion{{{}, -Inf}, {{1, 2, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, {}, Vector3{2.0f}},
        // A direction, but no place.
        {DualQuaternion{rotation, {{NaN, 2, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, rotation, Vector3{2.0f}},
        {DualQuaternion{rotation, {{1, Inf, 3}, 0.0f}}, Vector3{2.0f}, parentPosition, rotation, Vector3{2.0f}},
        // No size.
        {DualQuaternion::from(rotation, position), {1, NaN, 1}, Vector3{5, 7, 9}, rotation, Vector3{1.0f}},
        {DualQuaternion::from(rotation, position), {1, 1, -Inf}, Vector3{5, 7, 9}, rotation, Vector3{1.0f}},
        // None is a number of its own.
        {DualQuaternion::from(rotation, position), Vector3{0.0f}, Vector3{5, 7, 9}, rotation, Vector3{0.0f}}};
    for(const auto& row: table) {
        SCOPED_TRACE(&row - table);
        DynamicSceneGraph graph{1, 0, 0};
        const Id parent = graph.addObject(0), a = graph.addObject(parent), child = graph.addObject(a);
        setLocal(graph, parent, {}, parentPosition);
        setLocal(graph, child, {}, {1, 0, 0});
        graph.localTransformation(a) = row.transformation;
        graph.localScaling(a) = row.scaling;
        graph.computeAbsoluteTransformations();
        const DualQuaternion absolute = graph.absoluteTransformation(a);
        EXPECT_TRUE(absolute.isNormalized());
        EXPECT_EQ(absolute.rotation(), row.expectedRotation);
        EXPECT_EQ(absolute.translation(), row.expectedPosition);
        EXPECT_EQ(graph.absoluteScaling(a), row.expectedScaling);
        EXPECT_TRUE(graph.absoluteTransformation(child).isNormalized());
        EXPECT_EQ(graph.absoluteTransformation(child).translation(),
            row.expectedPosition + row.expectedRotation.transformVector(Vector3::xAxis(row.expectedScaling.x())));
    }
}

TEST(DynamicSceneGraphTest, whatIsBeyondTheRangeOfAFloatStaysWithTheParent) {
    DynamicSceneGraph graph{1, 0, 0};
    const Id a = graph.addObject(0), b = graph.addObject(a), c = graph.addObject(b);
    setLocal(graph, a, {}, {2.0e38f, 0, 0}, {1.0e30f, 1, 1});
    setLocal(graph, b, {}, {1.0e10f, 0, 0}, {1.0e30f, 1, 1});
    setLocal(graph, c, {}, {0, 1, 0});
    graph.computeAbsoluteTransformations();
    EXPECT_EQ(graph.absoluteTransformationAsMatrix(b).translation(), (Vector3{2.0e38f, 0, 0}));
    EXPECT_EQ(graph.absoluteScaling(b), (Vector3{1.0e30f, 1, 1}));
    EXPECT_EQ(graph.absoluteTransformationAsMatrix(c).translation(), (Vector3{2.0e38f, 1, 0}));
}

TEST(DynamicSceneGraphTest, severalGraphsKnowNothingOfEachOther) {
    DynamicSceneGraph a{1, 0, 1}, b{1, 0, 1};
    NumberManager ofA, ofB;
    a.setComponentManager(0, ofA);
    b.setComponentManager(0, ofB);
    a.addObject(0);
    a.addObject(1);
    b.addObject(0);
    ofA.addComponent(2);
    ofB.addComponent(1);
    ofB.addComponent(1);
    a.deleteObjects(1);
    EXPECT_EQ(ofA.size(), 0u);
    EXPECT_EQ(ofB.size(), 2u);
    EXPECT_EQ(b.size(), 2u);
    EXPECT_EQ(b.computeAbsoluteTransformations(), 2u);
}

TEST(DynamicSceneGraphDeathTest, abortsOnWhatIsNotThere) {
    DynamicSceneGraph graph{1, 0, 0};
    graph.addObject(0);
    const auto dies = [](const char* message) { return HasSubstr(message); };
    const auto killed = KilledBySignal(SIGABRT);
    EXPECT_EXIT(graph.addObject(2), killed, dies("DynamicSceneGraph::addObject(): there is no object 2"));
    EXPECT_EXIT(graph.addObject(NoObject), killed, dies("DynamicSceneGraph::addObject(): there is no object 65535"));
    EXPECT_EXIT(graph.deleteObjects(2), killed, dies("DynamicSceneGraph::deleteObjects(): there is no object 2"));
    EXPECT_EXIT(graph.deleteObjects(0), killed, dies("DynamicSceneGraph::deleteObjects(): the root cannot be deleted"));
    EXPECT_EXIT(graph.reparent(2, 0), killed, dies("DynamicSceneGraph::reparent(): there is no object 2"));
    EXPECT_EXIT(graph.reparent(1, 2), killed, dies("DynamicSceneGraph::reparent(): there is no object 2"));
    EXPECT_EXIT(graph.reparent(0, 1), killed, dies("DynamicSceneGraph::reparent(): the root has no parent"));
    EXPECT_EXIT(graph.toId(2), killed, dies("DynamicSceneGraph::toId(): there is no index 2 among 2"));
    for(void (*use)(DynamicSceneGraph&):
        {+[](DynamicSceneGraph& graph) { graph.parent(2); }, +[](DynamicSceneGraph& graph) { graph.objectData(2); },
            +[](DynamicSceneGraph& graph) { graph.setDirty(2); },
            +[](DynamicSceneGraph& graph) { graph.localTransformation(2); },
            +[](DynamicSceneGraph& graph) { graph.localScaling(2); },
            +[](DynamicSceneGraph& graph) { graph.localTransformationAsMatrix(2); },
            +[](DynamicSceneGraph& graph) { graph.absoluteTransformation(2); },
            +[](DynamicSceneGraph& graph) { graph.absoluteTransformationAsMatrix(2); },
            +[](DynamicSceneGraph& graph) { graph.absoluteScaling(2); },
            +[](DynamicSceneGraph& graph) { graph.absoluteTransformationSafe(2); },
            +[](DynamicSceneGraph& graph) { graph.computeAbsoluteTransformation(2); },
            +[](DynamicSceneGraph& graph) { graph.components(2); },
            +[](DynamicSceneGraph& graph) { graph.componentTypes(2); }})
        EXPECT_EXIT(use(graph), killed, dies("DynamicSceneGraph: there is no object 2"));
    EXPECT_EXIT(
        (DynamicSceneGraph{65536, 0, 0}), killed, dies("DynamicSceneGraph: a scene holds at most 65534 objects"));
    EXPECT_EXIT((DynamicSceneGraph{1, 0, 256}), killed,
        dies("DynamicSceneGraph: a scene has at most 255 component managers, not 256"));
}

}
