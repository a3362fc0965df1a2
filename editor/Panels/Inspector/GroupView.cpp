#include "Panels/Inspector/GroupView.h"

#include <Corrade/Utility/Debug.h>
#include <imgui.h>

#include "Panels/Inspector/FieldRow.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

JsonAllocator allocator;

// Marks what the clipboard holds.
constexpr const char* ClipboardMark = "vantrel-component";

bool isRemovable(const InspectedGroup& group) {
    return group.kind == InspectedGroup::Kind::Components || group.kind == InspectedGroup::Kind::Element;
}

// The row of "active" stands in the header.
bool hasActiveRow(const InspectedGroup& group) { return group.kind == InspectedGroup::Kind::Components; }

Edit inputEdit(const FieldContext& context, const InspectedGroup& group, std::size_t row, const FieldInput& input) {
    Edit edit = fieldEdit(context.file, group, row, input, context.memory.angles);
    if(edit.reason.empty()) {
        context.memory.refusedField = 0;
        return edit;
    }
    showRefusal(context.memory, fieldNumber(group.rows[row].key), edit.reason);
    // A drag that is held against an end says it once.
    if(!input.isHeld)
        Utility::Warning{} << pointerBelow(group.bases.front(), group.rows[row].key).substr(1).data()
                           << Utility::Debug::nospace << ":" << edit.reason.data();
    return edit;
}

std::optional<Edit> drawActive(const FieldContext& context, const InspectedGroup& group) {
    const CommonValue& common = group.common(0, context.memory.angles);
    FieldInput input;
    bool isActive = !common.value.IsBool() || common.value.GetBool();
    const bool isChanged = ImGui::Checkbox("##active", &isActive);
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Active");
    notePlace(context.memory, fieldNumber(group.type + "/active"));
    ImGui::SameLine();
    if(!isChanged) return {};
    input.value = JsonValue{isActive};
    return inputEdit(context, group, 0, input);
}

void copyComponent(const InspectedGroup& group) {
    const JsonValue* const values = valueBelow(group.values.front(), escapedToken(group.type));
    JsonValue copy{rapidjson::kObjectType}, type{group.type.data(), rapidjson::SizeType(group.type.size()), allocator};
    copy.AddMember("mark", JsonValue{rapidjson::StringRef(ClipboardMark)}, allocator);
    copy.AddMember("type", type, allocator);
    copy.AddMember("values", values ? JsonValue{*values, allocator} : JsonValue{rapidjson::kObjectType}, allocator);
    ImGui::SetClipboardText(jsonText(copy).data());
}

std::optional<JsonValue> copiedValues(const std::string& type) {
    const char* const text = ImGui::GetClipboardText();
    JsonDocument copied;
    if(!text || !parseJson(text, copied).empty()) return {};
    const JsonValue *const mark = valueBelow(&copied, "mark"), *const copiedType = valueBelow(&copied, "type"),
                           *const values = valueBelow(&copied, "values");
    if(!mark || !mark->IsString() || std::string_view{mark->GetString()} != ClipboardMark) return {};
    if(!copiedType || !copiedType->IsString() || copiedType->GetString() != type || !values) return {};
    return JsonValue{*values, allocator};
}

std::optional<Edit> drawComponentMenu(const InspectedGroup& group) {
    if(!ImGui::BeginPopupContextItem("##component menu")) return {};
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    std::optional<Edit> edit;
    if(ImGui::MenuItem("Copy values")) copyComponent(group);
    const std::optional<JsonValue> copied = copiedValues(group.type);
    if(ImGui::MenuItem("Paste values", nullptr, false, copied.has_value())) {
        edit.emplace();
        for(const std::string& base: group.bases)
            edit->records.push_back({base, escapedToken(group.type), JsonValue{*copied, allocator}});
    }
    ImGui::Separator();
    if(ImGui::MenuItem("Remove")) edit = removeEdit(group.bases);
    ImGui::EndPopup();
    return edit;
}

// Whether the rows are open.
bool drawHeader(const FieldContext& context, const InspectedGroup& group, std::optional<Edit>& edit) {
    if(hasActiveRow(group)) edit = drawActive(context, group);
    bool isKept = true;
    const bool isOpen = ImGui::CollapsingHeader(
        (group.title + "###header").data(), isRemovable(group) ? &isKept : nullptr, ImGuiTreeNodeFlags_DefaultOpen);
    if(!group.tip.empty() && ImGui::IsItemHovered()) ImGui::SetTooltip("%s", group.tip.data());
    const ImVec2 min = ImGui::GetItemRectMin(), max = ImGui::GetItemRectMax();
    const float half = (max.y - min.y) * 0.5f;
    notePlace(context.memory, fieldNumber(group.type), -1, min.x + half, min.y + half);
    notePlace(context.memory, fieldNumber(group.type + "/remove"), -1, max.x - half, min.y + half);
    if(group.kind == InspectedGroup::Kind::Components)
        if(std::optional<Edit> chosen = drawComponentMenu(group)) edit = std::move(chosen);
    if(!isKept) edit = removeEdit(group.bases);
    return isOpen;
}

// Of "active" only what its checkbox cannot show.
bool isInHeader(const InspectedGroup& group, std::size_t row, const TypedAngles& angles) {
    return hasActiveRow(group) && row == 0 && !group.common(0, angles).whyNotShown;
}

} // namespace

std::optional<Edit> drawGroup(const FieldContext& context, const InspectedGroup& group, bool hasReset) {
    std::optional<Edit> edit;
    // A component stays folded from object to object; what is typed belongs to one of them.
    ImGui::PushID(group.type.data());
    const bool isOpen = drawHeader(context, group, edit);
    ImGui::PopID();
    ImGui::PushID(group.bases.front().data());
    if(isOpen) {
        const RowLayout layout{ImGui::GetContentRegionAvail().x, hasReset};
        for(std::size_t row = 0; row != group.rows.size(); ++row) {
            if(isInHeader(group, row, context.memory.angles) || !group.isShown(row)) continue;
            if(const std::optional<FieldInput> input = drawRow(context, group, row, layout))
                edit = inputEdit(context, group, row, *input);
        }
        if(group.rows.empty()) ImGui::TextDisabled("Nothing to be set");
        ImGui::Spacing();
    }
    ImGui::PopID();
    return edit;
}

} // namespace VantrelEngine
