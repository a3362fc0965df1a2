#include "Panels/LogPanel.h"

#include <string>

#include <imgui.h>

#include "Panels/Log.h"

namespace VantrelEngine {

namespace {

ImVec4 colorOf(Severity severity) {
    switch(severity) {
    case Severity::Information: break;
    case Severity::Debug: return ImGui::GetStyleColorVec4(ImGuiCol_TextDisabled);
    case Severity::Warning: return {0.95f, 0.78f, 0.35f, 1.0f};
    case Severity::Error: return {1.0f, 0.48f, 0.42f, 1.0f};
    }
    return ImGui::GetStyleColorVec4(ImGuiCol_Text);
}

void drawLine(const LogLine& line) {
    ImGui::PushStyleColor(ImGuiCol_Text, colorOf(line.severity));
    ImGui::TextUnformatted(line.text.data(), line.text.data() + line.text.size());
    ImGui::PopStyleColor();
}

std::string wholeText(const Log& log) {
    std::string text;
    for(const LogLine& line: log.lines()) text += line.text + '\n';
    return text;
}

void drawMenu(Log& log) {
    if(!ImGui::BeginPopupContextWindow("##log menu")) return;
    if(ImGui::MenuItem("Copy all")) ImGui::SetClipboardText(wholeText(log).data());
    if(ImGui::MenuItem("Clear")) log.clear();
    ImGui::EndPopup();
}

} // namespace

void LogPanel::draw(Log& log) {
    ImGui::BeginChild("##lines", {0.0f, 0.0f}, false, ImGuiWindowFlags_HorizontalScrollbar);
    // More lines, or larger ones, move the end; only the user moves away from it.
    const float scroll = ImGui::GetScrollY();
    if(scroll >= ImGui::GetScrollMaxY() - 1.0f)
        _isAtEnd = true;
    else if(scroll < _lastScroll)
        _isAtEnd = false;
    _lastScroll = scroll;
    ImGuiListClipper clipper;
    clipper.Begin(int(log.lines().size()));
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i != clipper.DisplayEnd; ++i) drawLine(log.lines()[std::size_t(i)]);
    if(_isAtEnd) ImGui::SetScrollHereY(1.0f);
    drawMenu(log);
    ImGui::EndChild();
}

} // namespace VantrelEngine
