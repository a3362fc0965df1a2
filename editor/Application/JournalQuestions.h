#pragma once

#include <optional>
#include <string>

#include "Application/EditorDialogs.h"

namespace VantrelEngine {

struct FoundJournal;

// What the user is asked before a project is opened beside which this journal lies; none where there is nothing to be asked.
std::optional<ProjectChoice> journalQuestion(const std::string& project, const FoundJournal& found);
// The same of a project that was never saved.
std::optional<ProjectChoice> untitledQuestion(const std::string& workingFolder, const FoundJournal& found);
// "2 steps, the last one at 2026-11-22 06:30: Rename Ball to Lamp".
std::string untitledLabel(const FoundJournal& found);
// The project's file was changed by somebody else.
ProjectChoice changedQuestion(const std::string& project, bool hasUnsavedChanges);

// "scene-recovered.json" beside "scene.json", or with a number behind it: a name that nothing has.
std::string copyPath(const std::string& project);

} // namespace VantrelEngine
