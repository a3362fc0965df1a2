#include "Application/Shortcuts.h"

#include <Vantrel/Module/InputEvents.h>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

namespace {

struct Shortcut {
    int key;
    unsigned modifiers;
    Command command;
    bool repeats;
};

constexpr Shortcut Shortcuts[]{{GLFW_KEY_N, ModifierControl, Command::New, false},
    {GLFW_KEY_O, ModifierControl, Command::Open, false}, {GLFW_KEY_S, ModifierControl, Command::Save, false},
    {GLFW_KEY_S, ModifierControl | ModifierShift, Command::SaveAs, false},
    {GLFW_KEY_Q, ModifierControl, Command::Quit, false}, {GLFW_KEY_Z, ModifierControl, Command::Undo, true},
    {GLFW_KEY_Y, ModifierControl, Command::Redo, true},
    {GLFW_KEY_Z, ModifierControl | ModifierShift, Command::Redo, true}, {GLFW_KEY_F5, 0, Command::ReloadView, false},
    {GLFW_KEY_F1, 0, Command::Help, false}};

} // namespace

std::optional<Command> shortcutOf(int key, unsigned modifiers, bool isRepeated) {
    for(const Shortcut& shortcut: Shortcuts)
        if(shortcut.key == key && shortcut.modifiers == modifiers && (shortcut.repeats || !isRepeated))
            return shortcut.command;
    return {};
}

} // namespace VantrelEngine
