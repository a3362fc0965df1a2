#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "ChangeManager.h"

namespace {

using namespace Corrade;
using namespace VantrelEngine;
using Magnum::Matrix4;
using Magnum::Vector3;
using testing::ElementsAre;
using testing::IsEmpty;

std::string text(const JsonValue& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
    value.Accept(writer);
    return buffer.GetString();
}

// Allows what does not say "bad", and notes what it is told.
struct Guard: ProjectFile::EditGuard {
    std::string whyRefused(ProjectFile&, Containers::StringView pointer, const JsonValue* value) override {
        asked.push_back(std::string{pointer.data(), pointer.size()} + " " + (value ? text(*value) : "none"));
        return value && value->IsString() && value->GetString() == std::string{"bad"} ? "it is bad" : "";
    }
    void documentChanged() override { ++changes; }

    std::vector<std::string> asked;
    int changes = 0;
};

struct ChangeManagerHostTest: testing::Test {
    ChangeManagerHostTest() { manager.compileListeners(); }

    void parse(const char* json) {
        file.projectFile().Parse(json);
        ASSERT_FALSE(file.projectFile().HasParseError());
        file.membersChanged();
    }
    std::string document() { return text(file.projectFile()); }

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
    EXPECT_EQ(guard.changes, 0);
    file.setEditGuard(nullptr);
}

TEST_F(ChangeManagerHostTest, undoAndRedoAreNotAskedForButTold) {
    parse(R"({"a":{"b":"bad","c":1}})");
    Guard guard;
    file.setEditGuard(&guard);
    manager.undoLast();
    EXPECT_EQ(guard.changes, 0);
    manager.recordString("/a/b", "good", false);
    guard.asked.clear();
    manager.undoLast();
    EXPECT_EQ(document(), R"({"a":{"b":"bad","c":1}})");
    EXPECT_EQ(guard.changes, 1);
    manager.redoLast();
    EXPECT_EQ(guard.changes, 2);
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
        EXPECT_EQ(text(*file.valueByPointer("/a/scaling")), row.expected) << row.document;
    }
}

} // namespace
