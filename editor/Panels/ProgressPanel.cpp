#include "Panels/ProgressPanel.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

constexpr ImGuiWindowFlags PanelFlags = ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoDecoration |
    ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoFocusOnAppearing | ImGuiWindowFlags_NoNav;

} // namespace

bool drawProgress(const ShownProgress& progress) {
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    const float em = ImGui::GetFontSize();
    const ImVec2 corner{size.x - em, size.y - ImGui::GetFrameHeight() - em};
    ImGui::SetNextWindowPos(corner, ImGuiCond_Always, {1.0f, 1.0f});
    ImGui::Begin("##progress", nullptr, PanelFlags);
    const float width = em * 24.0f;
    ImGui::PushTextWrapPos(width);
    ImGui::TextUnformatted(progress.text.data(), progress.text.data() + progress.text.size());
    ImGui::PopTextWrapPos();
    const float buttonWidth = em * 5.0f;
    const float barWidth = progress.canBeCancelled ? width - buttonWidth - ImGui::GetStyle().ItemSpacing.x : width;
    ImGui::ProgressBar(progress.fraction, {barWidth, 0.0f});
    bool isCancelled = false;
    if(progress.canBeCancelled) {
        ImGui::SameLine();
        isCancelled = ImGui::Button("Cancel", {buttonWidth, 0.0f});
    }
    ImGui::End();
    return isCancelled;
}

} // namespace VantrelEngine
