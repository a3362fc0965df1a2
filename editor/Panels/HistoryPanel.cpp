#include "Panels/HistoryPanel.h"

#include <algorithm>
#include <string>

#include <imgui.h>

#include "Data/StepLog.h"
#include "Panels/Keys.h"
#include "Panels/OverlappedRow.h"

namespace VantrelEngine {

namespace {

constexpr ImGuiTableFlags TableFlags = ImGuiTableFlags_ScrollY | ImGuiTableFlags_RowBg | ImGuiTableFlags_BordersInnerV;

struct Row {
    // Steps in effect where the project is at this row.
    std::size_t position;
    bool isCurrent, isUndone, isSaved;
};

void drawText(const Row& row, const char* text) {
    if(row.isUndone)
        ImGui::TextDisabled("%s", text);
    else
        ImGui::TextUnformatted(text);
}

void drawCount(const Row& row, int count) {
    const std::string text = std::to_string(count);
    const float room = ImGui::GetContentRegionAvail().x - ImGui::CalcTextSize(text.data()).x;
    if(room > 0.0f) ImGui::SetCursorPosX(ImGui::GetCursorPosX() + room);
    drawText(row, text.data());
}

void explain(const Step& step) {
    if(!ImGui::IsItemHovered()) return;
    const int count = step.end - step.first;
    ImGui::SetTooltip("%s\n%d %s", step.name.data(), count, count == 1 ? "change" : "changes");
}

// Whether the row was clicked. The first row, which is no step, has none.
bool drawRow(const Row& row, const Step* step) {
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::PushID(int(row.position));
    const ImGuiSelectableFlags flags = ImGuiSelectableFlags_SpanAllColumns | OverlappedRow;
    const bool isClicked = ImGui::Selectable("##row", row.isCurrent, flags);
    ImGui::PopID();
    if(step) explain(*step);
    ImGui::SameLine(0.0f, 0.0f);
    drawText(row, step ? step->name.data() : "Start");
    ImGui::TableNextColumn();
    if(step) drawCount(row, step->end - step->first);
    ImGui::TableNextColumn();
    if(row.isSaved) drawText(row, "saved");
    return isClicked;
}

void beginColumns() {
    const float width = ImGui::CalcTextSize("Changes").x + ImGui::GetStyle().CellPadding.x;
    ImGui::TableSetupScrollFreeze(0, 1);
    ImGui::TableSetupColumn("Step", ImGuiTableColumnFlags_WidthStretch);
    ImGui::TableSetupColumn("Changes", ImGuiTableColumnFlags_WidthFixed, width);
    ImGui::TableSetupColumn("File", ImGuiTableColumnFlags_WidthFixed, ImGui::CalcTextSize("saved").x);
    ImGui::TableHeadersRow();
}

// The row into the middle, where it is not seen.
void scrollTo(std::size_t row) {
    const float height = ImGui::GetTextLineHeight() + ImGui::GetStyle().CellPadding.y * 2.0f;
    // The first one is below the header, which stays.
    const float place = height * float(row), room = ImGui::GetWindowHeight() - height * 2.0f;
    if(place >= ImGui::GetScrollY() && place <= ImGui::GetScrollY() + room) return;
    ImGui::SetScrollY(std::max(place - room * 0.5f, 0.0f));
}

std::optional<std::size_t> askedByKey(std::size_t position, std::size_t count) {
    if(!ImGui::IsWindowFocused(ImGuiFocusedFlags_ChildWindows) || ImGui::IsAnyItemActive()) return {};
    if(isPressedAgain(ImGuiKey_UpArrow) && position) return position - 1;
    if(isPressedAgain(ImGuiKey_DownArrow) && position != count) return position + 1;
    if(isPressedAgain(ImGuiKey_Home)) return 0;
    if(isPressedAgain(ImGuiKey_End)) return count;
    return {};
}

} // namespace

std::optional<std::size_t> HistoryPanel::draw(const StepLog& log) {
    const std::vector<Step>& steps = log.steps();
    const std::size_t position = log.position();
    const std::optional<std::size_t> saved = log.savedPosition();
    std::optional<std::size_t> asked = askedByKey(position, steps.size());
    if(!ImGui::BeginTable("##steps", 3, TableFlags)) return asked;
    beginColumns();
    // Larger rows, or a lower pane, move it away, too.
    const Shown shown{position, ImGui::GetTextLineHeight(), ImGui::GetWindowHeight()};
    if(shown != _shown) scrollTo(position);
    _shown = shown;
    ImGuiListClipper clipper;
    clipper.Begin(int(steps.size()) + 1);
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i != clipper.DisplayEnd; ++i) {
            const std::size_t at = std::size_t(i);
            if(drawRow({at, at == position, at > position, at == saved}, at ? &steps[at - 1] : nullptr)) asked = at;
        }
    ImGui::EndTable();
    return asked;
}

} // namespace VantrelEngine
