#include "Application/InputRouter.h"

#include <gtest/gtest.h>
#include <imgui.h>

#include "Application/InterfaceInput.h"
#include "Modules/EventDelivery.h"
#include "Panels/Keys.h"

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

namespace {

class InputRouterTest: public testing::Test {
protected:
    InputRouterTest() {
        unsigned char* pixels;
        int width, height;
        ImGui::GetIO().IniFilename = nullptr;
        ImGui::GetIO().Fonts->GetTexDataAsAlpha8(&pixels, &width, &height);
        interface.setDisplay({640.0f, 480.0f}, {1.0f, 1.0f});
        drawFrame();
    }
    ~InputRouterTest() override { ImGui::DestroyContext(context); }

    void drawFrame() {
        interface.beginFrame(1.0 / 60.0);
        ImGui::NewFrame();
        wasEscapePressed = isEscapePressed();
        ImGui::EndFrame();
    }

    // The modifiers that hold after a key's event, of which the window system says what held before it.
    unsigned key(int key, bool isDown, unsigned before) {
        router.setModifiers(before);
        router.setKey(key, isDown, false);
        return router.modifiers();
    }

    // First: what follows feeds it.
    ImGuiContext* context = ImGui::CreateContext();
    InterfaceInput interface;
    EventDelivery delivery;
    InputRouter router{interface, delivery};
    bool wasEscapePressed = false;
};

TEST_F(InputRouterTest, AKeyBetweenTwoFramesIsSeenOnce) {
    router.setKey(GLFW_KEY_ESCAPE, true, false);
    router.setKey(GLFW_KEY_ESCAPE, false, false);
    int seen = 0;
    for(int i = 0; i != 4; ++i) {
        drawFrame();
        seen += wasEscapePressed;
    }
    EXPECT_EQ(seen, 1);
    drawFrame();
    router.setKey(GLFW_KEY_ESCAPE, true, false);
    drawFrame();
    EXPECT_TRUE(wasEscapePressed) << "it was up in between";
}

TEST_F(InputRouterTest, AShortcutBetweenTwoFramesKeepsItsModifiers) {
    router.setKey(GLFW_KEY_LEFT_CONTROL, true, false);
    router.setKey(GLFW_KEY_C, true, false);
    router.setKey(GLFW_KEY_C, false, false);
    router.setKey(GLFW_KEY_LEFT_CONTROL, false, false);
    bool isSeen = false;
    for(int i = 0; i != 4; ++i) {
        drawFrame();
        isSeen |= ImGui::GetIO().KeyCtrl;
    }
    EXPECT_TRUE(isSeen);
    EXPECT_FALSE(ImGui::GetIO().KeyCtrl);
}

// A field may have taken the keys with that click.
TEST_F(InputRouterTest, AKeyRightAfterAClickOnAPanelActsOnNothing) {
    const auto undo = [&] {
        router.setKey(GLFW_KEY_LEFT_CONTROL, true, false);
        const std::optional<Command> command = router.setKey(GLFW_KEY_Z, true, false);
        router.setKey(GLFW_KEY_Z, false, false);
        router.setKey(GLFW_KEY_LEFT_CONTROL, false, false);
        return command;
    };
    EXPECT_EQ(undo(), Command::Undo);
    router.setButton(MouseButton::Left, true);
    EXPECT_EQ(undo(), std::nullopt);
    router.setFocus({});
    EXPECT_EQ(undo(), Command::Undo);
    router.setButton(MouseButton::Left, false);
    EXPECT_EQ(undo(), std::nullopt) << "a field may be opened by the release, too";
    router.setFocus({});
    EXPECT_EQ(undo(), Command::Undo);
}

TEST_F(InputRouterTest, ModifiersOfKeysThatNobodySaw) {
    router.setModifiers(ModifierShift | ModifierControl);
    EXPECT_EQ(router.modifiers(), unsigned(ModifierShift | ModifierControl));
    // Whichever of the two keys it is.
    EXPECT_EQ(key(GLFW_KEY_RIGHT_SHIFT, false, ModifierShift | ModifierControl), unsigned(ModifierControl));
    EXPECT_EQ(key(GLFW_KEY_A, true, 0), 0u) << "released, and nobody saw it";
}

TEST_F(InputRouterTest, ModifiersOfKeysThatWereSeen) {
    EXPECT_EQ(key(GLFW_KEY_LEFT_SHIFT, true, 0), unsigned(ModifierShift));
    EXPECT_EQ(key(GLFW_KEY_RIGHT_SHIFT, true, ModifierShift), unsigned(ModifierShift));
    EXPECT_EQ(key(GLFW_KEY_LEFT_SHIFT, false, ModifierShift), unsigned(ModifierShift)) << "the right one is held";
    EXPECT_EQ(key(GLFW_KEY_RIGHT_SHIFT, false, ModifierShift), 0u);
    key(GLFW_KEY_LEFT_ALT, true, 0);
    router.setModifiers(0);
    EXPECT_EQ(router.modifiers(), 0u) << "its release was not seen";
    router.setModifiers(ModifierAlt);
    router.setWindowFocus(false);
    EXPECT_EQ(router.modifiers(), 0u);
}

} // namespace

} // namespace VantrelEngine
