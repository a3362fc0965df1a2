#include "Panels/Inspector/FieldRow.h"

#include <algorithm>
#include <cmath>

#include <imgui.h>
#include <imgui_internal.h>

#include "Panels/CutText.h"
#include "Panels/Inspector/ChoiceFields.h"
#include "Panels/Inspector/ColorField.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/ListField.h"
#include "Panels/Inspector/NumberField.h"
#include "Panels/Inspector/ReferenceField.h"
#include "Panels/Inspector/Refusal.h"
#include "Panels/Inspector/TypedText.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

namespace {

// Seconds that a refusal is shown.
constexpr double RefusalTime = 6.0;
constexpr ImU32 RefusedColor = IM_COL32(255, 110, 95, 255), DoubtfulColor = IM_COL32(242, 196, 84, 255);
// Of a number beside others, in heights of the text.
constexpr float NumberWidth = 3.4f;
// The least of a text.
constexpr float TextWidth = 6.0f;

unsigned columnsOf(const SchemaKey& key) {
    switch(key.kind) {
    case KeyKind::Rotation: return 3;
    case KeyKind::Vector:
    case KeyKind::WholeVector: return key.size;
    case KeyKind::Color:
    case KeyKind::ScreenColor: return key.size + 1u;
    case KeyKind::Flags: return 3;
    default: return 1;
    }
}

// What shows a text of any length.
bool isText(KeyKind kind) {
    return kind == KeyKind::Text || kind == KeyKind::Choice || kind == KeyKind::Reference || kind == KeyKind::Raw;
}

bool isStacked(const SchemaKey& key, const RowLayout& layout) {
    const unsigned columns = columnsOf(key);
    if(isText(key.kind) && layout.field < ImGui::GetFontSize() * TextWidth) return true;
    return key.kind == KeyKind::LongText || key.kind == KeyKind::References || key.kind == KeyKind::Texts ||
        (columns > 1 && layout.field < ImGui::GetFontSize() * NumberWidth * float(columns));
}

bool isList(const SchemaKey& key) { return key.kind == KeyKind::References || key.kind == KeyKind::Texts; }

// What a row out of sight takes; those of lists are not known before they are drawn.
float heightOf(const SchemaKey& key, const RowLayout& layout) {
    const float line = ImGui::GetFrameHeightWithSpacing();
    if(key.kind == KeyKind::LongText) return line * 2.0f + ImGui::GetTextLineHeight() * float(LongTextLines - 1);
    return isStacked(key, layout) ? line * 2.0f : line;
}

bool isSkipped(const FieldMemory& memory, const SchemaKey& key, std::size_t field, float height) {
    // Of a field that is typed into nothing may be lost while the user scrolls.
    if(isList(key) || memory.typing.item || memory.wanted == field || memory.pick.item) return false;
    const ImVec2 place = ImGui::GetCursorScreenPos();
    // A page more on both sides, so that Tab finds its way.
    const ImRect sight = ImGui::GetCurrentWindow()->ClipRect;
    return place.y + height < sight.Min.y - sight.GetHeight() || place.y > sight.Max.y + sight.GetHeight();
}

void drawTip(const SchemaKey& key, const CommonValue& common) {
    ImGui::BeginTooltip();
    ImGui::PushTextWrapPos(ImGui::GetFontSize() * 24.0f);
    ImGui::TextUnformatted(key.label);
    if(*key.tip) ImGui::TextUnformatted(key.tip);
    const std::string range = rangeText(key), initial = key.initial ? key.initial : "";
    if(!range.empty()) ImGui::TextDisabled("%s", range.data());
    if(*key.unitText) ImGui::TextDisabled("%s", *key.unitText == 'u' ? "scene units" : key.unitText);
    if(!initial.empty() && key.kind != KeyKind::Raw) ImGui::TextDisabled("without a value: %s", initial.data());
    ImGui::TextDisabled("%s", key.key);
    if(common.whyNotShown) ImGui::TextColored(ImColor{RefusedColor}, "not usable, %s", common.whyNotShown);
    if(!common.complaint.empty()) ImGui::TextColored(ImColor{DoubtfulColor}, "%s", common.complaint.data());
    ImGui::PopTextWrapPos();
    ImGui::EndTooltip();
}

std::string labelOf(const SchemaKey& key) {
    std::string label = key.label;
    // Beside several numbers there is no room for it; scene units go without saying.
    if(*key.unitText && *key.unitText != 'u' && columnsOf(key) > 1) label += std::string{" "} + key.unitText;
    return label;
}

void drawLabel(const SchemaKey& key, const CommonValue& common, float width) {
    const std::string label = labelOf(key);
    const ImVec2 place = ImGui::GetCursorScreenPos();
    const ImVec2 size{std::max(width, 1.0f), ImGui::GetFrameHeight()};
    ImGui::InvisibleButton("##label", size, ImGuiButtonFlags_MouseButtonLeft | ImGuiButtonFlags_MouseButtonRight);
    if(ImGui::IsItemHovered()) drawTip(key, common);
    const ImVec2 text{place.x, place.y + ImGui::GetStyle().FramePadding.y};
    const float end = place.x + size.x - ImGui::GetStyle().ItemInnerSpacing.x;
    ImGui::PushStyleColor(ImGuiCol_Text,
        ImGui::GetStyleColorVec4(common.isMissing && key.kind != KeyKind::Raw ? ImGuiCol_TextDisabled : ImGuiCol_Text));
    drawCutText(text, end, place.y + size.y, label);
    ImGui::PopStyleColor();
}

std::optional<FieldInput> resetInput() {
    FieldInput input;
    input.isReset = true;
    return input;
}

bool isResource(const SchemaKey& key) {
    return key.kind == KeyKind::Reference && std::string_view{key.section} != "objects";
}

bool isNamed(const CommonValue& common) {
    return !common.isMixed && common.value.IsString() && common.value.GetStringLength();
}

// What the right button on the label offers.
std::optional<FieldInput> drawMenu(
    FieldMemory& memory, const SchemaKey& key, const CommonValue& common, std::string& refusal) {
    if(!ImGui::BeginPopupContextItem("##key menu")) return {};
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    std::optional<FieldInput> input;
    if(isResource(key) && ImGui::MenuItem("Show", nullptr, false, isNamed(common)))
        memory.asked = {key.section, common.value.GetString()};
    if(ImGui::MenuItem("Copy value", nullptr, false, !common.value.IsNull()))
        ImGui::SetClipboardText(jsonText(common.value).data());
    if(ImGui::MenuItem("Paste value", nullptr, false, key.kind != KeyKind::Rotation)) {
        const char* const text = ImGui::GetClipboardText();
        JsonDocument value;
        refusal = parseJson(text ? text : "", value);
        if(refusal.empty()) {
            static JsonAllocator allocator;
            input.emplace();
            input->value = JsonValue{value, allocator};
        }
    }
    if(ImGui::MenuItem("Copy key")) ImGui::SetClipboardText(key.key);
    ImGui::Separator();
    if(ImGui::MenuItem(key.kind == KeyKind::Raw ? "Remove key" : "Reset", nullptr, false, !common.isMissing))
        input = resetInput();
    ImGui::EndPopup();
    return input;
}

std::optional<FieldInput> drawWidget(const FieldContext& context, const SchemaKey& key, const CommonValue& common,
    std::size_t field, float width, std::string& refusal) {
    if(common.whyNotShown) return drawRaw(context.memory, common, width, refusal);
    switch(key.kind) {
    case KeyKind::Text:
    case KeyKind::LongText: return drawText(context.memory, key, common, width);
    case KeyKind::Truth: return drawTruth(common);
    case KeyKind::Number:
    case KeyKind::NumberOrInfinity:
    case KeyKind::WholeNumber:
    case KeyKind::Vector:
    case KeyKind::WholeVector:
    case KeyKind::Rotation: return drawNumbers(context.memory, field, key, common, width);
    case KeyKind::Color:
    case KeyKind::ScreenColor: return drawColor(context.memory, field, key, common, width);
    case KeyKind::Choice: return drawChoice(key, common, width);
    case KeyKind::Flags: return drawFlags(context.memory, field, key, common, width);
    case KeyKind::Reference: return drawReference(context, key, common, width);
    case KeyKind::References:
    case KeyKind::Texts: return drawListField(context, key, common, width);
    case KeyKind::Group:
    case KeyKind::Raw: return drawRaw(context.memory, common, width, refusal);
    }
    return {};
}

void drawFrame(const ImVec2& min, const ImVec2& max, ImU32 color) {
    ImGui::GetWindowDrawList()->AddRect(min, max, color, ImGui::GetStyle().FrameRounding, 0, 1.5f);
}

void drawRefusal(FieldMemory& memory, const ImVec2& min, const ImVec2& max) {
    drawFrame(min, max, RefusedColor);
    constexpr ImGuiWindowFlags flags = ImGuiWindowFlags_Tooltip | ImGuiWindowFlags_NoInputs |
        ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize |
        ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoFocusOnAppearing |
        ImGuiWindowFlags_NoNav;
    ImGui::SetNextWindowPos(
        {std::min(max.x, ImGui::GetIO().DisplaySize.x), max.y + 2.0f}, ImGuiCond_Always, {1.0f, 0.0f});
    ImGui::Begin("##refusal", nullptr, flags);
    ImGui::PushTextWrapPos(ImGui::GetFontSize() * 18.0f);
    ImGui::TextColored(ImColor{RefusedColor}, "%s", memory.refusal.data());
    ImGui::PopTextWrapPos();
    ImGui::End();
    if(ImGui::GetTime() - memory.refusedAt > RefusalTime) memory.refusedField = 0;
}

bool drawResetButton(bool isThere) {
    const float edge = ImGui::GetFrameHeight();
    ImGui::SameLine(0.0f, ImGui::GetStyle().ItemInnerSpacing.x * 0.5f);
    if(!isThere) {
        ImGui::Dummy({edge, edge});
        return false;
    }
    const bool isPressed = ImGui::Button("←", {edge, 0.0f});
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Back to the initial value");
    return isPressed;
}

} // namespace

