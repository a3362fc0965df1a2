#include "Panels/Inspector/FieldEditor.h"

#include <utility>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "ChangeManager.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

void FieldEditor::beginFrame() {
    _memory.places.clear();
    _isDrawn = true;
}

void FieldEditor::apply(ChangeManager& changes, const ProjectFile& file, const Edit& edit) {
    _gesture.apply(changes, file, edit, ImGui::GetActiveID());
    for(const Edit::Angles& angles: edit.angles)
        _memory.angles.remember(angles.place, angles.degrees, angles.quaternion);
}

void FieldEditor::takeAsked(InspectedResource& resource) {
    if(!_memory.asked.kind.empty()) resource = std::exchange(_memory.asked, {});
}

void FieldEditor::endFrame(ChangeManager& changes) {
    if(!_isDrawn) _memory.places.clear();
    _isDrawn = false;
    if(!_gesture.isUnderWay()) return;
    const bool isGivenUp = isEscapePressed();
    if(isGivenUp) ImGui::ClearActiveID();
    _gesture.endFrame(changes, ImGui::GetActiveID(), isGivenUp);
}

void FieldEditor::updatePick(ObjectPickRequest& request) {
    FieldMemory::Pick& pick = _memory.pick;
    if(!std::exchange(pick.isDrawn, false) || isEscapePressed()) pick = {};
    if(_isAsking && !request.name.isEmpty()) pick.answer = std::string{request.name};
    const bool isWaiting = pick.item && !pick.answer;
    if(_isAsking || isWaiting) request = {};
    request.isPending = isWaiting || request.isPending;
    _isAsking = isWaiting;
}

std::optional<Magnum::Vector2> FieldEditor::placeOf(std::string_view field, int part) {
    const std::size_t number = fieldNumber(field);
    for(const FieldMemory::Place& place: _memory.places)
        if(place.field == number && place.part == part) return Magnum::Vector2{place.x, place.y};
    _memory.wanted = number;
    return {};
}

} // namespace VantrelEngine
