#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Import/ImportJob.h"
#include "Import/InsertImport.h"

namespace VantrelEngine {

struct ImportResult {
    // The file.
    std::string source;
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
// its own, and inserted into the project as it is then. What is wrong with one gives a line, and so does its end.
class CORRADE_VISIBILITY_EXPORT ImportQueue {
public:
    // The session outlives the queue. converter is the path of the program.
    explicit ImportQueue(ProjectSession& session, std::string converter, const ImportLimits& limits = {});
    ~ImportQueue();
    ImportQueue(const ImportQueue&) = delete;
    ImportQueue& operator=(const ImportQueue&) = delete;

    // A file of a kind that is not known gives a line.
    void add(const std::string& path);
    // Gives up the file that is being imported; the next one begins.
    void cancel();
    bool isBusy() const { return _job || !_waiting.empty(); }
    // None while nothing is imported.
    std::optional<ImportProgress> progress() const;

    // Each frame: goes on as far as that takes no waiting, and inserts what is done, but while a group of the undo log is
    // open. Imports of a project that is not open any more are given up. Returns what came to an end.
    std::vector<ImportResult> update();
    // Goes on until nothing is left to be done.
    std::vector<ImportResult> finish();

    // Imports one file at once, whatever the queue does. Waits for its end.
    InsertedImport importNow(const std::string& path);

    ProjectSession& session() { return _session; }

private:
    bool isOfOpenProject();
    ImportResult insert(ImportJob& job);
    void giveUp();

    ProjectSession& _session;
    std::string _converter;
    ImportLimits _limits;
    std::unique_ptr<ImportJob> _job;
    std::deque<std::string> _waiting;
    // The project that all of them are for.
    unsigned _project = 0;
};

} // namespace VantrelEngine
