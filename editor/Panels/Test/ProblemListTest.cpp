#include "Panels/ProblemList.h"

#include <fstream>

#include "Data/Test/SessionFixture.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

class ProblemListTest: public VantrelTest::SessionFixture {
protected:
    std::string told() {
        session.update();
        list.update(session);
        std::string text;
        for(const Problem& problem: list.problems())
            text += (problem.isRepair ? "repair " : "") + problem.object + ", " + componentName(session, problem) +
                ": " + problem.reason + '\n';
        return text;
    }

    ProblemList list;
};

TEST_F(ProblemListTest, FollowsTheProject) {
    EXPECT_EQ(told(), "");
    record("/objects/lamp",
        object("", ", 'components': [{'type': 'view'}, {'type': 'light', 'light': {'type': 'laser'}}]"));
    record("/objects/apple", object("nobody"));
    EXPECT_EQ(told(),
        "apple, object: its parent does not exist; it is at the root\n"
        "lamp, light (2): unknown light type laser\n");
    // Compiled again without any difference: nothing is made anew.
    record("/objects/lamp/components/1/light/intensity", "3");
    session.update();
    EXPECT_FALSE(list.update(session));
    record("/objects/lamp/components/1/light/type", "'ray'");
    EXPECT_EQ(told(),
        "apple, object: its parent does not exist; it is at the root\n"
        "lamp, light (2): unknown light type ray\n");
    record("/objects/lamp/components/1/light/type", "'spot'");
    remove("/objects/apple");
    EXPECT_EQ(told(), "");
    changes().undoLast();
    EXPECT_EQ(told(), "apple, object: its parent does not exist; it is at the root\n");
    session.startNew();
    EXPECT_EQ(told(), "");
}

TEST_F(ProblemListTest, RepairsStandUntilTheyAreSaved) {
    const VantrelTest::TestFolder folder;
    const std::string path = folder.path("project.json");
    std::ofstream{path} << R"({"objects": {"b": {"parent": "c"}, "c": {"parent": "b"}, "a": {"parent": "x"}}})";
    ASSERT_EQ(session.open(path).error, "");
    // By object, whatever it is.
    const std::string lost = "a, object: its parent does not exist; it is at the root\n";
    EXPECT_EQ(told().find(lost + "repair b, object: parent: "), 0u) << told();
    ASSERT_EQ(session.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(told(), lost);
}

} // namespace

} // namespace VantrelEngine
