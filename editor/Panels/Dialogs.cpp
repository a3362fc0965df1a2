#include "Panels/Dialogs.h"

#include <imgui.h>

#include "Panels/Keys.h"

namespace VantrelEngine {

namespace {

constexpr ImGuiWindowFlags DialogFlags = ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoMove |
    ImGuiWindowFlags_NoCollapse | ImGuiWindowFlags_NoSavedSettings;

bool beginDialog(const char* title) {
    if(!ImGui::IsPopupOpen(title)) ImGui::OpenPopup(title);
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    ImGui::SetNextWindowPos({size.x * 0.5f, size.y * 0.5f}, ImGuiCond_Always, {0.5f, 0.5f});
    return ImGui::BeginPopupModal(title, nullptr, DialogFlags);
}

void drawText(const std::string& text) {
    ImGui::PushTextWrapPos(ImGui::GetFontSize() * 36.0f);
    ImGui::TextUnformatted(text.data(), text.data() + text.size());
    ImGui::PopTextWrapPos();
    ImGui::Spacing();
    ImGui::Separator();
    ImGui::Spacing();
}

bool drawButton(const char* label) { return ImGui::Button(label, {ImGui::GetFontSize() * 6.5f, 0.0f}); }

} // namespace

void MessageDialog::draw() {
    if(_texts.empty() || !beginDialog("Message")) return;
    drawText(_texts.front());
    if(drawButton("OK") || isEnterPressed() || isEscapePressed()) {
        _texts.pop_front();
        ImGui::CloseCurrentPopup();
    }
    ImGui::EndPopup();
}

void QuestionDialog::ask(std::string title, std::string question, std::string yes, std::string no) {
    _title = std::move(title);
    _question = std::move(question);
    _yes = std::move(yes);
    _no = std::move(no);
}

Answer QuestionDialog::draw() {
    if(_question.empty() || !beginDialog(_title.data())) return Answer::None;
    drawText(_question);
    Answer answer = Answer::None;
    if(drawButton(_yes.data()) || isEnterPressed()) answer = Answer::Yes;
    ImGui::SameLine();
    if(!_no.empty()) {
        if(drawButton(_no.data())) answer = Answer::No;
        ImGui::SameLine();
    }
    if(drawButton("Cancel") || isEscapePressed()) answer = Answer::Cancel;
    if(answer != Answer::None) {
        _question.clear();
        ImGui::CloseCurrentPopup();
    }
    ImGui::EndPopup();
    return answer;
}

} // namespace VantrelEngine
