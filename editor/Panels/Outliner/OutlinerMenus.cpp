#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>
#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/Keys.h"
#include "Panels/Outliner/OutlinerPanel.h"
#include "Utilities/EditState.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// What a view does with what it made.
void take(ProjectSession& session, const StringArray& made) {
    if(!made.size()) return;
    session.update();
    selectObjects(session.editor(), made, false, true);
}

Containers::StringView clipboard() {
    const char* const text = ImGui::GetClipboardText();
    return text ? text : "";
}

void drawClipboardItems(ProjectSession& session) {
    VantrelEditor& editor = session.editor();
    if(ImGui::MenuItem("Copy", "Ctrl+Shift+C")) ImGui::SetClipboardText(copySelectedTrees(editor).data());
    if(ImGui::MenuItem("Paste as child", "Ctrl+Shift+V")) take(session, pasteChild(editor, clipboard()));
    if(ImGui::MenuItem("Duplicate", "Ctrl+Shift+D")) take(session, duplicateTrees(editor));
    if(ImGui::MenuItem("Delete", "Delete")) deleteSelectedObjects(editor);
}

// Of the selection where the object is part of it, else of the object alone.
void mark(EditorData& data, ObjectMark mark, Id object, bool isMarked) {
    const std::vector<Id> objects = data.isSelected(object) ? selectedObjects(data) : std::vector<Id>{object};
    for(const Id marked: objects) data.marks().setMarked(mark, marked, isMarked);
}

} // namespace

void OutlinerPanel::drawAddMenu(ProjectSession& session, Id parent) {
    if(ImGui::MenuItem("Empty")) addObject(session, NewObject::Empty, parent);
    ImGui::Separator();
    if(ImGui::MenuItem("Sun")) addObject(session, NewObject::Sun, parent);
    if(ImGui::MenuItem("Point light")) addObject(session, NewObject::PointLight, parent);
    if(ImGui::MenuItem("Spot light")) addObject(session, NewObject::SpotLight, parent);
    ImGui::Separator();
    if(ImGui::MenuItem("View")) addObject(session, NewObject::View, parent);
}

void OutlinerPanel::drawFoldItems(const EditorData& data) {
    if(ImGui::MenuItem("Fold all")) _rows.setAllFolded(data.scene().main(), true);
    if(ImGui::MenuItem("Unfold all")) _rows.setAllFolded(data.scene().main(), false);
}

void OutlinerPanel::drawRowMenu(ProjectSession& session, Id object) {
    EditorData& data = session.data();
    // The menu is about the selection, and a row that is not part of it becomes it.
    const bool isTaken = data.isSelected(object) || data.marks().isLocked(object);
    if(ImGui::IsItemClicked(ImGuiMouseButton_Right) && !isTaken) select(data, object, Selecting::One);
    if(!ImGui::BeginPopupContextItem("##row menu")) return;
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    const ObjectMarks& marks = data.marks();
    const bool isEditable = canEdit(session.editor().state());
    if(ImGui::MenuItem("Rename", "F2", false, isEditable)) beginNaming(data, object);
    if(isEditable && data.isSelected(object)) drawClipboardItems(session);
    ImGui::Separator();
    if(ImGui::BeginMenu("Add below", isEditable)) {
        drawAddMenu(session, object);
        ImGui::EndMenu();
    }
    if(ImGui::MenuItem("Select children", nullptr, false, data.isSelected(object))) selectChildren(data);
    if(ImGui::MenuItem("Frame", "F", false, data.isSelected(object))) session.editor().state().framesSelection = true;
    ImGui::Separator();
    const bool isHidden = marks.isMarked(ObjectMark::Hidden, object),
               isLocked = marks.isMarked(ObjectMark::Locked, object);
    if(ImGui::MenuItem(isHidden ? "Show" : "Hide")) mark(data, ObjectMark::Hidden, object, !isHidden);
    if(ImGui::MenuItem(isLocked ? "Unlock" : "Lock")) mark(data, ObjectMark::Locked, object, !isLocked);
    ImGui::Separator();
    drawFoldItems(data);
    ImGui::EndPopup();
}

void OutlinerPanel::drawRestMenu(ProjectSession& session) {
    EditorData& data = session.data();
    if(!ImGui::BeginPopupContextItem("##rest menu")) return;
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    if(ImGui::BeginMenu("Add", canEdit(session.editor().state()))) {
        drawAddMenu(session, RootObject);
        ImGui::EndMenu();
    }
    if(ImGui::MenuItem("Paste", "Ctrl+V", false, canEdit(session.editor().state())))
        take(session, paste(session.editor(), clipboard()));
    ImGui::Separator();
    drawFoldItems(data);
    ImGui::Separator();
    if(ImGui::MenuItem("Show all")) data.marks().unmarkAll(ObjectMark::Hidden);
    if(ImGui::MenuItem("Unlock all")) data.marks().unmarkAll(ObjectMark::Locked);
    ImGui::EndPopup();
}

} // namespace VantrelEngine
