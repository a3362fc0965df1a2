#include "Utilities/ObjectEdits.h"

#include <random>

#include <Magnum/Math/Functions.h>

#include "../../Data/Test/SessionFixture.h"
#include "Utilities/ObjectPlacement.h"

namespace VantrelEngine {

namespace {

using namespace Magnum;
using namespace Magnum::Math::Literals;

float distance(const ObjectPlacement& a, const ObjectPlacement& b) {
    // q and -q are the same rotation.
    const float turned = 1.0f - std::abs(Math::dot(a.rotation, b.rotation));
    return (a.translation - b.translation).length() + (a.scaling - b.scaling).length() + turned;
}

TEST(ObjectPlacementTest, BelowAnyParentItComesBack) {
    std::mt19937 random{5};
    std::uniform_real_distribution<float> number{-3.0f, 3.0f};
    const auto vector = [&] { return Vector3{number(random), number(random), number(random)}; };
    const auto placement = [&] {
        Vector3 scaling = vector();
        for(std::size_t i = 0; i != 3; ++i) scaling[i] += Math::sign(scaling[i]) * 0.3f;
        return ObjectPlacement{Quaternion{vector(), number(random)}.normalized(), vector(), scaling};
    };
    for(int i = 0; i != 500; ++i) {
        const ObjectPlacement inScene = placement(), parent = placement();
        const std::optional<ObjectPlacement> local = placementBelow(inScene, parent);
        ASSERT_TRUE(local);
        EXPECT_LT(distance(placementInScene(*local, parent), inScene), 1.0e-4f);
    }
}

TEST(ObjectPlacementTest, MirroredAndFlatParents) {
    const ObjectPlacement inScene{Quaternion::rotation(30.0_degf, Vector3::yAxis()), {1.0f, 2.0f, 3.0f}};
    const ObjectPlacement mirrored{Quaternion{}, {1.0f, 0.0f, 0.0f}, {-2.0f, 1.0f, 1.0f}};
    const std::optional<ObjectPlacement> local = placementBelow(inScene, mirrored);
    ASSERT_TRUE(local);
    EXPECT_EQ(local->scaling, (Vector3{-0.5f, 1.0f, 1.0f}));
    EXPECT_LT(distance(placementInScene(*local, mirrored), inScene), 1.0e-5f);
    EXPECT_FALSE(placementBelow(inScene, {Quaternion{}, {}, {1.0f, 1.0e-4f, 1.0f}}));
    EXPECT_FALSE(placementBelow({Quaternion{}, {3.0e38f, 0.0f, 0.0f}}, {Quaternion{}, {}, {0.001f, 1.0f, 1.0f}}));
}

class ObjectEditsTest: public VantrelTest::SessionFixture {
protected:
    void SetUp() override {
        record("/objects/house", placed("", "[5, 0, 1]", "[0, 0.6, 0, 0.8]", "[2, -1, 0.5]"));
        record("/objects/room", placed("house", "[1, 2, 3]", "[0.6, 0, 0, 0.8]", "[1, 1, 3]"));
        record("/objects/lamp", placed("room", "[0, 1, 0]", "[0, 0, 0.6, 0.8]", "[-1, 1, 1]"));
        record("/objects/bulb", placed("lamp", "[1, 1, 1]", "[0, 0, 0, 1]", "[1, 2, 1]"));
        record("/objects/tree", placed("", "[-4, 0, 2]", "[0, 0, 0, 1]", "[1, 1, 1]"));
        session.update();
    }
    static std::string placed(const std::string& parent, const std::string& translation, const std::string& rotation,
        const std::string& scaling) {
        return "{'name': 'N', 'parent': '" + parent + "', 'translation': " + translation + ", 'rotation': " + rotation +
            ", 'scaling': " + scaling + "}";
    }
    ObjectPlacement place(const char* id) {
        const DualQuaternion transformation = scene.absoluteTransformationSafe(objectOf(id));
        return {transformation.rotation(), transformation.translation(), scene.absoluteScaling(objectOf(id))};
    }
    void reparent(std::initializer_list<const char*> ids, const char* parent) {
        std::vector<Id> objects;
        for(const char* const id: ids) objects.push_back(objectOf(id));
        reparentObjects(session, objects, objectOf(parent));
        session.update();
    }
};

TEST_F(ObjectEditsTest, WhatIsReparentedStaysWhereItIs) {
    const std::string before = document();
    const ObjectPlacement lamp = place("lamp"), bulb = place("bulb");
    for(const char* const parent: {"tree", "house", ""}) {
        reparent({"lamp"}, parent);
        EXPECT_EQ(parentOf("lamp"), parent);
        EXPECT_LT(distance(place("lamp"), lamp), 1.0e-4f) << parent;
        EXPECT_LT(distance(place("bulb"), bulb), 1.0e-4f) << parent;
    }
    for(int i = 0; i != 3; ++i) changes().undoLast();
    EXPECT_EQ(document(), before) << "a step each";
}

TEST_F(ObjectEditsTest, SeveralAtOnceAreOneStep) {
    const std::string before = document();
    const ObjectPlacement room = place("room"), tree = place("tree");
    record("/objects/new", placed("", "[0, 0, 0]", "[0, 0, 0, 1]", "[3, 3, 3]"));
    session.update();
    // The lamp goes with its room.
    reparent({"lamp", "room", "tree"}, "new");
    EXPECT_EQ(parentOf("room"), "new");
    EXPECT_EQ(parentOf("lamp"), "room");
    EXPECT_EQ(parentOf("tree"), "new");
    EXPECT_LT(distance(place("room"), room), 1.0e-4f);
    EXPECT_LT(distance(place("tree"), tree), 1.0e-4f);
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(ObjectEditsTest, CyclesAreRefused) {
    const std::string before = document();
    const auto reason = [&](const char* object, const char* parent) {
        return whyNotReparented(scene, {objectOf("tree"), objectOf(object)}, objectOf(parent));
    };
    record("/objects/room/name", "'Room'");
    record("/objects/lamp/name", "'Lamp'");
    session.update();
    EXPECT_EQ(reason("room", "lamp"), "Room cannot be attached to Lamp, which is below it");
    EXPECT_EQ(reason("room", "room"), "Room cannot be attached to itself");
    EXPECT_EQ(reason("room", ""), "");
    EXPECT_EQ(reason("lamp", "house"), "");
    reparent({"tree", "room"}, "lamp");
    EXPECT_EQ(parentOf("tree"), "") << "none of them moves";
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(ObjectEditsTest, WhereItIsAlreadyNothingHappens) {
    const std::size_t logged = changes().changes().size();
    reparent({"lamp"}, "room");
    reparent({"house", "tree"}, "");
    EXPECT_EQ(changes().changes().size(), logged);
}

TEST_F(ObjectEditsTest, BelowWhatIsScaledToNothingItKeepsItsLocalPlace) {
    record("/objects/tree/scaling", "[1, 0, 1]");
    session.update();
    EXPECT_EQ(
        printed([&] { reparent({"lamp"}, "tree"); }), "N keeps its local place below N, which is scaled to nothing\n");
    EXPECT_EQ(parentOf("lamp"), "tree");
    EXPECT_EQ(scene.localTransformation(objectOf("lamp")).translation(), (Vector3{0.0f, 1.0f, 0.0f}));
}

TEST_F(ObjectEditsTest, AScalingOfZeroStaysOne) {
    record("/objects/bulb/scaling", "[1, 0, 2]");
    session.update();
    reparent({"bulb"}, "tree");
    EXPECT_EQ(session.data().project().valueByPointer("/objects/bulb/scaling/1")->GetDouble(), 0.0);
    EXPECT_NE(session.data().project().valueByPointer("/objects/bulb/scaling/0")->GetDouble(), 0.0);
}

TEST_F(ObjectEditsTest, IdsAndNamesOfAnyKind) {
    record("/objects/a~1b~0c", placed("", "[0, 0, 0]", "[0, 0, 0, 1]", "[1, 1, 1]"));
    session.update();
    renameObject(session, objectOf("a/b~c"), "Say \"hi\"");
    session.update();
    EXPECT_EQ(scene.objectNames.nameOf(objectOf("a/b~c")), "Say \"hi\"");
    const std::size_t logged = changes().changes().size();
    renameObject(session, objectOf("a/b~c"), "Say \"hi\"");
    EXPECT_EQ(changes().changes().size(), logged) << "the same name is no step";
}

TEST_F(ObjectEditsTest, NewObjectsWorkAndAreSelected) {
    const std::string before = document();
    EXPECT_EQ(printed([&] {
        for(const NewObject kind:
            {NewObject::Empty, NewObject::Sun, NewObject::PointLight, NewObject::SpotLight, NewObject::View})
            addObject(session, kind, objectOf("room"));
    }),
        "");
    EXPECT_EQ(scene.lights.numActiveComponents(), 3u);
    EXPECT_EQ(scene.views.numActiveComponents(), 1u);
    EXPECT_TRUE(compiler().problems().empty());
    EXPECT_EQ(session.data().selection().countSet(), 1u);
    EXPECT_EQ(parentOf("view"), "room");
    addObject(session, NewObject::Sun, RootObject);
    addObject(session, NewObject::Sun, RootObject);
    EXPECT_EQ(scene.objectNames.nameOf(*session.data().firstSelectedObject()), "Sun 2");
    for(int i = 0; i != 7; ++i) changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(ObjectEditsTest, NothingIsDoneDuringAGesture) {
    const std::string before = document();
    changes().beginTrial(Trial::Preview);
    renameObject(session, objectOf("lamp"), "Other");
    reparent({"lamp"}, "");
    addObject(session, NewObject::Sun, RootObject);
    changes().dropTrial();
    EXPECT_EQ(document(), before);
}

} // namespace

} // namespace VantrelEngine
