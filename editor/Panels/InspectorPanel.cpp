#include "Panels/InspectorPanel.h"

#include <algorithm>
#include <cctype>

#include <Vantrel/EditorData/EditorData.h>
#include <VantrelHost/Thumbnails.h>
#include <imgui.h>

#include "ChangeManager.h"
#include "Panels/CellPictures.h"
#include "Panels/Inspector/GroupView.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/ReferenceField.h"
#include "Panels/Keys.h"
#include "Panels/Schema/Schema.h"
#include "Panels/TextField.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Of the picture of a resource, in heights of the text.
constexpr float PictureSize = 6.0f;

bool holds(const char* label, const std::string& wanted) {
    const auto isSame = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
    };
    const std::string_view text{label};
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(), isSame) != text.end();
}

std::optional<Edit> newComponent(const InspectedGroup& objects, const ComponentSchema& schema) {
    JsonDocument initial;
    initial.Parse(schema.initial);
    return addComponentEdit(objects.bases, objects.values, schema.type, initial);
}

void drawPicture(Thumbnails& thumbnails, const InspectedResource& resource) {
    const std::size_t kind = resourceKindOf({resource.kind.data(), resource.kind.size()});
    if(kind == ResourceKindCount) return;
    const std::optional<Thumbnail> picture =
        thumbnails.ask(ResourceKind(kind), {resource.id.data(), resource.id.size()});
    if(!picture) return;
    const float edge = ImGui::GetFontSize() * PictureSize;
    const ImVec2 min = ImGui::GetCursorScreenPos();
    ImGui::Dummy({edge, edge});
    drawThumbnail(*picture, min, {min.x + edge, min.y + edge});
}

} // namespace

bool InspectorPanel::State::operator==(const State& other) const {
    return document == other.document && selection == other.selection && kind == other.kind && id == other.id;
}

InspectorPanel::State InspectorPanel::stateOf(
    const EditorData& data, const ChangeManager& changes, const InspectedResource& resource) {
    State state{DocumentState{data, changes}, {}, resource.kind, resource.id};
    const BitSetView selection = data.selection();
    for(std::size_t id = selection.findFirstSet(); id < selection.size(); id = selection.findFirstSet(id + 1))
        state.selection.push_back(Id(id));
    return state;
}

void InspectorPanel::gather(EditorData& data, const ChangeManager& changes, InspectedResource& resource) {
    State state = stateOf(data, changes, resource);
    if(state == _state) return;
    const bool isOther = state.document.project != _state.document.project || state.selection != _state.selection;
    // Who selects an object wants to see it.
    if(isOther && !_state.kind.empty() && state.kind == _state.kind && state.id == _state.id) resource = {};
    _groups = resource.kind.empty() ? selectionGroups(data) : resourceGroups(data.project(), resource);
    if(_groups.empty() && !resource.kind.empty()) {
        resource = {};
        _groups = selectionGroups(data);
    }
    if(isOther || resource.kind != _state.kind || resource.id != _state.id) _fields.memory().angles.clear();
    _others = resource.kind.empty() ? componentsOfSome(_groups) : std::vector<std::string>{};
    _facts = resource.kind.empty() ? decltype(_facts){} : resourceFacts(data, resource);
    _state = std::move(state);
    _state.kind = resource.kind;
    _state.id = resource.id;
    ++_gatherings;
}

void InspectorPanel::draw(
    EditorData& data, ChangeManager& changes, Thumbnails& thumbnails, InspectedResource& resource) {
    gather(data, changes, resource);
    _fields.beginFrame();
    if(_groups.empty()) return ImGui::TextDisabled("Nothing selected");
    ImGui::BeginChild("##inspector");
    drawTop(thumbnails, resource);
    const std::optional<Edit> edit = drawGroups(data, thumbnails);
    ImGui::EndChild();
    if(edit) _fields.apply(changes, data.project(), *edit);
    _fields.takeAsked(resource);
}

void InspectorPanel::drawTop(Thumbnails& thumbnails, InspectedResource& resource) {
    if(resource.kind.empty()) return;
    if(ImGui::SmallButton("← Selection")) resource = {};
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Back to what is selected");
    drawPicture(thumbnails, resource);
}

void InspectorPanel::drawFacts() const {
    if(_facts.empty()) return;
    const float column = ImGui::GetContentRegionAvail().x * 0.4f;
    const float start = ImGui::GetCursorPosX();
    for(const auto& [name, value]: _facts) {
        ImGui::TextDisabled("%s", name.data());
        ImGui::SameLine(start + column, 0.0f);
        ImGui::TextWrapped("%s", value.data());
    }
    ImGui::Spacing();
}

std::optional<Edit> InspectorPanel::drawGroups(const EditorData& data, Thumbnails& thumbnails) {
    const FieldContext context{data.project(), thumbnails, _fields.memory()};
    std::optional<Edit> edit;
    for(const InspectedGroup& group: _groups) {
        if(std::optional<Edit> changed = drawGroup(context, group, false)) edit = std::move(changed);
        if(&group == &_groups.front()) drawFacts();
    }
    for(const std::string& title: _others) ImGui::TextDisabled("%s", title.data());
    if(std::optional<Edit> added = _state.kind.empty() ? drawAddComponent() : drawAddParameter())
        edit = std::move(added);
    return edit;
}

std::optional<Edit> InspectorPanel::drawAddComponent() {
    ImGui::Spacing();
    if(ImGui::Button("Add component", {-1.0f, 0.0f})) {
        ImGui::OpenPopup("##components");
        _search.clear();
    }
    notePlace(_fields.memory(), fieldNumber("add"));
    if(!ImGui::BeginPopup("##components")) return {};
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    if(ImGui::IsWindowAppearing()) ImGui::SetKeyboardFocusHere();
    ImGui::SetNextItemWidth(ImGui::GetFontSize() * 12.0f);
    const bool isEntered = drawTextField("##search", "Search", _search, ImGuiInputTextFlags_EnterReturnsTrue);
    std::optional<Edit> edit;
    for(const ComponentSchema& schema: componentSchemas()) {
        if(!holds(schema.label, _search)) continue;
        const bool isChosen = ImGui::MenuItem(schema.label);
        if(ImGui::IsItemHovered()) ImGui::SetTooltip("%s", schema.tip);
        if(!edit && (isChosen || isEntered)) edit = newComponent(_groups.front(), schema);
    }
    if(edit) ImGui::CloseCurrentPopup();
    ImGui::EndPopup();
    return edit;
}

std::optional<Edit> InspectorPanel::drawAddParameter() const {
    if(_state.kind != "shaders" || !ImGui::Button("Add parameter", {-1.0f, 0.0f})) return {};
    const InspectedGroup& shader = _groups.front();
    const JsonValue* const parameters = valueBelow(shader.values.front(), "parameters");
    const std::size_t count = parameters && parameters->IsArray() ? parameters->Size() : 0;
    JsonDocument parameter;
    parameter.Parse(R"({"name": "parameter", "type": "float", "default": 0})");
    Edit edit;
    edit.records.push_back({shader.bases.front(), "parameters/" + std::to_string(count), JsonValue{}});
    static JsonAllocator allocator;
    edit.records.back().value = JsonValue{parameter, allocator};
    return edit;
}

} // namespace VantrelEngine
