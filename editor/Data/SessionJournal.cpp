#include <chrono>
#include <filesystem>
#include <utility>

#include <Corrade/Utility/Debug.h>

#include "Data/FoundJournal.h"
#include "Data/Journal.h"
#include "Data/Project/FileCalls.h"
#include "Data/ProjectSession.h"
#include "Data/StepWalk.h"
#include "Data/WorkingFolder.h"

// What a session does with journals.
namespace VantrelEngine {

using namespace Corrade;
namespace fs = std::filesystem;

namespace {

constexpr int MaxAside = 1000;
constexpr std::chrono::seconds RetryTime{2};

void warn(const std::string& path, const std::string& text) { Utility::Warning{} << (path + ": " + text).data(); }

// The first name for it that nothing has; empty where there is none.
std::string asideOf(const std::string& journal) {
    std::error_code error;
    for(int i = 1; i != MaxAside; ++i) {
        const std::string aside = journal + '.' + std::to_string(i);
        if(!fs::exists(fs::symlink_status(aside, error))) return aside;
    }
    return {};
}

// Returns an empty text, or why that is not possible; it is as it was then.
std::string putAside(JournalFile& file) {
    const std::string path = file.path(), aside = asideOf(path);
    const std::string error = aside.empty() ? std::string{"there are too many"} : file.rename(aside);
    if(!error.empty()) return "an earlier journal cannot be kept under another name: " + error;
    std::error_code none;
    fs::rename(basePath(path), basePath(aside), none);
    warn(path, "this journal is kept as " + aside);
    return {};
}

// What is not brought back of it is not lost. Whether it is kept.
bool warnOfRest(const std::string& path, const std::string& reason) {
    const std::string aside = asideOf(path);
    std::error_code error;
    fs::copy_file(path, aside, error);
    warn(path, reason + (error ? std::string{} : "; all of it is kept as " + aside));
    return !error;
}

} // namespace

const Journal* ProjectSession::journal() const { return _journal->isOn() ? _journal.get() : nullptr; }

std::string ProjectSession::journaledProject() const {
    if(!_store.path().empty()) return _store.path();
    return _workingFolder ? untitledProject(_workingFolder->path()) : std::string{};
}

FoundJournal ProjectSession::findJournal(const std::string& project) const {
    const bool isOurs = _journal->isOn() && _journal->path() == journalPath(project);
    return isOurs ? FoundJournal{} : VantrelEngine::findJournal(project, _calls);
}

std::string ProjectSession::untitledProject(const std::string& workingFolder) {
    return workingFolder + "/project.json";
}

void ProjectSession::beginJournal(EarlierSteps steps) {
    const std::string project = journaledProject();
    if(!_keepsJournals || project.empty()) return;
    FoundJournal found = findJournal(project);
    using State = FoundJournal::State;
    if(found.state == State::InUse) {
        _store.keep(project, found.use);
        return goWithoutJournal(project, found.use);
    }
    if(found.state == State::Steps && steps == EarlierSteps::BringBack) return bringBack(std::move(found));
    const bool isUnreadable =
        found.file && found.state == State::Nothing && (!found.recovery || found.recovery->isDamaged());
    const bool isMissed = found.state != State::Nothing && steps != EarlierSteps::Discard;
    if(isUnreadable || isMissed) {
        const std::string error = putAside(*found.file);
        if(!error.empty()) return goWithoutJournal(project, error);
        found.file.reset();
    }
    if(!std::exchange(_whyNoJournal, {}).empty()) Utility::Debug{} << project.data() << "has a journal now";
    if(found.file)
        _journal->begin(std::move(found.file), _store.fingerprint());
    else
        _journal->begin(journalPath(project), _store.fingerprint());
}

void ProjectSession::goWithoutJournal(const std::string& project, const std::string& reason) {
    if(_whyNoJournal != reason)
        warn(project,
            reason + "; it has no journal here, and what is not saved is lost if the editor ends unexpectedly");
    _whyNoJournal = reason;
    _nextJournal = std::chrono::steady_clock::now() + RetryTime;
}

std::string ProjectSession::journalTrouble() const { return _journal->isOn() ? _journal->trouble() : _whyNoJournal; }

void ProjectSession::applySteps(FoundJournal& found) {
    Recovery& recovery = *found.recovery;
    const bool fits = recovery.apply(*_changes);
    _steps.update();
    for(std::size_t i = 0; i != recovery.steps().size(); ++i) {
        const RecoveredStep& step = recovery.steps()[i];
        _steps.restore(i, step.before, step.after, step.name);
    }
    update();
    selectAsAfterSteps(*this);
    bool isKept = false;
    if(!fits)
        isKept = warnOfRest(found.file->path(),
            "what it has behind step " + std::to_string(recovery.steps().size()) + " does not fit the project");
    else if(recovery.isDamaged())
        isKept = warnOfRest(
            found.file->path(), "the journal is damaged, and what stands before the damage was brought back");
    if(isKept && _workingFolder) _workingFolder->leave();
}

void ProjectSession::bringBack(FoundJournal found) {
    const Recovery& recovery = *found.recovery;
    applySteps(found);
    // Where that fails, it is tried again with the next step.
    found.file->continueAt(recovery.size(), recovery.checksum());
    _journal->goOn(std::move(found.file), _store.fingerprint());
}

std::string ProjectSession::recoverUntitled(const std::string& workingFolder) {
    startNew();
    _workingFolder = std::make_unique<WorkingFolder>(workingFolder);
    if(_workingFolder->path().empty()) {
        _workingFolder.reset();
        return workingFolder + ": the folder is not there any more, or another editor has it";
    }
    _data.resources().setProjectFolder(workingFolder);
    beginJournal(EarlierSteps::BringBack);
    return {};
}

std::string ProjectSession::recoverCopy(const std::string& path, const std::string& copy) {
    FoundJournal found = findJournal(path);
    if(found.state != FoundJournal::State::Stale || found.project.empty())
        return journalPath(path) + ": what the journal belongs to is not there any more";
    ReadProject read = readProject(found.project);
    read.path = copy;
    const OpenedProject opened = put(std::move(read));
    if(!opened.error.empty()) return opened.error;
    compileResources();
    compileObjects();
    applySteps(found);
    const std::string error = save(copy);
    if(!error.empty()) return error;
    _calls.unlink(basePath(found.file->path()).data());
    found.file->remove();
    return {};
}

// The new file may have another journal; the old one goes when all is in it.
void ProjectSession::journalSaved() {
    if(_journal->isOn() && _journal->path() == journalPath(_store.path())) return _journal->saved();
    const std::unique_ptr<Journal> old = std::exchange(_journal, std::make_unique<Journal>(_calls, *_changes, _steps));
    beginJournal(EarlierSteps::PutAside);
    old->end();
}

void ProjectSession::keepIfOpenElsewhere(const std::string& path) {
    const std::string journal = journalPath(path);
    if(!_keepsJournals || path == _store.path() || journal == _journal->path()) return;
    JournalFile file{_calls};
    const std::string error = file.openExisting(journal);
    if(file.isInUse()) _store.keep(path, error);
}

bool ProjectSession::keepsFile(const std::string& path) {
    keepIfOpenElsewhere(path);
    return _store.keeps(path);
}

// That of a project without a file is begun with its first step. Where none could be begun, it is tried again.
bool ProjectSession::isJournalDue() const {
    if(_journal->isOn() || _changes->trial() != Trial::None || _changes->group() >= 0) return false;
    if(!_whyNoJournal.empty()) return std::chrono::steady_clock::now() >= _nextJournal;
    return _store.path().empty() && !_changes->changes().isEmpty();
}

void ProjectSession::beginMissingJournal() {
    if(folder().empty()) return goWithoutJournal("The new project", "there is no folder for its files");
    beginJournal(EarlierSteps::PutAside);
}

void ProjectSession::keepBase() {
    std::string text;
    _steps.update();
    if(_journal->isOn() && _store.write(_store.path(), text).empty()) _journal->keepBase(text);
}

void ProjectSession::leaveToJournal() {
    _keepsJournals = false;
    if(!_journal->isOn() || !_changes->hasUnsavedChanges()) return;
    _journal->leave();
    if(_workingFolder) _workingFolder->leave();
}

void ProjectSession::updateJournal() {
    if(!_keepsJournals) return;
    if(isJournalDue()) beginMissingJournal();
    _journal->update();
}

} // namespace VantrelEngine
