#include "Panels/TextField.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

int resize(ImGuiInputTextCallbackData* data) {
    if(data->EventFlag != ImGuiInputTextFlags_CallbackResize) return 0;
    std::string& text = *static_cast<std::string*>(data->UserData);
    text.resize(std::size_t(data->BufTextLen));
    data->Buf = text.data();
    return 0;
}

} // namespace

bool drawTextField(const char* label, const char* hint, std::string& text, int flags) {
    return ImGui::InputTextWithHint(
        label, hint, text.data(), text.capacity() + 1, flags | ImGuiInputTextFlags_CallbackResize, resize, &text);
}

bool drawTextLines(const char* label, std::string& text, unsigned lines) {
    const float height = ImGui::GetTextLineHeight() * float(lines) + ImGui::GetStyle().FramePadding.y * 2.0f;
    return ImGui::InputTextMultiline(label, text.data(), text.capacity() + 1, {ImGui::CalcItemWidth(), height},
        ImGuiInputTextFlags_CallbackResize, resize, &text);
}

} // namespace VantrelEngine
