#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <VantrelHost/FileFingerprint.h>

#include "ChangeManager.h"

namespace VantrelEngine {

// What a line of a journal says, as JSON.
//
// A journal is told from its begin on, as a list of steps and how many of them are in effect. A step is put behind those
// in effect, and what could be redone before it goes. The project's file may be written at any time: where its contents are
// those that a line tells, it holds the project as it was at that line.

// A step as it is written.
struct WrittenStep {
    std::string_view name;
    // Seconds since 1970.
    std::int64_t time = 0;
    Corrade::Containers::ArrayView<const Change> changes;
    // The ids of the objects that were selected before and after it.
    const std::vector<std::string>& before;
    const std::vector<std::string>& after;
    // The selection after the step in front of it; what is the same is not written again.
    const std::vector<std::string>& last;
};

std::string beginEntry();
// None: the project has no file, and is new.
std::string fileEntry(const std::optional<FileFingerprint>& file);
// The base holds this, which is the project as it is here, see basePath().
std::string baseEntry(const FileFingerprint& base);
std::string positionEntry(std::size_t position);
// Empty where the step has what cannot be written.
std::string stepEntry(const WrittenStep& step);

// A step as it is read.
struct ReadStep {
    std::string name;
    std::int64_t time = 0;
    std::vector<Change> changes;
    // None: that of the step in front, and the one before.
    std::optional<std::vector<std::string>> before, after;
};

struct JournalEntry {
    enum class Kind { Begin, File, Base, Position, Step };

    Kind kind = Kind::Begin;
    // Of a file or a base; none for the file of a new project.
    std::optional<FileFingerprint> file;
    std::size_t position = 0;
    ReadStep step;
};
// None for what no journal of this version says.
std::optional<JournalEntry> readEntry(std::string_view line);

} // namespace VantrelEngine
