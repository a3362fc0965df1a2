#include "Data/Project/EditCheck.h"

#include <cmath>
#include <limits>
#include <random>
#include <set>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Project/ParentLinks.h"
#include "Data/Project/Test/DocumentTestSupport.h"

namespace {

using namespace VantrelEngine;
using testing::HasSubstr;

constexpr const char* OwnAncestor = "the object would become its own ancestor";

struct EditCheckTest: testing::Test {
    void open(const std::string& text) {
        JsonDocument document = parsed(text);
        file.projectFile().Swap(document);
        file.membersChanged();
        check.documentChanged();
    }

    // Asks, and makes the edit where it may be made.
    std::string edit(const std::string& pointer, const JsonValue& value) {
        const std::string reason = check.whyRefused(file, pointer, &value);
        if(!reason.empty()) return reason;
        file.createByPointer(pointer).CopyFrom(value, file.allocator());
        check.changed(pointer);
        return {};
    }
    std::string edit(const std::string& pointer, const std::string& json) { return edit(pointer, parsedValue(json)); }
    std::string remove(const std::string& pointer) {
        const std::string reason = check.whyRefused(file, pointer, nullptr);
        if(!reason.empty()) return reason;
        file.eraseByPointer(pointer);
        check.changed(pointer);
        return {};
    }
    std::string setParent(const std::string& id, const std::string& parent) {
        return edit("/objects/" + id + "/parent", "\"" + parent + "\"");
    }
    std::string insert(const std::string& id, const std::string& parent) {
        return edit("/objects/" + id, "{\"name\":\"\",\"parent\":\"" + parent + "\"}");
    }

