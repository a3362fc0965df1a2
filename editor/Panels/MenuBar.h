#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Vantrel/EditorData/EditorState.h>

#include "Panels/Command.h"
#include "Panels/PaneLayout.h"

namespace VantrelEngine {

// What of the menu "Edit" can do something.
struct EditAbilities {
    bool hasSelection = false;
    bool hasObjects = false;
    // Nothing else is being done to the project.
    bool canEdit = false;
    bool clipboardHasObjects = false;
};

// What the menus show, and what they switch in place.
struct MenuState {
    // What the steps are called; null where there is none.
    const std::string* undo = nullptr;
    const std::string* redo = nullptr;
    EditAbilities edit;
    // In front of the menus' end: the project's name, and whether it differs from its file.
    std::string title;
    const std::vector<std::string>* recentFiles = nullptr;
    // What can be brought back of projects that were never saved.
    const std::vector<std::string>* unsavedProjects = nullptr;
    PaneSizes* panes = nullptr;
    EditorState* views = nullptr;
    Magnum::Float* fontScale = nullptr;
};

struct MenuChoice {
    std::optional<Command> command;
    // A recent file; empty for none.
    std::string file;
    // By its place in the list.
    std::optional<std::size_t> unsavedProject;
    // The menu "Edit" was opened; it is seen in the next frame.
    bool isEditMenuNew = false;
};

MenuChoice drawMenuBar(const MenuState& state);

} // namespace VantrelEngine
