#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace VantrelEngine {

struct ImportedScene;
class ProjectSession;

// Of the group of the undo log: whoever has something to add to an import opens it again.
constexpr std::uint64_t ImportGesture = 0x696d706f7274;

struct InsertedImport {
    // Empty, or one line; the project is as it was then.
    std::string error;
    // Ids of the new objects that have no parent, and how many new objects there are.
    std::vector<std::string> roots;
    std::size_t objectCount = 0;
};

// Puts an import into the open project, as one step of the undo log: its files into "imported/" below the project's
// folder, then what planImport() says into the document. The new objects without a parent are selected. Expects that no
// group of the log is open. Undo leaves the files, which redo needs; files that nobody names do no harm.
InsertedImport insertImport(ImportedScene& scene, ProjectSession& session);

} // namespace VantrelEngine
