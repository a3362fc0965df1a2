#include "Data/Journal.h"

#include <algorithm>
#include <ctime>
#include <numeric>
#include <utility>

#include <Corrade/Utility/Debug.h>

#include "Data/JournalEntry.h"
#include "Data/Project/FileCalls.h"
#include "Data/Project/ReplaceFile.h"
#include "Data/StepLog.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::chrono::seconds RetryTime{2};
// What is not needed any more may take so much room at least, and as much as the rest.
constexpr std::size_t SpareSize = 64 * 1024;

} // namespace

void Journal::begin(const std::string& path, const std::optional<FileFingerprint>& contents) {
    auto file = std::make_unique<JournalFile>(_calls);
    const std::string error = file->open(path);
    begin(std::move(file), contents);
    _path = path;
    if(!error.empty()) take(error);
}

void Journal::begin(std::unique_ptr<JournalFile> file, const std::optional<FileFingerprint>& contents) {
    _file = std::move(file);
    _path = _file->path();
    _contents = contents;
    // All of them are written now.
    _steps.takeFirstNew();
    _sizes.clear();
    _position = 0;
    _isIncomplete = true;
    _trouble.clear();
    _nextAttempt = {};
    if(_file->isOpen()) write();
}

void Journal::goOn(std::unique_ptr<JournalFile> file, const std::optional<FileFingerprint>& contents) {
    _file = std::move(file);
    _path = _file->path();
    _contents = contents;
    _steps.takeFirstNew();
    // How much room each of them takes is told when all of it is written anew.
    _sizes.assign(_steps.steps().size(), 0);
    _position = _steps.position();
    _isIncomplete = false;
    _trouble.clear();
}

void Journal::end() {
    if(_file->isThere()) _calls.unlink(basePath(_path).data());
    _file->remove();
    _path.clear();
    _trouble.clear();
}

void Journal::leave() {
    _file->close();
    _path.clear();
}

void Journal::update() {
    if(!isOn()) return;
    takeFlush();
    if(takeNew() && !isUpToDate() && !isWaiting()) write();
}

// Forgets what is written of steps that are others now. False while a gesture is under way: nothing is known of it.
bool Journal::takeNew() {
    if(_changes.trial() != Trial::None || _changes.group() >= 0) return false;
    _sizes.resize(std::min(_sizes.size(), _steps.takeFirstNew()));
    return true;
}

// A failure is not repeated frame after frame, but with each step.
bool Journal::isWaiting() const {
    return !_trouble.empty() && _failedCount == _steps.steps().size() && _failedPosition == _steps.position() &&
        std::chrono::steady_clock::now() < _nextAttempt;
}

bool Journal::isUpToDate() const {
    return !_isIncomplete && _sizes.size() == _steps.steps().size() && _position == _steps.position();
}

// Where undo and redo do not lead to what is saved, there is no place for the project's file among the steps: those that are
// new are added then, as long as the file is there.
void Journal::write() {
    const bool isWhole = _steps.savedPosition() || !_file->isThere() || !_file->size();
    take(_isIncomplete && isWhole ? rewrite() : append());
}

void Journal::take(const std::string& error) {
    if(error.empty()) {
        if(!_trouble.empty()) Utility::Debug{} << _path.data() << "is written again";
        _trouble.clear();
        _nextAttempt = {};
        return;
    }
    if(_trouble.empty())
        Utility::Warning{} << _path.data() << Utility::Debug::nospace
                           << ": the journal cannot be written:" << error.data() << Utility::Debug::nospace
                           << "; what is not saved is lost if the editor ends unexpectedly";
    _trouble = error;
    _failedCount = _steps.steps().size();
    _failedPosition = _steps.position();
    _nextAttempt = std::chrono::steady_clock::now() + RetryTime;
}

// What the disk did not take is not known: all of it is written anew.
void Journal::takeFlush() {
    const std::string error = _file->takeFlushError();
    if(error.empty()) return;
    _isIncomplete = true;
    take(error);
}

std::string Journal::stepLine(std::size_t i) const {
    static const SelectedIds none;
    const Step& step = _steps.steps()[i];
    return stepEntry({step.name, std::time(nullptr), _changes.changes().slice(step.first, step.end),
        step.selectedBefore, step.selectedAfter, i ? _steps.steps()[i - 1].selectedAfter : none});
}

// Those from the first on, with their sizes, and then the position.
std::string Journal::addSteps(std::vector<std::string>& lines, std::size_t first, std::size_t position) {
    for(std::size_t i = first; i != _steps.steps().size(); ++i) {
        if(position != i) lines.push_back(positionEntry(i));
        lines.push_back(stepLine(i));
        if(lines.back().empty()) return "a step has what cannot be written";
        _sizes.push_back(lines.back().size());
        position = i + 1;
    }
    if(position != _steps.position()) lines.push_back(positionEntry(_steps.position()));
    return {};
}

std::string Journal::append() {
    const std::size_t first = _sizes.size();
    std::vector<std::string> lines;
    std::string error = addSteps(lines, first, _position);
    if(error.empty()) error = _file->add(lines);
    if(error.empty())
        _position = _steps.position();
    else
        _sizes.resize(first);
    // One that is gone has to be made with all that was in it.
    _isIncomplete = !error.empty() && !_file->isThere();
    return error;
}

std::string Journal::reopen() {
    if(_file->isThere()) return {};
    return _file->open(_path);
}

// All of it anew: the steps, and where among them the project's file is.
std::string Journal::rewrite() {
    const std::optional<std::size_t> saved = _steps.savedPosition();
    if(!saved) return "it has to be written anew, which the next save does";
    std::string error = reopen();
    if(!error.empty()) return error;
    std::vector<std::string> lines{beginEntry()};
    std::vector<std::size_t> old = std::exchange(_sizes, {});
    error = addSteps(lines, 0, 0);
    if(*saved != _steps.position()) lines.push_back(positionEntry(*saved));
    lines.push_back(fileEntry(_contents));
    if(*saved != _steps.position()) lines.push_back(positionEntry(_steps.position()));
    if(error.empty()) error = _file->replace(lines);
    if(error.empty()) {
        _position = _steps.position();
        _isIncomplete = false;
    } else
        _sizes = std::move(old);
    return error;
}

void Journal::saving(const FileFingerprint& contents) {
    if(!isOn()) return;
    _nextContents = contents;
    const bool isGestureOver = takeNew();
    if(isGestureOver && !isUpToDate()) write();
    // The line says where the steps are that the file has: where they are not all there, or it cannot be written, all of
    // it is written anew when the file is in place.
    if(!isGestureOver || !isUpToDate()) {
        _isIncomplete = true;
        return;
    }
    const std::string error = _file->add({fileEntry(contents)});
    _isIncomplete = !error.empty();
    take(error);
}

void Journal::keepBase(const std::string& text) {
    if(!isOn() || !takeNew()) return;
    if(!isUpToDate()) write();
    // Where that failed, it is said.
    if(!isUpToDate()) return;
    _calls.unlink(basePath(_path).data());
    std::string error = replaceFile(basePath(_path), text, _calls);
    if(error.empty()) error = _file->add({baseEntry(fingerprintOf(text))});
    take(error);
}

void Journal::saved() {
    if(!isOn()) return;
    _contents = _nextContents;
    _calls.unlink(basePath(_path).data());
    const std::size_t needed = std::accumulate(_sizes.begin(), _sizes.end(), std::size_t{});
    if(!_isIncomplete && _file->size() <= 2 * needed + SpareSize) return;
    _isIncomplete = true;
    write();
}

} // namespace VantrelEngine
