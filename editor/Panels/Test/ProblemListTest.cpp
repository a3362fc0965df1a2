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

TEST_F(ProblemListTest, ResourcesFollowTheProjectToo) {
    record("/images/wall", "{'name': 'Wall', 'file': 'missing.png'}");
    const std::string missing = told();
    EXPECT_EQ(missing.find("wall, images: "), 0u) << missing;
    record("/images/wall/file", "'other.png'");
    EXPECT_NE(told(), missing);
    remove("/images/wall");
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

class UnusableValuesTest: public ProblemListTest {
protected:
    // What is said when it is opened.
    std::string opened(const char* document) {
        const std::string path = folder.path("project.json");
        std::ofstream{path} << document;
        return printed([&] { ASSERT_EQ(session.open(path).error, ""); });
    }

    const VantrelTest::TestFolder folder;
};

constexpr const char* Unusable = R"({"objects": {"a/b": {"name": 5, "parent": "", "translation": [0, 0, 0],
    "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1], "components": [{"type": "input", "input": {"type": 3}},
        {"type": 4}, 7]}}, "settings": {"rendering": {"clearColor": 5}}})";

TEST_F(UnusableValuesTest, AreSaidOnceAndListedUntilTheyAreRepaired) {
    EXPECT_EQ(opened(Unusable),
        "objects/a/b/name: not usable, expected is a text\n"
        "objects/a/b/components/0/input/type: not usable, expected is a text\n"
        "objects/a/b/components/1/type: not usable, expected is a text\n"
        "objects/a/b/components/2: not an object, skipped\n"
        "settings/rendering/clearColor: not usable, expected is an array of 4 numbers\n");
    const std::string colour =
                          ", project: settings/rendering/clearColor: not usable, expected is an array of 4 numbers\n",
                      name = "a/b, object: name: not usable, expected is a text\n",
                      type = "a/b, input (1): input/type: not usable, expected is a text\n",
                      skipped = "a/b, component 2: it has no type\na/b, component 3: it is no object\n";
    EXPECT_EQ(told(), colour + name + type + skipped);
    record("/objects/a~1b/name", "'N'");
    EXPECT_EQ(told(), colour + type + skipped);
    record("/objects/a~1b/components/0/input/type", "'mouse'");
    record("/settings/rendering/clearColor", "[0, 0, 0, 1]");
    EXPECT_EQ(told(), skipped);
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(told(), colour + type + skipped);
    remove("/objects/a~1b");
    EXPECT_EQ(told(), colour);
    session.startNew();
    EXPECT_EQ(told(), "");
}

TEST_F(UnusableValuesTest, ComeWithAnEditAndStayWhileSomethingIsDragged) {
    record("/objects/lamp", object());
    EXPECT_EQ(told(), "");
    record("/objects/lamp/translation", "[0, 'high', 0]");
    EXPECT_EQ(told(), "lamp, object: translation: not usable, expected is an array of 3 numbers\n");
    changes().beginTrial(Trial::Gesture);
    changes().beginGroup(7, false);
    record("/objects/lamp/translation", "[0, 1, 0]");
    changes().commit();
    EXPECT_NE(told(), "");
    changes().keepTrial();
    EXPECT_EQ(told(), "");
}

} // namespace

} // namespace VantrelEngine
