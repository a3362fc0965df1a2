#include "VantrelHost/ProjectStore.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include <VantrelHost/DocumentReader.h>
#include <VantrelHost/DocumentWriter.h>

#include "Data/Project/DefaultSettings.h"
#include "Data/Project/DocumentCheck.h"
#include "Data/Project/EditCheck.h"
#include "Data/Project/FileCalls.h"
#include "Data/Project/FileStamp.h"
#include "Data/Project/ReplaceFile.h"
#include "Vantrel/EngineData/ProjectFile.h"

namespace VantrelEngine {

namespace {

using Kind = DocumentProblem::Kind;

std::size_t countOf(const std::vector<DocumentProblem>& problems, Kind kind) {
    return std::size_t(std::count_if(
        problems.begin(), problems.end(), [kind](const DocumentProblem& problem) { return problem.kind == kind; }));
}

std::optional<FileIdentity> identityOf(const std::string& path) {
    const std::optional<FileStamp> stamp = stampOf(path);
    return stamp ? std::optional<FileIdentity>{stamp->identity} : std::nullopt;
}

std::string repairs(std::size_t count) {
    return "the project was repaired in " + std::to_string(count) + (count == 1 ? " place" : " places") +
        " when it was opened";
}

std::string refusal(const std::string& path, const std::vector<DocumentProblem>& problems) {
    const auto first = std::find_if(
        problems.begin(), problems.end(), [](const DocumentProblem& problem) { return problem.kind == Kind::Refusal; });
    const std::size_t others = countOf(problems, Kind::Refusal) - 1;
    return path + ": " + lineOf(*first) + (others ? " (and " + std::to_string(others) + " more)" : std::string{});
}

} // namespace

struct ProjectStore::State {
    void replace(JsonDocument& document) {
        file.projectFile().Swap(document);
        file.membersChanged();
        file.forgetWarnings();
        check.documentChanged();
    }

    ProjectFile& file;
    EditCheck check;
    std::string path;
    std::size_t repairCount = 0;
    // Files that hold what this program has not, and why: they are not written over unasked.
    std::map<FileIdentity, std::string> kept;
    FileCalls& calls;
    // What was read from the path or written to it last.
    std::optional<FileFingerprint> fingerprint;
    // Of the file when it was read last, and what it held: it is not read again for as long as it is the same.
    mutable std::optional<FileStamp> seenStamp;
    mutable std::optional<FileFingerprint> seen;

    void setPath(const std::string& newPath, std::optional<FileFingerprint> contents) {
        path = newPath;
        fingerprint = contents;
        seenStamp.reset();
    }
    std::optional<FileFingerprint> changedOutside() const {
        const std::optional<FileStamp> stamp = stampOf(path);
        if(path.empty() || !stamp) return {};
        if(!(stamp == seenStamp)) {
            seen = fingerprintOfFile(path);
            seenStamp = stamp;
        }
        return seen == fingerprint ? std::optional<FileFingerprint>{} : seen;
    }

    void keep(const std::string& file, const std::string& reason) {
        if(const auto identity = identityOf(file)) kept[*identity] = reason;
    }
    std::string whyKept(const std::string& file) const {
        const auto identity = identityOf(file);
        const auto found = identity ? kept.find(*identity) : kept.end();
        if(found != kept.end()) return found->second;
        const bool isChanged = identity && identity == identityOf(path) && changedOutside();
        return isChanged ? "the file was changed by somebody else since it was opened or saved" : std::string{};
    }
    void release(const std::string& file) {
        if(const auto identity = identityOf(file)) kept.erase(*identity);
    }
};

ProjectStore::ProjectStore(ProjectFile& file, FileCalls* calls):
    _state{new State{file, {}, {}, 0, {}, calls ? *calls : systemFileCalls(), {}, {}, {}}} {
    file.setDefaults(defaultProject());
    file.setEditGuard(&_state->check);
}

ProjectStore::~ProjectStore() { _state->file.setEditGuard(nullptr); }

void ProjectStore::startNew() {
    JsonDocument document = newProject();
    _state->replace(document);
    _state->setPath({}, {});
    _state->repairCount = 0;
}

ReadProject readProject(const std::string& path) {
    // First: what is written meanwhile makes the project another one than its file, and is noticed.
    ReadProject read{path, {}, {}, fingerprintOfFile(path)};
    read.opened.error = readDocument(path, read.document);
    if(!read.opened.error.empty()) return read;
    read.opened.problems = checkDocument(read.document);
    if(isRefused(read.opened.problems)) read.opened.error = refusal(path, read.opened.problems);
    return read;
}

OpenedProject ProjectStore::open(ReadProject project) {
    OpenedProject& opened = project.opened;
    if(!opened.error.empty()) {
        _state->keep(project.path, "the project in this file could not be opened");
        return opened;
    }
    _state->replace(project.document);
    _state->setPath(project.path, project.fingerprint);
    _state->repairCount = countOf(opened.problems, Kind::Repair);
    if(_state->repairCount)
        _state->keep(project.path, repairs(_state->repairCount));
    else
        _state->release(project.path);
    return std::move(opened);
}

bool ProjectStore::keeps(const std::string& path) const { return !_state->whyKept(path).empty(); }

void ProjectStore::keep(const std::string& path, const std::string& reason) { _state->keep(path, reason); }

std::optional<FileFingerprint> ProjectStore::changedOutside() const { return _state->changedOutside(); }

std::optional<FileFingerprint> ProjectStore::fingerprint() const { return _state->fingerprint; }

std::string ProjectStore::save(const std::string& path, Repaired repaired) {
    std::string text;
    const std::string error = write(path, text);
    return error.empty() ? save(path, text, repaired) : error;
}

std::string ProjectStore::write(const std::string& path, std::string& text) const {
    const std::string error = writeDocument(_state->file.projectFile(), text);
    return error.empty() ? error : path + ": " + error;
}

std::string ProjectStore::save(const std::string& path, const std::string& text, Repaired repaired) {
    // Before it is compared: what comes there from now on is another one.
    const ExpectedFile expected = repaired == Repaired::Keep ? ExpectedFile{stampOf(path)} : ExpectedFile{};
    const std::string kept = _state->whyKept(path);
    if(!kept.empty() && repaired == Repaired::Keep) return path + ": " + kept + ", the file is kept as it is";
    const std::string error = replaceFile(path, text, expected, _state->calls);
    if(!error.empty()) return path + ": " + error;
    // A file that is replaced is another one afterwards; the backup has the old contents, and they are not needed to be
    // guarded any more.
    _state->release(path);
    _state->release(path + ".bak");
    _state->setPath(path, fingerprintOf(text));
    _state->repairCount = 0;
    return {};
}

const std::string& ProjectStore::path() const { return _state->path; }

std::size_t ProjectStore::repairCount() const { return _state->repairCount; }

} // namespace VantrelEngine
