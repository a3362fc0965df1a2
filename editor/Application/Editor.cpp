#include "Application/Editor.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/AbstractFramebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Color.h>
#include <VantrelHost/EngineAssets.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "Application/EditCommands.h"
#include "Application/JournalQuestions.h"
#include "Application/RecentFiles.h"
#include "Data/FoundJournal.h"
#include "Data/StepName.h"
#include "Data/StepWalk.h"
#include "Data/WorkingFolder.h"
#include "Import/ImportKinds.h"
#include "Import/ModelPictureReader.h"
#include "Panels/DragSource.h"
#include "Panels/HelpWindow.h"
#include "Panels/MenuBar.h"
#include "Panels/ProgressPanel.h"
#include "Panels/StatusBar.h"
#include "Utilities/DepthRange.h"
#include "Utilities/PlacementGuard.h"

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

// The only view there is.
constexpr const char* ViewName = "Scene View";

// Seconds. What takes less shows no bar.
constexpr Double ProgressDelay = 0.5;
// Between two frames while a project is opened, or an import compiled.
constexpr Double OpeningStep = 0.015;
constexpr Double Endless = 1e6;

// Of pictures of models.
constexpr std::size_t ModelCapacity = 256;

constexpr const char* NotWhileDragged = ": not while something is dragged";

std::string absolutePath(const std::string& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

bool isProjectPath(const std::string& path) { return fs::path{path}.extension() == ".json"; }

ProjectSession::EarlierSteps earlierSteps(Recover recover) {
    using Earlier = ProjectSession::EarlierSteps;
    return recover == Recover::BringBack ? Earlier::BringBack : Earlier::PutAside;
}

ShownProgress shownProgress(const ImportProgress& progress, bool canBeCancelled) {
    std::string text = "Importing " + progress.name;
    if(progress.waiting) text += ", " + std::to_string(progress.waiting) + " more to come";
    if(!progress.stage.empty()) text += '\n' + progress.stage;
    return {text, progress.fraction, canBeCancelled};
}

bool isWindow(const ImGuiWindow* window, const char* title) {
    return window && Containers::StringView{window->RootWindow->Name} == title;
}

bool isView(const ImGuiWindow* window) { return isWindow(window, ViewName); }

} // namespace

Editor::Editor(Platform& platform, Files files):
    _platform(platform), _settingsFile{std::move(files.settings)}, _settings{readSettings(_settingsFile)},
    _session{std::make_unique<ProjectSession>()},
    // Who remembers nothing of the user leaves nothing in the user's folders.
    _marks{_settingsFile.empty() ? std::string{} : marksFolder()}, _imports{*_session, files.converter},
    _thumbnails{_session->data().scene(), _session->data().resources(),
        _settingsFile.empty() ? std::string{} : thumbnailFolder()},
    _models{_thumbnails.edge(), ModelCapacity,
        ModelPictureReader{files.converter, _settingsFile.empty() ? std::string{} : thumbnailFolder()}},
    _loader{files.module}, _lastFrame{platform.now()} {
    _session->editor().state().platform = &_platform;
    _interface.setDocking(_settings.docking);
    addEngineAssets(_session->data().resources());
}

Editor::~Editor() {
    closeView();
    _marks.update(*_session);
    rememberSettings();
}

// Not at the end alone, which an editor that is killed has not.
void Editor::rememberSettings() {
    _settings.docking = _interface.docking();
    const std::string error = writeSettings(_settingsFile, _settings);
    if(!error.empty()) Utility::Error{} << error.data();
}

std::string Editor::loadView() {
    std::string error = _loader.load();
    if(error.empty()) initView();
    return error;
}

void Editor::initView() {
    _loader.module()->init(_interface.context(), &_session->data(), &_session->editor());
    _delivery.setModule(_loader.module());
}

void Editor::releaseInput() { _delivery.releaseAll(Vector2i{_input.position()}); }

void Editor::closeView() {
    releaseInput();
    _delivery.setModule(nullptr);
    _loader.unload();
}

