#include "ChangeManager.h"

#include <limits>
#include <string>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Support/JsonText.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace Math::Literals;
using namespace VantrelEngine;
using VantrelTest::jsonText;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::KilledBySignal;

std::string jsonText(const std::optional<JsonValue>& value) { return value ? jsonText(*value) : "none"; }

struct Recorder: ChangeListener {
    void onChange(const Change& change, Containers::ArrayView<const Containers::StringView> components) override {
        heard.push_back(
            std::string(change.path) + " " + jsonText(change.oldValue) + " -> " + jsonText(change.newValue));
        lastComponents.clear();
        for(const Containers::StringView component: components) lastComponents.emplace_back(component);
        lastGroup = change.group;
    }
    std::vector<std::string> heard, lastComponents;
    int lastGroup = 0;
};

struct ChangeManagerTest: testing::Test {
    ChangeManagerTest() {
        parse(R"({"objects":{"a":{"name":"A","parent":""},"b":{"name":"B","parent":""}},"settings":{}})");
        manager.addListener("objects", recorder);
        manager.compileListeners();
    }
    void parse(const char* json) {
        file.projectFile().Parse(json);
        file.membersChanged();
    }
    std::string document() { return jsonText(file.projectFile()); }
    std::string at(const char* path) {
        const JsonValue* const value = file.valueByPointer(path);
        return value ? jsonText(*value) : "none";
    }
    void record(const char* path, int value, bool merge = false) {
        const JsonValue json{value};
        manager.recordChange(path, &json, merge);
    }
    std::vector<std::string> log() {
        std::vector<std::string> lines;
        for(const Change& change: manager.changes())
            lines.push_back(
                std::string(change.path) + " " + jsonText(change.oldValue) + " -> " + jsonText(change.newValue));
        return lines;
    }

    ProjectFile file;
    ChangeManager manager{file};
    Recorder recorder;
};

TEST_F(ChangeManagerTest, recordsTheOldAndTheNewValueAndApplies) {
    record("/objects/a/name", 5);
    EXPECT_EQ(at("/objects/a/name"), "5");
    EXPECT_THAT(log(), ElementsAre(R"(/objects/a/name "A" -> 5)"));
    EXPECT_EQ(manager.lastChange(), 0);
    EXPECT_EQ(manager.currentChange().group, -1);
    manager.recordChange("/objects/a/name", nullptr, false);
    EXPECT_EQ(at("/objects/a/name"), "none");
    EXPECT_EQ(log()[1], "/objects/a/name 5 -> none");
    record("/objects/a/name", 6);
    EXPECT_EQ(log()[2], "/objects/a/name none -> 6");
}

TEST_F(ChangeManagerTest, recordsStringsVectorsAndTransformations) {
    manager.recordString("/objects/a/name", "a \"text\" \xc3\xa9", false);
    EXPECT_EQ(at("/objects/a/name"), "\"a \\\"text\\\" \xc3\xa9\"");
    manager.recordString("/objects/a/name", {}, false);
    EXPECT_EQ(at("/objects/a/name"), "\"\"");
    manager.recordString("/objects/a/name", Containers::StringView{"terminated", 4}, false);
    EXPECT_EQ(at("/objects/a/name"), "\"term\"");
    manager.recordVector3("/objects/a/translation", {1.0f, 0.1f, -2.5f}, false);
    // Each float is widened, not printed.
    EXPECT_EQ(at("/objects/a/translation"), "[1.0,0.10000000149011612,-2.5]");

    manager.recordTransform("/objects/b",
        Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationY(90.0_degf) * Matrix4::scaling({2.0f, 3.0f, 4.0f}),
        false);
    EXPECT_EQ(at("/objects/b/translation"), "[1.0,2.0,3.0]");
    const JsonValue& rotation = *file.valueByPointer("/objects/b/rotation");
    ASSERT_EQ(rotation.Size(), 4);
    for(const auto& [i, expected]: {std::pair{0u, 0.0}, {1u, 0.70710678}, {2u, 0.0}, {3u, 0.70710678}})
        EXPECT_NEAR(rotation[i].GetDouble(), expected, 1e-6) << i;
    const JsonValue& scaling = *file.valueByPointer("/objects/b/scaling");
    for(const auto& [i, expected]: {std::pair{0u, 2.0}, {1u, 3.0}, {2u, 4.0}})
        EXPECT_NEAR(scaling[i].GetDouble(), expected, 1e-6) << i;
    const auto changes = manager.changes();
    EXPECT_EQ(std::string(changes[4].path), "/objects/b/translation");
    EXPECT_EQ(std::string(changes[5].path), "/objects/b/rotation");
    EXPECT_EQ(std::string(changes[6].path), "/objects/b/scaling");
}

