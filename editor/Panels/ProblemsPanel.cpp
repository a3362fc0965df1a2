#include "Panels/ProblemsPanel.h"

#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/Outliner/OutlinerRows.h"

namespace VantrelEngine {

using namespace Corrade;

std::string ProblemsPanel::badge() const {
    const std::size_t count = _list.problems().size();
    return count ? "(" + std::to_string(count) + ")" : std::string{};
}

void ProblemsPanel::draw(ProjectSession& session) {
    const std::vector<Problem>& problems = _list.problems();
    if(problems.empty()) return ImGui::TextDisabled("No problems");
    const ImGuiTableFlags flags = ImGuiTableFlags_ScrollY | ImGuiTableFlags_Resizable | ImGuiTableFlags_RowBg |
        ImGuiTableFlags_BordersInnerV | ImGuiTableFlags_NoSavedSettings;
    if(!ImGui::BeginTable("##problems", 3, flags)) return;
    ImGui::TableSetupScrollFreeze(0, 1);
    ImGui::TableSetupColumn("Object", ImGuiTableColumnFlags_WidthStretch, 1.0f);
    ImGui::TableSetupColumn("Component", ImGuiTableColumnFlags_WidthStretch, 0.7f);
    ImGui::TableSetupColumn("Reason", ImGuiTableColumnFlags_WidthStretch, 3.0f);
    ImGui::TableHeadersRow();
    ImGuiListClipper clipper;
    clipper.Begin(int(problems.size()));
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i != clipper.DisplayEnd; ++i) {
            ImGui::PushID(i);
            drawRow(session, problems[std::size_t(i)]);
            ImGui::PopID();
        }
    ImGui::EndTable();
}

void ProblemsPanel::drawRow(ProjectSession& session, const Problem& problem) {
    EditorData& data = session.data();
    const Id object = session.compiler().objectOf({problem.object.data(), problem.object.size()});
    const Containers::StringView name = object == RootObject
        ? Containers::StringView{problem.object.data(), problem.object.size()}
        : shownName(data.scene().main(), object);
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    const bool isSelected = object != RootObject && data.isSelected(object);
    if(ImGui::Selectable("##row", isSelected, ImGuiSelectableFlags_SpanAllColumns) && object != RootObject)
        data.selectObject(object, false);
    if(ImGui::IsItemHovered() && object != RootObject) ImGui::SetTooltip("Select the object");
    ImGui::SameLine();
    ImGui::TextUnformatted(name.data(), name.data() + name.size());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(componentName(session, problem).data());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(problem.isRepair ? "repaired: " : "");
    if(problem.isRepair) ImGui::SameLine(0.0f, 0.0f);
    ImGui::TextUnformatted(problem.reason.data(), problem.reason.data() + problem.reason.size());
}

} // namespace VantrelEngine
