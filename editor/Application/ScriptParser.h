#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Magnum/Magnum.h>

namespace VantrelEngine {

enum class ScriptVerb {
    Wait,
    Mouse,
    Field,
    Move,
    Press,
    Release,
    Scroll,
    Key,
    KeyUp,
    Type,
    Clipboard,
    Resize,
    Scale,
    FontSize,
    Focus,
    Close,
    Select,
    Hide,
    Show,
    Lock,
    Unlock,
    Reload,
    Open,
    Save,
    New,
    Edit,
    Undo,
    Redo,
    Drop,
    Drag,
    Import,
    WaitForImport,
    WaitForPictures,
    Screenshot,
    IdImage,
    Thumbnail,
    Dump,
    Quit
};

// One line of a script, checked.
struct ScriptCommand {
    ScriptVerb verb;
    // From 1.
    std::size_t line;
    // As it stands there, without blanks around it.
    std::string text;
    std::vector<Magnum::Double> numbers;
    std::vector<std::string> words;
    unsigned modifiers = 0;
};

// What a script does, or the first mistake in it: "line 3: "wiat 5": there is no such command".
struct ParsedScript {
    std::vector<ScriptCommand> commands;
    std::string error;
};

// Blank lines, and those that begin with a "#", are passed over. The commands are listed in docs/editor.md.
ParsedScript parseScript(std::string_view text);

// How a mistake in a line is told.
std::string mistakeIn(const ScriptCommand& command, const std::string& reason);

} // namespace VantrelEngine
