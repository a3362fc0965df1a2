#pragma once

#include <optional>
#include <string_view>

namespace VantrelEngine {

// The GLFW code of a key as a script names it: "W", "7", "F5", "Escape", "LeftShift", "Keypad7", ... Case does not matter.
std::optional<int> keyOf(std::string_view name);

// The bit of the modifier that a key is, 0 for another key.
unsigned modifierOf(int key);

} // namespace VantrelEngine
