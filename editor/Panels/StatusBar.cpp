#include "Panels/StatusBar.h"

#include <cstdio>
#include <limits>
#include <string>

#include <imgui.h>
#include <imgui_internal.h>

#include "Panels/CutText.h"

namespace VantrelEngine {

namespace {

// Of the width; the message has the rest.
constexpr float FiguresPart = 0.6f;

std::string counted(unsigned long long count, const char* one, const char* several) {
    return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

// As many of them as there is room for, at least the first.
std::string figures(const StatusLine& status, float room) {
    char frameTime[32];
    std::snprintf(frameTime, sizeof frameTime, "%.1f ms", status.frameTime);
    const std::string parts[]{
        counted(status.objects, "object", "objects") + " (" + std::to_string(status.selected) + " selected)",
        counted(status.statistics.drawCalls, "draw", "draws"),
        counted(status.statistics.triangles, "triangle", "triangles"), frameTime};
    std::string text;
    for(const std::string& part: parts) {
        const std::string longer = text.empty() ? part : text + "   " + part;
        if(!text.empty() && ImGui::CalcTextSize(longer.data()).x > room) break;
        text = longer;
    }
    return text;
}

constexpr const char* NoJournal = "no journal";

ImVec4 colorOf(Severity severity) {
    if(severity == Severity::Error) return {1.0f, 0.48f, 0.42f, 1.0f};
    return ImGui::GetStyleColorVec4(ImGuiCol_Text);
}

// Never runs into the figures; whole under the mouse where it would.
void drawMessage(const LogLine& message, float end) {
    const ImVec2 place = ImGui::GetCursorScreenPos();
    const ImVec2 text{place.x, place.y + ImGui::GetStyle().FramePadding.y};
    const char* const begin = message.text.data();
    const ImVec2 size = ImGui::CalcTextSize(begin);
    ImGui::PushStyleColor(ImGuiCol_Text, colorOf(message.severity));
    drawCutText(text, end, place.y + ImGui::GetFrameHeight(), message.text);
    ImGui::PopStyleColor();
    const bool isHovered =
        ImGui::IsWindowHovered() && ImGui::IsMouseHoveringRect(place, {end, place.y + ImGui::GetFrameHeight()});
    if(isHovered && text.x + size.x > end) ImGui::SetTooltip("%s", begin);
}

void explain(const StatusLine& status) {
    ImGui::SetTooltip("%s\n%u visible meshes\n\nLast reload of the view:\n%s",
        figures(status, std::numeric_limits<float>::max()).data(), status.statistics.visibleMeshes,
        status.lastReload.empty() ? "places only" : status.lastReload.data());
}

// In front of the figures, where it stays until it is over.
void drawTrouble(const std::string& trouble) {
    ImGui::TextColored(colorOf(Severity::Error), "%s", NoJournal);
    if(ImGui::IsItemHovered())
        ImGui::SetTooltip(
            "What is not saved is lost if the editor ends unexpectedly: no journal is kept.\n%s", trouble.data());
    ImGui::SameLine(0.0f, ImGui::GetStyle().ItemSpacing.x * 2.0f);
}

} // namespace

void drawStatusBar(const StatusLine& status) {
    const ImGuiWindowFlags flags =
        ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_MenuBar;
    if(ImGui::BeginViewportSideBar("##status", nullptr, ImGuiDir_Down, ImGui::GetFrameHeight(), flags) &&
        ImGui::BeginMenuBar()) {
        const std::string text = figures(status, ImGui::GetWindowWidth() * FiguresPart);
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
