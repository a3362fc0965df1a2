#include "Application/InterfaceInput.h"

#include <algorithm>
#include <string>

#include <Vantrel/Module/InputEvents.h>
#include <imgui.h>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

struct KeyPair {
    ImGuiKey interfaceKey;
    int key;
};

// What the UI library answers to by itself.
constexpr KeyPair Keys[] {
    {ImGuiKey_Tab, GLFW_KEY_TAB}, {ImGuiKey_LeftArrow, GLFW_KEY_LEFT}, {ImGuiKey_RightArrow, GLFW_KEY_RIGHT},
        {ImGuiKey_UpArrow, GLFW_KEY_UP}, {ImGuiKey_DownArrow, GLFW_KEY_DOWN}, {ImGuiKey_PageUp, GLFW_KEY_PAGE_UP},
        {ImGuiKey_PageDown, GLFW_KEY_PAGE_DOWN}, {ImGuiKey_Home, GLFW_KEY_HOME}, {ImGuiKey_End, GLFW_KEY_END},
        {ImGuiKey_Insert, GLFW_KEY_INSERT}, {ImGuiKey_Delete, GLFW_KEY_DELETE},
        {ImGuiKey_Backspace, GLFW_KEY_BACKSPACE}, {ImGuiKey_Space, GLFW_KEY_SPACE}, {ImGuiKey_Enter, GLFW_KEY_ENTER},
        {ImGuiKey_Escape, GLFW_KEY_ESCAPE}, {ImGuiKey_A, GLFW_KEY_A}, {ImGuiKey_C, GLFW_KEY_C},
        {ImGuiKey_V, GLFW_KEY_V}, {ImGuiKey_X, GLFW_KEY_X}, {ImGuiKey_Y, GLFW_KEY_Y}, {ImGuiKey_Z, GLFW_KEY_Z},
#if IMGUI_VERSION_NUM >= 18700
        {ImGuiKey_F2, GLFW_KEY_F2},
#endif
};

// The library divides by it.
constexpr Double LeastDelta = 1.0e-6;

} // namespace

InterfaceInput::InterfaceInput() {
    ImGuiIO& io = ImGui::GetIO();
    io.BackendPlatformName = "vantrel-editor";
    io.BackendFlags |= ImGuiBackendFlags_HasMouseCursors;
#if IMGUI_VERSION_NUM < 18700
    for(const KeyPair& pair: Keys) io.KeyMap[pair.interfaceKey] = pair.key;
#endif
}

void InterfaceInput::setDisplay(const Vector2& size, const Vector2& framebufferScale) {
    ImGuiIO& io = ImGui::GetIO();
    io.DisplaySize = {size.x(), size.y()};
    io.DisplayFramebufferScale = {framebufferScale.x(), framebufferScale.y()};
}

void InterfaceInput::addText(Containers::StringView utf8) {
    const std::string text{utf8.data(), utf8.size()};
    ImGui::GetIO().AddInputCharactersUTF8(text.data());
}

void InterfaceInput::hold(bool isDown) {
    setButton(ImGuiMouseButton_Left, isDown);
    _isHeld = isDown;
}

void InterfaceInput::frameBegun() {
    if(!_isHeld) return;
    ImGuiIO& io = ImGui::GetIO();
    io.MouseClicked[ImGuiMouseButton_Left] = io.MouseDoubleClicked[ImGuiMouseButton_Left] = false;
    io.MouseClickedCount[ImGuiMouseButton_Left] = 0;
}

#if IMGUI_VERSION_NUM >= 18700

void InterfaceInput::moveTo(const Vector2& position) { ImGui::GetIO().AddMousePosEvent(position.x(), position.y()); }

void InterfaceInput::setButton(int button, bool isDown) {
    if(button == ImGuiMouseButton_Left) _isHeld = false;
    if(button < ButtonCount) ImGui::GetIO().AddMouseButtonEvent(button, isDown);
}

void InterfaceInput::scroll(const Vector2& offset) { ImGui::GetIO().AddMouseWheelEvent(offset.x(), offset.y()); }

