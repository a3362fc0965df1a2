#pragma once

namespace VantrelEngine {

// Whether the key was pressed since the last frame.
bool isEscapePressed();
bool isEnterPressed();
bool isBackspacePressed();

// Which way the arrow keys say, x to the right and y down; a key that is held says so again and again.
struct ArrowKeys {
    int x = 0, y = 0;
};
ArrowKeys pressedArrows();

} // namespace VantrelEngine