std::string Editor::reloadView(const std::string& moduleFile) {
    if(isGestureUnderWay()) return "The view is not reloaded while something is dragged";
    dropPreview();
    if(!_loader.module()) {
        if(!moduleFile.empty()) _loader.setFile(moduleFile);
        return loadView();
    }
    releaseInput();
    _delivery.setModule(nullptr);
    std::string error = _loader.reload(moduleFile);
    _delivery.setModule(_loader.module());
    requestFrames();
    return error;
}

std::string Editor::open(const std::string& path) {
    const std::string absolute = absolutePath(path);
    if(isGestureUnderWay()) return absolute + NotWhileDragged;
    dropPreview();
    if(isImportable(absolute)) {
        _imports.add(absolute, ImportInto::NewProject);
        requestFrames();
        return {};
    }
    _earlierSteps = earlierSteps(_recover);
    const OpenedProject result = _session->open(absolute);
    opened(result, absolute);
    return result.error;
}

void Editor::opened(const OpenedProject& opened, const std::string& path) {
    requestFrames();
    if(!opened.error.empty()) return removeMissingFile(_settings.recentFiles, path);
    for(const DocumentProblem& problem: opened.problems) _session->data().project().warnOnce(lineOf(problem));
    _session->beginJournal(_earlierSteps);
    addRecentFile(_settings.recentFiles, path);
    rememberSettings();
    Utility::Debug{} << "Opened" << path.data();
}

std::string Editor::save(const std::string& path, bool overwritesRepaired) {
    if(isGestureUnderWay()) return path + ": nothing is saved while something is dragged";
    dropPreview();
    const std::string absolute = absolutePath(path);
    std::string error =
        _session->save(absolute, overwritesRepaired ? ProjectStore::Repaired::Overwrite : ProjectStore::Repaired::Keep);
    if(!error.empty()) return error;
    addRecentFile(_settings.recentFiles, absolute);
    rememberSettings();
    Utility::Debug{} << "Saved" << absolute.data();
    return {};
}

std::string Editor::startNew() {
    if(isGestureUnderWay()) return std::string{"A new project"} + NotWhileDragged;
    dropPreview();
    _session->startNew();
    requestFrames();
    return {};
}

void Editor::import(const std::string& path) {
    _imports.add(absolutePath(path));
    requestFrames();
}

bool Editor::finishImports() {
    updateSteps();
    const std::vector<ImportResult> results = _imports.finish();
    showImported(results);
    return std::all_of(
        results.begin(), results.end(), [](const ImportResult& result) { return result.inserted.error.empty(); });
}

void Editor::showImported(const std::vector<ImportResult>& results) {
    if(results.empty()) return;
    updateSteps(results);
    for(const ImportResult& result: results) showImported(result);
}

void Editor::showImported(const ImportResult& result) {
    requestFrames();
    if(result.into != ImportInto::NewProject) return;
    if(!result.inserted.error.empty()) return _dialogs.showMessage(result.source + ": " + result.inserted.error);
    fitDepthRange(result.inserted.roots, *_session);
    _session->editor().state().framesSelection = true;
}

bool Editor::makeModelPicture() {
    _models.update(true);
    return _models.isBusy();
}

void Editor::showError(const std::string& line) {
    Utility::Error{} << line.data();
    _dialogs.showMessage(line);
    requestFrames();
}

// A step is called after the file that it came from.
void Editor::updateSteps(const std::vector<ImportResult>& imported) {
    std::vector<std::string> names;
    for(const ImportResult& result: imported)
        if(result.inserted.error.empty()) names.push_back("Import " + fs::path{result.source}.filename().string());
    _session->steps().update(names);
    _session->updateJournal();
}

bool Editor::isGestureUnderWay() {
    const ChangeManager& changes = _session->changes();
    return changes.trial() == Trial::Gesture || changes.group() >= 0 || _session->editor().state().isHandleHeld;
}

// What is only shown ends with whatever the user does next. Whether there was any of it.
bool Editor::dropPreview() {
    if(_session->changes().trial() != Trial::Preview) return false;
    _session->changes().dropTrial();
    return true;
}

