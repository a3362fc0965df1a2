#pragma once

namespace VantrelEngine {

// What the user asks the editor for in a menu or with a key.
enum class Command {
    New,
    Open,
    Save,
    SaveAs,
    Import,
    ReloadView,
    Quit,
    Undo,
    Redo,
    Copy,
    CopyTrees,
    Paste,
    PasteChild,
    Duplicate,
    DuplicateTrees,
    Delete,
    SelectAll,
    SelectNone,
    ResetLayout,
    Help
};

} // namespace VantrelEngine
