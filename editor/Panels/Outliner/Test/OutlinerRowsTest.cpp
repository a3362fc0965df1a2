#include "Panels/Outliner/OutlinerRows.h"

#include <random>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Scene.h>
#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

class OutlinerRowsTest: public testing::Test {
protected:
    Id add(Id parent, const std::string& name) {
        const Id object = scene.addObject(parent);
        scene.objectNames.setName(object, {name.data(), name.size()});
        return object;
    }

    // Names behind their depth.
    std::string shown(const std::string& search = {}) {
        rows.update(scene, search);
        std::string text;
        for(std::size_t i = 0; i != rows.count(); ++i) {
            const OutlinerRow row = rows.row(i);
            const Corrade::Containers::StringView name = shownName(scene, row.object);
            text += std::string(row.depth, '.') + std::string{name.data(), name.size()} + (row.isMatch ? " " : "? ");
            EXPECT_EQ(rows.rowOf(row.object), i);
        }
        return text;
    }

    Scene scene;
    OutlinerRows rows;
};

TEST_F(OutlinerRowsTest, FollowWhatHappens) {
    EXPECT_EQ(shown(), "");
    const Id a = add(RootObject, "a"), b = add(a, "b"), c = add(RootObject, "c");
    add(b, "d");
    EXPECT_EQ(shown(), "a .b ..d c ");
    scene.reparent(b, c);
    EXPECT_EQ(shown(), "a c .b ..d ");
    rows.setFolded(scene, c, true);
    EXPECT_EQ(shown(), "a c ");
    scene.reparent(b, RootObject);
    EXPECT_EQ(shown(), "a c b .d ");
    scene.deleteObjects(b);
    EXPECT_EQ(shown(), "a c ");
    rows.reveal(scene, add(c, "e"));
    EXPECT_EQ(shown(), "a c .e ");
}

TEST_F(OutlinerRowsTest, AnIdThatIsUsedAgainIsAnotherObject) {
    const Id a = add(RootObject, "a"), b = add(a, "b");
    add(b, "c");
    shown();
    rows.setFolded(scene, a, true);
    scene.deleteObjects(a);
    shown();
    for(int i = 0; i != 3; ++i) add(add(RootObject, "x"), "y");
    EXPECT_EQ(shown(), "x .y x .y x .y ");
}

TEST_F(OutlinerRowsTest, WhatWasFoldedWhenItWasDeletedIsFoldedWhenItComesBack) {
    const auto addHouse = [&] {
        const Id house = add(RootObject, "House");
        scene.objectIds.setName(house, "h1");
        add(house, "Room");
        return house;
    };
    Id house = addHouse();
    shown();
    rows.setFolded(scene, house, true);
    scene.deleteObjects(house);
    EXPECT_EQ(shown(), "");
    // In the place that was another object's meanwhile.
    add(RootObject, "a");
    house = addHouse();
    EXPECT_EQ(shown(), "a House ");
    // Also among so many that all are made anew.
    scene.deleteObjects(house);
    shown();
    for(int i = 0; i != 40; ++i) add(RootObject, "x");
    house = addHouse();
    EXPECT_EQ(shown().substr(shown().size() - 8), "x House ");
    rows.setFolded(scene, house, false);
    scene.deleteObjects(house);
    shown();
    addHouse();
    EXPECT_EQ(shown().substr(shown().size() - 14), "x House .Room ");
}

TEST_F(OutlinerRowsTest, WhatTookThePlaceOfAFoldedObjectWhileNobodyLookedIsNotFolded) {
    const auto add = [this](Id parent, const std::string& id) {
        const Id object = OutlinerRowsTest::add(parent, id);
        scene.objectIds.setName(object, {id.data(), id.size()});
        return object;
    };
    Id house = add(RootObject, "house");
    add(house, "room");
    shown();
    rows.setFolded(scene, house, true);
    // Few of them, and so many that all are made anew.
    for(const int count: {2, 60}) {
        scene.deleteObjects(house);
        for(int i = 0; i != count; ++i) add(add(RootObject, "x" + std::to_string(i)), "y" + std::to_string(i));
        ASSERT_TRUE(scene.isValid(house)) << "its place is another object's";
        EXPECT_EQ(shown().find("x0 .y0 x1 .y1 "), 0u) << shown();
        while(scene.firstChild(RootObject) != NoObject) scene.deleteObjects(scene.firstChild(RootObject));
        house = add(RootObject, "house");
        add(house, "room");
        EXPECT_EQ(shown(), "house ");
    }
}

