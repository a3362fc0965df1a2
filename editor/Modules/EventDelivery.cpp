#include "Modules/EventDelivery.h"

namespace VantrelEngine {

using namespace Magnum;

void EventDelivery::setModule(AbstractModule* module) {
    _module = module;
    _buttons.clear();
    _keys.clear();
}

void EventDelivery::pressButton(const MouseEvent& event, bool isForModule) {
    if(!isForModule || !takesInput()) return;
    if(_buttons.insert(event.button).second) _module->mousePressEvent(event);
}

void EventDelivery::releaseButton(const MouseEvent& event) {
    if(_buttons.erase(event.button)) _module->mouseReleaseEvent(event);
}

void EventDelivery::pressKey(const KeyEvent& event, bool isForModule) {
    if(event.isRepeated) {
        if(_keys.count(event.key)) _module->keyPressEvent(event);
        return;
    }
    if(!isForModule || !takesInput()) return;
    if(_keys.insert(event.key).second) _module->keyPressEvent(event);
}

void EventDelivery::releaseKey(const KeyEvent& event) {
    if(_keys.erase(event.key)) _module->keyReleaseEvent(event);
}

void EventDelivery::move(const MouseMoveEvent& event) {
    if(takesInput()) _module->mouseMoveEvent(event);
}

void EventDelivery::scroll(const MouseScrollEvent& event) {
    if(takesInput()) _module->mouseScrollEvent(event);
}

void EventDelivery::releaseAll(const Vector2i& position) {
    if(_keys.empty() && _buttons.empty()) return;
    loseFocus(position);
}

// In this order: a release that the user did not mean finishes nothing.
void EventDelivery::loseFocus(const Vector2i& position) {
    if(_module) _module->focusLost();
    while(!_keys.empty()) releaseKey({*_keys.begin(), 0, false});
    while(!_buttons.empty()) releaseButton({*_buttons.begin(), position, 0});
}

} // namespace VantrelEngine
