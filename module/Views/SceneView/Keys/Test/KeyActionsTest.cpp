#include "Views/SceneView/Keys/KeyActions.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

namespace {

using Actions = std::vector<KeyAction>;
using testing::ElementsAre;

constexpr unsigned None = 0, Shift = 1, Ctrl = 2, Alt = 4, Super = 8;
constexpr KeyContext Focused{true, true, false, true};

// But navigation, which comes with every press.
Actions pressed(int key, unsigned modifiers = None, const KeyContext& context = Focused, bool isRepeated = false) {
    Actions actions = actionsOf({key, modifiers, isRepeated}, context);
    const auto navigate = std::find(actions.begin(), actions.end(), KeyAction::Navigate);
    EXPECT_NE(navigate, actions.end());
    if(navigate != actions.end()) actions.erase(navigate);
    return actions;
}

struct Binding {
    int key;
    KeyAction action;
};

constexpr Binding IdleBindings[]{{GLFW_KEY_G, KeyAction::ChooseTranslation}, {GLFW_KEY_R, KeyAction::ChooseRotation},
    {GLFW_KEY_S, KeyAction::ChooseScaling}, {GLFW_KEY_B, KeyAction::ArmBox},
    {GLFW_KEY_DELETE, KeyAction::DeleteSelected}, {GLFW_KEY_KP_7, KeyAction::ShowAxisView},
    {GLFW_KEY_KP_1, KeyAction::ShowAxisView}, {GLFW_KEY_KP_3, KeyAction::ShowAxisView},
    {GLFW_KEY_ESCAPE, KeyAction::CancelBox}};

constexpr Binding ClipboardBindings[]{
    {GLFW_KEY_C, KeyAction::Copy}, {GLFW_KEY_V, KeyAction::Paste}, {GLFW_KEY_D, KeyAction::Duplicate}};
constexpr Binding TreeBindings[]{
    {GLFW_KEY_C, KeyAction::CopyTrees}, {GLFW_KEY_V, KeyAction::PasteChild}, {GLFW_KEY_D, KeyAction::DuplicateTrees}};

TEST(KeyActionsTest, IdleKeysAllowShiftAndSuperAndRepeat) {
    for(const Binding& binding: IdleBindings)
        for(unsigned modifiers = 0; modifiers != 16; ++modifiers)
            for(const bool isRepeated: {false, true}) {
                const bool isBound = !(modifiers & (Ctrl | Alt));
                const Actions actions = pressed(binding.key, modifiers, Focused, isRepeated);
                EXPECT_EQ(std::count(actions.begin(), actions.end(), binding.action), isBound)
                    << binding.key << " with " << modifiers;
            }
}

TEST(KeyActionsTest, IdleKeysNeedTheFocusAndAnIdleCamera) {
    for(const Binding& binding: IdleBindings) {
        EXPECT_THAT(pressed(binding.key, None, {false, true, false, true}), ElementsAre());
        EXPECT_THAT(pressed(binding.key, None, {true, false, false, true}), ElementsAre());
        // A widget that is being used is no reason: who types is not heard here at all.
        EXPECT_THAT(pressed(binding.key, None, {true, true, true, true}), ElementsAre(binding.action));
    }
}

void expectExactly(const Binding& binding, unsigned wanted) {
    for(unsigned modifiers = 0; modifiers != 16; ++modifiers) {
        const Actions actions = pressed(binding.key, modifiers);
        EXPECT_EQ(std::count(actions.begin(), actions.end(), binding.action), modifiers == wanted)
            << binding.key << " with " << modifiers;
    }
    EXPECT_THAT(pressed(binding.key, wanted, Focused, true), ElementsAre()) << "held";
    EXPECT_THAT(pressed(binding.key, wanted, {false, true, false, true}), ElementsAre()) << "without the focus";
    // In any mode of the camera.
    EXPECT_THAT(pressed(binding.key, wanted, {true, false, false, true}), ElementsAre(binding.action));
}

TEST(KeyActionsTest, ClipboardKeysWantTheirModifiersExactly) {
    for(const Binding& binding: ClipboardBindings) expectExactly(binding, Ctrl);
    for(const Binding& binding: TreeBindings) expectExactly(binding, Ctrl | Shift);
    EXPECT_THAT(pressed(GLFW_KEY_C, Ctrl | Shift), ElementsAre(KeyAction::CopyTrees));
    EXPECT_THAT(pressed(GLFW_KEY_C, Ctrl | Alt), ElementsAre());
    EXPECT_THAT(pressed(GLFW_KEY_C, Ctrl | Super), ElementsAre());
}

TEST(KeyActionsTest, TheSimulationWantsAltAndTheSetting) {
    expectExactly({GLFW_KEY_S, KeyAction::ToggleSimulation}, Alt);
    EXPECT_THAT(pressed(GLFW_KEY_S, Alt, {true, true, false, false}), ElementsAre());
    EXPECT_THAT(pressed(GLFW_KEY_S), ElementsAre(KeyAction::ChooseScaling));
}

TEST(KeyActionsTest, FramingWantsNothingButAnInterfaceAtRest) {
    for(unsigned modifiers = 0; modifiers != 16; ++modifiers)
        for(const bool hasFocus: {false, true})
            for(const bool isIdle: {false, true})
                for(const bool isRepeated: {false, true}) {
                    EXPECT_THAT(pressed(GLFW_KEY_F, modifiers, {hasFocus, isIdle, false, true}, isRepeated),
                        ElementsAre(KeyAction::FrameSelection));
                    EXPECT_THAT(
                        pressed(GLFW_KEY_F, modifiers, {hasFocus, isIdle, true, true}, isRepeated), ElementsAre());
                }
}

TEST(KeyActionsTest, FramingComesBeforeNavigationAndTheRestAfterIt) {
    EXPECT_THAT(
        actionsOf({GLFW_KEY_F, None, false}, Focused), ElementsAre(KeyAction::FrameSelection, KeyAction::Navigate));
    // The key of the scaling is one of movement, too.
    EXPECT_THAT(
        actionsOf({GLFW_KEY_S, None, false}, Focused), ElementsAre(KeyAction::Navigate, KeyAction::ChooseScaling));
    EXPECT_THAT(actionsOf({GLFW_KEY_W, None, true}, {}), ElementsAre(KeyAction::Navigate));
}

TEST(KeyActionsTest, NoOtherKeyDoesAnything) {
    for(int key = -1; key <= GLFW_KEY_LAST; ++key) {
        const auto isKey = [key](const Binding& binding) { return binding.key == key; };
        const bool isBound = std::any_of(std::begin(IdleBindings), std::end(IdleBindings), isKey) ||
            std::any_of(std::begin(ClipboardBindings), std::end(ClipboardBindings), isKey) || key == GLFW_KEY_F;
        if(isBound) continue;
        for(unsigned modifiers = 0; modifiers != 16; ++modifiers)
            EXPECT_THAT(pressed(key, modifiers), ElementsAre()) << key;
    }
}

TEST(KeyActionsTest, ChoosingTheGizmo) {
    constexpr GizmoOperation translate = GizmoOperation::Translate, rotate = GizmoOperation::Rotate;
    constexpr GizmoSpace local = GizmoSpace::Local, world = GizmoSpace::World;
    for(const GizmoSpace space: {local, world})
        for(const GizmoOperation operation: {translate, rotate, GizmoOperation::Scale}) {
            const GizmoChoice present{operation, space};
            const GizmoSpace other = space == world ? local : world;
            EXPECT_EQ(chosen(KeyAction::ChooseTranslation, present),
                (GizmoChoice{translate, operation == translate ? other : world}));
            EXPECT_EQ(
                chosen(KeyAction::ChooseRotation, present), (GizmoChoice{rotate, operation == rotate ? other : world}));
            EXPECT_EQ(chosen(KeyAction::ChooseScaling, present), (GizmoChoice{GizmoOperation::Scale, local}));
            EXPECT_EQ(chosen(KeyAction::ArmBox, present), present);
        }
}

} // namespace

} // namespace VantrelEngine
