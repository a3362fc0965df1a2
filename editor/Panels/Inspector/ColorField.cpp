#include "Panels/Inspector/ColorField.h"

#include <algorithm>
#include <cmath>

#include <imgui.h>

#include "Panels/Keys.h"

namespace VantrelEngine {

namespace {

struct ShownColor {
    float numbers[4];
    // What the colour was divided by, so that its largest number is at most 1.
    float brightness;
};

ShownColor shownColor(const SchemaKey& key, const CommonValue& common) {
    const std::vector<double> numbers = numbersOf(common.value, 4);
    const double largest = std::max({1.0, numbers[0], numbers[1], numbers[2]});
    ShownColor color{{}, float(largest)};
    for(std::size_t i = 0; i != 3; ++i) {
        const float number = float(std::max(numbers[i], 0.0) / largest);
        color.numbers[i] = key.kind == KeyKind::Color ? screenNumber(number) : number;
    }
    color.numbers[3] = float(std::min(std::max(numbers[3], 0.0), 1.0));
    return color;
}

// As the document has it: as many numbers as there were, rounded to what can be seen.
JsonValue documentColor(const SchemaKey& key, const ShownColor& color, bool hasAlpha) {
    static JsonAllocator allocator;
    JsonValue array{rapidjson::kArrayType};
    for(std::size_t i = 0; i != 3; ++i) {
        const float number = key.kind == KeyKind::Color ? linearNumber(color.numbers[i]) : color.numbers[i];
        array.PushBack(std::round(double(number) * color.brightness * 1.0e5) / 1.0e5, allocator);
    }
    if(hasAlpha) array.PushBack(std::round(double(color.numbers[3]) * 1.0e5) / 1.0e5, allocator);
    return array;
}

std::optional<FieldInput> drawWheel(const SchemaKey& key, const CommonValue& common) {
    if(!ImGui::BeginPopup("##wheel")) return {};
    // While a colour is dragged, the key takes that back.
    if(isEscapePressed() && !ImGui::IsMouseDown(ImGuiMouseButton_Left)) ImGui::CloseCurrentPopup();
    ShownColor color = shownColor(key, common);
    const bool hasAlpha = common.value.IsArray() && common.value.Size() == 4;
    ImGuiColorEditFlags flags = ImGuiColorEditFlags_NoInputs | ImGuiColorEditFlags_NoSidePreview |
        ImGuiColorEditFlags_NoLabel | ImGuiColorEditFlags_PickerHueWheel | ImGuiColorEditFlags_NoSmallPreview;
    flags |= hasAlpha ? ImGuiColorEditFlags_AlphaBar : ImGuiColorEditFlags_NoAlpha;
    ImGui::SetNextItemWidth(ImGui::GetFontSize() * 13.0f);
    const bool isChanged = ImGui::ColorPicker4("##picker", color.numbers, flags);
    ImGui::EndPopup();
    if(!isChanged) return {};
    FieldInput input;
    input.value = documentColor(key, color, hasAlpha);
    input.isHeld = ImGui::IsMouseDown(ImGuiMouseButton_Left);
    return input;
}

} // namespace

float screenNumber(float linear) {
    return linear <= 0.0031308f ? linear * 12.92f : 1.055f * std::pow(linear, 1.0f / 2.4f) - 0.055f;
}

float linearNumber(float screen) {
    return screen <= 0.04045f ? screen / 12.92f : std::pow((screen + 0.055f) / 1.055f, 2.4f);
}

std::optional<FieldInput> drawColor(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width) {
    const ShownColor color = shownColor(key, common);
    const float edge = ImGui::GetFrameHeight(), gap = std::floor(ImGui::GetStyle().ItemInnerSpacing.x * 0.5f);
    constexpr ImGuiColorEditFlags flags =
        ImGuiColorEditFlags_NoTooltip | ImGuiColorEditFlags_NoDragDrop | ImGuiColorEditFlags_NoAlpha;
    if(ImGui::ColorButton("##patch", {color.numbers[0], color.numbers[1], color.numbers[2], 1.0f}, flags, {edge, edge}))
        ImGui::OpenPopup("##wheel");
    // Behind its numbers, which are parts 0 to 3.
    notePlace(memory, field, 4);
    std::optional<FieldInput> picked = drawWheel(key, common);
    ImGui::SameLine(0.0f, gap);
    std::optional<FieldInput> typed = drawNumbers(memory, field, key, common, width - edge - gap);
    return picked ? std::move(picked) : std::move(typed);
}

} // namespace VantrelEngine