void InterfaceInput::setModifiers(unsigned modifiers) {
    ImGuiIO& io = ImGui::GetIO();
#if IMGUI_VERSION_NUM >= 18900
    io.AddKeyEvent(ImGuiMod_Ctrl, modifiers & ModifierControl);
    io.AddKeyEvent(ImGuiMod_Shift, modifiers & ModifierShift);
    io.AddKeyEvent(ImGuiMod_Alt, modifiers & ModifierAlt);
    io.AddKeyEvent(ImGuiMod_Super, modifiers & ModifierSuper);
#else
    io.AddKeyEvent(ImGuiKey_ModCtrl, modifiers & ModifierControl);
    io.AddKeyEvent(ImGuiKey_ModShift, modifiers & ModifierShift);
    io.AddKeyEvent(ImGuiKey_ModAlt, modifiers & ModifierAlt);
    io.AddKeyEvent(ImGuiKey_ModSuper, modifiers & ModifierSuper);
#endif
}

void InterfaceInput::setKey(int key, bool isDown, unsigned modifiers) {
    setModifiers(modifiers);
    for(const KeyPair& pair: Keys)
        if(pair.key == key) ImGui::GetIO().AddKeyEvent(pair.interfaceKey, isDown);
}

void InterfaceInput::setFocus(bool isFocused) { ImGui::GetIO().AddFocusEvent(isFocused); }

void InterfaceInput::beginFrame(Double delta) { ImGui::GetIO().DeltaTime = Float(std::max(delta, LeastDelta)); }

#else

void InterfaceInput::moveTo(const Vector2& position) { ImGui::GetIO().MousePos = {position.x(), position.y()}; }

void InterfaceInput::setButton(int button, bool isDown) {
    if(button >= ButtonCount) return;
    if(button == ImGuiMouseButton_Left) _isHeld = false;
    _isDown[button] = isDown;
    if(!isDown) return;
    _wasPressed[button] = true;
    _pressModifiers |= _modifiers;
}

void InterfaceInput::scroll(const Vector2& offset) {
    ImGuiIO& io = ImGui::GetIO();
    io.MouseWheelH += offset.x();
    io.MouseWheel += offset.y();
}

void InterfaceInput::setModifiers(unsigned modifiers) { _modifiers = modifiers; }

void InterfaceInput::setKey(int key, bool isDown, unsigned modifiers) {
    setModifiers(modifiers);
    if(key < 0 || key >= KeyCount) return;
    _isKeyDown[std::size_t(key)] = isDown;
    if(!isDown) return;
    _wasKeyPressed[std::size_t(key)] = true;
    _pressModifiers |= modifiers;
}

void InterfaceInput::setFocus(bool isFocused) {
    ImGui::GetIO().AddFocusEvent(isFocused);
    if(isFocused) return;
    // Releases will not come.
    _isKeyDown.reset();
    std::fill(std::begin(_isDown), std::end(_isDown), false);
    setModifiers(0);
}

void InterfaceInput::beginFrame(Double delta) {
    ImGuiIO& io = ImGui::GetIO();
    io.DeltaTime = Float(std::max(delta, LeastDelta));
    for(int button = 0; button != ButtonCount; ++button) {
        io.MouseDown[button] = _isDown[button] || _wasPressed[button];
        _wasPressed[button] = false;
    }
    static_assert(sizeof io.KeysDown / sizeof *io.KeysDown == KeyCount, "all keys that there are");
    const std::bitset<KeyCount> keys = _isKeyDown | _wasKeyPressed;
    for(std::size_t key = 0; key != KeyCount; ++key) io.KeysDown[key] = keys[key];
    _wasKeyPressed.reset();
    const unsigned modifiers = _modifiers | _pressModifiers;
    _pressModifiers = 0;
    io.KeyCtrl = modifiers & ModifierControl;
    io.KeyShift = modifiers & ModifierShift;
    io.KeyAlt = modifiers & ModifierAlt;
    io.KeySuper = modifiers & ModifierSuper;
}

#endif

} // namespace VantrelEngine
