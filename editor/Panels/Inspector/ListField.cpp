#include "Panels/Inspector/ListField.h"

#include <algorithm>

#include <imgui.h>

#include "Panels/Inspector/ReferenceField.h"
#include "Panels/Inspector/TypedText.h"

namespace VantrelEngine {

namespace {

constexpr int ShownLines = 8;

std::string textOf(const JsonValue& value) {
    return value.IsString() ? std::string{value.GetString(), value.GetStringLength()} : std::string{};
}

// What one line wants of the array: another text, or to be taken away.
struct LineInput {
    int line;
    std::optional<std::string> text;
};

std::optional<LineInput> drawLine(
    const FieldContext& context, const SchemaKey& key, const JsonValue& array, int line, float width) {
    const float edge = ImGui::GetFrameHeight(), gap = ImGui::GetStyle().ItemInnerSpacing.x * 0.5f;
    const std::string text = textOf(array[rapidjson::SizeType(line)]);
    ImGui::PushID(line);
    std::optional<std::string> changed = key.kind == KeyKind::References
        ? drawReferenceInput(context, key.section, text, nullptr, width - edge - gap,
              fieldNumber(std::string{key.key} + "/pick"), line)
        : drawTextInput(context.memory, text, "", width - edge - gap);
    ImGui::SameLine(0.0f, gap);
    const bool isRemoved = ImGui::Button("-", {edge, 0.0f});
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Take it out of the list");
    ImGui::PopID();
    if(isRemoved) return LineInput{line, {}};
    if(changed) return LineInput{line, std::move(changed)};
    return {};
}

std::optional<LineInput> drawLines(
    const FieldContext& context, const SchemaKey& key, const JsonValue& array, float width) {
    const int count = int(array.Size());
    std::optional<LineInput> input;
    if(!count) return input;
    const float line = ImGui::GetFrameHeightWithSpacing();
    ImGui::BeginChild("##lines", {width, line * float(std::min(count, ShownLines))});
    ImGuiListClipper clipper;
    clipper.Begin(count, line);
    while(clipper.Step())
        for(int i = clipper.DisplayStart; i != clipper.DisplayEnd; ++i)
            if(std::optional<LineInput> changed = drawLine(context, key, array, i, ImGui::GetContentRegionAvail().x))
                input = std::move(changed);
    ImGui::EndChild();
    return input;
}

JsonValue changedArray(const JsonValue& array, const LineInput& input) {
    static JsonAllocator allocator;
    JsonValue copy{array, allocator};
    if(!input.text) {
        copy.Erase(copy.Begin() + input.line);
        return copy;
    }
    JsonValue text{input.text->data(), rapidjson::SizeType(input.text->size()), allocator};
    if(input.line == int(copy.Size()))
        copy.PushBack(text, allocator);
    else
        copy[rapidjson::SizeType(input.line)] = text;
    return copy;
}

} // namespace

std::optional<FieldInput> drawListField(
    const FieldContext& context, const SchemaKey& key, const CommonValue& common, float width) {
    if(common.isMixed || !common.value.IsArray()) {
        ImGui::AlignTextToFramePadding();
        ImGui::TextDisabled("mixed");
        return {};
    }
    ImGui::BeginGroup();
    std::optional<LineInput> changed = drawLines(context, key, common.value, width);
    if(ImGui::Button("Add", {width, 0.0f})) changed = LineInput{int(common.value.Size()), std::string{}};
    ImGui::EndGroup();
    if(!changed) return {};
    FieldInput input;
    input.value = changedArray(common.value, *changed);
    return input;
}

} // namespace VantrelEngine