void Editor::goTo(std::size_t step) {
    if(isBlocked() || isGestureUnderWay() || dropPreview()) return;
    goToStep(*_session, step);
    requestFrames();
}

void Editor::perform(Command command) {
    // Whoever leaves does not wait for what takes long.
    if(command == Command::Quit && _imports.isOpening()) _imports.giveUp();
    if(isBlocked()) return;
    requestFrames();
    if(!isGestureUnderWay()) return performNow(command);
    // Its changes belong together. Whoever leaves is asked in any case.
    if(command == Command::Quit || command == Command::Help) performNow(command);
}

void Editor::performNow(Command command) {
    const bool wasPreviewed = command != Command::Help && dropPreview();
    _dialogs.setProject(_session->path(), _session->changes().hasUnsavedChanges());
    updateSteps();
    const std::size_t step = _session->steps().position();
    switch(command) {
    case Command::New: return _dialogs.startNew();
    case Command::Open: return _dialogs.chooseAndOpen();
    case Command::Save: return _dialogs.save();
    case Command::SaveAs: return _dialogs.saveAs();
    case Command::Quit: return _dialogs.quit();
    case Command::Import: return _dialogs.chooseAndImport(importedSuffixes());
    case Command::Help: _isHelpOpen = !_isHelpOpen; return;
    case Command::ResetLayout: _settings.panes = {}; return _panels.panes().reset();
    case Command::Undo:
        if(!wasPreviewed && step) goTo(step - 1);
        return;
    case Command::Redo:
        if(!wasPreviewed) goTo(step + 1);
        return;
    case Command::Copy:
    case Command::CopyTrees:
    case Command::Paste:
    case Command::PasteChild:
    case Command::Duplicate:
    case Command::DuplicateTrees:
    case Command::Delete:
    case Command::SelectAll:
    case Command::SelectNone: return performEdit(command, _session->editor());
    case Command::ReloadView: {
        const std::string error = reloadView();
        if(!error.empty()) showError(error);
        return;
    }
    }
}

void Editor::setKey(int key, bool isDown, bool isRepeated) {
    if(isDown && key == GLFW_KEY_ESCAPE && giveUpDrag()) return;
    // What is selected now is what the key acts on.
    if(isDown && !isBlocked()) updateSteps();
    if(const std::optional<Command> command = _input.setKey(key, isDown, isRepeated)) perform(*command);
}

// Out of whatever panel it comes. What was dropped from outside is not held by anybody any more.
bool Editor::giveUpDrag() {
    if(_drop.isPlaying() || !VantrelEngine::giveUpDrag()) return false;
    _held.letGo();
    requestFrames();
    return true;
}

void Editor::setButton(MouseButton button, bool isDown, unsigned modifiers) {
    // Neither flies nor opens a menu.
    if(button == MouseButton::Right && isDown) _isRightTaken = giveUpDrag();
    if(button == MouseButton::Right && _isRightTaken) return;
    const bool places = isDown && button == MouseButton::Left && _input.isOverView() &&
        !_session->editor().state().isBoxArmed && (_input.modifiers() | modifiers) == (ModifierControl | ModifierShift);
    if(places) return place(modifiers);
    _input.setButton(button, isDown, modifiers);
}

// What is selected is put where the mouse is, or is not: the press would end the process then, and the view must not see it.
void Editor::place(unsigned modifiers) {
    updateSteps();
    const EditorData& data = _session->data();
    const std::string refusal = placementRefusal(_session->data());
    if(!refusal.empty()) Utility::Warning{} << refusal.data();
    _input.setButton(MouseButton::Left, true, modifiers, refusal.empty());
    const std::optional<Id> placed = data.firstSelectedObject();
    if(!placed) return;
    const Containers::StringView id = data.scene().main().objectIds.nameOf(*placed);
    _session->steps().update({placementName(id, data.project())});
}

void Editor::dropFile(const std::string& file, const Vector2& position) {
    requestFrames();
    if(isProjectPath(file)) return isGestureUnderWay() ? showError(file + NotWhileDragged) : openAsked(file);
    _drop.add(file, position);
}

