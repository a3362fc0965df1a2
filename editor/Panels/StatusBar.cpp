#include "Panels/StatusBar.h"

#include <cstdio>

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

namespace {

std::string figures(const StatusLine& status) {
    char text[256];
    std::snprintf(text, sizeof text, "%zu %s (%zu selected)   %u %s   %llu %s   %.1f ms", status.objects,
        status.objects == 1 ? "object" : "objects", status.selected, status.statistics.drawCalls,
        status.statistics.drawCalls == 1 ? "draw" : "draws",
        static_cast<unsigned long long>(status.statistics.triangles),
        status.statistics.triangles == 1 ? "triangle" : "triangles", status.frameTime);
    return text;
}

constexpr const char* NoJournal = "no journal";

ImVec4 colorOf(Severity severity) {
    if(severity == Severity::Error) return {1.0f, 0.48f, 0.42f, 1.0f};
    return ImGui::GetStyleColorVec4(ImGuiCol_Text);
}

void drawMessage(const LogLine& message, float end) {
    const ImVec2 place = ImGui::GetCursorScreenPos();
    // Never runs into the figures.
    ImGui::PushClipRect(place, {end, place.y + ImGui::GetFrameHeight()}, true);
    ImGui::TextColored(colorOf(message.severity), "%s", message.text.data());
    ImGui::PopClipRect();
}

void explain(const StatusLine& status) {
    ImGui::SetTooltip("%u visible meshes\n\nLast reload of the view:\n%s", status.statistics.visibleMeshes,
        status.lastReload.empty() ? "places only" : status.lastReload.data());
}

// In front of the figures, where it stays until it is over.
void drawTrouble(const std::string& trouble) {
    ImGui::TextColored(colorOf(Severity::Error), "%s", NoJournal);
    if(ImGui::IsItemHovered())
        ImGui::SetTooltip(
            "What is not saved is lost if the editor ends unexpectedly: the journal cannot be written.\n%s",
            trouble.data());
    ImGui::SameLine(0.0f, ImGui::GetStyle().ItemSpacing.x * 2.0f);
}

} // namespace

void drawStatusBar(const StatusLine& status) {
    const ImGuiWindowFlags flags =
        ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_MenuBar;
    if(ImGui::BeginViewportSideBar("##status", nullptr, ImGuiDir_Down, ImGui::GetFrameHeight(), flags) &&
        ImGui::BeginMenuBar()) {
        const std::string text = figures(status);
        const float trouble = status.journalTrouble.empty()
            ? 0.0f
            : ImGui::CalcTextSize(NoJournal).x + ImGui::GetStyle().ItemSpacing.x * 2.0f;
        const float start = ImGui::GetWindowPos().x + ImGui::GetWindowWidth() - ImGui::CalcTextSize(text.data()).x -
            ImGui::GetStyle().WindowPadding.x - trouble;
        if(status.message) drawMessage(*status.message, start - ImGui::GetStyle().ItemSpacing.x * 2.0f);
        ImGui::SetCursorScreenPos({start, ImGui::GetCursorScreenPos().y});
        if(trouble > 0.0f) drawTrouble(status.journalTrouble);
        ImGui::TextUnformatted(text.data());
        if(ImGui::IsItemHovered()) explain(status);
        ImGui::EndMenuBar();
    }
    ImGui::End();
}

} // namespace VantrelEngine
