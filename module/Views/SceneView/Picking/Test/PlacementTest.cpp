#include "Views/SceneView/Picking/Placement.h"

#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>

#include "Data/Test/SessionFixture.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::KilledBySignal;

class PlacementTest: public VantrelTest::SessionFixture {
protected:
    void addObject(const std::string& id, const std::string& parent, const std::string& translation,
        const std::string& rotation, const std::string& scaling) {
        record("/objects/" + id,
            "{'parent': '" + parent + "', 'name': 'N', 'translation': " + translation + ", 'rotation': " + rotation +
                ", 'scaling': " + scaling + ", 'components': []}");
    }
    void addObject(
        const std::string& id, const std::string& parent = "", const std::string& translation = "[0, 0, 0]") {
        addObject(id, parent, translation, "[0, 0, 0, 1]", "[1, 1, 1]");
    }
    // A turn by 90 degrees about the y axis and one by 120 degrees about (1, 1, 1).
    static constexpr const char* TurnY = "[0, 0.70710678, 0, 0.70710678]";
    static constexpr const char* TurnAll = "[0.5, 0.5, 0.5, 0.5]";

    void place(const char* object, const char* target) {
        placeObject(objectOf(object), objectOf(target), session.data(), changes());
        session.update();
        scene.computeAbsoluteTransformations();
    }
    DualQuaternion standing(const char* id) { return scene.absoluteTransformation(objectOf(id)); }
    void expectAt(const char* object, const DualQuaternion& place, const Vector3& scaling) {
        const DualQuaternion now = standing(object);
        EXPECT_LT((now.translation() - place.translation()).length(), 1e-5f);
        EXPECT_GT(std::abs(Math::dot(now.rotation(), place.rotation())), 1.0f - 1e-5f);
        EXPECT_LT((scene.absoluteScaling(objectOf(object)) - scaling).length(), 1e-5f);
    }
};

TEST_F(PlacementTest, takesOverRotationAndTranslationAndKeepsItsScaling) {
    addObject("target", "", "[1, 2, 3]", TurnAll, "[7, 7, 7]");
    addObject("moved", "", "[9, 9, 9]", "[0, 0, 0, 1]", "[2, 3, 4]");
    session.update();
    place("moved", "target");
    expectAt("moved", standing("target"), {2.0f, 3.0f, 4.0f});
}

TEST_F(PlacementTest, belowAParentThatIsTurned) {
    addObject("parent", "", "[10, 0, 0]", TurnY, "[1, 1, 1]");
    addObject("moved", "parent", "[1, 1, 1]");
    addObject("target", "", "[1, 2, 3]", TurnAll, "[1, 1, 1]");
    session.update();
    place("moved", "target");
    expectAt("moved", standing("target"), Vector3{1.0f});
}

TEST_F(PlacementTest, onItselfItStays) {
    addObject("parent", "", "[10, 0, 0]", TurnY, "[1, 1, 1]");
    addObject("moved", "parent", "[1, 1, 1]", TurnAll, "[2, 3, 4]");
    session.update();
    scene.computeAbsoluteTransformations();
    const DualQuaternion before = standing("moved");
    place("moved", "moved");
    expectAt("moved", before, {2.0f, 3.0f, 4.0f});
}

TEST_F(PlacementTest, isOneStep) {
    addObject("target", "", "[1, 2, 3]");
    addObject("moved");
    session.update();
    const std::string before = document();
    const std::size_t records = changes().changes().size();
    place("moved", "target");
    EXPECT_EQ(changes().changes().size(), records + 3);
    EXPECT_EQ(changes().group(), -1);
    const std::string after = document();
    EXPECT_NE(after, before);
    changes().undoLast();
    EXPECT_EQ(document(), before);
    changes().redoLast();
    EXPECT_EQ(document(), after);
}

// Each placement is a step of its own, also on the same place.
TEST_F(PlacementTest, twoAreTwoSteps) {
    addObject("target", "", "[1, 2, 3]");
    addObject("other", "", "[3, 2, 1]");
    addObject("moved");
    session.update();
    place("moved", "target");
    const std::string between = document();
    place("moved", "other");
    changes().undoLast();
    EXPECT_EQ(document(), between);
}

TEST_F(PlacementTest, mirroredObjectsStayMirrored) {
    addObject("target", "", "[1, 2, 3]", TurnAll, "[1, 1, 1]");
    for(const char* scaling: {"[-2, 1, 1]", "[-1, -3, 1]", "[-1, -1, -1]"}) {
        addObject("moved", "", "[5, 0, 0]", TurnY, scaling);
        session.update();
        scene.computeAbsoluteTransformations();
        const Vector3 before = scene.absoluteScaling(objectOf("moved"));
        place("moved", "target");
        expectAt("moved", standing("target"), before);
    }
}

TEST_F(PlacementTest, belowAMirroredParent) {
    addObject("target", "", "[1, 2, 3]", TurnAll, "[1, 1, 1]");
    // Mirrored twice it looks as if it were not.
    for(const char* own: {"[1, 2, 1]", "[-1, 2, 1]"})
        for(const char* scaling: {"[-1, 1, 1]", "[-1, -1, 1]", "[-1, -1, -1]"}) {
            addObject("parent", "", "[5, 0, 0]", TurnY, scaling);
            addObject("moved", "parent", "[1, 1, 1]", TurnY, own);
            session.update();
            scene.computeAbsoluteTransformations();
            const Vector3 before = scene.absoluteScaling(objectOf("moved"));
            place("moved", "target");
            expectAt("moved", standing("target"), before);
        }
}

TEST_F(PlacementTest, scalingsWhoseSquaresAreNoFloats) {
    addObject("target", "", "[1, 2, 3]", TurnAll, "[1, 1, 1]");
    for(const char* scaling: {"[1e25, 1, 1]", "[1, 1e-25, 1]"}) {
        addObject("moved", "", "[5, 0, 0]", TurnY, scaling);
        session.update();
        const Vector3 before = scene.localScaling(objectOf("moved"));
        place("moved", "target");
        EXPECT_LT((standing("moved").translation() - Vector3{1.0f, 2.0f, 3.0f}).length(), 1e-5f) << scaling;
        EXPECT_EQ(scene.localScaling(objectOf("moved")), before) << scaling;
    }
}

TEST_F(PlacementTest, idsThatAPointerEscapes) {
    addObject("target", "", "[1, 2, 3]");
    addObject("a~1b~0c");
    session.update();
    ASSERT_TRUE(objectOf("a/b~c"));
    place("a/b~c", "target");
    expectAt("a/b~c", standing("target"), Vector3{1.0f});
}

TEST_F(PlacementTest, ontoTheRoot) {
    addObject("moved", "", "[1, 2, 3]", TurnAll, "[1, 1, 1]");
    session.update();
    placeObject(objectOf("moved"), RootObject, session.data(), changes());
    session.update();
    scene.computeAbsoluteTransformations();
    expectAt("moved", DualQuaternion{}, Vector3{1.0f});
}

using PlacementDeathTest = PlacementTest;

TEST_F(PlacementDeathTest, parentThatIsNotRigid) {
    addObject("target");
    addObject("parent", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[2, 2, 2]");
    addObject("moved", "parent");
    session.update();
    EXPECT_EXIT(place("moved", "target"), KilledBySignal(SIGABRT),
        "^Math::Matrix4::invertedRigid\\(\\): the matrix doesn't represent a rigid transformation:\nMatrix\\(2, 0, 0, "
        "0,");
}

} // namespace