void Editor::hold(const std::string& type, const std::string& text) {
    _input.holdForInterface(true);
    _held.take(type, text);
    requestFrames();
}

// Over the view it is the view's; a file that nobody wants is opened or imported all the same.
void Editor::takeDropped(const std::string& file) {
    if(!file.empty()) import(file);
}

void Editor::runActions() {
    while(const std::optional<ProjectAction> action = _dialogs.takeAction()) run(*action);
}

void Editor::run(const ProjectAction& action) {
    requestFrames();
    switch(action.kind) {
    case ProjectAction::Kind::New: {
        const std::string error = startNew();
        if(!error.empty()) showError(error);
        return;
    }
    case ProjectAction::Kind::Quit: _wantsQuit = true; return;
    case ProjectAction::Kind::Import: return import(action.path);
    case ProjectAction::Kind::Save: {
        const std::string error = save(action.path, action.overwritesRepaired);
        // Also one that somebody else changed while it was saved.
        const bool isKept =
            !error.empty() && !action.overwritesRepaired && _session->keepsFile(absolutePath(action.path));
        if(!error.empty()) Utility::Error{} << error.data();
        return _dialogs.saved(action.path, error, isKept);
    }
    case ProjectAction::Kind::Open:
    case ProjectAction::Kind::OpenWithSteps:
    case ProjectAction::Kind::OpenWithoutSteps:
    case ProjectAction::Kind::OpenAsItIs: return openAsked(action);
    case ProjectAction::Kind::OpenCopy: return openCopy(action.path);
    case ProjectAction::Kind::OpenUntitled: return openUntitled(action.path);
    case ProjectAction::Kind::RecoverUntitled: return askForUntitled(action.path);
    case ProjectAction::Kind::DiscardUntitled: return discardUntitled(action.path);
    case ProjectAction::Kind::KeepMine: _keptMine = _session->changedOutside(); return;
    }
}

void Editor::keepJournals(Recover recover) {
    _recover = recover;
    _keepsJournals = true;
    _session->keepJournals();
    findUntitled();
    _tellsUntitled = !_untitled.empty() && _recover != Recover::BringBack;
}

// Of those that are left when the project is there and nothing is asked any more: once, and as the last of what is said in
// the beginning.
void Editor::tellUntitled() {
    if(_opening || _dialogs.isOpen() || !std::exchange(_tellsUntitled, false) || _untitled.empty()) return;
    const std::string count = std::to_string(_untitled.size());
    Utility::Warning{} << ((_untitled.size() == 1 ? "A project that was" : count + " projects that were") +
        " never saved can be brought back: File > Recover unsaved projects")
                              .data();
}

void Editor::openAsked(const ProjectAction& action) {
    using Kind = ProjectAction::Kind;
    using Earlier = ProjectSession::EarlierSteps;
    const std::string path = absolutePath(action.path);
    const bool isAsked = action.kind == Kind::Open && _recover == Recover::Ask && isProjectPath(path) &&
        path != _session->path() && _keepsJournals;
    if(isAsked)
        if(std::optional<ProjectChoice> question = journalQuestion(path, _session->findJournal(path)))
            return _dialogs.ask(std::move(*question));
    _earlierSteps = action.kind == Kind::OpenWithSteps ? Earlier::BringBack
        : action.kind == Kind::OpenWithoutSteps        ? Earlier::Discard
        : action.kind == Kind::OpenAsItIs              ? Earlier::PutAside
                                                       : earlierSteps(_recover);
    openInSteps(path);
}

void Editor::openCopy(const std::string& path) {
    const std::string copy = copyPath(path);
    const std::string error = _session->recoverCopy(path, copy);
    if(!error.empty()) return showError(error);
    _marks.copy(*_session, path);
    addRecentFile(_settings.recentFiles, copy);
    Utility::Debug{} << "Brought back as" << copy.data();
}

