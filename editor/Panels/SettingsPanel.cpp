#include "Panels/SettingsPanel.h"

#include <imgui.h>

#include "Panels/Inspector/GroupView.h"

namespace VantrelEngine {

void SettingsPanel::draw(
    EditorData& data, ChangeManager& changes, Thumbnails& thumbnails, InspectedResource& resource) {
    const DocumentState state{data, changes};
    if(!(state == _state)) _groups = settingsGroups(data.project());
    _state = state;
    _fields.beginFrame();
    ImGui::BeginChild("##settings");
    const FieldContext context{data.project(), thumbnails, _fields.memory()};
    std::optional<Edit> edit;
    for(const InspectedGroup& group: _groups)
        if(std::optional<Edit> changed = drawGroup(context, group, true)) edit = std::move(changed);
    ImGui::EndChild();
    if(edit) _fields.apply(changes, data.project(), *edit);
    _fields.takeAsked(resource);
}

} // namespace VantrelEngine