// As while the pane is closed.
TEST_F(OutlinerRowsTest, WhatCameAndWentBetweenTwoLooks) {
    add(RootObject, "a");
    EXPECT_EQ(shown(), "a ");
    std::vector<Id> objects;
    for(int i = 0; i != 300; ++i) objects.push_back(add(RootObject, "b"));
    for(const Id object: objects) scene.deleteObjects(object);
    // Nobody has to know them in order to forget them.
    EXPECT_EQ(shown(), "a ");
    EXPECT_FALSE(rows.isFolded(objects.back()));
}

TEST_F(OutlinerRowsTest, WithoutANameThereIsTheId) {
    const Id a = add(RootObject, "");
    scene.objectIds.setName(a, "o1");
    EXPECT_EQ(shown(), "o1 ");
    EXPECT_EQ(shown("O1"), "o1 ");
}

TEST_F(OutlinerRowsTest, ASearchShowsMatchesBelowTheirAncestors) {
    const Id house = add(RootObject, "House"), room = add(house, "Room"), lamp = add(room, "Lamp 1");
    add(house, "Door");
    add(RootObject, "lamp 2");
    rows.update(scene, {});
    rows.setFolded(scene, house, true);
    EXPECT_EQ(shown("LAMP"), "House? .Room? ..Lamp 1 lamp 2 ");
    EXPECT_EQ(shown("nothing"), "");
    EXPECT_EQ(shown(), "House lamp 2 ");
    EXPECT_EQ(shown("door"), "House? .Door ");
    scene.objectNames.setName(lamp, "Indoor lamp");
    EXPECT_EQ(shown("door"), "House? .Room? ..Indoor lamp .Door ");
    scene.reparent(lamp, RootObject);
    EXPECT_EQ(shown("door"), "House? .Door Indoor lamp ");
}

TEST_F(OutlinerRowsTest, AllAreFoldedAndUnfolded) {
    const Id a = add(RootObject, "a"), b = add(a, "b");
    add(b, "c");
    shown();
    rows.setAllFolded(scene, true);
    EXPECT_EQ(shown(), "a ");
    rows.setFolded(scene, a, false);
    EXPECT_EQ(shown(), "a .b ");
    rows.setAllFolded(scene, false);
    EXPECT_EQ(shown(), "a .b ..c ");
}

// Batches of edits between two looks, against a walk through the scene.
TEST_F(OutlinerRowsTest, RandomEditsOfAScene) {
    std::mt19937 random{3};
    std::vector<char> folded(MaxObjects);
    const auto any = [&](std::size_t count) { return std::size_t(random() % count); };
    for(int i = 0; i != 400; ++i) add(Id(scene.toId(any(scene.size()))), std::to_string(i));
    rows.update(scene, {});
    for(int look = 0; look != 300; ++look) {
        for(std::size_t edits = any(look % 10 == 0 ? 100 : 8); edits-- != 0;) {
            const Id object = scene.toId(any(scene.size())), other = scene.toId(any(scene.size()));
            if(any(3) == 0)
                add(other, std::to_string(look));
            else if(object != RootObject && any(2) && !scene.isInSubtree(other, object))
                scene.reparent(object, other);
            else if(object != RootObject && scene.firstChild(object) == NoObject) {
                scene.deleteObjects(object);
                folded[object] = false;
            }
        }
        rows.update(scene, {});
        const Id toggled = scene.toId(any(scene.size()));
        // One that came in the place of another is not folded.
        for(std::size_t j = 1; j != scene.size(); ++j) folded[scene.toId(j)] = rows.isFolded(scene.toId(j));
        if(toggled != RootObject) {
            folded[toggled] = !folded[toggled];
            rows.setFolded(scene, toggled, folded[toggled]);
        }

        std::vector<std::pair<Id, std::size_t>> expected;
        std::vector<std::size_t> depths(MaxObjects + 1);
        std::vector<char> isBelowFolded(MaxObjects + 1);
        for(std::size_t j = 1; j != scene.size(); ++j) {
            const Id object = scene.toId(j), parent = scene.parent(object);
            depths[object] = parent == RootObject ? 0 : depths[parent] + 1;
            isBelowFolded[object] = parent != RootObject && (isBelowFolded[parent] || folded[parent]);
            if(!isBelowFolded[object]) expected.emplace_back(object, depths[object]);
        }
        ASSERT_EQ(rows.count(), expected.size());
        for(std::size_t j = 0; j != expected.size(); ++j) {
            ASSERT_EQ(rows.row(j).object, expected[j].first) << look << ' ' << j;
            ASSERT_EQ(rows.row(j).depth, expected[j].second);
        }
    }
}

} // namespace

} // namespace VantrelEngine