    ProjectFile file;
    EditCheck check;
};

TEST_F(EditCheckTest, whatMayBeMade) {
    open(R"({"objects":{"a":{"name":"","parent":""},"b":{"name":"","parent":"a"}}})");
    for(const auto& [pointer, value]: std::vector<std::pair<std::string, std::string>>{{"/objects/a/name", "\"x\""},
            {"/objects/a/translation", "[1,2,3e38]"}, {"/objects/a/components", "[{}]"}, {"/objects/c", "{}"},
            {"/objects/a~1b~0 {}%", R"({"name":"","parent":"b"})"}, {"/objects/b/parent", "\"\""},
            {"/objects/b/parent", "\"gone\""}, {"/objects/7/parent", "\"b\""}, {"/settings/editor/camera/far", "1e39"},
            {"/settings/editor/camera", "{\"far\":-1e300}"}, {"/settings/rendering/bloom/kernelSize", "21"},
            {"/settings/rendering/bloom", "{\"kernelSize\":0}"}, {"/settings/rendering/bloom/kernelSize", "\"x\""},
            {"/settings/rendering/hdr/kernelSize", "99"}, {"/settings/rendering/bloom/kernelSize/x", "99"},
            {"/other", "1"}, {"/other", "{\"kernelSize\":99}"}, {"/materials", "{}"}, {"/objects", "{}"}})
        EXPECT_EQ(check.whyRefused(file, pointer, std::make_unique<JsonDocument>(parsedValue(value)).get()), "")
            << pointer << value;
    for(const char* pointer: {"/objects/a", "/objects/gone", "/objects/a/parent", "/settings", "/meshes", "/other"})
        EXPECT_EQ(check.whyRefused(file, pointer, nullptr), "") << pointer;
}

TEST_F(EditCheckTest, whatMayNot) {
    open(R"({"objects":{"a":{"name":"","parent":""},"b":{"name":"","parent":"a"}}})");
    for(const auto& [pointer, value, reason]: std::vector<std::tuple<std::string, std::string, std::string>>{
            {"objects", "1", "the pointer is not valid"}, {"", "{}", "a project is not edited as a whole"},
            {"/objects", "[]", "a section is an object"}, {"/objects", "null", "a section is an object"},
            {"/settings", "1", "a section is an object"}, {"/fonts", "\"\"", "a section is an object"},
            {"/objects", R"({"a":1})", "a: an object of the scene is a JSON object"},
            {"/objects", R"({"":{}})", ": an object has an id that is not empty"},
            {"/objects", R"({"x":{},"a":{"parent":"b"},"b":{"parent":"a"}})", std::string{"a: "} + OwnAncestor},
            {"/objects/a", "[]", "an object of the scene is a JSON object"},
            {"/objects/c", "null", "an object of the scene is a JSON object"},
            {"/objects/", "{}", "an object has an id that is not empty"},
            {"/objects//name", "\"\"", "an object has an id that is not empty"},
            {"/objects/a", R"({"parent":1})", "parent is a text"}, {"/objects/a", R"({"name":[]})", "name is a text"},
            {"/objects/a/parent", "null", "parent is a text"}, {"/objects/a/name", "{}", "name is a text"},
            {"/objects/c/parent/0", "\"\"", "parent is a text"}, {"/objects/c/name/x", "\"\"", "name is a text"},
            {"/objects/a/parent", "\"a\"", OwnAncestor}, {"/objects/a/parent", "\"b\"", OwnAncestor},
            {"/objects/c/parent", "\"c\"", OwnAncestor}, {"/objects/c", R"({"parent":"c"})", OwnAncestor},
            {"/objects/a", R"({"parent":"b"})", OwnAncestor},
            {"/objects/a/translation/0", "1e39", "the number is too large for a float"},
            {"/objects/a/translation", "[0,-1e39,0]", "1: the number is too large for a float"},
            {"/objects/a/components", R"([{"light":{"color":[0,1e300]}}])",
                "0/light/color/1: the number is too large for a float"},
            {"/settings/x", "1e39", "the number is too large for a float"},
            {"/settings/far", "{\"x\":1e39}", "x: the number is too large for a float"},
            {"/settings/far", "[1e39]", "0: the number is too large for a float"},
            {"/settings/x", R"({"a":{"b":1,"c":2,"b":3}})", "a/b: the key stands there twice"},
            {"/other/\xff", "1", "a key is not UTF-8"}})
        EXPECT_EQ(check.whyRefused(file, pointer, std::make_unique<JsonDocument>(parsedValue(value)).get()), reason)
            << pointer << value;
    EXPECT_EQ(remove("/objects"), "a project always has \"objects\"");
    EXPECT_EQ(remove(""), "a project is not edited as a whole");
}

TEST_F(EditCheckTest, theSizeOfTheBloomKernelIsBroughtIntoItsRange) {
    const struct {
        const char* pointer;
        const char* value;
        const char* adjusted;
    } rows[]{
        {"/settings/rendering/bloom/kernelSize", "22", "21.0"},
        {"/settings/rendering/bloom/kernelSize", "-0.5", "0.0"},
        {"/settings/rendering/bloom", R"({"passes":3,"kernelSize":1e300})", R"({"passes":3,"kernelSize":21.0})"},
        {"/settings/rendering", R"({"bloom":{"kernelSize":22}})", R"({"bloom":{"kernelSize":21.0}})"},
        {"/settings", R"({"rendering":{"bloom":{"kernelSize":22}}})", R"({"rendering":{"bloom":{"kernelSize":21.0}}})"},
        {"/settings/rendering/bloom/kernelSize", "21", "21"},
        {"/settings/rendering/bloom/kernelSize", "\"x\"", "\"x\""},
        {"/settings/rendering/bloom/kernelSize/x", "99", "99"},
        {"/settings/rendering/bloom/passes", "99", "99"},
        {"/other", R"({"rendering":{"bloom":{"kernelSize":22}}})", R"({"rendering":{"bloom":{"kernelSize":22}}})"},
    };
    for(const auto& row: rows) {
        JsonDocument value = parsedValue(row.value);
        Corrade::Containers::String lines;
        {
            Corrade::Utility::Warning redirected{&lines};
            check.adjust(row.pointer, value);
        }
        EXPECT_EQ(jsonText(value), row.adjusted) << row.pointer;
        EXPECT_EQ(lines.isEmpty(), row.value == std::string{row.adjusted}) << lines.data();
    }
}

TEST_F(EditCheckTest, numbersThatAreNotFinite) {
    for(const double number: {std::nan(""), std::numeric_limits<double>::infinity()})
        for(const char* key: {"/settings/x", "/settings/far"}) {
            JsonDocument value;
            value.SetDouble(number);
            EXPECT_EQ(edit(key, value), "the number is not finite");
        }
}

TEST_F(EditCheckTest, textThatIsNotUtf8) {
    JsonDocument value;
    value.SetString("\xff");
    EXPECT_EQ(edit("/settings/x", value), "the text is not UTF-8");
    JsonDocument object{rapidjson::kObjectType};
    object.AddMember("\xc3", 1, object.GetAllocator());
    EXPECT_EQ(edit("/settings/x", object), "a key is not UTF-8");
}

TEST_F(EditCheckTest, nesting) {
    const auto arrays = [](std::size_t count) { return repeated("[", count) + repeated("]", count); };
    const std::string deep = "more than 512 objects and arrays inside of each other";
    EXPECT_EQ(check.whyRefused(file, "/x", std::make_unique<JsonDocument>(parsedValue(arrays(511))).get()), "");
    EXPECT_THAT(edit("/x", arrays(512)), HasSubstr(deep));
    EXPECT_EQ(check.whyRefused(file, "/x/y/z", std::make_unique<JsonDocument>(parsedValue(arrays(509))).get()), "");
    EXPECT_THAT(edit("/x/y/z", arrays(510)), HasSubstr(deep));
    EXPECT_EQ(check.whyRefused(file, repeated("/x", 512), std::make_unique<JsonDocument>(parsedValue("1")).get()), "");
    EXPECT_EQ(edit(repeated("/x", 513), "1"), deep);
    EXPECT_EQ(edit(repeated("/x", 512), "{}"), deep);
}

TEST_F(EditCheckTest, asManyObjectsAsThereCanBe) {
    open(R"({"objects":{}})");
    JsonDocument objects = parsedValue("{}");
    for(int i = 0; i != 65534; ++i)
        objects.AddMember(JsonValue{std::to_string(i).c_str(), objects.GetAllocator()},
            JsonValue{rapidjson::kObjectType}, objects.GetAllocator());
    EXPECT_EQ(file.roomForObjects(), 65534u);
    EXPECT_EQ(edit("/objects", objects), "");
    EXPECT_EQ(file.roomForObjects(), 0u);
    for(const char* pointer: {"/objects/new", "/objects/new/components"})
        EXPECT_EQ(edit(pointer, "{}"), "a project has at most 65534 objects");
    EXPECT_EQ(edit("/objects/7", "{}"), "");
    EXPECT_EQ(edit("/objects/7/name", "\"x\""), "");
    EXPECT_EQ(remove("/objects/7"), "");
    EXPECT_EQ(file.roomForObjects(), 1u);
    EXPECT_EQ(edit("/objects/new", "{}"), "");
    EXPECT_EQ(file.roomForObjects(), 0u);
    objects.AddMember("new", JsonValue{rapidjson::kObjectType}, objects.GetAllocator());
    EXPECT_EQ(edit("/objects", objects), "a project has at most 65534 objects");
}

TEST_F(EditCheckTest, objectsThatWereNamedBeforeTheyCame) {
    open(R"({"objects":{"a":{"parent":"late"},"b":{"parent":"a"}}})");
    EXPECT_EQ(insert("late", "b"), OwnAncestor);
    EXPECT_EQ(insert("late", "later"), "");
    EXPECT_EQ(insert("later", "b"), OwnAncestor);
    EXPECT_EQ(insert("later", ""), "");
    EXPECT_EQ(setParent("later", "b"), OwnAncestor);
    EXPECT_EQ(remove("/objects/late"), "");
    EXPECT_EQ(setParent("later", "b"), "");
    EXPECT_EQ(insert("late", "later"), OwnAncestor);
    EXPECT_EQ(remove("/objects/later/parent"), "");
    EXPECT_EQ(insert("late", "later"), "");
}

TEST_F(EditCheckTest, aDocumentThatChangedOtherwise) {
    open(R"({"objects":{"a":{"parent":""},"b":{"parent":"a"},"c":{"parent":""}}})");
    EXPECT_EQ(setParent("a", "c"), "");
    EXPECT_EQ(setParent("c", "b"), OwnAncestor);
    file.valueByPointer("/objects/a/parent")->SetString("");
    check.documentChanged();
    EXPECT_EQ(setParent("c", "b"), "");
    file.valueByPointer("/objects/c/parent")->SetString("");
    file.valueByPointer("/objects/b/parent")->SetString("c");
    check.documentChanged();
    EXPECT_EQ(setParent("c", "b"), OwnAncestor);
}

TEST_F(EditCheckTest, objectsThatAreReplacedAllAtOnce) {
    open(R"({"objects":{"a":{"parent":""},"b":{"parent":"a"}}})");
    EXPECT_EQ(setParent("a", "b"), OwnAncestor);
    EXPECT_EQ(edit("/objects", R"({"a":{"parent":"b"},"b":{"parent":""}})"), "");
    EXPECT_EQ(setParent("a", "b"), "");
    EXPECT_EQ(setParent("b", "a"), OwnAncestor);
}

TEST_F(EditCheckTest, aChainOfAllObjectsThatIsPasted) {
    open(R"({"objects":{}})");
    for(int i = 0; i != 65534; ++i) ASSERT_EQ(insert(std::to_string(i), i ? std::to_string(i - 1) : ""), "");
    EXPECT_EQ(setParent("0", "65533"), OwnAncestor);
    EXPECT_EQ(setParent("65533", "7"), "");
}

// Whatever the order of edits, a cycle comes in never, and everything else always.
TEST_F(EditCheckTest, randomEdits) {
    std::mt19937 random{1};
    std::size_t refused = 0, made = 0;
    for(int run = 0; run != 40; ++run) {
        open(R"({"objects":{}})");
        const unsigned ids = 2 + random() % 12;
        for(int step = 0; step != 400; ++step) {
            const std::string id = std::to_string(random() % ids);
            const std::string parent = random() % 6 ? std::to_string(random() % ids) : "";
            const unsigned action = random() % 10;
            if(action == 0) {
                ASSERT_EQ(remove("/objects/" + id), "");
                continue;
            }
            if(action == 1) {
                ASSERT_EQ(remove("/objects/" + id + "/parent"), "");
                continue;
            }
            if(action == 2) {
                file.eraseByPointer("/objects/" + id);
                check.documentChanged();
                continue;
            }
            const bool whole = random() % 2;
            // Plainly: make it, and look.
            JsonDocument objects;
            objects.CopyFrom(file.projectFile()["objects"], objects.GetAllocator());
            objects.RemoveMember(id.c_str());
            objects.AddMember(JsonValue{id.c_str(), objects.GetAllocator()},
                parsedValue("{\"parent\":\"" + parent + "\"}"), objects.GetAllocator());
            const bool isCycle = !ParentLinks{objects}.cycles().empty();
            // An edit may still fail for another reason; nothing was changed then.
            const std::string reason = whole
                ? check.whyRefused(file, "/objects/" + id,
                      std::make_unique<JsonDocument>(parsedValue("{\"parent\":\"" + parent + "\"}")).get())
                : check.whyRefused(file, "/objects/" + id + "/parent",
                      std::make_unique<JsonDocument>(parsedValue("\"" + parent + "\"")).get());
            ASSERT_EQ(reason, isCycle ? OwnAncestor : "") << run << " " << step << ": " << id << " under " << parent;
            ++(isCycle ? refused : made);
            if(isCycle || random() % 8 == 0) continue;
            const std::string pointer = "/objects/" + id + "/parent";
            file.createByPointer(pointer).SetString(parent.c_str(), file.allocator());
            check.changed(random() % 2 ? pointer : "/objects/" + id);
        }
    }
    EXPECT_GT(refused, 1000u);
    EXPECT_GT(made, 1000u);
}

} // namespace
