#include <Magnum/Platform/GlfwApplication.h>

#include <gtest/gtest.h>

typedef Magnum::Platform::GlfwApplication Application;
typedef Application::Key Key;

namespace {

// Applications pass the numbers on: they are GLFW's.
TEST(KeyTest, numbersAreThoseOfGlfw) {
    const struct {
        Key key;
        int glfw;
    } data[]{{Key::Unknown, GLFW_KEY_UNKNOWN}, {Key::LeftShift, GLFW_KEY_LEFT_SHIFT},
        {Key::RightShift, GLFW_KEY_RIGHT_SHIFT}, {Key::LeftCtrl, GLFW_KEY_LEFT_CONTROL},
        {Key::RightCtrl, GLFW_KEY_RIGHT_CONTROL}, {Key::LeftAlt, GLFW_KEY_LEFT_ALT},
        {Key::RightAlt, GLFW_KEY_RIGHT_ALT}, {Key::LeftSuper, GLFW_KEY_LEFT_SUPER},
        {Key::RightSuper, GLFW_KEY_RIGHT_SUPER}, {Key::CapsLock, GLFW_KEY_CAPS_LOCK},
        {Key::ScrollLock, GLFW_KEY_SCROLL_LOCK}, {Key::NumLock, GLFW_KEY_NUM_LOCK}, {Key::Enter, GLFW_KEY_ENTER},
        {Key::Esc, GLFW_KEY_ESCAPE}, {Key::Space, GLFW_KEY_SPACE}, {Key::Tab, GLFW_KEY_TAB},
        {Key::Backspace, GLFW_KEY_BACKSPACE}, {Key::Insert, GLFW_KEY_INSERT}, {Key::Delete, GLFW_KEY_DELETE},
        {Key::Up, GLFW_KEY_UP}, {Key::Down, GLFW_KEY_DOWN}, {Key::Left, GLFW_KEY_LEFT}, {Key::Right, GLFW_KEY_RIGHT},
        {Key::Home, GLFW_KEY_HOME}, {Key::End, GLFW_KEY_END}, {Key::PageUp, GLFW_KEY_PAGE_UP},
        {Key::PageDown, GLFW_KEY_PAGE_DOWN}, {Key::PrintScreen, GLFW_KEY_PRINT_SCREEN}, {Key::Pause, GLFW_KEY_PAUSE},
        {Key::Menu, GLFW_KEY_MENU}, {Key::F1, GLFW_KEY_F1}, {Key::F2, GLFW_KEY_F2}, {Key::F12, GLFW_KEY_F12},
        {Key::Quote, GLFW_KEY_APOSTROPHE}, {Key::Comma, GLFW_KEY_COMMA}, {Key::Period, GLFW_KEY_PERIOD},
        {Key::Minus, GLFW_KEY_MINUS}, {Key::Slash, GLFW_KEY_SLASH}, {Key::Semicolon, GLFW_KEY_SEMICOLON},
        {Key::Equal, GLFW_KEY_EQUAL}, {Key::LeftBracket, GLFW_KEY_LEFT_BRACKET},
        {Key::RightBracket, GLFW_KEY_RIGHT_BRACKET}, {Key::Backslash, GLFW_KEY_BACKSLASH},
        {Key::Backquote, GLFW_KEY_GRAVE_ACCENT}, {Key::Zero, GLFW_KEY_0}, {Key::One, GLFW_KEY_1},
        {Key::Nine, GLFW_KEY_9}, {Key::A, GLFW_KEY_A}, {Key::D, GLFW_KEY_D}, {Key::Q, GLFW_KEY_Q}, {Key::R, GLFW_KEY_R},
        {Key::S, GLFW_KEY_S}, {Key::W, GLFW_KEY_W}, {Key::Z, GLFW_KEY_Z}, {Key::NumZero, GLFW_KEY_KP_0},
        {Key::NumOne, GLFW_KEY_KP_1}, {Key::NumSeven, GLFW_KEY_KP_7}, {Key::NumNine, GLFW_KEY_KP_9},
        {Key::NumDecimal, GLFW_KEY_KP_DECIMAL}, {Key::NumDivide, GLFW_KEY_KP_DIVIDE},
        {Key::NumMultiply, GLFW_KEY_KP_MULTIPLY}, {Key::NumSubtract, GLFW_KEY_KP_SUBTRACT},
        {Key::NumAdd, GLFW_KEY_KP_ADD}, {Key::NumEnter, GLFW_KEY_KP_ENTER}, {Key::NumEqual, GLFW_KEY_KP_EQUAL}};
    for(const auto& i: data) EXPECT_EQ(int(i.key), i.glfw);
}

TEST(KeyTest, modifiersAreBitsOfGlfw) {
    EXPECT_EQ(int(Application::Modifier::Shift), 1);
    EXPECT_EQ(int(Application::Modifier::Ctrl), 2);
    EXPECT_EQ(int(Application::Modifier::Alt), 4);
    EXPECT_EQ(int(Application::Modifier::Super), 8);
}

TEST(KeyTest, pointersAreBitsWithTheMiddleBeforeTheRight) {
    EXPECT_EQ(int(Application::Pointer::MouseLeft), 1);
    EXPECT_EQ(int(Application::Pointer::MouseMiddle), 2);
    EXPECT_EQ(int(Application::Pointer::MouseRight), 4);
    EXPECT_EQ(int(Application::Pointer::MouseButton4), 8);
    EXPECT_EQ(int(Application::Pointer::MouseButton8), 128);
}

}
