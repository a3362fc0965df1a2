#include "JsonEdit.h"

#include <string>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Support/JsonText.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::jsonText;

TEST(JsonEditTest, splitLast) {
    const struct {
        const char *path, *parent, *token;
    } data[]{{"/a/b", "/a", "b"}, {"/a", "", "a"}, {"/a/", "/a", ""}, {"/", "", ""}, {"", "", ""}, {"a", "", "a"}};
    for(const auto& row: data) {
        EXPECT_EQ(std::string(splitLast(row.path).parent), row.parent) << row.path;
        EXPECT_EQ(std::string(splitLast(row.path).token), row.token) << row.path;
    }
}

TEST(JsonEditTest, isIndexToken) {
    for(const char* token: {"0", "12", "007", "-1", "-0", "99999999999999999999"})
        EXPECT_TRUE(isIndexToken(token)) << token;
    for(const char* token: {"", "-", "--1", "1a", "a1", "1-", "+1", " 1", "1.0"})
        EXPECT_FALSE(isIndexToken(token)) << token;
}

struct EditTest: testing::Test {
    void parse(const char* json) {
        file.projectFile().Parse(json);
        ASSERT_FALSE(file.projectFile().HasParseError()) << json;
        file.membersChanged();
    }
    JsonValue value(const char* json) {
        JsonDocument document;
        document.Parse(json);
        return JsonValue{document, file.allocator()};
    }

    ProjectFile file;
};

TEST_F(EditTest, insertValue) {
    const struct {
        const char *before, *path, *after;
    } data[]{
        // A member, also when the object's keys look like indices.
        {R"({"a":{}})", "/a/b", R"({"a":{"b":7}})"},
        {R"({"a":{}})", "/a/3", R"({"a":{"3":7}})"},
        {"{}", "/a", R"({"a":7})"},
        // Before an element, at the end, and beyond it.
        {R"({"a":[1,2,3]})", "/a/0", R"({"a":[7,1,2,3]})"},
        {R"({"a":[1,2,3]})", "/a/1", R"({"a":[1,7,2,3]})"},
        {R"({"a":[1,2,3]})", "/a/3", R"({"a":[1,2,3,7]})"},
        {R"({"a":[1,2,3]})", "/a/5", R"({"a":[1,2,3,null,null,7]})"},
        {R"({"a":[]})", "/a/0", R"({"a":[7]})"},
        // A missing parent becomes an array for an index.
        {"{}", "/a/0", R"({"a":[7]})"},
        {R"({"b":{}})", "/b/c/1", R"({"b":{"c":[null,7]}})"},
    };
    for(const auto& row: data) {
        parse(row.before);
        insertValue(file, row.path, JsonValue{7});
        EXPECT_EQ(jsonText(file.projectFile()), row.after) << row.before << " " << row.path;
    }
}

TEST_F(EditTest, insertValueMakesAParentThatOnlyTheDefaultsKnow) {
    const auto setDefaults = [&] {
        JsonDocument defaults;
        defaults.Parse(R"({"settings":{"near":0.1,"list":[1],"group":{"x":1}}})");
        file.setDefaults(std::move(defaults));
    };
    setDefaults();
    parse("{}");
    insertValue(file, "/settings/near", JsonValue{7});
    EXPECT_EQ(jsonText(file.projectFile()), R"({"settings":{"near":7}})");
    // For an index token the parent would else have become an array.
    JsonDocument numbered;
    numbered.Parse(R"({"settings":{"0":5}})");
    file.setDefaults(std::move(numbered));
    parse("{}");
    insertValue(file, "/settings/0", JsonValue{7});
    EXPECT_EQ(jsonText(file.projectFile()), R"({"settings":{"0":7}})");
    // A default that is an object or an array makes no parent.
    setDefaults();
    parse("{}");
    EXPECT_EXIT(insertValue(file, "/settings/list", JsonValue{7}), testing::KilledBySignal(SIGABRT),
        testing::Eq("Assertion value.IsArray() failed at ChangeManager:285\n"));
    EXPECT_EXIT(insertValue(file, "/settings/group", JsonValue{7}), testing::KilledBySignal(SIGABRT),
        testing::Eq("Assertion value.IsArray() failed at ChangeManager:285\n"));
}

TEST_F(EditTest, insertValueAbortsWithoutAParentThatTakesIt) {
    const struct {
        const char *document, *path;
    } data[]{{R"({"a":1})", "/a/b"}, {R"({"a":1})", "/a/0"}, {R"({"a":[1]})", "/a/b"}, {R"({"a":[1]})", "/a/-"},
        {"{}", "/a/b"}, {R"({"a":null})", "/a/0"}};
    for(const auto& row: data) {
        parse(row.document);
        EXPECT_EXIT(insertValue(file, row.path, JsonValue{7}), testing::KilledBySignal(SIGABRT),
            testing::Eq("Assertion value.IsArray() failed at ChangeManager:285\n"))
            << row.document << " " << row.path;
    }
}

TEST_F(EditTest, valuesAreDeepCopies) {
    parse("{}");
    {
        const JsonValue inserted = value(R"({"x":["a text that is long enough to be on the heap"]})");
        insertValue(file, "/a", inserted);
        const JsonValue replaced = value(R"(["another text that is long enough to be on the heap"])");
        replaceValue(file, "/a/x", replaced);
    }
    EXPECT_EQ(jsonText(file.projectFile()), R"({"a":{"x":["another text that is long enough to be on the heap"]}})");
}

TEST_F(EditTest, eraseValue) {
    const struct {
        const char *before, *path, *after;
    } data[]{
        {R"({"a":{"b":1,"c":2}})", "/a/b", R"({"a":{"c":2}})"},
        {R"({"a":[1,2,3]})", "/a/1", R"({"a":[1,3]})"},
        // Emptied containers go, up to the one below the root.
        {R"({"objects":{"x":{"components":[{"type":"mesh"}]}}})", "/objects/x/components/0", R"({"objects":{}})"},
        {R"({"objects":{"x":{"name":"n","components":[1]}}})", "/objects/x/components/0",
            R"({"objects":{"x":{"name":"n"}}})"},
        {R"({"a":{"b":[[1]]}})", "/a/b/0/0", R"({"a":{}})"},
        {R"({"a":1})", "/a", "{}"},
        {R"({"a":[1]})", "/a/0", R"({"a":[]})"},
        // What is not there needs no removal, but an empty parent is still pruned.
        {R"({"a":{"b":{}}})", "/a/b/c", R"({"a":{}})"},
        {R"({"a":{"b":1}})", "/a/c", R"({"a":{"b":1}})"},
        // A scalar on the way is no empty container.
        {R"({"a":{"b":0}})", "/a/b/c", R"({"a":{"b":0}})"},
    };
    for(const auto& row: data) {
        parse(row.before);
        eraseValue(file, row.path);
        EXPECT_EQ(jsonText(file.projectFile()), row.after) << row.before << " " << row.path;
    }
}

}
