#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// What the user did, as the host tells it to a view. Key codes, buttons and modifiers are those of GLFW.

// Bits of the modifiers. A modifier counts while its left or its right key is down.
enum Modifier : unsigned { ModifierShift = 1, ModifierControl = 2, ModifierAlt = 4, ModifierSuper = 8 };

enum class MouseButton : Magnum::UnsignedByte { Left = 0, Right = 1, Middle = 2 };

struct MouseEvent {
    MouseButton button;
    // Window pixels, y down.
    Magnum::Vector2i position;
    unsigned modifiers;
};

struct MouseMoveEvent {
    // Window pixels since the last event, x to the right and y down.
    Magnum::Vector2i relativePosition;
    unsigned modifiers;
};

struct MouseScrollEvent {
    // Steps of the wheel; y is positive when it turns away from the user.
    Magnum::Vector2 offset;
    unsigned modifiers;
};

struct KeyEvent {
    // -1 where GLFW does not know the key.
    int key;
    unsigned modifiers;
    // Sent again and again while the key is held.
    bool isRepeated;
};

} // namespace VantrelEngine
