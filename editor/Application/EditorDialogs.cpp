#include "Application/EditorDialogs.h"

#include <filesystem>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

std::string folderOf(const std::string& path) { return fs::path{path}.parent_path().string(); }

std::string nameOf(const std::string& path) {
    return path.empty() ? std::string{"The new project"} : fs::path{path}.filename().string();
}

} // namespace

void EditorDialogs::setProject(std::string path, bool hasUnsavedChanges) {
    _path = std::move(path);
    _hasUnsavedChanges = hasUnsavedChanges;
}

void EditorDialogs::leaveProject(ProjectAction action) {
    if(_question.isOpen()) return;
    _waiting = std::move(action);
    if(!_hasUnsavedChanges) return goOn();
    _asked = Question::Unsaved;
    _question.ask("Unsaved changes", nameOf(_path) + " has changes that are not saved.", "Save", "Don't save");
}

void EditorDialogs::goOn() {
    if(_waiting) _actions.push_back(std::move(*_waiting));
    _waiting.reset();
}

void EditorDialogs::choose(FileDialog::Purpose purpose, const std::string& name, std::vector<std::string> suffixes) {
    _choosing = purpose;
    _files.show(purpose, folderOf(_path), name, std::move(suffixes));
}

void EditorDialogs::chooseAndOpen() { choose(FileDialog::Purpose::Open, {}, {".json"}); }

void EditorDialogs::chooseAndImport(std::vector<std::string> suffixes) {
    choose(FileDialog::Purpose::Import, {}, std::move(suffixes));
}

void EditorDialogs::save() {
    if(_path.empty()) return saveAs();
    _actions.push_back({ProjectAction::Kind::Save, _path, false});
}

void EditorDialogs::saveAs() {
    choose(FileDialog::Purpose::Save, _path.empty() ? "project.json" : nameOf(_path), {".json"});
}

void EditorDialogs::saved(const std::string& path, const std::string& error, bool wasKept) {
    if(error.empty()) return goOn();
    if(!wasKept) {
        _waiting.reset();
        return showMessage(error);
    }
    _savedPath = path;
    _asked = Question::Repaired;
    _question.ask("Not saved", error, "Save anyway", "Save as...");
}

void EditorDialogs::draw() {
    // Modal windows close each other: the others wait.
    if(_messages.isOpen()) return _messages.draw();
    if(_question.isOpen()) return answer(_question.draw());
    if(_files.isOpen()) drawFiles();
}

void EditorDialogs::drawFiles() {
    if(const std::optional<std::string> file = _files.draw())
        chosen(*file);
    else if(!_files.isOpen())
        _waiting.reset();
}

void EditorDialogs::chosen(const std::string& file) {
    if(_choosing == FileDialog::Purpose::Open) return open(file);
    const bool isSaved = _choosing == FileDialog::Purpose::Save;
    _actions.push_back({isSaved ? ProjectAction::Kind::Save : ProjectAction::Kind::Import, file, false});
}

void EditorDialogs::answer(Answer answer) {
    if(answer == Answer::None) return;
    if(answer == Answer::Cancel)
        _waiting.reset();
    else if(_asked == Question::Unsaved)
        answerUnsaved(answer);
    else if(_asked == Question::Repaired)
        answerRepaired(answer);
    else
        answerChoice(answer);
}

void EditorDialogs::answerUnsaved(Answer answer) {
    if(answer == Answer::Yes)
        save();
    else
        goOn();
}

void EditorDialogs::answerRepaired(Answer answer) {
    if(answer == Answer::Yes)
        _actions.push_back({ProjectAction::Kind::Save, _savedPath, true});
    else
        saveAs();
}

void EditorDialogs::ask(ProjectChoice choice) {
    if(_question.isOpen()) return;
    _asked = Question::Choice;
    _onYes = std::move(choice.onYes);
    _onNo = std::move(choice.onNo);
    _question.ask(std::move(choice.title), std::move(choice.question), std::move(choice.yes), std::move(choice.no));
}

void EditorDialogs::answerChoice(Answer answer) {
    _actions.push_back(std::move(answer == Answer::Yes ? _onYes : _onNo));
}

std::optional<ProjectAction> EditorDialogs::takeAction() {
    if(_actions.empty()) return {};
    ProjectAction action = std::move(_actions.front());
    _actions.pop_front();
    return action;
}

} // namespace VantrelEngine
