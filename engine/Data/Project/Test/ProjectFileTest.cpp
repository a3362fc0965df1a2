#include "Vantrel/EngineData/ProjectFile.h"

#include <random>
#include <string>

#include <Corrade/Containers/StringStl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/pointer.h>

#include "Support/JsonText.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::jsonText;

struct ProjectFileTest: testing::Test {
    void parse(const char* json) {
        file.projectFile().Parse(json);
        ASSERT_FALSE(file.projectFile().HasParseError()) << json;
        file.membersChanged();
    }

    ProjectFile file;
};

TEST_F(ProjectFileTest, startsAsAnEmptyObject) {
    EXPECT_EQ(jsonText(file.projectFile()), "{}");
    EXPECT_EQ(file.valueByPointer(""), &file.projectFile());
    EXPECT_EQ(file.valueByPointer("/objects"), nullptr);
}

TEST_F(ProjectFileTest, valueByPointer) {
    parse(R"({"a": {"b": [1, {"c/d~e": 2}], "": 3, "0": 4}, "": 5, "text": "x"})");
    const struct {
        const char *pointer, *expected;
    } data[]{{"/a/b/0", "1"}, {"/a/b/1/c~1d~0e", "2"}, {"/a/", "3"}, {"/a/0", "4"}, {"/", "5"}, {"/text", "\"x\""},
        {"/a/b/2", nullptr}, {"/a/b/-", nullptr}, {"/a/b/01", nullptr}, {"/a/b/x", nullptr}, {"/text/0", nullptr},
        {"/text/x", nullptr}, {"/A", nullptr}, {"a", nullptr}, {"/a~", nullptr}, {"/a~2", nullptr}};
    for(const auto& row: data) {
        const JsonValue* const value = file.valueByPointer(row.pointer);
        ASSERT_EQ(!value, !row.expected) << row.pointer;
        if(value) {
            EXPECT_EQ(jsonText(*value), row.expected) << row.pointer;
        }
    }
}

TEST_F(ProjectFileTest, aPointerNeedNotBeTerminated) {
    parse(R"({"ab": 1})");
    EXPECT_TRUE(file.valueByPointer(Corrade::Containers::StringView{"/abc", 3}));
}

TEST_F(ProjectFileTest, getValueLooksAmongTheDefaultsWhenAsked) {
    parse(R"({"settings": {"near": 1}})");
    JsonDocument defaults;
    defaults.Parse(R"({"settings": {"near": 0.1, "far": 100}})");
    file.setDefaults(std::move(defaults));
    EXPECT_EQ(jsonText(*file.getValue("/settings/near", true)), "1");
    EXPECT_EQ(jsonText(*file.getValue("/settings/far", true)), "100");
    EXPECT_EQ(file.getValue("/settings/far", false), nullptr);
    EXPECT_EQ(file.getValue("/settings/fov", true), nullptr);
    EXPECT_EQ(file.getValue("settings", true), nullptr);
}

TEST_F(ProjectFileTest, createByPointer) {
    const struct {
        const char *before, *pointer, *after;
        bool existed;
    } data[]{
        {"{}", "/a", R"({"a":null})", false},
        {R"({"a":1})", "/a", R"({"a":1})", true},
        {"{}", "/a/b/c", R"({"a":{"b":{"c":null}}})", false},
        {"{}", "/a/0/b", R"({"a":[{"b":null}]})", false},
        {"{}", "/a/2", R"({"a":[null,null,null]})", false},
        {R"({"a":[1]})", "/a/2", R"({"a":[1,null,null]})", false},
        {R"({"a":[1]})", "/a/-", R"({"a":[1,null]})", false},
        {R"({"a":[1]})", "/a/0", R"({"a":[1]})", true},
        {R"({"a":null})", "/a/0", R"({"a":[null]})", false},
        {R"({"a":null})", "/a/b", R"({"a":{"b":null}})", false},
        {R"({"a":{}})", "/a/0", R"({"a":{"0":null}})", false},
        {R"({"a":{"0":1}})", "/a/0", R"({"a":{"0":1}})", true},
        {"{}", "/a~1b/c~0d", R"({"a/b":{"c~d":null}})", false},
        {"{}", "", "{}", true},
    };
    for(const auto& row: data) {
        SCOPED_TRACE(std::string{row.before} + " " + row.pointer);
        parse(row.before);
        ASSERT_EQ(file.whyNotCreatable(row.pointer), nullptr);
        bool existed = !row.existed;
        const JsonValue& value = file.createByPointer(row.pointer, &existed);
        EXPECT_EQ(jsonText(file.projectFile()), row.after);
        EXPECT_EQ(existed, row.existed);
        if(std::string{row.pointer} != "/a/-") {
            EXPECT_EQ(&value, file.valueByPointer(row.pointer));
        }
    }
}

