#include "Vantrel/EngineData/IdMap.h"

#include <map>
#include <random>
#include <set>

#include <Corrade/Containers/StringStl.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;

struct Node {
    explicit Node(std::string id): id{std::move(id)} {}
    const std::string id;
    int value = 0;
};

TEST(IdMapTest, nothing) {
    IdMap<Node> map;
    EXPECT_EQ(map.size(), 0u);
    EXPECT_EQ(map.find("a"), nullptr);
    map.erase("a");
    map.forEach([](Node&) { ADD_FAILURE(); });
    map.clear();
    EXPECT_EQ(map.size(), 0u);
}

TEST(IdMapTest, nodesComeWhenTheyAreNamed) {
    IdMap<Node> map;
    map["a"].value = 1;
    map[""].value = 2;
    map[std::string{"a\0b", 3}].value = 3;
    EXPECT_EQ(map.size(), 3u);
    EXPECT_EQ(map["a"].value, 1);
    EXPECT_EQ(map.find("")->value, 2);
    EXPECT_EQ(map.find(std::string{"a\0b", 3})->value, 3);
    EXPECT_EQ(map.find(std::string{"a\0c", 3}), nullptr);
    EXPECT_EQ(map.size(), 3u);
    // By the node's own text.
    map.erase(map["a"].id);
    EXPECT_EQ(map.find("a"), nullptr);
    EXPECT_EQ(map["a"].value, 0);
    map.clear();
    EXPECT_EQ(map.size(), 0u);
    EXPECT_EQ(map.find("a"), nullptr);
    EXPECT_EQ(map["a"].value, 0);
}

TEST(IdMapTest, agreesWithAMapAndKeepsAddresses) {
    for(unsigned seed = 0; seed != 10; ++seed) {
        std::mt19937 random{seed};
        IdMap<Node> map;
        std::map<std::string, Node*> model;
        const unsigned ids = 5 << seed;
        for(int step = 0; step != 20000; ++step) {
            const std::string id = std::to_string(random() % ids);
            if(random() % 1000 == 0) map.reserve(random() % 500);
            if(random() % 2) {
                Node& node = map[id];
                ASSERT_EQ(node.id, id);
                ASSERT_EQ(model.emplace(id, &node).first->second, &node);
            } else {
                map.erase(id);
                model.erase(id);
            }
            const std::string other = std::to_string(random() % ids);
            ASSERT_EQ(map.find(other), model.count(other) ? model[other] : nullptr) << seed << " " << step;
            ASSERT_EQ(map.size(), model.size());
        }
        std::set<Node*> nodes;
        map.forEach([&](Node& node) { nodes.insert(&node); });
        ASSERT_EQ(nodes.size(), model.size());
        for(const auto& [id, node]: model) ASSERT_EQ(map.find(id), node) << id;
    }
}

} // namespace
