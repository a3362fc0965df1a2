#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Import/ImportJob.h"
#include "Import/InsertImport.h"

namespace VantrelEngine {

struct ImportResult {
    // The file.
    std::string source;
    ImportInto into;
    InsertedImport inserted;
};

struct ImportProgress {
    std::string name, stage;
    // 0 to 1.
    float fraction;
    // How many files come after this one.
    std::size_t waiting;
};

// Imports files into the open project, one after the other, beside what the user does: each is converted by a process of
// its own, and inserted into the project as it is then. What is wrong with one gives a line, and so does its end. One
// that is given up has no result.
class CORRADE_VISIBILITY_EXPORT ImportQueue {
public:
    // The session outlives the queue. converter is the path of the program.
    explicit ImportQueue(ProjectSession& session, std::string converter, const ImportLimits& limits = {});
    ~ImportQueue();
    ImportQueue(const ImportQueue&) = delete;
    ImportQueue& operator=(const ImportQueue&) = delete;

    // A file of a kind that is not known gives a line. One for a new project comes next; what was to come into the old
    // one is given up when it is read.
    // Its objects come to stand on the place, where one is given.
    void add(const std::string& path, ImportInto into = ImportInto::OpenProject,
        const std::optional<Magnum::Vector3>& place = {});
    // The box about the meshes of what was imported from a file last, see InsertedImport. None for other files.
    std::optional<Magnum::Range3D> boundsOf(const std::string& path) const;
    // Gives up the file that is being imported; the next one begins. Nothing while that is compiled.
    void cancel();
    // That, and those that wait.
    void giveUp();
    bool isBusy() const { return _job || !_waiting.empty(); }
    // Whether the open project is going to be replaced: what is changed in it would be lost.
    bool isOpening() const;
    // Nobody edits the project or updates the session meanwhile, see InsertImport.
    bool isCompiling() const { return _insertion && _insertion->isCompiling(); }
    // None while nothing is imported.
    std::optional<ImportProgress> progress() const;

    // Each frame: goes on as far as that takes no waiting, with compiling for about so many seconds. What is done comes
    // into the project, but while a group of the undo log is open or changes are on trial. Imports of a project that is not open any more are
    // given up. Returns what came to an end.
    std::vector<ImportResult> update(double seconds);
    // Goes on until nothing is left to be done, or only what waits for the end of a group or a trial of the undo log.
    std::vector<ImportResult> finish();

    // Imports one file at once, whatever the queue does, as a part of the trial that is under way. Waits for its end. An
    // error while a group of the undo log is open.
    InsertedImport importNow(const std::string& path);

    ProjectSession& session() { return _session; }

private:
    struct Waiting {
        std::string path;
        ImportInto into;
        std::optional<Magnum::Vector3> place;
    };

    bool isOfOpenProject();
    void start();
    void goOn(double seconds);
    void insertInSteps(double seconds);
    void end(InsertedImport inserted);
    void wait();
    InsertedImport run(const std::string& path);

    ProjectSession& _session;
    std::string _converter;
    ImportLimits _limits;
    // What is imported just now, and where it goes when it is converted.
    std::unique_ptr<ImportJob> _job;
    ImportInto _into = ImportInto::OpenProject;
    std::optional<Magnum::Vector3> _place;
    std::unique_ptr<InsertImport> _insertion;
    std::deque<Waiting> _waiting;
    std::vector<ImportResult> _ended;
    // The project that all of them are for.
    unsigned _project = 0;
    // By path.
    std::unordered_map<std::string, Magnum::Range3D> _bounds;
};

} // namespace VantrelEngine
