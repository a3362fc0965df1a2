#include <algorithm>
#include <map>
#include <random>

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

struct ComponentManagerTest: testing::Test {
    ComponentManagerTest() {
        graph.setComponentManager(0, numbers);
        object = graph.addObject(RootObject);
        other = graph.addObject(RootObject);
    }

    DynamicSceneGraph graph{3, 0, 1};
    NumberManager numbers{"number", 0, 3};
    Id object, other;
};

using ComponentManagerDeathTest = ComponentManagerTest;

TEST_F(ComponentManagerTest, aNewComponentIsInactiveAndHasInitialValues) {
    EXPECT_EQ(numbers.name(), "number");
    EXPECT_FALSE(numbers.isValid(0));
    const Id a = numbers.addComponent(object);
    EXPECT_EQ(a, 0);
    EXPECT_TRUE(numbers.isValid(a));
    EXPECT_FALSE(numbers.isValid(1));
    EXPECT_FALSE(numbers.isValid(NoComponent));
    EXPECT_FALSE(numbers.isActive(a));
    EXPECT_EQ(numbers.object(a), object);
    EXPECT_EQ(numbers.number(a), -1);
    EXPECT_EQ(numbers.doubleOf(a), 0.5);
    EXPECT_EQ(numbers.groupOf(a), 0u);
    EXPECT_EQ(numbers.toIndex(a), 0);
    EXPECT_EQ(numbers.size(), 1u);
    EXPECT_EQ(numbers.numActiveComponents(), 0u);

    // Also in a slot that was used.
    numbers.number(a) = 7;
    numbers.activate(a);
    numbers.setGroupOf(a, 2);
    graph.deleteComponent(object, 0, a);
    const Id b = numbers.addComponent(other);
    EXPECT_EQ(numbers.number(b), -1);
    EXPECT_FALSE(numbers.isActive(b));
    EXPECT_EQ(numbers.groupOf(b), 0u);
    EXPECT_EQ(numbers.object(b), other);
    EXPECT_EQ(numbers.header(b).object, other);
}

TEST_F(ComponentManagerTest, activeOnesComeFirst) {
    Id ids[5];
    for(Id& id: ids) {
        id = numbers.addComponent(object);
        numbers.number(id) = id;
    }
    numbers.activate(ids[3]);
    numbers.setActive(ids[1], true);
    numbers.setActive(ids[1], true);
    EXPECT_EQ(numbers.numActiveComponents(), 2u);
    EXPECT_LT(numbers.toIndex(ids[1]), 2);
    EXPECT_LT(numbers.toIndex(ids[3]), 2);
    EXPECT_GE(numbers.toIndex(ids[0]), 2);
    for(std::size_t slot = 0; slot != 5; ++slot) {
        EXPECT_EQ(numbers.numbers()[slot], numbers.components()[slot]);
        EXPECT_EQ(numbers.toIndex(numbers.components()[slot]), slot);
        EXPECT_EQ(numbers.objects()[slot], object);
    }
    EXPECT_TRUE(numbers.header(ids[3]).isActive);
    numbers.setActive(ids[3], false);
    EXPECT_FALSE(numbers.header(ids[3]).isActive);
    EXPECT_EQ(numbers.numActiveComponents(), 1u);
    EXPECT_EQ(numbers.components().front(), ids[1]);
    EXPECT_FALSE(numbers.isActive(ids[3]));
}

TEST_F(ComponentManagerTest, groupsAreRangesOfActiveOnes) {
    Id ids[6];
    for(Id& id: ids) {
        id = numbers.addComponent(object);
        numbers.setGroupOf(id, id % 3);
        numbers.setActive(id, id != 4);
    }
    EXPECT_EQ(numbers.groupCount(), 3u);
    EXPECT_EQ(numbers.groupRange(0).first(), 0);
    EXPECT_EQ(numbers.groupRange(0).second(), 2);
    EXPECT_EQ(numbers.groupRange(1).first(), 2);
    EXPECT_EQ(numbers.groupRange(1).second(), 3);
    EXPECT_EQ(numbers.groupRange(2).second(), 5);
    EXPECT_EQ(numbers.components()[2], ids[1]);
    EXPECT_EQ(numbers.components()[5], ids[4]);

    // A further group comes before the inactive ones.
    EXPECT_EQ(numbers.addGroup(), 3u);
    EXPECT_EQ(numbers.groupRange(3).first(), 5);
    EXPECT_EQ(numbers.groupRange(3).second(), 5);
    numbers.setGroupOf(ids[0], 3);
    EXPECT_EQ(numbers.groupRange(0).second(), 1);
    EXPECT_EQ(numbers.groupRange(3).first(), 4);
    EXPECT_EQ(numbers.components()[4], ids[0]);
    // Changes that take each other back.
    numbers.setGroupOf(ids[0], 1);
    numbers.setGroupOf(ids[0], 3);
    EXPECT_EQ(numbers.components()[4], ids[0]);
}