TEST_F(ChangeManagerTest, recordTransformAbortsOnAReflection) {
    EXPECT_EXIT(manager.recordTransform("/objects/a", Matrix4::reflection(Vector3::xAxis()), false),
        KilledBySignal(SIGABRT),
        testing::StartsWith("Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n"));
}

TEST_F(ChangeManagerTest, mergeReplacesOnlyTheNewValue) {
    record("/settings/x", 0);
    manager.beginGroup();
    record("/objects/a/name", 1, true);
    record("/objects/a/name", 2, true);
    record("/objects/a/name", 3, true);
    manager.commit();
    EXPECT_THAT(log(), ElementsAre("/settings/x none -> 0", R"(/objects/a/name "A" -> 3)"));
    manager.undoLast();
    EXPECT_EQ(at("/objects/a/name"), R"("A")");
    EXPECT_EQ(at("/settings/x"), "0");
}

TEST_F(ChangeManagerTest, aMergeSwapsTheFoundRecordWithTheLast) {
    record("/settings/x", 0);
    manager.beginGroup();
    for(const char* path: {"/objects/a/p", "/objects/a/q", "/objects/a/r"}) record(path, 1, true);
    record("/objects/a/p", 2, true);
    EXPECT_THAT(log(),
        ElementsAre(
            "/settings/x none -> 0", "/objects/a/r none -> 1", "/objects/a/q none -> 1", "/objects/a/p none -> 2"));
    record("/objects/a/q", 3, true);
    EXPECT_THAT(log(),
        ElementsAre(
            "/settings/x none -> 0", "/objects/a/r none -> 1", "/objects/a/p none -> 2", "/objects/a/q none -> 3"));
    manager.commit();
    EXPECT_THAT(
        recorder.heard, ElementsAre("/objects/a/r none -> 1", "/objects/a/p none -> 2", "/objects/a/q none -> 3"));
}

TEST_F(ChangeManagerTest, mergeStaysInItsGroup) {
    record("/settings/x", 0);
    manager.beginGroup();
    record("/objects/a/name", 1, true);
    manager.commit();
    manager.beginGroup();
    record("/objects/a/name", 2, true);
    manager.commit();
    record("/objects/a/name", 3, true);
    record("/objects/a/name", 4, true);
    EXPECT_THAT(log(),
        ElementsAre("/settings/x none -> 0", R"(/objects/a/name "A" -> 1)", "/objects/a/name 1 -> 2",
            "/objects/a/name 2 -> 4"));
}

TEST_F(ChangeManagerTest, withoutTheFlagNothingMerges) {
    record("/settings/x", 0);
    manager.beginGroup();
    record("/objects/a/name", 1);
    record("/objects/a/name", 2);
    // Of several records of one path the last takes the value.
    record("/objects/a/name", 3, true);
    EXPECT_THAT(log(), ElementsAre("/settings/x none -> 0", R"(/objects/a/name "A" -> 1)", "/objects/a/name 1 -> 3"));
}

TEST_F(ChangeManagerTest, theFirstRecordOfTheLogNeverTakesALaterChange) {
    manager.beginGroup();
    record("/objects/a/name", 1, true);
    record("/objects/a/name", 2, true);
    record("/objects/a/name", 3, true);
    EXPECT_THAT(log(), ElementsAre(R"(/objects/a/name "A" -> 1)", "/objects/a/name 1 -> 3"));
    manager.commit();
    manager.undoLast();
    EXPECT_EQ(at("/objects/a/name"), R"("A")");
}

