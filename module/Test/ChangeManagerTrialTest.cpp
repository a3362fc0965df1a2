#include <csignal>
#include <random>
#include <string>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gtest/gtest.h>

#include "ChangeManager.h"

#include "Support/JsonText.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::jsonText;

struct ChangeManagerTrialTest: testing::Test {
    ChangeManagerTrialTest() {
        file.projectFile().Parse(R"({"objects":{"a":{"value":0,"other":0}}})");
        file.membersChanged();
        manager.compileListeners();
    }
    void record(const char* path, int value, bool merge = false) {
        const JsonValue json{value};
        manager.recordChange(path, &json, merge);
    }
    void recordGroup(const char* path, int value, bool isUnderWay) {
        manager.beginGroup(7, isUnderWay);
        record(path, value, true);
        manager.commit();
    }
    // Everything that a trial which is dropped has to leave as it was.
    std::string state() {
        std::string text = jsonText(file.projectFile()) + " at " + std::to_string(manager.lastChange()) +
            (manager.hasUnsavedChanges() ? " unsaved " : " saved ") + std::to_string(manager.firstUnseen());
        for(const Change& change: manager.changes())
            text += '\n' + std::string(change.path) + ' ' + std::to_string(change.group) + ' ' +
                (change.oldValue ? jsonText(*change.oldValue) : "none") + ' ' +
                (change.newValue ? jsonText(*change.newValue) : "none");
        return text;
    }

    ProjectFile file;
    ChangeManager manager{file};
};

TEST_F(ChangeManagerTrialTest, aPartOfATrialCanBeTakenBack) {
    record("/objects/a/value", 1);
    record("/objects/a/value", 2);
    manager.undoLast();
    const std::string before = state();
    manager.beginTrial(Trial::Preview);
    record("/objects/b", 1);
    const std::int32_t first = manager.lastChange();
    const std::string withFirst = state();
    recordGroup("/objects/a/value", 10, false);
    recordGroup("/objects/c", 11, false);
    manager.rewindTrial(first);
    EXPECT_EQ(state(), withFirst);
    EXPECT_EQ(manager.trial(), Trial::Preview);
    manager.rewindTrial(first);
    EXPECT_EQ(state(), withFirst);

    // What comes after it is one step with what is left.
    recordGroup("/objects/a/value", 12, false);
    manager.keepTrial();
    EXPECT_EQ(manager.lastChange(), 2);
    EXPECT_FALSE(manager.canRedo());
    manager.undoLast();
    EXPECT_EQ(manager.lastChange(), 0);

    manager.redoLast();
    manager.undoLast();
    manager.undoLast();
    record("/objects/a/value", 1);
    record("/objects/a/value", 2);
    manager.undoLast();
    manager.beginTrial(Trial::Preview);
    record("/objects/b", 1);
    manager.rewindTrial(0);
    manager.dropTrial();
    EXPECT_EQ(state(), before);
}

TEST_F(ChangeManagerTrialTest, whatIsNotOnTrialCannotBeTakenBackWithIt) {
    record("/objects/a/value", 1);
    EXPECT_EXIT(manager.rewindTrial(0), testing::KilledBySignal(SIGABRT), "this is not on trial");
    manager.beginTrial(Trial::Preview);
    record("/objects/a/value", 2);
    EXPECT_EXIT(manager.rewindTrial(-1), testing::KilledBySignal(SIGABRT), "this is not on trial");
    EXPECT_EXIT(manager.rewindTrial(2), testing::KilledBySignal(SIGABRT), "this is not on trial");
    manager.beginGroup();
    EXPECT_EXIT(manager.rewindTrial(0), testing::KilledBySignal(SIGABRT), "Forgot commit");
}

TEST_F(ChangeManagerTrialTest, whatIsDroppedNeverWas) {
    record("/objects/a/value", 1);
    record("/objects/a/value", 2);
    manager.markSaved();
    record("/objects/a/value", 3);
    manager.undoLast();
    manager.undoLast();
    manager.markSeen();
    const std::string before = state();

    manager.beginTrial(Trial::Gesture);
    EXPECT_EQ(manager.trial(), Trial::Gesture);
    recordGroup("/objects/a/value", 10, false);
    recordGroup("/objects/a/value", 11, true);
    recordGroup("/objects/a/other", 12, true);
    EXPECT_FALSE(manager.canRedo());
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.dropTrial();

    EXPECT_EQ(state(), before);
    EXPECT_EQ(manager.trial(), Trial::None);
    manager.redoLast();
    EXPECT_FALSE(manager.hasUnsavedChanges()) << "the state that was saved is reached by redo again";
    manager.redoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":3,"other":0}}})");
}