void Editor::openUntitled(const std::string& workingFolder) {
    const std::string error = _session->recoverUntitled(workingFolder);
    if(!error.empty()) showError(error);
    findUntitled();
}

void Editor::findUntitled() {
    _untitled.clear();
    _untitledLabels.clear();
    for(const std::string& folder: WorkingFolder::abandonedProjects()) {
        const FoundJournal found = _session->findJournal(ProjectSession::untitledProject(folder));
        if(found.state != FoundJournal::State::Steps) continue;
        _untitled.push_back(folder);
        _untitledLabels.push_back(untitledLabel(found));
    }
}

void Editor::recoverUntitled() {
    if(_recover == Recover::PutAside || _untitled.empty()) return;
    if(_recover == Recover::BringBack) return openUntitled(_untitled.front());
    askForUntitled(_untitled.front());
}

void Editor::askForUntitled(const std::string& workingFolder) {
    const FoundJournal found = _session->findJournal(ProjectSession::untitledProject(workingFolder));
    std::optional<ProjectChoice> question = untitledQuestion(workingFolder, found);
    if(question) return _dialogs.ask(std::move(*question));
    findUntitled();
    showError(workingFolder + ": this project is not there any more, or another editor has it");
}

void Editor::discardUntitled(const std::string& workingFolder) {
    WorkingFolder::discard(workingFolder);
    findUntitled();
    if(_recover != Recover::Ask || _untitled.empty()) return;
    // What was given up to see the one before may not be given up to see this one.
    _dialogs.setProject(_session->path(), _session->changes().hasUnsavedChanges());
    _dialogs.recoverUntitled(_untitled.front());
}

void Editor::setFocus(bool hasFocus) {
    if(!hasFocus) giveUpDrag();
    _input.setWindowFocus(hasFocus);
    if(hasFocus)
        askForChanges();
    else
        rememberSettings();
}

void Editor::end(Ending ending) {
    const bool isSomethingUnderWay = ImGui::IsAnyItemActive() || isGestureUnderWay();
    _input.letGo();
    _ending = ending;
    _endingFrames = isSomethingUnderWay ? EndingFrames : 0;
    requestFrames();
    if(!isSomethingUnderWay) goOnEnding();
}

void Editor::goOnEnding() {
    if(!_ending || (_endingFrames && --_endingFrames)) return;
    if(*_ending == Ending::Asked) {
        perform(Command::Quit);
        // Later: it waits for what takes long.
        if(isBlocked()) return;
    } else {
        dropPreview();
        updateSteps();
        _session->leaveToJournal();
        _wantsQuit = true;
    }
    _ending.reset();
}

void Editor::askForChanges() {
    if(isBlocked() || isGestureUnderWay() || _dialogs.isOpen()) return;
    const std::optional<FileFingerprint> changed = _session->changedOutside();
    if(!changed || changed == _keptMine) return;
    // Whatever is answered, or not any more.
    _session->keepBase();
    _dialogs.ask(changedQuestion(_session->path(), _session->changes().hasUnsavedChanges()));
    requestFrames();
}

void Editor::openInSteps(const std::string& path) {
    if(isImportable(path)) {
        open(path);
        return;
    }
    _opening = std::make_unique<ProjectOpening>(*_session, absolutePath(path));
    _openingBegan = _platform.now();
    _openingFrames = 0;
}

void Editor::goOnOpening() {
    if(!_opening || (_isReplayed && _openingFrames < ReplayedOpening)) return;
    bool goesOn = true;
    // What takes no longer is not worth a frame in which the scene is away.
    do goesOn = _opening->step(OpeningStep);
    while(goesOn && (_isReplayed || _platform.now() - _openingBegan < ProgressDelay));
    if(goesOn) return;
    opened(_opening->opened(), _opening->path());
    const std::string error = _opening->opened().error;
    _opening.reset();
    if(!error.empty()) showError(error);
}

