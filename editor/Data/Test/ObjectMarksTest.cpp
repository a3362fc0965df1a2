#include <random>

#include <Vantrel/EditorData/ObjectMarks.h>

#include "Data/MarksKeeper.h"
#include "SessionFixture.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using testing::HasSubstr;

class ObjectMarksTest: public VantrelTest::SessionFixture {
protected:
    static std::string light(const std::string& parent = "") {
        return object(parent, ", 'components': [{'type': 'light', 'light': {'type': 'point'}}]");
    }
    // a over b over c, and d beside a; a light each.
    void addLights() {
        record("/objects/a", light());
        record("/objects/b", light("a"));
        record("/objects/c", light("b"));
        record("/objects/d", light());
        session.update();
    }
    void set(ObjectMark mark, const char* id, bool isMarked = true) { marks.setMarked(mark, objectOf(id), isMarked); }
    std::size_t seen() const { return scene.lights.numActiveComponents(); }

    EditorData& data = session.data();
    ObjectMarks& marks = data.marks();
};

TEST_F(ObjectMarksTest, HidingTakesWhatIsBelow) {
    addLights();
    ASSERT_EQ(seen(), 4u);
    set(ObjectMark::Hidden, "b");
    EXPECT_EQ(seen(), 2u);
    EXPECT_TRUE(marks.isHidden(objectOf("c")));
    EXPECT_FALSE(marks.isMarked(ObjectMark::Hidden, objectOf("c")));
    EXPECT_FALSE(marks.isHidden(objectOf("a")));
    // Marks below stay when the one above goes.
    set(ObjectMark::Hidden, "a");
    EXPECT_EQ(seen(), 1u);
    set(ObjectMark::Hidden, "a", false);
    EXPECT_EQ(seen(), 2u);
    set(ObjectMark::Hidden, "b", false);
    EXPECT_EQ(seen(), 4u);
    for(const char* const id: {"a", "b", "c", "d"})
        EXPECT_TRUE(scene.lights.isActive(scene.components(objectOf(id))[0]));
}

TEST_F(ObjectMarksTest, HidingIsToldToTheRenderer) {
    addLights();
    EXPECT_EQ(aspectsChangedBy([&] { set(ObjectMark::Hidden, "b"); }), std::vector<Aspect>{Aspect::Lights});
}

TEST_F(ObjectMarksTest, ItFollowsTheTree) {
    addLights();
    set(ObjectMark::Hidden, "a");
    record("/objects/b/parent", "'d'");
    session.update();
    EXPECT_EQ(seen(), 3u) << "it left what is hidden";
    record("/objects/d/parent", "'a'");
    session.update();
    EXPECT_EQ(seen(), 0u);
    record("/objects/e", light("c"));
    session.update();
    EXPECT_EQ(seen(), 0u) << "what comes below is hidden";
    record("/objects/c/components/1", "{'type': 'light', 'light': {'type': 'sun'}}");
    session.update();
    EXPECT_EQ(seen(), 0u) << "and so are further components";
    marks.unmarkAll(ObjectMark::Hidden);
    EXPECT_EQ(seen(), 6u);
}

TEST_F(ObjectMarksTest, UndoFindsTheMarkAgain) {
    addLights();
    set(ObjectMark::Hidden, "d");
    set(ObjectMark::Locked, "d");
    remove("/objects/d");
    session.update();
    EXPECT_EQ(seen(), 3u);
    record("/objects/other", light());
    session.update();
    EXPECT_EQ(seen(), 4u) << "another object under the same number is not hidden";
    changes().undoLast();
    changes().undoLast();
    session.update();
    EXPECT_TRUE(marks.isHidden(objectOf("d")));
    EXPECT_TRUE(marks.isLocked(objectOf("d")));
    EXPECT_EQ(seen(), 3u);
}

