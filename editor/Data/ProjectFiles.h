#pragma once

#include <set>
#include <string>

namespace VantrelEngine {

class ChangeManager;
class PlacedFiles;
class ProjectFile;

// The project's own files, by their names in the document: relative to its folder. Those that the resources name, and
// those that resources of the undo log name, which undo or redo may bring back.
std::set<std::string> filesOf(const ProjectFile& project);
std::set<std::string> filesOf(const ChangeManager& changes);

struct CopiedFiles {
    // Empty, or one line; nothing else counts then.
    std::string error;
    // Whether those are there, too, that the log alone names.
    bool isWhole = true;
};

// Copies the files of a project from its folder to another one. A file that is missing is told and left out; so is one of
// the log alone that cannot be copied.
CopiedFiles copyProjectFiles(
    const ProjectFile& project, const ChangeManager& changes, const std::string& from, PlacedFiles& to);

} // namespace VantrelEngine