TEST_F(ChangeManagerTrialTest, whatIsKeptIsOneStepAndEndsWhatCouldBeRedone) {
    record("/objects/a/value", 1);
    record("/objects/a/value", 2);
    manager.undoLast();
    manager.beginTrial(Trial::Preview);
    record("/objects/a/other", 5);
    recordGroup("/objects/a/value", 6, false);
    record("/objects/a/other", 7);
    manager.keepTrial();
    EXPECT_EQ(manager.trial(), Trial::None);
    EXPECT_FALSE(manager.canRedo());
    manager.undoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":1,"other":0}}})");
    EXPECT_EQ(manager.lastChange(), 0);
    manager.redoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":6,"other":7}}})");
}

TEST_F(ChangeManagerTrialTest, aSingleGroupKeepsItsNumberAndASingleChangeStaysAlone) {
    manager.beginTrial(Trial::Gesture);
    recordGroup("/objects/a/value", 6, false);
    recordGroup("/objects/a/other", 7, true);
    const std::int32_t group = manager.currentChange().group;
    manager.keepTrial();
    EXPECT_EQ(manager.changes()[0].group, group);
    EXPECT_EQ(manager.changes()[1].group, group);

    manager.beginTrial(Trial::Gesture);
    record("/objects/a/other", 8);
    manager.keepTrial();
    EXPECT_EQ(manager.currentChange().group, -1);
}

TEST_F(ChangeManagerTrialTest, anEmptyOneLeavesWhatCanBeRedone) {
    record("/objects/a/value", 1);
    manager.markSaved();
    manager.undoLast();
    manager.markSeen();
    const std::string before = state();
    manager.beginTrial(Trial::Gesture);
    EXPECT_FALSE(manager.canRedo());
    manager.redoLast();
    EXPECT_EQ(manager.lastChange(), -1) << "nothing is redone during a trial";
    manager.keepTrial();
    EXPECT_EQ(state(), before);
    manager.beginTrial(Trial::Preview);
    manager.undoLast();
    EXPECT_EQ(state(), before);
}

TEST_F(ChangeManagerTrialTest, undoDropsIt) {
    record("/objects/a/value", 1);
    manager.beginTrial(Trial::Preview);
    recordGroup("/objects/a/value", 2, false);
    manager.undoLast();
    EXPECT_EQ(manager.trial(), Trial::None);
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":1,"other":0}}})");
    EXPECT_FALSE(manager.canRedo());
}

TEST_F(ChangeManagerTrialTest, anotherOneKeepsTheFirst) {
    manager.beginTrial(Trial::Preview);
    record("/objects/a/value", 1);
    manager.beginTrial(Trial::Gesture);
    record("/objects/a/value", 2);
    manager.dropTrial();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":1,"other":0}}})");
    manager.dropTrial();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":1,"other":0}}})") << "there is none";
    manager.beginTrial(Trial::Gesture);
    manager.clear();
    EXPECT_EQ(manager.trial(), Trial::None);
}

std::vector<Change> logOf(ChangeManager& manager) {
    std::vector<Change> log;
    JsonAllocator allocator;
    for(const Change& change: manager.changes()) {
        log.emplace_back();
        log.back().path = change.path;
        log.back().group = change.group;
        if(change.oldValue) log.back().oldValue.emplace(*change.oldValue, allocator);
        if(change.newValue) log.back().newValue.emplace(*change.newValue, allocator);
    }
    return log;
}

