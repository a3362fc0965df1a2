#include "Views/SceneView/Camera/SceneBounds.h"

#include <random>

#include "../../../../../editor/Data/Test/SessionFixture.h"

namespace VantrelEngine {

namespace {

using namespace Magnum;

class SceneBoundsTest: public VantrelTest::SessionFixture {
protected:
    SceneBoundsTest() { record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}"); }

    // At a place of its own below the parent.
    void add(const std::string& id, const std::string& parent, float x, bool hasMesh) {
        const std::string mesh = "{'type': 'mesh', 'mesh': {'mesh': 'cube', 'material': 'flat'}}";
        record("/objects/" + id,
            "{'parent': '" + parent + "', 'name': '', 'translation': [" + std::to_string(x) +
                ", 0, 0], 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1], 'components': [" + (hasMesh ? mesh : "") +
                "]}");
    }
    void select(std::initializer_list<const char*> ids) {
        session.update();
        session.data().selection().clear();
        for(const char* const id: ids) session.data().selectObject(objectOf(id), true);
        scene.computeAbsoluteTransformations();
    }
    std::vector<SelectedBounds> bounds() { return boundsOfSelection(session.data()); }
};

TEST_F(SceneBoundsTest, OwnMeshesComeBeforeThoseBelow) {
    add("a", "", 0.0f, true);
    add("b", "a", 10.0f, true);
    add("c", "", 0.0f, false);
    add("d", "c", 20.0f, true);
    add("e", "c", 30.0f, true);
    select({"a", "c", "e"});
    const auto found = bounds();
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].object, objectOf("a"));
    EXPECT_EQ(found[0].bounds.center, (Vector3{}));
    EXPECT_EQ(found[1].bounds.center, (Vector3{25.0f, 0.0f, 0.0f}));
    EXPECT_FLOAT_EQ(found[1].bounds.radius, 5.0f + found[0].bounds.radius);
    EXPECT_EQ(found[2].bounds.center, (Vector3{30.0f, 0.0f, 0.0f}));
    for(const SelectedBounds& each: found) EXPECT_FALSE(each.isWithinOther);
}

TEST_F(SceneBoundsTest, WhatIsBelowTwoIsTheUpperOnes) {
    add("a", "", 0.0f, false);
    add("b", "a", 1.0f, false);
    add("c", "b", 1.0f, true);
    add("d", "", 0.0f, false);
    select({"a", "b", "d"});
    const auto found = bounds();
    EXPECT_FALSE(found[0].isWithinOther);
    EXPECT_EQ(found[0].bounds.center, (Vector3{2.0f, 0.0f, 0.0f}));
    EXPECT_TRUE(found[1].isWithinOther);
    EXPECT_TRUE(found[1].bounds.isEmpty());
    EXPECT_FALSE(found[2].isWithinOther);
    EXPECT_TRUE(found[2].bounds.isEmpty());
    select({});
    EXPECT_TRUE(bounds().empty());
}

// All of them together are around the same meshes as with a look at each subtree.
TEST_F(SceneBoundsTest, NoMeshIsLeftOut) {
    std::mt19937 random{5};
    const auto below = [&](unsigned end) { return unsigned(random()) % end; };
    for(int i = 0; i != 60; ++i)
        add("o" + std::to_string(i), i && below(4) ? "o" + std::to_string(below(unsigned(i))) : "", float(below(20)),
            below(3) == 0);
    for(int round = 0; round != 50; ++round) {
        session.update();
        session.data().selection().clear();
        for(int i = 0; i != 8; ++i)
            session.data().selectObject(objectOf(("o" + std::to_string(below(60))).data()), true);
        scene.computeAbsoluteTransformations();
        const auto found = bounds();
        for(const SelectedBounds& each: found) {
            const bool isEmpty = !scene.components(each.object).size();
            for(Id i = each.object; i != NoObject; i = isEmpty ? scene.nextInTree(i, each.object) : NoObject) {
                if(!scene.components(i).size()) continue;
                const Vector3 mesh = scene.absoluteTransformation(i).translation();
                const bool isInside = std::any_of(found.begin(), found.end(), [&](const SelectedBounds& other) {
                    return (other.bounds.center - mesh).length() <= other.bounds.radius + 1.0e-3f;
                });
                EXPECT_TRUE(isInside) << "mesh of " << i << " below " << each.object;
            }
        }
        const BitSetView selection = session.data().selection();
        EXPECT_EQ(found.size(), selection.countSet());
    }
}

} // namespace

} // namespace VantrelEngine
