#include "Data/Project/Ancestry.h"

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <gtest/gtest.h>

#include "Data/Project/Test/DocumentTestSupport.h"
#include "Vantrel/EngineData/ProjectFile.h"

namespace {

using namespace VantrelEngine;

struct AncestryTest: testing::Test {
    void open(const std::string& text) {
        JsonDocument document = parsed(text);
        file.projectFile().Swap(document);
        file.membersChanged();
        ancestry.forget();
    }
    void setParent(const std::string& id, const std::string& parent) {
        file.createByPointer("/objects/" + id + "/parent").SetString(parent.c_str(), file.allocator());
        ancestry.parentChanged(id);
    }
    void remove(const std::string& id) {
        file.eraseByPointer("/objects/" + id);
        ancestry.parentChanged(id);
    }
    bool isAncestor(const std::string& object, const std::string& parent) {
        return ancestry.isAncestor(file, object, parent);
    }

    ProjectFile file;
    Ancestry ancestry;
};

TEST_F(AncestryTest, whatTheDocumentSays) {
    open(R"({"objects":{"c":{"parent":"b"},"a":{"parent":""},"b":{"parent":"a"},"x":{},"n":{"parent":7},"l":1}})");
    const struct {
        const char* object;
        const char* parent;
        bool isAncestor;
    } rows[]{
        {"a", "c", true},
        {"b", "c", true},
        {"a", "b", true},
        {"c", "c", true},
        {"c", "a", false},
        {"c", "b", false},
        {"x", "c", false},
        {"a", "x", false},
        {"a", "n", false},
        {"a", "l", false},
        {"a", "", false},
        {"new", "c", false},
        {"a", "new", false},
        {"new", "new", true},
    };
    for(const auto& row: rows)
        EXPECT_EQ(isAncestor(row.object, row.parent), row.isAncestor) << row.object << " above " << row.parent;
}

TEST_F(AncestryTest, aDocumentWithoutObjects) {
    for(const char* text: {"{}", R"({"objects":[]})"}) {
        open(text);
        EXPECT_FALSE(isAncestor("a", "b")) << text;
        EXPECT_TRUE(isAncestor("a", "a")) << text;
    }
}

TEST_F(AncestryTest, parentsThatAreMissingAndCome) {
    open(R"({"objects":{"a":{"parent":"late"},"b":{"parent":"a"}}})");
    EXPECT_TRUE(isAncestor("late", "b"));
    setParent("late", "later");
    EXPECT_TRUE(isAncestor("later", "b"));
    remove("late");
    EXPECT_TRUE(isAncestor("late", "b"));
    EXPECT_FALSE(isAncestor("later", "b"));
    setParent("late", "later");
    EXPECT_TRUE(isAncestor("later", "b"));
}

// One after the other the edits below pass through what is no tree.
TEST_F(AncestryTest, onlyTheEndOfSeveralEditsCounts) {
    open(R"({"objects":{"a":{"parent":""},"b":{"parent":"a"},"c":{"parent":"b"}}})");
    EXPECT_TRUE(isAncestor("a", "c"));
    setParent("a", "c");
    setParent("b", "");
    setParent("c", "b");
    EXPECT_TRUE(isAncestor("b", "a"));
    EXPECT_TRUE(isAncestor("c", "a"));
    EXPECT_FALSE(isAncestor("a", "b"));
}

// Nobody puts one into the document; that the questions end is what counts.
TEST_F(AncestryTest, aCycleIsCutSomewhere) {
    open(R"({"objects":{"a":{"parent":"b"},"b":{"parent":"a"},"c":{"parent":"b"},"d":{"parent":"d"}}})");
    EXPECT_TRUE(isAncestor("b", "c"));
    EXPECT_FALSE(isAncestor("c", "b"));
    EXPECT_FALSE(isAncestor("c", "d"));
    setParent("e", "c");
    setParent("b", "e");
    EXPECT_TRUE(isAncestor("c", "e"));
    EXPECT_FALSE(isAncestor("e", "c"));
    EXPECT_FALSE(isAncestor("d", "e"));
}

TEST_F(AncestryTest, idsThatComeAndGoWithoutEnd) {
    open(R"({"objects":{"a":{"parent":""}}})");
    for(int i = 0; i != 5000; ++i) {
        const std::string id = "o" + std::to_string(i);
        setParent(id, "a");
        ASSERT_TRUE(isAncestor("a", id));
        ASSERT_FALSE(isAncestor(id, "a"));
        remove(id);
        ASSERT_FALSE(isAncestor("a", id));
    }
}

// Two walks up a chain would take hours.
TEST_F(AncestryTest, manyQuestionsAboutALongChain) {
    constexpr int count = 65534;
    JsonValue objects{rapidjson::kObjectType};
    for(int i = count; i-- != 0;) {
        JsonValue object{rapidjson::kObjectType};
        const std::string parent = i ? std::to_string(i - 1) : "";
        object.AddMember("parent", JsonValue{parent.c_str(), file.allocator()}, file.allocator());
        objects.AddMember(JsonValue{std::to_string(i).c_str(), file.allocator()}, object, file.allocator());
    }
    file.createByPointer("/objects") = std::move(objects);
    std::mt19937 random{2};
    for(int i = 0; i != 20000; ++i) {
        const int a = int(random() % count), b = int(random() % count);
        ASSERT_EQ(isAncestor(std::to_string(a), std::to_string(b)), a <= b);
    }
    for(int i = 0; i != 5000; ++i) {
        const int object = count / 2 + int(random() % (count / 2)), parent = int(random() % (count / 2));
        setParent(std::to_string(object), std::to_string(parent));
        ASSERT_TRUE(isAncestor(std::to_string(parent), std::to_string(object)));
        ASSERT_FALSE(isAncestor(std::to_string(object), std::to_string(parent)));
    }
}

// Links and cuts in any number between two questions, of objects that come and go, against walking up a map.
TEST_F(AncestryTest, agreesWithWalkingUp) {
    std::size_t yes = 0, no = 0;
    for(unsigned seed = 0; seed != 60; ++seed) {
        std::mt19937 random{seed};
        open(R"({"objects":{}})");
        std::map<std::string, std::string> parents;
        const unsigned ids = 2 + seed;
        const auto isAbove = [&](const std::string& object, std::string id) {
            for(; !id.empty(); id = parents.count(id) ? parents[id] : "")
                if(id == object) return true;
            return false;
        };
        for(int step = 0; step != 1500; ++step) {
            const std::string id = std::to_string(random() % ids);
            const std::string other = random() % 8 ? std::to_string(random() % ids) : "";
            if(random() % 6 == 0) {
                remove(id);
                parents.erase(id);
            } else if(!isAbove(id, other)) {
                setParent(id, other);
                parents[id] = other;
            }
            if(random() % 200 == 0) ancestry.forget();
            if(random() % 2) continue;
            const std::string a = std::to_string(random() % ids), b = std::to_string(random() % ids);
            ASSERT_EQ(isAncestor(a, b), isAbove(a, b)) << seed << " " << step << ": " << a << " above " << b;
            ++(isAbove(a, b) ? yes : no);
        }
    }
    EXPECT_GT(yes, 5000u);
    EXPECT_GT(no, 5000u);
}

} // namespace
