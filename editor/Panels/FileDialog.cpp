#include "Panels/FileDialog.h"

#include <cstdio>
#include <filesystem>

#include <imgui.h>

#include "Panels/Keys.h"

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

// Of what is saved.
constexpr const char* Suffix = ".json";

const char* titleOf(FileDialog::Purpose purpose) {
    switch(purpose) {
    case FileDialog::Purpose::Open: return "Open project";
    case FileDialog::Purpose::Save: return "Save project as";
    case FileDialog::Purpose::Import: break;
    }
    return "Import";
}

const char* buttonOf(FileDialog::Purpose purpose, bool replaces) {
    if(purpose == FileDialog::Purpose::Save) return replaces ? "Replace" : "Save";
    return purpose == FileDialog::Purpose::Open ? "Open" : "Import";
}

template<std::size_t size> void setField(char (&field)[size], const std::string& text) {
    std::snprintf(field, size, "%s", text.data());
}

bool isThere(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

bool isFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

} // namespace

void FileDialog::show(
    Purpose purpose, const std::string& folder, const std::string& name, std::vector<std::string> suffixes) {
    _purpose = purpose;
    _suffixes = std::move(suffixes);
    _isOpen = true;
    setField(_nameField, name);
    std::error_code error;
    enter(fs::absolute(folder.empty() ? "." : folder, error).lexically_normal().string());
}

void FileDialog::enter(const std::string& folder) {
    _folder = folder;
    while(_folder.size() > 1 && _folder.back() == '/') _folder.pop_back();
    setField(_folderField, _folder);
    _listing = listFolder(_folder, _suffixes);
    _complaint = _listing.error.empty() ? std::string{} : _folder + ": " + _listing.error;
    _replaced.clear();
}

std::optional<std::string> FileDialog::draw() {
    if(!_isOpen) return {};
    const char* const title = titleOf(_purpose);
    if(!ImGui::IsPopupOpen(title)) ImGui::OpenPopup(title);
    const ImVec2 size = ImGui::GetIO().DisplaySize;
    const float em = ImGui::GetFontSize();
    ImGui::SetNextWindowPos({size.x * 0.5f, size.y * 0.5f}, ImGuiCond_Appearing, {0.5f, 0.5f});
    ImGui::SetNextWindowSize({em * 40.0f, em * 30.0f}, ImGuiCond_Appearing);
    if(!ImGui::BeginPopupModal(title, nullptr, ImGuiWindowFlags_NoCollapse | ImGuiWindowFlags_NoSavedSettings))
        return {};
    bool isChosen = false;
    drawFolder();
    drawFiles(isChosen);
    ImGui::AlignTextToFramePadding();
    ImGui::TextUnformatted("Name");
    ImGui::SameLine();
    ImGui::SetNextItemWidth(-1.0f);
    if(ImGui::InputText("##name", _nameField, sizeof _nameField, ImGuiInputTextFlags_EnterReturnsTrue)) isChosen = true;
    if(!_complaint.empty()) ImGui::TextColored({1.0f, 0.48f, 0.42f, 1.0f}, "%s", _complaint.data());
    const bool replaces = !_replaced.empty() && _replaced == path();
    if(ImGui::Button(buttonOf(_purpose, replaces), {em * 6.5f, 0.0f})) isChosen = true;
    ImGui::SameLine();
    if(ImGui::Button("Cancel", {em * 6.5f, 0.0f}) || isEscapePressed()) _isOpen = false;
    std::optional<std::string> chosen;
    if(isChosen) chosen = choose();
    if(!_isOpen) ImGui::CloseCurrentPopup();
    ImGui::EndPopup();
    return chosen;
}

void FileDialog::drawFolder() {
    if(ImGui::Button("Up")) enter(fs::path{_folder}.parent_path().string());
    ImGui::SameLine();
    ImGui::SetNextItemWidth(-1.0f);
    if(!ImGui::InputText("##folder", _folderField, sizeof _folderField, ImGuiInputTextFlags_EnterReturnsTrue)) return;
    const fs::path path{_folderField};
    if(isFolder(_folderField)) return enter(_folderField);
    // The path of a file is as good.
    enter(path.parent_path().string());
    setField(_nameField, path.filename().string());
}

void FileDialog::drawFiles(bool& isChosen) {
    std::string entered;
    const float below = ImGui::GetFrameHeightWithSpacing() * (_complaint.empty() ? 2.0f : 3.0f);
    ImGui::BeginChild("##files", {0.0f, -below}, true);
    for(const std::string& folder: _listing.folders)
        if(ImGui::Selectable((folder + "/").data(), false, ImGuiSelectableFlags_DontClosePopups)) entered = folder;
    for(const std::string& file: _listing.files) {
        constexpr ImGuiSelectableFlags flags =
            ImGuiSelectableFlags_DontClosePopups | ImGuiSelectableFlags_AllowDoubleClick;
        if(!ImGui::Selectable(file.data(), file == _nameField, flags)) continue;
        setField(_nameField, file);
        isChosen = ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left);
    }
    if(_listing.folders.empty() && _listing.files.empty()) ImGui::TextDisabled("Nothing here");
    ImGui::EndChild();
    if(!entered.empty()) enter((fs::path{_folder} / entered).string());
}

std::string FileDialog::path() const { return (fs::path{_folder} / _nameField).string(); }

std::optional<std::string> FileDialog::choose() {
    std::string file = path();
    if(!_nameField[0] || isFolder(file)) {
        _complaint = "Choose a file";
        return {};
    }
    if(_purpose != Purpose::Save && !isThere(file)) {
        _complaint = std::string{_nameField} + " is not there";
        return {};
    }
    if(_purpose == Purpose::Save) {
        if(fs::path{file}.extension() != Suffix) setField(_nameField, std::string{_nameField} + Suffix);
        file = path();
        if(isThere(file) && _replaced != file) {
            _replaced = file;
            _complaint = std::string{_nameField} + " is there already";
            return {};
        }
    }
    _isOpen = false;
    return file;
}

} // namespace VantrelEngine
