#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SceneTestSupport.h"

namespace {

using namespace VantrelEngine;
using namespace VantrelTest;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::KilledBySignal;

struct SceneGraphComponentsTest: testing::Test {
    SceneGraphComponentsTest() {
        graph.setComponentManager(2, lights);
        graph.setComponentManager(0, meshes);
        a = graph.addObject(RootObject);
        b = graph.addObject(a);
    }

    DynamicSceneGraph graph{3, 2, 3};
    NumberManager meshes{"mesh"}, lights{"light"};
    Id a, b;
};

using SceneGraphComponentsDeathTest = SceneGraphComponentsTest;

TEST_F(SceneGraphComponentsTest, managersAreFoundByNameAndIndex) {
    EXPECT_EQ(graph.componentManagerIndex("mesh"), 0);
    EXPECT_EQ(graph.componentManagerIndex("light"), 2);
    EXPECT_EQ(graph.componentManagerIndex("lights"), 255);
    EXPECT_EQ(graph.componentManagerIndex(""), 255);
    EXPECT_EQ(graph.componentManager(0), &meshes);
    EXPECT_EQ(graph.componentManager(1), nullptr);
    EXPECT_EQ(graph.componentManager(2), &lights);
}

TEST_F(SceneGraphComponentsTest, listsHoldComponentsAndTheirManagersInTheOrderOfAdding) {
    EXPECT_THAT(list(graph.components(a)), IsEmpty());
    EXPECT_THAT(list(graph.componentTypes(a)), IsEmpty());
    lights.addComponent(a);
    meshes.addComponent(a);
    meshes.addComponent(b);
    meshes.addComponent(a);
    EXPECT_THAT(list(graph.components(a)), ElementsAre(0, 0, 2));
    EXPECT_THAT(list(graph.componentTypes(a)), ElementsAre(2, 0, 0));
    EXPECT_THAT(list(graph.components(b)), ElementsAre(1));
    EXPECT_EQ(graph.componentsSize(), 4u);
    EXPECT_EQ(graph.componentsCapacity(), 4u);
}

TEST_F(SceneGraphComponentsTest, theLastTakesThePlaceOfTheDeleted) {
    for(int i = 0; i != 3; ++i) meshes.addComponent(a);
    lights.addComponent(a);
    graph.deleteComponent(a, 0, 1);
    EXPECT_THAT(list(graph.components(a)), ElementsAre(0, 0, 2));
    EXPECT_THAT(list(graph.componentTypes(a)), ElementsAre(0, 2, 0));
    EXPECT_FALSE(meshes.isValid(1));
    EXPECT_TRUE(lights.isValid(0));
    graph.deleteComponent(a, 2, 0);
    EXPECT_THAT(list(graph.components(a)), ElementsAre(0, 2));
    graph.deleteComponent(a, 0, 2);
    graph.deleteComponent(a, 0, 0);
    EXPECT_THAT(list(graph.components(a)), IsEmpty());
    EXPECT_EQ(graph.componentsSize(), 0u);
    EXPECT_EQ(meshes.size() + lights.size(), 0u);
}

TEST_F(SceneGraphComponentsTest, deletingASubtreeDeletesItsComponents) {
    const Id other = graph.addObject(RootObject);
    meshes.addComponent(a);
    meshes.addComponent(b);
    lights.addComponent(b);
    meshes.addComponent(other);
    graph.deleteObjects(a);
    EXPECT_EQ(graph.componentsSize(), 1u);
    EXPECT_EQ(meshes.size(), 1u);
    EXPECT_EQ(lights.size(), 0u);
    EXPECT_TRUE(meshes.isValid(2));
    EXPECT_EQ(meshes.object(2), other);
    EXPECT_THAT(list(meshes.components()), ElementsAre(2));
    // The id of a is used again, without its components.
    EXPECT_EQ(graph.addObject(RootObject), a);
    EXPECT_THAT(list(graph.components(a)), IsEmpty());
}

TEST_F(SceneGraphComponentsTest, reparentingKeepsThem) {
    meshes.addComponent(b);
    graph.reparent(b, RootObject);
    EXPECT_THAT(list(graph.components(b)), ElementsAre(0));
    EXPECT_EQ(meshes.object(0), b);
}

TEST_F(SceneGraphComponentsTest, oneObjectCanHaveThemAll) {
    for(std::size_t i = 0; i != 65535; ++i) meshes.addComponent(a);
    for(std::size_t i = 0; i != 65535; ++i) lights.addComponent(a);
    EXPECT_EQ(graph.components(a).size(), 131070u);
    std::mt19937 random{6};
    while(graph.components(a).size() > 10) {
        const std::size_t i = random() % graph.components(a).size();
        graph.deleteComponent(a, graph.componentTypes(a)[i], graph.components(a)[i]);
    }
    EXPECT_EQ(meshes.size() + lights.size(), 10u);
    graph.deleteObjects(a);
    EXPECT_EQ(graph.componentsSize(), 0u);
}

TEST_F(SceneGraphComponentsTest, agreesWithAPlainModel) {
    std::mt19937 random{7};
    std::map<Id, std::multiset<std::pair<int, Id>>> expected;
    std::vector<Id> parents(65536, NoObject);
    const auto forget = [&](Id top) {
        for(auto i = expected.begin(); i != expected.end();) {
            Id up = i->first;
            while(up != NoObject && up != top) up = parents[up];
            i = up == top ? expected.erase(i) : std::next(i);
        }
    };
    expected[a];
    expected[b];
    parents[a] = RootObject;
    parents[b] = a;
    for(int step = 0; step != 20000; ++step) {
        auto found = expected.lower_bound(Id(random() % 200));
        if(found == expected.end()) found = expected.begin();
        const unsigned what = random() % 20;
        if(expected.empty() || what < 3) {
            const Id parent = expected.empty() || what == 0 ? RootObject : found->first;
            const Id id = graph.addObject(parent);
            parents[id] = parent;
            expected[id];
        } else if(what == 3) {
            const Id id = found->first;
            forget(id);
            graph.deleteObjects(id);
        } else if(what < 14) {
            const int manager = what % 2 ? 2 : 0;
            const Id id = (manager ? lights : meshes).addComponent(found->first);
            found->second.insert({manager, id});
            (manager ? lights : meshes).number(id) = found->first;
        } else if(!found->second.empty()) {
            const auto component = std::next(found->second.begin(), random() % found->second.size());
            graph.deleteComponent(found->first, component->first, component->second);
            found->second.erase(component);
        }
        if(step % 20) continue;

        std::size_t count = 0;
        for(const auto& object: expected) {
            const auto ids = graph.components(object.first);
            const auto types = graph.componentTypes(object.first);
            ASSERT_EQ(ids.size(), types.size());
            std::multiset<std::pair<int, Id>> actual;
            for(std::size_t i = 0; i != ids.size(); ++i) {
                actual.insert({types[i], ids[i]});
                NumberManager& manager = types[i] ? lights : meshes;
                ASSERT_EQ(manager.object(ids[i]), object.first);
                ASSERT_EQ(manager.number(ids[i]), object.first);
            }
            ASSERT_EQ(actual, object.second);
            count += ids.size();
        }
        ASSERT_EQ(graph.componentsSize(), count);
        ASSERT_EQ(meshes.size() + lights.size(), count);
        ASSERT_EQ(graph.size(), expected.size() + 1);
    }
}

TEST_F(SceneGraphComponentsDeathTest, abortsOnWhatDoesNotFit) {
    meshes.addComponent(a);
    const auto killed = KilledBySignal(SIGABRT);
    for(const auto& wrong:
        {std::make_tuple(b, 0, 0), std::make_tuple(a, 2, 0), std::make_tuple(a, 0, 1), std::make_tuple(a, 1, 0)}) {
        const std::string message = "DynamicSceneGraph::deleteComponent(): object " +
            std::to_string(std::get<0>(wrong)) + " has no component " + std::to_string(std::get<2>(wrong)) +
            " of manager " + std::to_string(std::get<1>(wrong));
        EXPECT_EXIT(graph.deleteComponent(std::get<0>(wrong), std::get<1>(wrong), Id(std::get<2>(wrong))), killed,
            HasSubstr(message));
    }
    EXPECT_EXIT(graph.deleteComponent(a, 3, 0), killed,
        HasSubstr("DynamicSceneGraph::componentManager(): there is no index 3 among 3"));
    NumberManager another{"another"}, mesh{"mesh"};
    EXPECT_EXIT(graph.setComponentManager(2, another), killed,
        HasSubstr("DynamicSceneGraph::setComponentManager(): index 2 is not free among 3"));
    EXPECT_EXIT(graph.setComponentManager(3, another), killed,
        HasSubstr("DynamicSceneGraph::setComponentManager(): index 3 is not free among 3"));
    EXPECT_EXIT(graph.setComponentManager(1, mesh), killed,
        HasSubstr("DynamicSceneGraph::setComponentManager(): the mesh manager is registered already"));
    EXPECT_EXIT(graph.setComponentManager(1, meshes), killed,
        HasSubstr("DynamicSceneGraph::setComponentManager(): the mesh manager is registered already"));
    DynamicSceneGraph second{1, 0, 1};
    EXPECT_EXIT(second.setComponentManager(0, meshes), killed,
        HasSubstr("DynamicSceneGraph::setComponentManager(): the mesh manager is registered already"));
}

}