RowLayout::RowLayout(float width, bool hasReset): hasReset{hasReset} {
    const float em = ImGui::GetFontSize();
    label = std::floor(std::min({std::max(width * 0.4f, em * 5.0f), em * 11.0f, width * 0.5f}));
    const float button = hasReset ? ImGui::GetFrameHeight() + ImGui::GetStyle().ItemInnerSpacing.x * 0.5f : 0.0f;
    field = std::max(width - label - button, 1.0f);
    whole = std::max(width - button, 1.0f);
}

std::optional<FieldInput> drawRow(
    const FieldContext& context, const InspectedGroup& group, std::size_t row, const RowLayout& layout) {
    FieldMemory& memory = context.memory;
    const SchemaKey& key = group.rows[row];
    const std::size_t field = fieldNumber(key.key);
    const float height = heightOf(key, layout);
    if(isSkipped(memory, key, field, height)) {
        ImGui::Dummy({1.0f, height - ImGui::GetStyle().ItemSpacing.y});
        return {};
    }
    const CommonValue& common = group.common(row, memory.angles);
    ImGui::PushID(key.key);
    const bool stacked = isStacked(key, layout);
    const float start = ImGui::GetCursorPosX();
    std::string refusal;
    drawLabel(key, common, stacked ? layout.whole : layout.label);
    std::optional<FieldInput> input = drawMenu(memory, key, common, refusal);
    if(!stacked) ImGui::SameLine(start + layout.label, 0.0f);
    const bool isDim = common.isMissing && !common.whyNotShown;
    if(isDim) ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetStyleColorVec4(ImGuiCol_TextDisabled));
    const ImVec2 place = ImGui::GetCursorScreenPos();
    const float width = stacked ? layout.whole : layout.field;
    if(std::optional<FieldInput> changed = drawWidget(context, key, common, field, width, refusal))
        input = std::move(changed);
    if(isDim) ImGui::PopStyleColor();
    const ImVec2 end{place.x + width, ImGui::GetItemRectMax().y};
    notePlace(
        memory, field, -1, place.x + std::min(width * 0.5f, ImGui::GetFrameHeight() * 0.5f), (place.y + end.y) * 0.5f);
    if(common.whyNotShown)
        drawFrame(place, end, RefusedColor);
    else if(!common.complaint.empty())
        drawFrame(place, end, DoubtfulColor);
    if(layout.hasReset && drawResetButton(!common.isMissing)) input = resetInput();
    if(!refusal.empty()) showRefusal(memory, field, std::move(refusal));
    if(memory.refusedField == field) drawRefusal(memory, place, end);
    ImGui::PopID();
    return input;
}

void showRefusal(FieldMemory& memory, std::size_t field, std::string reason) {
    memory.refusal = std::move(reason);
    memory.refusedField = field;
    memory.refusedAt = ImGui::GetTime();
}

} // namespace VantrelEngine
