#include "Data/Project/NumberedIds.h"

#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;

TEST(NumberedIdsTest, nothing) {
    const NumberedIds ids;
    EXPECT_EQ(ids.size(), 0u);
    EXPECT_EQ(ids.find(""), NumberedIds::None);
    EXPECT_EQ(ids.find("x"), NumberedIds::None);
}

TEST(NumberedIdsTest, inTheOrderInWhichTheyCome) {
    NumberedIds ids;
    const std::string nul{"b\0c", 3};
    for(int round = 0; round != 2; ++round) {
        EXPECT_EQ(ids.add("b"), 0u);
        EXPECT_EQ(ids.add(""), 1u);
        EXPECT_EQ(ids.add(nul), 2u);
        EXPECT_EQ(ids.add("a"), 3u);
        EXPECT_EQ(ids.size(), 4u);
    }
    EXPECT_EQ(ids[0], "b");
    EXPECT_EQ(ids[1], "");
    EXPECT_EQ(ids[2], nul);
    EXPECT_EQ(ids[3], "a");
    EXPECT_EQ(ids.find(""), 1u);
    EXPECT_EQ(ids.find(nul), 2u);
    EXPECT_EQ(ids.find("c"), NumberedIds::None);
}

TEST(NumberedIdsTest, agreesWithAMap) {
    std::mt19937 random{5};
    NumberedIds ids;
    std::map<std::string, NumberedIds::Number> model;
    for(int i = 0; i != 20000; ++i) {
        const std::string id = std::to_string(random() % 8000);
        const auto known = model.find(id);
        ASSERT_EQ(ids.find(id), known == model.end() ? NumberedIds::None : known->second) << id;
        ASSERT_EQ(ids.add(id), model.emplace(id, model.size()).first->second) << id;
    }
    ASSERT_EQ(ids.size(), model.size());
    for(const auto& [id, number]: model) ASSERT_EQ(ids[number], id);
}

} // namespace