void Editor::drawFrame(GL::AbstractFramebuffer& framebuffer, const Vector2& windowSize) {
    const Double now = _platform.now();
    goOnOpening();
    // What is dropped just now goes into the project as it is.
    if(!_opening && !_drop.isPlaying()) {
        if(!_imports.isCompiling()) updateSteps();
        showImported(_imports.update(_isReplayed ? Endless : OpeningStep));
    }
    const bool isCompiling = _imports.isCompiling() || (_opening && _opening->isInPlace());
    if(!isCompiling) {
        _session->update();
        _marks.update(*_session);
        updateSteps();
    }
    _thumbnails.beginFrame();
    _pictures.update(_isReplayed);
    if(!_isReplayed && _models.update(false)) requestFrames();
    _session->editor().state().wantsFrame = _session->editor().state().isPictureIncomplete = false;
    _session->editor().state().isLocked = isBlocked();
    if(_settlingFrames) --_settlingFrames;

    _drop.beginFrame(_input, !isBlocked());
    _interface.beginFrame(windowSize, _platform.framebufferScale(), _settings.fontScale, now - _lastFrame);
    _lastFrame = now;
    if(_ending) ImGui::ClearActiveID();
    drawPanels();
    tellRefused();
    updateFocus();
    takeDropped(_drop.endFrame());

    framebuffer.bind();
    GL::Renderer::setClearColor(Color4{0.09f, 1.0f});
    framebuffer.clear(GL::FramebufferClear::Color);
    _interface.endFrame();
    if(_loader.module()) _loader.module()->frameShown();
    _frameTime = _platform.now() - now;

    if(_command) perform(*_command);
    _command.reset();
    if(const std::optional<std::size_t> step = _panels.takeStep()) goTo(*step);
    goOnEnding();
    if(!isBlocked()) runActions();
    tellUntitled();
    // Whatever was done in this frame outlives it.
    if(!isBlocked()) updateSteps();
    makeThumbnail(framebuffer);
}

// Where one was made, the next frame shows it.
void Editor::makeThumbnail(GL::AbstractFramebuffer& framebuffer) {
    if(!_thumbnails.isWorkWaiting() || isMoving() || _imports.isBusy()) return;
    if(_thumbnails.work()) _settlingFrames = 1;
    framebuffer.bind();
}

void Editor::drawPanels() {
    drawMenu();
    drawStatus();
    _panels.panes().layOut(_settings.panes, _settings.fontScale);
    const bool isProjectThere = !_opening || !_opening->isInPlace();
    const std::optional<ImportProgress> importing = _imports.progress();
    _panels.draw({*_session, _log, _thumbnails, {_pictures, _models}, _settings.panes, isProjectThere, _isReplayed,
        _frameTime * 1000.0, importing ? importing->waiting + 1 : 0});
    // The view comes last: the last one that is new has the focus.
    if(isProjectThere) drawScene();
    if(_isHelpOpen) drawHelpWindow(_isHelpOpen);
    _dialogs.setProject(_session->path(), _session->changes().hasUnsavedChanges());
    _dialogs.draw();
    drawImport();
    if(!_opening) return;
    ++_openingFrames;
    drawOpening({"Opening " + _opening->path() + '\n' + _opening->doing(), _opening->fraction(), false}, true);
    requestFrames();
}

void Editor::drawScene() {
    EditorState& views = _session->editor().state().views;
    for(unsigned view = 0; view != views.viewCount(); ++view) _panels.panes().place(views, view);
    _drop.draw();
    _held.draw();
    if(_loader.module()) _loader.module()->draw();
}

void Editor::drawImport() {
    if(!_imports.isBusy()) return _importsBegan.reset();
    if(!_importsBegan) _importsBegan = _platform.now();
    const std::optional<ImportProgress> progress = _imports.progress();
    const bool isLong = progress && _platform.now() - *_importsBegan >= ProgressDelay;
    const bool isSeenAbove = isLong && _imports.isOpening();
    const ShownProgress shown = isLong ? shownProgress(*progress, !_imports.isCompiling()) : ShownProgress{};
    bool isCancelled = isLong && !isSeenAbove && drawProgress(shown);
    // Over what cannot be used meanwhile.
    if(isBlocked() && drawOpening(shown, isSeenAbove)) isCancelled = true;
    if(isCancelled) _imports.cancel();
}

