#include "Style/Style.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

ImVec4 gray(float value, float alpha = 1.0f) { return {value, value, value * 1.06f, alpha}; }

ImVec4 accent(float alpha) { return {0.20f, 0.52f, 0.85f, alpha}; }

struct Color {
    ImGuiCol role;
    ImVec4 value;
};

const Color Colors[]{
    {ImGuiCol_Text, gray(0.88f)},
    {ImGuiCol_TextDisabled, gray(0.52f)},
    {ImGuiCol_WindowBg, gray(0.135f)},
    {ImGuiCol_ChildBg, gray(0.135f, 0.0f)},
    {ImGuiCol_PopupBg, gray(0.165f)},
    {ImGuiCol_Border, gray(0.26f)},
    {ImGuiCol_FrameBg, gray(0.21f)},
    {ImGuiCol_FrameBgHovered, gray(0.27f)},
    {ImGuiCol_FrameBgActive, gray(0.32f)},
    {ImGuiCol_TitleBg, gray(0.105f)},
    {ImGuiCol_TitleBgActive, gray(0.18f)},
    {ImGuiCol_TitleBgCollapsed, gray(0.105f)},
    {ImGuiCol_MenuBarBg, gray(0.165f)},
    {ImGuiCol_ScrollbarBg, gray(0.12f)},
    {ImGuiCol_ScrollbarGrab, gray(0.30f)},
    {ImGuiCol_ScrollbarGrabHovered, gray(0.38f)},
    {ImGuiCol_ScrollbarGrabActive, gray(0.46f)},
    {ImGuiCol_CheckMark, accent(1.0f)},
    {ImGuiCol_SliderGrab, accent(0.8f)},
    {ImGuiCol_SliderGrabActive, accent(1.0f)},
    {ImGuiCol_Button, gray(0.25f)},
    {ImGuiCol_ButtonHovered, gray(0.32f)},
    {ImGuiCol_ButtonActive, accent(0.9f)},
    {ImGuiCol_Header, accent(0.45f)},
    {ImGuiCol_HeaderHovered, accent(0.60f)},
    {ImGuiCol_HeaderActive, accent(0.80f)},
    {ImGuiCol_Separator, gray(0.26f)},
    {ImGuiCol_SeparatorHovered, accent(0.7f)},
    {ImGuiCol_SeparatorActive, accent(1.0f)},
    {ImGuiCol_ResizeGrip, gray(0.30f, 0.4f)},
    {ImGuiCol_ResizeGripHovered, accent(0.7f)},
    {ImGuiCol_ResizeGripActive, accent(1.0f)},
    {ImGuiCol_Tab, gray(0.165f)},
    {ImGuiCol_TabHovered, accent(0.6f)},
    {ImGuiCol_TableHeaderBg, gray(0.19f)},
    {ImGuiCol_TableBorderStrong, gray(0.26f)},
    {ImGuiCol_TableBorderLight, gray(0.20f)},
    {ImGuiCol_TableRowBgAlt, gray(1.0f, 0.025f)},
    {ImGuiCol_TextSelectedBg, accent(0.45f)},
    {ImGuiCol_DragDropTarget, accent(0.9f)},
    {ImGuiCol_PlotHistogram, accent(1.0f)},
    {ImGuiCol_ModalWindowDimBg, gray(0.0f, 0.55f)},
};

} // namespace

void applyStyle(float fontScale) {
    ImGuiStyle style;
    ImGui::StyleColorsDark(&style);
    for(const Color& color: Colors) style.Colors[color.role] = color.value;
    style.WindowPadding = {8.0f, 8.0f};
    style.FramePadding = {7.0f, 4.0f};
    style.ItemSpacing = {8.0f, 5.0f};
    style.ItemInnerSpacing = {6.0f, 4.0f};
    style.IndentSpacing = 14.0f;
    style.ScrollbarSize = 13.0f;
    style.GrabMinSize = 11.0f;
    style.WindowRounding = 0.0f;
    style.ChildRounding = 2.0f;
    style.FrameRounding = 3.0f;
    style.PopupRounding = 4.0f;
    style.GrabRounding = 3.0f;
    style.ScrollbarRounding = 6.0f;
    style.WindowBorderSize = 1.0f;
    style.FrameBorderSize = 0.0f;
    style.WindowTitleAlign = {0.0f, 0.5f};
    style.WindowMenuButtonPosition = ImGuiDir_None;
    style.ScaleAllSizes(fontScale);
    // A line stays one.
    style.WindowBorderSize = 1.0f;
#if IMGUI_VERSION_NUM >= 19200
    style.FontScaleMain = fontScale;
#endif
    ImGui::GetStyle() = style;
}

} // namespace VantrelEngine
