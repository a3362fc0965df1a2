#include "Panels/ObjectList.h"

#include <Vantrel/EditorData/EditorData.h>
#include <imgui.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Deeper ones are not moved any further to the right.
constexpr int MaxShownDepth = 12;

int shownDepth(const Scene& scene, Id object) {
    int depth = 0;
    for(Id parent = scene.parent(object); parent != RootObject && depth != MaxShownDepth; parent = scene.parent(parent))
        ++depth;
    return depth;
}

Containers::StringView shownName(const Scene& scene, Id object) {
    const Containers::StringView name = scene.objectNames.nameOf(object);
    return name.isEmpty() ? scene.objectIds.nameOf(object) : name;
}

bool drawRow(const EditorData& data, Id object) {
    const Scene& scene = data.scene().main();
    const float indentation = ImGui::GetStyle().IndentSpacing * float(shownDepth(scene, object));
    ImGui::PushID(int(object));
    const ImVec2 place = ImGui::GetCursorScreenPos();
    const bool isClicked = ImGui::Selectable("##row", data.isSelected(object), ImGuiSelectableFlags_SpanAllColumns);
    const Containers::StringView name = shownName(scene, object);
    ImGui::GetWindowDrawList()->AddText(
        {place.x + indentation, place.y}, ImGui::GetColorU32(ImGuiCol_Text), name.data(), name.data() + name.size());
    ImGui::PopID();
    return isClicked;
}

} // namespace

std::optional<ObjectClick> drawObjectList(const EditorData& data) {
    const Scene& scene = data.scene().main();
    if(scene.size() == 1) {
        ImGui::TextDisabled("No objects");
        return {};
    }
    std::optional<ObjectClick> click;
    ImGui::BeginChild("##rows");
    ImGuiListClipper clipper;
    // The root comes first and is no row.
    clipper.Begin(int(scene.size() - 1));
    while(clipper.Step())
        for(int row = clipper.DisplayStart; row != clipper.DisplayEnd; ++row) {
            const Id object = scene.toId(std::size_t(row) + 1);
            if(drawRow(data, object)) click = ObjectClick{object, ImGui::GetIO().KeyShift};
        }
    ImGui::EndChild();
    return click;
}

void applyClick(EditorData& data, const ObjectClick& click) {
    if(click.toggles && data.isSelected(click.object))
        data.deselectObject(click.object);
    else
        data.selectObject(click.object, click.toggles);
}

} // namespace VantrelEngine
