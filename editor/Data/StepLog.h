#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class AssetCompiler;
class ChangeManager;
class EditorData;

// What is undone at once: records of the change manager, and what was selected when it began and when it was over.
struct Step {
    // [first, end) of the change manager's records.
    std::int32_t first = 0;
    std::int32_t end = 0;
    // Ids of the document.
    std::vector<std::string> selectedBefore, selectedAfter;
};

// The undo log as a person sees it: step by step. Costs what changed.
class CORRADE_VISIBILITY_EXPORT StepLog {
public:
    // Both outlive the log.
    explicit StepLog(ChangeManager& changes, EditorData& data): _changes{changes}, _data{data} {}

    // Takes over the steps that are finished, and forgets those that were undone and then written over. To be called once
    // a frame, and before undo and redo, while no gesture is under way: no trial, no open group.
    void update();

    // Those that were undone included.
    const std::vector<Step>& steps() const { return _steps; }
    // How many of them are in effect.
    std::size_t position() const;

    // The first step that is another one than at the last call, at most the number of steps. For one reader.
    std::size_t takeFirstNew();

private:
    ChangeManager& _changes;
    EditorData& _data;
    std::vector<Step> _steps;
    std::size_t _firstNew = 0;
};

} // namespace VantrelEngine
