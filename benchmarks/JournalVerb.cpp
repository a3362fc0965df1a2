#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
namespace fs = std::filesystem;

namespace {

constexpr double ShareLimit = 0.05;
constexpr double StepsLimit = 1.15;
constexpr std::size_t FewSteps = 1000, ManySteps = 10000;

// A project's file in a folder of its own, gone afterwards.
class ProjectFolder {
public:
    ProjectFolder() {
        std::string name = (fs::temp_directory_path() / "vantrel-bench-XXXXXX").string();
        if(!mkdtemp(name.data())) throw std::runtime_error{"no folder for the project can be made"};
        _path = name;
    }
    ProjectFolder(const ProjectFolder&) = delete;
    ProjectFolder& operator=(const ProjectFolder&) = delete;
    ~ProjectFolder() { fs::remove_all(_path); }

    std::string file() const { return (_path / "scene.json").string(); }
    std::string journal() const { return (_path / ".scene.json.journal").string(); }

private:
    fs::path _path;
};

std::unique_ptr<ProjectSession> openIn(const ProjectFolder& folder, const BenchProject& project, bool hasJournal) {
    std::unique_ptr<ProjectSession> session = project.open();
    if(hasJournal) session->keepJournals();
    const std::string error = session->save(folder.file());
    if(!error.empty()) throw std::runtime_error{error};
    return session;
}

void endFrame(ProjectSession& session) {
    session.steps().update();
    session.updateJournal();
}

// A drag as the gizmo makes it, until its step is written; then it is undone.
double dragSeconds(ProjectSession& session, const std::vector<std::string>& paths, std::size_t frames) {
    static std::uint64_t key = 0;
    ++key;
    const double seconds = secondsOf([&] {
        session.changes().beginTrial(Trial::Gesture);
        for(std::size_t frame = 0; frame != frames; ++frame) {
            dragFrame(session, paths, key, frame);
            endFrame(session);
        }
        session.changes().keepTrial();
        endFrame(session);
    });
    session.changes().undoLast();
    session.update();
    endFrame(session);
    return seconds;
}

// What a drag with its step spends in the journal, beside all else of it: two drags beside each other differ by more.
double journalShare(ProjectSession& session, const std::vector<std::string>& paths, std::size_t frames) {
    static std::uint64_t key = 1ull << 33;
    ++key;
    double seconds = 0.0;
    const auto endTimedFrame = [&] {
        session.steps().update();
        seconds += secondsOf([&] { session.updateJournal(); });
    };
    const double whole = secondsOf([&] {
        session.changes().beginTrial(Trial::Gesture);
        for(std::size_t frame = 0; frame != frames; ++frame) {
            dragFrame(session, paths, key, frame);
            endTimedFrame();
        }
        session.changes().keepTrial();
        endTimedFrame();
    });
    session.changes().undoLast();
    session.update();
    endFrame(session);
    return seconds / (whole - seconds);
}

// From the end of the drag until its step is written, by the clock.
double stepSeconds(ProjectSession& session, const std::vector<std::string>& paths) {
    static std::uint64_t key = 1ull << 32;
    dragFrame(session, paths, ++key, 0);
    session.steps().update();
    const auto begin = std::chrono::steady_clock::now();
    session.updateJournal();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// What an editor leaves behind that ended after so many steps.
void leaveSteps(const BenchProject& project, std::size_t count, const ProjectFolder& to) {
    const ProjectFolder folder;
    const std::unique_ptr<ProjectSession> session = openIn(folder, project, true);
    const std::vector<std::string> paths = spreadPaths(*session, 100);
    for(std::size_t i = 0; i != count; ++i) {
        const JsonValue value{double(i)};
        session->changes().recordChange({(paths[i % paths.size()] + "/translation/0").data()}, &value, false);
        endFrame(*session);
    }
    fs::copy(folder.file(), to.file());
    fs::copy(folder.journal(), to.journal());
}

double bringBackSeconds(const ProjectFolder& folder) {
    const ProjectFolder copy;
    fs::copy(folder.file(), copy.file());
    fs::copy(folder.journal(), copy.journal());
    ProjectSession session;
    session.keepJournals();
    session.open(copy.file());
    return secondsOf([&] { session.beginJournal(ProjectSession::EarlierSteps::BringBack); });
}

}

void journal(std::size_t size, std::size_t count, std::size_t frames, const Budget& budget) {
    const BenchProject project{projectOptions(size)};
    const ProjectFolder folder, other;
    const std::unique_ptr<ProjectSession> with = openIn(folder, project, true), without = openIn(other, project, false);
    const std::vector<std::string> paths = spreadPaths(*with, count);
    const Result drag = measureTimedPairs(
        "journal", "drag", [&] { return dragSeconds(*with, paths, frames); },
        [&] { return dragSeconds(*without, paths, frames); }, budget);
    print(drag);
    printLine(limitLine("journal", "share_of_drag", "ratio", journalShare(*with, paths, frames), ShareLimit));
    printLine(timeLine("journal", "step", medianSeconds([&] { return stepSeconds(*with, paths); }, budget)));

    const BenchProject small{projectOptions(100)};
    const ProjectFolder few, many;
    leaveSteps(small, FewSteps, few);
    leaveSteps(small, ManySteps, many);
    printGrowth("journal", "steps_brought_back",
        measureGrowth(
            {FewSteps, ManySteps}, [&](std::size_t steps) { return bringBackSeconds(steps == FewSteps ? few : many); },
            budget),
        StepsLimit);
}

}
