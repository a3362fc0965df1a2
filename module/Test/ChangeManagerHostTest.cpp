#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ChangeManager.h"

#include "Support/JsonText.h"

namespace {

using namespace Corrade;
using namespace VantrelEngine;
using VantrelTest::jsonText;
using Magnum::Matrix4;
using Magnum::Vector3;
using testing::ElementsAre;
using testing::IsEmpty;

// Allows what does not say "bad", and notes what it is told.
struct Guard: ProjectFile::EditGuard {
    void adjust(Containers::StringView, JsonValue& value) override {
        if(value.IsInt() && value.GetInt() > 100) value.SetInt(100);
    }
    std::string whyRefused(const ProjectFile&, Containers::StringView pointer, const JsonValue* value) override {
        asked.push_back(std::string{pointer.data(), pointer.size()} + " " + (value ? jsonText(*value) : "none"));
        return value && value->IsString() && value->GetString() == std::string{"bad"} ? "it is bad" : "";
    }
    void changed(Containers::StringView pointer) override { told.emplace_back(pointer.data(), pointer.size()); }
    void documentChanged() override { told.push_back("all"); }

    std::vector<std::string> asked, told;
};

struct ChangeManagerHostTest: testing::Test {
    ChangeManagerHostTest() { manager.compileListeners(); }

    void parse(const char* json) {
        file.projectFile().Parse(json);
        ASSERT_FALSE(file.projectFile().HasParseError());
        file.membersChanged();
    }
    std::string document() { return jsonText(file.projectFile()); }

    ProjectFile file;
    ChangeManager manager{file};
};

TEST_F(ChangeManagerHostTest, theGuardIsAskedBeforeAnEditIsMade) {
    parse(R"({"a":{"b":"c"}})");
    Guard guard;
    file.setEditGuard(&guard);
    Containers::String errors;
    {
        Utility::Error redirected{&errors};
        manager.recordString("/a/b", "bad", false);
        manager.recordString("/a/x", "bad", true);
    }
    EXPECT_EQ(errors,
        "ChangeManager::recordChange(): cannot change /a/b: it is bad\n"
        "ChangeManager::recordChange(): cannot change /a/x: it is bad\n");
    EXPECT_EQ(document(), R"({"a":{"b":"c"}})");
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.hasUnsavedChanges());

    manager.recordString("/a/b", "good", false);
    manager.recordChange("/a/b", nullptr, false);
    EXPECT_THAT(guard.asked, ElementsAre("/a/b \"bad\"", "/a/x \"bad\"", "/a/b \"good\"", "/a/b none"));
    EXPECT_THAT(guard.told, ElementsAre("/a/b", "/a/b"));
    file.setEditGuard(nullptr);
}

TEST_F(ChangeManagerHostTest, theGuardMayBringAValueIntoItsRange) {
    parse(R"({"a":{"b":1}})");
    Guard guard;
    file.setEditGuard(&guard);
    const JsonValue large{200};
    manager.recordChange("/a/b", &large, false);
    EXPECT_EQ(document(), R"({"a":{"b":100}})");
    EXPECT_EQ(manager.currentChange().newValue->GetInt(), 100);
    EXPECT_THAT(guard.asked, ElementsAre("/a/b 100"));
    file.setEditGuard(nullptr);
}

TEST_F(ChangeManagerHostTest, aRemovalThatEmptiesWhatIsAroundItIsUndone) {
    const struct {
        const char* before;
        const char* path;
        const char* after;
    } rows[]{
        {R"({"s":{"r":{"b":{"x":1}}}})", "/s/r/b/x", R"({"s":{}})"},
        {R"({"s":{"r":{"b":{"x":1}},"t":2}})", "/s/r/b", R"({"s":{"t":2}})"},
        {R"({"o":{"a":{"c":[{"foo":[1]},{"bar":2}]}}})", "/o/a/c/0/foo/0", R"({"o":{"a":{"c":[{"bar":2}]}}})"},
        {R"({"o":{"a":{"c":[{"m":{"skin":""}}],"n":1}}})", "/o/a/c/0/m/skin", R"({"o":{"a":{"n":1}}})"},
        {R"({"o":{"a":{"c":[[[5]]]}}})", "/o/a/c/0/0/0", R"({"o":{}})"},
        {R"({"o":{"a":[1,2]}})", "/o/a/0", R"({"o":{"a":[2]}})"},
        {R"({"o":{"a~b":{"c/d":{"e":1}},"f":0}})", "/o/a~0b/c~1d/e", R"({"o":{"f":0}})"},
    };
    for(const auto& row: rows) {
        parse(row.before);
        JsonDocument before;
        before.Parse(row.before);
        for(int i = 0; i != 2; ++i) {
            if(i)
                manager.redoLast();
            else
                manager.recordChange(row.path, nullptr, false);
            EXPECT_EQ(document(), row.after) << row.path;
            manager.undoLast();
            EXPECT_TRUE(file.projectFile() == before) << row.path << " " << document();
        }
    }
}

