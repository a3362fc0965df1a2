#pragma once

#include <optional>

#include "Panels/Command.h"

namespace VantrelEngine {

// What has the focus, as far as shortcuts ask for it.
enum class ShortcutFocus { View, Objects, Elsewhere };

// The command of the menu that a key calls with these modifiers, which have to be exactly those of the shortcut. Only
// undo, redo and deleting answer to repeats. What is done to the selected objects is asked for in the list of objects: in
// the view its own keys do it.
std::optional<Command> shortcutOf(int key, unsigned modifiers, bool isRepeated, ShortcutFocus focus);

} // namespace VantrelEngine
