#include "Panels/ProblemsPanel.h"

#include <string>

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
    const std::string component = componentName(session, problem);
    const std::string reason = (problem.isRepair ? "repaired: " : "") + problem.reason;
    // Whole, however narrow the columns are.
    if(ImGui::IsItemHovered())
        ImGui::SetTooltip("%.*s, %s\n%s%s", int(name.size()), name.data(), component.data(), reason.data(),
            object != RootObject ? "\n\nClick: select the object" : "");
    ImGui::SameLine(0.0f, 0.0f);
    ImGui::TextUnformatted(name.data(), name.data() + name.size());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(component.data(), component.data() + component.size());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(reason.data(), reason.data() + reason.size());
}

} // namespace VantrelEngine
