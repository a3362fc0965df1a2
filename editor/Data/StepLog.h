#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

#include "Data/SelectedIds.h"

namespace VantrelEngine {

class ChangeManager;
class EditorData;

// What is undone at once: records of the change manager, and what was selected when it began and when it was over.
struct Step {
    // [first, end) of the change manager's records.
    std::int32_t first = 0;
    std::int32_t end = 0;
    // Of the records; -1 for one that is alone.
    std::int32_t group = -1;
    SelectedIds selectedBefore, selectedAfter;
    // For people, see stepName().
    std::string name;
};

// The undo log as a person sees it: step by step. Costs what changed; while nothing does, a look at the selection.
class CORRADE_VISIBILITY_EXPORT StepLog {
public:
    // Both outlive the log.
    explicit StepLog(ChangeManager& changes, EditorData& data): _changes{changes}, _data{data} {}

    // Takes over the steps that are finished, and forgets those that were undone and then written over. To be called once
    // a frame, and before each thing that the user does: what is selected then is what the next step begins with. Waits
    // while a gesture is under way, as long as there is a trial or an open group.
    //
    // Where the names are as many as the new steps, these are called so.
    void update(const std::vector<std::string>& names = {});

    // Those that were undone included.
    const std::vector<Step>& steps() const { return _steps; }
    // How many of them are in effect.
    std::size_t position() const;
    // How many are in effect in the state that is saved; none where undo and redo do not lead to it.
    std::optional<std::size_t> savedPosition() const;

    // The first step that is another one than at the last call, at most the number of steps. For one reader.
    std::size_t takeFirstNew();

    // What was selected around a step, and what it is called, where somebody else remembers. Expects that it is there.
    void restore(std::size_t step, SelectedIds before, SelectedIds after, std::string name);

private:
    std::size_t stepsUntil(std::int32_t record) const;
    SelectedIds dropSteps(std::int32_t firstOther);
    void takeSteps(SelectedIds before);
    void noteSelection(bool isOther);

    ChangeManager& _changes;
    EditorData& _data;
    std::vector<Step> _steps;
    std::size_t _firstNew = 0;
    // At the last update: by the scene's ids, and by the document's.
    std::vector<Magnum::UnsignedLong> _selectedBits;
    SelectedIds _selected;
};

} // namespace VantrelEngine
