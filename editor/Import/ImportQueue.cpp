#include "Import/ImportQueue.h"

#include <filesystem>
#include <utility>

#include <Corrade/Utility/Debug.h>

#include "Data/ProjectSession.h"
#include "Import/ImportKinds.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

constexpr const char* UnknownKind = "files of this kind cannot be imported";

void say(const std::string& name, const InsertedImport& inserted) {
    if(!inserted.error.empty()) {
        Utility::Error{} << name.data() << Utility::Debug::nospace << ":" << inserted.error.data();
        return;
    }
    Utility::Debug out;
    out << "Imported" << name.data();
    // An image alone has none.
    if(inserted.objectCount)
        out << Utility::Debug::nospace << ":" << inserted.objectCount
            << (inserted.objectCount == 1 ? "object" : "objects");
}

// Where the insertion begins on the way from 0 to 1.
constexpr float InsertionBegins = 0.7f;
constexpr double Endless = 1e6;
constexpr const char* GroupIsOpen = "nothing can be imported while something else is being changed";

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

void ImportQueue::add(const std::string& path, ImportInto into, const std::optional<Vector3>& place) {
    if(!isImportable(path)) {
        Utility::Error{} << shownText(path).data() << Utility::Debug::nospace << ":" << UnknownKind;
        return;
    }
    if(!isOfOpenProject()) giveUp();
    if(into == ImportInto::NewProject)
        _waiting.push_front({path, into, place});
    else
        _waiting.push_back({path, into, place});
}

std::optional<Range3D> ImportQueue::boundsOf(const std::string& path) const {
    const auto found = _bounds.find(path);
    return found == _bounds.end() ? std::optional<Range3D>{} : found->second;
}

void ImportQueue::cancel() {
    if(isCompiling()) return;
    if(_job) Utility::Debug{} << "Cancelled the import of" << _job->name().data();
    _insertion.reset();
    _job.reset();
}

void ImportQueue::giveUp() {
    _project = _session.data().projectNumber;
    cancel();
    _waiting.clear();
}

bool ImportQueue::isOfOpenProject() { return _project == _session.data().projectNumber; }

bool ImportQueue::isOpening() const {
    return (_job && _into == ImportInto::NewProject) ||
        (!_waiting.empty() && _waiting.front().into == ImportInto::NewProject);
}

std::optional<ImportProgress> ImportQueue::progress() const {
    if(!_job) return {};
    const float fraction = _insertion ? InsertionBegins + (1.0f - InsertionBegins) * _insertion->fraction()
                                      : InsertionBegins * _job->fraction();
    return ImportProgress{
        _job->name(), _insertion ? std::string{_insertion->doing()} : _job->stage(), fraction, _waiting.size()};
}

std::vector<ImportResult> ImportQueue::update(double seconds) {
    if(!isOfOpenProject()) giveUp();
    if(!_job && !_waiting.empty()) start();
    if(_job) goOn(seconds);
    return std::exchange(_ended, {});
}

void ImportQueue::start() {
    _into = _waiting.front().into;
    _place = _waiting.front().place;
    _job = std::make_unique<ImportJob>(_converter, _waiting.front().path, _limits);
    _waiting.pop_front();
}

void ImportQueue::goOn(double seconds) {
    if(_insertion) return insertInSteps(seconds);
    const ImportJob::State state = _job->update();
    sayWarnings(*_job);
    if(state == ImportJob::State::Failed) return end({_job->error(), {}, 0, {}});
    if(state == ImportJob::State::Done)
        _insertion = std::make_unique<InsertImport>(_session, _job->folder(), _into, _place);
}

void ImportQueue::insertInSteps(double seconds) {
    const bool goesOn = _insertion->step(seconds);
    if(!isOfOpenProject()) {
        // It has begun a new one. The others were for the old one.
        _project = _session.data().projectNumber;
        _waiting.clear();
    }
    if(!goesOn) end(_insertion->result());
}

void ImportQueue::end(InsertedImport inserted) {
    say(_job->name(), inserted);
    if(inserted.bounds) _bounds.insert_or_assign(_job->source(), *inserted.bounds);
    _ended.push_back({_job->source(), _into, std::move(inserted)});
    _insertion.reset();
    _job.reset();
}

std::vector<ImportResult> ImportQueue::finish() {
    std::vector<ImportResult> results;
    while(isBusy() && !(_insertion && _insertion->waitsForChanges())) {
        std::vector<ImportResult> ended = update(Endless);
        results.insert(results.end(), ended.begin(), ended.end());
        wait();
    }
    return results;
}

void ImportQueue::wait() {
    if(_insertion)
        _insertion->wait();
    else if(_job)
        _job->wait();
}

InsertedImport ImportQueue::run(const std::string& path) {
    ImportJob job{_converter, path, _limits};
    while(job.update() == ImportJob::State::Running) job.wait();
    sayWarnings(job);
    if(!job.error().empty()) return {job.error(), {}, 0, {}};
    InsertImport insertion{_session, job.folder(), ImportInto::OpenProject, {}, ImportOnTrial::Joins};
    while(insertion.step(Endless)) insertion.wait();
    return insertion.result();
}

InsertedImport ImportQueue::importNow(const std::string& path) {
    if(isCompiling()) insertInSteps(Endless);
    const std::string name = shownText(fs::path{path}.filename().string());
    const bool isAllowed = _session.changes().group() < 0;
    InsertedImport inserted = isAllowed ? run(path) : InsertedImport{GroupIsOpen, {}, 0, {}};
    say(name, inserted);
    return inserted;
}

} // namespace VantrelEngine
