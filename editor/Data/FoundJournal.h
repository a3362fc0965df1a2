#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Data/JournalFile.h"
#include "Data/Recovery.h"

namespace VantrelEngine {

// What lies beside a project of an editor that has it open, or ended before the project was saved.
struct FoundJournal {
    enum class State {
        // Nothing that somebody would miss.
        Nothing,
        // Another editor has the project open, or may have it.
        InUse,
        // Steps that the project's file lacks.
        Steps,
        // The same, but the file was written by somebody else since: they belong to what stands in another one.
        Stale
    };

    State state = State::Nothing;
    // Which of both, where it is in use: "it is open in another editor".
    std::string use;
    // Open and locked, if there is one and nobody else has it.
    std::unique_ptr<JournalFile> file;
    // None where it cannot be read.
    std::optional<Recovery> recovery;
    // The file with the project that the steps belong to. Of a stale one it may be empty: nobody has it any more.
    std::string project;
};

// By the path of the project, whose file need not be there.
FoundJournal findJournal(const std::string& project, FileCalls& calls);

} // namespace VantrelEngine
