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
    ImGui::ProgressBar(progress.fraction, {progress.canBeCancelled ? em * 19.0f : width, 0.0f});
    bool isCancelled = false;
    if(progress.canBeCancelled) {
        ImGui::SameLine();
        isCancelled = ImGui::Button("Cancel", {-1.0f, 0.0f});
    }
    ImGui::End();
    return isCancelled;
}

} // namespace VantrelEngine
