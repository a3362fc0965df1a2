#pragma once

namespace VantrelEngine {

// Whether the key was pressed since the last frame.
bool isEscapePressed();
bool isEnterPressed();
// The same for a key of the UI library, ImGuiKey_..., which comes again and again while it is held.
bool isPressedAgain(int key);

// What is typed into a list; repeated while it is held.
enum class PanelKey { Up, Down, Left, Right, PageUp, PageDown, Home, End, Delete, Rename };
bool isKeyTyped(PanelKey key);

} // namespace VantrelEngine
