#include "Data/ProjectSession.h"

#include "Data/ProjectListener.h"
#include <VantrelHost/ResourceCompiler.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

ProjectSession::ProjectSession():
    _store{_data.project()}, _resourceCompiler{std::make_unique<ResourceCompiler>(_data.project(), _data.resources(),
                                 _data.scene().resources(), _data.scene().resourceMaps(), _data.scene().revisions())},
    _compiler{std::make_unique<AssetCompiler>(&_data)}, _listener{std::make_unique<ProjectListener>(
                                                            _data, *_compiler, *_resourceCompiler)} {
    _editor.state().assetCompiler = _compiler.get();
    _store.startNew();
    startLog();
    compileResources();
    compileObjects();
}

ProjectSession::~ProjectSession() = default;

void ProjectSession::startLog() {
    _changes = std::make_unique<ChangeManager>(_data.project());
    _listener->registerWith(*_changes);
    _changes->compileListeners();
    _editor.state().changeManager = _changes.get();
}

OpenedProject ProjectSession::open(const std::string& path) {
    OpenedProject opened = read(path);
    if(!opened.error.empty()) return opened;
    compileResources();
    compileObjects();
    return opened;
}

OpenedProject ProjectSession::read(const std::string& path) {
    OpenedProject opened = _store.open(path);
    if(!opened.error.empty()) return opened;
    _data.project().forgetWarnings();
    _data.resources().setProjectFolder(folderOf(path));
    _data.selection().clear();
    startLog();
    return opened;
}

void ProjectSession::compileResources() {
    _resourceCompiler->compileAll();
    _data.scene().revisions().touch(Aspect::Settings);
}

void ProjectSession::compileObjects() {
    _compiler->setAllPending();
    _compiler->compilePending();
}

std::string ProjectSession::save(const std::string& path, ProjectStore::Repaired repaired) {
    std::string error = _store.save(path, repaired);
    if(!error.empty()) return error;
    _data.resources().setProjectFolder(folderOf(path));
    _changes->markSaved();
    return {};
}

void ProjectSession::update() {
    _resourceCompiler->update();
    for(const ResourceUser* const object: _resourceCompiler->objectsToCompile())
        _compiler->setPending({object->id.data(), object->id.size()}, true);
    if(_compiler->isPending()) _compiler->compilePending();
}

} // namespace VantrelEngine
