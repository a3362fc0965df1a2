#include <VantrelHost/ProjectStore.h>

#include <algorithm>
#include <utility>

#include <sys/stat.h>

#include "Data/Project/DefaultSettings.h"
#include "Data/Project/DocumentCheck.h"
#include "Data/Project/EditCheck.h"
#include "Data/Project/ReplaceFile.h"
#include "Vantrel/EngineData/ProjectFile.h"
#include <VantrelHost/DocumentReader.h>
#include <VantrelHost/DocumentWriter.h>

namespace VantrelEngine {

namespace {

using Kind = DocumentProblem::Kind;

std::size_t countOf(const std::vector<DocumentProblem>& problems, Kind kind) {
    return std::size_t(std::count_if(
        problems.begin(), problems.end(), [kind](const DocumentProblem& problem) { return problem.kind == kind; }));
}

// Whether two paths lead to one file, also through links.
bool isSameFile(const std::string& a, const std::string& b) {
    if(a == b) return true;
    struct stat left, right;
    return stat(a.data(), &left) == 0 && stat(b.data(), &right) == 0 && left.st_dev == right.st_dev &&
        left.st_ino == right.st_ino;
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
};

ProjectStore::ProjectStore(ProjectFile& file): _state{new State{file, {}, {}, 0}} {
    file.setDefaults(defaultProject());
    file.setEditGuard(&_state->check);
}

ProjectStore::~ProjectStore() { _state->file.setEditGuard(nullptr); }

void ProjectStore::startNew() {
    JsonDocument document = newProject();
    _state->replace(document);
    _state->path.clear();
    _state->repairCount = 0;
}

OpenedProject ProjectStore::open(const std::string& path) {
    OpenedProject opened;
    JsonDocument document;
    opened.error = readDocument(path, document);
    if(!opened.error.empty()) return opened;
    opened.problems = checkDocument(document);
    if(isRefused(opened.problems)) {
        opened.error = refusal(path, opened.problems);
        return opened;
    }
    _state->replace(document);
    _state->path = path;
    _state->repairCount = countOf(opened.problems, Kind::Repair);
    return opened;
}

std::string ProjectStore::save(const std::string& path, Repaired repaired) {
    if(_state->repairCount && repaired == Repaired::Keep && isSameFile(path, _state->path))
        return path + ": the project was repaired in " + std::to_string(_state->repairCount) +
            (_state->repairCount == 1 ? " place" : " places") + " when it was opened, the file is kept as it is";
    std::string text;
    std::string error = writeDocument(_state->file.projectFile(), text);
    if(error.empty()) error = replaceFile(path, text);
    if(!error.empty()) return path + ": " + error;
    _state->path = path;
    _state->repairCount = 0;
    return {};
}

const std::string& ProjectStore::path() const { return _state->path; }

std::size_t ProjectStore::repairCount() const { return _state->repairCount; }

} // namespace VantrelEngine