TEST_F(ObjectMarksTest, LockedObjectsAreNotSelected) {
    addLights();
    data.selectObject(objectOf("a"), false);
    data.selectObject(objectOf("c"), true);
    set(ObjectMark::Locked, "b");
    EXPECT_TRUE(data.isSelected(objectOf("a")));
    EXPECT_FALSE(data.isSelected(objectOf("c"))) << "locking takes out of the selection";
    EXPECT_EQ(data.takeRefused().count, 0u);
    data.selectObject(objectOf("b"), true);
    data.selectObject(objectOf("c"), true);
    const EditorData::Refused refused = data.takeRefused();
    EXPECT_EQ(refused.count, 2u);
    EXPECT_EQ(refused.object, objectOf("c"));
    EXPECT_EQ(data.takeRefused().count, 0u);
    EXPECT_EQ(data.selection().countSet(), 1u);
    EXPECT_EQ(seen(), 4u) << "what is locked is seen";
    set(ObjectMark::Locked, "b", false);
    data.selectObject(objectOf("c"), false);
    EXPECT_TRUE(data.isSelected(objectOf("c")));
}

TEST_F(ObjectMarksTest, AnotherProjectHasNone) {
    addLights();
    set(ObjectMark::Hidden, "a");
    session.startNew();
    addLights();
    EXPECT_EQ(seen(), 4u);
    EXPECT_TRUE(marks.ids(ObjectMark::Hidden).empty());
}

TEST_F(ObjectMarksTest, RandomEditsKeepThemTrue) {
    std::mt19937 random{11};
    const auto any = [&](std::size_t count) { return std::size_t(random() % count); };
    const auto id = [](std::size_t number) { return "o" + std::to_string(number); };
    constexpr std::size_t Count = 24;
    std::size_t checks = 0;
    for(int i = 0; i != 1500; ++i) {
        const std::string one = id(any(Count)), other = id(any(Count));
        const Id object = objectOf(one.data());
        switch(any(6)) {
        case 0: record("/objects/" + one, light(any(3) ? other : "")); break;
        case 1:
            if(object) record("/objects/" + one + "/parent", "'" + (any(4) ? other : "") + "'");
            break;
        case 2:
            if(object) remove("/objects/" + one);
            break;
        case 3: changes().undoLast(); break;
        default:
            if(object) marks.setMarked(ObjectMark(any(2)), object, any(2));
        }
        if(any(3) == 0) continue;
        session.update();
        std::size_t shown = 0;
        for(std::size_t j = 1; j != scene.size(); ++j) {
            const Id at = scene.toId(j);
            bool isHidden = false, isLocked = false;
            for(Id above = at; above != RootObject; above = scene.parent(above)) {
                const std::string name{scene.objectIds.nameOf(above).data(), scene.objectIds.nameOf(above).size()};
                isHidden |= marks.ids(ObjectMark::Hidden).count(name) != 0;
                isLocked |= marks.ids(ObjectMark::Locked).count(name) != 0;
            }
            ASSERT_EQ(marks.isHidden(at), isHidden) << i;
            ASSERT_EQ(marks.isLocked(at), isLocked) << i;
            shown += !isHidden;
            checks += isHidden || isLocked;
        }
        ASSERT_EQ(seen(), shown) << i;
    }
    EXPECT_GT(checks, 1000u) << "the test would look at nothing";
}

class MarksKeeperTest: public ObjectMarksTest {
protected:
    void save(const std::string& path) { ASSERT_EQ(session.save(path), ""); }

    VantrelTest::TestFolder folder;
    const std::string project = folder.path("project.json");
    MarksKeeper keeper{folder.path("user/marks")};
};

