#include "Data/Recovery.h"

#include <algorithm>
#include <iterator>

#include "Data/JournalLines.h"

namespace VantrelEngine {

using Kind = JournalEntry::Kind;

Recovery::Recovery(std::string_view text) {
    State state;
    for(const JournalLine& line: readJournalLines(text)) {
        std::optional<JournalEntry> entry = readEntry(line.text);
        // A journal has one begin, and no step behind those that there are.
        if(!entry || (entry->kind == Kind::Begin) != _lines.empty()) break;
        if(entry->kind == Kind::Position && entry->position > state.steps.size()) break;
        _lines.push_back({std::move(*entry), line.size, line.checksum});
        advance(state, _lines.size() - 1);
    }
    _isDamaged = text.size() != (_lines.empty() ? 0 : _lines.back().size);
}

void Recovery::advance(State& state, std::size_t line) const {
    const JournalEntry& entry = _lines[line].entry;
    if(entry.kind == Kind::Position) state.position = entry.position;
    if(entry.kind != Kind::Step) return;
    state.steps.resize(state.position++);
    state.steps.push_back(line);
}

Recovery::State Recovery::stateAt(std::size_t lineCount) const {
    State state;
    for(std::size_t line = 0; line != lineCount; ++line) advance(state, line);
    return state;
}

bool Recovery::findPlace(Kind kind, const std::optional<FileFingerprint>& contents) {
    _place.reset();
    for(std::size_t line = 0; line != _lines.size(); ++line)
        if(_lines[line].entry.kind == kind && _lines[line].entry.file == contents) _place = line + 1;
    _saved = _place.value_or(0);
    return _place.has_value();
}

bool Recovery::findFile(const std::optional<FileFingerprint>& file) { return findPlace(Kind::File, file); }

bool Recovery::findBase(const std::optional<FileFingerprint>& base) {
    if(!findPlace(Kind::Base, base)) return false;
    while(_saved && _lines[_saved - 1].entry.kind != Kind::File) --_saved;
    return true;
}

Recovery::Lost Recovery::lost() const {
    const std::size_t place = _saved;
    const State before = stateAt(place), after = stateAt(_lines.size());
    // Lines are in the order of time: what is new stands behind what is left of the old.
    const auto made = std::lower_bound(after.steps.begin(), after.steps.end(), place);
    const std::size_t kept = std::size_t(made - after.steps.begin());
    const std::size_t inEffect = std::min(kept, after.position);
    Lost lost;
    lost.count = std::size_t(after.steps.end() - made) +
        (before.position > inEffect ? before.position - inEffect : inEffect - before.position);
    for(auto line = after.steps.end(); line != made && lost.names.size() != MaxNames;)
        lost.names.push_back(_lines[*--line].entry.step.name);
    if(made != after.steps.end()) lost.time = _lines[after.steps.back()].entry.step.time;
    return lost;
}

bool Recovery::apply(ChangeManager& changes) {
    const std::size_t place = _place.value_or(0);
    restoreLog(changes, stateAt(place));
    for(std::size_t line = 0; line != _lines.size(); ++line) {
        if(line >= place && !applyLine(changes, _lines[line].entry)) return false;
        _size = _lines[line].size;
        _checksum = _lines[line].checksum;
    }
    return true;
}

// The document has them already.
void Recovery::restoreLog(ChangeManager& changes, const State& state) {
    std::vector<Change> log;
    std::int32_t lastChange = -1, group = 0;
    for(std::size_t i = 0; i != state.steps.size(); ++i) {
        ReadStep& step = _lines[state.steps[i]].entry.step;
        ++group;
        for(Change& change: step.changes)
            if(change.group >= 0) change.group = group;
        std::move(step.changes.begin(), step.changes.end(), std::back_inserter(log));
        if(i < state.position) lastChange = std::int32_t(log.size()) - 1;
        addStep(step);
    }
    changes.restore(std::move(log), lastChange);
    changes.markSaved();
    _position = state.position;
}

void Recovery::addStep(ReadStep& step) {
    RecoveredStep recovered{std::move(step.name), {}, {}};
    if(step.before)
        recovered.before = std::move(*step.before);
    else if(!_steps.empty())
        recovered.before = _steps.back().after;
    recovered.after = step.after ? std::move(*step.after) : recovered.before;
    _steps.push_back(std::move(recovered));
}

bool Recovery::applyLine(ChangeManager& changes, JournalEntry& entry) {
    if(entry.kind == Kind::Step) return applyStep(changes, entry.step);
    if(entry.kind != Kind::Position) return true;
    for(; _position > entry.position; --_position) changes.undoLast();
    for(; _position < entry.position; ++_position) changes.redoLast();
    return true;
}

// Recorded as by a user, so that what does not fit the document is refused, and then all of the step.
bool Recovery::applyStep(ChangeManager& changes, ReadStep& step) {
    const std::int32_t wanted = changes.lastChange() + std::int32_t(step.changes.size());
    const bool isGroup = step.changes.front().group >= 0;
    changes.beginTrial(Trial::Gesture);
    if(isGroup) changes.beginGroup();
    for(const Change& change: step.changes)
        changes.recordChange(change.path, change.newValue ? &*change.newValue : nullptr, false);
    if(isGroup) changes.commit();
    if(changes.lastChange() != wanted) {
        changes.dropTrial();
        return false;
    }
    changes.keepTrial();
    _steps.resize(_position++);
    addStep(step);
    return true;
}

} // namespace VantrelEngine
