#include "Data/ProjectOpening.h"

#include <VantrelHost/ResourceCompiler.h>

#include "SessionFixture.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using VantrelTest::TestFolder;

class ProjectOpeningTest: public VantrelTest::SessionFixture {
protected:
    // 50 meshes, and an object with each.
    std::string project() {
        ProjectSession other;
        for(int i = 0; i != 50; ++i) {
            const std::string id = std::to_string(i);
            JsonDocument mesh, object;
            mesh.Parse(R"({"name": "m", "primitive": "cube"})");
            object.Parse((R"({"name": "o", "parent": "", "translation": [0, 0, 0], "rotation": [0, 0, 0, 1],
"scaling": [1, 1, 1], "components": [{"type": "mesh", "mesh": {"mesh": "m)" +
                id + R"(", "material": "lit"}}]})")
                             .data());
            other.changes().recordWithParents(("/meshes/m" + id).data(), mesh, false);
            other.changes().recordWithParents(("/objects/o" + id).data(), object, false);
        }
        EXPECT_EQ(other.save(folder.path("project.json")), "");
        return folder.path("project.json");
    }
    TestFolder folder;
};

TEST_F(ProjectOpeningTest, StepByStepTheSameComesOut) {
    record("/objects/old", object());
    session.update();
    ProjectOpening opening{session, project()};
    float last = opening.fraction();
    int steps = 0, moves = 0;
    while(opening.step(0.0)) {
        // The old project or the new one.
        EXPECT_EQ(session.path().empty(), !opening.isInPlace());
        EXPECT_EQ(bool(session.data().project().member("objects", "old")), !opening.isInPlace());
        EXPECT_GE(opening.fraction(), last);
        moves += opening.fraction() > last;
        last = opening.fraction();
        ++steps;
    }
    EXPECT_EQ(opening.opened().error, "");
    EXPECT_GE(moves, 50);
    EXPECT_GE(steps, moves);
    EXPECT_EQ(opening.fraction(), 1.0f);
    EXPECT_FALSE(opening.step(1.0));

    ProjectSession whole;
    EXPECT_EQ(whole.open(folder.path("project.json")).error, "");
    EXPECT_EQ(document(), VantrelTest::jsonText(whole.data().project().projectFile()));
    EXPECT_EQ(scene.size(), 51u);
    EXPECT_EQ(scene.size(), whole.data().scene().main().size());
    EXPECT_EQ(session.data().scene().resources().meshes.size(), 51u);
    EXPECT_EQ(session.data().scene().resources().meshes.size(), whole.data().scene().resources().meshes.size());
    EXPECT_THAT(session.resourceCompiler().problems(), IsEmpty());
    EXPECT_FALSE(changes().canUndo());
    EXPECT_EQ(update(), (Compiled{0, 0}));
    record("/objects/new", object());
    EXPECT_EQ(update(), (Compiled{1, 1}));
}

TEST_F(ProjectOpeningTest, ALongStepDoesAllResources) {
    ProjectOpening opening{session, project()};
    int steps = 0;
    while(opening.step(10.0)) ++steps;
    EXPECT_EQ(steps, 2);
}

TEST_F(ProjectOpeningTest, WhatCannotBeOpenedLeavesTheOldOne) {
    record("/objects/old", object());
    folder.write("bad.json", "{");
    const std::string before = document();
    ProjectOpening opening{session, folder.path("bad.json")};
    while(opening.step(0.01)) EXPECT_FALSE(opening.isInPlace());
    EXPECT_THAT(opening.opened().error, HasSubstr("bad.json: line 1"));
    EXPECT_EQ(document(), before);
    EXPECT_TRUE(changes().canUndo());
    EXPECT_NE(session.save(folder.path("bad.json")), "");
}

TEST_F(ProjectOpeningTest, GivenUpWhileItReadsItLeavesTheOldOne) {
    const std::string before = document();
    { const ProjectOpening opening{session, project()}; }
    EXPECT_EQ(document(), before);
}

} // namespace

} // namespace VantrelEngine
