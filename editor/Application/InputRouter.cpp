#include "Application/InputRouter.h"

#include <Magnum/Math/Functions.h>

#include "Application/InterfaceInput.h"
#include "Application/KeyNames.h"
#include "Modules/EventDelivery.h"

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr int NoKey = GLFW_KEY_UNKNOWN;
constexpr unsigned ModifierKeyCount = 4;
constexpr unsigned AllModifiers = (1u << ModifierKeyCount) - 1;

Vector2i wholePoints(const Vector2& position) { return Vector2i{Math::floor(position)}; }

} // namespace

void InputRouter::setModifiers(unsigned modifiers) {
    modifiers &= AllModifiers;
    _heldModifierKeys &= modifiers | modifiers << ModifierKeyCount;
    _otherModifiers = modifiers & ~heldModifiers();
    _modifiers = modifiers;
}

void InputRouter::moveTo(const Vector2& position) {
    _position = position;
    _interface.moveTo(position);
    // Differences of whole points add up to where the mouse is, however small its steps are.
    const Vector2i whole = wholePoints(position);
    const Vector2i way = whole - _toldPosition;
    _toldPosition = whole;
    if(way != Vector2i{}) _delivery.move({way, _modifiers});
}

void InputRouter::warpTo(const Vector2& position) {
    _position = position;
    _toldPosition = wholePoints(position);
    _interface.moveTo(position);
}

void InputRouter::setButton(MouseButton button, bool isDown, unsigned modifiers, bool isForView) {
    _interface.setKey(NoKey, false, _modifiers | modifiers);
    _interface.setButton(int(button), isDown);
    const MouseEvent event{button, wholePoints(_position), _modifiers | modifiers};
    if(!isOverView()) _isClickUnseen = true;
    if(isDown)
        _delivery.pressButton(event, isForView && isOverView());
    else
        _delivery.releaseButton(event);
}

void InputRouter::scroll(const Vector2& offset, unsigned modifiers) {
    _interface.scroll(offset);
    if(_focus.isViewHovered || _delivery.isButtonHeld()) _delivery.scroll({offset, _modifiers | modifiers});
}

std::optional<Command> InputRouter::setKey(int key, bool isDown, bool isRepeated) {
    updateModifiers(key, isDown);
    _interface.setKey(key, isDown, _modifiers);
    const KeyEvent event{key, _modifiers, isRepeated};
    if(!isDown) {
        _delivery.releaseKey(event);
        return {};
    }
    const bool isForKeys = !_focus.isTyping && !_focus.isBlocked && !_isClickUnseen;
    if(isForKeys && !_delivery.isButtonHeld())
        if(const std::optional<Command> command = shortcutOf(key, _modifiers, isRepeated, _focus.focus)) return command;
    _delivery.pressKey(event, isForKeys);
    return {};
}

void InputRouter::addText(Containers::StringView utf8) { _interface.addText(utf8); }

void InputRouter::setWindowFocus(bool isFocused) {
    _interface.setFocus(isFocused);
    if(isFocused) return;
    _heldModifierKeys = _otherModifiers = _modifiers = 0;
    _delivery.loseFocus(wholePoints(_position));
}

void InputRouter::letGo() {
    for(int button = 0; button != InterfaceInput::ButtonCount; ++button) _interface.setButton(button, false);
    _delivery.releaseAll(wholePoints(_position));
}

void InputRouter::holdForInterface(bool isDown) { _interface.hold(isDown); }

void InputRouter::updateModifiers(int key, bool isDown) {
    const unsigned modifier = modifierOf(key);
    if(!modifier) return;
    const unsigned bit = key >= GLFW_KEY_RIGHT_SHIFT ? modifier << ModifierKeyCount : modifier;
    _heldModifierKeys = isDown ? _heldModifierKeys | bit : _heldModifierKeys & ~bit;
    if(!isDown) _otherModifiers &= ~modifier;
    _modifiers = heldModifiers() | _otherModifiers;
}

unsigned InputRouter::heldModifiers() const {
    return (_heldModifierKeys | _heldModifierKeys >> ModifierKeyCount) & AllModifiers;
}

} // namespace VantrelEngine
