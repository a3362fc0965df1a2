#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <VantrelHost/FileFingerprint.h>

#include "Data/JournalFile.h"

namespace VantrelEngine {

class ChangeManager;
class FileCalls;
class StepLog;

// Keeps the steps of a project in a file beside it, so that they outlive the process. See docs/journal.md.
//
// Where the file cannot be written, that is said once, and tried again later: the project can be edited all the same.
class CORRADE_VISIBILITY_EXPORT Journal {
public:
    // All of them outlive the journal.
    explicit Journal(FileCalls& calls, const ChangeManager& changes, StepLog& steps):
        _calls{calls}, _changes{changes}, _steps{steps}, _file{std::make_unique<JournalFile>(calls)} {}

    // Begins with a project that is as its file has it, none for a new one. What is in the journal's file already goes: it
    // is one that was opened, or the one at a path.
    void begin(std::unique_ptr<JournalFile> file, const std::optional<FileFingerprint>& contents);
    void begin(const std::string& path, const std::optional<FileFingerprint>& contents);
    // Goes on with one that the log was brought back from.
    void goOn(std::unique_ptr<JournalFile> file, const std::optional<FileFingerprint>& contents);
    // No more of it; the file goes.
    void end();
    // No more of it; the file stays, for the next one to find.
    void leave();

    // Writes the steps that are finished, and not written yet. Costs what is new.
    void update();
    // The project's file is going to hold this; and does. What is not needed any more goes then, where it is much.
    void saving(const FileFingerprint& contents);
    void saved();
    // Somebody else has written over the project's file: the text of the project as it is here is kept in the base, until
    // the project is saved or the journal ends. Nothing while a gesture is under way.
    void keepBase(const std::string& text);

    // It was begun.
    bool isOn() const { return !_path.empty(); }
    const std::string& path() const { return _path; }
    // Why nothing is written; empty where all is well.
    const std::string& trouble() const { return _trouble; }
    std::size_t size() const { return _file->size(); }

private:
    bool takeNew();
    bool isUpToDate() const;
    bool isWaiting() const;
    void write();
    std::string append();
    std::string rewrite();
    std::string reopen();
    std::string addSteps(std::vector<std::string>& lines, std::size_t first, std::size_t position);
    std::string stepLine(std::size_t step) const;
    void take(const std::string& error);
    void takeFlush();

    FileCalls& _calls;
    const ChangeManager& _changes;
    StepLog& _steps;
    std::string _path;
    std::unique_ptr<JournalFile> _file;
    // What the project's file holds in the state that is saved, and what it is going to hold.
    std::optional<FileFingerprint> _contents, _nextContents;
    // The bytes of each step that is written, those that were undone included; and how many of them are in effect.
    std::vector<std::size_t> _sizes;
    std::size_t _position = 0;
    // The file lacks more than the last steps.
    bool _isIncomplete = false;
    std::string _trouble;
    // When the same is tried again after a failure, and with how many steps it failed, and so many in effect.
    std::chrono::steady_clock::time_point _nextAttempt;
    std::size_t _failedCount = 0, _failedPosition = 0;
};

} // namespace VantrelEngine