TEST_F(ComponentManagerTest, idsAreUsedAgainTheOldestFirstAndBeforeFreshOnes) {
    for(int i = 0; i != 5; ++i) numbers.addComponent(object);
    graph.deleteComponent(object, 0, 3);
    graph.deleteComponent(object, 0, 1);
    EXPECT_FALSE(numbers.isValid(3));
    // Deleted ones are taken out when slots are asked for; until then their ids rest.
    EXPECT_EQ(numbers.components().size(), 3u);
    EXPECT_EQ(numbers.addComponent(object), 3);
    EXPECT_EQ(numbers.addComponent(object), 1);
    EXPECT_EQ(numbers.addComponent(object), 5);
}

TEST_F(ComponentManagerTest, whatIsKeptBesideIsForgotten) {
    numbers.addComponent(object);
    numbers.addComponent(object);
    graph.deleteComponent(object, 0, 1);
    EXPECT_THAT(numbers.forgotten, ElementsAre(1));
    graph.deleteObjects(object);
    EXPECT_THAT(numbers.forgotten, ElementsAre(1, 0));
}

TEST_F(ComponentManagerTest, capacityIsWhatWasAskedForOrIsInUse) {
    EXPECT_EQ(numbers.capacity(), 0u);
    numbers.allocate(3);
    EXPECT_EQ(numbers.capacity(), 3u);
    numbers.allocate(2);
    EXPECT_EQ(numbers.capacity(), 3u);
    for(int i = 0; i != 4; ++i) numbers.addComponent(object);
    EXPECT_EQ(numbers.capacity(), 4u);
    EXPECT_EQ(NumberManager("x", 17).capacity(), 17u);
    EXPECT_EQ(NumberManager("x", 65535).capacity(), 65535u);
}

TEST_F(ComponentManagerTest, askingForOneMoreAgainAndAgainDoesNotMoveEverything) {
    int moves = 0;
    numbers.addComponent(object);
    const int* before = &numbers.number(0);
    for(std::size_t i = 1; i != 20000; ++i) {
        numbers.allocate(numbers.size() + 1);
        numbers.addComponent(object);
        ASSERT_EQ(numbers.capacity(), i + 1);
        if(&numbers.number(0) != before) ++moves;
        before = &numbers.number(0);
    }
    EXPECT_LE(moves, 40);
}

TEST_F(ComponentManagerTest, holdsAsManyAsThereAreIds) {
    for(std::size_t i = 0; i != 65535; ++i) ASSERT_EQ(numbers.addComponent(object), i);
    Id refused = 0;
    EXPECT_EQ(errorsOf([&] { refused = numbers.addComponent(other); }),
        "ComponentManager::addComponent(): object 2 gets no number component, the scene has 65535 already\n");
    EXPECT_EQ(refused, NoComponent);
    EXPECT_EQ(numbers.size(), 65535u);
    EXPECT_EQ(graph.componentsSize(), 65535u);
    EXPECT_TRUE(graph.components(other).isEmpty());

    // One that waits to be taken out is taken out then.
    numbers.activate(65534);
    graph.deleteComponent(object, 0, 40000);
    EXPECT_EQ(numbers.addComponent(other), 40000);
    EXPECT_EQ(numbers.components().front(), 65534);
    graph.deleteObjects(object);
    EXPECT_EQ(numbers.size(), 1u);
    EXPECT_THAT(list(numbers.components()), ElementsAre(40000));
    EXPECT_EQ(numbers.toIndex(40000), 0);
}

TEST_F(ComponentManagerTest, comingAndGoingDoesNotGrow) {
    for(int i = 0; i != 100; ++i) numbers.addComponent(object);
    for(int i = 0; i != 100000; ++i) {
        const Id id = numbers.addComponent(object);
        graph.deleteComponent(object, 0, id);
        ASSERT_LT(id, 400);
    }
    EXPECT_EQ(numbers.size(), 100u);
    EXPECT_EQ(numbers.components().size(), 100u);
}

