#include "Data/StepLog.h"

#include <algorithm>

#include <Corrade/Utility/Assert.h>
#include <Vantrel/EditorData/EditorData.h>

#include "ChangeManager.h"
#include "Data/StepName.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::vector<std::string> selectedIds(const EditorData& data) {
    std::vector<std::string> ids;
    const BitSetView selected = data.selection();
    ids.reserve(selected.countSet());
    for(std::size_t object = selected.findFirstSet(); object != selected.size();
        object = selected.findFirstSet(object + 1)) {
        const Containers::StringView id = data.scene().main().objectIds.nameOf(Id(object));
        if(!id.isEmpty()) ids.emplace_back(id.data(), id.size());
    }
    return ids;
}

// Behind the records that are undone together with the first one.
std::int32_t endOfStep(Containers::ArrayView<const Change> changes, std::int32_t first) {
    const std::int32_t group = changes[std::size_t(first)].group;
    std::int32_t end = first + 1;
    while(group > 0 && std::size_t(end) != changes.size() && changes[std::size_t(end)].group == group) ++end;
    return end;
}

} // namespace

void StepLog::update(const std::vector<std::string>& names) {
    if(_changes.trial() != Trial::None || _changes.group() >= 0) return;
    const std::int32_t count = std::int32_t(_changes.changes().size()), firstOther = _changes.firstUnseen();
    const std::int32_t known = _steps.empty() ? 0 : _steps.back().end;
    if(firstOther == count && known == count) return noteSelection(false);
    SelectedIds before = dropSteps(firstOther);
    const std::size_t first = _steps.size();
    takeSteps(std::move(before));
    _changes.markSeen();
    noteSelection(true);
    if(first == _steps.size()) return;
    _steps.back().selectedAfter = _selected;
    if(names.size() == _steps.size() - first)
        for(std::size_t i = 0; i != names.size(); ++i) _steps[first + i].name = names[i];
}

// Forgets the steps that are not as they were from that record on. Returns what was selected when the first one began that
// takes their place.
SelectedIds StepLog::dropSteps(std::int32_t firstOther) {
    const auto changes = _changes.changes();
    // A gesture that went on belongs to the step that it began.
    const auto goesOn = [&](const Step& step) {
        if(step.group <= 0 || step.first > firstOther || step.end < firstOther) return false;
        return std::size_t(firstOther) != changes.size() && changes[std::size_t(step.first)].group == step.group &&
            changes[std::size_t(firstOther)].group == step.group;
    };
    SelectedIds before = _selected;
    while(!_steps.empty() && (_steps.back().end > firstOther || goesOn(_steps.back()))) {
        before = goesOn(_steps.back()) ? _steps.back().selectedBefore : _selected;
        _steps.pop_back();
    }
    _firstNew = std::min(_firstNew, _steps.size());
    return before;
}

void StepLog::takeSteps(SelectedIds before) {
    const auto changes = _changes.changes();
    std::int32_t first = _steps.empty() ? 0 : _steps.back().end;
    while(std::size_t(first) != changes.size()) {
        const std::int32_t end = endOfStep(changes, first);
        const auto records = changes.slice(std::size_t(first), std::size_t(end));
        _steps.push_back(
            {first, end, records.front().group, std::move(before), _selected, stepName(records, _data.project())});
        before = _selected;
        first = end;
    }
}

// The ids are read while the objects are there: what a step deleted has none any more.
void StepLog::noteSelection(bool isOther) {
    const auto words = _data.selection().words();
    if(!isOther && std::equal(words.begin(), words.end(), _selectedBits.begin(), _selectedBits.end())) return;
    _selectedBits.assign(words.begin(), words.end());
    SelectedIds ids = selectedIds(_data);
    // The lists of most steps are one.
    if(ids != _selected) _selected = std::move(ids);
}

std::size_t StepLog::position() const { return stepsUntil(_changes.lastChange()); }

std::optional<std::size_t> StepLog::savedPosition() const {
    const std::optional<std::int32_t> saved = _changes.savedChange();
    if(!saved) return {};
    const std::size_t position = stepsUntil(*saved);
    // In the middle of a gesture that went on afterwards.
    const std::int32_t end = position ? _steps[position - 1].end : 0;
    return end == *saved + 1 ? std::optional<std::size_t>{position} : std::nullopt;
}

std::size_t StepLog::stepsUntil(std::int32_t record) const {
    const auto found = std::upper_bound(
        _steps.begin(), _steps.end(), record + 1, [](std::int32_t end, const Step& step) { return end < step.end; });
    return std::size_t(found - _steps.begin());
}

std::size_t StepLog::takeFirstNew() {
    const std::size_t first = std::min(_firstNew, _steps.size());
    _firstNew = _steps.size();
    return first;
}

void StepLog::restore(std::size_t step, SelectedIds before, SelectedIds after, std::string name) {
    CORRADE_ASSERT(step < _steps.size(), "StepLog::restore(): there is no step" << step, );
    _steps[step].selectedBefore = std::move(before);
    _steps[step].selectedAfter = std::move(after);
    _steps[step].name = std::move(name);
}

} // namespace VantrelEngine
