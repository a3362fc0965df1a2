#include "Panels/ProgressPanel.h"

#include <algorithm>

#include <imgui.h>

namespace VantrelEngine {

namespace {

constexpr ImGuiWindowFlags PanelFlags = ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoDecoration |
    ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoFocusOnAppearing | ImGuiWindowFlags_NoNav;

} // namespace

void drawOpening(const ShownProgress& progress) {
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    const float em = ImGui::GetFontSize();
    const float width = std::min(em * 36.0f, size.x * 0.8f);
    ImGui::SetNextWindowPos({0.0f, 0.0f});
    ImGui::SetNextWindowSize(size);
    ImGui::SetNextWindowFocus();
    ImGui::SetNextWindowBgAlpha(0.6f);
    ImGui::Begin("##opening", nullptr,
        ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings |
            ImGuiWindowFlags_NoNav);
    ImGui::SetCursorPos({(size.x - width) * 0.5f, size.y * 0.5f - em * 2.0f});
    ImGui::BeginGroup();
    ImGui::PushTextWrapPos(ImGui::GetCursorPosX() + width);
    ImGui::TextUnformatted(progress.text.data(), progress.text.data() + progress.text.size());
    ImGui::PopTextWrapPos();
    ImGui::ProgressBar(progress.fraction, {width, 0.0f});
    ImGui::EndGroup();
    ImGui::End();
}

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
