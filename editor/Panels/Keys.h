#pragma once

namespace VantrelEngine {

// Whether the key was pressed since the last frame.
bool isEscapePressed();
bool isEnterPressed();
// The same for a key of the UI library, ImGuiKey_..., which comes again and again while it is held.
bool isPressedAgain(int key);
// F2.
bool isRenamePressed();

} // namespace VantrelEngine
