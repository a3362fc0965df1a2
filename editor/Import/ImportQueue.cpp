#include "Import/ImportQueue.h"

#include <Corrade/Utility/Debug.h>

#include "Data/ProjectSession.h"
#include "Import/ImportKinds.h"
#include "Import/ImportedScene.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr const char* UnknownKind = "files of this kind cannot be imported";

void say(const std::string& name, const InsertedImport& inserted) {
    if(!inserted.error.empty()) {
        Utility::Error{} << name.data() << Utility::Debug::nospace << ":" << inserted.error.data();
        return;
    }
    Utility::Debug{} << "Imported" << name.data() << Utility::Debug::nospace << ":" << inserted.objectCount
                     << (inserted.objectCount == 1 ? "object" : "objects");
}

void sayWarnings(ImportJob& job) {
    for(const std::string& warning: job.takeWarnings())
        Utility::Warning{} << job.name().data() << Utility::Debug::nospace << ":" << warning.data();
}

} // namespace

ImportQueue::ImportQueue(ProjectSession& session, std::string converter, const ImportLimits& limits):
    _session(session), _converter{std::move(converter)}, _limits{limits} {
    _session.editor().state().imports = this;
}

ImportQueue::~ImportQueue() { _session.editor().state().imports = nullptr; }

void ImportQueue::add(const std::string& path) {
    if(!isImportable(path)) {
        Utility::Error{} << shownText(path).data() << Utility::Debug::nospace << ":" << UnknownKind;
        return;
    }
    if(!isOfOpenProject()) giveUp();
    _waiting.push_back(path);
}

void ImportQueue::cancel() {
    if(_job) Utility::Debug{} << "Cancelled the import of" << _job->name().data();
    _job.reset();
}

void ImportQueue::giveUp() {
    _project = _session.data().projectNumber;
    cancel();
    _waiting.clear();
}

bool ImportQueue::isOfOpenProject() { return _project == _session.data().projectNumber; }

std::optional<ImportProgress> ImportQueue::progress() const {
    if(!_job) return {};
    return ImportProgress{_job->name(), _job->stage(), _job->fraction(), _waiting.size()};
}

std::vector<ImportResult> ImportQueue::update() {
    if(!isOfOpenProject()) giveUp();
    if(!_job && !_waiting.empty()) {
        _job = std::make_unique<ImportJob>(_converter, _waiting.front(), _limits);
        _waiting.pop_front();
    }
    if(!_job) return {};
    const ImportJob::State state = _job->update();
    sayWarnings(*_job);
    if(state == ImportJob::State::Running) return {};
    // What the user does just now is one step of the log.
    if(state == ImportJob::State::Done && _session.changes().group() >= 0) return {};
    ImportResult result = insert(*_job);
    _job.reset();
    return {std::move(result)};
}

std::vector<ImportResult> ImportQueue::finish() {
    std::vector<ImportResult> results;
    while(isBusy()) {
        std::vector<ImportResult> ended = update();
        results.insert(results.end(), ended.begin(), ended.end());
        if(_job) _job->wait();
    }
    return results;
}

ImportResult ImportQueue::insert(ImportJob& job) {
    ImportResult result{job.source(), {job.error(), {}, 0}};
    if(result.inserted.error.empty()) {
        ImportedScene scene;
        result.inserted.error = readImportedScene(job.folder(), scene);
        if(result.inserted.error.empty()) result.inserted = insertImport(scene, _session);
    }
    say(job.name(), result.inserted);
    return result;
}

InsertedImport ImportQueue::importNow(const std::string& path) {
    ImportJob job{_converter, path, _limits};
    while(job.update() == ImportJob::State::Running) job.wait();
    sayWarnings(job);
    return insert(job).inserted;
}

} // namespace VantrelEngine
