#pragma once

#include <bitset>

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Feeds the UI context that is current. What comes between two frames is what the next one sees; a button or a
// key that was pressed and released in between is down for one frame, with the modifiers of its press.
class InterfaceInput {
public:
    static constexpr int ButtonCount = 3;

    InterfaceInput();

    // Window points, and framebuffer pixels per point.
    void setDisplay(const Magnum::Vector2& size, const Magnum::Vector2& framebufferScale);

    void moveTo(const Magnum::Vector2& position);
    // 0 left, 1 right, 2 middle.
    void setButton(int button, bool isDown);
    // The left button as that of something that is dragged from elsewhere: what lies under the mouse sees no click.
    void hold(bool isDown);
    void scroll(const Magnum::Vector2& offset);
    // A GLFW code; the modifiers are those that hold after the event.
    void setKey(int key, bool isDown, unsigned modifiers);
    void addText(Corrade::Containers::StringView utf8);
    void setFocus(bool isFocused);

    // Before each frame, with the seconds since the last one.
    void beginFrame(Magnum::Double delta);
    // When the UI library's frame has begun, before any of its windows.
    void frameBegun();

private:
    // As many as the UI library's older versions know.
    static constexpr int KeyCount = 512;

    void setModifiers(unsigned modifiers);

    bool _isHeld = false;
    bool _isDown[ButtonCount]{};
    bool _wasPressed[ButtonCount]{};
    std::bitset<KeyCount> _isKeyDown, _wasKeyPressed;
    unsigned _modifiers = 0, _pressModifiers = 0;
};

} // namespace VantrelEngine