TEST_F(MarksKeeperTest, AProjectHasItsMarksAgain) {
    addLights();
    save(project);
    keeper.update(session);
    set(ObjectMark::Hidden, "b");
    set(ObjectMark::Locked, "d");
    keeper.update(session);
    // What is not there is passed over, and written no more.
    remove("/objects/d");
    save(project);
    session.startNew();
    keeper.update(session);
    EXPECT_TRUE(marks.ids(ObjectMark::Hidden).empty());
    ASSERT_EQ(session.open(project).error, "");
    keeper.update(session);
    EXPECT_TRUE(marks.isHidden(objectOf("c")));
    EXPECT_EQ(marks.ids(ObjectMark::Hidden), ObjectMarks::Ids{"b"});
    EXPECT_TRUE(marks.ids(ObjectMark::Locked).empty());
}

TEST_F(MarksKeeperTest, SavedElsewhereItKeepsThem) {
    addLights();
    set(ObjectMark::Locked, "a");
    keeper.update(session);
    EXPECT_FALSE(std::filesystem::exists(folder.path("user"))) << "a project without a file has nowhere to keep them";
    save(project);
    keeper.update(session);
    EXPECT_THAT(VantrelTest::readFile(keeper.fileOf(project)), HasSubstr("\"a\""));
}

TEST_F(MarksKeeperTest, ACopyHasThemToo) {
    addLights();
    save(project);
    keeper.update(session);
    set(ObjectMark::Hidden, "b");
    set(ObjectMark::Locked, "a");
    keeper.update(session);
    const std::string copy = folder.path("copy.json");
    std::filesystem::copy(project, copy);
    ASSERT_EQ(session.open(copy).error, "");
    keeper.copy(session, project);
    keeper.update(session);
    const auto expectMarks = [&] {
        EXPECT_EQ(marks.ids(ObjectMark::Hidden), ObjectMarks::Ids{"b"});
        EXPECT_EQ(marks.ids(ObjectMark::Locked), ObjectMarks::Ids{"a"});
    };
    expectMarks();
    ASSERT_EQ(session.open(project).error, "");
    keeper.update(session);
    expectMarks();
    ASSERT_EQ(session.open(copy).error, "");
    keeper.update(session);
    expectMarks();
}

TEST_F(MarksKeeperTest, WithoutAFolderNothingIsWritten) {
    MarksKeeper nobody{""};
    addLights();
    save(project);
    nobody.update(session);
    set(ObjectMark::Hidden, "a");
    nobody.update(session);
    std::size_t files = 0;
    for(const auto& entry: std::filesystem::directory_iterator{folder.path()}) files += entry.is_regular_file();
    EXPECT_EQ(files, 1u);
}

TEST_F(MarksKeeperTest, WhatIsNotUnderstoodIsPassedOver) {
    addLights();
    save(project);
    keeper.update(session);
    set(ObjectMark::Hidden, "a");
    keeper.update(session);
    const std::string file = keeper.fileOf(project), good = VantrelTest::readFile(file);
    const auto reopened = [&](const std::string& text) {
        std::ofstream{file, std::ios::binary} << text;
        EXPECT_EQ(session.open(project).error, "");
        return printed([&] { keeper.update(session); });
    };
    EXPECT_EQ(reopened(good), "");
    EXPECT_TRUE(marks.isHidden(objectOf("a")));
    EXPECT_EQ(reopened("{\"hidden\""), "What is hidden and locked is not understood: " + file + "\n");
    EXPECT_FALSE(marks.isHidden(objectOf("a")));
    // Another project's, or of wrong types.
    for(const char* const text: {"{\"project\": \"/other\", \"hidden\": [\"a\"]}", "{\"hidden\": [\"a\"]}", "{}"}) {
        EXPECT_EQ(reopened(text), "") << text;
        EXPECT_FALSE(marks.isHidden(objectOf("a"))) << text;
    }
    EXPECT_EQ(
        reopened("{\"project\": \"" + project + "\", \"hidden\": [1, null, \"nobody\", \"a\"], \"locked\": 7}"), "");
    EXPECT_TRUE(marks.isHidden(objectOf("a")));
}

} // namespace

} // namespace VantrelEngine
