#pragma once

#include <optional>

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>
#include <Vantrel/Module/InputEvents.h>

#include "Application/Shortcuts.h"
#include "Panels/Command.h"

namespace VantrelEngine {

class EventDelivery;
class InterfaceInput;

// What the UI library makes of the input.
struct InterfaceFocus {
    // The mouse is over the view's window, and no other window or menu is in between.
    bool isViewHovered = false;
    ShortcutFocus focus = ShortcutFocus::Elsewhere;
    // Somebody types into a field.
    bool isTyping = false;
    // A dialog or a menu has to be closed first.
    bool isBlocked = false;
};

// Takes what the window system or a script reports and hands it to the UI library and to the view: a press over the view,
// a key while nobody types, whatever has the focus (the view asks for that itself), and releases of what it was told of.
class InputRouter {
public:
    explicit InputRouter(InterfaceInput& interface, EventDelivery& delivery):
        _interface{interface}, _delivery{delivery} {}

    // As of the last frame.
    void setFocus(const InterfaceFocus& focus) {
        _focus = focus;
        _isClickUnseen = false;
    }

    // Those that hold, however their keys were pressed: while the window had no focus nobody saw them.
    void setModifiers(unsigned modifiers);
    // Window points, y down.
    void moveTo(const Magnum::Vector2& position);
    // The cursor was put there without having been moved: no way to tell anybody.
    void warpTo(const Magnum::Vector2& position);
    // The modifiers add to the keys that are held. A press that the view must not see is the UI library's alone.
    void setButton(MouseButton button, bool isDown, unsigned modifiers = 0, bool isForView = true);
    // Whether the view sees a press now.
    bool isOverView() const { return _focus.isViewHovered && !_focus.isBlocked; }
    void scroll(const Magnum::Vector2& offset, unsigned modifiers = 0);
    // Returns the command whose shortcut the key is; the view does not hear of it then.
    std::optional<Command> setKey(int key, bool isDown, bool isRepeated);
    void addText(Corrade::Containers::StringView utf8);
    void setWindowFocus(bool isFocused);
    // Nothing is held any more, for whoever was told that it is.
    void letGo();
    // The left button, for the UI library alone: something from outside is dragged over the window.
    void holdForInterface(bool isDown);

    Magnum::Vector2 position() const { return _position; }
    unsigned modifiers() const { return _modifiers; }

private:
    void updateModifiers(int key, bool isDown);
    unsigned heldModifiers() const;

    InterfaceInput& _interface;
    EventDelivery& _delivery;
    InterfaceFocus _focus;
    // Something else than the view was clicked since the last frame, perhaps a field that takes the keys from now on.
    bool _isClickUnseen = false;
    Magnum::Vector2 _position;
    // Where the view was told the mouse is, whole points.
    Magnum::Vector2i _toldPosition;
    // One bit for each of the eight keys, left ones in the lower half.
    unsigned _heldModifierKeys = 0;
    // Held by keys that were not seen.
    unsigned _otherModifiers = 0;
    unsigned _modifiers = 0;
};

} // namespace VantrelEngine
