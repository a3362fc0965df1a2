#include "Vantrel/EditorData/EditorData.h"

#include <Corrade/Containers/StringView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vantrel/EditorData/VantrelEditor.h"

namespace {

using namespace VantrelEngine;

TEST(EditorDataTest, selectsObjectsThatAreThere) {
    EditorData data;
    Scene& scene = data.scene().main();
    const Id a = scene.addObject(RootObject), b = scene.addObject(a);
    EXPECT_EQ(data.firstSelectedObject(), std::nullopt);
    data.selectObject(b, true);
    data.selectObject(a, true);
    EXPECT_TRUE(data.isSelected(a));
    EXPECT_EQ(data.firstSelectedObject(), a);
    EXPECT_EQ(data.selection().countSet(), 2u);
    data.selectObject(b, false);
    EXPECT_FALSE(data.isSelected(a));
    EXPECT_EQ(data.firstSelectedObject(), b);
    data.deselectObject(b);
    data.deselectObject(b);
    EXPECT_EQ(data.firstSelectedObject(), std::nullopt);
}

TEST(EditorDataTest, neitherTheRootNorNothingIsSelected) {
    EditorData data;
    for(const Id id: {RootObject, Id{1}, NoObject}) {
        data.selectObject(id, true);
        EXPECT_FALSE(data.isSelected(id)) << id;
        data.deselectObject(id);
    }
    EXPECT_EQ(data.selection().countSet(), 0u);
}

TEST(EditorStateTest, viewsAreKnownByName) {
    EditorState state;
    const unsigned scene = state.registerView("Scene View"), log = state.registerView("Log");
    EXPECT_NE(scene, log);
    EXPECT_TRUE(state.isViewOpen(scene));
    bool& isOpen = state.isViewOpen(scene);
    isOpen = false;
    for(int i = 0; i != 100; ++i) state.registerView(std::to_string(i).c_str());
    // As it was left, under the same index.
    EXPECT_EQ(state.registerView("Scene View"), scene);
    EXPECT_FALSE(isOpen);
    EXPECT_FALSE(state.isViewOpen(scene));
    EXPECT_TRUE(state.isViewOpen(log));
    EXPECT_EQ(state.viewName(log), "Log");
}

TEST(SharedStateTest, hasOneByteForEachDisplay) {
    VantrelEditor editor;
    SharedState& state = editor.state();
    EXPECT_THAT(state.debugDisplay, testing::Each(0));
    state.display(DebugDisplay::Overdraw) = 1;
    EXPECT_THAT(state.debugDisplay, testing::ElementsAre(0, 0, 1, 0, 0, 0));
    EXPECT_FALSE(state.isSimulating());
    state.debugDisplay[5] = 1;
    EXPECT_TRUE(state.isSimulating());
    EXPECT_EQ(state.pickRequest.isPending, 0u);
}

} // namespace
