#include "Panels/ProgressPanel.h"

#include <algorithm>

#include <imgui.h>

namespace VantrelEngine {

namespace {

constexpr ImGuiWindowFlags PanelFlags = ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoDecoration |
    ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoFocusOnAppearing | ImGuiWindowFlags_NoNav;

bool drawBar(const ShownProgress& progress, float width) {
    if(!progress.canBeCancelled) return ImGui::ProgressBar(progress.fraction, {width, 0.0f}), false;
    const float buttonWidth = ImGui::GetFontSize() * 5.0f;
    ImGui::ProgressBar(progress.fraction, {width - buttonWidth - ImGui::GetStyle().ItemSpacing.x, 0.0f});
    ImGui::SameLine();
    return ImGui::Button("Cancel", {buttonWidth, 0.0f});
}

} // namespace

bool drawOpening(const ShownProgress& progress, bool isSeen) {
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    const float em = ImGui::GetFontSize();
    ImGui::SetNextWindowPos({0.0f, 0.0f});
    ImGui::SetNextWindowSize(size);
    ImGui::SetNextWindowFocus();
    ImGui::SetNextWindowBgAlpha(isSeen ? 0.6f : 0.0f);
    ImGui::Begin("##opening", nullptr,
        ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings |
            ImGuiWindowFlags_NoNav);
    bool isCancelled = false;
    if(isSeen) {
        const float width = std::min(em * 36.0f, size.x * 0.8f);
        ImGui::SetCursorPos({(size.x - width) * 0.5f, size.y * 0.5f - em * 2.0f});
        ImGui::BeginGroup();
        ImGui::PushTextWrapPos(ImGui::GetCursorPosX() + width);
        ImGui::TextUnformatted(progress.text.data(), progress.text.data() + progress.text.size());
        ImGui::PopTextWrapPos();
        isCancelled = drawBar(progress, width);
        ImGui::EndGroup();
    }
    ImGui::End();
    return isCancelled;
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
    const bool isCancelled = drawBar(progress, width);
    ImGui::End();
    return isCancelled;
}

} // namespace VantrelEngine