TEST_F(ChangeManagerHostTest, aGroupThatEmptiesAContainerStepByStepIsUndone) {
    parse(R"({"o":{"a":{"c":[{"x":1,"y":2},{"z":[3]}]}}})");
    JsonDocument before;
    before.CopyFrom(file.projectFile(), before.GetAllocator());
    manager.beginGroup();
    for(const char* const path: {"/o/a/c/1/z/0", "/o/a/c/0/x", "/o/a/c/0/y"})
        manager.recordChange(path, nullptr, false);
    manager.commit();
    EXPECT_EQ(document(), R"({"o":{}})");
    manager.undoLast();
    EXPECT_TRUE(file.projectFile() == before) << document();
}

TEST_F(ChangeManagerHostTest, aMergedChangeThatRemovesInTheEndIsUndone) {
    parse(R"({"first":0,"s":{"r":{"b":{"x":1}}}})");
    const JsonValue other{5};
    manager.recordChange("/first", &other, false);
    const std::string before = document();
    manager.beginGroup();
    manager.recordChange("/s/r/b/x", &other, true);
    manager.recordChange("/s/r/b/x", nullptr, true);
    manager.commit();
    EXPECT_EQ(document(), R"({"first":5,"s":{}})");
    manager.undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(ChangeManagerHostTest, pointersAsFragmentsAreRefused) {
    parse(R"({"a":{"b":1}})");
    Containers::String errors;
    const JsonValue value{5};
    {
        Utility::Error redirected{&errors};
        manager.recordChange("#/a/b", &value, false);
        manager.recordChange("#/a/b", nullptr, false);
    }
    EXPECT_EQ(document(), R"({"a":{"b":1}})");
    EXPECT_EQ(errors,
        "ChangeManager::recordChange(): cannot change #/a/b: a pointer begins with \"/\"\n"
        "ChangeManager::recordChange(): cannot change #/a/b: a pointer begins with \"/\"\n");
}

TEST_F(ChangeManagerHostTest, thePathMayBeThatOfARecord) {
    parse(R"({"a":1})");
    const JsonValue value{5};
    manager.recordChange("/a", &value, false);
    for(int i = 0; i != 100; ++i) manager.recordChange(manager.currentChange().path, &value, false);
    for(const Change& change: manager.changes()) EXPECT_EQ(change.path, "/a");
}

TEST_F(ChangeManagerHostTest, aListenerMakesNoChanges) {
    struct Meddler: ChangeListener {
        void onChange(const Change&, Containers::ArrayView<const Containers::StringView>) override {
            manager->recordString("/a/c", "x", false);
        }
        ChangeManager* manager = nullptr;
    };
    parse(R"({"a":{}})");
    ChangeManager other{file};
    Meddler meddler;
    meddler.manager = &other;
    other.addListener("a", meddler);
    other.compileListeners();
    EXPECT_EXIT(other.recordString("/a/b", "y", false), testing::KilledBySignal(SIGABRT),
        testing::HasSubstr("ChangeManager::recordChange(): a listener cannot make changes"));
}

TEST_F(ChangeManagerHostTest, clearForgetsTheLog) {
    parse(R"({"a":{}})");
    manager.recordString("/a/b", "x", false);
    manager.recordString("/a/c", "x", false);
    manager.undoLast();
    manager.clear();
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
    EXPECT_FALSE(manager.hasUnsavedChanges());
    EXPECT_EQ(manager.changes().size(), 0u);
    manager.recordString("/a/d", "x", true);
    EXPECT_EQ(manager.lastChange(), 0);
    EXPECT_TRUE(manager.hasUnsavedChanges());
    manager.beginGroup();
    EXPECT_EXIT(manager.clear(), testing::KilledBySignal(SIGABRT), testing::HasSubstr("a group is open"));
    manager.commit();
}

TEST_F(ChangeManagerHostTest, membersThatWereRemovedLastFirstComeBackInTheirOrder) {
    const char* const before = R"({"objects":{"a":{"x":1},"b":2,"c":{},"d":4,"e":5}})";
    parse(before);
    manager.beginGroup();
    for(const char* path: {"/objects/e", "/objects/d", "/objects/c"}) manager.recordChange(path, nullptr, false);
    manager.commit();
    EXPECT_EQ(document(), R"({"objects":{"a":{"x":1},"b":2}})");
    manager.undoLast();
    EXPECT_EQ(document(), before);
    manager.redoLast();
    EXPECT_EQ(document(), R"({"objects":{"a":{"x":1},"b":2}})");
}

TEST_F(ChangeManagerHostTest, undoAndRedoAreNotAskedForButTold) {
    parse(R"({"a":{"b":"bad","c":1}})");
    Guard guard;
    file.setEditGuard(&guard);
    manager.undoLast();
    EXPECT_THAT(guard.told, IsEmpty());
    manager.beginGroup();
    manager.recordString("/a/b", "good", false);
    manager.recordString("/a/c", "good", false);
    manager.commit();
    guard.asked.clear();
    guard.told.clear();
    manager.undoLast();
    EXPECT_EQ(document(), R"({"a":{"b":"bad","c":1}})");
    EXPECT_THAT(guard.told, ElementsAre("/a/c", "/a/b"));
    guard.told.clear();
    manager.redoLast();
    EXPECT_THAT(guard.told, ElementsAre("/a/b", "/a/c"));
    EXPECT_THAT(guard.asked, IsEmpty());
    file.setEditGuard(nullptr);
}

TEST_F(ChangeManagerHostTest, aValueIsRecordedWithTheParentsThatItLacks) {
    const struct {
        const char* before;
        const char* path;
        const char* after;
        const char* recorded;
    } rows[]{
        {"{}", "/settings/rendering/clearColor", R"({"settings":{"rendering":{"clearColor":7}}})", "/settings"},
        {R"({"settings":{}})", "/settings/rendering/clearColor", R"({"settings":{"rendering":{"clearColor":7}}})",
            "/settings/rendering"},
        {R"({"settings":{"rendering":{"x":1}}})", "/settings/rendering/clearColor",
            R"({"settings":{"rendering":{"x":1,"clearColor":7}}})", "/settings/rendering/clearColor"},
        {R"({"settings":{"a":1}})", "/settings/a", R"({"settings":{"a":7}})", "/settings/a"},
        {"{}", "/a~1b/c~0d", R"({"a/b":{"c~d":7}})", "/a~1b"},
        {R"({"list":[1]})", "/list/1", R"({"list":[1,7]})", "/list/1"},
        {R"({"o":{"a":{"n":1}}})", "/o/a/c/0", R"({"o":{"a":{"n":1,"c":[7]}}})", "/o/a/c"},
        {R"({"o":{"a":{"n":1}}})", "/o/a/c/2/m", R"({"o":{"a":{"n":1,"c":[null,null,{"m":7}]}}})", "/o/a/c"},
        {R"({"o":{"a":{"n":1}}})", "/o/a/c/-", R"({"o":{"a":{"n":1,"c":[7]}}})", "/o/a/c"},
        {R"({"o":{"a":{"n":1}}})", "/o/a/c/07", R"({"o":{"a":{"n":1,"c":{"07":7}}}})", "/o/a/c"},
        {"{}", "/top", R"({"top":7})", "/top"},
    };
    for(const auto& row: rows) {
        parse(row.before);
        manager.recordWithParents(row.path, JsonValue{7}, false);
        EXPECT_EQ(document(), row.after) << row.path;
        EXPECT_EQ(manager.currentChange().path, row.recorded);
        manager.undoLast();
        EXPECT_EQ(document(), row.before) << row.path;
    }
}

TEST_F(ChangeManagerHostTest, aLargeObjectThatIsReplacedIsFoundAnew) {
    const auto members = [](const char* prefix) {
        std::string json = "{";
        for(int i = 0; i != 50; ++i)
            json += (i ? ",\"" : "\"") + std::string{prefix} + std::to_string(i) + "\":" + std::to_string(i);
        return json + "}";
    };
    parse(("{\"objects\":" + members("a") + "}").c_str());
    ASSERT_TRUE(file.valueByPointer("/objects/a7"));
    JsonDocument other;
    other.Parse(members("b").c_str());
    manager.recordChange("/objects", &other, false);
    EXPECT_FALSE(file.valueByPointer("/objects/a7"));
    ASSERT_TRUE(file.valueByPointer("/objects/b7"));
    EXPECT_EQ(file.valueByPointer("/objects/b7")->GetInt(), 7);
    manager.undoLast();
    EXPECT_TRUE(file.valueByPointer("/objects/a7"));
}

TEST_F(ChangeManagerHostTest, aZeroFactorOfTheScalingStaysZero) {
    const struct {
        const char* document;
        Vector3 scaling;
        const char* expected;
    } rows[]{
        {R"({"a":{"scaling":[0,1,2]}})", {SafeScaling, 1.0f, 2.0f}, "[0.0,1.0,2.0]"},
        {R"({"a":{"scaling":[0,0.0,-0.0]}})", {SafeScaling, SafeScaling, SafeScaling}, "[0.0,0.0,0.0]"},
        {R"({"a":{"scaling":[0,1,2]}})", {0.5f, 1.0f, 2.0f}, "[0.5,1.0,2.0]"},
        // What is small in the document itself is nobody's stand-in.
        {R"({"a":{"scaling":[0.0001,1,2]}})", {SafeScaling, 1.0f, 2.0f}, "[0.00009999999747378752,1.0,2.0]"},
        {R"({"a":{"name":"A"}})", {SafeScaling, 1.0f, 2.0f}, "[0.00009999999747378752,1.0,2.0]"},
        {R"({"a":{"scaling":"0"}})", {SafeScaling, 1.0f, 2.0f}, "[0.00009999999747378752,1.0,2.0]"},
    };
    for(const auto& row: rows) {
        parse(row.document);
        manager.recordTransform("/a", Matrix4::scaling(row.scaling), false);
        EXPECT_EQ(jsonText(*file.valueByPointer("/a/scaling")), row.expected) << row.document;
    }
}

} // namespace
