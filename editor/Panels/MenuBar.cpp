#include "Panels/MenuBar.h"

#include <cstdio>

#include <imgui.h>

#include "Panels/Keys.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr Float FontScales[]{1.0f, 1.25f, 1.5f, 2.0f, 2.5f, 3.0f};

struct Item {
    const char* label;
    const char* shortcut;
    Command command;
};

void drawItem(const Item& item, bool isEnabled, MenuChoice& choice) {
    if(ImGui::MenuItem(item.label, item.shortcut, false, isEnabled)) choice.command = item.command;
}

void drawRecentFiles(const std::vector<std::string>& files, MenuChoice& choice) {
    if(!ImGui::BeginMenu("Open recent", !files.empty())) return;
    for(const std::string& file: files)
        if(ImGui::MenuItem(file.data())) choice.file = file;
    ImGui::EndMenu();
}

void drawUnsavedProjects(const std::vector<std::string>& projects, MenuChoice& choice) {
    if(!ImGui::BeginMenu("Recover unsaved projects", !projects.empty())) return;
    for(std::size_t i = 0; i != projects.size(); ++i) {
        ImGui::PushID(int(i));
        if(ImGui::MenuItem(projects[i].data())) choice.unsavedProject = i;
        ImGui::PopID();
    }
    ImGui::EndMenu();
}

// A menu that is open goes with the key, too.
bool beginMenu(const char* label) {
    if(!ImGui::BeginMenu(label)) return false;
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    return true;
}

void drawFileMenu(const MenuState& state, MenuChoice& choice) {
    if(!beginMenu("File")) return;
    drawItem({"New", "Ctrl+N", Command::New}, true, choice);
    drawItem({"Open...", "Ctrl+O", Command::Open}, true, choice);
    drawRecentFiles(*state.recentFiles, choice);
    drawUnsavedProjects(*state.unsavedProjects, choice);
    ImGui::Separator();
    drawItem({"Save", "Ctrl+S", Command::Save}, true, choice);
    drawItem({"Save as...", "Ctrl+Shift+S", Command::SaveAs}, true, choice);
    ImGui::Separator();
    drawItem({"Import...", nullptr, Command::Import}, true, choice);
    ImGui::Separator();
    drawItem({"Reload view", "F5", Command::ReloadView}, true, choice);
    ImGui::Separator();
    drawItem({"Quit", "Ctrl+Q", Command::Quit}, true, choice);
    ImGui::EndMenu();
}

// "Undo Move 3 objects".
void drawStepItem(const Item& item, const std::string* step, MenuChoice& choice) {
    const std::string label = step ? std::string{item.label} + ' ' + *step : std::string{item.label};
    drawItem({label.data(), item.shortcut, item.command}, step, choice);
}

void drawObjectItems(const EditAbilities& edit, MenuChoice& choice) {
    const bool canPaste = edit.canEdit && edit.clipboardHasObjects, canChange = edit.canEdit && edit.hasSelection;
    ImGui::Separator();
    drawItem({"Copy", "Ctrl+C", Command::Copy}, edit.hasSelection, choice);
    drawItem({"Copy with children", "Ctrl+Shift+C", Command::CopyTrees}, edit.hasSelection, choice);
    drawItem({"Paste", "Ctrl+V", Command::Paste}, canPaste, choice);
    drawItem({"Paste as child", "Ctrl+Shift+V", Command::PasteChild}, canPaste && edit.hasSelection, choice);
    drawItem({"Duplicate", "Ctrl+D", Command::Duplicate}, canChange, choice);
    drawItem({"Duplicate with children", "Ctrl+Shift+D", Command::DuplicateTrees}, canChange, choice);
    drawItem({"Delete", "Delete", Command::Delete}, canChange, choice);
    ImGui::Separator();
    drawItem({"Select all", "Ctrl+A", Command::SelectAll}, edit.hasObjects, choice);
    drawItem({"Select none", "Ctrl+Shift+A", Command::SelectNone}, edit.hasSelection, choice);
}

void drawEditMenu(const MenuState& state, MenuChoice& choice) {
    if(!beginMenu("Edit")) return;
    drawStepItem({"Undo", "Ctrl+Z", Command::Undo}, state.undo, choice);
    drawStepItem({"Redo", "Ctrl+Y", Command::Redo}, state.redo, choice);
    choice.isEditMenuNew = ImGui::IsWindowAppearing();
    drawObjectItems(state.edit, choice);
    ImGui::EndMenu();
}

void drawFontSizes(Float& fontScale) {
    if(!ImGui::BeginMenu("Font size")) return;
    for(const Float scale: FontScales) {
        char label[16];
        std::snprintf(label, sizeof label, "%.0f %%", double(scale) * 100.0);
        if(ImGui::MenuItem(label, nullptr, fontScale == scale)) fontScale = scale;
    }
    ImGui::EndMenu();
}

void drawViewMenu(const MenuState& state, MenuChoice& choice) {
    if(!beginMenu("View")) return;
    for(const PanelInfo& panel: Panels) ImGui::MenuItem(panel.title, nullptr, &(*state.panes)[panel.panel]);
    for(unsigned view = 0; view != state.views->viewCount(); ++view) {
        const std::string name{state.views->viewName(view).data(), state.views->viewName(view).size()};
        ImGui::MenuItem(name.data(), nullptr, &state.views->isViewOpen(view));
    }
    ImGui::Separator();
    drawFontSizes(*state.fontScale);
    drawItem({"Reset layout", nullptr, Command::ResetLayout}, true, choice);
    ImGui::EndMenu();
}

void drawHelpMenu(MenuChoice& choice) {
    if(!beginMenu("Help")) return;
    drawItem({"Keys and mouse", "F1", Command::Help}, true, choice);
    ImGui::EndMenu();
}

void drawTitle(const std::string& title) {
    const float width = ImGui::CalcTextSize(title.data()).x;
    const float place = ImGui::GetWindowWidth() - width - ImGui::GetStyle().WindowPadding.x;
    if(place < ImGui::GetCursorPosX()) return;
    ImGui::SetCursorPosX(place);
    ImGui::TextDisabled("%s", title.data());
}

} // namespace

MenuChoice drawMenuBar(const MenuState& state) {
    MenuChoice choice;
    if(!ImGui::BeginMainMenuBar()) return choice;
    drawFileMenu(state, choice);
    drawEditMenu(state, choice);
    drawViewMenu(state, choice);
    drawHelpMenu(choice);
    drawTitle(state.title);
    ImGui::EndMainMenuBar();
    return choice;
}

} // namespace VantrelEngine
