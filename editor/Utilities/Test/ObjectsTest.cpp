#include "Vantrel/EditorUtilities/Objects.h"

#include "SelectionFixture.h"

namespace VantrelEngine {

namespace {

using ObjectsTest = VantrelTest::SelectionFixture;

StringArray names(std::initializer_list<const char*> ids) {
    StringArray array;
    array.setSize(ids.size());
    std::size_t i = 0;
    for(const char* const id: ids) array.set(i++, id);
    return array;
}

TEST_F(ObjectsTest, DeletingTakesWhatIsBelow) {
    JsonDocument before;
    before.CopyFrom(session.data().project().projectFile(), before.GetAllocator());
    const std::size_t logged = changes().changes().size();
    select({"bulb", "desk", "wire"});
    deleteSelectedObjects(editor);
    EXPECT_EQ(at("/objects/wire"), "nothing");
    EXPECT_EQ(objectCount(), 2u);
    EXPECT_EQ(changes().changes().size(), logged + 3);
    // The last one goes first.
    EXPECT_EQ(changes().changes()[logged].path, "/objects/desk");
    session.update();
    EXPECT_EQ(session.data().selection().countSet(), 0u);
    changes().undoLast();
    EXPECT_TRUE(session.data().project().projectFile() == before);
    // Behind those that stayed, in their order.
    EXPECT_EQ(std::string{session.data().project().section("objects")->MemberBegin()[2].name.GetString()}, "bulb");
    EXPECT_EQ(std::string{session.data().project().section("objects")->MemberBegin()[4].name.GetString()}, "desk");
    changes().redoLast();
    EXPECT_EQ(objectCount(), 2u);
}

TEST_F(ObjectsTest, LockedOnesBelowAreTold) {
    session.data().marks().setMarked(ObjectMark::Locked, objectOf("bulb"), true);
    select({"desk"});
    EXPECT_EQ(printed([&] { deleteSelectedObjects(editor); }), "");
    select({"lamp"});
    EXPECT_EQ(printed([&] { deleteSelectedObjects(editor); }),
        "Deleted 2 locked objects with what was above; undo brings back all\n");
    session.update();
    printed([&] { changes().undoLast(); });
    session.update();
    EXPECT_TRUE(session.data().marks().isLocked(objectOf("wire")));
    session.data().marks().setMarked(ObjectMark::Locked, objectOf("bulb"), false);
    session.data().marks().setMarked(ObjectMark::Locked, objectOf("shade"), true);
    select({"lamp"});
    EXPECT_EQ(printed([&] { deleteSelectedObjects(editor); }),
        "Deleted 1 locked object with what was above; undo brings back all\n");
}

TEST_F(ObjectsTest, IdsOfAnyKind) {
    add("a~1b~0c", "Odd");
    select({"a/b~c"});
    deleteSelectedObjects(editor);
    EXPECT_EQ(objectCount(), 5u);
    EXPECT_EQ(at("/objects/a~1b~0c"), "nothing");
}

TEST_F(ObjectsTest, NothingSelectedIsNoStep) {
    const std::size_t logged = changes().changes().size();
    select({});
    deleteSelectedObjects(editor);
    EXPECT_EQ(changes().changes().size(), logged);
    // A key that is held comes again before the next frame.
    select({"desk"});
    deleteSelectedObjects(editor);
    deleteSelectedObjects(editor);
    EXPECT_EQ(changes().changes().size(), logged + 1);
}

TEST_F(ObjectsTest, WhatNamesThemStays) {
    record("/skins/body", "{'name': 'Body', 'joints': ['wire', 'desk']}");
    select({"wire"});
    deleteSelectedObjects(editor);
    EXPECT_EQ(at("/skins/body/joints"), "[\"wire\",\"desk\"]");
}

TEST_F(ObjectsTest, SelectingReplacesOrAdds) {
    select({"lamp"});
    selectObjects(editor, names({"desk", "wire"}), false, true);
    EXPECT_EQ(session.data().selection().countSet(), 2u);
    EXPECT_TRUE(session.data().isSelected(objectOf("wire")));
    selectObjects(editor, names({"lamp"}), true, true);
    EXPECT_EQ(session.data().selection().countSet(), 3u);
    selectObjects(editor, names({}), false, true);
    EXPECT_EQ(session.data().selection().countSet(), 0u);
}

TEST_F(ObjectsTest, AMissingNameIsToldWhereThatIsAsked) {
    EXPECT_EQ(printed([&] {
        selectObjects(editor, names({"gone", "desk"}), false, true);
    }),
        "The scene has no object gone, it cannot be selected\n");
    EXPECT_TRUE(session.data().isSelected(objectOf("desk")));
    EXPECT_EQ(printed([&] { selectObjects(editor, names({"gone"}), false, false); }), "");
}

} // namespace

} // namespace VantrelEngine
