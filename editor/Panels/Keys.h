#pragma once

namespace VantrelEngine {

// Whether the key was pressed since the last frame.
bool isEscapePressed();
bool isEnterPressed();

// What is typed into a list; repeated while it is held.
enum class PanelKey { Up, Down, Left, Right, PageUp, PageDown, Home, End, Delete, Rename };
bool isKeyTyped(PanelKey key);

} // namespace VantrelEngine