TEST_F(ProjectFileTest, whyNotCreatable) {
    const struct {
        const char *document, *pointer, *reason;
    } data[]{
        {"{}", "a", "the pointer is not valid"},
        {"{}", "/a~", "the pointer is not valid"},
        {R"({"a":1})", "/a/b", "it leads through a value that is neither an object nor an array"},
        {R"({"a":"x"})", "/a/0/b", "it leads through a value that is neither an object nor an array"},
        {R"({"a":[1]})", "/a/b", "it leads through an array with a token that is no index"},
        {R"({"a":[1]})", "/a/01", "it leads through an array with a token that is no index"},
        {R"({"a":[1]})", "/a/65538", "an index is too far beyond the end of its array"},
        {R"({"a":[1]})", "/a/65537", nullptr},
        {"{}", "/a/65537", "an index is too far beyond the end of its array"},
        {"{}", "/a/65536", nullptr},
        {"{}", "/a/b/999999999/c", "an index is too far beyond the end of its array"},
        {R"({"a":null})", "/a/999999999", "an index is too far beyond the end of its array"},
        {R"({"a":{}})", "/a/999999999", nullptr},
    };
    for(const auto& row: data) {
        parse(row.document);
        EXPECT_STREQ(file.whyNotCreatable(row.pointer), row.reason) << row.document << " " << row.pointer;
        EXPECT_EQ(jsonText(file.projectFile()), row.document);
    }
}

TEST_F(ProjectFileTest, createByPointerAbortsWhereItWouldDestroyAValue) {
    parse(R"({"a":1})");
    EXPECT_EXIT(file.createByPointer("/a/b"), testing::KilledBySignal(SIGABRT),
        testing::HasSubstr("ProjectFile::createByPointer(): /a/b: it leads through a "
                           "value that is neither an object nor an array"));
}

TEST_F(ProjectFileTest, eraseByPointer) {
    const struct {
        const char *before, *pointer, *after;
        bool erased;
    } data[]{
        {R"({"a":1,"b":2,"c":3})", "/b", R"({"a":1,"c":3})", true},
        {R"({"a":[1,2,3]})", "/a/1", R"({"a":[1,3]})", true},
        {R"({"a":{"b":{"c":1}}})", "/a/b/c", R"({"a":{"b":{}}})", true},
        {R"({"a":1})", "", R"({"a":1})", false},
        {R"({"a":1})", "/b", R"({"a":1})", false},
        {R"({"a":1})", "/a/b", R"({"a":1})", false},
        {R"({"a":[1]})", "/a/1", R"({"a":[1]})", false},
        {R"({"a":[1]})", "/a/-", R"({"a":[1]})", false},
        {R"({"a":1})", "a", R"({"a":1})", false},
    };
    for(const auto& row: data) {
        parse(row.before);
        EXPECT_EQ(file.eraseByPointer(row.pointer), row.erased) << row.before << " " << row.pointer;
        EXPECT_EQ(jsonText(file.projectFile()), row.after) << row.before << " " << row.pointer;
    }
}

TEST_F(ProjectFileTest, aReplacedLargeObjectIsFoundAnew) {
    file.createByPointer("/objects").SetObject();
    for(int i = 0; i != 100; ++i) file.createByPointer(("/objects/a" + std::to_string(i)).data()).SetInt(i);
    EXPECT_EQ(file.valueByPointer("/objects/a50")->GetInt(), 50);
    JsonValue other{rapidjson::kObjectType};
    for(int i = 0; i != 100; ++i)
        other.AddMember(JsonValue{("b" + std::to_string(i)).data(), file.allocator()}, JsonValue{i}, file.allocator());
    file.createByPointer("/objects").Swap(other);
    EXPECT_EQ(file.valueByPointer("/objects/a50"), nullptr);
    EXPECT_EQ(file.valueByPointer("/objects/b50")->GetInt(), 50);
    // The same through removal, and through the document itself.
    EXPECT_TRUE(file.eraseByPointer("/objects"));
    EXPECT_EQ(file.valueByPointer("/objects/b50"), nullptr);
    file.createByPointer("/objects").Swap(other);
    EXPECT_EQ(file.valueByPointer("/objects/a50")->GetInt(), 50);
    file.projectFile()["objects"].MemberBegin()->name.SetString("c", 1, file.allocator());
    file.membersChanged();
    EXPECT_EQ(file.valueByPointer("/objects/c")->GetInt(), 0);
}

// The same edits on a plain document, by the JSON library's own pointers.
TEST_F(ProjectFileTest, behavesAsPlainPointersOverARandomSequence) {
    std::mt19937 random{3};
    JsonDocument plain{rapidjson::kObjectType};
    const char* const groups[]{"objects", "materials"};
    for(int step = 0; step != 20000; ++step) {
        std::string pointer = std::string{"/"} + groups[random() % 2];
        if(random() % 200) pointer += "/id" + std::to_string(random() % 300);
        if(random() % 3 == 0) pointer += "/name";
        using Pointer = rapidjson::GenericPointer<JsonValue>;
        if(random() % 2) {
            if(file.whyNotCreatable(pointer.data())) continue;
            // A place that holds a number takes no children.
            const bool leaf = pointer.size() > 5 && pointer.substr(pointer.size() - 5) == "/name";
            JsonValue& a = file.createByPointer(pointer.data());
            JsonValue& b = Pointer{pointer.data()}.Create(plain, plain.GetAllocator());
            if(leaf) {
                a.SetInt(step);
                b.SetInt(step);
            }
        } else {
            ASSERT_EQ(file.eraseByPointer(pointer.data()), Pointer{pointer.data()}.Erase(plain)) << pointer;
        }
        const std::string probe = "/objects/id" + std::to_string(random() % 300);
        ASSERT_EQ(!file.valueByPointer(probe.data()), !Pointer{probe.data()}.Get(plain)) << step;
        if(step % 500 == 0) {
            ASSERT_EQ(jsonText(file.projectFile()), jsonText(plain)) << step;
        }
    }
    EXPECT_EQ(jsonText(file.projectFile()), jsonText(plain));
}

} // namespace
