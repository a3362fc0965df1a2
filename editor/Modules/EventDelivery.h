#pragma once

#include <set>

#include <Vantrel/Module/AbstractModule.h>

namespace VantrelEngine {

// Hands input events on to a module, so that what it hears is whole: the release of a key or button if and only if the
// module heard of its press.
class EventDelivery {
public:
    // Null for none. What is held is forgotten, see releaseAll().
    void setModule(AbstractModule* module);

    // isForModule: whether the press is the module's, because the mouse is over it, or because it has the focus.
    void pressButton(const MouseEvent& event, bool isForModule);
    void releaseButton(const MouseEvent& event);
    // A repeat is delivered if the press was.
    void pressKey(const KeyEvent& event, bool isForModule);
    void releaseKey(const KeyEvent& event);
    void move(const MouseMoveEvent& event);
    void scroll(const MouseScrollEvent& event);

    // Tells the module that the focus is lost, and then releases everything that it takes for held: the releases will go
    // elsewhere. Buttons are released at the position, window pixels.
    void loseFocus(const Magnum::Vector2i& position);
    // The same where something is held: the module goes away.
    void releaseAll(const Magnum::Vector2i& position);

    bool isButtonHeld() const { return !_buttons.empty(); }

private:
    bool takesInput() const { return _module && _module->takesInput(); }

    AbstractModule* _module = nullptr;
    std::set<MouseButton> _buttons;
    std::set<int> _keys;
};

} // namespace VantrelEngine
