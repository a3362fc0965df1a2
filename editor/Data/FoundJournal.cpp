#include "Data/FoundJournal.h"

#include <VantrelHost/FileFingerprint.h>

namespace VantrelEngine {

namespace {

// Nothing was done since: neither its steps nor what the file holds are missed.
bool isMissed(const Recovery& recovery) { return recovery.lost().count != 0; }

// The first file that holds what the steps belong to.
std::string projectOf(Recovery& recovery, const std::string& project) {
    // A save keeps the file before it.
    for(const std::string& candidate: {project, realPath(project) + ".bak"})
        if(recovery.findFile(fingerprintOfFile(candidate))) return candidate;
    const std::string base = basePath(journalPath(project));
    return recovery.findBase(fingerprintOfFile(base)) ? base : std::string{};
}

} // namespace

FoundJournal findJournal(const std::string& project, FileCalls& calls) {
    FoundJournal found;
    auto file = std::make_unique<JournalFile>(calls);
    const std::string error = file->openExisting(journalPath(project));
    if(file->isInUse()) {
        found.state = FoundJournal::State::InUse;
        found.use = error;
    }
    if(!error.empty()) return found;
    found.file = std::move(file);
    std::string text;
    if(!found.file->read(text).empty()) return found;
    found.recovery.emplace(text);
    found.project = projectOf(*found.recovery, project);
    if(!isMissed(*found.recovery)) return found;
    found.state = found.project == project ? FoundJournal::State::Steps : FoundJournal::State::Stale;
    return found;
}

} // namespace VantrelEngine
