#include "Panels/Inspector/ChoiceFields.h"

#include <cmath>

#include <imgui.h>
#include <imgui_internal.h>

#include "Panels/Inspector/Refusal.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

namespace {

JsonAllocator allocator;

// Whether a flag is set at all places, at none, or at some.
std::optional<FieldInput> drawFlag(const char* name, bool isSet, bool isMixed, int bit, float width) {
    const ImGuiCol color = isSet && !isMixed ? ImGuiCol_ButtonActive : ImGuiCol_FrameBg;
    ImGui::PushID(bit);
    ImGui::PushStyleColor(ImGuiCol_Button, ImGui::GetStyleColorVec4(color));
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, {0.0f, ImGui::GetStyle().FramePadding.y});
    const bool isClicked = ImGui::Button(isMixed ? "~" : name, {width, 0.0f});
    ImGui::PopStyleVar();
    ImGui::PopStyleColor();
    ImGui::PopID();
    if(!isClicked) return {};
    FieldInput input;
    input.part = bit;
    input.number = isSet && !isMixed ? 0.0 : 1.0;
    return input;
}

} // namespace

std::optional<FieldInput> drawTruth(const CommonValue& common) {
    bool value = common.value.IsBool() && common.value.GetBool();
    if(common.isMixed) ImGui::PushItemFlag(ImGuiItemFlags_MixedValue, true);
    const bool isChanged = ImGui::Checkbox("##truth", &value);
    if(common.isMixed) ImGui::PopItemFlag();
    if(!isChanged) return {};
    FieldInput input;
    // Where they differ, all are switched on first.
    input.value = JsonValue{common.isMixed || value};
    return input;
}

std::optional<FieldInput> drawChoice(const SchemaKey& key, const CommonValue& common, float width) {
    const char* const current = common.value.IsString() ? common.value.GetString() : "";
    ImGui::SetNextItemWidth(width);
    if(!ImGui::BeginCombo("##choice", common.isMixed ? "mixed" : current)) return {};
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    std::optional<FieldInput> input;
    // The list has the colour of a list also where the value is the initial one.
    ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetStyle().Colors[ImGuiCol_Text]);
    for(const std::string& choice: splitChoices(key.choiceTexts))
        if(ImGui::Selectable(choice.data(), !common.isMixed && choice == current)) {
            input.emplace();
            input->value = JsonValue{choice.data(), rapidjson::SizeType(choice.size()), allocator};
        }
    ImGui::PopStyleColor();
    ImGui::EndCombo();
    return input;
}

std::optional<FieldInput> drawFlags(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width) {
    const std::uint64_t bits = common.value.IsNumber() ? std::uint64_t(std::abs(common.value.GetDouble())) : 0;
    const std::vector<std::string> names = splitChoices(key.choiceTexts);
    const float each = std::floor((width - float(names.size() - 1)) / float(names.size()));
    std::optional<FieldInput> input;
    for(std::size_t i = 0; i != names.size(); ++i) {
        if(i) ImGui::SameLine(0.0f, 1.0f);
        const bool isSet = bits >> i & 1, isMixed = common.mixedParts >> i & 1;
        if(std::optional<FieldInput> clicked = drawFlag(names[i].data(), isSet, isMixed, int(i), each))
            input = std::move(clicked);
        notePlace(memory, field, int(i));
    }
    return input;
}

} // namespace VantrelEngine
