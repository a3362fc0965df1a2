#pragma once

#include "Panels/Command.h"
#include "Panels/MenuBar.h"

namespace VantrelEngine {

class VantrelEditor;

// Does what a command does to the objects or to the selection, as the keys of the view do; the clipboard is the UI
// library's. Other commands do nothing.
void performEdit(Command command, VantrelEditor& editor);

// Which of these commands can do something now. Whether the clipboard holds objects is asked for apart: taking a look may
// be slow.
EditAbilities editAbilities(VantrelEditor& editor, bool clipboardHasObjects);
bool clipboardHasObjects();

} // namespace VantrelEngine
