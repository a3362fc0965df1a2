#include "Panels/Inspector/ReferenceField.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <VantrelHost/Thumbnails.h>
#include <imgui.h>

#include "Panels/CellPictures.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Keys.h"
#include "Panels/TextField.h"

namespace VantrelEngine {

namespace {

const ImVec4 MissingColor{1.0f, 0.48f, 0.42f, 1.0f};
// Rows of the list.
constexpr float ListRows = 10.0f;

std::string textOf(const JsonValue* value) {
    return value && value->IsString() ? std::string{value->GetString(), value->GetStringLength()} : std::string{};
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    return text;
}

const JsonValue* entry(const ProjectFile& file, const char* section, const std::string& id) {
    return file.member(section, {id.data(), id.size()});
}

// Whose picture stands for a resource: a texture's is that of its image.
std::optional<Thumbnail> pictureOf(const FieldContext& context, const char* section, const std::string& id) {
    const auto ask = [&](ResourceKind kind, const std::string& of) {
        return context.thumbnails.ask(kind, {of.data(), of.size()});
    };
    const std::string_view name{section};
    if(id.empty()) return {};
    if(name == "meshes") return ask(ResourceKind::Mesh, id);
    if(name == "materials") return ask(ResourceKind::Material, id);
    if(name == "images") return ask(ResourceKind::Image, id);
    const JsonValue* const texture = name == "textures" ? entry(context.file, section, id) : nullptr;
    const std::string image = textOf(valueBelow(texture, "image"));
    if(image.empty()) return {};
    return ask(ResourceKind::Image, image);
}

void drawPicture(const Thumbnail& picture, float edge) {
    const ImVec2 min = ImGui::GetCursorScreenPos();
    ImGui::Dummy({edge, edge});
    drawThumbnail(picture, min, {min.x + edge, min.y + edge});
}

bool hasPictures(const char* section) {
    for(const char* const other: {"meshes", "materials", "images", "textures"})
        if(!std::strcmp(section, other)) return true;
    return false;
}

void search(const FieldContext& context, const char* section) {
    FieldMemory& memory = context.memory;
    memory.found.clear();
    const std::string wanted = lowered(memory.search);
    const JsonValue* const all = context.file.section(section);
    if(!all || !all->IsObject()) return;
    for(auto member = all->MemberBegin(); member != all->MemberEnd(); ++member) {
        std::string id{member->name.GetString(), member->name.GetStringLength()};
        std::string name = textOf(valueBelow(&member->value, "name"));
        if(name.empty()) name = id;
        if(lowered(name).find(wanted) == std::string::npos && lowered(id).find(wanted) == std::string::npos) continue;
        memory.found.push_back({std::move(id), std::move(name)});
    }
}

bool drawFound(const FieldContext& context, const char* section, const FieldMemory::Found& found, bool isCurrent) {
    const float edge = ImGui::GetTextLineHeight();
    ImGui::PushID(found.id.data(), found.id.data() + found.id.size());
    const ImVec2 place = ImGui::GetCursorPos();
    const bool isChosen = ImGui::Selectable("##found", isCurrent);
    if(ImGui::IsItemHovered() && found.name != found.id) ImGui::SetTooltip("%s", found.id.data());
    ImGui::SameLine();
    ImGui::SetCursorPos(place);
    if(hasPictures(section)) {
        if(const std::optional<Thumbnail> picture = pictureOf(context, section, found.id))
            drawPicture(*picture, edge);
        else
            ImGui::Dummy({edge, edge});
        ImGui::SameLine();
    }
    ImGui::TextUnformatted(found.name.data(), found.name.data() + found.name.size());
    ImGui::PopID();
    return isChosen;
}

std::optional<std::string> drawList(const FieldContext& context, const char* section, const std::string& id) {
    FieldMemory& memory = context.memory;
    const bool isNew = ImGui::IsWindowAppearing();
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    if(isNew) {
        memory.search.clear();
        ImGui::SetKeyboardFocusHere();
    }
    ImGui::SetNextItemWidth(-1.0f);
    const std::string before = memory.search;
    const bool isEntered = drawTextField("##search", "Search", memory.search, ImGuiInputTextFlags_EnterReturnsTrue);
    if(isNew || memory.search != before) search(context, section);
    std::optional<std::string> chosen;
    if(isEntered && !memory.found.empty()) chosen = memory.found.front().id;
    const float height = ImGui::GetTextLineHeightWithSpacing() * ListRows;
    ImGui::BeginChild("##list", {std::max(ImGui::GetFontSize() * 16.0f, ImGui::GetContentRegionAvail().x), height});
    if(memory.search.empty() && ImGui::Selectable("None", id.empty())) chosen = "";
    ImGuiListClipper clipper;
    clipper.Begin(int(memory.found.size()));
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i != clipper.DisplayEnd; ++i) {
            const FieldMemory::Found& found = memory.found[std::size_t(i)];
            if(drawFound(context, section, found, found.id == id)) chosen = found.id;
        }
    if(memory.found.empty()) ImGui::TextDisabled("Nothing is called that");
    ImGui::EndChild();
    if(chosen) ImGui::CloseCurrentPopup();
    return chosen;
}

// Texts that end with a zero; the id, or else the name of a resource.
std::optional<std::string> dropped(const ProjectFile& file, const char* section) {
    std::optional<std::string> id;
    if(!ImGui::BeginDragDropTarget()) return id;
    for(const PayloadType& known: PayloadTypes) {
        if(std::strcmp(known.kind, section)) continue;
        const ImGuiPayload* const payload = ImGui::AcceptDragDropPayload(known.type);
        if(!payload || payload->DataSize <= 0) continue;
        const auto* const data = static_cast<const char*>(payload->Data);
        const std::string text{data, strnlen(data, std::size_t(payload->DataSize))};
        const Corrade::Containers::StringView byName = file.resourceByName(section, {text.data(), text.size()});
        if(entry(file, section, text))
            id = text;
        else if(!byName.isEmpty())
            id = std::string{byName.data(), byName.size()};
    }
    ImGui::EndDragDropTarget();
    return id;
}

// Whether there is one.
bool drawOwnPicture(const FieldContext& context, const char* section, const std::string& id) {
    const std::optional<Thumbnail> picture = pictureOf(context, section, id);
    if(!picture) return false;
    drawPicture(*picture, ImGui::GetFrameHeight());
    if(ImGui::IsItemHovered()) {
        ImGui::BeginTooltip();
        drawPicture(*picture, ImGui::GetFontSize() * 8.0f);
        ImGui::EndTooltip();
    }
    return true;
}

std::optional<std::string> drawCombo(
    const FieldContext& context, const char* section, const std::string& id, const char* mixed, float width) {
    const bool isThere = id.empty() || entry(context.file, section, id);
    const std::string shown = mixed ? mixed : id.empty() ? "None" : displayName(context.file, section, id);
    ImGui::SetNextItemWidth(width);
    if(!isThere) ImGui::PushStyleColor(ImGuiCol_Text, MissingColor);
    const bool isOpen = ImGui::BeginCombo("##reference", shown.data(), ImGuiComboFlags_HeightLargest);
    if(!isThere) ImGui::PopStyleColor();
    if(!isOpen) {
        if(ImGui::IsItemHovered() && !id.empty()) ImGui::SetTooltip(isThere ? "%s" : "There is no %s", id.data());
        return {};
    }
    ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetStyle().Colors[ImGuiCol_Text]);
    std::optional<std::string> chosen = drawList(context, section, id);
    ImGui::PopStyleColor();
    ImGui::EndCombo();
    return chosen;
}

