#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Data/JournalEntry.h"

namespace VantrelEngine {

class ChangeManager;

// What is known of a step besides its changes: its name, and the ids of the objects that were selected before and after.
struct RecoveredStep {
    std::string name;
    std::vector<std::string> before, after;
};

// What a journal has of a project, and how it is brought back.
class CORRADE_VISIBILITY_EXPORT Recovery {
public:
    // Of the text of a journal. Of one that is damaged, what stands before the damage counts.
    explicit Recovery(std::string_view text);

    // Something stands behind what counts.
    bool isDamaged() const { return _isDamaged; }
    // Finds the last place of the journal where the project was what this file has, none for a new project. False where
    // there is none: the file was written by somebody else since.
    bool findFile(const std::optional<FileFingerprint>& file);
    // The same of the base of the journal. What is missed is what the file lacks that was there before.
    bool findBase(const std::optional<FileFingerprint>& base);
    bool hasPlace() const { return _place.has_value(); }

    // The following of the place that was found, or of the begin of the journal.

    // The steps that were made, undone or made again since; of those that were made the names of some, the last one first,
    // and the time of that, in seconds since 1970.
    struct Lost {
        std::size_t count = 0;
        std::vector<std::string> names;
        std::int64_t time = 0;
    };
    Lost lost() const;

    // Puts the empty log and the document, which is as at the place, into the state at the end; the one at the place counts
    // as saved. False where it does not fit
    // together; what came before that is brought back. Once.
    bool apply(ChangeManager& changes);
    // Those of the log afterwards.
    const std::vector<RecoveredStep>& steps() const { return _steps; }
    // How many of them are in effect.
    std::size_t position() const { return _position; }
    // Up to where the journal was brought back: it may go on from there.
    std::size_t size() const { return _size; }
    std::uint64_t checksum() const { return _checksum; }

private:
    static constexpr std::size_t MaxNames = 5;

    struct Line {
        JournalEntry entry;
        std::size_t size;
        std::uint64_t checksum;
    };
    // A list of steps, by their lines, and how many of them are in effect.
    struct State {
        std::vector<std::size_t> steps;
        std::size_t position = 0;
    };

    void advance(State& state, std::size_t line) const;
    bool findPlace(JournalEntry::Kind kind, const std::optional<FileFingerprint>& contents);
    State stateAt(std::size_t lineCount) const;
    void restoreLog(ChangeManager& changes, const State& state);
    bool applyLine(ChangeManager& changes, JournalEntry& entry);
    bool applyStep(ChangeManager& changes, ReadStep& step);
    void addStep(ReadStep& step);

    std::vector<Line> _lines;
    bool _isDamaged = false;
    // How many lines lead to it.
    std::optional<std::size_t> _place;
    // The same of where the project's file was last.
    std::size_t _saved = 0;
    std::vector<RecoveredStep> _steps;
    std::size_t _position = 0;
    std::size_t _size = 0;
    std::uint64_t _checksum = 0;
};

} // namespace VantrelEngine