TEST_F(ChangeManagerTrialTest, aLogIsPutInPlace) {
    record("/objects/a/value", 1);
    recordGroup("/objects/a/other", 2, false);
    manager.beginGroup();
    record("/objects/a/value", 3);
    record("/objects/a/other", 4);
    manager.commit();
    manager.undoLast();
    const std::string before = state();
    std::vector<Change> log = logOf(manager);
    const std::int32_t last = manager.lastChange();
    manager.clear();
    manager.restore(std::move(log), last);
    EXPECT_EQ(manager.firstUnseen(), 0);
    EXPECT_EQ(state(), before);
    manager.redoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":3,"other":4}}})");
    // A new group is none of those that are there.
    manager.beginGroup();
    record("/objects/a/value", 5);
    manager.commit();
    manager.undoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":3,"other":4}}})");
    while(manager.canUndo()) manager.undoLast();
    EXPECT_EQ(jsonText(file.projectFile()), R"({"objects":{"a":{"value":0,"other":0}}})");
    EXPECT_DEATH(manager.restore({}, -1), "restore\\(\\): the log is not empty");
    manager.clear();
    EXPECT_DEATH(manager.restore({}, 0), "restore\\(\\): there is no change 0");
}

TEST_F(ChangeManagerTrialTest, withAnOpenGroupTheyAbort) {
    manager.beginGroup();
    EXPECT_DEATH(manager.beginTrial(Trial::Gesture), "beginTrial\\(\\): a group is open");
    EXPECT_DEATH(manager.keepTrial(), "keepTrial\\(\\): a group is open");
    EXPECT_DEATH(manager.dropTrial(), "dropTrial\\(\\): a group is open");
}

TEST_F(ChangeManagerTrialTest, unseenRecords) {
    record("/objects/a/value", 1);
    record("/objects/a/value", 2);
    record("/objects/a/value", 3);
    EXPECT_EQ(manager.firstUnseen(), 0);
    manager.markSeen();
    EXPECT_EQ(manager.firstUnseen(), 3);
    manager.undoLast();
    manager.undoLast();
    EXPECT_EQ(manager.firstUnseen(), 3) << "they are still the same";
    record("/objects/a/other", 4);
    EXPECT_EQ(manager.firstUnseen(), 1);
    manager.markSeen();
    manager.beginGroup(1, false);
    record("/objects/a/value", 5, true);
    record("/objects/a/value", 6, true);
    manager.commit();
    manager.markSeen();
    manager.beginGroup(1, true);
    record("/objects/a/value", 7, true);
    manager.commit();
    EXPECT_EQ(manager.firstUnseen(), 2) << "a merged record is another one";
}

TEST_F(ChangeManagerTrialTest, randomOnesLeaveNoTraceWhereTheyAreDropped) {
    std::mt19937 random{3};
    const char* const paths[]{"/objects/a/value", "/objects/a/other", "/objects/b", "/objects/a"};
    // Merging reorders records, so that a group has either values or whole objects.
    const auto editValue = [&](bool merges) {
        const JsonValue json{int(random() % 100)};
        if(file.valueByPointer("/objects/a")) manager.recordChange(paths[random() % 2], &json, merges);
    };
    const auto editObject = [&] {
        const char* const path = paths[2 + random() % 2];
        JsonDocument object;
        object.Parse(R"({"value":1,"other":2})");
        manager.recordChange(path, file.valueByPointer(path) ? nullptr : &object, false);
    };
    const auto editSome = [&] {
        const bool isGroup = random() % 3;
        const bool isOfValues = random() % 2;
        const bool merges = random() % 4;
        if(isGroup) manager.beginGroup(isOfValues, isOfValues && random() % 2);
        for(unsigned i = random() % 6; i; --i) isOfValues ? editValue(merges) : editObject();
        if(isGroup) manager.commit();
    };
    for(int i = 0; i != 400; ++i) {
        editSome();
        for(unsigned undone = random() % 4; undone; --undone) manager.undoLast();
        if(random() % 5 == 0) manager.markSaved();
        if(random() % 5 == 0) manager.markSeen();
        const std::string before = state();
        manager.beginTrial(random() % 2 ? Trial::Gesture : Trial::Preview);
        for(unsigned groups = random() % 4; groups; --groups) editSome();
        manager.dropTrial();
        JsonDocument then, now;
        then.Parse(before.substr(0, before.find(" at ")).data());
        now.Parse(jsonText(file.projectFile()).data());
        // Members aside, whose order a removal does not keep.
        ASSERT_TRUE(static_cast<const JsonValue&>(then) == static_cast<const JsonValue&>(now)) << i;
        const std::string after = state();
        ASSERT_EQ(after.substr(after.find(" at ")), before.substr(before.find(" at "))) << i;
    }
}

}