TEST_F(ChangeManagerTest, mergeAfterUndoFindsTheRecordsThatAreLeft) {
    record("/settings/x", 0);
    record("/objects/a/p", 1, true);
    record("/objects/a/q", 1, true);
    manager.undoLast();
    record("/objects/a/q", 2, true);
    record("/objects/a/p", 3, true);
    EXPECT_THAT(log(), ElementsAre("/settings/x none -> 0", "/objects/a/q none -> 2", "/objects/a/p none -> 3"));
}

TEST_F(ChangeManagerTest, aNewChangeDiscardsWhatWasUndone) {
    for(int i = 0; i != 4; ++i) record("/objects/a/name", i);
    manager.undoLast();
    manager.undoLast();
    EXPECT_EQ(manager.changes().size(), 4);
    EXPECT_EQ(manager.lastChange(), 1);
    record("/objects/b/name", 9);
    EXPECT_EQ(manager.lastChange(), 2);
    EXPECT_EQ(manager.changes().size(), 3);
    EXPECT_EQ(std::string(manager.currentChange().path), "/objects/b/name");
    EXPECT_FALSE(manager.canRedo());
}

TEST_F(ChangeManagerTest, undoOfAnEmptyLogDoesNothing) {
    const std::string before = document();
    manager.undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_EQ(manager.lastChange(), -1);
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(ChangeManagerTest, changesWithoutAGroupAreUndoneAlone) {
    record("/objects/a/p", 1);
    record("/objects/a/q", 1);
    manager.undoLast();
    EXPECT_EQ(at("/objects/a/p"), "1");
    EXPECT_EQ(at("/objects/a/q"), "none");
    manager.undoLast();
    EXPECT_EQ(at("/objects/a/p"), "none");
}

TEST_F(ChangeManagerTest, aGroupIsUndoneWhole) {
    const std::string before = document();
    manager.beginGroup(7, false);
    for(int frame = 0; frame != 5; ++frame) {
        manager.beginGroup(7, frame > 0);
        manager.recordTransform("/objects/a", Matrix4::translation({float(frame), 0.0f, 0.0f}), true);
        manager.commit();
    }
    manager.undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_EQ(manager.lastChange(), -1);
}

TEST_F(ChangeManagerTest, groupsAreNumberedFromOneAndContinueByKey) {
    // The key of no group yet.
    manager.beginGroup(0, true);
    EXPECT_EQ(manager.group(), 1);
    manager.commit();
    manager.beginGroup(5, true);
    EXPECT_EQ(manager.group(), 2);
    manager.commit();
    EXPECT_EQ(manager.group(), -1);
    manager.beginGroup(5, true);
    EXPECT_EQ(manager.group(), 2);
    manager.beginGroup(5, false);
    EXPECT_EQ(manager.group(), 3);
    manager.beginGroup(6, true);
    EXPECT_EQ(manager.group(), 4);
    manager.beginGroup();
    EXPECT_EQ(manager.group(), 5);
    manager.beginGroup();
    EXPECT_EQ(manager.group(), 6);
}

TEST_F(ChangeManagerTest, listenersHearAtOnceOutsideOfAGroupAndOnCommitInside) {
    record("/objects/a/name", 1);
    EXPECT_THAT(recorder.heard, ElementsAre(R"(/objects/a/name "A" -> 1)"));
    EXPECT_THAT(recorder.lastComponents, ElementsAre("", "objects", "a", "name"));
    recorder.heard.clear();

    manager.beginGroup();
    record("/objects/a/name", 2);
    record("/settings/x", 2);
    record("/objects/b/name", 3);
    EXPECT_THAT(recorder.heard, IsEmpty());
    manager.commit();
    EXPECT_THAT(recorder.heard, ElementsAre("/objects/a/name 1 -> 2", R"(/objects/b/name "B" -> 3)"));
    recorder.heard.clear();

    manager.undoLast();
    EXPECT_THAT(recorder.heard, ElementsAre(R"(/objects/b/name 3 -> "B")", "/objects/a/name 2 -> 1"));
    EXPECT_EQ(recorder.lastGroup, -1);
}

TEST_F(ChangeManagerTest, listenersAreFoundByEachComponentInOrder) {
    ProjectFile otherFile;
    otherFile.createByPointer("/objects").SetObject();
    ChangeManager other{otherFile};
    Recorder first, second;
    other.addListener("x", first);
    other.addListener("objects", second);
    other.addListener("x", second);
    other.addListener("", first);
    other.compileListeners();
    const JsonValue value{1};
    other.recordChange("/objects/x", &value, false);
    // The empty piece in front, and "x".
    EXPECT_EQ(first.heard.size(), 2);
    // "objects", and "x".
    EXPECT_EQ(second.heard.size(), 2);
}

TEST_F(ChangeManagerTest, commitAnnouncesOnlyItsOwnRecords) {
    record("/objects/a/name", 1);
    manager.beginGroup();
    manager.commit();
    recorder.heard.clear();
    manager.beginGroup();
    manager.commit();
    EXPECT_THAT(recorder.heard, IsEmpty());
    // Without an open group the changes without a group at the end of the log are announced once more.
    record("/objects/b/name", 2);
    recorder.heard.clear();
    manager.commit();
    EXPECT_EQ(recorder.heard.size(), 2);
}

TEST_F(ChangeManagerTest, undoInAnOpenGroupAborts) {
    record("/objects/a/name", 1);
    manager.beginGroup();
    EXPECT_EXIT(manager.undoLast(), KilledBySignal(SIGABRT),
        Eq("ChangeManager::undoLast(): Can't undo/redo changes in group. Forgot commit()?\n"));
    EXPECT_EXIT(manager.redoLast(), KilledBySignal(SIGABRT),
        Eq("ChangeManager::redoLast(): Can't undo/redo changes in group. Forgot commit()?\n"));
}

TEST_F(ChangeManagerTest, currentChangeOfAnEmptyLogAborts) {
    EXPECT_EXIT(manager.currentChange(), KilledBySignal(SIGABRT),
        Eq("Assertion _lastChange >= 0 && _lastChange < int(_changes.size()) failed at ChangeManager:375\n"));
}

TEST_F(ChangeManagerTest, changesWithUncompiledListenersAbort) {
    ChangeManager uncompiled{file};
    const JsonValue value{1};
    EXPECT_EXIT(uncompiled.recordChange("/objects/a/name", &value, false), KilledBySignal(SIGABRT),
        Eq("StaticMap::find(): Map needs to be compiled.\n"));
}

TEST_F(ChangeManagerTest, insertingUnderAWrongParentAborts) {
    const JsonValue value{1};
    EXPECT_EXIT(manager.recordChange("/objects/a/name/x", &value, false), KilledBySignal(SIGABRT),
        Eq("Assertion value.IsArray() failed at ChangeManager:285\n"));
}

TEST_F(ChangeManagerTest, undoOfAnInsertionRemovesAndPrunes) {
    parse(R"({"objects":{"a":{}}})");
    const JsonValue component{rapidjson::kObjectType};
    manager.recordChange("/objects/a/components/0", &component, false);
    EXPECT_EQ(document(), R"({"objects":{"a":{"components":[{}]}}})");
    manager.undoLast();
    // The emptied array goes, and the emptied object, but never a member of the root.
    EXPECT_EQ(document(), R"({"objects":{}})");
}

TEST_F(ChangeManagerTest, undoOfARemovedElementInsertsItWhereItWas) {
    parse(R"({"objects":{"a":{"components":[1,2,3]}}})");
    manager.recordChange("/objects/a/components/1", nullptr, false);
    EXPECT_EQ(at("/objects/a/components"), "[1,3]");
    manager.undoLast();
    EXPECT_EQ(at("/objects/a/components"), "[1,2,3]");
    manager.redoLast();
    EXPECT_EQ(at("/objects/a/components"), "[1,3]");
}

TEST_F(ChangeManagerTest, insertsAtTheEndAndBeyond) {
    parse(R"({"objects":{"a":{"components":[1]}}})");
    record("/objects/a/components/1", 2);
    EXPECT_EQ(at("/objects/a/components"), "[1,2]");
    record("/objects/a/components/4", 5);
    EXPECT_EQ(at("/objects/a/components"), "[1,2,null,null,5]");
}

TEST_F(ChangeManagerTest, redo) {
    manager.beginGroup();
    record("/objects/a/p", 1);
    record("/objects/a/q", 2);
    manager.commit();
    record("/objects/a/r", 3);
    record("/objects/a/s", 4);
    const std::string after = document();
    for(int i = 0; i != 3; ++i) manager.undoLast();
    EXPECT_FALSE(manager.canUndo());
    manager.redoLast();
    EXPECT_EQ(at("/objects/a/q"), "2");
    EXPECT_EQ(at("/objects/a/r"), "none");
    manager.redoLast();
    EXPECT_EQ(at("/objects/a/r"), "3");
    EXPECT_EQ(at("/objects/a/s"), "none");
    manager.redoLast();
    EXPECT_EQ(document(), after);
    EXPECT_FALSE(manager.canRedo());
    manager.redoLast();
    EXPECT_EQ(document(), after);
}

TEST_F(ChangeManagerTest, unsavedChanges) {
    EXPECT_FALSE(manager.hasUnsavedChanges());
    record("/objects/a/name", 1);
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.markSaved();
    EXPECT_FALSE(manager.hasUnsavedChanges());
    manager.undoLast();
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.redoLast();
    EXPECT_FALSE(manager.hasUnsavedChanges());
}

TEST_F(ChangeManagerTest, aNewChangeInThePlaceOfTheMarkResetsIt) {
    record("/objects/a/name", 1);
    manager.markSaved();
    manager.undoLast();
    record("/objects/a/name", 2);
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.undoLast();
    // The log looks as it did when the mark was reset, but that is not the state that was saved.
    EXPECT_TRUE(manager.hasUnsavedChanges());
}

TEST_F(ChangeManagerTest, aDiscardedMarkDoesNotComeBack) {
    for(int i = 0; i != 4; ++i) record("/objects/a/name", i);
    manager.markSaved();
    for(int i = 0; i != 3; ++i) manager.undoLast();
    // Three changes lead to the index of the mark again; the second would stand at it.
    for(int i = 0; i != 3; ++i) {
        record("/objects/b/name", i);
        EXPECT_TRUE(manager.hasUnsavedChanges()) << i;
    }
    EXPECT_EQ(manager.lastChange(), 3);
}

TEST_F(ChangeManagerTest, aMergeIntoTheMarkedRecordIsAnUnsavedChange) {
    record("/settings/x", 0);
    manager.beginGroup(1, false);
    record("/objects/a/name", 1, true);
    manager.commit();
    manager.markSaved();
    manager.beginGroup(1, true);
    record("/objects/a/name", 2, true);
    manager.commit();
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.undoLast();
    EXPECT_TRUE(manager.hasUnsavedChanges());
}

TEST_F(ChangeManagerTest, refusesPathsThatWouldDestroyValues) {
    const struct {
        const char *path, *line;
    } data[]{
        {"", "ChangeManager::recordChange(): cannot change : the root cannot be replaced\n"},
        {"objects", "ChangeManager::recordChange(): cannot change objects: the pointer is not valid\n"},
        {"/objects/a/name/x/y",
            "ChangeManager::recordChange(): cannot change /objects/a/name/x/y: it leads through a "
            "value that is neither an object nor an array\n"},
        {"/list/x/y",
            "ChangeManager::recordChange(): cannot change /list/x/y: it leads through an array with a token "
            "that is no index\n"},
        {"/list/-1",
            "ChangeManager::recordChange(): cannot change /list/-1: it leads through an array with a token "
            "that is no index\n"},
        {"/list/70000",
            "ChangeManager::recordChange(): cannot change /list/70000: an index is too far beyond the end "
            "of its array\n"},
    };
    parse(R"({"objects":{"a":{"name":"A"}},"list":[1]})");
    const std::string before = document();
    for(const auto& row: data) {
        Containers::String output;
        {
            Utility::Error redirection{&output};
            record(row.path, 1);
        }
        EXPECT_EQ(std::string(output), row.line);
        EXPECT_EQ(document(), before) << row.path;
        EXPECT_EQ(manager.lastChange(), -1);
    }
    // Removing what is not there is no error.
    manager.recordChange("/objects/a/name/x/y", nullptr, false);
    EXPECT_EQ(manager.lastChange(), 0);
}

}
