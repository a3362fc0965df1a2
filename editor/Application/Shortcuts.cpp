#include "Application/Shortcuts.h"

#include <Vantrel/Module/InputEvents.h>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

namespace {

enum class Where { Anywhere, ObjectsOrView, Objects };

struct Shortcut {
    int key;
    unsigned modifiers;
    Command command;
    bool repeats = false;
    Where where = Where::Anywhere;
};

constexpr unsigned Control = ModifierControl, ControlShift = ModifierControl | ModifierShift;

constexpr Shortcut Shortcuts[]{{GLFW_KEY_N, Control, Command::New}, {GLFW_KEY_O, Control, Command::Open},
    {GLFW_KEY_S, Control, Command::Save}, {GLFW_KEY_S, ControlShift, Command::SaveAs},
    {GLFW_KEY_Q, Control, Command::Quit}, {GLFW_KEY_Z, Control, Command::Undo, true},
    {GLFW_KEY_Y, Control, Command::Redo, true}, {GLFW_KEY_Z, ControlShift, Command::Redo, true},
    {GLFW_KEY_A, Control, Command::SelectAll, false, Where::ObjectsOrView},
    {GLFW_KEY_A, ControlShift, Command::SelectNone, false, Where::ObjectsOrView},
    {GLFW_KEY_C, Control, Command::Copy, false, Where::Objects},
    {GLFW_KEY_C, ControlShift, Command::CopyTrees, false, Where::Objects},
    {GLFW_KEY_V, Control, Command::Paste, false, Where::Objects},
    {GLFW_KEY_V, ControlShift, Command::PasteChild, false, Where::Objects},
    {GLFW_KEY_D, Control, Command::Duplicate, false, Where::Objects},
    {GLFW_KEY_D, ControlShift, Command::DuplicateTrees, false, Where::Objects},
    {GLFW_KEY_DELETE, 0, Command::Delete, true, Where::Objects}, {GLFW_KEY_F5, 0, Command::ReloadView},
    {GLFW_KEY_F1, 0, Command::Help}};

bool isThere(Where where, ShortcutFocus focus) {
    switch(where) {
    case Where::Anywhere: return true;
    case Where::ObjectsOrView: return focus != ShortcutFocus::Elsewhere;
    case Where::Objects: return focus == ShortcutFocus::Objects;
    }
    return false;
}

} // namespace

std::optional<Command> shortcutOf(int key, unsigned modifiers, bool isRepeated, ShortcutFocus focus) {
    for(const Shortcut& shortcut: Shortcuts)
        if(shortcut.key == key && shortcut.modifiers == modifiers && (shortcut.repeats || !isRepeated) &&
            isThere(shortcut.where, focus))
            return shortcut.command;
    return {};
}

} // namespace VantrelEngine
