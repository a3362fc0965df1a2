#include "Data/FoundJournal.h"

#include <VantrelHost/FileFingerprint.h>

namespace VantrelEngine {

namespace {

// Nothing was done since: neither its steps nor what the file holds are missed.
bool isMissed(const Recovery& recovery) { return recovery.lost().count != 0; }

} // namespace

FoundJournal findJournal(const std::string& project, FileCalls& calls) {
    FoundJournal found;
    auto file = std::make_unique<JournalFile>(calls);
    const std::string error = file->openExisting(journalPath(project));
    if(file->isInUse()) found.state = FoundJournal::State::InUse;
    if(!error.empty()) return found;
    found.file = std::move(file);
    std::string text;
    if(!found.file->read(text).empty()) return found;
    found.recovery.emplace(text);
    // A save keeps the file before it.
    for(const std::string& candidate: {project, project + ".bak"}) {
        if(!found.recovery->findFile(fingerprintOfFile(candidate))) continue;
        found.project = candidate;
        break;
    }
    if(!isMissed(*found.recovery)) return found;
    found.state = found.project == project ? FoundJournal::State::Steps : FoundJournal::State::Stale;
    return found;
}

} // namespace VantrelEngine