// Random changes against a plain model; slots are asked for after every so many of them, so that both few and many
// changes are put in their place at once.
TEST_F(ComponentManagerTest, agreesWithAPlainModel) {
    struct Expected {
        Id object;
        bool active;
        std::size_t group;
        int number;
    };
    for(const int changesBetweenLooks: {1, 3, 20, 500}) {
        SCOPED_TRACE(changesBetweenLooks);
        std::mt19937 random{unsigned(changesBetweenLooks)};
        DynamicSceneGraph graph{1, 0, 1};
        NumberManager numbers;
        graph.setComponentManager(0, numbers);
        std::vector<Id> objects;
        for(int i = 0; i != 10; ++i) objects.push_back(graph.addObject(RootObject));
        std::map<Id, Expected> expected;
        for(int step = 0; step != 12000; ++step) {
            const unsigned what = random() % 10;
            const bool shrinking = step / 3000 % 2;
            if(expected.empty() || what < (shrinking ? 1 : 4)) {
                const Id object = objects[random() % objects.size()];
                const Id id = numbers.addComponent(object);
                ASSERT_FALSE(expected.count(id));
                numbers.number(id) = step;
                numbers.doubleOf(id) = step;
                expected[id] = {object, false, 0, step};
            } else {
                auto found = expected.lower_bound(Id(random() % 1000));
                if(found == expected.end()) found = expected.begin();
                const Id id = found->first;
                Expected& component = found->second;
                if(what < 5) {
                    graph.deleteComponent(component.object, 0, id);
                    expected.erase(found);
                } else if(what < 7) {
                    component.active = random() % 2;
                    numbers.setActive(id, component.active);
                } else {
                    if(random() % 200 == 0 && numbers.groupCount() < 12) numbers.addGroup();
                    component.group = random() % numbers.groupCount();
                    numbers.setGroupOf(id, component.group);
                }
            }
            ASSERT_EQ(numbers.size(), expected.size());
            if(step % changesBetweenLooks) continue;

            std::size_t active = 0;
            for(const auto& component: expected) {
                const std::size_t slot = numbers.toIndex(component.first);
                active += component.second.active;
                ASSERT_EQ(numbers.components()[slot], component.first);
                ASSERT_EQ(numbers.objects()[slot], component.second.object);
                ASSERT_EQ(numbers.numbers()[slot], component.second.number);
                ASSERT_EQ(numbers.doubles()[slot], component.second.number);
                ASSERT_EQ(numbers.number(component.first), component.second.number);
                ASSERT_EQ(numbers.isActive(component.first), component.second.active);
                const auto range = numbers.groupRange(component.second.group);
                ASSERT_EQ(slot >= range.first() && slot < range.second(), component.second.active);
            }
            ASSERT_EQ(numbers.numActiveComponents(), active);
            ASSERT_EQ(numbers.components().size(), expected.size());
            std::size_t end = 0;
            for(std::size_t group = 0; group != numbers.groupCount(); ++group) {
                ASSERT_EQ(numbers.groupRange(group).first(), end);
                end = numbers.groupRange(group).second();
            }
            ASSERT_EQ(end, active);
            ASSERT_FALSE(numbers.isValid(Id(random() % 1000 + 10000)));
        }
    }
}

TEST_F(ComponentManagerDeathTest, abortsOnWhatIsNotThere) {
    const Id id = numbers.addComponent(object);
    graph.deleteComponent(object, 0, id);
    for(const Id absent: {id, Id(1), NoComponent}) {
        const std::string message = "ComponentManager: there is no number component " + std::to_string(absent);
        EXPECT_EXIT(numbers.setActive(absent, true), KilledBySignal(SIGABRT), HasSubstr(message));
        EXPECT_EXIT(numbers.isActive(absent), KilledBySignal(SIGABRT), HasSubstr(message));
        EXPECT_EXIT(numbers.object(absent), KilledBySignal(SIGABRT), HasSubstr(message));
        EXPECT_EXIT(numbers.toIndex(absent), KilledBySignal(SIGABRT), HasSubstr(message));
        EXPECT_EXIT(numbers.number(absent), KilledBySignal(SIGABRT), HasSubstr(message));
    }
    numbers.addComponent(object);
    EXPECT_EXIT(numbers.addComponent(77), KilledBySignal(SIGABRT),
        HasSubstr("ComponentManager::addComponent(): there is no object 77"));
    EXPECT_EXIT(
        numbers.setGroupOf(1, 3), KilledBySignal(SIGABRT), HasSubstr("ComponentManager: there is no group 3 among 3"));
    EXPECT_EXIT(
        numbers.groupRange(3), KilledBySignal(SIGABRT), HasSubstr("ComponentManager: there is no group 3 among 3"));
    EXPECT_EXIT(numbers.allocate(65536), KilledBySignal(SIGABRT),
        HasSubstr("ComponentManager::allocate(): a manager holds at most 65535 components, not 65536"));
    EXPECT_EXIT(NumberManager{}.addComponent(0), KilledBySignal(SIGABRT),
        HasSubstr("ComponentManager::addComponent(): the number manager belongs to no scene graph"));
}

}
