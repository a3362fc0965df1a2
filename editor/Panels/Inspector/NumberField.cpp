#include "Panels/Inspector/NumberField.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include <imgui.h>
#include <imgui_internal.h>

#include "Panels/Inspector/Refusal.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

namespace {

constexpr const char* MixedText = "mixed";
// Of the text that is typed over: as many as a float has.
constexpr int AllDigits = 7;

bool isWhole(const SchemaKey& key) { return key.kind == KeyKind::WholeNumber || key.kind == KeyKind::WholeVector; }

bool isDegrees(const SchemaKey& key) { return std::string_view{key.unitText} == "°"; }

// What a number is written as: while it is dragged with as many decimals as it changes by.
struct Format {
    char text[24];

    explicit Format(const SchemaKey& key, double step, float width, bool isDragged, bool isEdited, bool hasUnit) {
        const char* const unit = hasUnit ? key.unitText : "";
        if(isWhole(key))
            std::snprintf(text, sizeof text, "%%.0f %s", unit);
        else if(isDragged)
            std::snprintf(text, sizeof text, "%%.%df %s", std::max(0, int(std::ceil(-std::log10(step) - 1e-9))), unit);
        else
            std::snprintf(text, sizeof text, "%%.%dg %s", isEdited ? AllDigits : digitsIn(width, unit), unit);
        trim();
    }

    // As many as there is room for.
    static int digitsIn(float width, const char* unit) {
        const float room = width - 2.0f * ImGui::GetStyle().FramePadding.x - ImGui::CalcTextSize(unit).x;
        return std::min(std::max(int(room / ImGui::CalcTextSize("0").x) - 2, 2), AllDigits - 1);
    }

    void trim() {
        char* const last = text + std::char_traits<char>::length(text) - 1;
        if(*last == ' ') *last = '\0';
    }
};

// The ends of the range that a drag stops at.
double dragEnd(const SchemaKey& key, double end, double step) {
    if(!std::isfinite(end))
        return end < 0.0 ? -double(std::numeric_limits<float>::max()) : double(std::numeric_limits<float>::max());
    if(!key.isOpen) return end;
    return end == key.min ? end + step : end - step;
}

// Not zero, where zero is no value: the drag steps over it.
double steppedOver(const SchemaKey& key, double value, double before, double step) {
    if(!key.isNeverZero || value != 0.0) return value;
    return before > 0.0 ? -step : step;
}

FieldInput partInput(int part, double number) {
    FieldInput input;
    input.part = part;
    input.number = number;
    return input;
}

// What was typed, when the field is left.
std::optional<FieldInput> typedInput(FieldMemory& memory, unsigned item, int part) {
    Typing& typing = memory.typing;
    if(typing.item != item || ImGui::TempInputIsActive(item)) return {};
    const std::optional<double> number = typing.number;
    typing = {};
    if(!number || isEscapePressed()) return {};
    return partInput(part, *number);
}

void drawAxis(int part) {
    constexpr ImU32 colors[]{IM_COL32(214, 80, 80, 255), IM_COL32(110, 178, 70, 255), IM_COL32(74, 134, 222, 255),
        IM_COL32(150, 150, 150, 255)};
    const ImVec2 min = ImGui::GetItemRectMin(), max = ImGui::GetItemRectMax();
    const float thickness = std::max(2.0f, ImGui::GetFontSize() * 0.16f);
    ImGui::GetWindowDrawList()->AddRectFilled(min, {min.x + thickness, max.y}, colors[part], 2.0f);
}

// All digits of a number that has no room for them.
void tellDigits(double value, const char* format) {
    char shown[64];
    std::snprintf(shown, sizeof shown, format, value);
    if(std::abs(std::strtod(shown, nullptr) - value) > 1.0e-5 * std::abs(value)) ImGui::SetTooltip("%.10g", value);
}

struct Part {
    int number;
    double value;
    bool isMixed;
    bool isAlone;
};

std::optional<FieldInput> drawPart(FieldMemory& memory, const SchemaKey& key, const Part& part, float width) {
    ImGui::PushID(part.number);
    const unsigned item = ImGui::GetID("##number");
    const bool isActive = ImGui::GetActiveID() == item, wasTyping = memory.typing.item == item;
    const bool isDragged = isActive && !wasTyping && ImGui::IsMouseDragging(ImGuiMouseButton_Left);
    const double step = dragStep(key, part.value);
    const Format format{key, step, width, isDragged, isActive, part.isAlone};
    const double min = dragEnd(key, key.min, step), max = dragEnd(key, key.max, step);
    double value = part.value;
    ImGui::SetNextItemWidth(width);
    const bool isChanged = ImGui::DragScalar("##number", ImGuiDataType_Double, &value, float(isWhole(key) ? 0.1 : step),
        &min, &max, part.isMixed && !isDragged ? MixedText : format.text);
    if(!isActive && !part.isMixed && ImGui::IsItemHovered()) tellDigits(value, format.text);
    if(!part.isAlone) drawAxis(part.number);
    const bool isTyping = ImGui::TempInputIsActive(item);
    ImGui::PopID();
    if(isTyping && !wasTyping) memory.typing = {item, {}, {}};
    if(isTyping || wasTyping) {
        if(isChanged && value != part.value && memory.typing.item == item) memory.typing.number = value;
        if(!isChanged && isTyping) memory.typing.number.reset();
        return typedInput(memory, item, part.number);
    }
    if(!isChanged || value == part.value) return {};
    FieldInput input = partInput(part.number, steppedOver(key, value, part.value, step));
    if(part.isMixed) {
        input.isOffset = true;
        input.number -= part.value;
    }
    input.isHeld = true;
    return input;
}

} // namespace

double dragStep(const SchemaKey& key, double value) {
    if(isWhole(key)) return 1.0;
    if(isDegrees(key)) return 0.5;
    const double size = std::abs(value);
    if(key.isOpen && size < 1.0) return 0.001;
    if(!(size > 10.0)) return 0.01;
    return std::pow(10.0, std::min(std::floor(std::log10(size)) - 2.0, 1.0));
}

std::optional<FieldInput> drawNumbers(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width) {
    const unsigned count = key.kind == KeyKind::Rotation ? 3 : common.value.IsArray() ? key.size : 1;
    const float gap = std::floor(ImGui::GetStyle().ItemInnerSpacing.x * 0.5f);
    const float part = std::max(std::floor((width - gap * float(count - 1)) / float(count)), 1.0f);
    const std::vector<double> numbers = count == 1 && common.value.IsNumber()
        ? std::vector<double>{common.value.GetDouble()}
        : numbersOf(common.value, count);
    std::optional<FieldInput> input;
    for(unsigned i = 0; i != count; ++i) {
        if(i) ImGui::SameLine(0.0f, gap);
        const bool isMixed = count == 1 ? common.isMixed : common.mixedParts >> i & 1;
        if(std::optional<FieldInput> changed = drawPart(memory, key, {int(i), numbers[i], isMixed, count == 1}, part))
            input = std::move(changed);
        notePlace(memory, field, int(i));
    }
    return input;
}

} // namespace VantrelEngine
