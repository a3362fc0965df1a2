#pragma once

#include <optional>

#include "Panels/Command.h"

namespace VantrelEngine {

// The command of the menu that a key calls with these modifiers, which have to be exactly those of the shortcut. Only
// undo and redo answer to repeats.
std::optional<Command> shortcutOf(int key, unsigned modifiers, bool isRepeated);

} // namespace VantrelEngine
