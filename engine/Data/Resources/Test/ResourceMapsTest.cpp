#include "Vantrel/EngineData/ResourceMaps.h"

#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

struct Object: ResourceUser {
    explicit Object(std::string id): ResourceUser{std::move(id), false} {}
};

std::multiset<std::string> users(const ResourceNode& node) {
    std::multiset<std::string> ids;
    node.forEachUser([&](const ResourceUser& user) { ids.insert(user.id); });
    return ids;
}

TEST(ResourceMapsTest, sections) {
    for(std::size_t i = 0; i != ResourceKindCount; ++i) EXPECT_EQ(resourceKindOf(resourceSection(ResourceKind(i))), i);
    EXPECT_EQ(resourceSection(ResourceKind::Image), "images");
    EXPECT_EQ(resourceSection(ResourceKind::Font), "fonts");
    EXPECT_EQ(resourceKindOf("objects"), ResourceKindCount);
    EXPECT_EQ(resourceKindOf(""), ResourceKindCount);
}

TEST(ResourceMapsTest, aNameMakesANode) {
    ResourceMaps maps;
    EXPECT_EQ(maps.find(ResourceKind::Mesh, "tree"), nullptr);
    ResourceNode& node = maps.node(ResourceKind::Mesh, "tree");
    EXPECT_EQ(node.id, "tree");
    EXPECT_EQ(node.index, 0);
    EXPECT_EQ(node.kind, ResourceKind::Mesh);
    EXPECT_TRUE(node.isResource());
    EXPECT_EQ(&maps.node(ResourceKind::Mesh, "tree"), &node);
    EXPECT_EQ(maps.find(ResourceKind::Mesh, "tree"), &node);
    EXPECT_EQ(maps.find(ResourceKind::Skin, "tree"), nullptr);
}

TEST(ResourceMapsTest, usesAreKnownOnBothSides) {
    ResourceNode mesh{"mesh"}, material{"material"};
    Object a{"a"}, b{"b"};
    a.use(mesh);
    a.use(material);
    b.use(mesh);
    a.use(mesh);
    EXPECT_FALSE(a.isResource());
    EXPECT_EQ(a.useCount(), 3u);
    EXPECT_THAT(users(mesh), UnorderedElementsAre("a", "a", "b"));
    EXPECT_THAT(users(material), UnorderedElementsAre("a"));
    a.forgetUses();
    EXPECT_EQ(a.useCount(), 0u);
    EXPECT_THAT(users(mesh), UnorderedElementsAre("b"));
    EXPECT_EQ(material.userCount(), 0u);
}

TEST(ResourceMapsTest, aUserThatGoesLeavesItsResources) {
    ResourceNode mesh{"mesh"};
    Object last{"last"};
    {
        Object first{"first"};
        first.use(mesh);
        last.use(mesh);
    }
    EXPECT_THAT(users(mesh), ElementsAre("last"));
    last.forgetUses();
    EXPECT_EQ(mesh.userCount(), 0u);
}

TEST(ResourceMapsTest, aResourceThatGoesLeavesItsUsers) {
    ResourceNode stays{"stays"};
    Object user{"user"};
    {
        ResourceNode goes{"goes"};
        user.use(goes);
        user.use(stays);
        user.use(goes);
        // What uses itself goes whole.
        goes.use(goes);
        goes.use(stays);
    }
    EXPECT_EQ(user.useCount(), 1u);
    EXPECT_THAT(users(stays), ElementsAre("user"));
    user.forgetUses();
    EXPECT_EQ(stays.userCount(), 0u);
}

// Nodes that come, go, use and forget at random, against a plain list of pairs.
TEST(ResourceMapsTest, random) {
    std::mt19937 random{7};
    constexpr int Count = 12;
    std::unique_ptr<ResourceNode> nodes[Count];
    std::multiset<std::pair<int, int>> uses; // user, resource
    for(int step = 0; step != 20000; ++step) {
        const int a = int(random() % Count), b = int(random() % Count);
        const unsigned action = random() % 10;
        if(!nodes[a]) {
            nodes[a] = std::make_unique<ResourceNode>(std::to_string(a));
        } else if(action == 0) {
            nodes[a].reset();
            for(auto use = uses.begin(); use != uses.end();)
                use = use->first == a || use->second == a ? uses.erase(use) : std::next(use);
        } else if(action == 1) {
            nodes[a]->forgetUses();
            for(auto use = uses.begin(); use != uses.end();) use = use->first == a ? uses.erase(use) : std::next(use);
        } else if(nodes[b]) {
            nodes[a]->use(*nodes[b]);
            uses.emplace(a, b);
        }
        if(step % 16) continue;
        std::map<int, std::multiset<std::string>> usersOf;
        std::map<int, std::size_t> useCount;
        for(const auto& use: uses) {
            usersOf[use.second].insert(std::to_string(use.first));
            ++useCount[use.first];
        }
        for(int i = 0; i != Count; ++i) {
            if(!nodes[i]) continue;
            ASSERT_EQ(users(*nodes[i]), usersOf[i]) << step;
            ASSERT_EQ(nodes[i]->useCount(), useCount[i]) << step;
        }
    }
}

}
