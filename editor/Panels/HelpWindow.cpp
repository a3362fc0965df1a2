#include "Panels/HelpWindow.h"

#include <cstddef>

#include <imgui.h>

namespace VantrelEngine {

namespace {

struct Binding {
    const char* keys;
    const char* effect;
};

constexpr Binding Camera[]{{"Right button", "fly: the mouse looks around while the button is held"},
    {"W A S D", "while flying: forward, left, back, right"}, {"Q, E", "while flying: up, down"},
    {"Shift", "while flying: twice as fast"}, {"Wheel", "while flying: speed; else: closer, farther"},
    {"Middle button", "orbit"}, {"Shift + middle button", "pan"}, {"Ctrl + middle button", "closer, farther"},
    {"F", "frame the selection"}, {"Keypad 7, 1, 3", "look from the top, the front, the side"}};

constexpr Binding Selection[]{{"Left button", "select the object under the mouse"},
    {"Shift + left button", "add the object, or take it out"}, {"B, then drag", "select what is in a box"},
    {"Escape", "no box after all"}, {"Ctrl + A, Ctrl + Shift + A", "select all, none"},
    {"Ctrl + Shift + left button", "put the selected object where that one is"}};

constexpr Binding Editing[]{{"G, R, S", "move, turn, scale; G and R again: local or world axes"},
    {"Ctrl", "while dragging: in steps"}, {"Delete", "delete the selected objects"},
    {"Ctrl + C, Ctrl + D", "copy, duplicate; with Shift: with children"},
    {"Ctrl + V", "paste; with Shift: below the selected object"}, {"Alt + S", "simulate physics, on and off"},
    {"Ctrl + Z, Ctrl + Y", "undo, redo"}};

constexpr Binding Application[]{{"Ctrl + N, O, S", "new project, open, save"}, {"Ctrl + Shift + S", "save as"},
    {"F5", "reload the view's library"}, {"F1", "this list"}, {"Ctrl + Q", "quit"}};

template<std::size_t count> void drawBindings(const char* title, const Binding (&bindings)[count]) {
    ImGui::Spacing();
    ImGui::TextDisabled("%s", title);
    if(!ImGui::BeginTable(title, 2, ImGuiTableFlags_RowBg | ImGuiTableFlags_SizingFixedFit)) return;
    ImGui::TableSetupColumn("keys", ImGuiTableColumnFlags_WidthFixed, ImGui::GetFontSize() * 13.0f);
    ImGui::TableSetupColumn("effect", ImGuiTableColumnFlags_WidthStretch);
    for(const Binding& binding: bindings) {
        ImGui::TableNextColumn();
        ImGui::TextUnformatted(binding.keys);
        ImGui::TableNextColumn();
        ImGui::TextUnformatted(binding.effect);
    }
    ImGui::EndTable();
}

} // namespace

void drawHelpWindow(bool& isOpen) {
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    const float em = ImGui::GetFontSize();
    ImGui::SetNextWindowPos({size.x * 0.5f, size.y * 0.5f}, ImGuiCond_Appearing, {0.5f, 0.5f});
    ImGui::SetNextWindowSize({em * 40.0f, em * 44.0f}, ImGuiCond_Appearing);
    if(ImGui::Begin("Keys and mouse", &isOpen, ImGuiWindowFlags_NoCollapse | ImGuiWindowFlags_NoSavedSettings)) {
        drawBindings("Camera", Camera);
        drawBindings("Selection", Selection);
        drawBindings("Editing", Editing);
        drawBindings("Editor", Application);
    }
    ImGui::End();
}

} // namespace VantrelEngine