void Editor::drawMenu() {
    MenuState state;
    const StepLog& steps = _session->steps();
    const std::size_t step = steps.position();
    state.undo = step ? &steps.steps()[step - 1].name : nullptr;
    state.redo = step != steps.steps().size() ? &steps.steps()[step].name : nullptr;
    state.title = title();
    state.recentFiles = &_settings.recentFiles;
    state.unsavedProjects = &_untitledLabels;
    state.panes = &_settings.panes;
    state.views = &_session->editor().state().views;
    state.fontScale = &_settings.fontScale;
    state.edit = editAbilities(_session->editor(), _clipboardHasObjects);
    const MenuChoice choice = drawMenuBar(state);
    if(choice.isEditMenuNew) _clipboardHasObjects = clipboardHasObjects();
    if(choice.command) _command = choice.command;
    _dialogs.setProject(_session->path(), _session->changes().hasUnsavedChanges());
    if(!choice.file.empty()) _dialogs.open(choice.file);
    if(choice.unsavedProject) _dialogs.recoverUntitled(_untitled[*choice.unsavedProject]);
}

void Editor::drawStatus() {
    StatusLine status;
    status.objects = _session->data().scene().main().size() - 1;
    status.selected = _session->data().selection().countSet();
    status.statistics = _session->editor().state().statistics;
    status.frameTime = _frameTime * 1000.0;
    status.journalTrouble = _session->journalTrouble();
    const Containers::StringView reload = _session->editor().state().lastReload;
    status.lastReload = {reload.data(), reload.size()};
    status.message = _log.message().text.empty() ? nullptr : &_log.message();
    drawStatusBar(status);
}

// One line for all that a box or a command was about.
void Editor::tellRefused() {
    const EditorData::Refused refused = _session->data().takeRefused();
    const Scene& scene = _session->data().scene().main();
    if(!refused.count || !scene.isValid(refused.object)) return;
    if(refused.count != 1) {
        Utility::Warning{} << refused.count << "objects are locked and cannot be selected";
        return;
    }
    const Containers::StringView name = scene.objectNames.nameOf(refused.object);
    Utility::Warning{} << (name.isEmpty() ? scene.objectIds.nameOf(refused.object) : name)
                       << "is locked and cannot be selected";
}

void Editor::updateFocus() {
    const ImGuiContext& context = *ImGui::GetCurrentContext();
    InterfaceFocus focus;
    focus.isViewHovered = isView(context.HoveredWindow);
    focus.focus = isView(context.NavWindow)   ? ShortcutFocus::View
        : _panels.focused() == Panel::Objects ? ShortcutFocus::Objects
                                              : ShortcutFocus::Elsewhere;
    // Also in a field that took the keys in this frame.
    focus.isTyping = context.IO.WantTextInput || context.WantTextInputNextFrame == 1;
    focus.isBlocked = context.OpenPopupStack.Size != 0 || isBlocked();
    _input.setFocus(focus);
    _cursorShape = cursorShapeOf(ImGui::GetMouseCursor());
    // What is behind a dialog is still getting darker.
    if(context.DimBgRatio > 0.0f && context.DimBgRatio < 1.0f) requestFrames();
}

bool Editor::isBlocked() const { return _opening || _imports.isOpening() || _imports.isCompiling(); }

bool Editor::isMoving() const {
    return _settlingFrames || _ending || _drop.isUnderWay() || _opening || _imports.isCompiling() ||
        _session->editor().state().wantsFrame;
}

bool Editor::wantsFrame() const {
    return isMoving() || _panels.isReading() || _pictures.isBusy() ||
        (!_imports.isBusy() && _thumbnails.isWorkWaiting());
}

std::string Editor::title() const {
    if(_opening) return "Opening ...";
    const std::string& path = _session->path();
    const std::string name = path.empty() ? "New project" : fs::path{path}.filename().string();
    return _session->changes().hasUnsavedChanges() ? name + "*" : name;
}

} // namespace VantrelEngine
