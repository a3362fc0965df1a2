#pragma once

namespace VantrelEngine {

// Lists all keys and buttons. The window's close button writes through the reference.
void drawHelpWindow(bool& isOpen);

} // namespace VantrelEngine
