#include "Panels/Inspector/TypedText.h"

#include <imgui.h>

#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Keys.h"
#include "Panels/TextField.h"

namespace VantrelEngine {

namespace {

// What is longer is told, and not edited in a line.
constexpr std::size_t MaxRawLength = 20000;

// As with numbers, what is typed after the first click replaces all of a line.
bool inputText(std::string& text, const char* hint, unsigned lines) {
    return lines == 1 ? drawTextField("##text", hint, text, ImGuiInputTextFlags_AutoSelectAll)
                      : drawTextLines("##text", text, lines);
}

std::string textOf(const JsonValue& value) {
    return value.IsString() ? std::string{value.GetString(), value.GetStringLength()} : std::string{};
}

} // namespace

std::optional<std::string> drawTextInput(
    FieldMemory& memory, const std::string& text, const char* hint, float width, unsigned lines) {
    Typing& typing = memory.typing;
    const unsigned item = ImGui::GetID("##text");
    const bool wasTyping = typing.item == item;
    std::string typed = text;
    ImGui::SetNextItemWidth(width);
    const bool isChanged = inputText(typed, hint, lines);
    const bool isTyping = ImGui::IsItemActive();
    if(isTyping && !wasTyping) typing = {item, {}, {}};
    if(typing.item == item && isChanged) typing.text = typed;
    if(typing.item == item && isTyping && !isChanged) typing.text.reset();
    if(!wasTyping || isTyping) return {};
    const std::optional<std::string> result = std::move(typing.text);
    typing = {};
    if(isEscapePressed() || !result || *result == text) return {};
    return result;
}

std::optional<FieldInput> drawText(FieldMemory& memory, const SchemaKey& key, const CommonValue& common, float width) {
    const std::string text = common.isMixed ? std::string{} : textOf(common.value);
    const unsigned lines = key.kind == KeyKind::LongText ? LongTextLines : 1;
    const std::optional<std::string> typed = drawTextInput(memory, text, common.isMixed ? "mixed" : "", width, lines);
    if(!typed) return {};
    static JsonAllocator allocator;
    FieldInput input;
    input.value = JsonValue{typed->data(), rapidjson::SizeType(typed->size()), allocator};
    return input;
}

std::optional<FieldInput> drawRaw(FieldMemory& memory, const CommonValue& common, float width, std::string& refusal) {
    const std::string text = common.isMixed ? std::string{} : jsonText(common.value);
    if(text.size() > MaxRawLength) {
        ImGui::AlignTextToFramePadding();
        ImGui::TextDisabled("%zu bytes of JSON", text.size());
        return {};
    }
    const std::optional<std::string> typed = drawTextInput(memory, text, common.isMixed ? "mixed" : "", width);
    if(!typed) return {};
    JsonDocument value;
    refusal = parseJson(*typed, value);
    if(!refusal.empty()) return {};
    static JsonAllocator allocator;
    FieldInput input;
    input.value = JsonValue{value, allocator};
    return input;
}

} // namespace VantrelEngine
