#include "Panels/LogPanel.h"

#include <cstdio>
#include <string>

#include <imgui.h>

#include "Panels/TextField.h"

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

const char* nameOf(Severity severity) {
    switch(severity) {
    case Severity::Information: break;
    case Severity::Warning: return "Warnings";
    case Severity::Error: return "Errors";
    case Severity::Debug: return "Debug";
    }
    return "Information";
}

void drawSwitch(Severity severity, std::size_t count, bool& isShown) {
    char label[64];
    // What is counted changes, what is clicked stays.
    std::snprintf(label, sizeof label, "%s (%zu)###%s", nameOf(severity), count, nameOf(severity));
    ImGui::PushStyleColor(ImGuiCol_Text, count ? colorOf(severity) : ImGui::GetStyleColorVec4(ImGuiCol_TextDisabled));
    ImGui::Checkbox(label, &isShown);
    ImGui::PopStyleColor();
    ImGui::SameLine();
}

} // namespace

void LogPanel::draw(Log& log) {
    drawChoice(log);
    _filter.update(log, _choice);
    drawLines(log);
}

void LogPanel::drawChoice(Log& log) {
    for(const Severity severity: {Severity::Information, Severity::Warning, Severity::Error, Severity::Debug})
        drawSwitch(severity, log.count(severity), _choice.isShown[std::size_t(severity)]);
    ImGui::Checkbox("Follow", &_isAtEnd);
    ImGui::SameLine();
    if(ImGui::Button("Copy")) ImGui::SetClipboardText(shownText(log).data());
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Copy the lines that are shown");
    ImGui::SameLine();
    if(ImGui::Button("Clear")) log.clear();
    ImGui::SameLine();
    ImGui::SetNextItemWidth(-1.0f);
    drawTextField("##filter", "Filter", _choice.text, ImGuiInputTextFlags_AutoSelectAll);
}

void LogPanel::drawLines(Log& log) {
    ImGui::BeginChild("##lines", {0.0f, 0.0f}, false, ImGuiWindowFlags_HorizontalScrollbar);
    // More lines, or larger ones, move the end; only the user moves away from it.
    const float scroll = ImGui::GetScrollY();
    if(scroll < _lastScroll && scroll < ImGui::GetScrollMaxY() - 1.0f)
        _isAtEnd = false;
    else if(scroll > _lastScroll && scroll >= ImGui::GetScrollMaxY() - 1.0f)
        _isAtEnd = true;
    _lastScroll = scroll;
    ImGuiListClipper clipper;
    clipper.Begin(int(_filter.lines().size()));
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i < clipper.DisplayEnd && std::size_t(i) < _filter.lines().size(); ++i)
            drawLine(log, _filter.lines()[std::size_t(i)]);
    if(_filter.lines().empty() && !log.lines().empty()) ImGui::TextDisabled("None of the lines is shown");
    if(_isAtEnd) ImGui::SetScrollHereY(1.0f);
    if(ImGui::BeginPopupContextWindow("##log menu", ImGuiPopupFlags_MouseButtonRight | ImGuiPopupFlags_NoOpenOverItems))
        drawMenu(log, nullptr);
    ImGui::EndChild();
}

void LogPanel::drawLine(Log& log, std::uint64_t number) {
    // Cleared by a line above.
    if(number < log.firstNumber()) return;
    const LogLine& line = log.line(number);
    ImGui::PushID(int(number));
    ImGui::PushStyleColor(ImGuiCol_Text, colorOf(line.severity));
    ImGui::TextUnformatted(line.text.data(), line.text.data() + line.text.size());
    ImGui::PopStyleColor();
    if(ImGui::BeginPopupContextItem("##line menu")) drawMenu(log, &line);
    ImGui::PopID();
}

void LogPanel::drawMenu(Log& log, const LogLine* line) {
    if(line && ImGui::MenuItem("Copy line")) ImGui::SetClipboardText(line->text.data());
    if(ImGui::MenuItem("Copy all shown")) ImGui::SetClipboardText(shownText(log).data());
    if(ImGui::MenuItem("Clear")) log.clear();
    ImGui::EndPopup();
}

std::string LogPanel::shownText(const Log& log) const {
    std::string text;
    for(const std::uint64_t number: _filter.lines())
        if(number >= log.firstNumber()) text += log.line(number).text + '\n';
    return text;
}

} // namespace VantrelEngine
