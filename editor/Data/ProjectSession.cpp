#include "Data/ProjectSession.h"

#include <algorithm>
#include <cmath>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <VantrelHost/ResourceCompiler.h>

#include "Data/EnvironmentSettings.h"
#include "Data/FoundJournal.h"
#include "Data/Journal.h"
#include "Data/PlacedFiles.h"
#include "Data/Project/FileCalls.h"
#include "Data/ProjectFiles.h"
#include "Data/ProjectListener.h"
#include "Data/WorkingFolder.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::size_t UuidLength = 36;

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

ProjectSession::ProjectSession(FileCalls* calls):
    _calls{calls ? *calls : systemFileCalls()}, _store{_data.project(), &_calls},
    _resourceCompiler{std::make_unique<ResourceCompiler>(_data.project(), _data.resources(), _data.scene().resources(),
        _data.scene().resourceMaps(), _data.scene().revisions())},
    _compiler{std::make_unique<AssetCompiler>(&_data)}, _listener{std::make_unique<ProjectListener>(
                                                            _data, *_compiler, *_resourceCompiler)},
    _changes{std::make_unique<ChangeManager>(_data.project())}, _steps{*_changes, _data},
    _journal{std::make_unique<Journal>(_calls, *_changes, _steps)} {
    _listener->registerWith(*_changes);
    _changes->compileListeners();
    _editor.state().data = &_data;
    _editor.state().assetCompiler = _compiler.get();
    _editor.state().changeManager = _changes.get();
    _store.startNew();
    compileResources();
    compileObjects();
}

// Whoever ends it, or puts another project in the place of its one, has given up what is not saved.
ProjectSession::~ProjectSession() { _journal->end(); }

void ProjectSession::startNew() {
    _store.startNew();
    _data.resources().forgetProjectFolder();
    startOver();
    compileResources();
    compileObjects();
}

OpenedProject ProjectSession::open(const std::string& path) {
    OpenedProject opened = read(path);
    if(!opened.error.empty()) return opened;
    compileResources();
    compileObjects();
    return opened;
}

OpenedProject ProjectSession::put(ReadProject project) {
    const std::string path = project.path;
    OpenedProject opened = _store.open(std::move(project));
    if(!opened.error.empty()) return opened;
    _data.resources().setProjectFolder(folderOf(path));
    startOver();
    for(const DocumentProblem& problem: opened.problems)
        if(problem.kind == DocumentProblem::Kind::Repair)
            _repairs.push_back(problem);
        else if(problem.kind == DocumentProblem::Kind::Unusable)
            _data.project().warnUnusable({pointerOf(problem), problem.reason}, placeOf(problem));
        else
            _data.project().warnOnce(lineOf(problem));
    return opened;
}

// With another document.
void ProjectSession::startOver() {
    _journal->end();
    _data.selection().clear();
    _data.marks().clear();
    _repairs.clear();
    _changes->clear();
    _steps.update();
    _workingFolder.reset();
    _whyNoJournal.clear();
    readEditorSettings();
}

void ProjectSession::readEditorSettings() {
    const ValueAccess root{_data.project()};
    const ValueAccess camera = root["settings"]["editor"]["camera"];
    ++_data.projectNumber;
    _data.projectPath = _store.path();
    _data.cameraPitch = std::clamp(camera["pitch"].readValue().asFloat(_data.cameraPitch), -90.0f, 90.0f);
    _data.cameraYaw = std::fmod(camera["yaw"].readValue().asFloat(_data.cameraYaw), 360.0f);
    // A project has ids of one kind.
    const JsonValue* const objects = root["objects"].value();
    const bool hasObjects = objects && objects->IsObject() && !objects->ObjectEmpty();
    _data.objectIdMode = hasObjects && objects->MemberBegin()->name.GetStringLength() == UuidLength;
}

void ProjectSession::compileResources() {
    _resourceCompiler->compileAll();
    _data.scene().revisions().touch(Aspect::Settings);
}

void ProjectSession::beginCompileResources() { _resourceCompiler->beginCompileAll(); }

bool ProjectSession::compileNextResource() {
    if(_resourceCompiler->compileNext()) return true;
    _data.scene().revisions().touch(Aspect::Settings);
    return false;
}

void ProjectSession::compileObjects() {
    _compiler->setAllPending();
    _compiler->compilePending();
}

std::string ProjectSession::folderIfAny() const {
    if(!_store.path().empty()) return folderOf(_store.path());
    return _workingFolder ? _workingFolder->path() : std::string{};
}

std::string ProjectSession::folder() {
    std::string folder = folderIfAny();
    if(!folder.empty()) return folder;
    _workingFolder = std::make_unique<WorkingFolder>();
    if(!_workingFolder->path().empty()) _data.resources().setProjectFolder(_workingFolder->path());
    return _workingFolder->path();
}

std::string ProjectSession::save(const std::string& path, ProjectStore::Repaired repaired) {
    const std::string folder = folderIfAny();
    keepIfOpenElsewhere(path);
    std::string error = write(path, repaired);
    if(!error.empty()) return error;
    _changes->markSaved();
    _data.projectPath = _store.path();
    _repairs.clear();
    journalSaved();
    if(folderOf(path) == folder) return {};
    // The files of the resources are others now, or are missing.
    _data.resources().setProjectFolder(folderOf(path));
    compileResources();
    setUsersPending();
    _workingFolder.reset();
    return {};
}

// The files come first: a document is never there without them.
std::string ProjectSession::write(const std::string& path, ProjectStore::Repaired repaired) {
    const std::string from = folderIfAny(), to = folderOf(path);
    PlacedFiles files{to};
    bool isWhole = true;
    if(!from.empty() && from != to) {
        const CopiedFiles copied = copyProjectFiles(_data.project(), *_changes, from, files);
        if(!copied.error.empty()) return path + ": " + copied.error;
        isWhole = copied.isWhole;
    }
    std::string text;
    std::string error = _store.write(path, text);
    if(!error.empty()) return error;
    _steps.update();
    _journal->saving(fingerprintOf(text));
    error = _store.save(path, text, repaired);
    if(!error.empty()) return error;
    files.keep();
    if(!isWhole && _workingFolder) leaveWorkingFolder();
    return {};
}

void ProjectSession::leaveWorkingFolder() {
    _workingFolder->leave();
    Utility::Warning{} << "The folder" << _workingFolder->path().data() << "is kept for them";
}

void ProjectSession::setUsersPending() {
    for(const ResourceUser* const object: _resourceCompiler->objectsToCompile())
        _compiler->setPending({object->id.data(), object->id.size()}, true);
}

void ProjectSession::update() {
    beginUpdate();
    while(updateNext()) {
    }
}

void ProjectSession::updateResources() {
    beginUpdate();
    while(_resourceCompiler->compileNext()) {
    }
    setUsersPending();
}

void ProjectSession::beginUpdate() { _resourceCompiler->beginUpdate(); }

bool ProjectSession::updateNext() {
    if(_resourceCompiler->compileNext()) return true;
    setUsersPending();
    if(_compiler->isPending()) _compiler->compilePending();
    updateEnvironment();
    return false;
}

// Its image stays where it is as long as nothing changes.
void ProjectSession::updateEnvironment() {
    EditorSceneData& scene = _data.scene();
    if(_environmentRevision == scene.revisions().revision()) return;
    _environmentRevision = scene.revisions().revision();
    scene.main().environment = readEnvironment(_data.project(), scene.resources(), scene.resourceMaps());
}

} // namespace VantrelEngine
