#include "Panels/ProblemsPanel.h"

#include <string>

#include <Corrade/Containers/StringStl.h>
#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/Inspector/ReferenceField.h"
#include "Panels/Outliner/OutlinerRows.h"

namespace VantrelEngine {

using namespace Corrade;

std::string ProblemsPanel::badge() const {
    const std::size_t count = _list.problems().size();
    return count ? "(" + std::to_string(count) + ")" : std::string{};
}

namespace {

// That is shown; the id of what is not there.
std::string nameOf(EditorData& data, const Problem& problem, Id object) {
    if(!problem.section.empty()) return displayName(data.project(), problem.section.data(), problem.object);
    if(object == RootObject) return problem.object;
    return shownName(data.scene().main(), object);
}

} // namespace

void ProblemsPanel::draw(ProjectSession& session, InspectedResource& resource) {
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
            drawRow(session, problems[std::size_t(i)], resource);
            ImGui::PopID();
        }
    ImGui::EndTable();
}

void ProblemsPanel::drawRow(ProjectSession& session, const Problem& problem, InspectedResource& resource) {
    EditorData& data = session.data();
    const bool isResource = !problem.section.empty() && !problem.object.empty();
    const Id object = problem.section.empty()
        ? session.compiler().objectOf({problem.object.data(), problem.object.size()})
        : RootObject;
    const std::string name = nameOf(data, problem, object);
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    const bool isSelected = isResource ? resource.kind == problem.section && resource.id == problem.object
                                       : object != RootObject && data.isSelected(object);
    if(ImGui::Selectable("##row", isSelected, ImGuiSelectableFlags_SpanAllColumns)) {
        if(object != RootObject) data.selectObject(object, false);
        if(isResource) resource = {problem.section, problem.object};
    }
    const std::string component = componentName(session, problem);
    const std::string reason = (problem.isRepair ? "repaired: " : "") + problem.reason;
    // Whole, however narrow the columns are.
    if(ImGui::IsItemHovered())
        ImGui::SetTooltip("%s, %s\n%s%s", name.data(), component.data(), reason.data(),
            object != RootObject ? "\n\nClick: select the object"
                : isResource     ? "\n\nClick: show it in the inspector"
                                 : "");
    ImGui::SameLine(0.0f, 0.0f);
    ImGui::TextUnformatted(name.data(), name.data() + name.size());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(component.data(), component.data() + component.size());
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(reason.data(), reason.data() + reason.size());
}

} // namespace VantrelEngine