// A circle with a cross through it.
void drawCross(const ImVec2& min, const ImVec2& max, ImU32 color) {
    ImDrawList& list = *ImGui::GetWindowDrawList();
    const ImVec2 middle{(min.x + max.x) * 0.5f, (min.y + max.y) * 0.5f};
    const float radius = (max.y - min.y) * 0.22f, inner = radius * 0.5f, outer = radius * 1.6f;
    const float thickness = std::max(1.0f, ImGui::GetFontSize() / 13.0f);
    list.AddCircle(middle, radius, color, 0, thickness);
    list.AddLine({middle.x - outer, middle.y}, {middle.x - inner, middle.y}, color, thickness);
    list.AddLine({middle.x + inner, middle.y}, {middle.x + outer, middle.y}, color, thickness);
    list.AddLine({middle.x, middle.y - outer}, {middle.x, middle.y - inner}, color, thickness);
    list.AddLine({middle.x, middle.y + inner}, {middle.x, middle.y + outer}, color, thickness);
}

bool isPicking(const FieldMemory& memory) { return memory.pick.item == ImGui::GetID("##pick"); }

// Pressed again it waits no more. The object that was pointed at, where that is so.
std::optional<std::string> drawPickButton(const FieldContext& context, std::size_t field, int part) {
    FieldMemory::Pick& pick = context.memory.pick;
    const float edge = ImGui::GetFrameHeight();
    const bool wasPicking = isPicking(context.memory);
    const ImVec4 active = ImGui::GetStyleColorVec4(ImGuiCol_ButtonActive);
    for(const ImGuiCol role: {ImGuiCol_Button, ImGuiCol_ButtonHovered})
        ImGui::PushStyleColor(role, wasPicking ? active : ImGui::GetStyleColorVec4(role));
    const bool isPressed = ImGui::Button("##pick", {edge, edge});
    ImGui::PopStyleColor(2);
    drawCross(ImGui::GetItemRectMin(), ImGui::GetItemRectMax(), ImGui::GetColorU32(ImGuiCol_Text));
    if(ImGui::IsItemHovered())
        ImGui::SetTooltip(
            wasPicking ? "Give it up (Escape)" : "Point at an object in the view or in the list of objects");
    notePlace(context.memory, field, part);
    if(isPressed) {
        pick = {};
        if(!wasPicking) pick = {ImGui::GetID("##pick"), field, true, {}};
        return {};
    }
    if(!wasPicking) return {};
    pick.isDrawn = true;
    if(!pick.answer) return {};
    std::optional<std::string> answer = std::move(pick.answer);
    pick = {};
    return answer;
}

} // namespace

