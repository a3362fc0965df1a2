#include "Application/JournalQuestions.h"

#include <ctime>
#include <filesystem>

#include "Data/FoundJournal.h"

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

using Kind = ProjectAction::Kind;
using State = FoundJournal::State;

std::string nameOf(const std::string& path) { return fs::path{path}.filename().string(); }

std::string timeOf(std::int64_t seconds) {
    const std::time_t time = std::time_t(seconds);
    std::tm local{};
    char text[64]{};
    if(localtime_r(&time, &local)) std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

std::string stepsOf(const Recovery::Lost& lost) {
    return std::to_string(lost.count) + (lost.count == 1 ? " step that was" : " steps that were") + " not saved";
}

// The last steps, a line each.
std::string listOf(const Recovery::Lost& lost, const std::string& name) {
    std::string text = "\n\n" + name;
    if(lost.time) text += ", the last step at " + timeOf(lost.time);
    for(const std::string& step: lost.names) text += "\n- " + step;
    if(!lost.names.empty() && lost.count > lost.names.size()) text += "\n- ...";
    return text;
}

std::string damage(const FoundJournal& found) {
    return found.recovery->isDamaged() ? "\n\nThe end of the journal is damaged; what stands before it counts." : "";
}

ProjectChoice staleQuestion(const std::string& project, const FoundJournal& found, const Recovery::Lost& lost) {
    const std::string changed = nameOf(project) + " was changed by somebody else meanwhile. ";
    if(found.project.empty())
        return {"Steps that were not saved",
            changed + "The " + stepsOf(lost) + " belong to what was in it before, which is not there any more." +
                listOf(lost, nameOf(project)) + "\n\nKeep the journal under another name?",
            "Keep", "Discard", {Kind::OpenAsItIs, project, false}, {Kind::OpenWithoutSteps, project, false}};
    return {"Steps that were not saved",
        changed + "Bring back " + stepsOf(lost) + ", as the copy " + nameOf(copyPath(project)) + "?" +
            listOf(lost, nameOf(project)) + damage(found),
        "Bring back", "Discard", {Kind::OpenCopy, project, false}, {Kind::OpenWithoutSteps, project, false}};
}

} // namespace

std::string copyPath(const std::string& project) {
    const fs::path path{project};
    for(int i = 1;; ++i) {
        const std::string number = i == 1 ? std::string{} : "-" + std::to_string(i);
        const fs::path copy =
            path.parent_path() / (path.stem().string() + "-recovered" + number + path.extension().string());
        std::error_code error;
        if(!fs::exists(fs::symlink_status(copy, error))) return copy.string();
    }
}

std::optional<ProjectChoice> journalQuestion(const std::string& project, const FoundJournal& found) {
    if(found.state == State::Nothing) return {};
    if(found.state == State::InUse)
        return ProjectChoice{"Open in another editor",
            nameOf(project) + ": " + found.use +
                ". Opened here, too, it has no journal, and is asked for before it is written over.",
            "Open anyway", "", {Kind::OpenAsItIs, project, false}, {}};
    const Recovery::Lost lost = found.recovery->lost();
    if(found.state == State::Stale) return staleQuestion(project, found, lost);
    return ProjectChoice{"Steps that were not saved",
        "Bring back " + stepsOf(lost) + "?" + listOf(lost, nameOf(project)) + damage(found), "Bring back", "Discard",
        {Kind::OpenWithSteps, project, false}, {Kind::OpenWithoutSteps, project, false}};
}

std::optional<ProjectChoice> untitledQuestion(const std::string& workingFolder, const FoundJournal& found) {
    if(found.state != State::Steps) return {};
    const Recovery::Lost lost = found.recovery->lost();
    return ProjectChoice{"Steps that were not saved",
        "Bring back " + stepsOf(lost) + "?" + listOf(lost, "A new project") + damage(found), "Bring back", "Discard",
        {Kind::OpenUntitled, workingFolder, false}, {Kind::DiscardUntitled, workingFolder, false}};
}

std::string untitledLabel(const FoundJournal& found) {
    const Recovery::Lost lost = found.recovery->lost();
    std::string label = std::to_string(lost.count) + (lost.count == 1 ? " step" : " steps");
    if(lost.time) label += ", the last one at " + timeOf(lost.time);
    return lost.names.empty() ? label : label + ": " + lost.names.front();
}

ProjectChoice changedQuestion(const std::string& project, bool hasUnsavedChanges) {
    return {"Changed on disk",
        nameOf(project) + " was changed by somebody else.\n\nRead it again?" +
            (hasUnsavedChanges ? " What is not saved here is lost then." : ""),
        "Reload", "Keep mine", {Kind::OpenAsItIs, project, false}, {Kind::KeepMine, project, false}};
}

} // namespace VantrelEngine
