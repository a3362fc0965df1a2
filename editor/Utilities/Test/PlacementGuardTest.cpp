#include "Utilities/PlacementGuard.h"

#include "Data/Test/SessionFixture.h"

namespace {

using namespace VantrelEngine;

class PlacementGuardTest: public VantrelTest::SessionFixture {
protected:
    void addObject(const std::string& id, const std::string& parent, const std::string& scaling) {
        record("/objects/" + id,
            "{'parent': '" + parent + "', 'name': 'The " + id +
                "', 'translation': [1, 2, 3], 'rotation': [0.5, 0.5, 0.5, 0.5], 'scaling': " + scaling +
                ", 'components': []}");
        session.update();
    }
    std::string refusalOf(const char* id) {
        session.data().selectObject(objectOf(id), false);
        return placementRefusal(session.data());
    }
};

TEST_F(PlacementGuardTest, nothingSelected) { EXPECT_EQ(placementRefusal(session.data()), ""); }

TEST_F(PlacementGuardTest, ownScalingDoesNotMatter) {
    addObject("top", "", "[2, 3, 4]");
    EXPECT_EQ(refusalOf("top"), "");
}

TEST_F(PlacementGuardTest, aParentMayBeTurnedAndMirroredButNotScaled) {
    addObject("turned", "", "[1, 1, 1]");
    addObject("mirrored", "turned", "[-1, 1, 1]");
    addObject("below", "mirrored", "[5, 5, 5]");
    EXPECT_EQ(refusalOf("mirrored"), "");
    EXPECT_EQ(refusalOf("below"), "");
    for(const char* scaling: {"[2, 1, 1]", "[1, 0, 1]", "[0.999, 0.999, 0.999]"}) {
        record("/objects/turned/scaling", scaling);
        session.update();
        EXPECT_EQ(refusalOf("turned"), "") << scaling;
        EXPECT_EQ(refusalOf("mirrored"), "\"The mirrored\" cannot be placed: its parent \"The turned\" is scaled");
        EXPECT_EQ(refusalOf("below"), "\"The below\" cannot be placed: its parent \"The mirrored\" is scaled");
    }
}

TEST_F(PlacementGuardTest, theFirstSelectedObjectCounts) {
    addObject("first", "", "[2, 2, 2]");
    addObject("second", "first", "[1, 1, 1]");
    session.data().selectObject(objectOf("second"), true);
    session.data().selectObject(objectOf("first"), true);
    ASSERT_LT(objectOf("first"), objectOf("second"));
    EXPECT_EQ(placementRefusal(session.data()), "");
}

} // namespace