std::string displayName(const ProjectFile& file, const char* section, const std::string& id) {
    const std::string name = textOf(valueBelow(entry(file, section, id), "name"));
    return name.empty() ? id : name;
}

std::optional<std::string> drawReferenceInput(const FieldContext& context, const char* section, const std::string& id,
    const char* mixed, float width, std::size_t pickField, int part) {
    const float edge = ImGui::GetFrameHeight(), gap = ImGui::GetStyle().ItemInnerSpacing.x * 0.5f;
    const bool isClearable = !mixed && !id.empty(), isPickable = !std::strcmp(section, "objects");
    if(isPickable) {
        width -= edge + gap;
        if(isPicking(context.memory)) mixed = "click on an object ...";
    }
    ImGui::BeginGroup();
    if(!mixed && drawOwnPicture(context, section, id)) {
        ImGui::SameLine(0.0f, gap);
        width -= edge + gap;
    }
    std::optional<std::string> chosen =
        drawCombo(context, section, id, mixed, isClearable ? width - edge - gap : width);
    if(isClearable) {
        ImGui::SameLine(0.0f, gap);
        if(ImGui::Button("×", {edge, 0.0f})) chosen = "";
        if(ImGui::IsItemHovered()) ImGui::SetTooltip("None");
    }
    if(isPickable) {
        ImGui::SameLine(0.0f, gap);
        if(std::optional<std::string> picked = drawPickButton(context, pickField, part)) chosen = std::move(picked);
    }
    ImGui::EndGroup();
    if(std::optional<std::string> taken = dropped(context.file, section)) chosen = std::move(taken);
    return chosen;
}

std::optional<FieldInput> drawReference(
    const FieldContext& context, const SchemaKey& key, const CommonValue& common, float width) {
    const std::string id = textOf(&common.value);
    const std::optional<std::string> chosen = drawReferenceInput(context, key.section, id,
        common.isMixed ? "mixed" : nullptr, width, fieldNumber(std::string{key.key} + "/pick"));
    if(!chosen) return {};
    static JsonAllocator allocator;
    FieldInput input;
    input.value = JsonValue{chosen->data(), rapidjson::SizeType(chosen->size()), allocator};
    return input;
}

} // namespace VantrelEngine
