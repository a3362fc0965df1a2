#include "Data/Journal.h"

#include <algorithm>
#include <ctime>
#include <numeric>

#include <Corrade/Utility/Debug.h>

#include "Data/JournalEntry.h"
#include "Data/StepLog.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::chrono::seconds RetryTime{2};
// What is not needed any more may take so much room at least, and as much as the rest.
constexpr std::size_t SpareSize = 64 * 1024;

std::size_t sizeOf(const std::vector<std::string>& lines, std::size_t first) {
    return std::accumulate(lines.begin() + std::ptrdiff_t(first), lines.end(), std::size_t{},
        [](std::size_t size, const std::string& line) { return size + line.size(); });
}

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
    _sizes.clear();
    _position = 0;
    _isIncomplete = true;
    _trouble.clear();
    _nextAttempt = {};
    if(_file->isOpen()) write();
}

void Journal::goOn(std::unique_ptr<JournalFile> file, std::size_t position) {
    _file = std::move(file);
    _path = _file->path();
    _steps.takeFirstNew();
    _sizes.clear();
    for(std::size_t i = 0; i != _steps.steps().size(); ++i) _sizes.push_back(0);
    _position = position;
    _isIncomplete = false;
    _trouble.clear();
}

void Journal::end() {
    _file->remove();
    leave();
}

void Journal::leave() {
    _file->close();
    _path.clear();
    _trouble.clear();
}

void Journal::update() {
    if(!isOn() || _changes.trial() != Trial::None || _changes.group() >= 0) return;
    _sizes.resize(std::min(_sizes.size(), _steps.takeFirstNew()));
    if(isUpToDate() || std::chrono::steady_clock::now() < _nextAttempt) return;
    write();
}

bool Journal::isUpToDate() const {
    return !_isIncomplete && _sizes.size() == _steps.steps().size() && _position == _steps.position();
}

void Journal::write() { take(_isIncomplete ? rewrite() : append()); }

void Journal::take(const std::string& error) {
    if(error.empty()) {
        if(!_trouble.empty()) Utility::Debug{} << _path.data() << "is written again";
        _trouble.clear();
        _nextAttempt = {};
        return;
    }
    if(_trouble.empty())
        Utility::Warning{} << _path.data() << Utility::Debug::nospace
                           << ": the journal cannot be written:" << error.data()
                           << Utility::Debug::nospace << "; what is not saved is lost if the editor ends unexpectedly";
    _trouble = error;
    _nextAttempt = std::chrono::steady_clock::now() + RetryTime;
}

std::string Journal::stepLine(std::size_t i) const {
    static const std::vector<std::string> none;
    const Step& step = _steps.steps()[i];
    return stepEntry({step.name, std::time(nullptr), _changes.changes().slice(step.first, step.end),
        step.selectedBefore, step.selectedAfter, i ? _steps.steps()[i - 1].selectedAfter : none});
}

// Those from the first on, and then the position.
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
    const std::size_t written = _sizes.size();
    std::vector<std::string> lines;
    std::string error = addSteps(lines, written, _position);
    if(error.empty()) error = _file->add(lines);
    if(error.empty())
        _position = _steps.position();
    else
        _sizes.resize(written);
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
    const std::ptrdiff_t saved = _steps.savedPosition();
    if(saved < 0) return "the file is gone, and the project has to be saved first";
    std::string error = reopen();
    if(!error.empty()) return error;
    std::vector<std::string> lines{beginEntry()};
    _sizes.clear();
    error = addSteps(lines, 0, 0);
    if(!error.empty()) return error;
    if(std::size_t(saved) != _steps.position()) lines.push_back(positionEntry(std::size_t(saved)));
    lines.push_back(fileEntry(_contents));
    if(std::size_t(saved) != _steps.position()) lines.push_back(positionEntry(_steps.position()));
    error = _file->replace(lines);
    if(!error.empty()) return error;
    _isIncomplete = false;
    _position = _steps.position();
    return {};
}

void Journal::saving(const FileFingerprint& contents) {
    update();
    _contents = contents;
    if(!isOn() || _isIncomplete) return;
    const std::string error = _file->add({fileEntry(contents)});
    // Without it the file would look like somebody else's.
    _isIncomplete = !error.empty();
    take(error);
}

void Journal::saved(const std::string& path) {
    if(!isOn()) return;
    if(path != _path) {
        const std::unique_ptr<JournalFile> old = std::exchange(_file, std::make_unique<JournalFile>(_calls));
        _path = path;
        _isIncomplete = true;
        write();
        // What is not in the new one is safe in the project's file.
        return old->remove();
    }
    const std::size_t needed = std::accumulate(_sizes.begin(), _sizes.end(), std::size_t{});
    if(!_isIncomplete && _file->size() <= 2 * needed + SpareSize) return;
    _isIncomplete = true;
    write();
}

} // namespace VantrelEngine
