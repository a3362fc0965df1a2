#include "Data/Project/MemberIndex.h"

#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;

struct MemberIndexTest: testing::Test {
    void append(const std::string& name) {
        object.AddMember(JsonValue{name.data(), rapidjson::SizeType(name.size()), object.GetAllocator()}, JsonValue{},
            object.GetAllocator());
    }

    JsonDocument object{rapidjson::kObjectType};
};

TEST_F(MemberIndexTest, findsEachNameAndNoOther) {
    for(int i = 0; i != 100; ++i) append("name" + std::to_string(i));
    const MemberIndex index{object};
    for(int i = 0; i != 100; ++i) EXPECT_EQ(index.find(object, "name" + std::to_string(i)), i);
    EXPECT_EQ(index.find(object, "name"), MemberIndex::NotFound);
    EXPECT_EQ(index.find(object, "name100"), MemberIndex::NotFound);
    EXPECT_EQ(index.find(object, ""), MemberIndex::NotFound);
}

TEST_F(MemberIndexTest, findsTheFirstOfSeveralWithOneName) {
    for(const char* name: {"a", "b", "a", "c", "b"}) append(name);
    MemberIndex index{object};
    EXPECT_EQ(index.find(object, "a"), 0);
    EXPECT_EQ(index.find(object, "b"), 1);
    index.removing("a", 0);
    object.EraseMember(object.MemberBegin());
    EXPECT_EQ(index.find(object, "a"), 1);
    EXPECT_EQ(index.find(object, "b"), 0);
}

TEST_F(MemberIndexTest, noticesThatMembersCameOrWentBehindItsBack) {
    append("a");
    const MemberIndex index{object};
    EXPECT_TRUE(index.fits(object));
    append("b");
    EXPECT_FALSE(index.fits(object));
}

TEST_F(MemberIndexTest, aMemberThatWasRenamedBehindItsBackIsNotFound) {
    append("a");
    const MemberIndex index{object};
    object.MemberBegin()->name.SetString("b", 1, object.GetAllocator());
    EXPECT_EQ(index.find(object, "a"), MemberIndex::NotFound);
}

TEST_F(MemberIndexTest, followsARandomSequence) {
    std::mt19937 random{7};
    std::vector<std::string> model;
    MemberIndex index{object};
    int next = 0;
    for(int step = 0; step != 20000; ++step) {
        // Phases of growth and of shrinking, down to nothing.
        const bool grow = model.empty() || random() % 100 < (step / 2000 % 2 ? 35u : 65u);
        if(grow) {
            // A name may come back.
            const std::string name = random() % 4 ? "n" + std::to_string(next++) : "r" + std::to_string(random() % 500);
            if(std::find(model.begin(), model.end(), name) != model.end()) continue;
            append(name);
            index.appended(name);
            model.push_back(name);
        } else {
            const std::size_t position = random() % model.size();
            index.removing(model[position], position);
            object.EraseMember(object.MemberBegin() + std::ptrdiff_t(position));
            model.erase(model.begin() + std::ptrdiff_t(position));
        }
        ASSERT_TRUE(index.fits(object));
        for(int probe = 0; probe != 3 && !model.empty(); ++probe) {
            const std::size_t position = random() % model.size();
            ASSERT_EQ(index.find(object, model[position]), position) << "step " << step;
        }
        ASSERT_EQ(index.find(object, "n" + std::to_string(next)), MemberIndex::NotFound);
    }
}

} // namespace
