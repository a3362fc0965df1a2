#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/Json.h"
#include "VantrelHost/DocumentProblem.h"
#include "VantrelHost/FileFingerprint.h"

namespace VantrelEngine {

class FileCalls;
class ProjectFile;

struct OpenedProject {
    // One line, with the path in front, where the project could not be opened; else empty.
    std::string error;
    // In the order of the document. Also where the project was refused.
    std::vector<DocumentProblem> problems;
};

// A project that was read from a file and checked, and not opened yet.
struct ReadProject {
    std::string path;
    JsonDocument document;
    OpenedProject opened;
    // Of the file just before it was read; none where it cannot be.
    std::optional<FileFingerprint> fingerprint;
};

// Needs nothing but the file: any thread may do it.
CORRADE_VISIBILITY_EXPORT ReadProject readProject(const std::string& path);

// Opens and saves the project, and guards its edits: what could not be opened again is kept from coming in.
class CORRADE_VISIBILITY_EXPORT ProjectStore {
public:
    // The file outlives the store. It has the store's edit guard and the engine's defaults from now on. So do the calls,
    // with which files are written; null for the system's.
    explicit ProjectStore(ProjectFile& file, FileCalls* calls = nullptr);
    ~ProjectStore();
    ProjectStore(const ProjectStore&) = delete;
    ProjectStore& operator=(const ProjectStore&) = delete;

    // Puts a new project into the file; it has no path yet.
    void startNew();

    // Puts the project at a path into the file. With an error the file is left as it was. The undo log of the project
    // before is the caller's to clear.
    OpenedProject open(const std::string& path) { return open(readProject(path)); }
    OpenedProject open(ReadProject project);

    enum class Repaired {
        // A file whose project was repaired when it was opened, or could not be opened, is not written over, whatever
        // project is saved there; nor is the project's own one that somebody else changed meanwhile.
        Keep,
        Overwrite
    };

    // Whether save() would not write over the file at the path unless that is wished for.
    bool keeps(const std::string& path) const;
    // The file at the path is not written over unasked from now on, for a reason such as "it is somebody else's".
    void keep(const std::string& path, const std::string& reason);

    // What the file at the project's path holds, where that is neither what was read from it nor what was written to it
    // last. Quick where the file was not touched.
    std::optional<FileFingerprint> changedOutside() const;
    // What was read or written there last; none for a project without a file.
    std::optional<FileFingerprint> fingerprint() const;

    // Writes the project to a path, which becomes its path; the old contents stay as PATH.bak. The undo log is the
    // caller's to mark. Returns an empty text, or one line with the path in front and the reason; the file at the path
    // is whole then, and as it was.
    std::string save(const std::string& path, Repaired repaired = Repaired::Keep);
    // The same in two parts: the text of the project, which is empty where there is an error, and its way to the disk.
    std::string write(const std::string& path, std::string& text) const;
    std::string save(const std::string& path, const std::string& text, Repaired repaired);

    // Where the project was opened or saved last; empty for none.
    const std::string& path() const;
    // How much was changed when it was opened that its file does not have.
    std::size_t repairCount() const;

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
